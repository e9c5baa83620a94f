// What the shell does with a file for the user: its path as text, its folder, its sheet.
#include <windows.h>

#include <shellapi.h>

#include <cstddef>
#include <string>

#include "win32/ansi_text.h"
#include "win32/ports/win32_shell.h"

namespace ordelan::win32 {
namespace {

// A window without a screen: the clipboard takes nothing from a program without one.
class Owner {
 public:
  Owner()
      : window_(CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                GetModuleHandleW(nullptr), nullptr)) {}
  ~Owner() { DestroyWindow(window_); }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;

  // Another program may hold the clipboard for a moment.
  bool open() const {
    constexpr int kTries = 5;
    constexpr DWORD kPause = 5;
    for (int i = 0; i < kTries; ++i) {
      if (OpenClipboard(window_)) return true;
      Sleep(kPause);
    }
    return false;
  }

 private:
  HWND window_;
};

// The text in memory as the clipboard wants it; null where there is none left. It may be long: it
// is written there at once.
HGLOBAL clipboard_text(const std::string& text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
  const HGLOBAL memory =
      GlobalAlloc(GMEM_MOVEABLE, (static_cast<std::size_t>(size) + 1) * sizeof(wchar_t));
  auto* const place = static_cast<wchar_t*>(memory ? GlobalLock(memory) : nullptr);
  if (place == nullptr) return memory ? GlobalFree(memory) : nullptr;
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, place, size);
  place[size] = L'\0';
  GlobalUnlock(memory);
  return memory;
}

}  // namespace

bool Win32Shell::copy_text(const std::string& text) {
  const HGLOBAL memory = clipboard_text(text);
  if (memory == nullptr) return false;
  const Owner owner;
  bool taken = false;
  if (owner.open()) {
    taken = EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
  }
  if (!taken) GlobalFree(memory);  // otherwise it is the clipboard's
  return taken;
}

bool Win32Shell::show_in_folder(const std::string& path) {
  const auto cut = path.rfind('\\');
  if (cut == path.npos || path.find_first_of("\"\0", 0, 2) != path.npos) return false;
  const std::wstring wide = widen(path);
  if (GetFileAttributesW(wide.c_str()) == INVALID_FILE_ATTRIBUTES) {
    return open(path.substr(0, cut + 1));
  }
  // By its whole path: a program of that name elsewhere must not be taken for it.
  wchar_t explorer[MAX_PATH + 1] = {};
  const UINT length = GetWindowsDirectoryW(explorer, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return false;
  const std::wstring program = std::wstring(explorer) + L"\\explorer.exe";
  const std::wstring arguments = L"/select,\"" + wide + L"\"";
  const auto given =
      ShellExecuteW(nullptr, nullptr, program.c_str(), arguments.c_str(), nullptr, SW_SHOWNORMAL);
  constexpr INT_PTR kLastFailure = 32;
  return reinterpret_cast<INT_PTR>(given) > kLastFailure;
}

bool Win32Shell::show_properties(const std::string& path) {
  if (path.find('\0') != path.npos) return false;
  const std::wstring wide = widen(path);
  SHELLEXECUTEINFOW call{};
  call.cbSize = sizeof call;
  call.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_FLAG_NO_UI;
  call.lpVerb = L"properties";
  call.lpFile = wide.c_str();
  call.nShow = SW_SHOW;
  return ShellExecuteExW(&call) != FALSE;
}

}  // namespace ordelan::win32
