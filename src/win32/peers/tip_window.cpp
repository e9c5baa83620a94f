#include "win32/peers/tip_window.h"

#include <commctrl.h>
#include <uxtheme.h>

#include "win32/paint/drawing_tools.h"
#include "win32/paint/screen_scale.h"

namespace ordelan::win32 {
namespace {

constexpr int kWidestTip = 400;  // longer ones break into lines

TTTOOLINFOW tool_of(HWND owner, HWND control) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;  // taken by every edition of the common controls
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = owner;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  return tool;
}

}  // namespace

void scale_tips(HWND tips, DrawingTools& tools, int dpi) {
  SendMessageW(tips, WM_SETFONT, reinterpret_cast<WPARAM>(tools.font(ui::Font(), dpi)), FALSE);
  SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, to_pixels(kWidestTip, dpi));
}

void theme_tips(HWND tips, bool themed) {
  const wchar_t* const name = themed ? nullptr : L" ";  // no theme has that name
  SetWindowTheme(tips, name, name);
}

TipWindow::~TipWindow() {
  if (window_) DestroyWindow(window_);
}

bool TipWindow::make() {
  if (window_) return true;
  window_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                            WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                            CW_USEDEFAULT, CW_USEDEFAULT, owner_, nullptr, instance_, nullptr);
  if (!window_) return false;
  scale_tips(window_, tools_, dpi_);
  // With the system's own colours, tooltips look as everywhere.
  if (!palette_is_the_systems()) {
    theme_tips(window_, false);
    SendMessageW(window_, TTM_SETTIPBKCOLOR, color_of(palette().raised), 0);
    SendMessageW(window_, TTM_SETTIPTEXTCOLOR, color_of(palette().text), 0);
  }
  return true;
}

void TipWindow::scale(int dpi) {
  dpi_ = dpi;
  if (window_) scale_tips(window_, tools_, dpi);
}

void TipWindow::set(HWND control, const std::wstring& text) {
  if (text.empty() && !window_) return;
  if (!make()) return;
  TTTOOLINFOW tool = tool_of(owner_, control);
  SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (text.empty()) return;
  std::wstring copy = text;  // the structure has no room for a constant
  tool.lpszText = copy.data();
  SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void TipWindow::relay(HWND control, UINT message, WPARAM w, LPARAM l) const {
  if (!window_) return;
  MSG copy{};
  copy.hwnd = control;
  copy.message = message;
  copy.wParam = w;
  copy.lParam = l;
  copy.time = static_cast<DWORD>(GetMessageTime());
  GetCursorPos(&copy.pt);
  SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&copy));
}

}  // namespace ordelan::win32
