// A folder for one test, removed with its contents at the end.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace ordelan::test {

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // Its path, without a backslash at the end.
  const std::wstring& path() const { return path_; }

  // A path as the system takes it literally and at any length.
  static std::wstring literal(std::wstring_view path) { return L"\\\\?\\" + std::wstring(path); }

 private:
  std::wstring path_;
};

// Writes a whole file. Fails the test when it cannot.
void write_file(const std::wstring& path, std::string_view bytes);

// Makes a folder and those on the way to it.
void make_folders(const std::wstring& path);

}  // namespace ordelan::test
