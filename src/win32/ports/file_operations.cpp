// What Windows' shell does with files: recycling and copying.
#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <limits>

#include "system/file_system.h"
#include "win32/ansi_text.h"
#include "win32/ports/error_reason.h"
#include "win32/ports/extended_path.h"
#include "win32/ports/win32_shell.h"

namespace ordelan::win32 {
namespace {

using system::Confirm;
using system::Reason;
using system::Status;

// Whether Windows takes a plain path just as it is spelt. It drops blanks and dots from the end of
// names, and takes some names for devices: the shell would remove another file.
bool is_taken_literally(const std::wstring& path) {
  wchar_t full[MAX_PATH + 1] = {};
  const DWORD length = GetFullPathNameW(path.c_str(), MAX_PATH + 1, full, nullptr);
  return length == path.size() && path == full;
}

// Ok if nothing of that name is left. A file that cannot be looked at may still be there: so it is
// in a folder that has gone with its drive or its network.
Status is_gone(const std::wstring& extended) {
  if (GetFileAttributesW(extended.c_str()) != INVALID_FILE_ATTRIBUTES) return Reason::other;
  const DWORD error = GetLastError();
  if (error != ERROR_FILE_NOT_FOUND) return reason_at(error, extended);
  const std::wstring folder = extended.substr(0, extended.rfind(L'\\') + 1);
  return GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES ? Reason::ok : last_reason();
}

// The file operations of the shell have numbers of their own besides those of Windows.
Reason reason_of_operation(int result, const std::wstring& extended) {
  switch (result) {
    case 0x74:
      return Reason::not_a_file;  // a root
    case 0x75:                    // the user ended it
    case 0x10075:
      return Reason::cancelled;
    case 0x78:
      return reason_at(ERROR_ACCESS_DENIED, extended);
    case 0x79:
    case 0x81:
      return Reason::too_long;
    case 0x7C:
      return Reason::bad_path;
    case 0x402:
      return Reason::not_found;
    default:
      return reason_at(static_cast<unsigned long>(result), extended);
  }
}

// A number of the user's or of the administrator's settings, 0 where it is not set.
DWORD setting(HKEY where, const std::wstring& key, const wchar_t* name) {
  DWORD value = 0;
  DWORD size = sizeof value;
  RegGetValueW(where, key.c_str(), name, RRF_RT_REG_DWORD, nullptr, &value, &size);
  return value;
}

constexpr std::wstring_view kSettings = L"Software\\Microsoft\\Windows\\CurrentVersion\\";

// Where the settings of a drive's bin are kept; empty where that cannot be found.
std::wstring bin_settings(const std::wstring& root) {
  // "\\?\Volume{...}\" of the drive; the settings have the part in braces.
  wchar_t volume[64] = {};
  if (!GetVolumeNameForVolumeMountPointW(root.c_str(), volume, 64)) return {};
  const std::wstring_view name = volume;
  const auto open = name.find(L'{');
  const auto close = name.find(L'}');
  if (open == name.npos || close == name.npos) return {};
  return std::wstring(kSettings) + L"Explorer\\BitBucket\\Volume\\" +
         std::wstring(name.substr(open, close - open + 1));
}

// Whether removed files are set to go for good, on all drives or on that one. Also true where the
// settings of the drive cannot be found: a file that should have been kept is worse than one that
// could have gone to the bin.
bool bin_is_off(const std::wstring& root) {
  for (HKEY const where : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    if (setting(where, std::wstring(kSettings) + L"Policies\\Explorer", L"NoRecycleFiles") != 0)
      return true;
  }
  const std::wstring key = bin_settings(root);
  return key.empty() || setting(HKEY_CURRENT_USER, key, L"NukeOnDelete") != 0;
}

// The root of a plain path: "D:\" or "\\server\share\".
std::string root_of(const std::string& path) {
  if (!path.starts_with("\\\\")) return path.substr(0, 3);
  const auto server = path.find('\\', 2);
  const auto share = server == path.npos ? path.npos : path.find('\\', server + 1);
  return path.substr(0, share) + "\\";
}

}  // namespace

Status Win32Shell::recycle(const std::string& path, Confirm confirm) {
  const auto extended = file_path(path);
  if (!extended) return reason_without_file_path(path);
  const DWORD attributes = GetFileAttributesW(extended->c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return reason_at(GetLastError(), *extended);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Reason::not_a_file;
  std::wstring from = plain_path(*extended);
  if (from.size() >= MAX_PATH) return Reason::too_long;
  if (!is_taken_literally(from)) return Reason::not_supported;
  if (const Status bin = recycles(root_of(narrow(from).value_or(""))); !bin) return bin;
  // The shell would let the user try again and again, or offer to remove the file for good.
  if (is_held(*extended)) return Reason::in_use;
  from.push_back(L'\0');  // a list of one: a second NUL ends it

  SHFILEOPSTRUCTW operation{};
  operation.wFunc = FO_DELETE;
  operation.pFrom = from.c_str();
  // Windows asks before it removes for good what the bin has no room for.
  operation.fFlags = FOF_ALLOWUNDO | FOF_WANTNUKEWARNING | FOF_NOERRORUI;
  if (confirm == Confirm::without_asking) operation.fFlags |= FOF_NOCONFIRMATION;
  const int result = SHFileOperationW(&operation);
  const Status gone = is_gone(*extended);
  if (gone) return {};
  if (operation.fAnyOperationsAborted) return Reason::cancelled;
  return result == 0 ? gone : reason_of_operation(result, *extended);
}

Status Win32Shell::copy_into(const std::string& from, const std::string& folder) {
  const auto source = file_path(from);
  if (!source) return reason_without_file_path(from);
  const DWORD attributes = GetFileAttributesW(source->c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return reason_at(GetLastError(), *source);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Reason::not_a_file;
  const auto target = extended_path(system::with_backslash(folder));
  if (!target) return Reason::bad_path;
  // The shell would give the file the name of a folder that is missing.
  const DWORD place = GetFileAttributesW(target->c_str());
  if (place == INVALID_FILE_ATTRIBUTES) return reason_at(GetLastError(), *target);
  if ((place & FILE_ATTRIBUTE_DIRECTORY) == 0) return Reason::not_found;
  if (!asks_) {
    const std::wstring to = *target + source->substr(source->rfind(L'\\') + 1);
    if (CopyFileW(source->c_str(), to.c_str(), TRUE)) return {};
    const DWORD error = GetLastError();
    return error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS ? Reason::cancelled
                                                                       : reason_at(error, *source);
  }

  std::wstring what = plain_path(*source);
  std::wstring where = plain_path(*target);
  if (where.size() > 3) where.pop_back();
  const std::size_t longest =
      std::max(what.size(), where.size() + 1 + what.size() - what.rfind(L'\\'));
  if (longest >= MAX_PATH) return Reason::too_long;
  if (!is_taken_literally(what) || !is_taken_literally(where)) return Reason::not_supported;
  what.push_back(L'\0');  // lists of one: a second NUL ends them
  where.push_back(L'\0');
  SHFILEOPSTRUCTW operation{};
  operation.wFunc = FO_COPY;
  operation.pFrom = what.c_str();
  operation.pTo = where.c_str();
  operation.fFlags = FOF_ALLOWUNDO;
  const int result = SHFileOperationW(&operation);
  if (operation.fAnyOperationsAborted) return Reason::cancelled;
  return result == 0 ? Reason::ok : reason_of_operation(result, *source);
}

Status Win32Shell::recycles(std::string_view root) {
  const bool letter =
      !root.empty() && ((root[0] >= 'A' && root[0] <= 'Z') || (root[0] >= 'a' && root[0] <= 'z'));
  const bool share = root.starts_with("\\\\") && root.size() > 3 && root.ends_with('\\');
  if (!share && !(letter && root.substr(1) == ":\\")) return Reason::bad_path;
  const std::wstring wide = widen(root);
  const UINT type = GetDriveTypeW(wide.c_str());
  if (type == DRIVE_NO_ROOT_DIR || type == DRIVE_UNKNOWN) return Reason::not_found;
  if (type != DRIVE_FIXED) return Reason::not_supported;
  return bin_is_off(wide) ? Reason::not_supported : Reason::ok;
}

std::uint64_t Win32Shell::bin_capacity(std::string_view root) {
  if (!recycles(root)) return 0;
  // In megabytes; Windows works out its own where the user has set none.
  const DWORD most = setting(HKEY_CURRENT_USER, bin_settings(widen(root)), L"MaxCapacity");
  return most > 0 ? std::uint64_t{most} << 20 : std::numeric_limits<std::uint64_t>::max();
}

Status Win32Shell::empty_bin(const std::string& root, Confirm confirm) {
  if (!root.empty()) {
    if (const Status bin = recycles(root); !bin) return bin;
  }
  const std::wstring wide = widen(root);
  const DWORD flags = confirm == Confirm::ask ? 0 : SHERB_NOCONFIRMATION;
  const HRESULT result = SHEmptyRecycleBinW(nullptr, root.empty() ? nullptr : wide.c_str(), flags);
  if (result == S_OK) {
    SHQUERYRBINFO left{};
    left.cbSize = sizeof left;
    const HRESULT asked = SHQueryRecycleBinW(root.empty() ? nullptr : wide.c_str(), &left);
    return asked == S_OK && left.i64NumItems > 0 ? Reason::other : Reason::ok;
  }
  if (result == E_UNEXPECTED) return {};  // it was empty
  if (result == S_FALSE || result == E_ABORT) return Reason::cancelled;
  if (HRESULT_FACILITY(result) == FACILITY_WIN32) {
    return reason_of(static_cast<unsigned long>(HRESULT_CODE(result)));
  }
  return Reason::other;
}

}  // namespace ordelan::win32
