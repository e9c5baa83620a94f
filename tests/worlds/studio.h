// A random studio on a real disk: folders, audio, projects that refer to it in many spellings,
// links, and what a user does with all that.
#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/hostile_bytes.h"

namespace ordelan::test {

struct Action {
  enum class Kind { open, drop };
  Kind kind = Kind::open;
  std::vector<std::string> items;  // the program's paths; the one picked, or those dropped
};

class Studio {
 public:
  enum class Plan { open_folder, open_tree, drop, two_actions, interrupted, odd_paths };
  static constexpr std::uint64_t kPlans = 6;

  // Writes the studio of that seed into `root`, which stands for D: and is empty.
  Studio(std::uint64_t seed, Plan plan, std::filesystem::path root);

  bool with_subfolders = false;  // CheckSubPath
  bool with_backups = false;     // CheckBAK
  std::vector<Action> actions;
  std::vector<std::string> projects;  // the program's paths of the project files

  // What is on the disk and what is done, in UTF-8.
  std::string description() const { return description_ + described_actions(); }
  std::uint64_t roll(std::uint64_t bound) { return dice_.below(bound); }

  // Writes one more project, which uses every file of the studio; removes an existing one.
  void add_project();
  void remove_project();

 private:
  void add_folders();
  void add_files();
  void add_links();
  void add_projects();
  void choose_actions(Plan plan);
  Action some_open();
  Action some_drop();
  std::string described_actions() const;

  bool one_in(std::uint64_t count) { return dice_.below(count) == 0; }
  std::string folder() { return folders_[dice_.below(folders_.size())]; }
  std::string some_name();
  std::string some_file();
  std::string content();
  std::string reference();
  std::string respelt(std::string path);
  std::string recased(std::string path);
  std::string slashed(std::string path);
  std::string long_name(const std::string& extension, std::size_t longest);
  void add_twins();
  std::string project_bytes(const std::vector<std::string>& references);

  // Whether no entry has that name yet, case ignored; it is taken from then on.
  bool take(const std::string& path);
  std::filesystem::path native(const std::string& path) const;
  void write(const std::string& path, const std::string& bytes);
  void write_project(const std::string& path, const std::vector<std::string>& references);
  void describe(const std::string& line) { description_ += "  " + line + "\n"; }

  Dice dice_;
  std::filesystem::path root_;
  std::vector<std::string> folders_;    // "D:\Mix\"
  std::vector<std::string> promising_;  // projects that should have something to show
  std::vector<std::string> files_;      // the program's paths of audio and side files
  std::vector<std::string> links_;      // of links to folders, with a backslash at the end
  std::vector<std::string> pool_;       // the file names of this studio: few, so that many meet
  std::set<std::string> taken_;
  bool twins_ = false;  // there are names that differ by case alone
  bool odd_;            // dropped paths have slashes, projects the longest names
  std::string description_;
};

}  // namespace ordelan::test
