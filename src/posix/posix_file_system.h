// Files on Linux, under mapped drive letters.
#pragma once

#include "posix/mapped_drives.h"
#include "system/file_system.h"

namespace ordelan::posix {

// Names on the disk are UTF-8. Names with characters that no Windows name has are left out, like
// those that the code page cannot hold. Nothing is hidden or of the system; what the user may not
// write is read-only, and is neither emptied, replaced nor removed, as on Windows.
class PosixFileSystem final : public system::FileSystem {
 public:
  // `drives` must outlive the file system.
  explicit PosixFileSystem(const MappedDrives& drives) : drives_(drives) {}

  std::optional<system::FileInfo> info(std::string_view path) override;
  std::optional<system::FileIdentity> identity(std::string_view path) override;
  system::Opened<system::InputFile> open(std::string_view path) override;
  system::Opened<system::OutputFile> create(std::string_view path) override;
  system::Opened<system::OutputFile> create_new(std::string_view path) override;
  system::Opened<system::ChangeFile> change(std::string_view path) override;
  system::Status make_folder(std::string_view path) override;
  system::Status set_attributes(std::string_view path, std::uint32_t attributes) override;
  // The owner, the group and the mode of `to` stay; where they cannot be kept, `to` is not
  // replaced.
  system::Status replace(std::string_view from, std::string_view to) override;
  system::Status move(std::string_view from, std::string_view to) override;
  // The copy has the mode of the original, as far as new files may have it.
  system::Status copy_new(std::string_view from, std::string_view to, const Progress& progress,
                          system::Flush flush = system::Flush::yes) override;
  system::Status flush_folder(std::string_view folder) override;
  system::Status flush_file(std::string_view path) override;
  // Many files take one wait for each disk that they are on, in place of one for each file.
  system::Status flush_files(std::span<const std::string> paths,
                             const GoOn& go_on = nullptr) override;
  system::Opened<system::FileLock> lock(std::string_view path) override;
  system::Status remove(std::string_view path) override;

 private:
  bool each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override;

  const MappedDrives& drives_;
};

}  // namespace ordelan::posix
