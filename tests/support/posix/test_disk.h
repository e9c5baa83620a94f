// A real folder for one test, as drive D: of the Linux platform.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "posix/mapped_drives.h"
#include "posix/posix_file_system.h"
#include "text/code_page.h"

namespace ordelan::test {

class TestDisk {
 public:
  TestDisk() {
    std::string name = (std::filesystem::temp_directory_path() / "ordelan_XXXXXX").string();
    root_ = ::mkdtemp(name.data());
    EXPECT_TRUE(drives_.map('D', root_));
  }
  ~TestDisk() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  TestDisk(const TestDisk&) = delete;
  TestDisk& operator=(const TestDisk&) = delete;

  system::FileSystem& files() { return files_; }

  // The folder as the program sees it, with its backslash.
  std::string folder() const { return "D:\\"; }
  // The program's path of a file below the folder ("Mix\\a.wav").
  std::string path(const std::string& below) const { return folder() + below; }

  // Writes a file below the folder, making the folders on the way. Names are code-page text.
  void write(const std::string& below, const std::string& bytes) {
    const auto native = native_path(below);
    std::filesystem::create_directories(native.parent_path());
    std::ofstream(native, std::ios::binary) << bytes;
  }
  // A file of that length, all NULs, that takes no room.
  void write_sparse(const std::string& below, std::uint64_t length) {
    write(below, "");
    std::filesystem::resize_file(native_path(below), length);
  }
  void make_folder(const std::string& below) {
    std::filesystem::create_directories(native_path(below));
  }
  void remove(const std::string& below) { std::filesystem::remove_all(native_path(below)); }
  std::filesystem::path native_path(const std::string& below) const {
    std::string name = text::to_utf8(below);
    for (char& c : name) {
      if (c == '\\') c = '/';
    }
    return std::filesystem::path(root_) / name;
  }

 private:
  std::string root_;
  posix::MappedDrives drives_;
  posix::PosixFileSystem files_{drives_};
};

}  // namespace ordelan::test
