// The real windows of the test's own thread, found as others would find them.
#pragma once

#include <windows.h>

#include <string>

namespace ordelan::test {

// The first window of the thread, shown or not, for which `wanted(HWND)` holds; null if there is
// none.
template <class Wanted>
HWND own_window(const Wanted& wanted) {
  struct Search {
    const Wanted& wanted;
    HWND found = nullptr;
  } search{wanted};
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND each, LPARAM l) -> BOOL {
        auto& asked = *reinterpret_cast<Search*>(l);
        if (!asked.wanted(each)) return TRUE;
        asked.found = each;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

inline bool has_class(HWND window, const std::wstring& name) {
  wchar_t actual[64] = {};
  GetClassNameW(window, actual, 64);
  return name == actual;
}

// A window of the program by the property that it carries ("Ordelan.Window.Form1").
inline HWND window_with(const std::wstring& property) {
  return own_window([&](HWND each) { return GetPropW(each, property.c_str()) != nullptr; });
}

// A control of a window, likewise ("Ordelan.ListVip"); null where the window is.
inline HWND child_with(HWND parent, const std::wstring& property) {
  HWND child = parent ? GetWindow(parent, GW_CHILD) : nullptr;
  while (child && !GetPropW(child, property.c_str())) child = GetWindow(child, GW_HWNDNEXT);
  return child;
}

// The system's dialog or message box that is up.
inline HWND dialog_in_sight() {
  return own_window([](HWND each) { return has_class(each, L"#32770") && IsWindowVisible(each); });
}

// The window in which tips and balloons are shown.
inline HWND tip_window() {
  return own_window([](HWND each) { return has_class(each, L"tooltips_class32"); });
}

}  // namespace ordelan::test
