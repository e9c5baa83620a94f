// Many files that are to reach the disk at once.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <set>
#include <string>
#include <utility>

#include "posix/native_file.h"
#include "posix/posix_file_system.h"

namespace ordelan::posix {
namespace {

// An open file or folder of each disk.
using Disks = std::map<dev_t, Descriptor>;

// Adds the disk of what stands at a native path, a file or, with O_DIRECTORY, a folder. False where
// it cannot be opened or is neither.
bool add_disk(const std::string& native, int flags, Disks& disks) {
  Descriptor open(::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | flags));
  struct stat found {};
  if (!open.valid() || ::fstat(open.number(), &found) != 0) return false;
  if (!S_ISREG(found.st_mode) && !S_ISDIR(found.st_mode)) return false;
  if (S_ISDIR(found.st_mode) != ((flags & O_DIRECTORY) != 0)) return false;
  disks.emplace(found.st_dev, std::move(open));
  return true;
}

// Adds the disks of the files and of the folders in which their names are. False where one cannot
// be found.
bool add_disks(const MappedDrives& drives, std::span<const std::string> paths, Disks& disks) {
  std::set<std::string> folders;
  for (const std::string& path : paths) {
    const auto native = drives.native(path);
    if (!native || promises_folder(path) || !add_disk(*native, 0, disks)) return false;
    folders.insert(native->substr(0, native->rfind('/') + 1));
  }
  for (const std::string& folder : folders) {
    if (!add_disk(folder, O_DIRECTORY, disks)) return false;
  }
  return true;
}

bool flush_disks(const Disks& disks) {
  for (const auto& [device, open] : disks) {
    if (::syncfs(open.number()) != 0) return false;
  }
  return true;
}

}  // namespace

system::Status PosixFileSystem::flush_files(std::span<const std::string> paths, const GoOn& go_on) {
  // A whole disk may have much of other programs to write: for a few files that takes longer.
  constexpr std::size_t kMany = 16;
  Disks disks;
  if (paths.size() >= kMany && add_disks(drives_, paths, disks) && flush_disks(disks)) return {};
  // One at a time says also which of them it is that fails, and why.
  return FileSystem::flush_files(paths, go_on);
}

}  // namespace ordelan::posix
