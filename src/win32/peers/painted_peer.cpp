#include "win32/peers/painted_peer.h"

#include <windowsx.h>

#include <utility>

#include "win32/ansi_text.h"
#include "win32/paint/canvas.h"
#include "win32/peers/handlers.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {

PaintedPeer::PaintedPeer(WindowPeer& parent, ui::Control& control, bool can_be_pressed, DWORD style)
    : ControlPeer(parent, control, can_be_pressed ? L"BUTTON" : L"STATIC",
                  style | (can_be_pressed ? BS_PUSHBUTTON | WS_TABSTOP
                                          : SS_LEFT | SS_NOTIFY | SS_NOPREFIX)) {}

bool PaintedPeer::is_background() const {
  return !control().on_click && !control().on_double_click;
}

std::optional<Face> PaintedPeer::face() const {
  const bool button = static_cast<bool>(control().on_click);
  Face face{.role = button ? ROLE_SYSTEM_PUSHBUTTON : plain_role(), .name = text()};
  if (face.name.empty()) face.name = widen(control().description());
  if (face.name.empty()) face.name = widen(control().tip());
  if (button) face.action = L"Pulsar";
  return face;
}

void PaintedPeer::act(int) {
  raise(control().on_click);
}

void PaintedPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::text) || marks.has(ui::Aspect::value) ||
      marks.has(ui::Aspect::bounds) || marks.has(ui::Aspect::enabled)) {
    repaint();
  }
}

std::optional<LRESULT> PaintedPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SETTEXT:
      // The real control would paint at once, and flicker.
      return DefWindowProcW(handle(), message, w, l);
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint_out_of_sight(handle(), [this](HDC context, const RECT& area) { paint(context, area); });
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (!is_background() || !parent().window().drag_by_background()) return std::nullopt;
      press_window(message, w, l);
      return 0;
    default:
      return ControlPeer::incoming(message, w, l);
  }
}

LRESULT PaintedPeer::respond(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_LBUTTONDBLCLK:
      if (control().on_double_click) {
        double_clicked_ = true;
        return 0;
      }
      [[fallthrough]];  // two quick clicks are two clicks
    case WM_LBUTTONDOWN:
      pressed_ = true;
      SetCapture(handle());
      return 0;
    case WM_LBUTTONUP: {
      RECT area{};
      GetClientRect(handle(), &area);
      click_ = {GET_X_LPARAM(l), GET_Y_LPARAM(l)};
      const bool inside = PtInRect(&area, click_) != FALSE;
      clicked_ = std::exchange(pressed_, false) && inside;
      ReleaseCapture();
      return 0;
    }
    case WM_CAPTURECHANGED:
      pressed_ = false;
      return 0;
    case WM_GETDLGCODE:
      return 0;  // a "&" in a path stands for no key
    default:
      return standard_unpainted(message, w, l);
  }
}

void PaintedPeer::deliver() {
  if (std::exchange(clicked_, false)) {
    clicked(click_);
  } else if (std::exchange(double_clicked_, false)) {
    raise(control().on_double_click);
  }
}

void PaintedPeer::clicked(POINT) {
  raise(control().on_click);
}

// The mouse's other messages stay with the control: moves are reported, and bring its tooltip.
void PaintedPeer::press_window(UINT message, WPARAM w, LPARAM l) const {
  POINT place{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
  MapWindowPoints(handle(), parent().handle(), &place, 1);
  SendMessageW(parent().handle(), message, w, MAKELPARAM(place.x, place.y));
}

}  // namespace ordelan::win32
