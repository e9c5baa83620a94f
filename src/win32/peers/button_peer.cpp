#include "win32/peers/button_peer.h"

#include <algorithm>
#include <utility>

#include "win32/ansi_text.h"
#include "win32/paint/mouse_pointers.h"
#include "win32/paint/picture_store.h"
#include "win32/paint/screen_scale.h"
#include "win32/paint/shapes.h"
#include "win32/peers/handlers.h"
#include "win32/peers/mouse_message.h"

namespace ordelan::win32 {
namespace {

// At 96 dots per inch.
constexpr int kRadius = 5;
constexpr int kGap = 6;  // between picture and caption, and before a picture at the left

// The pixels of just this colour let through the ground.
ui::Pixels without(ui::Pixels pixels, ui::Color mask) {
  const COLORREF color = color_of(mask);
  const std::uint32_t wanted = (std::uint32_t{GetRValue(color)} << 16) |
                               (std::uint32_t{GetGValue(color)} << 8) | GetBValue(color);
  for (std::uint32_t& pixel : pixels.argb) {
    if ((pixel & 0xFFFFFF) == wanted) pixel = 0;
  }
  return pixels;
}

}  // namespace

ButtonPeer::ButtonPeer(WindowPeer& parent, ui::Button& button)
    : DressedPeer(parent, button, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP), button_(button) {
  button_.pointer_is_on_it = [this] { return pointer_is_on(handle()); };
}

bool ButtonPeer::press() {
  send(BM_CLICK);
  return true;
}

std::wstring ButtonPeer::text() const {
  return widen(button_.description().empty() ? button_.caption() : button_.description());
}

void ButtonPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::look) || marks.has(ui::Aspect::text) ||
      marks.has(ui::Aspect::enabled) || marks.has(ui::Aspect::bounds)) {
    repaint();
  }
}

std::optional<LRESULT> ButtonPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_SETCURSOR) {
    const ui::ButtonProperties& look = button_.properties();
    const HCURSOR pointer = registry().pointers().find(look.mouse_pointer, look.mouse_icon, dpi());
    if (pointer) {
      SetCursor(pointer);
      return TRUE;
    }
  }
  if (const auto result = mouse(message, w, l)) return result;
  return DressedPeer::incoming(message, w, l);
}

// Any of these may raise an event, after which nothing of the peer is touched.
std::optional<LRESULT> ButtonPeer::mouse(UINT message, WPARAM w, LPARAM l) {
  const ui::Mouse at = mouse_of(message, w, l, dpi());
  switch (message) {
    case WM_LBUTTONDOWN:
      SetFocus(handle());
      [[fallthrough]];
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
      hold_.press(handle(), at.button);
      button_.mouse_down(at);
      return 0;
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
      hold_.press(handle(), at.button);
      button_.double_click();
      return 0;
    case WM_MOUSEMOVE:
      button_.mouse_move(at);
      return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
      if (hold_.release(at.button)) button_.mouse_up(at);
      return 0;
    case WM_CAPTURECHANGED:
      if (hold_.lost(handle(), reinterpret_cast<HWND>(l))) button_.press_lost();
      return 0;
    default:
      return std::nullopt;
  }
}

// Only the keyboard and other programs press the system's own button.
void ButtonPeer::command(WORD code) {
  if (code == BN_CLICKED) clicked_ = true;
}

void ButtonPeer::deliver() {
  if (std::exchange(clicked_, false)) button_.press_by_key();
}

void ButtonPeer::paint(HDC context, const RECT& area) {
  const bool by_key = (send(BM_GETSTATE) & BST_PUSHED) != 0;
  const ui::ButtonLook& look = button_.look();
  paint_ground(context, area, look.pressed || by_key, look.hovered);
  int left = paint_picture(context, area);
  const std::wstring caption = widen(button_.caption());
  if (caption.empty()) return;
  RECT room = area;
  const bool beside = left > 0;
  if (beside) room.left = left;
  const bool lit = button_.enabled() && (look.hovered || look.pressed);
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, !button_.enabled() ? color_of(palette().text_off)
                        : lit              ? color_of(palette().text_over)
                                           : text_color());
  const HGDIOBJ old = SelectObject(context, font());
  DrawTextW(
      context, caption.c_str(), static_cast<int>(caption.size()), &room,
      DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | (beside ? DT_LEFT : DT_CENTER));
  SelectObject(context, old);
}

void ButtonPeer::paint_ground(HDC context, const RECT& area, bool pressed, bool over) {
  const ui::Palette& colors_in_force = palette();
  FillRect(context, &area, registry().tools().brush(button_.back_color()));
  const std::string& back = button_.properties().picture_back;
  if (!back.empty() && registry().pictures().paint(context, area, back, dpi())) return;
  const bool enabled = button_.enabled();
  const ui::Color fill = !enabled  ? colors_in_force.ground
                         : pressed ? colors_in_force.raised_down
                         : over    ? colors_in_force.raised_over
                                   : colors_in_force.raised;
  const bool lit = enabled && (has_focus() || button_.look().selected);
  const ui::Color edge = lit ? colors_in_force.accent : colors_in_force.line;
  rounded_box(context, area, to_pixels(kRadius, dpi()), fill, {edge, line_width(dpi())});
}

// A button that cannot be pressed shows the picture that says so, regardless of the mouse.
std::string ButtonPeer::picture() const {
  const ui::ButtonProperties& all = button_.properties();
  if (!button_.enabled() && all.style == 1 && !all.picture_disabled.empty()) {
    return all.picture_disabled;
  }
  return button_.picture_to_show();
}

// Gives where a caption beside the picture begins; 0 where it does not stand beside one.
int ButtonPeer::paint_picture(HDC context, const RECT&) {
  const std::string name = picture();
  PictureStore& pictures = registry().pictures();
  const auto size = name.empty() ? std::nullopt : pictures.size(name);
  if (!size) return 0;
  const bool at_left = button_.properties().picture_align == 3;
  ui::Point corner = button_.placed(*size);
  if (at_left && !button_.caption().empty()) corner.x += kGap - 1;
  const RECT place = to_pixels(ui::Rect{corner.x, corner.y, size->width, size->height}, dpi());
  if (button_.properties().use_mask_color) {
    pictures.paint(context, place,
                   without(pictures.pixels(name, dpi()), button_.properties().mask_color));
  } else {
    pictures.paint(context, place, name, dpi());
  }
  return at_left ? static_cast<int>(place.right) + to_pixels(kGap, dpi()) : 0;
}

}  // namespace ordelan::win32
