#include "win32/ports/win32_shell.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <type_traits>

#include "win32/ansi_text.h"
#include "win32/ports/extended_path.h"
#include "win32/ports/icon_pixels.h"

namespace ordelan::win32 {
namespace {

// The results of ShellExecute: a number that says how the call went.
bool went_well(HINSTANCE given) {
  constexpr INT_PTR kLastFailure = 32;
  return reinterpret_cast<INT_PTR>(given) > kLastFailure;
}

// The attributes of what stands at the path, nothing if there is nothing. The shell itself would
// also answer for names that it completes.
std::optional<DWORD> attributes_of(const std::string& path) {
  const auto extended = extended_path(path);
  if (!extended) return std::nullopt;
  const DWORD attributes = GetFileAttributesW(extended->c_str());
  return attributes == INVALID_FILE_ATTRIBUTES ? std::nullopt : std::optional(attributes);
}

// Asks the shell about an existing path. It takes no paths longer than MAX_PATH; for those it is
// asked about the kind of file.
bool ask(const std::string& path, DWORD attributes, UINT wanted, SHFILEINFOW& info) {
  const std::wstring wide = widen(path);
  if (SHGetFileInfoW(wide.c_str(), 0, &info, sizeof info, wanted) != 0) return true;
  const std::wstring name = wide.substr(wide.rfind(L'\\') + 1);
  return SHGetFileInfoW(name.c_str(), attributes, &info, sizeof info,
                        wanted | SHGFI_USEFILEATTRIBUTES) != 0;
}

struct IconGone {
  void operator()(HICON icon) const { DestroyIcon(icon); }
};
using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, IconGone>;

}  // namespace

bool Win32Shell::open(const std::string& target) {
  // Nothing would open the current folder, and a NUL would cut the target short.
  if (target.empty() || target.find('\0') != std::string::npos) return false;
  return went_well(
      ShellExecuteW(nullptr, nullptr, widen(target).c_str(), nullptr, nullptr, SW_SHOWNORMAL));
}

std::string Win32Shell::file_type(const std::string& path) {
  const auto attributes = attributes_of(path);
  SHFILEINFOW info{};
  if (!attributes || !ask(path, *attributes, SHGFI_TYPENAME, info)) return {};
  return narrow_with_marks(info.szTypeName);
}

std::string Win32Shell::executable(const std::string& path) {
  wchar_t program[MAX_PATH + 1] = {};
  if (!attributes_of(path) || !went_well(FindExecutableW(widen(path).c_str(), nullptr, program))) {
    return {};
  }
  return narrow(program).value_or("");
}

std::optional<system::Pixels> Win32Shell::icon(const std::string& path) {
  const auto attributes = attributes_of(path);
  SHFILEINFOW info{};
  if (!attributes || !ask(path, *attributes, SHGFI_ICON | SHGFI_LARGEICON, info)) {
    return std::nullopt;
  }
  const IconHandle icon(info.hIcon);
  return icon ? pixels_of(icon.get()) : std::nullopt;
}

}  // namespace ordelan::win32
