// A system handle that is closed when it is destroyed.
#pragma once

#include <windows.h>

#include <utility>

namespace ordelan::win32 {

template <class Closer>
class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(HANDLE handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept
      : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~UniqueHandle() { close(); }

  HANDLE get() const { return handle_; }
  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }

  // Closes it now. False when there was nothing to close or the system reports a failure.
  bool close() {
    const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
    return handle != INVALID_HANDLE_VALUE && Closer::close(handle);
  }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

struct FileCloser {
  static bool close(HANDLE handle) { return CloseHandle(handle) != FALSE; }
};
struct SearchCloser {
  static bool close(HANDLE handle) { return FindClose(handle) != FALSE; }
};

using FileHandle = UniqueHandle<FileCloser>;
using SearchHandle = UniqueHandle<SearchCloser>;

}  // namespace ordelan::win32
