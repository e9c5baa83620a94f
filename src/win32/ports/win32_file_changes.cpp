// The calls that change what stands on the disk.
#include <windows.h>

#include <aclapi.h>

#include <vector>

#include "win32/handle.h"
#include "win32/ports/error_reason.h"
#include "win32/ports/extended_path.h"
#include "win32/ports/file_streams.h"
#include "win32/ports/win32_file_system.h"

namespace ordelan::win32 {
namespace {

using system::Reason;
using system::Status;

constexpr int kTriesToReplace = 25;
constexpr DWORD kPauseOfTries = 10;  // milliseconds
constexpr DWORD kSettable = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                            FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;

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
  const SearchHandle search(
      FindFirstFileExW(path.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0));
  if (!search) return path;
  return path.substr(0, path.rfind(L'\\') + 1) + found.cFileName;
}

// Puts `source` in the place of a `target` that exists and has the attributes `old`. Gives the
// error, ERROR_SUCCESS if none. The streams that `source` got from `target` are added to `streams`.
// ReplaceFileW would do it all, but it moves the old file away first: others find none for a
// moment, and so does the user when the program is ended in it.
DWORD put_over(const std::wstring& source, const std::wstring& target, DWORD old,
               std::vector<std::wstring>& streams) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                          FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  // First, as neither a read-only file nor one with the rights of the old one takes streams.
  SetFileAttributesW(source.c_str(), FILE_ATTRIBUTE_NORMAL);
  const DWORD copied = copy_streams(target, source, streams);
  if (copied != ERROR_SUCCESS) return copied;
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

// Gives a file or folder that exists some of the bits of `kSettable`. Its other bits that can be
// set stay.
bool set_bits(const std::wstring& path, DWORD old, DWORD wanted) {
  constexpr DWORD kKept =
      FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_TEMPORARY;
  const DWORD all = (old & kKept) | (wanted & kSettable);
  return SetFileAttributesW(path.c_str(), all != 0 ? all : FILE_ATTRIBUTE_NORMAL) != 0;
}

// Writes the bytes of a file into another one. Windows'
// own copy is not used: when it reports its progress differs between systems.
Status copy_bytes(const FileHandle& source, system::OutputFile& copy,
                  const system::FileSystem::Progress& progress, system::Flush flush) {
  constexpr DWORD kBlock = 1 << 20;
  std::vector<char> buffer(kBlock);
  std::uint64_t copied = 0;
  for (;;) {
    DWORD came = 0;
    if (!ReadFile(source.get(), buffer.data(), kBlock, &came, nullptr)) return last_reason();
    if (came == 0) break;
    if (const Status wrote = copy.write({buffer.data(), came}); !wrote) return wrote;
    copied += came;
    if (progress && !progress(copied)) return Reason::cancelled;
  }
  return flush == system::Flush::yes ? copy.flush() : Status();
}

// Fills a copy that has just been created, closes it, and gives it the time of the last write and
// the attributes of the original. It is not opened anew to be written: a virus scanner looks at new
// files, and would be in the way.
Status fill_copy(const FileHandle& source, system::OutputFile& copy, const std::wstring& target,
                 const system::FileSystem::Progress& progress, system::Flush flush) {
  BY_HANDLE_FILE_INFORMATION original{};
  if (!GetFileInformationByHandle(source.get(), &original)) return last_reason();
  if (const Status status = copy_bytes(source, copy, progress, flush); !status) return status;
  if (const Status closed = copy.close(); !closed) return closed;
  FileHandle written = open_for(target, FILE_WRITE_ATTRIBUTES);
  if (!written || !SetFileTime(written.get(), nullptr, nullptr, &original.ftLastWriteTime) ||
      !written.close() || !set_bits(target, 0, original.dwFileAttributes)) {
    return last_reason();
  }
  return {};
}

}  // namespace

Status Win32FileSystem::make_folder(std::string_view path) {
  const auto extended = extended_path(path);
  if (!extended) return Reason::bad_path;
  return CreateDirectoryW(extended->c_str(), nullptr) ? Reason::ok
                                                      : reason_at(GetLastError(), *extended);
}

Status Win32FileSystem::set_attributes(std::string_view path, std::uint32_t attributes) {
  auto extended = extended_path(path);
  if (!extended) return Reason::bad_path;
  if (extended->ends_with(L'\\') && !is_root(*extended)) extended->pop_back();
  const DWORD old = GetFileAttributesW(extended->c_str());
  if (old == INVALID_FILE_ATTRIBUTES) return reason_at(GetLastError(), *extended);
  if (path.back() == '\\' && (old & FILE_ATTRIBUTE_DIRECTORY) == 0) return Reason::not_found;
  if (!set_bits(*extended, old, attributes)) return last_reason();
  // A volume without such bits drops them silently.
  const DWORD kept = GetFileAttributesW(extended->c_str());
  if ((attributes & kSettable & ~kept) == 0) return {};
  set_bits(*extended, old, old);
  return Reason::not_supported;
}

Status Win32FileSystem::flush_folder(std::string_view folder) {
  const auto found = info(folder);
  return found && found->folder ? Reason::ok : Reason::not_found;
}

Status Win32FileSystem::flush_file(std::string_view path) {
  const auto extended = file_path(path);
  if (!extended) return reason_without_file_path(path);
  const DWORD attributes = GetFileAttributesW(extended->c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return reason_at(GetLastError(), *extended);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Reason::not_a_file;
  // Only a file that is open for writing can be flushed, and a copy of a read-only one is
  // read-only.
  const bool read_only = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (read_only && !set_bits(*extended, attributes, attributes & ~FILE_ATTRIBUTE_READONLY)) {
    return last_reason();
  }
  Status status;
  {
    const FileHandle file = open_for(*extended, GENERIC_WRITE);
    if (!file) {
      status = reason_at(GetLastError(), *extended);
    } else if (!FlushFileBuffers(file.get())) {
      status = last_reason();
    }
  }
  if (read_only && !set_bits(*extended, attributes, attributes) && status) status = last_reason();
  return status;
}

namespace {

class Win32Lock final : public system::FileLock {
 public:
  explicit Win32Lock(FileHandle file) : file_(std::move(file)) {}

 private:
  FileHandle file_;
};

}  // namespace

system::Opened<system::FileLock> Win32FileSystem::lock(std::string_view path) {
  const auto extended = file_path(path);
  if (!extended) return reason_without_file_path(path);
  FileHandle file(CreateFileW(extended->c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr,
                              OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT,
                              nullptr));
  if (!file) return reason_at(GetLastError(), *extended);
  return std::make_unique<Win32Lock>(std::move(file));
}

Status Win32FileSystem::replace(std::string_view from, std::string_view to) {
  const auto source = file_path(from);
  if (!source) return reason_without_file_path(from);
  const auto target = file_path(to);
  if (!target) return reason_without_file_path(to);
  const DWORD before = GetFileAttributesW(source->c_str());
  if (before == INVALID_FILE_ATTRIBUTES) return reason_at(GetLastError(), *source);
  if ((before & FILE_ATTRIBUTE_DIRECTORY) != 0) return Reason::not_a_file;
  Status status;
  std::vector<std::wstring> streams;
  // Programs that look at files as they come (the shell, an indexer, a virus scanner) have one open
  // for a moment, in which it cannot be replaced.
  for (int tries = 1;; ++tries) {
    const DWORD old = GetFileAttributesW(target->c_str());
    DWORD error = ERROR_SUCCESS;
    if (old == INVALID_FILE_ATTRIBUTES) {
      error = put_new(*source, *target);
    } else if ((old & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      status = Reason::not_a_file;
      break;
    } else if ((old & FILE_ATTRIBUTE_READONLY) != 0) {
      status = Reason::read_only;
      break;
    } else {
      error = put_over(*source, *target, old, streams);
    }
    if (error == ERROR_SUCCESS) return {};
    status = reason_at(error, *target);
    if (!passes_by(error) || tries == kTriesToReplace) break;
    Sleep(kPauseOfTries);
  }
  remove_streams(*source, streams);
  SetFileAttributesW(source->c_str(), before);
  return status;
}

Status Win32FileSystem::move(std::string_view from, std::string_view to) {
  const auto source = file_path(from);
  if (!source) return reason_without_file_path(from);
  const auto target = file_path(to);
  if (!target) return reason_without_file_path(to);
  const DWORD attributes = GetFileAttributesW(source->c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return reason_at(GetLastError(), *source);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Reason::not_a_file;
  for (int tries = 1;; ++tries) {
    const DWORD error = put_new(*source, *target);
    if (error == ERROR_SUCCESS) return {};
    const bool taken = GetFileAttributesW(target->c_str()) != INVALID_FILE_ATTRIBUTES;
    if (taken) return Reason::exists;
    if (!passes_by(error) || tries == kTriesToReplace) return reason_at(error, *target);
    Sleep(kPauseOfTries);
  }
}

Status Win32FileSystem::copy_new(std::string_view from, std::string_view to,
                                 const Progress& progress, system::Flush flush) {
  const auto source = file_path(from);
  if (!source) return reason_without_file_path(from);
  const FileHandle file(CreateFileW(source->c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file) return reason_at(GetLastError(), *source);
  // Created by this call: so it is ours to be removed on failure.
  auto made = create_new(to);
  if (!made) return made.status();
  const std::wstring target = *file_path(to);
  const auto take_back = [&] {
    made.reset();
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(target.c_str());
  };
  try {
    const Status status = fill_copy(file, *made, target, progress, flush);
    if (!status) take_back();
    return status;
  } catch (...) {
    take_back();
    throw;
  }
}

Status Win32FileSystem::remove(std::string_view path) {
  const auto extended = file_path(path);
  if (!extended) return reason_without_file_path(path);
  return DeleteFileW(extended->c_str()) ? Reason::ok : reason_at(GetLastError(), *extended);
}

}  // namespace ordelan::win32
