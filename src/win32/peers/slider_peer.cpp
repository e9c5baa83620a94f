#include "win32/peers/slider_peer.h"

#include <commctrl.h>

#include <cwchar>

#include "win32/paint/mouse_pointers.h"
#include "win32/paint/picture_store.h"
#include "win32/paint/screen_scale.h"
#include "win32/paint/shapes.h"
#include "win32/peers/mouse_message.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

// The plain groove is as broad as this part of the slider.
constexpr int kGroovePart = 3;

// The middle of an area that lies along the slider.
RECT groove_of(RECT area, bool vertical) {
  if (vertical) {
    const LONG margin = (area.right - area.left) / kGroovePart;
    area.left += margin;
    area.right -= margin;
  } else {
    const LONG margin = (area.bottom - area.top) / kGroovePart;
    area.top += margin;
    area.bottom -= margin;
  }
  return area;
}

}  // namespace

SliderPeer::SliderPeer(WindowPeer& parent, ui::Slider& slider)
    : DressedPeer(parent, slider, TRACKBAR_CLASSW, TBS_NOTICKS | WS_TABSTOP), slider_(slider) {
  slider_.pointer_is_on_it = [this] { return pointer_is_on(handle()); };
}

// The system would name it by whatever label stands before it, and give its place in percent.
std::optional<Face> SliderPeer::face() const {
  return Face{
      .role = ROLE_SYSTEM_SLIDER, .name = text(), .value = std::to_wstring(slider_.value())};
}

// Chosen by a message that comes after the reader's call, which must not run handlers.
bool SliderPeer::take_value(const std::wstring& value) {
  wchar_t* end = nullptr;
  const long wanted = std::wcstol(value.c_str(), &end, 10);
  if (value.empty() || *end != L'\0') return false;
  return PostMessageW(handle(), TBM_SETPOS, TRUE, wanted) != FALSE;
}

// Which way it lies is read from the real slider's style.
void SliderPeer::stand() {
  const LONG_PTR old = GetWindowLongPtrW(handle(), GWL_STYLE);
  const LONG_PTR style = slider_.vertical() ? old | TBS_VERT : old & ~LONG_PTR{TBS_VERT};
  if (style != old) SetWindowLongPtrW(handle(), GWL_STYLE, style);
}

void SliderPeer::update(const Marks& marks) {
  if (!marks.has(ui::Aspect::look) && !marks.has(ui::Aspect::bounds) &&
      !marks.has(ui::Aspect::enabled)) {
    return;
  }
  stand();
  send(TBM_SETRANGEMIN, FALSE, slider_.min());
  send(TBM_SETRANGEMAX, FALSE, slider_.max());
  const bool moved = send(TBM_GETPOS) != slider_.value();
  send(TBM_SETPOS, FALSE, slider_.value());
  if (moved) NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, handle(), OBJID_CLIENT, CHILDID_SELF);
  repaint();
}

std::optional<LRESULT> SliderPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  const ui::Mouse mouse = mouse_of(message, w, l, dpi());
  // Any of these may raise an event, after which nothing of the peer is touched.
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:  // two quick presses are two presses
      SetFocus(handle());
      [[fallthrough]];
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
      hold_.press(handle(), mouse.button);
      slider_.mouse_down(mouse);
      return 0;
    case WM_MOUSEMOVE:
      slider_.mouse_move(mouse);
      return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
      if (hold_.release(mouse.button)) slider_.mouse_up(mouse);
      return 0;
    case WM_CAPTURECHANGED:
      if (hold_.lost(handle(), reinterpret_cast<HWND>(l))) slider_.press_lost();
      return 0;
    case WM_KEYDOWN:
      if (slider_.key(static_cast<int>(w))) return 0;
      return std::nullopt;
    case TBM_SETPOS:  // from another program, unless it is our own news to the real slider
      if (flushing()) return std::nullopt;
      slider_.choose(static_cast<LONG>(l));
      return 0;
    case WM_MOUSEWHEEL:  // would move the real slider alone
      return DefWindowProcW(handle(), message, w, l);
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_SETCURSOR:
      if (const HCURSOR pointer = registry().pointers().find(
              MousePointers::kOwn, slider_.properties().mouse_icon, dpi())) {
        SetCursor(pointer);
        return TRUE;
      }
      return std::nullopt;
    default:
      return DressedPeer::incoming(message, w, l);
  }
}

void SliderPeer::paint(HDC context, const RECT& area) {
  DrawingTools& tools = registry().tools();
  const ui::SliderProperties& look = slider_.properties();
  FillRect(context, &area, tools.brush(slider_.back_color()));
  const RECT track = to_pixels(slider_.track_place(), dpi());
  if (!show(context, track, track, look.picture_back)) {
    const RECT groove = groove_of(track, slider_.vertical());
    FillRect(context, &groove, tools.brush(palette().line));
  }
  // The fill is as long as the track, and shows as far as the thumb has come.
  const RECT fill = to_pixels(slider_.fill_place(), dpi());
  if (!show(context, track, fill, look.picture_progress)) {
    const RECT groove = groove_of(fill, slider_.vertical());
    FillRect(context, &groove, tools.brush(palette().accent));
  }
  const RECT thumb = to_pixels(slider_.thumb_place(), dpi());
  if (!show(context, thumb, thumb, slider_.thumb_picture())) {
    const bool plain = slider_.thumb_look() == ui::ThumbLook::normal;
    FillRect(context, &thumb, tools.brush(plain ? palette().raised : palette().raised_over));
    square_edge(context, thumb, tools.brush(palette().text), line_width(dpi()));
  }
  if (has_focus()) {
    square_edge(context, area, tools.brush(palette().accent), line_width(dpi()));
  }
}

// Paints what lies within `seen` of a picture at its place. False when there is no such picture.
bool SliderPeer::show(HDC context, const RECT& place, const RECT& seen,
                      const std::string& picture) {
  if (picture.empty()) return false;
  const int saved = SaveDC(context);
  IntersectClipRect(context, seen.left, seen.top, seen.right, seen.bottom);
  const bool shown = registry().pictures().paint(context, place, picture, dpi());
  RestoreDC(context, saved);
  return shown;
}

}  // namespace ordelan::win32
