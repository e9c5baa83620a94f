#include "win32/peers/list_box_peer.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "win32/ansi_text.h"
#include "win32/paint/canvas.h"
#include "win32/paint/screen_scale.h"
#include "win32/paint/shapes.h"
#include "win32/peers/handlers.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

constexpr DWORD kStyle = LBS_NODATA | LBS_OWNERDRAWFIXED | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT |
                         WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;
constexpr int kTextIndent = 4;  // at 96 dots per inch
constexpr int kRowAir = 4;      // above and below the text together
constexpr int kMarkWidth = 3;   // of the bar at the left of a marked row
constexpr UINT kAnswerTimeout = 10000;

// Characters that go to another process in one message.
constexpr std::size_t kLargestPiece = 64 * 1024;

UINT rows_message() {
  static const UINT message = RegisterWindowMessageW(kRowsMessage);
  return message;
}

}  // namespace

ListBoxPeer::ListBoxPeer(WindowPeer& parent, ui::ListBox& list)
    : ControlPeer(parent, list, L"LISTBOX", kStyle,
                  list.accepts_drops() ? DWORD{WS_EX_ACCEPTFILES} : 0),
      list_(list) {}

void ListBoxPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::font)) {
    send(LB_SETITEMHEIGHT, 0,
         registry().tools().line_height(list_.font(), dpi()) + to_pixels(kRowAir, dpi()));
  }
  if (marks.has(ui::Aspect::rows) || marks.has(ui::Aspect::current_row)) {
    show_rows(!marks.has(ui::Aspect::current_row));
  }
  if (marks.has(ui::Aspect::value)) {
    NotifyWinEvent(EVENT_OBJECT_SELECTIONWITHIN, handle(), OBJID_CLIENT, CHILDID_SELF);
    repaint();
  }
  if (marks.has(ui::Aspect::extent)) {
    // Measured at the program's one density, painted at this window's.
    const int extent = MulDiv(list_.horizontal_extent(), dpi(), registry().measure_dpi());
    const int indent = list_.horizontal_extent() > 0
                           ? 2 * to_pixels(kTextIndent, dpi()) + to_pixels(list_.indent(), dpi())
                           : 0;
    send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent + indent));
  }
  if (marks.has(ui::Aspect::top) &&
      standard(LB_GETTOPINDEX, 0, 0) != static_cast<LRESULT>(list_.top())) {
    send(LB_SETTOPINDEX, static_cast<WPARAM>(list_.top()));
  }
}

void ListBoxPeer::show_rows(bool keep_place) {
  const LRESULT top = send(LB_GETTOPINDEX);
  send(WM_SETREDRAW, FALSE);
  if (send(LB_GETCOUNT) != static_cast<LRESULT>(list_.count())) {
    send(LB_SETCOUNT, static_cast<WPARAM>(list_.count()));
  }
  // Choosing a row brings it into sight, which only a new choice may do.
  if (send(LB_GETCURSEL) != list_.current()) {
    send(LB_SETCURSEL, static_cast<WPARAM>(list_.current()));
  } else {
    keep_place = true;
  }
  if (keep_place && !list_.empty()) {
    const auto last = static_cast<LRESULT>(list_.count()) - 1;
    send(LB_SETTOPINDEX, static_cast<WPARAM>(std::min(top, last)));
  }
  send(WM_SETREDRAW, TRUE);
  repaint();
}

void ListBoxPeer::draw(const DRAWITEMSTRUCT& item) {
  RECT visible = item.rcItem;
  RECT client{};
  GetClientRect(handle(), &client);
  // A list that is scrolled sideways may have moved the whole context instead of the item.
  DPtoLP(item.hDC, reinterpret_cast<POINT*>(&client), 2);
  visible.left = client.left;
  visible.right = client.right;
  if (visible.right <= visible.left || visible.bottom <= visible.top) return;

  const Canvas canvas(item.hDC, visible);
  const HDC context = canvas.context();
  colors(context);
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  const bool focused = GetFocus() == handle();
  const bool is_row = item.itemID != static_cast<UINT>(-1);
  const bool marked = is_row && list_.marked(item.itemID);
  if (selected) {
    SetTextColor(context, color_of(focused ? palette().chosen_text : palette().text));
    SetBkColor(context, color_of(focused ? palette().chosen : palette().raised));
  } else if (!list_.enabled()) {
    SetTextColor(context, color_of(palette().text_off));
  } else if (marked) {
    SetTextColor(context, color_of(palette().text));
    SetBkColor(context, color_of(palette().line));
  }
  const std::wstring text = is_row ? widen(list_.row(item.itemID)) : std::wstring();
  const HGDIOBJ old = SelectObject(context, font());
  // The item begins left of what is visible when the list is scrolled sideways.
  ExtTextOutW(context,
              item.rcItem.left + to_pixels(kTextIndent, dpi()) + to_pixels(list_.indent(), dpi()),
              item.rcItem.top + to_pixels(kRowAir, dpi()) / 2, ETO_OPAQUE | ETO_CLIPPED, &visible,
              text.data(), static_cast<UINT>(text.size()), nullptr);
  SelectObject(context, old);
  if (marked) {
    // The ground of the current row says nothing of its mark.
    RECT bar = visible;
    bar.right = bar.left + to_pixels(kMarkWidth, dpi());
    const bool on_chosen = selected && focused;
    FillRect(context, &bar,
             registry().tools().brush(on_chosen ? palette().chosen_text : palette().accent));
  }
  if (focused && is_row && (item.itemState & ODS_FOCUS) != 0) {
    square_edge(context, visible, registry().tools().brush(palette().accent), line_width(dpi()));
  }
  canvas.show();
}

std::optional<LRESULT> ListBoxPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  if (message == rows_message()) return answer_rows(w, reinterpret_cast<HWND>(l));
  const std::weak_ptr<void> still = alive();
  switch (message) {
    case WM_ERASEBKGND:
      erase_below(reinterpret_cast<HDC>(w));
      return 1;
    case WM_DROPFILES:
      dropped(reinterpret_cast<HDROP>(w));
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (const int row = row_at(GET_Y_LPARAM(l)); row < 0) {
        press_below();
      } else if (!mark_press(row, w)) {
        return std::nullopt;
      }
      return 0;
    case WM_RBUTTONDOWN:
      right_button(GET_Y_LPARAM(l));
      return 0;
    case WM_KEYDOWN:
      key_ = w;
      raise(list_.on_key, static_cast<int>(w));
      if (still.expired()) return 0;
      return key_down(w, l);
    case WM_CHAR:
      letter(w);
      return 0;  // the real list would look for a row by letters that it does not have
    case WM_MOUSEWHEEL:
      if (!list_.keys_move() || (GET_KEYSTATE_WPARAM(w) & MK_SHIFT) == 0) return std::nullopt;
      turn_sideways(GET_WHEEL_DELTA_WPARAM(w));
      return 0;
    case LB_GETSEL:
      // The real list has no other selected row than the current one.
      if (list_.marked(w)) return 1;
      return std::nullopt;
    default:
      return ControlPeer::incoming(message, w, l);
  }
}

LRESULT ListBoxPeer::respond(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_NCCALCSIZE:
      return shrink_client(w, l);
    case WM_NCPAINT:
      frame_.paint(handle(), GetFocus() == handle(), list_.back_color(), dpi(), registry().tools());
      return 0;
    case WM_PAINT:
      if (!list_.empty()) break;
      paint_empty();
      return 0;
    case WM_NCHITTEST:
      // What is not the rows' is the line, never one of the hidden bars.
      return standard(message, w, l) == HTCLIENT ? HTCLIENT : HTBORDER;
    default:
      break;
  }
  const LRESULT result = standard(message, w, l);
  show_bars();
  note_scroll();
  if (!flushing()) events_.look(handle(), standard(LB_GETCURSEL, 0, 0));
  switch (message) {
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      focus_changed(message == WM_SETFOCUS);
      break;
    case WM_LBUTTONDOWN:
      // Choosing the chosen row again is a choice too.
      chosen_ = true;
      by_mouse_ = true;
      break;
    case WM_LBUTTONDBLCLK:
      chosen_ = false;
      double_clicked_ = true;
      break;
    case WM_GETDLGCODE: {
      const auto* key = reinterpret_cast<const MSG*>(l);
      const bool tab = key && key->message == WM_KEYDOWN && key->wParam == VK_TAB;
      return tab ? result : result | DLGC_WANTALLKEYS;
    }
    default:
      break;
  }
  return result;
}

void ListBoxPeer::command(WORD code) {
  if (code == LBN_SELCHANGE && !flushing()) chosen_ = true;
}

void ListBoxPeer::deliver() {
  if (flushing()) return;
  if (std::exchange(scrolled_, false)) {
    const std::weak_ptr<void> still = alive();
    raise(list_.on_scroll);
    if (still.expired()) return;
  }
  // While the button is down the choice may still change, and the mouse belongs to the list.
  if (GetCapture() == handle()) return;
  const bool clicked = std::exchange(chosen_, false);
  const bool twice = std::exchange(double_clicked_, false);
  const bool by_key = !std::exchange(by_mouse_, false);
  if (!clicked && !twice) return;
  const bool unmarked = list_.marked_count() > 0;
  list_.chosen(static_cast<int>(send(LB_GETCURSEL)), by_key);
  if (unmarked) {
    const std::weak_ptr<void> still = alive();
    raise(list_.on_marked);
    if (still.expired()) return;
  }
  raise(twice ? list_.on_double_click : list_.on_click);
}

// Any message may have scrolled the list. What happens while changes are shown is reported by a
// message that comes after them.
void ListBoxPeer::note_scroll() {
  const LRESULT top = standard(LB_GETTOPINDEX, 0, 0);
  if (top < 0 || static_cast<std::size_t>(top) == list_.top()) return;
  list_.scrolled(static_cast<std::size_t>(top));
  scrolled_ = true;
  if (flushing()) PostMessageW(handle(), WM_NULL, 0, 0);
}

void ListBoxPeer::erase_below(HDC context) {
  // Rows paint their own ground; only what lies below the last needs any.
  RECT rest{};
  GetClientRect(handle(), &rest);
  const LRESULT shown = static_cast<LRESULT>(list_.count()) - send(LB_GETTOPINDEX);
  const LRESULT height = send(LB_GETITEMHEIGHT);
  rest.top =
      static_cast<LONG>(std::min<LRESULT>(rest.bottom, std::max<LRESULT>(0, shown) * height));
  if (rest.top < rest.bottom)
    FillRect(context, &rest, registry().tools().brush(list_.back_color()));
}

// The real list would show its focus round a row that it does not have.
void ListBoxPeer::paint_empty() {
  PAINTSTRUCT painting{};
  const HDC context = BeginPaint(handle(), &painting);
  if (context) FillRect(context, &painting.rcPaint, registry().tools().brush(list_.back_color()));
  EndPaint(handle(), &painting);
}

void ListBoxPeer::right_button(int y) {
  const std::weak_ptr<void> still = alive();
  SetFocus(handle());
  if (still.expired()) return;
  const int row = row_at(y);
  list_.right_clicked_at(row);
  if (row >= 0 && list_.right_click_moves()) {
    send(LB_SETCURSEL, static_cast<WPARAM>(row));
    list_.chosen(row);
  }
  raise(list_.on_right_click);
}

// The real control hears nothing of it: some would choose the row that is nearest.
void ListBoxPeer::press_below() {
  const std::weak_ptr<void> still = alive();
  SetFocus(handle());
  if (!still.expired()) raise(list_.on_click_below);
}

void ListBoxPeer::dropped(HDROP drop) {
  std::vector<std::string> paths;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring path(DragQueryFileW(drop, i, nullptr, 0), L'\0');
    DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size()) + 1);
    // What the code page cannot name could only be mistaken for something else.
    if (auto name = narrow(path)) paths.push_back(*std::move(name));
  }
  DragFinish(drop);
  raise(list_.on_drop, std::move(paths));
}

LRESULT ListBoxPeer::answer_rows(WPARAM row, HWND asker) {
  std::string text;
  if (row == static_cast<WPARAM>(-1)) {
    for (const std::string& each : list_.rows()) text.append(each).push_back('\n');
    if (!text.empty()) text.pop_back();
  } else {
    text = list_.row(row);
  }
  std::wstring wide = widen(text);
  // At least one piece, also of no text: it says how many rows there are.
  for (std::size_t at = 0; at == 0 || at < wide.size(); at += kLargestPiece) {
    const std::size_t size = std::min(kLargestPiece, wide.size() - at);
    COPYDATASTRUCT data{};
    data.dwData = list_.count();
    data.cbData = static_cast<DWORD>(size * sizeof(wchar_t));
    data.lpData = wide.data() + at;
    DWORD_PTR taken = FALSE;
    SendMessageTimeoutW(asker, WM_COPYDATA, reinterpret_cast<WPARAM>(handle()),
                        reinterpret_cast<LPARAM>(&data), SMTO_ABORTIFHUNG, kAnswerTimeout, &taken);
    if (!taken) return 0;
  }
  return 1;
}

// Within the line round the list, and up to bars as thin as ours.
LRESULT ListBoxPeer::shrink_client(WPARAM w, LPARAM l) const {
  // With either parameter, what is to become the client area comes first.
  RECT& area = *reinterpret_cast<RECT*>(l);
  const RECT inside = frame_.inside(area, dpi());
  area = inside;
  const LRESULT result = standard(WM_NCCALCSIZE, w, l);
  const int width = to_pixels(kScrollBarWidth, dpi());
  if (area.right < inside.right) area.right = std::max(inside.left, inside.right - width);
  if (area.bottom < inside.bottom) area.bottom = std::max(inside.top, inside.bottom - width);
  return result;
}

void ListBoxPeer::focus_changed(bool focused) {
  frame_.paint(handle(), focused, list_.back_color(), dpi(), registry().tools());
  if (list_.empty()) repaint();
  // The chosen row has other colours now.
  RECT row{};
  const LRESULT current = send(LB_GETCURSEL);
  if (current < 0 || send(LB_GETITEMRECT, static_cast<WPARAM>(current),
                          reinterpret_cast<LPARAM>(&row)) == LB_ERR) {
    return;
  }
  InvalidateRect(handle(), &row, FALSE);
}

}  // namespace ordelan::win32
