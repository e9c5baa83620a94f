#include "win32/text_box_peer.h"

#include <algorithm>
#include <utility>

#include "win32/ansi_text.h"
#include "win32/handlers.h"

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
  desk().enter(box, *this);
}

TextBoxPeer::~TextBoxPeer() {
  desk().leave(box_);
}

int TextBoxPeer::line_count() {
  flush();
  const auto lines = static_cast<int>(send(EM_GETLINECOUNT));
  return lines > 0 ? lines : 1;
}

std::wstring TextBoxPeer::text() const {
  return widen(box_.text());
}

void TextBoxPeer::update(const Marks& marks) {
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
          const LONG line = desk().tools().line_height(box_.font(), dpi());
          area.top += std::max<LONG>(0, area.bottom - area.top - line) / 2;
        }
        break;
      }
      case WM_NCPAINT:
        frame_.paint(handle(), GetFocus() == handle(), box_.back_color(), dpi(), desk().tools());
        return 0;
      case WM_NCHITTEST:
        return HTCLIENT;  // the air too
      default:
        break;
    }
  }
  LRESULT result = standard(message, w, l);
  if (box_.bordered() && (message == WM_SETFOCUS || message == WM_KILLFOCUS)) {
    frame_.paint(handle(), message == WM_SETFOCUS, box_.back_color(), dpi(), desk().tools());
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
