// A temporary folder on the real disk, mapped as drive D, with names in the disk's own UTF-8.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "posix/mapped_drives.h"
#include "posix/posix_file_system.h"

namespace ordelan::test {

class NativeFolder {
 public:
  NativeFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "ordelan-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    // The system's folder for such things may itself be reached through a link.
    path_ = std::filesystem::canonical(pattern);
  }
  ~NativeFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  NativeFolder(const NativeFolder&) = delete;
  NativeFolder& operator=(const NativeFolder&) = delete;

  // The native path of a name in the folder.
  std::string operator/(const std::string& name) const { return path_ / name; }
  std::string native() const { return path_; }

  void folder(const std::string& name) const { std::filesystem::create_directories(path_ / name); }

  // A file with its folders.
  void file(const std::string& name, const std::string& content = "x") const {
    const auto path = path_ / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
  }

  // A link that leads to `target`.
  void link(const std::string& name, const std::string& target) const {
    std::filesystem::create_symlink(target, path_ / name);
  }

  std::string content(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path path_;
};

struct MappedFolder {
  MappedFolder() {
    if (!drives.map('D', disk.native())) throw std::runtime_error("the folder cannot be mapped");
  }

  NativeFolder disk;
  posix::MappedDrives drives;
  posix::PosixFileSystem files{drives};
};

}  // namespace ordelan::test
