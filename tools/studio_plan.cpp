#include "tools/studio_plan.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "text/code_page.h"

namespace ordelan::studio {
namespace {

constexpr std::array<std::string_view, 13> kSideExtensions = {
    "h2", "hdp", "hm2", "hmp", "ha2", "hap", "hg2", "hgp", "hf2", "hfp", "cue", "hz", "hs"};

std::string_view name_in(std::string_view path) {
  return path.substr(path.rfind('\\') + 1);
}

}  // namespace

StudioPlan::StudioPlan(char main_letter, char second_letter)
    : main_letter_(main_letter), second_letter_(second_letter) {}

std::size_t StudioPlan::tone(const Tone& tone) {
  const auto found = std::find(tones_.begin(), tones_.end(), tone);
  if (found != tones_.end()) return static_cast<std::size_t>(found - tones_.begin());
  tones_.push_back(tone);
  return tones_.size() - 1;
}

void StudioPlan::take_path(std::string_view path, Drive drive) {
  if (!taken_.insert(text::lower(full_path(path, drive))).second) {
    throw std::logic_error("planned twice: " + text::to_utf8(path));
  }
}

void StudioPlan::audio(std::string_view path, std::size_t tone, Drive drive) {
  take_path(path, drive);
  files_.push_back({drive, std::string(path), tone});
}

void StudioPlan::side_file(std::string_view path, Drive drive) {
  take_path(path, drive);
  files_.push_back({drive, std::string(path), PlannedFile::kSideFile});
}

void StudioPlan::side_files(std::string_view audio_path, std::size_t first, std::size_t count,
                            Drive drive) {
  const std::string_view stem = audio_path.substr(0, audio_path.rfind('.'));
  for (std::size_t i = 0; i < count; ++i) {
    const std::string_view extension = kSideExtensions[(first + i) % kSideExtensions.size()];
    side_file(std::string(stem) + "." + std::string(extension), drive);
  }
}

void StudioPlan::project(PlannedProject project) {
  take_path(project.path, Drive::main);
  projects_.push_back(std::move(project));
}

std::string StudioPlan::full_path(std::string_view path, Drive drive) const {
  std::string full(1, drive == Drive::main ? main_letter_ : second_letter_);
  full += ":\\";
  full += path;
  return full;
}

StudioSummary StudioPlan::summary() const {
  StudioSummary summary;
  std::unordered_set<std::string> audio_paths;
  std::unordered_set<std::string> audio_names;
  for (const PlannedFile& file : files_) {
    if (file.tone == PlannedFile::kSideFile) continue;
    audio_paths.insert(text::lower(full_path(file.path, file.drive)));
    audio_names.insert(text::lower(name_in(file.path)));
  }

  std::unordered_set<std::string> referred;
  for (const PlannedProject& project : projects_) {
    summary.references += project.references.size();
    if (project.references.empty()) ++summary.projects_without_audio;
    for (const std::string& reference : project.references) referred.insert(text::lower(reference));
  }
  std::size_t used = 0;
  for (const std::string& path : referred) {
    if (audio_paths.count(path) != 0) {
      ++used;
    } else if (audio_names.count(std::string(name_in(path))) != 0) {
      ++summary.moved;
    } else {
      ++summary.lost;
    }
  }

  summary.projects = projects_.size();
  summary.files = files_.size();
  summary.audio_files = audio_paths.size();
  summary.side_files = summary.files - summary.audio_files;
  summary.unused = summary.audio_files - used;
  return summary;
}

}  // namespace ordelan::studio
