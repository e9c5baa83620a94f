// Many files that are to reach the disk at once, on Linux: what only this system has.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "posix/native_folder.h"

namespace ordelan::test {
namespace {

using system::Reason;

struct PosixFlushFiles : testing::Test {
  MappedFolder mapped;

  std::vector<std::string> many() const {
    std::vector<std::string> paths;
    for (int i = 0; i < 30; ++i) {
      const std::string name = std::to_string(i) + ".vip";
      mapped.disk.file(name);
      paths.push_back("D:\\" + name);
    }
    return paths;
  }
};

TEST_F(PosixFlushFiles, a_link_may_lead_to_another_disk) {
  const std::filesystem::path memory = "/dev/shm";
  struct stat there {};
  struct stat here {};
  if (::stat(memory.c_str(), &there) != 0 || ::stat(mapped.disk.native().c_str(), &here) != 0 ||
      there.st_dev == here.st_dev) {
    GTEST_SKIP() << "this system has one disk";
  }
  std::string file = memory / "ordelan-XXXXXX";
  const int made = ::mkstemp(file.data());
  ASSERT_GE(made, 0);
  auto paths = many();
  mapped.disk.link("enlace.vip", file);
  paths.push_back("D:\\enlace.vip");
  EXPECT_TRUE(mapped.files.flush_files(paths));
  ::close(made);
  std::filesystem::remove(file);
  EXPECT_EQ(mapped.files.flush_files(paths), Reason::not_found);
}

TEST_F(PosixFlushFiles, a_pipe_among_them_holds_nothing_up) {
  auto paths = many();
  ASSERT_EQ(::mkfifo((mapped.disk / "tubo.vip").c_str(), 0600), 0);
  paths.push_back("D:\\tubo.vip");
  EXPECT_EQ(mapped.files.flush_files(paths), mapped.files.flush_file("D:\\tubo.vip"));
}

}  // namespace
}  // namespace ordelan::test
