#include "win32/ports/win32_file_system.h"

#include <windows.h>

#include <aclapi.h>

#include <algorithm>
#include <cstring>

#include "win32/ansi_text.h"
#include "win32/handle.h"
#include "win32/ports/extended_path.h"

namespace ordelan::win32 {
namespace {

using system::Detail;
using system::FileInfo;

// One call to the disk takes and gives at most this much.
constexpr std::size_t kLargestPiece = 16 * 1024 * 1024;
constexpr int kTriesToReplace = 25;
constexpr DWORD kPauseOfTries = 10;  // milliseconds

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
  if (detail != Detail::times) return;
  info.created = local_days(found.ftCreationTime);
  info.modified = local_days(found.ftLastWriteTime);
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
  // Roots are marked hidden and system on some drives; nobody ever hid them.
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

// The extended path of something that is a file by its form: no backslash at the end.
std::optional<std::wstring> file_path(std::string_view path) {
  auto extended = extended_path(path);
  if (extended && extended->ends_with(L'\\')) extended.reset();
  return extended;
}

class Win32InputFile final : public system::InputFile {
 public:
  Win32InputFile(FileHandle file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

  std::uint64_t size() const override { return size_; }

  std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
    // Wine takes up to ten times as long for a read that is told its place in the same call.
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

  bool write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto piece = static_cast<DWORD>(std::min(bytes.size(), kLargestPiece));
      DWORD written = 0;
      if (!WriteFile(file_.get(), bytes.data(), piece, &written, nullptr) || written == 0) {
        failed_ = true;
        return false;
      }
      bytes.remove_prefix(written);
    }
    return true;
  }

  bool close() override { return file_.close() && !failed_; }

 private:
  FileHandle file_;
  bool failed_ = false;
};

std::unique_ptr<system::OutputFile> output_file(std::string_view path, DWORD disposition) {
  const auto extended = file_path(path);
  if (!extended) return nullptr;
  FileHandle file(CreateFileW(extended->c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                              disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return nullptr;
  return std::make_unique<Win32OutputFile>(std::move(file));
}

FileHandle open_for(const std::wstring& path, DWORD access) {
  return FileHandle(CreateFileW(path.c_str(), access,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// Gives the file `to` the access rights of another. Disks without rights have none to be kept.
void take_over_rights(const std::wstring& from, const std::wstring& to) {
  const FileHandle source = open_for(from, READ_CONTROL);
  const FileHandle target = open_for(to, READ_CONTROL | WRITE_DAC);
  PACL rights = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (!source || !target ||
      GetSecurityInfo(source.get(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                      &rights, nullptr, &descriptor) != ERROR_SUCCESS) {
    return;
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (rights != nullptr && GetSecurityDescriptorControl(descriptor, &control, &revision)) {
    // What comes from the folder comes to the new file by itself, unless the old one had it not.
    const DWORD inherited = (control & SE_DACL_PROTECTED) != 0
                                ? PROTECTED_DACL_SECURITY_INFORMATION
                                : UNPROTECTED_DACL_SECURITY_INFORMATION;
    SetSecurityInfo(target.get(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inherited, nullptr,
                    nullptr, rights, nullptr);
  }
  LocalFree(descriptor);
}

// Gives the file `to` the time at which another was created.
void take_over_creation(const std::wstring& from, const std::wstring& to) {
  const FileHandle source = open_for(from, FILE_READ_ATTRIBUTES);
  const FileHandle target = open_for(to, FILE_WRITE_ATTRIBUTES);
  FILETIME created{};
  if (source && target && GetFileTime(source.get(), &created, nullptr, nullptr)) {
    SetFileTime(target.get(), &created, nullptr, nullptr);
  }
}

// The path with its last name as the disk spells it, so that a move to it changes no capital.
std::wstring as_spelt(const std::wstring& path) {
  WIN32_FIND_DATAW found{};
  if (!find(path, found)) return path;
  return path.substr(0, path.rfind(L'\\') + 1) + found.cFileName;
}

// Puts `source` in the place of a `target` that exists and has the attributes `old`. Gives the
// error, ERROR_SUCCESS if none. ReplaceFileW would keep more (other streams of the file), but it
// moves the old file away first: others find none for a moment, and so does the user when the
// program is ended in it.
DWORD put_over(const std::wstring& source, const std::wstring& target, DWORD old) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                          FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  take_over_creation(target, source);
  take_over_rights(target, source);
  SetFileAttributesW(source.c_str(), (old & kKept) != 0 ? old & kKept : FILE_ATTRIBUTE_NORMAL);
  return MoveFileExW(source.c_str(), as_spelt(target).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
             ? ERROR_SUCCESS
             : GetLastError();
}

// Puts `source` where no `target` exists. Gives the error, ERROR_SUCCESS if none.
DWORD put_new(const std::wstring& source, const std::wstring& target) {
  return MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) ? ERROR_SUCCESS
                                                                             : GetLastError();
}

// Whether the same may go well in a moment.
bool passes_by(DWORD error) {
  switch (error) {
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_ALREADY_EXISTS:  // another has just come
    case ERROR_FILE_EXISTS:
      return true;
    default:
      return false;
  }
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

std::unique_ptr<system::InputFile> Win32FileSystem::open(std::string_view path) {
  const auto extended = file_path(path);
  if (!extended) return nullptr;
  FileHandle file(CreateFileW(extended->c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  LARGE_INTEGER size{};
  if (!file || !GetFileSizeEx(file.get(), &size)) return nullptr;
  return std::make_unique<Win32InputFile>(std::move(file),
                                          static_cast<std::uint64_t>(size.QuadPart));
}

std::unique_ptr<system::OutputFile> Win32FileSystem::create(std::string_view path) {
  return output_file(path, CREATE_ALWAYS);
}

std::unique_ptr<system::OutputFile> Win32FileSystem::create_new(std::string_view path) {
  return output_file(path, CREATE_NEW);
}

bool Win32FileSystem::make_folder(std::string_view path) {
  const auto extended = extended_path(path);
  return extended && CreateDirectoryW(extended->c_str(), nullptr) != 0;
}

bool Win32FileSystem::replace(std::string_view from, std::string_view to) {
  const auto source = file_path(from);
  const auto target = file_path(to);
  if (!source || !target) return false;
  const DWORD before = GetFileAttributesW(source->c_str());
  if (before == INVALID_FILE_ATTRIBUTES || (before & FILE_ATTRIBUTE_DIRECTORY) != 0) return false;
  // Programs that look at files as they come (the shell, an indexer, a virus scanner) have one open
  // for a moment, in which it cannot be replaced.
  for (int tries = 1;; ++tries) {
    const DWORD old = GetFileAttributesW(target->c_str());
    DWORD error = ERROR_SUCCESS;
    if (old == INVALID_FILE_ATTRIBUTES) {
      error = put_new(*source, *target);
    } else if ((old & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
      error = ERROR_WRITE_PROTECT;
    } else {
      error = put_over(*source, *target, old);
    }
    if (error == ERROR_SUCCESS) return true;
    if (!passes_by(error) || tries == kTriesToReplace) break;
    Sleep(kPauseOfTries);
  }
  SetFileAttributesW(source->c_str(), before);
  return false;
}

bool Win32FileSystem::remove(std::string_view path) {
  const auto extended = file_path(path);
  return extended && DeleteFileW(extended->c_str()) != 0;
}

}  // namespace ordelan::win32
