#include "remove_tree.h"

#include <windows.h>

namespace ordelan::test {
namespace {

void remove_extended(const std::wstring& folder) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
  if (search != INVALID_HANDLE_VALUE) {
    do {
      const std::wstring name = found.cFileName;
      if (name == L"." || name == L"..") continue;
      const std::wstring path = folder + L"\\" + name;
      if ((found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      }
      if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        DeleteFileW(path.c_str());
      } else if ((found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        RemoveDirectoryW(path.c_str());
      } else {
        remove_extended(path);
      }
    } while (FindNextFileW(search, &found));
    FindClose(search);
  }
  RemoveDirectoryW(folder.c_str());
}

}  // namespace

void remove_tree(const std::wstring& folder) {
  remove_extended(L"\\\\?\\" + folder);
}

}  // namespace ordelan::test
