#include "support/disk_tools.h"

#include <windows.h>

#include <winioctl.h>

#include <string>
#include <system_error>

#include "win32/handle.h"

namespace ordelan::test {
namespace {

void check(bool done) {
  if (!done) throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

void remove_literal(const std::wstring& folder) {
  WIN32_FIND_DATAW found{};
  win32::SearchHandle search(FindFirstFileW((folder + L"\\*").c_str(), &found));
  for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &found)) {
    const std::wstring name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    const std::wstring path = folder + L"\\" + name;
    const bool link = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      DeleteFileW(path.c_str());
    } else if (link) {
      RemoveDirectoryW(path.c_str());
    } else {
      remove_literal(path);
    }
  }
  search.close();  // else the folder is still in use
  RemoveDirectoryW(folder.c_str());
}

}  // namespace

void lengthen(const std::filesystem::path& file, std::uint64_t length) {
  const win32::FileHandle opened(
      CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  check(static_cast<bool>(opened));
  // Where the disk has no sparse files, it is merely full sooner.
  DWORD unused = 0;
  DeviceIoControl(opened.get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &unused, nullptr);
  LARGE_INTEGER end{};
  end.QuadPart = static_cast<LONGLONG>(length);
  check(SetFilePointerEx(opened.get(), end, nullptr, FILE_BEGIN) && SetEndOfFile(opened.get()));
}

void remove_tree(const std::filesystem::path& folder) {
  remove_literal(L"\\\\?\\" + folder.wstring());
}

}  // namespace ordelan::test
