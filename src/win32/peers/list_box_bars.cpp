// The bars of a real list, and what stands beside its rows.
#include <algorithm>

#include "ui/check_list_box.h"
#include "win32/paint/screen_scale.h"
#include "win32/peers/list_box_peer.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {

// Any message may have scrolled the list, moved it, or changed what it can be scrolled to.
void ListBoxPeer::show_bars() {
  if (showing_bars_) return;
  showing_bars_ = true;
  RECT client{};
  GetClientRect(handle(), &client);
  MapWindowPoints(handle(), parent().handle(), reinterpret_cast<POINT*>(&client), 2);
  if (list_.boxes() != nullptr && !EqualRect(&client, &client_)) {
    client_ = client;
    if (ControlPeer* const boxes = registry().control(*list_.boxes())) {
      boxes->changed(ui::Aspect::bounds);
    }
  }
  RECT whole{};
  GetWindowRect(handle(), &whole);
  MapWindowPoints(nullptr, parent().handle(), reinterpret_cast<POINT*>(&whole), 2);
  const RECT inside = frame_.inside(whole, dpi());
  // They take the list's line in: a real bar is as wide as the system wants it, and would paint
  // over that. The bar on the right fills the corner between the two as well.
  RECT right{client.right, client.top, inside.right, inside.bottom};
  RECT bottom{client.left, client.bottom, client.right, inside.bottom};
  const bool both = !IsRectEmpty(&right) && !IsRectEmpty(&bottom);
  if (!IsRectEmpty(&right)) right.right = whole.right;
  if (!IsRectEmpty(&bottom)) bottom.bottom = whole.bottom;
  if (both) right.bottom = whole.bottom;
  const auto cut_of = [&whole](RECT area) {
    OffsetRect(&area, -whole.left, -whole.top);
    return area;
  };
  cut_from_ = SIZE{whole.right - whole.left, whole.bottom - whole.top};
  cut_out(cut_of(right), cut_of(bottom));
  show_bar(vertical_, SB_VERT, right, client.bottom - client.top, handle());
  const HWND above = vertical_ && vertical_->handle() ? vertical_->handle() : handle();
  show_bar(horizontal_, SB_HORZ, bottom, client.right - client.left, above);
  showing_bars_ = false;
}

void ListBoxPeer::show_bar(std::unique_ptr<ScrollBar>& bar, int which, const RECT& area, int track,
                           HWND above) {
  const bool seen = (GetWindowLongPtrW(handle(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (!seen || IsRectEmpty(&area)) {
    if (bar) bar->hide();
    return;
  }
  if (!bar) {
    bar = std::make_unique<ScrollBar>(handle(), which == SB_VERT, registry().tools());
    bar->on_scroll = [this, which](int place) { scroll_to(which, place); };
  }
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  GetScrollInfo(handle(), which, &info);
  bar->show(area, track, Scroll{info.nMin, info.nMax, static_cast<int>(info.nPage), info.nPos},
            {ControlFrame::line(GetFocus() == handle()), line_width(dpi())}, above);
}

void ListBoxPeer::scroll_to(int which, int place) const {
  if (which == SB_VERT) {
    send(LB_SETTOPINDEX, static_cast<WPARAM>(place));
  } else {
    constexpr int kFarthest = 0xFFFF;  // the message has no more room
    send(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, std::min(place, kFarthest)));
  }
}

// Takes the places of the real bars out of the list's outline: nothing is painted there by the
// list, and no press of the mouse arrives.
void ListBoxPeer::cut_out(const RECT& right, const RECT& bottom) {
  if (EqualRect(&right, &right_cut_) && EqualRect(&bottom, &bottom_cut_)) return;
  right_cut_ = right;
  bottom_cut_ = bottom;
  const HRGN outline = CreateRectRgn(0, 0, cut_from_.cx, cut_from_.cy);
  for (const RECT* const cut : {&right_cut_, &bottom_cut_}) {
    const HRGN part = CreateRectRgnIndirect(cut);
    CombineRgn(outline, outline, part, RGN_DIFF);
    DeleteObject(part);
  }
  // The system takes the outline over, if it is one.
  if (SetWindowRgn(handle(), outline, TRUE) == 0) DeleteObject(outline);
}

}  // namespace ordelan::win32
