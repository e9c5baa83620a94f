#include "tools/studio_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

#include "text/code_page.h"

namespace ordelan::studio {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFirstLine = "ordelan-studio 1";

[[noreturn]] void fail(const char* what, const fs::path& path, const std::string& why) {
  throw std::runtime_error(text::to_utf8(what) + path.string() + ": " + why);
}

bool stays_inside(const fs::path& path) {
  return !path.empty() && path.is_relative() &&
         std::none_of(path.begin(), path.end(), [](const fs::path& part) { return part == ".."; });
}

bool there(const fs::path& path) {
  std::error_code none;
  return fs::symlink_status(path, none).type() != fs::file_type::not_found;
}

}  // namespace

StudioFolder::StudioFolder(fs::path root) : root_(std::move(root)) {
  std::error_code failure;
  const fs::file_status status = fs::status(root_, failure);
  if (status.type() == fs::file_type::not_found) return;
  if (status.type() != fs::file_type::directory) {
    throw StudioRefused(root_.string() + text::to_utf8(" no es una carpeta"));
  }
  if (fs::is_regular_file(fs::symlink_status(root_ / kListName, failure))) {
    read_list();
    return;
  }
  const fs::directory_iterator entries(root_, failure);
  if (failure) throw StudioRefused(root_.string() + ": " + failure.message());
  if (entries != fs::directory_iterator()) {
    throw StudioRefused(root_.string() +
                        text::to_utf8(" no está vacía y no la hizo este programa"));
  }
}

void StudioFolder::read_list() {
  const StudioRefused damaged(root_.string() +
                              text::to_utf8(": no se entiende su lista de archivos"));
  std::ifstream list(root_ / kListName, std::ios::binary);
  std::string line;
  if (!std::getline(list, line) || line != kFirstLine) throw damaged;
  while (std::getline(list, line)) {
    if (line.size() < 3 || line[1] != ' ' || (line[0] != 'f' && line[0] != 'd')) throw damaged;
    const fs::path path = line.substr(2);
    if (!stays_inside(path)) throw damaged;
    (line[0] == 'f' ? files_ : folders_).insert(path);
  }
  // A link in the place of a folder would lead the removal to files elsewhere.
  std::set<fs::path> parents;
  for (const fs::path& file : files_) parents.insert(file.parent_path());
  for (const fs::path& parent : parents) {
    fs::path at = root_;
    for (const fs::path& part : parent) {
      at /= part;
      std::error_code none;
      if (fs::is_symlink(fs::symlink_status(at, none))) {
        throw StudioRefused(at.string() + text::to_utf8(" es ahora un enlace"));
      }
    }
  }
}

void StudioFolder::check(const std::vector<fs::path>& files) const {
  for (const fs::path& file : files) {
    if (files_.count(file) == 0 && there(root_ / file)) {
      throw StudioRefused((root_ / file).string() +
                          text::to_utf8(" ya existe y no la hizo este programa"));
    }
  }
}

void StudioFolder::clear() {
  std::error_code failure;
  for (const fs::path& file : files_) {
    const fs::path path = root_ / file;
    if (!fs::is_regular_file(fs::symlink_status(path, failure))) continue;
    if (!fs::remove(path, failure)) fail("no se pudo borrar ", path, failure.message());
  }
  // The order of paths puts a folder before its content. Those that hold files of others
  // stay, and stay listed.
  std::set<fs::path> kept;
  for (auto folder = folders_.rbegin(); folder != folders_.rend(); ++folder) {
    const fs::path path = root_ / *folder;
    if (!fs::is_directory(fs::symlink_status(path, failure))) continue;
    if (!fs::is_empty(path, failure) || !fs::remove(path, failure)) kept.insert(*folder);
  }
  folders_ = std::move(kept);
  files_.clear();
}

void StudioFolder::claim(const std::vector<fs::path>& files) {
  fs::create_directories(root_);
  files_.insert(files.begin(), files.end());
  std::set<fs::path> needed;
  for (const fs::path& file : files) {
    for (fs::path folder = file.parent_path(); !folder.empty(); folder = folder.parent_path()) {
      if (!needed.insert(folder).second) break;
    }
  }
  for (const fs::path& folder : needed) {
    if (!there(root_ / folder)) folders_.insert(folder);
  }

  std::string list(kFirstLine);
  list += '\n';
  for (const fs::path& folder : folders_) list += "d " + folder.string() + "\n";
  for (const fs::path& file : files_) list += "f " + file.string() + "\n";
  const fs::path unfinished = root_ / (std::string(kListName) + ".nueva");
  std::ofstream out(unfinished, std::ios::binary | std::ios::trunc);
  out << list;
  out.close();
  if (!out) fail("no se pudo escribir ", unfinished, std::strerror(errno));
  fs::rename(unfinished, root_ / kListName);

  for (const fs::path& folder : needed) fs::create_directory(root_ / folder);
}

void StudioFolder::write(const fs::path& file, std::string_view bytes) const {
  const fs::path path = root_ / file;
  // Existing files must never be overwritten.
  const int handle = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (handle < 0) fail("no se pudo crear ", path, std::strerror(errno));
  while (!bytes.empty()) {
    const ssize_t written = ::write(handle, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) {
      const std::string why = std::strerror(errno);
      ::close(handle);
      fail("no se pudo escribir ", path, why);
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  if (::close(handle) != 0) fail("no se pudo escribir ", path, std::strerror(errno));
}

}  // namespace ordelan::studio
