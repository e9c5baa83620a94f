// A real folder for one test, in Windows' own temporary folder.
#pragma once

// Windows' own header is not included: its macros rename what our classes call as Windows does.
#include <process.h>

#include <filesystem>
#include <string>

#include "support/disk_folder.h"
#include "win32/ansi_text.h"
#include "win32/ports/win32_file_system.h"

// The program has functions of these names, which Windows' headers give another ending.
#undef DrawIcon
#undef GetDiskFreeSpace
#undef GetDriveType
#undef LoadIcon

namespace ordelan::test {

class TestDisk final : public DiskFolder {
 public:
  TestDisk() : DiskFolder(fresh()) {}

  system::FileSystem& files() { return files_; }

  std::string folder() const override {
    return win32::narrow(root().wstring()).value_or("") + "\\";
  }
  std::filesystem::path native_path(const std::string& below) const override {
    return root() / win32::widen(below);
  }

 private:
  static std::filesystem::path fresh() {
    static int number = 0;
    std::filesystem::path folder;
    do {  // the system gives a process a number again that another has had
      folder = std::filesystem::temp_directory_path() /
               ("ordelan_" + std::to_string(_getpid()) + "_" + std::to_string(++number));
    } while (std::filesystem::exists(folder));
    return folder;
  }

  win32::Win32FileSystem files_;
};

}  // namespace ordelan::test
