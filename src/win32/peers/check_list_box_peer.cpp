#include "win32/peers/check_list_box_peer.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "win32/paint/screen_scale.h"
#include "win32/paint/tick_box.h"
#include "win32/peers/accessible_list.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

// At 96 dots per inch.
constexpr int kRowAir = 4;   // of a row, where there is no list beside
constexpr int kInRows = 14;  // the side of a box: those above each other do not touch

}  // namespace

CheckListBoxPeer::CheckListBoxPeer(WindowPeer& parent, ui::CheckListBox& boxes)
    : DressedPeer(parent, boxes, L"LISTBOX",
                  LBS_NODATA | LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT),
      boxes_(boxes) {}

HWND CheckListBoxPeer::list() const {
  if (boxes_.beside() == nullptr) return nullptr;
  const ControlPeer* const peer = registry().control(*boxes_.beside());
  return peer ? peer->handle() : nullptr;
}

// Within the line round the list, and above its bar.
RECT CheckListBoxPeer::area() const {
  RECT place = ControlPeer::area();
  if (const HWND beside = list()) {
    const LONG width = place.right - place.left;
    GetClientRect(beside, &place);
    MapWindowPoints(beside, parent().handle(), reinterpret_cast<POINT*>(&place), 2);
    place.right = std::min(place.right, place.left + width);
  }
  return place;
}

void CheckListBoxPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::font)) {
    send(LB_SETITEMHEIGHT, 0,
         registry().tools().line_height(boxes_.font(), dpi()) + to_pixels(kRowAir, dpi()));
  }
  if (marks.has(ui::Aspect::rows) && send(LB_GETCOUNT) != static_cast<LRESULT>(boxes_.count())) {
    send(LB_SETCOUNT, static_cast<WPARAM>(boxes_.count()));
  }
  repaint();
}

ComPtr<Accessible> CheckListBoxPeer::make_accessible() {
  return ComPtr<Accessible>(new AccessibleList(*this, boxes_));
}

void CheckListBoxPeer::report(const Marks& marks) {
  if (marks.has(ui::Aspect::rows)) ListEvents::rows_changed(handle());
  if (!marks.has(ui::Aspect::value)) return;
  NotifyWinEvent(EVENT_OBJECT_SELECTIONWITHIN, handle(), OBJID_CLIENT, CHILDID_SELF);
  // A key ticks the box of the row that is chosen in the list.
  const int pressed = std::exchange(pressed_, -1);
  const int chosen = boxes_.beside() ? boxes_.beside()->current() : -1;
  report_tick(pressed);
  if (chosen != pressed) report_tick(chosen);
}

void CheckListBoxPeer::report_tick(int row) const {
  if (row < 0) return;
  for (const HWND each : {handle(), list()}) {
    if (each) NotifyWinEvent(EVENT_OBJECT_STATECHANGE, each, OBJID_CLIENT, row + 1);
  }
}

int CheckListBoxPeer::row_height() const {
  const HWND beside = list();
  const LRESULT height =
      beside ? SendMessageW(beside, LB_GETITEMHEIGHT, 0, 0) : standard(LB_GETITEMHEIGHT, 0, 0);
  return std::max(1, static_cast<int>(height));
}

int CheckListBoxPeer::row_at(int y) const {
  if (y < 0) return -1;
  const std::size_t row = boxes_.top() + static_cast<std::size_t>(y / row_height());
  return row < boxes_.count() ? static_cast<int>(row) : -1;
}

void CheckListBoxPeer::paint(HDC context, const RECT& area) {
  FillRect(context, &area, registry().tools().brush(boxes_.back_color()));
  const int height = row_height();
  RECT row{area.left, area.top, area.right, area.top + height};
  for (std::size_t i = boxes_.top(); i < boxes_.count() && row.top < area.bottom; ++i) {
    const int side =
        std::min(to_pixels(kInRows, dpi()), std::min(static_cast<int>(area.right), height) - 2);
    const LONG left = (area.left + area.right - side) / 2;
    const LONG top = (row.top + row.bottom - side) / 2;
    const bool lit = static_cast<int>(i) == over_;
    tick_box(context, {left, top, left + side, top + side},
             {boxes_.ticked(i), boxes_.enabled(), lit}, dpi());
    OffsetRect(&row, 0, height);
  }
}

// Two quick clicks are two clicks. The handlers come last: they may take the boxes away.
void CheckListBoxPeer::press_row(int row) {
  if (const HWND beside = list()) {
    const std::weak_ptr<void> still = alive();
    SetFocus(beside);
    if (still.expired()) return;
  }
  pressed_ = row;
  if (row >= 0) boxes_.toggle(static_cast<std::size_t>(row));
}

void CheckListBoxPeer::point_at(int row) {
  if (std::exchange(over_, row) != row) repaint();
}

std::optional<LRESULT> CheckListBoxPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      press_row(row_at(GET_Y_LPARAM(l)));
      return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
      return 0;
    case WM_MOUSEMOVE: {
      if (over_ < 0) {
        TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, handle(), 0};
        TrackMouseEvent(&leaving);
      }
      point_at(row_at(GET_Y_LPARAM(l)));
      ControlPeer::incoming(message, w, l);
      return 0;  // a real list would scroll with the pointer
    }
    case WM_MOUSELEAVE:
      point_at(-1);
      return 0;
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CHAR:
      if (const HWND beside = list()) SendMessageW(beside, message, w, l);
      return 0;
    case WM_SETFOCUS:
      if (const HWND beside = list()) SetFocus(beside);
      return 0;
    default:
      if (const auto known = answer(message, w)) return known;
      return DressedPeer::incoming(message, w, l);
  }
}

// What the real list would answer wrongly: where it stands, and which rows are selected.
std::optional<LRESULT> CheckListBoxPeer::answer(UINT message, WPARAM w) const {
  switch (message) {
    case LB_GETTOPINDEX:
      return static_cast<LRESULT>(boxes_.top());
    case LB_SETTOPINDEX:
      if (w >= boxes_.count()) return LB_ERR;
      boxes_.set_top(w);
      return 0;
    case LB_GETSEL:
      if (w >= boxes_.count()) return LB_ERR;
      return boxes_.ticked(w) ? 1 : 0;
    case LB_GETITEMHEIGHT:
      return row_height();
    default:
      return std::nullopt;
  }
}

LRESULT CheckListBoxPeer::respond(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_GETDLGCODE) return DLGC_STATIC;
  if (message == WM_NCPAINT) return 0;
  return standard(message, w, l);
}

}  // namespace ordelan::win32
