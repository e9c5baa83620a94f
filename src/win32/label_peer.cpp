#include "win32/label_peer.h"

#include <windowsx.h>

#include <utility>

#include "win32/ansi_text.h"
#include "win32/canvas.h"
#include "win32/handlers.h"

namespace ordelan::win32 {

LabelPeer::LabelPeer(WindowPeer& parent, ui::Label& label)
    : ControlPeer(parent, label, L"STATIC", SS_LEFT | SS_NOTIFY | SS_NOPREFIX), label_(label) {}

std::wstring LabelPeer::text() const {
  return widen(label_.caption());
}

void LabelPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::text) || marks.has(ui::Aspect::bounds) ||
      marks.has(ui::Aspect::enabled)) {
    repaint();
  }
}

std::optional<LRESULT> LabelPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SETTEXT:
      // The real control would paint at once, and flicker.
      return DefWindowProcW(handle(), message, w, l);
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    default:
      return ControlPeer::incoming(message, w, l);
  }
}

LRESULT LabelPeer::respond(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_LBUTTONDBLCLK:
      if (label_.on_double_click) {
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
      const bool inside = PtInRect(&area, POINT{GET_X_LPARAM(l), GET_Y_LPARAM(l)}) != FALSE;
      clicked_ = std::exchange(pressed_, false) && inside;
      ReleaseCapture();
      return 0;
    }
    case WM_CAPTURECHANGED:
      pressed_ = false;
      return 0;
    default:
      return standard(message, w, l);
  }
}

void LabelPeer::deliver() {
  if (std::exchange(clicked_, false)) {
    raise(label_.on_click);
  } else if (std::exchange(double_clicked_, false)) {
    raise(label_.on_double_click);
  }
}

UINT LabelPeer::layout() const {
  RECT area{};
  GetClientRect(handle(), &area);
  const int line = desk().tools().line_height(label_.font(), dpi());
  if (area.bottom >= 2 * line) return DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX;
  return DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX;
}

void LabelPeer::paint() {
  PAINTSTRUCT painting{};
  const HDC target = BeginPaint(handle(), &painting);
  RECT area{};
  GetClientRect(handle(), &area);
  if (target && area.right > 0 && area.bottom > 0) {
    const Canvas canvas(target, area);
    const HDC context = canvas.context();
    FillRect(context, &area, colors(context));
    SetBkMode(context, TRANSPARENT);
    if (!label_.enabled()) SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
    const HGDIOBJ old = SelectObject(context, font());
    const std::wstring caption = text();
    DrawTextW(context, caption.c_str(), static_cast<int>(caption.size()), &area, layout());
    SelectObject(context, old);
    canvas.show();
  }
  EndPaint(handle(), &painting);
}

}  // namespace ordelan::win32
