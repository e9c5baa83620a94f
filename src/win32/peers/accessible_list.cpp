#include "win32/peers/accessible_list.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "win32/ansi_text.h"
#include "win32/peers/control_peer.h"

namespace ordelan::win32 {

LONG AccessibleList::count() const {
  constexpr std::size_t kMost = std::numeric_limits<LONG>::max();
  return static_cast<LONG>(std::min(list_.count(), kMost));
}

LONG AccessibleList::role(LONG part) const {
  if (part == CHILDID_SELF) return ROLE_SYSTEM_LIST;
  return boxes_ ? ROLE_SYSTEM_CHECKBUTTON : ROLE_SYSTEM_LISTITEM;
}

std::wstring AccessibleList::name(LONG part) const {
  if (part != CHILDID_SELF) return widen(list_.row(static_cast<std::size_t>(part) - 1));
  return widen(list_.description().empty() ? list_.name() : list_.description());
}

std::wstring AccessibleList::help(LONG part) const {
  return part == CHILDID_SELF ? widen(list_.tip()) : std::wstring();
}

std::wstring AccessibleList::action(LONG part) const {
  if (part == CHILDID_SELF) return {};
  if (!boxes_) return L"Elegir";
  return ticked(part) ? L"Desmarcar" : L"Marcar";
}

bool AccessibleList::ticked(LONG part) const {
  const ui::CheckListBox* const boxes = boxes_ ? boxes_ : list_.boxes();
  return boxes && boxes->ticked(static_cast<std::size_t>(part) - 1);
}

LONG AccessibleList::state(LONG part) const {
  LONG all = state_of_window();
  const bool focused = (all & STATE_SYSTEM_FOCUSED) != 0;
  const LONG current = chosen();
  if (part == CHILDID_SELF) return current > 0 ? all & ~STATE_SYSTEM_FOCUSED : all;
  all &= ~STATE_SYSTEM_FOCUSED;
  if ((all & STATE_SYSTEM_UNAVAILABLE) == 0) {
    all |= STATE_SYSTEM_FOCUSABLE;
    if (!boxes_) all |= STATE_SYSTEM_SELECTABLE;
  }
  if (part == current) all |= STATE_SYSTEM_SELECTED | (focused ? STATE_SYSTEM_FOCUSED : 0);
  if (list_.marked(static_cast<std::size_t>(part) - 1)) all |= STATE_SYSTEM_SELECTED;
  if (ticked(part)) all |= STATE_SYSTEM_CHECKED;
  const RECT seen = inside();
  const RECT row = place(part);
  if (row.bottom <= seen.top || row.top >= seen.bottom) all |= STATE_SYSTEM_OFFSCREEN;
  return all;
}

RECT AccessibleList::inside() const {
  RECT area{};
  GetClientRect(handle(), &area);
  MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

LONG AccessibleList::row_height() const {
  return std::max<LONG>(1, static_cast<LONG>(SendMessageW(handle(), LB_GETITEMHEIGHT, 0, 0)));
}
LONG AccessibleList::top() const {
  return static_cast<LONG>(SendMessageW(handle(), LB_GETTOPINDEX, 0, 0));
}

// The real list gives its places for rows in sight alone, and numbers of 16 bits at a place.
RECT AccessibleList::place(LONG part) const {
  if (part == CHILDID_SELF) return Accessible::place(part);
  RECT row = inside();
  row.top += (part - 1 - top()) * row_height();
  row.bottom = row.top + row_height();
  return row;
}

LONG AccessibleList::part_at(POINT place) const {
  const RECT seen = inside();
  if (!PtInRect(&seen, place)) return CHILDID_SELF;
  const LONG part = top() + (place.y - seen.top) / row_height() + 1;
  return part <= count() ? part : CHILDID_SELF;
}

// As it is seen: while the mouse is held the object may not have heard of it yet.
LONG AccessibleList::chosen() const {
  if (boxes_) return 0;
  return static_cast<LONG>(SendMessageW(handle(), LB_GETCURSEL, 0, 0)) + 1;
}

bool AccessibleList::choose(LONG part) {
  ui::ListBox* const list = boxes_ ? boxes_->beside() : &list_;
  if (!list) return false;
  list->set_current(part - 1);
  peer().settle();
  return true;
}

std::string AccessibleList::mark_of(LONG part) const {
  return part == CHILDID_SELF ? std::string() : list_.row(static_cast<std::size_t>(part) - 1);
}

void ListEvents::rows_changed(HWND list) {
  if (IsWindowVisible(list)) {
    NotifyWinEvent(EVENT_OBJECT_REORDER, list, OBJID_CLIENT, CHILDID_SELF);
  }
}

void ListEvents::look(HWND list, LRESULT row) {
  const bool focused = GetFocus() == list;
  const bool came = !std::exchange(focused_, focused) && focused;
  const bool moved = std::exchange(row_, row) != row;
  if ((!moved && !came) || !IsWindowVisible(list)) return;
  if (row < 0) {
    // Only a row is reported by its number; that there is none any more is news of the list.
    if (moved) NotifyWinEvent(EVENT_OBJECT_SELECTIONWITHIN, list, OBJID_CLIENT, CHILDID_SELF);
    return;
  }
  const auto part = static_cast<LONG>(row) + 1;
  if (focused) NotifyWinEvent(EVENT_OBJECT_FOCUS, list, OBJID_CLIENT, part);
  NotifyWinEvent(EVENT_OBJECT_SELECTION, list, OBJID_CLIENT, part);
}

}  // namespace ordelan::win32
