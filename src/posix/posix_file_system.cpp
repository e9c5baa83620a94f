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

#include "posix/native_file.h"
#include "text/code_page.h"

namespace ordelan::posix {
namespace {

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

class PosixOutput final : public system::OutputFile {
 public:
  explicit PosixOutput(Descriptor file) : file_(std::move(file)) {}

  system::Status write(std::string_view bytes) override {
    if (status_) status_ = write_all(file_, bytes);
    return status_;
  }

  system::Status flush() override {
    if (status_) status_ = flush_descriptor(file_);
    return status_;
  }

  system::Status close() override {
    const system::Status closed = file_.close();
    return status_ ? closed : status_;
  }

 private:
  Descriptor file_;
  system::Status status_;
};

// Whether a name of the disk is one that Windows would show. It is then put into `name` as Windows
// would spell it.
bool windows_name(std::string_view native, std::string& name) {
  return text::from_utf8(native, name) && is_windows_name(name);
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
  // Some disks do not keep when a file was made: it existed at the latest when it was last written.
  const bool made_known = (status.stx_mask & STATX_BTIME) != 0;
  entry.created = local_days(made_known ? status.stx_btime : status.stx_mtime);
  entry.modified = local_days(status.stx_mtime);
  entry.accessed = local_days(status.stx_atime);
  return true;
}

using Folder = std::unique_ptr<DIR, int (*)(DIR*)>;

Folder open_folder(const std::optional<std::string>& native) {
  return Folder(native ? ::opendir(native->c_str()) : nullptr, &::closedir);
}

}  // namespace

std::optional<system::FileInfo> PosixFileSystem::info(std::string_view path) {
  auto native = drives_.spelt(path);
  if (!native) return std::nullopt;
  system::FileInfo found;
  const auto describe_it = [&] {
    return describe(AT_FDCWD, native->c_str(), system::Detail::times, found);
  };
  // Most paths stand on the disk just as they are spelt.
  if (!describe_it()) {
    native = drives_.native(path);
    if (!native || !describe_it()) return std::nullopt;
  }
  if (!windows_name(std::string_view(*native).substr(native->rfind('/') + 1), found.name)) {
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
    // Where the names are enough, the kind beside the name saves a stat of the file.
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
  // Most paths stand on the disk just as they are spelt: one stat finds them.
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

system::Opened<system::InputFile> PosixFileSystem::open(std::string_view path) {
  constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
  // Most paths stand on the disk just as they are spelt, and opening one is look enough.
  const auto spelt = drives_.spelt(path);
  int number = spelt && !promises_folder(path) ? ::open(spelt->c_str(), kFlags) : -1;
  if (number < 0) {
    const auto native = drives_.native(path);
    if (!native) return reason_without_path(drives_, path);
    if (promises_folder(path)) return system::Reason::not_a_file;
    number = ::open(native->c_str(), kFlags);
    if (number < 0) return last_reason();
  }
  Descriptor file(number);
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) return last_reason();
  if (!S_ISREG(status.st_mode)) return system::Reason::not_a_file;
  return std::make_unique<PosixInput>(std::move(file), static_cast<std::uint64_t>(status.st_size));
}

system::Opened<system::OutputFile> PosixFileSystem::create(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return reason_without_path(drives_, path);
  if (promises_folder(path)) return system::Reason::not_a_file;
  if (is_read_only_file(*native)) return system::Reason::read_only;
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK;
  Descriptor file(::open(native->c_str(), kFlags, 0666));
  if (!file.valid()) return last_reason();
  // A pipe or a device is no file to be written.
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) return last_reason();
  if (!S_ISREG(status.st_mode)) return system::Reason::not_a_file;
  return std::make_unique<PosixOutput>(std::move(file));
}

system::Opened<system::OutputFile> PosixFileSystem::create_new(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return reason_without_path(drives_, path);
  if (promises_folder(path)) return system::Reason::not_a_file;
  Descriptor file(::open(native->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  if (!file.valid()) return last_reason();
  return std::make_unique<PosixOutput>(std::move(file));
}

}  // namespace ordelan::posix
