#include "win32/peers/text_box_peer.h"

#include <algorithm>
#include <utility>

#include "win32/ansi_text.h"
#include "win32/paint/screen_scale.h"
#include "win32/peers/handlers.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

// Between the line round a box and its text, at 96 dots per inch.
constexpr int kSideAir = 3;
constexpr int kTopAir = 1;

DWORD style_of(const ui::TextBox& box) {
  const DWORD common = ES_LEFT | WS_TABSTOP | (box.read_only() ? DWORD{ES_READONLY} : 0);
  // A box of many lines breaks them at its width, and scrolls up and down.
  return box.multiline() ? common | ES_MULTILINE | ES_AUTOVSCROLL : common | ES_AUTOHSCROLL;
}

}  // namespace

TextBoxPeer::TextBoxPeer(WindowPeer& parent, ui::TextBox& box)
    : ControlPeer(parent, box, L"EDIT", style_of(box)), box_(box), frame_(kSideAir, kTopAir) {
  registry().enter(box, *this);
}

TextBoxPeer::~TextBoxPeer() {
  registry().leave(box_);
}

int TextBoxPeer::line_count() {
  flush();
  const auto lines = static_cast<int>(send(EM_GETLINECOUNT));
  return lines > 0 ? lines : 1;
}

// The system would take the label before a box for its name. A text that is read out as it changes
// is its own name, as readers then say that; other boxes are left to the system where the user can
// write, or where that label is right.
std::optional<Face> TextBoxPeer::face() const {
  Face face{.name = text(), .state = STATE_SYSTEM_READONLY};
  face.role = ROLE_SYSTEM_STATICTEXT;
  if (box_.announced()) return face;
  if (!box_.read_only() || box_.description().empty()) return std::nullopt;
  face.role = ROLE_SYSTEM_TEXT;
  face.value = std::exchange(face.name, widen(box_.description()));
  return face;
}

// Whether the object's bounds reach further down than the window.
bool TextBoxPeer::is_cut() const {
  const ui::Rect& bounds = box_.bounds();
  return box_.multiline() && bounds.top + bounds.height > box_.window().size().height;
}

int TextBoxPeer::bar_width() const {
  return to_pixels(kScrollBarWidth, dpi());
}

// A box that is cut keeps as far from the window's lower edge as it does from the left one, and
// leaves its right side to the bar.
RECT TextBoxPeer::area() const {
  RECT place = ControlPeer::area();
  if (!is_cut()) return place;
  const LONG lower_edge = to_pixels(box_.window().size().height - box_.bounds().left, dpi());
  place.bottom = std::max(place.top, std::min(place.bottom, lower_edge));
  place.right = std::max(place.left, place.right - bar_width());
  return place;
}

// The lines break at the same width with the bar and without it: how many there are decides about
// the bar.
void TextBoxPeer::keep_room_for_bar() {
  const int margin = is_cut() ? 0 : bar_width();
  send(EM_SETMARGINS, EC_RIGHTMARGIN, MAKELPARAM(0, margin));
}

int TextBoxPeer::lines_in_sight() const {
  RECT room{};
  GetClientRect(handle(), &room);
  return std::max(1, static_cast<int>(room.bottom) /
                         std::max(1, registry().tools().line_height(box_.font(), dpi())));
}

// Any message may have scrolled the box, hidden it, or changed its lines.
void TextBoxPeer::show_bar() {
  if (showing_bar_ || (!bar_ && !is_cut())) return;
  showing_bar_ = true;
  const bool seen = (GetWindowLongPtrW(handle(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (is_cut() && seen) {
    if (!bar_) {
      bar_ = std::make_unique<ScrollBar>(handle(), true, registry().tools());
      bar_->on_scroll = [this](int line) { scroll_to(line); };
    }
    RECT place{};
    GetWindowRect(handle(), &place);
    MapWindowPoints(nullptr, parent().handle(), reinterpret_cast<POINT*>(&place), 2);
    place.left = std::exchange(place.right, place.right + bar_width());
    const Scroll scroll{0, static_cast<int>(send(EM_GETLINECOUNT)) - 1, lines_in_sight(),
                        static_cast<int>(send(EM_GETFIRSTVISIBLELINE))};
    bar_->show(place, static_cast<int>(place.bottom - place.top), scroll,
               {ControlFrame::line(GetFocus() == handle()), 0}, handle());
  } else if (bar_) {
    bar_->hide();
  }
  showing_bar_ = false;
}

void TextBoxPeer::scroll_to(int line) {
  const int last = std::max(0, static_cast<int>(send(EM_GETLINECOUNT)) - lines_in_sight());
  const auto now = static_cast<int>(send(EM_GETFIRSTVISIBLELINE));
  send(EM_LINESCROLL, 0, std::clamp(line, 0, last) - now);
}

// The real control scrolls by its wheel only where it has a bar of its own.
void TextBoxPeer::turn_wheel(WPARAM w) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  if (lines == WHEEL_PAGESCROLL) lines = static_cast<UINT>(lines_in_sight());
  wheel_ += GET_WHEEL_DELTA_WPARAM(w) * static_cast<int>(lines);
  const int whole = wheel_ / WHEEL_DELTA;
  wheel_ -= whole * WHEEL_DELTA;
  scroll_to(static_cast<int>(send(EM_GETFIRSTVISIBLELINE)) - whole);
}

std::wstring TextBoxPeer::text() const {
  return widen(box_.text());
}

void TextBoxPeer::update(const Marks& marks) {
  if (box_.multiline() && (marks.has(ui::Aspect::bounds) || marks.has(ui::Aspect::font))) {
    keep_room_for_bar();  // the system has its own idea of it for each font
  }
  if (marks.has(ui::Aspect::state)) {
    send(EM_SETREADONLY, static_cast<WPARAM>(box_.read_only() ? TRUE : FALSE));
  }
  if (marks.has(ui::Aspect::colors)) {  // the air too
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
  }
}

std::optional<LRESULT> TextBoxPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  // A box of many lines takes the Escape key for an order to close its window.
  if ((message == WM_KEYDOWN || message == WM_CHAR) && w == VK_ESCAPE) return 0;
  return ControlPeer::incoming(message, w, l);
}

LRESULT TextBoxPeer::respond(UINT message, WPARAM w, LPARAM l) {
  if (box_.bordered()) {
    switch (message) {
      case WM_NCCALCSIZE: {
        // With either parameter, what is to become the client area comes first.
        RECT& area = *reinterpret_cast<RECT*>(l);
        area = frame_.inside(area, dpi());
        if (!box_.multiline()) {  // whose text stands in the middle
          const LONG line = registry().tools().line_height(box_.font(), dpi());
          area.top += std::max<LONG>(0, area.bottom - area.top - line) / 2;
        }
        break;
      }
      case WM_NCPAINT:
        frame_.paint(handle(), GetFocus() == handle(), box_.back_color(), dpi(),
                     registry().tools());
        return 0;
      case WM_NCHITTEST:
        return HTCLIENT;  // the air too
      default:
        break;
    }
  }
  if (message == WM_MOUSEWHEEL && is_cut()) {
    turn_wheel(w);
    return 0;
  }
  LRESULT result = standard(message, w, l);
  show_bar();
  if (box_.bordered() && (message == WM_SETFOCUS || message == WM_KILLFOCUS)) {
    frame_.paint(handle(), message == WM_SETFOCUS, box_.back_color(), dpi(), registry().tools());
  }
  if (message == WM_GETDLGCODE) {
    // The Tab key leaves the box, and coming to it does not mark a text that cannot be changed.
    const auto* key = reinterpret_cast<const MSG*>(l);
    if (key && key->message == WM_KEYDOWN && key->wParam == VK_TAB) {
      result &= ~LRESULT{DLGC_WANTTAB | DLGC_WANTALLKEYS};
    }
    if (box_.read_only()) result &= ~LRESULT{DLGC_HASSETSEL};
  }
  if (message == WM_LBUTTONUP) clicked_ = true;
  return result;
}

void TextBoxPeer::command(WORD code) {
  if (code == EN_CHANGE && !flushing()) take_typed();
}

void TextBoxPeer::deliver() {
  if (std::exchange(clicked_, false)) raise(box_.on_click);
}

void TextBoxPeer::take_typed() {
  const int length = GetWindowTextLengthW(handle());
  std::wstring typed(static_cast<std::size_t>(length) + 1, L'\0');
  const int came = GetWindowTextW(handle(), typed.data(), length + 1);
  typed.resize(static_cast<std::size_t>(came));
  box_.typed(narrow_with_marks(typed));
}

}  // namespace ordelan::win32
