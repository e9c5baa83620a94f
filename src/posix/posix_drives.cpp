#include "posix/posix_drives.h"

#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <array>
#include <utility>

#include "posix/native_file.h"

namespace ordelan::posix {
namespace {

// The name of a file system by the number that the system marks it with; the system has no call
// that gives the name itself. Empty for a rare one.
std::string name_of(std::uint32_t number) {
  static constexpr std::array<std::pair<std::uint32_t, const char*>, 14> kNames = {
      {{0xEF53, "ext4"},
       {0x9123683E, "btrfs"},
       {0x58465342, "xfs"},
       {0x2FC12FC1, "zfs"},
       {0x01021994, "tmpfs"},
       {0x794C7630, "overlay"},
       {0x4D44, "FAT"},
       {0x2011BAB0, "exFAT"},
       {0x7366746E, "NTFS"},
       {0x6969, "nfs"},
       {0xFF534D42, "cifs"},
       {0xFE534D42, "smb2"},
       {0x9660, "iso9660"},
       {0x65735546, "fuse"}}};
  const auto* const found = std::find_if(kNames.begin(), kNames.end(),
                                         [&](const auto& each) { return each.first == number; });
  return found == kNames.end() ? "" : found->second;
}

// Two folders of one disk are two volumes to a user who sees them as drives, so the folder has a
// part in the number. It stays the same as long as both do.
std::uint32_t serial_of(const struct stat& folder) {
  const std::uint64_t mixed = (static_cast<std::uint64_t>(folder.st_dev) << 32 ^
                               static_cast<std::uint64_t>(folder.st_ino)) *
                              0x9E3779B97F4A7C15u;
  return static_cast<std::uint32_t>(mixed >> 32);
}

}  // namespace

const MappedDrive* PosixDrives::mapped(std::string_view root) const {
  return root.size() == 3 && root.substr(1) == ":\\" ? drives_.drive(root[0]) : nullptr;
}

std::vector<std::string> PosixDrives::roots() {
  std::vector<std::string> roots;
  for (const char letter : drives_.letters()) roots.push_back(std::string(1, letter) + ":\\");
  return roots;
}

system::DriveType PosixDrives::type(std::string_view root) {
  const MappedDrive* const drive = mapped(root);
  return drive ? drive->type : system::DriveType::no_root_dir;
}

std::optional<system::Volume> PosixDrives::volume(std::string_view root) {
  const MappedDrive* const drive = mapped(root);
  const auto folder = drive ? drives_.native(root) : std::nullopt;  // nothing without a medium
  struct stat status {};
  struct statfs disk {};
  if (!folder || ::stat(folder->c_str(), &status) != 0 || ::statfs(folder->c_str(), &disk) != 0) {
    return std::nullopt;
  }
  return system::Volume{drive->label, serial_of(status),
                        name_of(static_cast<std::uint32_t>(disk.f_type))};
}

system::Result<system::DiskSpace> PosixDrives::space(std::string_view root) {
  const bool is_root = root.size() == 3 && root.substr(1) == ":\\";
  if (!is_root) return system::Reason::bad_path;
  const auto folder = drives_.native(root);
  if (!folder) return reason_without_path(drives_, root);
  struct statvfs disk {};
  if (::statvfs(folder->c_str(), &disk) != 0) return last_reason();
  return system::DiskSpace{std::uint64_t{disk.f_blocks} * disk.f_frsize,
                           std::uint64_t{disk.f_bavail} * disk.f_frsize};
}

}  // namespace ordelan::posix
