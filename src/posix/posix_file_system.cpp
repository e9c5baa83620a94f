#include "posix/posix_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <utility>
#include <vector>

#include "text/code_page.h"

namespace ordelan::posix {
namespace {

// An open file, closed when it goes.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { close(); }

  int number() const { return number_; }
  bool valid() const { return number_ >= 0; }
  bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

class PosixInput final : public system::InputFile {
 public:
  PosixInput(Descriptor file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  std::uint64_t size() const override { return size_; }

  std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
    std::size_t done = 0;
    while (done < buffer.size()) {
      const auto came = ::pread(file_.number(), buffer.data() + done, buffer.size() - done,
                                static_cast<off_t>(offset + done));
      if (came < 0 && errno == EINTR) continue;
      if (came < 0) return std::nullopt;
      if (came == 0) break;
      done += static_cast<std::size_t>(came);
    }
    return done;
  }

 private:
  Descriptor file_;
  std::uint64_t size_;
};

bool write_all(const Descriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto went = ::write(file.number(), bytes.data(), bytes.size());
    if (went < 0 && errno == EINTR) continue;
    if (went < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(went));
  }
  return true;
}

class PosixOutput final : public system::OutputFile {
 public:
  explicit PosixOutput(Descriptor file) : file_(std::move(file)) {}

  bool write(std::string_view bytes) override {
    failed_ = failed_ || !write_all(file_, bytes);
    return !failed_;
  }

  bool close() override { return file_.close() && !failed_; }

 private:
  Descriptor file_;
  bool failed_ = false;
};

// Whether a name of the disk is one that Windows would show. It is then put into `name` as Windows
// would spell it.
bool windows_name(std::string_view native, std::string& name) {
  return text::from_utf8(native, name) && is_windows_name(name);
}

// A separator at the end of a path promises a folder.
bool promises_folder(std::string_view path) {
  return path.back() == '\\' || path.back() == '/';
}

// Whether the mode lets this user write. The superuser counts as the owner of everything: what its
// owner has marked as not to be written is not to be written.
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

bool may_write(const std::string& path) {
  struct statx status {};
  return ::statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS, &status) == 0 &&
         may_write(status);
}

// A moment in the local time of that moment, as days since the 30th of December 1899.
double local_days(const struct statx_timestamp& moment) {
  constexpr double kSecondsPerDay = 86'400;
  constexpr double kDaysTo1970 = 25'569;
  const auto seconds = static_cast<std::time_t>(moment.tv_sec);
  std::tm local{};
  if (::localtime_r(&seconds, &local) == nullptr) return 0;
  const double part = static_cast<double>(moment.tv_nsec) / 1e9;
  return kDaysTo1970 + (static_cast<double>(seconds + local.tm_gmtoff) + part) / kSecondsPerDay;
}

void set_kind(system::FileInfo& entry, bool folder, bool link) {
  entry.folder = folder;
  entry.link = link;
  entry.attributes = folder ? system::attribute::kFolder : system::attribute::kArchive;
}

// Looks at the entry `native_name` of the folder opened as `folder`, and puts everything but its
// name into `entry`. A link is described by what it leads to. False for what is neither a file nor
// a folder.
bool describe(int folder, const char* native_name, system::Detail detail, system::FileInfo& entry) {
  const bool times = detail == system::Detail::times;
  const unsigned wanted = STATX_BASIC_STATS | (times ? STATX_BTIME : 0u);
  struct statx status {};
  if (::statx(folder, native_name, AT_SYMLINK_NOFOLLOW, wanted, &status) != 0) return false;
  const bool link = S_ISLNK(status.stx_mode);
  if (link && ::statx(folder, native_name, 0, wanted, &status) != 0) return false;
  if (!S_ISREG(status.stx_mode) && !S_ISDIR(status.stx_mode)) return false;
  set_kind(entry, S_ISDIR(status.stx_mode), link);
  entry.number = status.stx_ino;
  if (detail == system::Detail::names) return true;
  entry.size = entry.folder ? 0 : status.stx_size;
  if (!may_write(status)) entry.attributes |= system::attribute::kReadOnly;
  if (!times) return true;
  // Some disks do not keep when a file was made: it was there when it was last written at any rate.
  const bool made_known = (status.stx_mask & STATX_BTIME) != 0;
  entry.created = local_days(made_known ? status.stx_btime : status.stx_mtime);
  entry.modified = local_days(status.stx_mtime);
  entry.accessed = local_days(status.stx_atime);
  return true;
}

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

// Gives the file `from` the owner, the group and the mode of another. False where the user may not
// give them.
bool take_over(const std::string& from, const struct stat& status, const struct stat& wanted) {
  const bool same_owner = status.st_uid == wanted.st_uid && status.st_gid == wanted.st_gid;
  if (!same_owner && ::chown(from.c_str(), wanted.st_uid, wanted.st_gid) != 0) return false;
  constexpr mode_t kModeBits = 07777;
  return ::chmod(from.c_str(), wanted.st_mode & kModeBits) == 0;
}

// Writes a copy of `from` to a new file in the folder of `beside`, under a name that nothing else
// has. Gives its path; nothing when that fails, and no copy is left.
std::optional<std::string> copy_beside(const std::string& from, const std::string& beside) {
  const Descriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
  std::string path = beside.substr(0, beside.rfind('/') + 1) + "ordXXXXXX";
  Descriptor copy(source.valid() ? ::mkostemp(path.data(), O_CLOEXEC) : -1);
  if (!copy.valid()) return std::nullopt;
  std::array<char, 65'536> buffer{};
  bool copied = false;
  for (;;) {
    const auto came = ::read(source.number(), buffer.data(), buffer.size());
    if (came < 0 && errno == EINTR) continue;
    copied = came == 0;
    if (came <= 0) break;
    if (!write_all(copy, {buffer.data(), static_cast<std::size_t>(came)})) break;
  }
  if (copy.close() && copied) return path;
  ::unlink(path.c_str());
  return std::nullopt;
}

using Folder = std::unique_ptr<DIR, int (*)(DIR*)>;

Folder open_folder(const std::optional<std::string>& native) {
  return Folder(native ? ::opendir(native->c_str()) : nullptr, &::closedir);
}

}  // namespace

std::optional<system::FileInfo> PosixFileSystem::info(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return std::nullopt;
  system::FileInfo found;
  if (!windows_name(std::string_view(*native).substr(native->rfind('/') + 1), found.name) ||
      !describe(AT_FDCWD, native->c_str(), system::Detail::times, found)) {
    return std::nullopt;
  }
  if (promises_folder(path) && !found.folder) return std::nullopt;
  return found;
}

bool PosixFileSystem::each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                                 const VisitUnnamed& unnamed) {
  // Most folders stand on the disk just as they are spelt, and opening one is look enough.
  Folder open = open_folder(drives_.spelt(folder));
  if (!open) open = open_folder(drives_.native(folder));
  if (!open) return false;
  const int number = ::dirfd(open.get());
  // One entry serves for all, so that its name takes no new room each time.
  system::FileInfo entry;
  for (;;) {
    errno = 0;
    const dirent* found = ::readdir(open.get());
    if (found == nullptr) return errno == 0;
    const std::string_view native = found->d_name;
    if (native == "." || native == "..") continue;
    if (!windows_name(native, entry.name)) {
      system::FileInfo seen;
      if (unnamed && describe(number, found->d_name, system::Detail::names, seen)) {
        unnamed({text::from_utf8_with_marks(native), seen.folder});
      }
      continue;
    }
    // Where the names are enough, what stands beside the name spares a look at the file.
    if (detail == system::Detail::names && (found->d_type == DT_REG || found->d_type == DT_DIR)) {
      set_kind(entry, found->d_type == DT_DIR, false);
      entry.number = found->d_ino;
    } else if (!describe(number, found->d_name, detail, entry)) {
      continue;
    }
    if (!visit(entry)) return true;
  }
}

std::optional<system::FileIdentity> PosixFileSystem::identity(std::string_view path) {
  // Most paths stand on the disk just as they are spelt: one look finds them.
  const auto spelt = drives_.spelt(path);
  struct stat found {};
  if (!spelt) return std::nullopt;
  if (::stat(spelt->c_str(), &found) != 0) {
    const auto native = drives_.native(path);
    if (!native || ::stat(native->c_str(), &found) != 0) return std::nullopt;
  }
  if (promises_folder(path) && !S_ISDIR(found.st_mode)) return std::nullopt;
  return system::FileIdentity{found.st_dev, found.st_ino, 0};
}

std::unique_ptr<system::InputFile> PosixFileSystem::open(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native || promises_folder(path)) return nullptr;
  Descriptor file(::open(native->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.valid() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return nullptr;
  }
  return std::make_unique<PosixInput>(std::move(file), static_cast<std::uint64_t>(status.st_size));
}

std::unique_ptr<system::OutputFile> PosixFileSystem::create(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native || promises_folder(path)) return nullptr;
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK;
  Descriptor file(::open(native->c_str(), kFlags, 0666));
  // A pipe or a device is no file to be written.
  struct stat status {};
  if (!file.valid() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return nullptr;
  }
  return std::make_unique<PosixOutput>(std::move(file));
}

std::unique_ptr<system::OutputFile> PosixFileSystem::create_new(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native || path.back() == '\\') return nullptr;
  Descriptor file(::open(native->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  return file.valid() ? std::make_unique<PosixOutput>(std::move(file)) : nullptr;
}

bool PosixFileSystem::make_folder(std::string_view path) {
  const auto native = drives_.native(path);
  return native && ::mkdir(native->c_str(), 0777) == 0;
}

bool PosixFileSystem::replace(std::string_view from, std::string_view to) {
  const auto source = drives_.native(from);
  const auto named = drives_.native(to);
  if (!source || !named || from.back() == '\\' || to.back() == '\\') return false;
  const auto target = final_target(*named);
  struct stat before {};
  if (!target || ::lstat(source->c_str(), &before) != 0 || !S_ISREG(before.st_mode)) return false;
  struct stat old {};
  const bool exists = ::lstat(target->c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return false;
  if (exists && (!S_ISREG(old.st_mode) || !may_write(*target))) return false;

  if (!exists || take_over(*source, before, old)) {
    if (::rename(source->c_str(), target->c_str()) == 0) return true;
    // A link may lead to another disk, to which nothing can be moved in one step.
    if (errno == EXDEV) {
      const auto copy = copy_beside(*source, *target);
      if (copy) {
        struct stat status {};
        if (::lstat(copy->c_str(), &status) == 0 &&
            take_over(*copy, status, exists ? old : before) &&
            ::rename(copy->c_str(), target->c_str()) == 0) {
          ::unlink(source->c_str());
          return true;
        }
        ::unlink(copy->c_str());
      }
    }
  }
  struct stat now {};
  if (exists && ::lstat(source->c_str(), &now) == 0) take_over(*source, now, before);
  return false;
}

bool PosixFileSystem::remove(std::string_view path) {
  const auto native = drives_.native(path);
  return native && !promises_folder(path) && ::unlink(native->c_str()) == 0;
}

}  // namespace ordelan::posix
