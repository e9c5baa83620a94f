// A real folder for one test, removed with its contents at the end. How the program
// names it depends on the system.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "support/disk_tools.h"

namespace ordelan::test {

class DiskFolder {
 public:
  DiskFolder(const DiskFolder&) = delete;
  DiskFolder& operator=(const DiskFolder&) = delete;

  // The folder as the program sees it, with its backslash.
  virtual std::string folder() const = 0;
  // Where the tests themselves find a file below the folder. Names are code-page text.
  virtual std::filesystem::path native_path(const std::string& below) const = 0;

  // The program's path of a file below the folder ("Mix\\a.wav").
  std::string path(const std::string& below) const { return folder() + below; }

  // Writes a file below the folder, making the folders on the way.
  void write(const std::string& below, const std::string& bytes) {
    const auto native = native_path(below);
    std::filesystem::create_directories(native.parent_path());
    std::ofstream(native, std::ios::binary) << bytes;
  }
  // A file of that length, all NULs, that takes no room.
  void write_sparse(const std::string& below, std::uint64_t length) {
    write(below, "");
    lengthen(native_path(below), length);
  }
  void make_folder(const std::string& below) {
    std::filesystem::create_directories(native_path(below));
  }
  void remove(const std::string& below) {
    std::error_code ignored;
    std::filesystem::remove_all(native_path(below), ignored);
  }

 protected:
  explicit DiskFolder(std::filesystem::path root) : root_(std::move(root)) {
    std::filesystem::create_directories(root_);
  }
  ~DiskFolder() { remove_tree(root_); }

  const std::filesystem::path& root() const { return root_; }

 private:
  std::filesystem::path root_;
};

}  // namespace ordelan::test
