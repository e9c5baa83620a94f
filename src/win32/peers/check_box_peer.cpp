#include "win32/peers/check_box_peer.h"

#include <algorithm>
#include <utility>

#include "win32/ansi_text.h"
#include "win32/paint/screen_scale.h"
#include "win32/paint/tick_box.h"

namespace ordelan::win32 {
namespace {

// At 96 dots per inch.
constexpr int kGapBeforeWords = 8;

}  // namespace

// The box does not tick itself: the object does, and the tick that is shown is the object's.
CheckBoxPeer::CheckBoxPeer(WindowPeer& parent, ui::CheckBox& box)
    : DressedPeer(parent, box, L"BUTTON", BS_CHECKBOX | BS_MULTILINE | WS_TABSTOP), box_(box) {}

std::wstring CheckBoxPeer::text() const {
  return widen(box_.caption());
}

void CheckBoxPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::value)) {
    send(BM_SETCHECK, static_cast<WPARAM>(box_.checked() ? BST_CHECKED : BST_UNCHECKED));
  }
}

std::optional<LRESULT> CheckBoxPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_MOUSEMOVE && !over_) {
    TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, handle(), 0};
    over_ = TrackMouseEvent(&leaving) != FALSE;
    repaint();
  }
  if (message == WM_MOUSELEAVE) {
    over_ = false;
    repaint();
  }
  return DressedPeer::incoming(message, w, l);
}

void CheckBoxPeer::paint(HDC context, const RECT& area) {
  const ui::Palette& colors_in_force = palette();
  FillRect(context, &area, colors(context));
  const int side = to_pixels(kTickBox, dpi());
  const RECT box{1, (area.bottom - side) / 2, 1 + side, (area.bottom - side) / 2 + side};
  const bool enabled = box_.enabled();
  tick_box(context, box, {box_.checked(), enabled, has_focus() || (over_ && enabled)}, dpi());
  RECT room{box.right + to_pixels(kGapBeforeWords, dpi()), 0, area.right, area.bottom};
  SetBkMode(context, TRANSPARENT);
  if (!enabled) SetTextColor(context, color_of(colors_in_force.text_off));
  const HGDIOBJ old = SelectObject(context, font());
  const std::wstring caption = text();
  DrawTextW(context, caption.c_str(), static_cast<int>(caption.size()), &room,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  if (has_focus()) {
    // Under the words, in the colour of what is chosen.
    RECT words = room;
    DrawTextW(context, caption.c_str(), static_cast<int>(caption.size()), &words,
              DT_SINGLELINE | DT_CALCRECT | DT_NOPREFIX);
    const int height = words.bottom - words.top;
    const int top = (area.bottom + height) / 2;
    const RECT line{room.left, top, std::min(words.right, area.right), top + line_width(dpi())};
    FillRect(context, &line, registry().tools().brush(colors_in_force.accent));
  }
  SelectObject(context, old);
}

void CheckBoxPeer::command(WORD code) {
  if (code == BN_CLICKED) clicked_ = true;
}

void CheckBoxPeer::deliver() {
  if (std::exchange(clicked_, false)) box_.toggle();
}

}  // namespace ordelan::win32
