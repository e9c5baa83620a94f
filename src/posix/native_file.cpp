#include "posix/native_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <vector>

namespace ordelan::posix {

using system::Reason;
using system::Status;

Reason reason_of(int error) {
  switch (error) {
    case 0:
      return Reason::ok;
    case ENOENT:
    case ENOTDIR:
      return Reason::not_found;
    case EEXIST:
    case ENOTEMPTY:
      return Reason::exists;
    case EISDIR:
      return Reason::not_a_file;
    case EBUSY:
    case ETXTBSY:
    case EWOULDBLOCK:  // another program has a lease on the file
      return Reason::in_use;
    case EROFS:
      return Reason::read_only;
    case EACCES:
    case EPERM:
      return Reason::no_permission;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return Reason::no_space;
    case ENAMETOOLONG:
      return Reason::too_long;
    case ENODEV:
    case ENXIO:
    case ENOMEDIUM:
    case ESTALE:
    case ENOTCONN:
      return Reason::not_ready;
    case EXDEV:
    case ENOSYS:
    case ENOTSUP:
      return Reason::not_supported;
    default:
      return Reason::other;
  }
}

Reason last_reason() {
  return errno == 0 ? Reason::other : reason_of(errno);
}

Status Descriptor::close() {
  if (number_ < 0 || ::close(std::exchange(number_, -1)) == 0) return {};
  return last_reason();
}

Status write_all(const Descriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto went = ::write(file.number(), bytes.data(), bytes.size());
    if (went < 0 && errno == EINTR) continue;
    if (went < 0) return last_reason();
    bytes.remove_prefix(static_cast<std::size_t>(went));
  }
  return {};
}

Status flush_descriptor(const Descriptor& file) {
  while (::fsync(file.number()) != 0) {
    if (errno == EINTR) continue;
    // Some disks (of other programs, in memory) have nothing to wait for.
    if (errno == EINVAL || errno == ENOTSUP || errno == ENOSYS) return {};
    return last_reason();
  }
  return {};
}

Status rename_to_free(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
  if (errno != EINVAL && errno != ENOSYS) return last_reason();
  // Disks that lack the call have hard links, which never replace anything either.
  if (::link(from.c_str(), to.c_str()) != 0) return last_reason();
  if (::unlink(from.c_str()) == 0) return {};
  const Reason reason = last_reason();
  ::unlink(to.c_str());
  return reason;
}

Reason reason_without_path(const MappedDrives& drives, std::string_view path) {
  if (drives.spelt(path)) return Reason::not_found;  // a folder of the path is missing
  const bool absolute = path.size() > 2 && path[1] == ':' && (path[2] == '\\' || path[2] == '/');
  if (!absolute) return Reason::bad_path;
  const MappedDrive* const drive = drives.drive(path[0]);
  if (drive == nullptr) return Reason::not_found;
  return drive->medium ? Reason::bad_path : Reason::not_ready;
}

bool promises_folder(std::string_view path) {
  return path.back() == '\\' || path.back() == '/';
}

bool may_write(const struct statx& status) {
  static const std::vector<gid_t> groups = [] {
    std::vector<gid_t> found(static_cast<std::size_t>(std::max(::getgroups(0, nullptr), 0)));
    found.resize(static_cast<std::size_t>(
        std::max(::getgroups(static_cast<int>(found.size()), found.data()), 0)));
    found.push_back(::getegid());
    return found;
  }();
  const uid_t user = ::geteuid();
  if (user == 0 || user == status.stx_uid) return (status.stx_mode & S_IWUSR) != 0;
  const bool in_group = std::find(groups.begin(), groups.end(), status.stx_gid) != groups.end();
  return (status.stx_mode & (in_group ? S_IWGRP : S_IWOTH)) != 0;
}

bool is_read_only_file(const std::string& native) {
  struct statx status {};
  return ::statx(AT_FDCWD, native.c_str(), 0, STATX_BASIC_STATS, &status) == 0 &&
         S_ISREG(status.stx_mode) && !may_write(status);
}

}  // namespace ordelan::posix
