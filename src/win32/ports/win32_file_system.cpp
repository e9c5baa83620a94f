#include "win32/ports/win32_file_system.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

#include "win32/ansi_text.h"
#include "win32/handle.h"
#include "win32/ports/error_reason.h"
#include "win32/ports/extended_path.h"
#include "win32/ports/file_writing.h"

namespace ordelan::win32 {
namespace {

using system::Detail;
using system::FileInfo;
using system::Reason;

std::uint64_t joined(DWORD high, DWORD low) {
  return (std::uint64_t{high} << 32) | low;
}

// A moment in local time, as days since the 30th of December 1899. A file that a disk keeps no such
// time for has 0.
double local_days(const FILETIME& moment) {
  constexpr double kTicksPerDay = 864e9;
  constexpr double kDaysFrom1601 = 109'205;  // from there on Windows counts
  const std::uint64_t kept = joined(moment.dwHighDateTime, moment.dwLowDateTime);
  FILETIME local{};
  if (kept == 0 || !FileTimeToLocalFileTime(&moment, &local)) return 0;
  const auto ticks = joined(local.dwHighDateTime, local.dwLowDateTime);
  return static_cast<double>(ticks) / kTicksPerDay - kDaysFrom1601;
}

// Puts everything but the name into `info`, from what a search or a look at a path has found: they
// call it by the same names.
template <class Found>
void describe(const Found& found, Detail detail, FileInfo& info) {
  const DWORD attributes = found.dwFileAttributes;
  info.attributes = attributes;
  info.folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  info.hidden = (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
  info.system = (attributes & FILE_ATTRIBUTE_SYSTEM) != 0;
  info.size = info.folder ? 0 : joined(found.nFileSizeHigh, found.nFileSizeLow);
  info.modified = local_days(found.ftLastWriteTime);
  if (detail != Detail::times) return;
  info.created = local_days(found.ftCreationTime);
  info.accessed = local_days(found.ftLastAccessTime);
}

// The same with the name. False if the code page cannot hold the name.
bool describe_entry(const WIN32_FIND_DATAW& found, Detail detail, FileInfo& info) {
  if (!narrow(found.cFileName, info.name)) return false;
  describe(found, detail, info);
  // Files that a cloud service has yet to fetch have a reparse point too, but they stand for
  // nothing but themselves.
  info.link = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
              IsReparseTagNameSurrogate(found.dwReserved0);
  return true;
}

SearchHandle find(const std::wstring& path, WIN32_FIND_DATAW& found) {
  return SearchHandle(FindFirstFileExW(path.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                       nullptr, FIND_FIRST_EX_LARGE_FETCH));
}

// Whether a search has found the name that was asked for. Searches drop a dot or a blank at its end
// on some systems; the name of another length that they find by a short name is the file's own.
bool is_asked(std::wstring_view path, const WIN32_FIND_DATAW& found) {
  const wchar_t last = path.back();
  return (last != L'.' && last != L' ') || std::wstring_view(found.cFileName).ends_with(last);
}

std::optional<FileInfo> info_of_root(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  const std::wstring root = path.ends_with(L'\\') ? path : path + L'\\';
  if (!GetFileAttributesExW(root.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
  // Roots are marked hidden and system on some drives; no user ever hid them.
  data.dwFileAttributes &= ~DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM};
  data.dwFileAttributes |= FILE_ATTRIBUTE_DIRECTORY;
  FileInfo info;
  describe(data, Detail::times, info);
  std::wstring_view name = root;
  name.remove_suffix(1);
  name.remove_prefix(name.rfind(L'\\') + 1);
  info.name = narrow(name).value_or("");
  return info;
}

class Win32InputFile final : public system::InputFile {
 public:
  Win32InputFile(FileHandle file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  std::uint64_t size() const override { return size_; }

  std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
    // Wine takes up to ten times as long for a read that is given its offset in the same call.
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(offset);
    if (!SetFilePointerEx(file_.get(), place, nullptr, FILE_BEGIN)) return std::nullopt;
    std::size_t done = 0;
    while (done < buffer.size()) {
      const auto piece = static_cast<DWORD>(std::min(buffer.size() - done, kLargestPiece));
      DWORD came = 0;
      if (!ReadFile(file_.get(), buffer.data() + done, piece, &came, nullptr)) return std::nullopt;
      if (came == 0) break;
      done += came;
    }
    return done;
  }

 private:
  FileHandle file_;
  std::uint64_t size_;
};

class Win32OutputFile final : public system::OutputFile {
 public:
  explicit Win32OutputFile(FileHandle file) : file_(std::move(file)) {}

  system::Status write(std::string_view bytes) override {
    if (status_) status_ = write_all(file_, bytes);
    return status_;
  }

  system::Status flush() override {
    if (status_ && !FlushFileBuffers(file_.get())) status_ = last_reason();
    return status_;
  }

  system::Status close() override {
    const system::Status closed = file_.close() ? Reason::ok : last_reason();
    return status_ ? closed : status_;
  }

 private:
  FileHandle file_;
  system::Status status_;
};

system::Opened<system::OutputFile> output_file(std::string_view path, DWORD disposition) {
  const auto extended = file_path(path);
  if (!extended) return reason_without_file_path(path);
  FileHandle file(CreateFileW(extended->c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                              disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return reason_at(GetLastError(), *extended);
  return std::make_unique<Win32OutputFile>(std::move(file));
}

}  // namespace

Win32FileSystem::Win32FileSystem() {
  SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS);
}

std::optional<FileInfo> Win32FileSystem::info(std::string_view path) {
  auto extended = extended_path(path);
  if (!extended) return std::nullopt;
  if (is_root(*extended)) return info_of_root(*extended);
  const bool only_folder = extended->ends_with(L'\\');
  if (only_folder) extended->pop_back();
  WIN32_FIND_DATAW found{};
  if (!find(*extended, found) || !is_asked(*extended, found)) return std::nullopt;
  FileInfo info;
  if (!describe_entry(found, Detail::times, info)) return std::nullopt;
  if (only_folder && !info.folder) return std::nullopt;
  return info;
}

bool Win32FileSystem::each_entry(std::string_view folder, Detail detail, const Visit& visit,
                                 const VisitUnnamed& unnamed) {
  auto extended = extended_path(folder);
  if (!extended) return false;
  if (!extended->ends_with(L'\\')) *extended += L'\\';
  *extended += L'*';

  WIN32_FIND_DATAW found{};
  const SearchHandle search = find(*extended, found);
  // An empty drive has not even the two entries that stand for folders.
  if (!search) return GetLastError() == ERROR_FILE_NOT_FOUND;
  // One entry serves for all, so that its name takes no new room each time.
  FileInfo entry;
  do {
    const std::wstring_view name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    if (!describe_entry(found, detail, entry)) {
      const bool is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
      if (unnamed) unnamed({narrow_with_marks(name), is_folder});
      continue;
    }
    if (!visit(entry)) return true;
  } while (FindNextFileW(search.get(), &found));
  return GetLastError() == ERROR_NO_MORE_FILES;
}

std::optional<system::FileIdentity> Win32FileSystem::identity(std::string_view path) {
  const auto extended = extended_path(path);
  if (!extended) return std::nullopt;
  // Attributes can be read while another program has the file open; folders need the backup flag.
  const FileHandle file(CreateFileW(extended->c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION found{};
  if (!file || !GetFileInformationByHandle(file.get(), &found)) return std::nullopt;
  const bool is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (extended->ends_with(L'\\') && !is_folder) return std::nullopt;
  system::FileIdentity identity{found.dwVolumeSerialNumber,
                                joined(found.nFileIndexHigh, found.nFileIndexLow), 0};
  // ReFS numbers files in 128 bits; elsewhere the low half is the number above.
  FILE_ID_INFO wide{};
  if (GetFileInformationByHandleEx(file.get(), FileIdInfo, &wide, sizeof wide)) {
    std::memcpy(&identity.file, wide.FileId.Identifier, sizeof identity.file);
    std::memcpy(&identity.file_high, wide.FileId.Identifier + sizeof identity.file,
                sizeof identity.file_high);
  }
  return identity;
}

system::Opened<system::InputFile> Win32FileSystem::open(std::string_view path) {
  const auto extended = file_path(path);
  if (!extended) return reason_without_file_path(path);
  FileHandle file(CreateFileW(extended->c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file) return reason_at(GetLastError(), *extended);
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file.get(), &size)) return last_reason();
  return std::make_unique<Win32InputFile>(std::move(file),
                                          static_cast<std::uint64_t>(size.QuadPart));
}

system::Opened<system::OutputFile> Win32FileSystem::create(std::string_view path) {
  // Not every system keeps such a file from being emptied.
  if (const auto extended = file_path(path)) {
    const DWORD old = GetFileAttributesW(extended->c_str());
    constexpr DWORD kAsked = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY;
    if (old != INVALID_FILE_ATTRIBUTES && (old & kAsked) == FILE_ATTRIBUTE_READONLY) {
      return Reason::read_only;
    }
  }
  return output_file(path, CREATE_ALWAYS);
}

system::Opened<system::OutputFile> Win32FileSystem::create_new(std::string_view path) {
  auto file = output_file(path, CREATE_NEW);
  // Windows denies access to the name of a folder, or says that it is taken.
  if (file.status() == Reason::not_a_file && info(path)) return Reason::exists;
  return file;
}

}  // namespace ordelan::win32
