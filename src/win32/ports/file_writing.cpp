// Files that are written to.
#include "win32/ports/file_writing.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "win32/handle.h"
#include "win32/ports/error_reason.h"
#include "win32/ports/extended_path.h"
#include "win32/ports/win32_file_system.h"

namespace ordelan::win32 {

using system::Reason;
using system::Status;

Status write_all(const FileHandle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto piece = static_cast<DWORD>(std::min(bytes.size(), kLargestPiece));
    DWORD written = 0;
    if (!WriteFile(file.get(), bytes.data(), piece, &written, nullptr)) return last_reason();
    if (written == 0) return Reason::other;
    bytes.remove_prefix(written);
  }
  return {};
}

namespace {

class Win32ChangeFile final : public system::ChangeFile {
 public:
  Win32ChangeFile(FileHandle file, std::uint32_t names) : file_(std::move(file)), names_(names) {}

  std::uint32_t names() const override { return names_; }

  Status write_at(std::uint64_t offset, std::string_view bytes) override {
    if (!status_) return status_;
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(offset);
    if (!SetFilePointerEx(file_.get(), place, nullptr, FILE_BEGIN)) return status_ = last_reason();
    return status_ = write_all(file_, bytes);
  }

  Status set_size(std::uint64_t size) override {
    if (!status_) return status_;
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(size);
    if (!SetFilePointerEx(file_.get(), place, nullptr, FILE_BEGIN) || !SetEndOfFile(file_.get())) {
      status_ = last_reason();
    }
    return status_;
  }

  Status flush() override {
    if (status_ && !FlushFileBuffers(file_.get())) status_ = last_reason();
    return status_;
  }

  Status close() override {
    const Status closed = file_.close() ? Reason::ok : last_reason();
    return status_ ? closed : status_;
  }

 private:
  FileHandle file_;
  std::uint32_t names_;
  Status status_;
};

}  // namespace

system::Opened<system::ChangeFile> Win32FileSystem::change(std::string_view path) {
  const auto extended = file_path(path);
  if (!extended) return reason_without_file_path(path);
  FileHandle file(CreateFileW(extended->c_str(), GENERIC_WRITE | FILE_READ_ATTRIBUTES,
                              FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                              nullptr));
  if (!file) return reason_at(GetLastError(), *extended);
  BY_HANDLE_FILE_INFORMATION found{};
  if (!GetFileInformationByHandle(file.get(), &found)) return last_reason();
  // Not every system keeps such a file from being opened.
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Reason::not_a_file;
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) return Reason::read_only;
  return std::make_unique<Win32ChangeFile>(std::move(file),
                                           std::max<DWORD>(found.nNumberOfLinks, 1));
}

}  // namespace ordelan::win32
