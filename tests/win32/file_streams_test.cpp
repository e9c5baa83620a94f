// What Windows keeps of a file besides its bytes. Wine has no streams: there only the copying
// itself is tried, from file to file.
#include "win32/ports/file_streams.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "win32/ansi_text.h"
#include "win32/handle.h"
#include "win32/ports/win32_file_system.h"
#include "win32/temporary_folder.h"

namespace ordelan::test {
namespace {

struct FileStreams : testing::Test {
  TemporaryFolder folder;
  win32::Win32FileSystem files;

  std::wstring path(const std::wstring& name) const { return folder.path() + L"\\" + name; }
  std::string content(const std::wstring& name) {
    const auto file = files.open(win32::narrow(path(name)).value());
    if (!file) return "not opened";
    std::vector<std::uint8_t> bytes(1 << 20);
    const auto came = file->read(0, bytes);
    return came ? std::string(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(*came))
                : "failed";
  }
  bool has_streams(const std::wstring& name) const {
    WIN32_FIND_STREAM_DATA found{};
    return static_cast<bool>(win32::SearchHandle(
        FindFirstStreamW(path(name).c_str(), FindStreamInfoStandard, &found, 0)));
  }
  std::string stream(const std::wstring& name) const {
    const win32::FileHandle file(CreateFileW(path(name).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                             nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) return "not opened";
    std::string bytes(100, '\0');
    DWORD came = 0;
    if (!ReadFile(file.get(), bytes.data(), 100, &came, nullptr)) return "failed";
    bytes.resize(came);
    return bytes;
  }
  bool replace(const std::wstring& from, const std::wstring& to) {
    return files.replace(*win32::narrow(path(from)), *win32::narrow(path(to))).ok();
  }
};

TEST_F(FileStreams, the_bytes_of_one_are_copied_over_another) {
  const std::string large(200'000, 'a');
  write_file(path(L"a"), large);
  write_file(path(L"b"), "short");
  std::vector<std::wstring> made;
  EXPECT_EQ(win32::copy_stream(path(L"a"), path(L"b"), made), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(content(L"b") == large);
  EXPECT_THAT(made, testing::IsEmpty()) << "it was there before";
  write_file(path(L"c"), "xyz");
  EXPECT_EQ(win32::copy_stream(path(L"c"), path(L"b"), made), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(content(L"b"), "xyz") << "nothing is left of longer bytes";
  EXPECT_EQ(win32::copy_stream(path(L"c"), path(L"d"), made), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(content(L"d"), "xyz");
  EXPECT_THAT(made, testing::ElementsAre(path(L"d")));
  EXPECT_EQ(win32::copy_stream(path(L"nada"), path(L"e"), made), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(content(L"e"), "not opened");
  EXPECT_EQ(made.size(), 1u);
}

TEST_F(FileStreams, what_cannot_be_read_or_written_is_an_error) {
  write_file(path(L"a"), "123");
  write_file(path(L"b"), "456");
  std::vector<std::wstring> made;
  const auto alone = [&](const wchar_t* name) {
    return win32::FileHandle(CreateFileW(path(name).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                         OPEN_EXISTING, 0, nullptr));
  };
  const win32::FileHandle held = alone(L"b");
  EXPECT_EQ(win32::copy_stream(path(L"a"), path(L"b"), made), DWORD{ERROR_SHARING_VIOLATION});
  EXPECT_EQ(content(L"b"), "456");
  EXPECT_THAT(made, testing::IsEmpty());
}

TEST_F(FileStreams, those_that_were_made_are_removed_again_and_the_time_stays) {
  write_file(path(L"a"), "123");
  write_file(path(L"b"), "456");
  const auto before = files.info(*win32::narrow(path(L"a")));
  win32::remove_streams(path(L"a"), {path(L"b")});
  EXPECT_EQ(content(L"b"), "not opened");
  EXPECT_EQ(content(L"a"), "123");
  EXPECT_EQ(files.info(*win32::narrow(path(L"a")))->modified, before->modified);
}

TEST_F(FileStreams, a_file_without_any_takes_none_along) {
  write_file(path(L"a"), "123");
  write_file(path(L"b"), "456");
  std::vector<std::wstring> made;
  EXPECT_EQ(win32::copy_streams(path(L"a"), path(L"b"), made), DWORD{ERROR_SUCCESS});
  EXPECT_THAT(made, testing::IsEmpty());
  EXPECT_EQ(content(L"b"), "456");
}

TEST_F(FileStreams, the_streams_of_a_replaced_file_stay) {
  write_file(path(L"a.vip"), "old");
  if (!has_streams(L"a.vip")) GTEST_SKIP() << "this disk keeps no streams";
  write_file(path(L"a.vip:nota"), "of the old one");
  write_file(path(L"a.vip:otra"), "too");
  write_file(path(L"b.tmp"), "new");
  write_file(path(L"b.tmp:otra"), "of the new one, and longer");
  write_file(path(L"b.tmp:mia"), "its own");
  const auto written = files.info(*win32::narrow(path(L"b.tmp")))->modified;
  Sleep(30);
  EXPECT_TRUE(replace(L"b.tmp", L"a.vip"));
  EXPECT_EQ(content(L"a.vip"), "new");
  EXPECT_EQ(stream(L"a.vip:nota"), "of the old one");
  EXPECT_EQ(stream(L"a.vip:otra"), "too");
  EXPECT_EQ(stream(L"a.vip:mia"), "its own");
  EXPECT_EQ(files.info(*win32::narrow(path(L"a.vip")))->modified, written);
}

TEST_F(FileStreams, a_file_with_a_stream_that_cannot_be_read_is_not_replaced) {
  write_file(path(L"a.vip"), "old");
  if (!has_streams(L"a.vip")) GTEST_SKIP() << "this disk keeps no streams";
  write_file(path(L"a.vip:alta"), "1");
  write_file(path(L"a.vip:nota"), "2");
  write_file(path(L"b.tmp"), "new");
  {
    const win32::FileHandle held(CreateFileW(path(L"a.vip:nota").c_str(), GENERIC_READ, 0, nullptr,
                                             OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(held);
    EXPECT_FALSE(replace(L"b.tmp", L"a.vip"));
  }
  EXPECT_EQ(content(L"a.vip"), "old");
  EXPECT_EQ(stream(L"a.vip:alta"), "1");
  EXPECT_EQ(content(L"b.tmp"), "new");
  EXPECT_EQ(stream(L"b.tmp:alta"), "not opened");
}

}  // namespace
}  // namespace ordelan::test
