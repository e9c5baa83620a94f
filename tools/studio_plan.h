// What a sample studio consists of, before anything is written. Plans are made from numbers alone:
// the same options give the same plan.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "tools/encoders.h"

namespace ordelan::studio {

// Which of the studio's two drives a file lies on.
enum class Drive { main, second };

// A file that is no project: audio (a copy of a tone) or a side file next to audio (some bytes).
struct PlannedFile {
  static constexpr std::size_t kSideFile = static_cast<std::size_t>(-1);

  Drive drive = Drive::main;
  std::string path;              // from the drive's root on, e.g. Mix\bajo.flac; code page
  std::size_t tone = kSideFile;  // index into StudioPlan::tones
};

struct PlannedProject {
  std::string path;  // from the main drive's root on; code page
  std::string header;
  std::vector<std::string> references;  // full paths
  std::size_t bytes = 0;                // about how large the file gets
};

// What a studio holds, counted by looking up every reference in the plan's files.
struct StudioSummary {
  std::size_t projects = 0;
  std::size_t projects_without_audio = 0;
  std::size_t references = 0;  // of all projects together
  std::size_t files = 0;       // audio and side files
  std::size_t audio_files = 0;
  std::size_t side_files = 0;
  std::size_t unused = 0;  // audio files that no project refers to
  std::size_t moved = 0;   // paths referred to without a file, but one of that name lies elsewhere
  std::size_t lost = 0;    // paths referred to without a file, nor one of that name anywhere
};

class StudioPlan {
 public:
  // A plan whose drives have these letters.
  StudioPlan(char main_letter, char second_letter);

  // The index of a tone; tones that are equal share one.
  std::size_t tone(const Tone& tone);

  // Adds a file. Both throw std::logic_error when the path is taken: names on the disk must differ
  // in more than case.
  void audio(std::string_view path, std::size_t tone, Drive drive = Drive::main);
  void side_file(std::string_view path, Drive drive = Drive::main);

  // Adds `count` side files next to an audio file, from the kind `first` on (any number will do).
  // They bear the name of the audio file with their own extension.
  void side_files(std::string_view audio_path, std::size_t first, std::size_t count,
                  Drive drive = Drive::main);

  // Adds a project.
  void project(PlannedProject project);

  // The full path, with its drive letter, of a path from the root on.
  std::string full_path(std::string_view path, Drive drive = Drive::main) const;

  const std::vector<Tone>& tones() const { return tones_; }
  const std::vector<PlannedFile>& files() const { return files_; }
  const std::vector<PlannedProject>& projects() const { return projects_; }

  StudioSummary summary() const;

 private:
  void take_path(std::string_view path, Drive drive);

  char main_letter_;
  char second_letter_;
  std::vector<Tone> tones_;
  std::vector<PlannedFile> files_;
  std::vector<PlannedProject> projects_;
  std::unordered_set<std::string> taken_;
};

// A small studio, made by hand: every kind of reference and of file in a handful of projects.
// With a second drive some of the audio lies there; without, it is lost. Projects get
// `bytes_per_project` bytes, or a size of their own when that is 0.
StudioPlan demo_plan(char main_letter, char second_letter, bool has_second,
                     std::uint64_t bytes_per_project);

// How much a large studio holds; exactly so many of each.
struct LargeStudio {
  std::size_t projects = 0;
  std::size_t references = 0;  // of all projects together
  std::size_t files = 0;       // audio and side files
  std::uint64_t bytes_per_project = 0;
};

// A studio of any size, spread over nested folders by year, artist and song.
StudioPlan large_plan(char main_letter, char second_letter, bool has_second,
                      const LargeStudio& wanted, std::uint64_t seed);

}  // namespace ordelan::studio
