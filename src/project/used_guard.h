// The last look before files are offered for removal: none of them may be a file that a project
// names, however the project spells it.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "project/candidates.h"
#include "system/file_system.h"
#include "work/folder_tree.h"

namespace ordelan::project {

// Marks (true) the files of `offered` that are the same file as a row of one of the `used` lists.
// Titles of projects (">") among the used rows are passed over. Two are the same file
//
// - if their paths are, with letter case ignored and slashes, ".", ".." and doubled backslashes
//   resolved;
// - if they are one name in one folder by the folder's identity: a substituted drive, a junction,
//   short names;
// - if one is a link to the other, or if both are names of one file and the listings tell it.
//
// The disk is asked about folders, and about single files only where links are met. `tree` has the
// listings of the folders that were searched, and learns those of others. `go_on` is called now and
// then; when it gives false the result is of no use.
std::vector<bool> same_as_used(const Candidates& candidates,
                               const std::vector<Candidates::File>& offered,
                               const std::vector<const std::vector<std::string>*>& used,
                               system::FileSystem& files, work::FolderTree& tree,
                               const std::function<bool()>& go_on);

// The same for paths, whose folders are listed.
std::vector<bool> same_as_used(const std::vector<std::string>& offered,
                               const std::vector<const std::vector<std::string>*>& used,
                               system::FileSystem& files, work::FolderTree& tree,
                               const std::function<bool()>& go_on);

}  // namespace ordelan::project
