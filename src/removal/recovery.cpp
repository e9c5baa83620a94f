#include "removal/recovery.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "removal/backup_folder.h"
#include "removal/reasons.h"
#include "system/whole_file.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::removal {
namespace {

using system::Status;

bool is_numbered(const std::string& name) {
  return name.size() >= 4 &&
         std::ranges::all_of(name, [](unsigned char c) { return std::isdigit(c) != 0; });
}

// Makes the folders of a path that are missing.
void make_folders(system::FileSystem& files, const std::string& folder) {
  for (std::size_t end = folder.find('\\', text::root(folder).size()); end != std::string::npos;
       end = folder.find('\\', end + 1)) {
    const std::string part = folder.substr(0, end);
    if (!files.info(part)) files.make_folder(part).ignore();
  }
}

}  // namespace

Recovery::Recovery(system::FileSystem& files, system::Shell& shell, const std::string& log,
                   std::function<bool()> go_on)
    : files_(files), shell_(shell), go_on_(std::move(go_on)) {
  const std::string folder = text::getPath(log, "\\");
  folders_.push_back(folder);
  // A log of an earlier run stands in a numbered folder; its copies stand above it too.
  const std::string bare = folder.substr(0, folder.empty() ? 0 : folder.size() - 1);
  if (is_numbered(std::string(text::file_name(bare)))) {
    folders_.push_back(text::getPath(bare, "\\"));
  }
  indexed_ = files.info(folder + kIndexName).has_value();
  const auto index = bytes_of(files, folder + kIndexName);
  for (CopyRecord& record : read_index(index ? *index : std::string())) {
    std::string path = record.path;
    records_.insert_or_assign(std::move(path), std::move(record));
  }
}

// Whether a place below a folder of copies is one that runs make: the name itself, or in a numbered
// folder. Anything else is no run's, and might lead to a stranger's file.
bool Recovery::is_place(const std::string& place, const std::string& name) const {
  const std::size_t end = place.find('\\');
  const std::string file = end == std::string::npos ? place : place.substr(end + 1);
  if (end != std::string::npos && !is_numbered(place.substr(0, end))) return false;
  return text::equal_ignoring_case(file, name);
}

// A copy is a file of the folder itself, never one that a link leads to. The folder of the log may
// be reached as the user likes.
bool Recovery::is_copy(const std::string& path) const {
  const auto found = files_.info(path);
  if (!found || found->folder || found->link) return false;
  const std::string around = text::getPath(path, "\\");
  if (std::ranges::find(folders_, around) != folders_.end()) return true;
  if (!is_numbered(std::string(text::file_name(around.substr(0, around.size() - 1))))) return true;
  const auto folder = files_.info(around.substr(0, around.size() - 1));
  return folder && !folder->link;
}

bool Recovery::holds(const std::string& copy, const CopyRecord& record) const {
  if (!is_copy(copy)) return false;
  const auto found = files_.info(copy);
  if (!found || found->size != record.size) return false;
  const auto content = content_of(files_, copy, go_on_);
  return content && *content == Content{record.size, record.hash};
}

std::string Recovery::copy_of(const CopyRecord& record, const std::string& name) const {
  for (const std::string& folder : folders_) {
    if (is_place(record.place, name) && holds(folder + record.place, record)) {
      return folder + record.place;
    }
  }
  for (const std::string& folder : folders_) {
    if (holds(folder + name, record)) return folder + name;
    for (std::size_t number = 1;; ++number) {
      const std::string below = folder + numbered_folder(number);
      if (!files_.info(below)) break;
      if (holds(below + "\\" + name, record)) return below + "\\" + name;
    }
  }
  return {};
}

Recovery::Step Recovery::plan(const std::string& line) const {
  Step step{line, {}, {}};
  const std::string name = text::Obtener_Nombre_Archivo(line);
  const bool absolute = !text::root(line).empty();
  if (name.empty()) {
    step.motivo = reason::kNoName;
  } else if (line.find_first_of("*?") != std::string::npos) {
    step.motivo = reason::kWildcard;
  } else if (!absolute) {
    step.motivo = reason::kNoDrive;
  }
  if (!step.motivo.empty()) return step;
  const auto record = records_.find(line);
  if (record != records_.end()) {
    step.copy = copy_of(record->second, name);
  } else if (!indexed_ && is_copy(folders_.front() + name)) {
    step.copy = folders_.front() + name;
  }
  if (step.copy.empty()) step.motivo = reason::kCopyMissing;
  return step;
}

std::string Recovery::bring_back(const std::string& line) {
  const Step step = plan(line);
  if (!step.motivo.empty()) return step.motivo;
  const std::string name = text::Obtener_Nombre_Archivo(line);
  const std::string folder = line.substr(0, line.size() - name.size());
  make_folders(files_, folder);
  Status copied;
  if (files_.info(line)) {
    copied = shell_.copy_into(step.copy, folder);
  } else {
    // In one step, so that a program that is ended in its middle leaves no part of a file that
    // would pass for the whole.
    copied = system::copy_whole(files_, step.copy, line, system::Existing::keep,
                                [this](std::uint64_t) { return go_on_(); });
  }
  if (same_content(files_, step.copy, line, go_on_)) return {};
  return copied ? reason::kDiffers : reason::of(copied);
}

}  // namespace ordelan::removal
