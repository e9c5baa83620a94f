#include "posix/posix_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

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

class PosixOutput final : public system::OutputFile {
 public:
  explicit PosixOutput(Descriptor file) : file_(std::move(file)) {}

  bool write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto went = ::write(file_.number(), bytes.data(), bytes.size());
      if (went < 0 && errno == EINTR) continue;
      if (went < 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(went));
    }
    return true;
  }

  bool close() override { return file_.close(); }

 private:
  Descriptor file_;
};

system::FileInfo described(std::string name, const struct stat& status, bool link) {
  system::FileInfo info;
  info.name = std::move(name);
  info.folder = S_ISDIR(status.st_mode);
  info.size = info.folder ? 0 : static_cast<std::uint64_t>(status.st_size);
  info.link = link;
  return info;
}

// The name that Windows would show, nothing for one that it could not hold.
std::optional<std::string> windows_name(const char* name) {
  auto ansi = text::from_utf8(name);
  if (ansi && !is_windows_name(*ansi)) ansi.reset();
  return ansi;
}

// What the entry `name` of the folder opened as `folder` is; a link is described by what it leads
// to. Only files and folders count.
std::optional<system::FileInfo> entry(int folder, const char* native_name, std::string name) {
  struct stat own {};
  if (::fstatat(folder, native_name, &own, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
  const bool link = S_ISLNK(own.st_mode);
  struct stat status = own;
  if (link && ::fstatat(folder, native_name, &status, 0) != 0) return std::nullopt;
  if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) return std::nullopt;
  return described(std::move(name), status, link);
}

}  // namespace

std::optional<system::FileInfo> PosixFileSystem::info(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return std::nullopt;
  auto name = windows_name(native->c_str() + native->rfind('/') + 1);
  if (!name) return std::nullopt;
  auto found = entry(AT_FDCWD, native->c_str(), std::move(*name));
  // A backslash at the end promises a folder.
  if (found && path.back() == '\\' && !found->folder) found.reset();
  return found;
}

std::optional<std::vector<system::FileInfo>> PosixFileSystem::list(std::string_view folder,
                                                                   system::Detail detail) {
  const auto native = drives_.native(folder);
  if (!native) return std::nullopt;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(native->c_str()), &::closedir);
  if (!open) return std::nullopt;
  std::vector<system::FileInfo> entries;
  while (const dirent* found = ::readdir(open.get())) {
    auto name = windows_name(found->d_name);
    if (!name || *name == "." || *name == "..") continue;
    // Where the names are enough, the kind that stands beside the name spares a look at the file.
    if (detail == system::Detail::names && (found->d_type == DT_REG || found->d_type == DT_DIR)) {
      system::FileInfo info;
      info.name = std::move(*name);
      info.folder = found->d_type == DT_DIR;
      entries.push_back(std::move(info));
      continue;
    }
    if (auto info = entry(::dirfd(open.get()), found->d_name, std::move(*name))) {
      entries.push_back(std::move(*info));
    }
  }
  std::sort(entries.begin(), entries.end(), system::in_listing_order);
  return entries;
}

std::unique_ptr<system::InputFile> PosixFileSystem::open(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native || path.back() == '\\') return nullptr;
  Descriptor file(::open(native->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.valid() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return nullptr;
  }
  return std::make_unique<PosixInput>(std::move(file), static_cast<std::uint64_t>(status.st_size));
}

std::unique_ptr<system::OutputFile> PosixFileSystem::create(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native || path.back() == '\\') return nullptr;
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK;
  Descriptor file(::open(native->c_str(), kFlags, 0666));
  // A pipe or a device is no file to be written.
  struct stat status {};
  if (!file.valid() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return nullptr;
  }
  return std::make_unique<PosixOutput>(std::move(file));
}

bool PosixFileSystem::make_folder(std::string_view path) {
  const auto native = drives_.native(path);
  return native && ::mkdir(native->c_str(), 0777) == 0;
}

bool PosixFileSystem::replace(std::string_view from, std::string_view to) {
  const auto source = drives_.native(from);
  const auto target = drives_.native(to);
  return source && target && ::rename(source->c_str(), target->c_str()) == 0;
}

bool PosixFileSystem::remove(std::string_view path) {
  const auto native = drives_.native(path);
  return native && path.back() != '\\' && ::unlink(native->c_str()) == 0;
}

}  // namespace ordelan::posix
