#include "win32/temporary_folder.h"

#include <gtest/gtest.h>

#include "support/disk_tools.h"

namespace ordelan::test {

TemporaryFolder::TemporaryFolder() {
  wchar_t temporary[MAX_PATH + 1] = {};
  GetTempPathW(MAX_PATH + 1, temporary);
  static int number = 0;
  path_ = std::wstring(temporary) + L"ordelan-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
          std::to_wstring(++number);
  EXPECT_TRUE(CreateDirectoryW(path_.c_str(), nullptr));
}

TemporaryFolder::~TemporaryFolder() {
  remove_tree(path_);
}

void write_file(const std::wstring& path, std::string_view bytes) {
  const HANDLE file = CreateFileW(TemporaryFolder::literal(path).c_str(), GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  DWORD written = 0;
  EXPECT_TRUE(WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
  EXPECT_EQ(written, bytes.size());
  CloseHandle(file);
}

void make_folders(const std::wstring& path) {
  for (std::size_t end = path.find(L'\\', 3); end != path.npos; end = path.find(L'\\', end + 1)) {
    CreateDirectoryW(TemporaryFolder::literal(path.substr(0, end)).c_str(), nullptr);
  }
  CreateDirectoryW(TemporaryFolder::literal(path).c_str(), nullptr);
  EXPECT_NE(GetFileAttributesW(TemporaryFolder::literal(path).c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace ordelan::test
