// The side files of a folder without projects, which the user may have removed for good.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "system/file_system.h"
#include "work/folder_tree.h"

namespace ordelan::project {

struct SideFiles {
  std::vector<std::string> removable;  // bare names in the order of removal
  std::vector<std::string> kept;       // bare names of audio that a project names
  std::string
      unreadable;  // what could not be searched, so that all audio is kept; empty if nothing
};

// What may be removed in `folder` (with its backslash), and in that folder alone: its plain files
// of fifteen kinds. Two of them, .wma and .m4a, are audio that projects use and that the reader
// does not see. So every file with ".vip" in its name, in the folder, below it and in the folders
// around it, and each of `projects` (paths), is searched for their names first. Those that stand in
// one are kept; all of them where one cannot be read, or where a link leads to folders that are not
// searched. `go_on` is called now and then; when it gives false nothing may be removed.
SideFiles side_files_of(const std::string& folder, const std::vector<std::string>& projects,
                        system::FileSystem& files, work::FolderTree& tree,
                        const std::function<bool()>& go_on);

}  // namespace ordelan::project
