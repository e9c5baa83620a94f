#include "win32/peers/label_peer.h"

#include <algorithm>

#include "win32/ansi_text.h"
#include "win32/paint/picture_store.h"
#include "win32/paint/screen_scale.h"
#include "win32/paint/shapes.h"
#include "win32/peers/handlers.h"

namespace ordelan::win32 {
namespace {

// At 96 dots per inch.
constexpr int kRadius = 8;
constexpr int kGap = 8;
constexpr int kDash = 2;

}  // namespace

LabelPeer::LabelPeer(WindowPeer& parent, ui::Label& label)
    : PaintedPeer(parent, label, static_cast<bool>(label.on_click)), label_(label) {}

std::wstring LabelPeer::text() const {
  return widen(label_.caption());
}

bool LabelPeer::press() {
  if (is_background() || !label_.enabled()) return false;
  raise(label_.on_click);
  return true;
}

std::optional<LRESULT> LabelPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  follow_pointer(message);
  if (message == WM_KEYDOWN && w == VK_SPACE && press()) return 0;
  return PaintedPeer::incoming(message, w, l);
}

void LabelPeer::follow_pointer(UINT message) {
  if (is_background()) return;
  if (message == WM_MOUSEMOVE && !over_) {
    TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, handle(), 0};
    over_ = TrackMouseEvent(&leaving) != FALSE;
    repaint();
  } else if (message == WM_MOUSELEAVE) {
    over_ = false;
    repaint();
  }
}

// Many a move is of less than a pixel.
void LabelPeer::update(const Marks& marks) {
  const std::optional<int> start = text_start();
  const bool as_shown = start && start == shown_start_ && !marks.has(ui::Aspect::text) &&
                        !marks.has(ui::Aspect::bounds) && !marks.has(ui::Aspect::enabled);
  shown_start_ = start;
  if (!as_shown) PaintedPeer::update(marks);
}

std::optional<int> LabelPeer::text_start() const {
  if (!label_.text_left() || !label_.picture().empty()) return std::nullopt;
  return twips_to_pixels(*label_.text_left(), dpi());
}

UINT LabelPeer::layout(const RECT& area) const {
  if (text_start()) return DT_SINGLELINE | DT_NOPREFIX;
  const int line = registry().tools().line_height(label_.font(), dpi());
  if (area.bottom >= 2 * line) return DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX;
  return DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX;
}

void LabelPeer::paint(HDC context, const RECT& area) {
  FillRect(context, &area, colors(context));
  SetBkMode(context, TRANSPARENT);
  if (!label_.enabled()) SetTextColor(context, color_of(palette().text_off));
  const HGDIOBJ old = SelectObject(context, font());
  if (label_.picture().empty()) {
    paint_text(context, area);
  } else {
    paint_invitation(context, area);
  }
  SelectObject(context, old);
}

void LabelPeer::paint_text(HDC context, const RECT& area) {
  const std::wstring caption = text();
  const auto size = static_cast<int>(caption.size());
  const bool focused = GetFocus() == handle();
  const bool lit = over_ && label_.enabled() && !is_background();
  if (lit) SetTextColor(context, color_of(palette().text_over));
  // In the middle of its height, however many lines it takes.
  RECT words = area;
  words.left = text_start().value_or(0);
  DrawTextW(context, caption.c_str(), size, &words, layout(area) | DT_CALCRECT);
  const LONG height = words.bottom - words.top;
  RECT room = area;
  room.left = words.left;
  room.top = std::max(area.top, (area.bottom - height) / 2);
  DrawTextW(context, caption.c_str(), size, &room, layout(area));
  if (!lit && !focused) return;
  const int thick = line_width(dpi());
  const LONG top = std::min<LONG>(area.bottom - thick, room.top + height);
  const RECT line{room.left, top, std::min(words.right, area.right), top + thick};
  FillRect(context, &line,
           registry().tools().brush(focused ? palette().accent : palette().text_over));
}

// The picture above the words, both in the middle of a frame.
void LabelPeer::paint_invitation(HDC context, const RECT& area) {
  dashed_box(context, area, to_pixels(kRadius, dpi()), {palette().line, to_pixels(kDash, dpi())});
  PictureStore& pictures = registry().pictures();
  const ui::Size size = pictures.size(label_.picture()).value_or(ui::Size{});
  const int height = to_pixels(size.height, dpi());
  const int width = to_pixels(size.width, dpi());
  const int line = registry().tools().line_height(label_.font(), dpi());
  const int gap = to_pixels(kGap, dpi());
  const LONG top = (area.bottom - height - gap - line) / 2;
  const LONG left = (area.right - width) / 2;
  pictures.paint(context, {left, top, left + width, top + height}, label_.picture(), dpi());
  RECT words{0, top + height + gap, area.right, top + height + gap + line};
  const std::wstring caption = text();
  DrawTextW(context, caption.c_str(), static_cast<int>(caption.size()), &words,
            DT_SINGLELINE | DT_CENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace ordelan::win32
