#include "win32/ports/win32_drives.h"

#include <windows.h>

#include "win32/ansi_text.h"
#include "win32/ports/error_reason.h"

namespace ordelan::win32 {
namespace {

// A root as Windows takes it. Nothing for any other text: Windows would answer for the drive that
// it takes to be meant.
std::optional<std::wstring> checked(std::string_view root) {
  const bool letter =
      !root.empty() && ((root[0] >= 'A' && root[0] <= 'Z') || (root[0] >= 'a' && root[0] <= 'z'));
  const bool drive = letter && root.substr(1) == ":\\";
  const bool share = root.starts_with("\\\\") && root.ends_with('\\') && root.size() > 3 &&
                     root.find('\0') == std::string_view::npos;
  if (!drive && !share) return std::nullopt;
  return widen(root);
}

}  // namespace

Win32Drives::Win32Drives() {
  SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS);
}

std::vector<std::string> Win32Drives::roots() {
  const DWORD present = GetLogicalDrives();
  std::vector<std::string> roots;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if ((present >> (letter - 'A') & 1u) != 0) roots.push_back(std::string(1, letter) + ":\\");
  }
  return roots;
}

system::DriveType Win32Drives::type(std::string_view root) {
  const auto path = checked(root);
  if (!path) return system::DriveType::no_root_dir;
  return static_cast<system::DriveType>(GetDriveTypeW(path->c_str()));
}

std::optional<system::Volume> Win32Drives::volume(std::string_view root) {
  const auto path = checked(root);
  wchar_t label[MAX_PATH + 1] = {};
  wchar_t format[MAX_PATH + 1] = {};
  DWORD serial = 0;
  if (!path || !GetVolumeInformationW(path->c_str(), label, MAX_PATH + 1, &serial, nullptr, nullptr,
                                      format, MAX_PATH + 1)) {
    return std::nullopt;
  }
  return system::Volume{narrow_with_marks(label), serial, narrow_with_marks(format)};
}

system::Result<system::DiskSpace> Win32Drives::space(std::string_view root) {
  const auto path = checked(root);
  if (!path) return system::Reason::bad_path;
  ULARGE_INTEGER free{};
  ULARGE_INTEGER total{};
  if (!GetDiskFreeSpaceExW(path->c_str(), &free, &total, nullptr)) return last_reason();
  return system::DiskSpace{total.QuadPart, free.QuadPart};
}

}  // namespace ordelan::win32
