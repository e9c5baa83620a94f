#include "win32/ports/file_release.h"

#include <windows.h>

#include <ole2.h>

#include "win32/handle.h"
#include "win32/ports/extended_path.h"

namespace ordelan::win32 {
namespace {

constexpr DWORD kReleaseTurn = 10;  // milliseconds

}  // namespace

bool is_held(const std::string& path) {
  const auto extended = file_path(path);
  if (!extended) return false;
  // A program that has not allowed it to be removed makes this fail.
  const FileHandle file(CreateFileW(extended->c_str(), DELETE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  return !file && GetLastError() == ERROR_SHARING_VIOLATION;
}

bool wait_until_free(const std::string& path, std::chrono::milliseconds most) {
  const auto begin = std::chrono::steady_clock::now();
  const HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  bool free = !is_held(path);
  while (!free && std::chrono::steady_clock::now() - begin < most) {
    HANDLE awaited = never;
    DWORD index = 0;
    const HRESULT waited = CoWaitForMultipleHandles(0, kReleaseTurn, 1, &awaited, &index);
    // A thread without such objects does not wait there.
    if (waited != RPC_S_CALLPENDING) Sleep(kReleaseTurn);
    free = !is_held(path);
  }
  if (never) CloseHandle(never);
  return free;
}

}  // namespace ordelan::win32
