#include "win32/peers/mouse_message.h"

#include <windowsx.h>

#include "win32/paint/screen_scale.h"

namespace ordelan::win32 {
namespace {

int button_of(UINT message, WPARAM w) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
      return ui::kLeftButton;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_RBUTTONUP:
      return ui::kRightButton;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
    case WM_MBUTTONUP:
      return ui::kMiddleButton;
    default:
      return ((w & MK_LBUTTON) ? ui::kLeftButton : 0) | ((w & MK_RBUTTON) ? ui::kRightButton : 0) |
             ((w & MK_MBUTTON) ? ui::kMiddleButton : 0);
  }
}

}  // namespace

ui::Mouse mouse_of(UINT message, WPARAM w, LPARAM l, int dpi) {
  ui::Mouse mouse;
  mouse.at = {to_units(GET_X_LPARAM(l), dpi), to_units(GET_Y_LPARAM(l), dpi)};
  mouse.button = button_of(message, w);
  mouse.shift = ((w & MK_SHIFT) ? ui::kShiftKey : 0) | ((w & MK_CONTROL) ? ui::kControlKey : 0) |
                (GetKeyState(VK_MENU) < 0 ? ui::kAltKey : 0);
  return mouse;
}

bool pointer_is_on(HWND window) {
  POINT pointer{};
  return GetCursorPos(&pointer) && WindowFromPoint(pointer) == window;
}

}  // namespace ordelan::win32
