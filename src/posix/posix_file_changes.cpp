// The calls that change what stands on the disk.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <vector>

#include "posix/native_file.h"
#include "posix/posix_file_system.h"

namespace ordelan::posix {
namespace {

using system::Reason;
using system::Status;

// The native path that a path leads to in the end, which need not exist yet. Nothing for links that
// lead in circles.
std::optional<std::string> final_target(std::string path) {
  constexpr int kMostLinks = 40;
  for (int links = 0; links < kMostLinks; ++links) {
    std::array<char, PATH_MAX> target{};
    const auto length = ::readlink(path.c_str(), target.data(), target.size());
    if (length < 0) return path;  // no link
    const std::string_view leads(target.data(), static_cast<std::size_t>(length));
    if (leads.starts_with('/')) {
      path = leads;
    } else {
      path.resize(path.rfind('/') + 1);
      path += leads;
    }
  }
  return std::nullopt;
}

// Gives the file `from` the owner, the group and the mode of another, if the user may give them.
Status take_over(const std::string& from, const struct stat& status, const struct stat& wanted) {
  const bool same_owner = status.st_uid == wanted.st_uid && status.st_gid == wanted.st_gid;
  if (!same_owner && ::chown(from.c_str(), wanted.st_uid, wanted.st_gid) != 0) return last_reason();
  constexpr mode_t kModeBits = 07777;
  return ::chmod(from.c_str(), wanted.st_mode & kModeBits) == 0 ? Reason::ok : last_reason();
}

// Copies what is left of an open file to the end of another.
Status copy_bytes(const Descriptor& source, const Descriptor& copy,
                  const system::FileSystem::Progress& progress) {
  constexpr std::size_t kBlock = 1 << 20;
  constexpr std::size_t kInKernel = 4 * kBlock;
  std::uint64_t copied = 0;
  // The kernel copies without a way through this program, where the two disks allow it.
  for (;;) {
    const auto went =
        ::copy_file_range(source.number(), nullptr, copy.number(), nullptr, kInKernel, 0);
    if (went < 0 && errno == EINTR) continue;
    if (went <= 0) break;
    copied += static_cast<std::uint64_t>(went);
    if (progress && !progress(copied)) return Reason::cancelled;
  }
  // What is left: all of it where it does not, and nothing at the end of the file.
  std::vector<char> buffer(kBlock);
  for (;;) {
    const auto came = ::read(source.number(), buffer.data(), buffer.size());
    if (came < 0 && errno == EINTR) continue;
    if (came < 0) return last_reason();
    if (came == 0) return {};
    const Status written = write_all(copy, {buffer.data(), static_cast<std::size_t>(came)});
    if (!written) return written;
    copied += static_cast<std::uint64_t>(came);
    if (progress && !progress(copied)) return Reason::cancelled;
  }
}

// Why the plain file at a native path cannot be moved or removed, ok if it can as far as can be
// seen. A link is looked at itself. `found` is what was seen.
Status changeable(const std::string& native, struct statx& found) {
  if (::statx(AT_FDCWD, native.c_str(), AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS, &found) != 0) {
    return last_reason();
  }
  return S_ISDIR(found.stx_mode) ? Reason::not_a_file : Reason::ok;
}

// Puts a copy of `source`, with the rights of `wanted`, in the place of `target`, which may stand
// on another disk, and removes `source`. On failure both are as they were.
Status replace_by_copy(const std::string& source, const std::string& target,
                       const struct stat& wanted) {
  const Descriptor read(::open(source.c_str(), O_RDONLY | O_CLOEXEC));
  if (!read.valid()) return last_reason();
  std::string path = target.substr(0, target.rfind('/') + 1) + "ordXXXXXX";
  Descriptor copy(::mkostemp(path.data(), O_CLOEXEC));
  if (!copy.valid()) return last_reason();
  Status status = copy_bytes(read, copy, nullptr);
  if (status) status = flush_descriptor(copy);
  const Status closed = copy.close();
  if (status) status = closed;
  struct stat made {};
  if (status && ::lstat(path.c_str(), &made) != 0) status = last_reason();
  if (status) status = take_over(path, made, wanted);
  if (status && ::rename(path.c_str(), target.c_str()) != 0) status = last_reason();
  ::unlink(status ? source.c_str() : path.c_str());
  return status;
}

}  // namespace

Status PosixFileSystem::make_folder(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return reason_without_path(drives_, path);
  return ::mkdir(native->c_str(), 0777) == 0 ? Reason::ok : last_reason();
}

Status PosixFileSystem::set_attributes(std::string_view path, std::uint32_t attributes) {
  using namespace system::attribute;
  const auto native = drives_.native(path);
  if (!native) return reason_without_path(drives_, path);
  struct stat found {};
  if (::stat(native->c_str(), &found) != 0) return last_reason();
  if (promises_folder(path) && !S_ISDIR(found.st_mode)) return Reason::not_found;
  if ((attributes & (kHidden | kSystem)) != 0) return Reason::not_supported;
  constexpr mode_t kModeBits = 07777;
  constexpr mode_t kWriting = S_IWUSR | S_IWGRP | S_IWOTH;
  const mode_t mode = found.st_mode & kModeBits;
  const mode_t wanted = (attributes & kReadOnly) != 0 ? mode & ~kWriting : mode | S_IWUSR;
  if (wanted == mode || ::chmod(native->c_str(), wanted) == 0) return {};
  return last_reason();
}

Status PosixFileSystem::flush_folder(std::string_view folder) {
  const auto native = drives_.native(folder);
  if (!native) return reason_without_path(drives_, folder);
  const Descriptor open(::open(native->c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return open.valid() ? flush_descriptor(open) : last_reason();
}

Status PosixFileSystem::flush_file(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return reason_without_path(drives_, path);
  if (promises_folder(path)) return Reason::not_a_file;
  const Descriptor open(::open(native->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat found {};
  if (!open.valid() || ::fstat(open.number(), &found) != 0) return last_reason();
  return S_ISREG(found.st_mode) ? flush_descriptor(open) : Reason::not_a_file;
}

namespace {

class PosixLock final : public system::FileLock {
 public:
  PosixLock(std::string path, Descriptor file) : path_(std::move(path)), file_(std::move(file)) {}
  // Removed while it is still held, so that nothing of another holder is removed.
  ~PosixLock() override { ::unlink(path_.c_str()); }
  PosixLock(const PosixLock&) = delete;
  PosixLock& operator=(const PosixLock&) = delete;

 private:
  std::string path_;
  Descriptor file_;
};

}  // namespace

system::Opened<system::FileLock> PosixFileSystem::lock(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return reason_without_path(drives_, path);
  if (promises_folder(path)) return Reason::not_a_file;
  constexpr int kTries = 10;
  for (int tries = 0; tries < kTries; ++tries) {
    Descriptor file(::open(native->c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file.valid()) return last_reason();
    if (::flock(file.number(), LOCK_EX | LOCK_NB) != 0) {
      return last_reason();
    }
    // Another holder may have removed the name between the two calls.
    struct stat held {};
    struct stat named {};
    if (::fstat(file.number(), &held) == 0 && ::lstat(native->c_str(), &named) == 0 &&
        held.st_ino == named.st_ino && held.st_dev == named.st_dev) {
      return std::make_unique<PosixLock>(*native, std::move(file));
    }
  }
  return Reason::in_use;
}

Status PosixFileSystem::replace(std::string_view from, std::string_view to) {
  const auto source = drives_.native(from);
  if (!source) return reason_without_path(drives_, from);
  const auto named = drives_.native(to);
  if (!named) return reason_without_path(drives_, to);
  if (promises_folder(from) || promises_folder(to)) return Reason::not_a_file;
  const auto target = final_target(*named);
  if (!target) return Reason::not_found;
  struct stat before {};
  if (::lstat(source->c_str(), &before) != 0) return last_reason();
  if (!S_ISREG(before.st_mode)) return Reason::not_a_file;
  struct stat old {};
  const bool exists = ::lstat(target->c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return last_reason();
  if (exists && !S_ISREG(old.st_mode)) return Reason::not_a_file;
  if (exists && is_read_only_file(*target)) return Reason::read_only;

  Status status = exists ? take_over(*source, before, old) : Status();
  if (status) {
    if (::rename(source->c_str(), target->c_str()) == 0) return {};
    status = last_reason();
    // A link may lead to another disk, to which nothing can be moved in one step.
    if (errno == EXDEV) {
      status = replace_by_copy(*source, *target, exists ? old : before);
      if (status) return {};
    }
  }
  struct stat now {};
  if (exists && ::lstat(source->c_str(), &now) == 0) take_over(*source, now, before).ignore();
  return status;
}

Status PosixFileSystem::remove(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return reason_without_path(drives_, path);
  if (promises_folder(path)) return Reason::not_a_file;
  struct statx found {};
  const Status may = changeable(*native, found);
  if (!may) return may;
  // Windows removes no read-only file: neither does the program anywhere.
  if (S_ISREG(found.stx_mode) && !may_write(found)) return Reason::read_only;
  return ::unlink(native->c_str()) == 0 ? Reason::ok : last_reason();
}

Status PosixFileSystem::move(std::string_view from, std::string_view to) {
  const auto source = drives_.native(from);
  if (!source) return reason_without_path(drives_, from);
  const auto target = drives_.native(to);
  if (!target) return reason_without_path(drives_, to);
  if (promises_folder(from) || promises_folder(to)) return Reason::not_a_file;
  struct statx found {};
  const Status may = changeable(*source, found);
  return may ? rename_to_free(*source, *target) : may;
}

Status PosixFileSystem::copy_new(std::string_view from, std::string_view to,
                                 const Progress& progress, system::Flush flush) {
  const auto source = drives_.native(from);
  if (!source) return reason_without_path(drives_, from);
  const auto target = drives_.native(to);
  if (!target) return reason_without_path(drives_, to);
  if (promises_folder(from) || promises_folder(to)) return Reason::not_a_file;
  const Descriptor read(::open(source->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat found {};
  if (!read.valid() || ::fstat(read.number(), &found) != 0) return last_reason();
  if (!S_ISREG(found.st_mode)) return Reason::not_a_file;
  // A file may be written by the one that creates it, also where its mode lets no user write.
  constexpr mode_t kRights = 0777;
  Descriptor copy(
      ::open(target->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, found.st_mode & kRights));
  if (!copy.valid()) return last_reason();
  Status status;
  try {
    status = copy_bytes(read, copy, progress);
  } catch (...) {
    ::unlink(target->c_str());
    throw;
  }
  const std::array<timespec, 2> times{timespec{0, UTIME_OMIT}, found.st_mtim};
  if (status && ::futimens(copy.number(), times.data()) != 0) status = last_reason();
  if (status && flush == system::Flush::yes) status = flush_descriptor(copy);
  const Status closed = copy.close();
  if (status) status = closed;
  if (!status) ::unlink(target->c_str());
  return status;
}

}  // namespace ordelan::posix
