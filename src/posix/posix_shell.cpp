#include "posix/posix_shell.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
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

// The volume on which a native path stands or would stand.
std::optional<dev_t> volume_of(std::string path) {
  struct stat found {};
  while (!path.empty()) {
    if (::stat(path.c_str(), &found) == 0) return found.st_dev;
    path.resize(path.rfind('/') == std::string::npos ? 0 : path.rfind('/'));
  }
  return ::stat("/", &found) == 0 ? std::optional(found.st_dev) : std::nullopt;
}

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

// Removes all that is in a folder, however deep, and not the folder. Links are removed themselves.
Status empty_folder(const std::string& path) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(path.c_str()), &::closedir);
  if (!open) return errno == ENOENT ? Reason::ok : last_reason();
  Status status;
  while (const dirent* const entry = ::readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    const std::string inside = path + "/" + entry->d_name;
    struct stat found {};
    Status one;
    if (::lstat(inside.c_str(), &found) == 0 && S_ISDIR(found.st_mode)) {
      one = empty_folder(inside);
      if (one && ::rmdir(inside.c_str()) != 0) one = last_reason();
    } else if (::unlink(inside.c_str()) != 0) {
      one = last_reason();
    }
    if (!one) status = one;
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

Status PosixShell::recycle(const std::string& path, system::Confirm confirm) {
  if (drives_ == nullptr || trash_.empty() || confirm == system::Confirm::ask) {
    return Reason::not_supported;
  }
  const auto native = drives_->native(path);
  if (!native) return reason_without_path(*drives_, path);
  if (promises_folder(path)) return Reason::not_a_file;
  struct stat found {};
  if (::lstat(native->c_str(), &found) != 0) return last_reason();
  if (S_ISDIR(found.st_mode)) return Reason::not_a_file;
  if (volume_of(trash_) != found.st_dev) return Reason::not_supported;
  for (const char* const part : {"/files", "/info"}) {
    if (const Status made = make_folders(trash_ + part); !made) return made;
  }
  // The note is made first: it claims the name in the trash.
  const std::string name = native->substr(native->rfind('/') + 1);
  constexpr int kTries = 10'000;
  for (int number = 1; number <= kTries; ++number) {
    const std::string there = number == 1 ? name : std::to_string(number) + " " + name;
    const std::string note_path = trash_ + "/info/" + there + ".trashinfo";
    Descriptor note(::open(note_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!note.valid() && errno == EEXIST) continue;
    if (!note.valid()) return last_reason();
    Status status = write_all(note, note_of(*native));
    if (status) status = flush_descriptor(note);
    const Status closed = note.close();
    if (status) status = closed;
    if (status) status = rename_to_free(*native, trash_ + "/files/" + there);
    if (status) return {};
    ::unlink(note_path.c_str());
    if (status != Reason::exists) return status;
  }
  return Reason::other;
}

Status PosixShell::copy_into(const std::string& from, const std::string& folder) {
  const std::string to = system::with_backslash(folder) + text::Obtener_Nombre_Archivo(from);
  const Status copied = files_.copy_new(from, to);
  return copied == Reason::exists ? Reason::cancelled : copied;
}

Status PosixShell::recycles(std::string_view root) {
  if (root.size() != 3 || root.substr(1) != ":\\") return Reason::bad_path;
  if (drives_ == nullptr) return Reason::not_supported;
  const auto folder = drives_->native(root);
  if (!folder) return reason_without_path(*drives_, root);
  const bool same = !trash_.empty() && volume_of(trash_) == volume_of(*folder);
  return same ? Reason::ok : Reason::not_supported;
}

Status PosixShell::empty_bin(const std::string& root, system::Confirm confirm) {
  if (drives_ == nullptr || trash_.empty() || confirm == system::Confirm::ask) {
    return Reason::not_supported;
  }
  if (!root.empty()) {
    if (const Status bin = recycles(root); !bin) return bin;
  }
  const Status files = empty_folder(trash_ + "/files");
  // What could not be removed keeps its note.
  return files ? empty_folder(trash_ + "/info") : files;
}

}  // namespace ordelan::posix
