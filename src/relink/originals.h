// The folder of the untouched projects, beside those that are updated: their copies, verified, and
// the index of each update. Nothing that stands in it is lost: what has to make room has a copy in
// a numbered subfolder before, under a name that no listing of projects takes up.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "relink/run_index.h"
#include "system/file_system.h"
#include "system/shell.h"
#include "work/work_in_hand.h"

namespace ordelan::relink {

// The folder of the projects as it stands in `RutaProyectos` (which names a project after a drop),
// cut to the folder where it holds "VIP" or "vip"; and the folder of their originals, with its
// backslash.
std::string projects_folder(const std::string& RutaProyectos);
std::string originals_folder(const std::string& projects_folder);

// Whether a path lies below a folder of originals: what does is never updated.
bool is_original(std::string_view path);

struct OriginalCopy {
  std::string place;  // from the folder of the originals on
  Content content;    // of the project, and so of its copy
  work::Visto seen;   // the project as it stood when it was copied
};

class Originals {
 public:
  // `go_on` is called while files are copied and compared; when it gives false the call ends with
  // `cancelled`. `files` and `shell` must outlive this.
  Originals(system::FileSystem& files, system::Shell& shell, std::string folder,
            std::function<bool()> go_on);
  Originals(const Originals&) = delete;
  Originals& operator=(const Originals&) = delete;

  // Takes the folder for one update, or for the undoing of one, until this is destroyed, and begins
  // its index; in_use while another has it.
  enum class Purpose { update, undo };
  system::Status take(Purpose purpose = Purpose::update);

  // Makes room for the copies of these projects: what stands under their names with other content
  // is saved in numbered subfolders, all at once, and recorded so that the way back of an earlier
  // update finds it there. Where a single file cannot be saved, `copy` tries again.
  system::Status make_room(const std::vector<std::string>& paths);
  // Copies a project under its own name as the shell does, with its question where the name is
  // taken, and compares the copy byte by byte. What stands there with other content is saved
  // before. Where the shell's copy is none (the answer was no), the project has one in a numbered
  // subfolder. A project that has been copied already has its copy.
  system::Status copy(const std::string& path);
  // The same without the shell: in a numbered subfolder in any case.
  system::Status copy_aside(const std::string& path);
  // Saves a file that is about to be written over, which need be no project's. Its copy has reached
  // the disk when it gives ok.
  system::Status save(const std::string& path);

  // Waits until all copies have reached the disk and are recorded. Only then may a project be
  // touched.
  system::Status settle();

  // The copy of a project; null if it has none.
  const OriginalCopy* copy_of(const std::string& path) const;

  // Records what is about to be made of projects, or of files that do not exist yet, and waits
  // until the record has reached the disk.
  system::Status note_changes(const std::vector<ProjectChange>& changes);

  // Records that a change that was recorded did not come about: the way back leaves it alone.
  system::Status note_left(const std::string& path);

  // Closes the index. One of an update that has changed nothing is put away like an undone one; one
  // of an undoing that has saved nothing is removed.
  void close();

  // Whether the folder held a file or folder of that name when it was taken, or has got one by this
  // update. A look for each name takes long on Linux where there is none.
  bool has_name(std::string_view name) const;

 private:
  std::string path_of(std::string_view name) const { return folder_ + std::string(name); }
  bool go_on() const { return go_on_(); }
  system::Status has_copy(const std::string& path) const;
  system::Result<OriginalCopy> verified(const std::string& path, const std::string& place);
  system::Result<OriginalCopy> put_aside(const std::string& path);
  system::Result<std::string> subfolder(std::size_t number);
  system::Status save_present(const std::string& name);
  void keep(const std::string& path, OriginalCopy copy);
  system::Status note(const std::vector<RunRecord>& records);

  system::FileSystem& files_;
  system::Shell& shell_;
  const std::string folder_;
  const std::function<bool()> go_on_;
  std::unique_ptr<system::FileLock> lock_;
  std::unique_ptr<system::OutputFile> index_;
  std::set<std::string> names_;  // in the folder, in capitals
  Purpose purpose_ = Purpose::update;
  std::size_t number_ = 0;
  std::string index_name_;
  bool changes_ = false;
  struct Kept {
    std::string path;
    OriginalCopy copy;
  };
  system::Status flush_saved(std::size_t from);
  system::Status flush_copies(const std::vector<Kept>& copies);

  std::map<std::string, Kept> copies_;  // by the key of the path
  std::vector<Kept> saved_;             // what had to make room
  // By name in capitals: what stands there and may be written over.
  std::map<std::string, work::Visto> room_;
  std::map<std::string, std::size_t> next_number_;  // by name in capitals: where to look first
};

}  // namespace ordelan::relink
