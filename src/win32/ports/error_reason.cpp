#include "win32/ports/error_reason.h"

#include <windows.h>

#include "win32/handle.h"
#include "win32/ports/extended_path.h"

namespace ordelan::win32 {

using system::Reason;

Reason reason_of(unsigned long error) {
  constexpr DWORD kDiskQuotaExceeded = 1295;  // some headers lack it
  switch (error) {
    case ERROR_SUCCESS:
      return Reason::ok;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
      return Reason::not_found;
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
    case ERROR_DIR_NOT_EMPTY:
      return Reason::exists;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
      return Reason::bad_path;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_DELETE_PENDING:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_BUSY:
      return Reason::in_use;
    case ERROR_WRITE_PROTECT:
    case ERROR_FILE_READ_ONLY:
      return Reason::read_only;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return Reason::no_permission;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return Reason::no_space;
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
      return Reason::too_long;
    case ERROR_NOT_READY:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NETWORK_UNREACHABLE:
      return Reason::not_ready;
    case ERROR_NOT_SAME_DEVICE:
    case ERROR_NOT_SUPPORTED:
    case ERROR_INVALID_FUNCTION:
      return Reason::not_supported;
    case ERROR_CANCELLED:
    case ERROR_REQUEST_ABORTED:
    case ERROR_OPERATION_ABORTED:
      return Reason::cancelled;
    default:
      return Reason::other;
  }
}

Reason last_reason() {
  const DWORD error = GetLastError();
  return error == ERROR_SUCCESS ? Reason::other : reason_of(error);
}

Reason reason_without_file_path(std::string_view path) {
  return extended_path(path) ? Reason::not_a_file : Reason::bad_path;
}

bool is_held(const std::wstring& extended) {
  const FileHandle file(CreateFileW(extended.c_str(), DELETE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
  return !file && GetLastError() == ERROR_SHARING_VIOLATION;
}

Reason reason_at(unsigned long error, const std::wstring& extended) {
  constexpr std::size_t kLongestName = 255;
  const bool too_long = extended.size() - extended.rfind(L'\\') - 1 > kLongestName;
  switch (error) {
    case ERROR_INVALID_NAME:
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return too_long ? Reason::too_long : reason_of(error);
    case ERROR_ACCESS_DENIED:
      break;
    default:
      return reason_of(error);
  }
  const DWORD attributes = GetFileAttributesW(extended.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return reason_of(error);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Reason::not_a_file;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) return Reason::read_only;
  return is_held(extended) ? Reason::in_use : reason_of(error);
}

}  // namespace ordelan::win32
