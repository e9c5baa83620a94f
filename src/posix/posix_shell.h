// The shell of a machine that may have no desktop.
#pragma once

#include <optional>
#include <string>

#include "posix/mapped_drives.h"
#include "system/file_system.h"
#include "system/shell.h"

namespace ordelan::posix {

// The native path of the user's own trash, as desktops agree on it: the folder "Trash" of
// $XDG_DATA_HOME or of ~/.local/share. Empty where the environment names no home.
std::string users_trash();

// A server or a script has no desktop to ask, and desktops have no common interface for it. So
// nothing is opened, nothing has a program or an icon, and kinds of files go by their extensions,
// as Windows names those that no program has claimed. Nor is there a way to ask the user: what is
// to be done with a question is not_supported.
class PosixShell final : public system::Shell {
 public:
  // A shell without a trash: nothing is recycled. `files` must outlive this.
  explicit PosixShell(system::FileSystem& files) : files_(files) {}
  // Recycles to the trash with that native path, which is made when it is first needed. Files of
  // other volumes than its own are not recycled. `files` and `drives` must outlive this.
  PosixShell(system::FileSystem& files, const MappedDrives& drives, std::string trash)
      : files_(files), drives_(&drives), trash_(std::move(trash)) {}

  bool open(const std::string&) override { return false; }
  std::string file_type(const std::string& path) override;
  std::string executable(const std::string&) override { return {}; }
  std::optional<system::Pixels> icon(const std::string&) override { return std::nullopt; }
  system::Status recycle(const std::string& path, system::Confirm confirm) override;
  system::Status copy_into(const std::string& from, const std::string& folder) override;
  system::Status recycles(std::string_view root) override;
  // There is one trash for all drives: it is emptied as a whole, also for one root.
  system::Status empty_bin(const std::string& root, system::Confirm confirm) override;

 private:
  system::FileSystem& files_;
  const MappedDrives* drives_ = nullptr;
  std::string trash_;
};

}  // namespace ordelan::posix
