#include "sparse_file.h"

#include <windows.h>

#include <winioctl.h>

#include <system_error>

namespace ordelan::test {
namespace {

[[noreturn]] void fail() {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

}  // namespace

void lengthen(const std::filesystem::path& file, std::uint64_t length) {
  const HANDLE handle =
      CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) fail();
  // Where the disk knows no such files, it is merely full sooner.
  DWORD unused = 0;
  DeviceIoControl(handle, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &unused, nullptr);
  LARGE_INTEGER end{};
  end.QuadPart = static_cast<LONGLONG>(length);
  const bool done = SetFilePointerEx(handle, end, nullptr, FILE_BEGIN) && SetEndOfFile(handle);
  const DWORD error = GetLastError();
  CloseHandle(handle);
  SetLastError(error);
  if (!done) fail();
}

}  // namespace ordelan::test
