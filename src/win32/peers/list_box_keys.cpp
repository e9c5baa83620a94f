// What keys, letters and the wheel do to a real list.
#include <windowsx.h>

#include <algorithm>

#include "text/code_page.h"
#include "win32/paint/screen_scale.h"
#include "win32/peers/handlers.h"
#include "win32/peers/list_box_peer.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

constexpr int kSideStep = 40;  // sideways by one key or one turn of the wheel, at 96 dots per inch
constexpr LPARAM kRepeated = 1 << 30;

int held_keys() {
  return (GetKeyState(VK_SHIFT) < 0 ? ui::kShiftKey : 0) |
         (GetKeyState(VK_CONTROL) < 0 ? ui::kControlKey : 0) |
         (GetKeyState(VK_MENU) < 0 ? ui::kAltKey : 0);
}

}  // namespace

int row_of(HWND list, int y, std::size_t count) {
  // LB_ITEMFROMPOINT has only 16 bits for the row.
  const LRESULT height = SendMessageW(list, LB_GETITEMHEIGHT, 0, 0);
  if (y < 0 || height <= 0) return -1;
  const LRESULT row = SendMessageW(list, LB_GETTOPINDEX, 0, 0) + y / height;
  return row < static_cast<LRESULT>(count) ? static_cast<int>(row) : -1;
}

int ListBoxPeer::rows_in_sight() const {
  RECT client{};
  GetClientRect(handle(), &client);
  const LRESULT height = standard(LB_GETITEMHEIGHT, 0, 0);
  return height > 0 ? std::max(1, static_cast<int>(client.bottom / height)) : 1;
}

// Where keys only move, the real list gets none of them: it would report a choice.
std::optional<LRESULT> ListBoxPeer::key_down(WPARAM key, LPARAM l) {
  if (key == VK_RETURN && list_.on_enter) {
    if ((l & kRepeated) == 0 && list_.current() >= 0) raise(list_.on_enter);
    return 0;
  }
  const std::weak_ptr<void> still = alive();
  const bool used = list_.key_down(static_cast<int>(key), held_keys(), rows_in_sight());
  if (still.expired()) return 0;
  if (used) {
    // Marking all moves nothing.
    if (key != 'A') bring_into_sight(list_.current());
    return 0;
  }
  if (!list_.keys_move()) return std::nullopt;
  const int step = to_pixels(kSideStep, dpi());
  if (key == VK_LEFT) scroll_sideways(-step);
  if (key == VK_RIGHT) scroll_sideways(step);
  return 0;
}

// The keypad's signs come as letters too, but they are the volume's.
void ListBoxPeer::letter(WPARAM unit) {
  if (key_ == VK_ADD || key_ == VK_SUBTRACT) return;
  if ((held_keys() & (ui::kControlKey | ui::kAltKey)) != 0) return;
  const std::optional<char> byte = text::byte_of(static_cast<std::uint32_t>(unit));
  if (!byte) return;
  const std::weak_ptr<void> still = alive();
  const int before = list_.current();
  list_.typed(*byte, static_cast<std::uint32_t>(GetMessageTime()));
  if (!still.expired() && list_.current() != before) bring_into_sight(list_.current());
}

// The current row may have been scrolled out of sight before it moved, or not have moved at all.
// The one message that may raise an event comes last.
void ListBoxPeer::bring_into_sight(int row) const {
  if (row < 0) return;
  const auto top = static_cast<int>(standard(LB_GETTOPINDEX, 0, 0));
  const int last = top + rows_in_sight() - 1;
  if (row < top) {
    send(LB_SETTOPINDEX, static_cast<WPARAM>(row));
  } else if (row > last) {
    send(LB_SETTOPINDEX, static_cast<WPARAM>(top + row - last));
  }
}

bool ListBoxPeer::mark_press(int row, WPARAM held) {
  const int keys =
      ((held & MK_SHIFT) ? ui::kShiftKey : 0) | ((held & MK_CONTROL) ? ui::kControlKey : 0);
  if (!list_.markable() || keys == 0) return false;
  const std::weak_ptr<void> still = alive();
  SetFocus(handle());
  if (!still.expired()) list_.mark_click(row, keys);
  return true;
}

void ListBoxPeer::scroll_sideways(int pixels) const {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  GetScrollInfo(handle(), SB_HORZ, &info);
  const int farthest = std::max(0, info.nMax - static_cast<int>(info.nPage) + 1);
  const int place = std::clamp(info.nPos + pixels, 0, farthest);
  if (place != info.nPos) scroll_to(SB_HORZ, place);
}

// Away from the user is to the left, as it is upwards.
void ListBoxPeer::turn_sideways(int delta) const {
  scroll_sideways(-MulDiv(delta, to_pixels(kSideStep, dpi()), WHEEL_DELTA));
}

}  // namespace ordelan::win32
