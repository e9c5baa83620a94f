// All files that may be projects, in and below folders.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "system/file_system.h"

namespace ordelan::project {

// Whether a file may be a project by its name: also copies and old versions, and those of any kind
// that hold the word.
bool may_be_project(std::string_view name);

// Finds every file with ".vip" in its name, whatever it is otherwise: hidden, a copy, unlisted. The
// disk is asked itself and not a listing of before.
class VipFiles {
 public:
  // `turn` is called for each folder, and now and then in a large one, and any handler may run
  // inside. When it gives false the search ends at once, and what was found is of no use.
  VipFiles(system::FileSystem& files, std::function<bool()> turn);

  // Adds one that is known, unless it is there already.
  void add(const std::string& path);
  // Adds those in and below the folders, each folder being listed once.
  void add_below(const std::vector<std::string>& folders);

  // Their paths, each once.
  const std::vector<std::string>& paths() const { return paths_; }
  // What could not be listed whole, empty if nothing: a folder that cannot be read (apart from
  // those of the system in the root of a drive, which no program may read), a folder or project
  // that the code page cannot name, a link to a folder that is not searched too.
  const std::string& unread() const { return unread_; }
  enum class WhyUnread { unreadable, linked, unnamed };
  WhyUnread why_unread() const { return why_unread_; }

 private:
  void list(const std::string& here, std::vector<std::string>& below,
            std::vector<std::string>& links);
  void follow(const std::vector<std::string>& links);
  bool step();

  system::FileSystem& files_;
  std::function<bool()> turn_;
  std::size_t steps_ = 0;
  bool ended_ = false;
  std::vector<std::string> paths_;
  std::unordered_set<std::string> known_;  // of the paths
  std::vector<std::string> walked_;        // folders
  std::unordered_set<std::string> folders_;
  std::string unread_;
  WhyUnread why_unread_ = WhyUnread::unreadable;
};

}  // namespace ordelan::project
