#include "win32/ports/file_streams.h"

#include <windows.h>

#include <string_view>

#include "win32/handle.h"

namespace ordelan::win32 {
namespace {

FileHandle open_shared(const std::wstring& path, DWORD access, DWORD disposition) {
  return FileHandle(CreateFileW(path.c_str(), access,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// The error of the call that has just failed; never ERROR_SUCCESS.
DWORD last_error() {
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : DWORD{ERROR_GEN_FAILURE};
}

// Puts back the time at which a file was last written, which writing to its streams changes.
class WriteTime {
 public:
  explicit WriteTime(const std::wstring& file) : file_(file) {
    const FileHandle open = open_shared(file_, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
    if (!open || !GetFileTime(open.get(), nullptr, nullptr, &written_)) error_ = last_error();
  }

  // Why the time cannot be read; ERROR_SUCCESS if it was.
  DWORD error() const { return error_; }

  // Gives the error, ERROR_SUCCESS if none.
  DWORD put_back() const {
    if (error_ != ERROR_SUCCESS) return error_;
    const FileHandle open = open_shared(file_, FILE_WRITE_ATTRIBUTES, OPEN_EXISTING);
    return open && SetFileTime(open.get(), nullptr, nullptr, &written_) ? DWORD{ERROR_SUCCESS}
                                                                        : last_error();
  }

 private:
  const std::wstring& file_;
  FILETIME written_{};
  DWORD error_ = ERROR_SUCCESS;
};

// Finds the names of the named streams of a file (":name:$DATA"). Gives the error, ERROR_SUCCESS if
// none.
DWORD find_streams(const std::wstring& file, std::vector<std::wstring>& names) {
  WIN32_FIND_STREAM_DATA found{};
  const SearchHandle search(FindFirstStreamW(file.c_str(), FindStreamInfoStandard, &found, 0));
  if (!search) {
    switch (const DWORD error = last_error()) {
      case ERROR_HANDLE_EOF:         // none at all
      case ERROR_INVALID_PARAMETER:  // and so do volumes and systems without streams say it
      case ERROR_INVALID_FUNCTION:
      case ERROR_NOT_SUPPORTED:
      case ERROR_CALL_NOT_IMPLEMENTED:
        return ERROR_SUCCESS;
      default:
        return error;
    }
  }
  do {
    // The first is the file's own bytes.
    if (std::wstring_view(found.cStreamName) != L"::$DATA") names.emplace_back(found.cStreamName);
  } while (FindNextStreamW(search.get(), &found));
  const DWORD error = last_error();
  return error == ERROR_HANDLE_EOF ? DWORD{ERROR_SUCCESS} : error;
}

DWORD copy_bytes(const FileHandle& source, const FileHandle& target) {
  constexpr DWORD kBlock = 1 << 16;
  std::vector<char> buffer(kBlock);
  for (;;) {
    DWORD came = 0;
    if (!ReadFile(source.get(), buffer.data(), kBlock, &came, nullptr)) return last_error();
    // What is left of longer bytes that stood there goes.
    if (came == 0) return SetEndOfFile(target.get()) ? DWORD{ERROR_SUCCESS} : last_error();
    DWORD written = 0;
    if (!WriteFile(target.get(), buffer.data(), came, &written, nullptr)) return last_error();
    if (written != came) return ERROR_DISK_FULL;
  }
}

}  // namespace

unsigned long copy_stream(const std::wstring& from, const std::wstring& to,
                          std::vector<std::wstring>& made) {
  const FileHandle source = open_shared(from, GENERIC_READ, OPEN_EXISTING);
  if (!source) return last_error();
  const FileHandle target = open_shared(to, GENERIC_WRITE, OPEN_ALWAYS);
  const DWORD opened = GetLastError();
  if (!target) return last_error();
  if (opened != ERROR_ALREADY_EXISTS) made.push_back(to);
  const DWORD error = copy_bytes(source, target);
  if (error != ERROR_SUCCESS) return error;
  return FlushFileBuffers(target.get()) ? DWORD{ERROR_SUCCESS} : last_error();
}

unsigned long copy_streams(const std::wstring& from, const std::wstring& to,
                           std::vector<std::wstring>& made) {
  std::vector<std::wstring> names;
  if (const DWORD error = find_streams(from, names); error != ERROR_SUCCESS) return error;
  if (names.empty()) return ERROR_SUCCESS;
  const WriteTime time(to);
  DWORD error = time.error();
  for (const std::wstring& name : names) {
    if (error == ERROR_SUCCESS) error = copy_stream(from + name, to + name, made);
  }
  const DWORD put_back = time.put_back();
  return error != ERROR_SUCCESS ? error : put_back;
}

void remove_streams(const std::wstring& of, const std::vector<std::wstring>& streams) {
  if (streams.empty()) return;
  const WriteTime time(of);
  for (const std::wstring& stream : streams) DeleteFileW(stream.c_str());
  time.put_back();
}

}  // namespace ordelan::win32
