// What the tooltip windows of the test's own thread are sent.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "win32/own_windows.h"

namespace ordelan::test {

// Records from its making to its end. One at a time.
class TipMessages {
 public:
  struct Title {
    int icon = 0;
    std::wstring text;
    friend bool operator==(const Title&, const Title&) = default;
  };

  TipMessages() {
    recording() = this;
    hook_ = SetWindowsHookExW(WH_CALLWNDPROC, &seen, nullptr, GetCurrentThreadId());
  }
  ~TipMessages() {
    UnhookWindowsHookEx(hook_);
    recording() = nullptr;
  }
  TipMessages(const TipMessages&) = delete;
  TipMessages& operator=(const TipMessages&) = delete;

  std::vector<Title> titles;
  int themes = 0;  // how often a tooltip window was given another theme, or none

 private:
  static TipMessages*& recording() {
    static TipMessages* current = nullptr;
    return current;
  }

  static LRESULT CALLBACK seen(int code, WPARAM w, LPARAM l) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(l);
    if (code == HC_ACTION && has_class(sent.hwnd, L"tooltips_class32")) {
      if (sent.message == WM_THEMECHANGED) ++recording()->themes;
      if (sent.message == TTM_SETTITLEW) {
        const auto* const text = reinterpret_cast<const wchar_t*>(sent.lParam);
        recording()->titles.push_back({static_cast<int>(sent.wParam), text});
      }
    }
    return CallNextHookEx(nullptr, code, w, l);
  }

  HHOOK hook_ = nullptr;
};

}  // namespace ordelan::test
