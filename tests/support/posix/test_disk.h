// A real folder for one test, as drive D: of the Linux platform.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "posix/mapped_drives.h"
#include "posix/posix_file_system.h"
#include "support/disk_folder.h"
#include "text/code_page.h"

namespace ordelan::test {

class TestDisk final : public DiskFolder {
 public:
  TestDisk() : DiskFolder(fresh()) { EXPECT_TRUE(drives_.map('D', root().string())); }

  system::FileSystem& files() { return files_; }

  std::string folder() const override { return "D:\\"; }
  std::filesystem::path native_path(const std::string& below) const override {
    std::string name = text::to_utf8(below);
    std::replace(name.begin(), name.end(), '\\', '/');
    return root() / name;
  }

 private:
  static std::string fresh() {
    std::string name = (std::filesystem::temp_directory_path() / "ordelan_XXXXXX").string();
    return ::mkdtemp(name.data());
  }

  posix::MappedDrives drives_;
  posix::PosixFileSystem files_{drives_};
};

}  // namespace ordelan::test
