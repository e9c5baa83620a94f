#include "posix/posix_shell.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>

#include "posix/native_file.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::posix {

using system::Reason;
using system::Status;

namespace {

// Makes a folder that only its user may enter, and those on the way. Ok also if it exists.
Status make_folders(const std::string& path) {
  for (auto slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
    if (::mkdir(path.substr(0, slash).c_str(), 0700) != 0 && errno != EEXIST) return last_reason();
    if (slash == std::string::npos) return {};
  }
}

// A path as the notes of a trash hold it: every byte but the plainest as %XX.
std::string escaped(const std::string& path) {
  constexpr std::string_view kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != std::string_view::npos) {
      text += c;
    } else {
      text.append("%").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15u]);
    }
  }
  return text;
}

std::string note_of(const std::string& path) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%S", &local);
  return "[Trash Info]\nPath=" + escaped(path) + "\nDeletionDate=" + date.data() + "\n";
}

// The path that a note holds; nothing where it is no note, or where its path leads back up.
std::optional<std::string> path_in_note(std::string_view note) {
  constexpr std::string_view kPath = "\nPath=";
  const auto at = note.find(kPath);
  if (!note.starts_with("[Trash Info]") || at == std::string_view::npos) return std::nullopt;
  note.remove_prefix(at + kPath.size());
  note = note.substr(0, note.find('\n'));
  std::string path;
  for (std::size_t i = 0; i < note.size(); ++i) {
    if (note[i] != '%') {
      path += note[i];
      continue;
    }
    unsigned byte = 0;
    const std::string_view digits = note.substr(i + 1, 2);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (read.ptr != digits.data() + 2) return std::nullopt;
    path += static_cast<char>(byte);
    i += 2;
  }
  const std::string parts = "/" + path + "/";
  if (path.empty() || parts.find("/../") != std::string::npos) return std::nullopt;
  return path;
}

// Whether that is a folder and no link, of this user where `own` is set.
bool is_folder(const std::string& path, bool own) {
  struct stat found {};
  return ::lstat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode) &&
         (!own || found.st_uid == ::geteuid());
}

bool is_sticky_folder(const std::string& path) {
  struct stat found {};
  return is_folder(path, false) && ::lstat(path.c_str(), &found) == 0 &&
         (found.st_mode & S_ISVTX) != 0;
}

bool is_missing(const std::string& path) {
  struct stat found {};
  return ::lstat(path.c_str(), &found) != 0 && errno == ENOENT;
}

// A folder opened in another one, or by its path; never through a link that has its name.
Descriptor open_folder(int around, const char* name) {
  return Descriptor(::openat(around, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// The names in an open folder. Nothing if they cannot be read.
std::optional<std::vector<std::string>> names_in(const Descriptor& folder) {
  const int again = ::openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (again < 0) return std::nullopt;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::fdopendir(again), &::closedir);
  if (!open) {
    ::close(again);
    return std::nullopt;
  }
  std::vector<std::string> names;
  while (const dirent* const entry = ::readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  return names;
}

// Removes a file, or a folder with all that is in it. A link is removed itself. Ok if it is
// missing.
Status remove_all(const Descriptor& around, const std::string& name) {
  struct stat found {};
  if (::fstatat(around.number(), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0) {
    return errno == ENOENT ? Reason::ok : last_reason();
  }
  if (!S_ISDIR(found.st_mode)) {
    return ::unlinkat(around.number(), name.c_str(), 0) == 0 ? Reason::ok : last_reason();
  }
  {
    const Descriptor folder = open_folder(around.number(), name.c_str());
    if (!folder.valid()) return last_reason();
    const auto names = names_in(folder);
    if (!names) return Reason::other;
    for (const std::string& each : *names) {
      if (const Status removed = remove_all(folder, each); !removed) return removed;
    }
  }
  return ::unlinkat(around.number(), name.c_str(), AT_REMOVEDIR) == 0 ? Reason::ok : last_reason();
}

// What a small file in an open folder holds.
std::string content_of(const Descriptor& folder, const std::string& name) {
  const Descriptor file(
      ::openat(folder.number(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  constexpr std::size_t kMost = 1 << 16;  // a path escaped byte for byte, and a date
  std::string bytes(kMost, '\0');
  const auto came = file.valid() ? ::read(file.number(), bytes.data(), bytes.size()) : -1;
  bytes.resize(came > 0 ? static_cast<std::size_t>(came) : 0);
  return bytes;
}

constexpr std::string_view kNoteEnd = ".trashinfo";

// Moves a file into a trash, under its own name or one like it, with a note of where it came from.
Status put_into(const std::string& trash, const std::string& native, const std::string& name,
                const std::string& origin) {
  // The note is made first: it claims the name in the trash.
  constexpr int kTries = 10'000;
  for (int number = 1; number <= kTries; ++number) {
    const std::string there = number == 1 ? name : std::to_string(number) + " " + name;
    const std::string note_path = trash + "/info/" + there + std::string(kNoteEnd);
    Descriptor note(::open(note_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!note.valid() && errno == EEXIST) continue;
    if (!note.valid()) return last_reason();
    Status status = write_all(note, note_of(origin));
    // Not flushed: should a power cut take it, the file is in the trash all the same, and waiting
    // for the disk at each file takes three times as long.
    const Status closed = note.close();
    if (status) status = closed;
    if (status) status = rename_to_free(native, trash + "/files/" + there);
    if (status) return {};
    ::unlink(note_path.c_str());
    if (status != Reason::exists) return status;
  }
  return Reason::other;
}

// Removes what the notes of a trash say to have come from below a folder, or everything where that
// is not given. A file goes before its note: one that is left can still be put back. Ok also for a
// trash that is missing.
Status empty_trash(const std::string& trash, const std::string& top,
                   const std::optional<std::string>& from) {
  const Descriptor folder(::open(trash.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder.valid()) return errno == ENOENT ? Reason::ok : last_reason();
  const Descriptor files = open_folder(folder.number(), "files");
  if (!files.valid()) return errno == ENOENT ? Reason::ok : last_reason();
  const Descriptor info = open_folder(folder.number(), "info");
  const bool noted = info.valid();
  if (!noted && errno != ENOENT) return last_reason();
  const std::optional<std::vector<std::string>> notes =
      noted ? names_in(info) : std::vector<std::string>();
  const auto all = names_in(files);
  if (!notes || !all) return Reason::other;
  Status status;
  for (const std::string& note : *notes) {
    if (!note.ends_with(kNoteEnd)) continue;
    if (from) {
      auto path = path_in_note(content_of(info, note));
      if (!path) continue;
      if (!path->starts_with('/')) path = top + "/" + *path;
      if (!path->starts_with(*from + "/")) continue;
    }
    Status one = remove_all(files, note.substr(0, note.size() - kNoteEnd.size()));
    if (one) one = remove_all(info, note);
    if (!one) status = one;
  }
  if (from) return status;
  for (const std::string& name : *all) {  // those that have no note
    if (noted && ::faccessat(info.number(), (name + std::string(kNoteEnd)).c_str(), F_OK,
                             AT_SYMLINK_NOFOLLOW) == 0) {
      continue;  // it could not be removed
    }
    if (const Status one = remove_all(files, name); !one) status = one;
  }
  return status;
}

}  // namespace

std::string users_trash() {
  const char* const data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return std::string(data) + "/Trash";
  const char* const home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? std::string(home) + "/.local/share/Trash" : "";
}

std::string PosixShell::file_type(const std::string& path) {
  const auto found = files_.info(path);
  if (!found) return {};
  if (found->folder) return "Carpeta";
  const std::string extension = text::Obtener_Extension(found->name);
  return extension.empty() ? "Archivo" : "Archivo " + text::upper(extension);
}

std::string top_of_volume(const std::string& path) {
  std::string folder = path;
  struct stat found {};
  while (!folder.empty() && ::stat(folder.c_str(), &found) != 0) {
    folder.resize(folder.rfind('/') == std::string::npos ? 0 : folder.rfind('/'));
  }
  const std::unique_ptr<char, void (*)(void*)> real(
      ::realpath(folder.empty() ? "/" : folder.c_str(), nullptr), &std::free);
  if (!real || ::stat(real.get(), &found) != 0) return "/";
  std::string top = real.get();
  for (const dev_t volume = found.st_dev; top != "/";) {
    const auto slash = top.rfind('/');
    const std::string around = slash == 0 ? "/" : top.substr(0, slash);
    if (::stat(around.c_str(), &found) != 0 || found.st_dev != volume) break;
    top = around;
  }
  return top;
}

std::vector<PosixShell::Trash> PosixShell::trashes(const std::string& native) const {
  const std::string top = top_of_(native);
  if (!trash_.empty() && top == top_of_(trash_)) return {{trash_, ""}};
  const std::string user = std::to_string(::geteuid());
  const std::string base = top == "/" ? "" : top;
  std::vector<Trash> found;
  if (is_sticky_folder(base + "/.Trash")) found.push_back({base + "/.Trash/" + user, base});
  found.push_back({base + "/.Trash-" + user, base});
  return found;
}

Status PosixShell::recycle(const std::string& path, system::Confirm confirm) {
  if (drives_ == nullptr || trash_.empty() || confirm == system::Confirm::ask) {
    return Reason::not_supported;
  }
  auto native = drives_->native(path);
  if (!native) return reason_without_path(*drives_, path);
  if (promises_folder(path)) return Reason::not_a_file;
  struct stat found {};
  if (::lstat(native->c_str(), &found) != 0) return last_reason();
  if (S_ISDIR(found.st_mode)) return Reason::not_a_file;
  // The file's own folder is what counts, also where a link leads to it; a file that is a link is
  // recycled itself.
  const std::string name = native->substr(native->rfind('/') + 1);
  const std::unique_ptr<char, void (*)(void*)> folder(
      ::realpath(native->substr(0, native->size() - name.size()).c_str(), nullptr), &std::free);
  if (!folder) return last_reason();
  Status status = Reason::not_supported;
  for (const Trash& trash : trashes(folder.get())) {
    const bool own = trash.folder == trash_;
    if (own) {
      if (const Status made = make_folders(trash.folder); !made) return made;
    } else {
      ::mkdir(trash.folder.c_str(), 0700);
      if (!is_folder(trash.folder, true)) continue;
    }
    bool usable = true;
    for (const char* const part : {"/files", "/info"}) {
      ::mkdir((trash.folder + part).c_str(), 0700);
      usable = usable && is_folder(trash.folder + part, false);
    }
    if (!usable) continue;
    std::string origin = *native;
    if (!own) {
      origin = std::string(folder.get()) + "/" + name;
      origin = origin.substr(trash.top.size() + 1);
    }
    status = put_into(trash.folder, *native, name, origin);
    if (status || status != Reason::no_permission) return status;
  }
  return status;
}

Status PosixShell::copy_into(const std::string& from, const std::string& folder) {
  const std::string to = system::with_backslash(folder) + text::Obtener_Nombre_Archivo(from);
  const Status copied = files_.copy_new(from, to, nullptr, system::Flush::no);
  return copied == Reason::exists ? Reason::cancelled : copied;
}

Status PosixShell::recycles(std::string_view root) {
  if (root.size() != 3 || root.substr(1) != ":\\") return Reason::bad_path;
  if (drives_ == nullptr || trash_.empty()) return Reason::not_supported;
  const auto folder = drives_->native(root);
  if (!folder) return reason_without_path(*drives_, root);
  for (const Trash& trash : trashes(*folder)) {
    if (trash.folder == trash_) return {};
    const std::string around = trash.folder.substr(0, trash.folder.rfind('/') + 1);
    if (is_folder(trash.folder, true)) return {};
    if (is_missing(trash.folder) && ::access(around.c_str(), W_OK | X_OK) == 0) return {};
  }
  return Reason::not_supported;
}

Status PosixShell::empty_bin(const std::string& root, system::Confirm confirm) {
  if (drives_ == nullptr || trash_.empty() || confirm == system::Confirm::ask) {
    return Reason::not_supported;
  }
  std::vector<std::string> roots = {root};
  if (root.empty()) {
    roots.clear();
    for (const char letter : drives_->letters()) roots.push_back(std::string(1, letter) + ":\\");
  } else if (const Status bin = recycles(root); !bin) {
    return bin;
  }
  Status status;
  for (const std::string& each : roots) {
    const auto folder = drives_->native(each);
    if (!folder) continue;  // a drive without a medium
    const std::string below = *folder == "/" ? "" : *folder;
    for (const Trash& trash : trashes(*folder)) {
      if (trash.folder != trash_ && !is_folder(trash.folder, true)) continue;
      const Status one =
          empty_trash(trash.folder, trash.top, root.empty() ? std::nullopt : std::optional(below));
      if (!one) status = one;
    }
  }
  return status;
}

}  // namespace ordelan::posix
