// What a list reports to screen readers, and what they have it do.
#include <algorithm>

#include "win32/peers/list_box_peer.h"

namespace ordelan::win32 {

ComPtr<Accessible> ListBoxPeer::make_accessible() {
  return ComPtr<Accessible>(new AccessibleList(*this, list_));
}

// Another row is reported with the next message, the painting of the rows at the latest.
void ListBoxPeer::report(const Marks& marks) {
  if (marks.has(ui::Aspect::rows)) ListEvents::rows_changed(handle());
}

// By the mouse's own way, in the middle of the row, which is scrolled into sight first.
void ListBoxPeer::act(int row) {
  RECT room{};
  GetClientRect(handle(), &room);
  const LRESULT height = std::max<LRESULT>(1, send(LB_GETITEMHEIGHT));
  const LRESULT in_sight = std::max<LRESULT>(1, room.bottom / height);
  const LRESULT top = send(LB_GETTOPINDEX);
  if (row < top || row >= top + in_sight) send(LB_SETTOPINDEX, static_cast<WPARAM>(row));
  const LRESULT y = (row - send(LB_GETTOPINDEX)) * height + height / 2;
  const LPARAM place = MAKELPARAM(room.right / 2, y);
  const HWND list = handle();
  SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
  SendMessageW(list, WM_LBUTTONUP, 0, place);
}

}  // namespace ordelan::win32
