// Putting a patched project in its place: others find the old one or the new one, never a half.
#pragma once

#include <memory>
#include <string>

#include "relink/file_image.h"
#include "relink/run_index.h"
#include "system/file_system.h"
#include "work/work_in_hand.h"

namespace ordelan::relink {

// An opened project with its image.
struct OpenProject {
  std::unique_ptr<system::InputFile> file;  // null for one that does not exist yet
  FileImage image{nullptr};
  bool changed_in_place = false;  // bytes of it were overwritten where it stands
};

// The project as it is now; not_found without an error for one that is missing.
system::Result<std::unique_ptr<OpenProject>> open_project(system::FileSystem& files,
                                                          const std::string& path);

// Writes the image over a project that still is as `seen`, and closes it. The new content is
// written to a temporary file beside it, waits for the disk and takes the project's place in one
// step. A project that is a link or has other names on the disk is changed in place: it needs its
// copy before, and gets its old bytes back where that fails. Gives the content after it; in_use if
// the project has changed since it was seen.
system::Result<Content> put_over(system::FileSystem& files, OpenProject& project,
                                 const std::string& path, const work::Visto& seen);
// The same for a project that does not exist, and must not by then.
system::Result<Content> put_new(system::FileSystem& files, OpenProject& project,
                                const std::string& path);

// Removes what a killed update has left of its temporary files in a folder.
void remove_leftovers(system::FileSystem& files, const std::string& folder);

}  // namespace ordelan::relink
