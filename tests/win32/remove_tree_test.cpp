// Tests must not find what other tests have left behind.
#include "remove_tree.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "support/win32/test_disk.h"

namespace ordelan::test {
namespace {

TEST(RemoveTree, takes_what_is_deeper_than_paths_used_to_be) {
  auto disk = std::make_unique<TestDisk>();
  std::string deep;
  for (int i = 0; i < 40; ++i) deep += "carpeta profunda\\";
  disk->write(deep + "a.wav", "");
  disk->write("b\\c.wav", "");
  const std::filesystem::path folder = disk->folder();
  ASSERT_TRUE(std::filesystem::exists(folder));
  disk.reset();
  EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST(RemoveTree, leaves_its_neighbours) {
  TestDisk disk;
  disk.write("uno\\a.wav", "");
  disk.write("uno dos\\a.wav", "");
  remove_tree(disk.native_path("uno").wstring());
  EXPECT_FALSE(std::filesystem::exists(disk.native_path("uno")));
  EXPECT_TRUE(std::filesystem::exists(disk.native_path("uno dos\\a.wav")));
}

}  // namespace
}  // namespace ordelan::test
