// The shell of a machine that may have no desktop.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "posix/mapped_drives.h"
#include "system/file_system.h"
#include "system/shell.h"

namespace ordelan::posix {

// The native path of the user's own trash, as desktops agree on it: the folder "Trash" of
// $XDG_DATA_HOME or of ~/.local/share. Empty where the environment names no home.
std::string users_trash();

// The topmost folder of the volume that a native path stands or would stand on: where it is
// mounted.
std::string top_of_volume(const std::string& path);

// A server or a script has no desktop to ask, and desktops have no common interface for it. So
// nothing is opened, nothing has a program or an icon, and kinds of files go by their extensions,
// as Windows names those that no program has claimed. Nor is there a way to ask the user: what is
// to be done with a question is not_supported.
//
// Files are recycled as desktops agree on it: those of the volume of the user's own trash to that,
// those of another volume to the user's folder at its top, ".Trash/<uid>" where ".Trash" is a
// folder with the sticky bit and no link, ".Trash-<uid>" otherwise. Folders of a trash that are
// links, or somebody else's, are not used.
class PosixShell final : public system::Shell {
 public:
  using TopOf = std::function<std::string(const std::string& path)>;

  // A shell without a trash: nothing is recycled. `files` must outlive this.
  explicit PosixShell(system::FileSystem& files) : files_(files) {}
  // Recycles to the trash with that native path, which is made when it is first needed, or to that
  // of the file's volume; `top_of` says which volume a path is on. `files` and `drives` must
  // outlive this.
  PosixShell(system::FileSystem& files, const MappedDrives& drives, std::string trash,
             TopOf top_of = top_of_volume)
      : files_(files), drives_(&drives), trash_(std::move(trash)), top_of_(std::move(top_of)) {}

  bool open(const std::string&) override { return false; }
  std::string file_type(const std::string& path) override;
  std::string executable(const std::string&) override { return {}; }
  std::optional<system::Pixels> icon(const std::string&) override { return std::nullopt; }
  system::Status recycle(const std::string& path, system::Confirm confirm) override;
  system::Status copy_into(const std::string& from, const std::string& folder) override;
  system::Status recycles(std::string_view root) override;
  // For one root: what its notes say to have come from that drive's folder. For all drives: all
  // that is in the trashes which files of the drives go to.
  system::Status empty_bin(const std::string& root, system::Confirm confirm) override;

 private:
  // A trash: its folder, and the folder that the paths in its notes begin from (empty where they
  // are whole).
  struct Trash {
    std::string folder;
    std::string top;
  };
  // Those that a file at a native path may go to, the best first, whether they exist or not.
  std::vector<Trash> trashes(const std::string& native) const;

  system::FileSystem& files_;
  const MappedDrives* drives_ = nullptr;
  std::string trash_;
  TopOf top_of_;
};

}  // namespace ordelan::posix
