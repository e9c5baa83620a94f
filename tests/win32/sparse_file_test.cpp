// The long files that other tests are made of.
#include "sparse_file.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "support/win32/test_disk.h"

namespace ordelan::test {
namespace {

TEST(SparseFile, keeps_its_start_and_goes_on_with_nothing) {
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

TEST(SparseFile, is_not_made_anew) {
  TestDisk disk;
  EXPECT_THROW(lengthen(disk.native_path("nada.bin"), 10), std::system_error);
}

}  // namespace
}  // namespace ordelan::test
