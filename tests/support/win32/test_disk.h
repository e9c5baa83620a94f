// A real folder for one test, in Windows' own temporary folder.
#pragma once

// Windows' own header stays out: its macros rename what our classes call as Windows does.
#include <process.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "win32/ansi_text.h"
#include "win32/win32_file_system.h"

// The program has functions of these names, which Windows' headers give another ending.
#undef DrawIcon
#undef GetDiskFreeSpace
#undef GetDriveType
#undef LoadIcon

namespace ordelan::test {

class TestDisk {
 public:
  TestDisk() {
    static int number = 0;
    const std::string name =
        "ordelan_" + std::to_string(_getpid()) + "_" + std::to_string(++number);
    root_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(root_);
  }
  ~TestDisk() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
  }
  TestDisk(const TestDisk&) = delete;
  TestDisk& operator=(const TestDisk&) = delete;

  system::FileSystem& files() { return files_; }

  // The folder as the program sees it, with its backslash.
  std::string folder() const { return win32::narrow(root_.wstring()).value_or("") + "\\"; }
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
  void remove(const std::string& below) {
    std::error_code ignored;
    std::filesystem::remove_all(native_path(below), ignored);
  }
  std::filesystem::path native_path(const std::string& below) const {
    return root_ / win32::widen(below);
  }

 private:
  std::filesystem::path root_;
  win32::Win32FileSystem files_;
};

}  // namespace ordelan::test
