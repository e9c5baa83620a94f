#include "support/disk_tools.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <system_error>

#include "test_disk.h"

namespace ordelan::test {
namespace {

TEST(DiskTools, a_longer_file_keeps_its_start_and_goes_on_with_nothing) {
  TestDisk disk;
  disk.write("hueco.bin", "abc");
  constexpr std::uint64_t kLength = std::uint64_t{3} << 30;
  lengthen(disk.native_path("hueco.bin"), kLength);
  EXPECT_EQ(std::filesystem::file_size(disk.native_path("hueco.bin")), kLength);
  std::ifstream in(disk.native_path("hueco.bin"), std::ios::binary);
  std::string start(5, '?');
  in.read(start.data(), static_cast<std::streamsize>(start.size()));
  EXPECT_EQ(start, std::string("abc\0\0", 5));
}

TEST(DiskTools, no_file_is_made_to_be_lengthened) {
  TestDisk disk;
  EXPECT_THROW(lengthen(disk.native_path("nada.bin"), 10), std::system_error);
}

TEST(DiskTools, a_test_leaves_nothing_however_deep_it_lies) {
  auto disk = std::make_unique<TestDisk>();
  std::string deep;
  for (int i = 0; i < 40; ++i) deep += "carpeta profunda\\";
  disk->write(deep + "a.wav", "");
  disk->write("b\\c.wav", "");
  const std::filesystem::path folder = disk->native_path("");
  ASSERT_TRUE(std::filesystem::exists(folder));
  disk.reset();
  EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST(DiskTools, a_tree_goes_and_its_neighbours_stay) {
  TestDisk disk;
  disk.write("uno\\a.wav", "");
  disk.write("uno dos\\a.wav", "");
  remove_tree(disk.native_path("uno"));
  EXPECT_FALSE(std::filesystem::exists(disk.native_path("uno")));
  EXPECT_TRUE(std::filesystem::exists(disk.native_path("uno dos\\a.wav")));
}

}  // namespace
}  // namespace ordelan::test
