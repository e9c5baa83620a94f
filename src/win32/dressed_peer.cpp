#include "win32/dressed_peer.h"

#include "win32/canvas.h"

namespace ordelan::win32 {
namespace {

// The messages at which the system's controls paint themselves at once, without being asked to.
bool paints_at_once(UINT message) {
  switch (message) {
    case BM_SETCHECK:
    case BM_SETSTATE:
    case BM_SETSTYLE:
    case WM_CAPTURECHANGED:
    case WM_ENABLE:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_KILLFOCUS:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_SETFOCUS:
    case WM_SETTEXT:
    case WM_UPDATEUISTATE:
      return true;
    default:
      return false;
  }
}

}  // namespace

std::optional<LRESULT> DressedPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint_out_of_sight(handle(), [this](HDC context, const RECT& area) { paint(context, area); });
      return 0;
    default:
      return ControlPeer::incoming(message, w, l);
  }
}

LRESULT DressedPeer::respond(UINT message, WPARAM w, LPARAM l) {
  const bool shown = (GetWindowLongPtrW(handle(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (!shown || !paints_at_once(message)) return standard(message, w, l);
  const HWND control = handle();
  const std::weak_ptr<void> still = alive();
  // What it would paint itself goes nowhere.
  DefWindowProcW(control, WM_SETREDRAW, FALSE, 0);
  const LRESULT result = standard(message, w, l);
  if (still.expired()) return result;
  DefWindowProcW(control, WM_SETREDRAW, TRUE, 0);
  repaint();
  return result;
}

}  // namespace ordelan::win32
