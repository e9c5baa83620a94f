// Real windows inside the test's own process, worked by the messages that Windows sends them.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>

#include "ui/window.h"
#include "win32/own_windows.h"
#include "win32/paint/screen_scale.h"
#include "win32/peers/win32_backend.h"

namespace ordelan::test {

class BackendTest : public testing::Test {
 protected:
  BackendTest() {
    window.set_position({40, 40});
    window.set_size({500, 400});
  }

  void show() {
    window.load();
    window.show();
    backend.pump();
  }

  // The real window and its real controls, by the names that others find them by; null if there
  // is none.
  static HWND top_level(const wchar_t* property) { return window_with(property); }
  HWND real_window() const { return top_level(L"Ordelan.Window.Form1"); }
  HWND real(const wchar_t* property) const { return child_with(real_window(), property); }

  // A length of the layout in the pixels of this screen.
  int px(int units) const { return win32::to_pixels(units, win32::dpi_of(real_window())); }

  // Sends the window the message that it has come to another screen, and where to stand there.
  void come_to_screen_of(int dpi) {
    const RECT suggested{60, 50, 900, 900};
    SendMessageW(real_window(), WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                 reinterpret_cast<LPARAM>(&suggested));
    backend.pump();
  }

  static LPARAM at(int x, int y) { return MAKELPARAM(x, y); }
  static void press(HWND control, int x = 3, int y = 3) {
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, at(x, y));
    SendMessageW(control, WM_LBUTTONUP, 0, at(x, y));
  }
  // A key as it comes from the keyboard: through the queue.
  void type(HWND control, WPARAM key) {
    PostMessageW(control, WM_KEYDOWN, key, 1);
    backend.pump();
  }

  static std::wstring text_of(HWND control) {
    wchar_t text[256] = {};
    GetWindowTextW(control, text, 256);
    return text;
  }

  // Pumps until it is so. False when it never was.
  bool pump_until(const std::function<bool()>& reached) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!reached()) {
      if (std::chrono::steady_clock::now() > until) return false;
      backend.pump();
      Sleep(1);
    }
    return true;
  }

  win32::Win32Backend backend{GetModuleHandleW(nullptr)};
  ui::Window window{backend, "Form1"};
};

}  // namespace ordelan::test
