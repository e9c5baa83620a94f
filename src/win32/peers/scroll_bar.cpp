#include "win32/peers/scroll_bar.h"

#include <windowsx.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include "win32/paint/canvas.h"
#include "win32/peers/handlers.h"

namespace ordelan::win32 {
namespace {

constexpr UINT_PTR kRepeat = 1;     // the timer of a button that is held down
constexpr UINT kFirstRepeat = 350;  // milliseconds
constexpr UINT kNextRepeats = 60;
constexpr int kMarginPart = 4;     // beside the thumb, of the bar's width
constexpr int kShortestThumb = 2;  // in widths of the bar

// The last place that can be scrolled to.
std::int64_t last_place(const Scroll& scroll) {
  const std::int64_t last = std::int64_t{scroll.most} - std::max(scroll.page, 1) + 1;
  return std::max<std::int64_t>(last, scroll.least);
}

ui::Color thumb_color(bool over, bool dragging) {
  if (dragging) return palette().accent;
  return over ? palette().text_off : palette().line;
}

void register_class(HINSTANCE instance, WNDPROC procedure) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = procedure;
  kind.hInstance = instance;
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.lpszClassName = kScrollBarClass;
  RegisterClassExW(&kind);  // the second bar finds it there
}

}  // namespace

Thumb thumb_of(const Scroll& scroll, int track, int shortest) {
  const std::int64_t all = std::int64_t{scroll.most} - scroll.least + 1;
  const std::int64_t way = last_place(scroll) - scroll.least;
  if (track <= 0) return {};
  if (all <= 0 || way == 0) return {0, track};
  const auto share = static_cast<int>(std::int64_t{track} * std::max(scroll.page, 1) / all);
  const int length = std::min(std::max(share, shortest), track);
  const std::int64_t gone =
      std::clamp<std::int64_t>(std::int64_t{scroll.at} - scroll.least, 0, way);
  return {static_cast<int>((track - length) * gone / way), length};
}

int place_of(const Scroll& scroll, int track, const Thumb& thumb, int start) {
  const std::int64_t room = track - thumb.length;
  if (room <= 0) return scroll.least;
  const std::int64_t way = last_place(scroll) - scroll.least;
  const std::int64_t gone = std::clamp<std::int64_t>(start, 0, room);
  return static_cast<int>(scroll.least + (gone * way + room / 2) / room);
}

ScrollBar::ScrollBar(HWND list, bool vertical, DrawingTools& tools)
    : list_(list), vertical_(vertical), tools_(tools) {
  const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(list, GWLP_HINSTANCE));
  register_class(instance, procedure);
  handle_ = CreateWindowExW(0, kScrollBarClass, nullptr, WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                            GetParent(list), nullptr, instance, nullptr);
  if (handle_) SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

ScrollBar::~ScrollBar() {
  if (!handle_) return;
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  DestroyWindow(handle_);
}

void ScrollBar::show(const RECT& area, int track, const Scroll& scroll, const Line& line,
                     HWND above) {
  if (!handle_) return;
  const bool enabled = IsWindowEnabled(list_) != FALSE;
  if ((IsWindowEnabled(handle_) != FALSE) != enabled) EnableWindow(handle_, enabled);
  const bool moved = !visible_ || !EqualRect(&area, &area_);
  const bool changed = moved || track != track_ || scroll != scroll_ || line != line_;
  area_ = area;
  track_ = track;
  scroll_ = scroll;
  line_ = line;
  if (moved || GetWindow(above, GW_HWNDNEXT) != handle_) {
    visible_ = true;
    SetWindowPos(handle_, above, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOACTIVATE | SWP_SHOWWINDOW);
  }
  if (changed) InvalidateRect(handle_, nullptr, FALSE);
}

void ScrollBar::hide() {
  if (!std::exchange(visible_, false)) return;
  let_go();
  ShowWindow(handle_, SW_HIDE);
}

LRESULT CALLBACK ScrollBar::procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  auto* const bar = reinterpret_cast<ScrollBar*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!bar) return DefWindowProcW(window, message, w, l);
  return guarded([&] { return bar->process(message, w, l); });
}

// Scrolling comes last, everywhere: nothing of the bar may be touched after it.
LRESULT ScrollBar::process(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint_out_of_sight(handle_, [this](HDC context, const RECT& area) { paint(context, area); });
      return 0;
    case WM_LBUTTONDOWN:
      press(along(l));
      return 0;
    case WM_MOUSEMOVE:
      if (!std::exchange(over_, true)) {
        TRACKMOUSEEVENT leave{};
        leave.cbSize = sizeof leave;
        leave.dwFlags = TME_LEAVE;
        leave.hwndTrack = handle_;
        TrackMouseEvent(&leave);
        InvalidateRect(handle_, nullptr, FALSE);
      }
      pointer_ = along(l);
      if (dragging_) drag(pointer_);
      return 0;
    case WM_MOUSELEAVE:
      over_ = false;
      InvalidateRect(handle_, nullptr, FALSE);
      return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
    case WM_CANCELMODE:
      let_go();
      return 0;
    case WM_TIMER:
      SetTimer(handle_, kRepeat, kNextRepeats, nullptr);
      page_on();
      return 0;
    case WM_MOUSEWHEEL:
      return SendMessageW(list_, message, w, l);
    case WM_SETFOCUS:  // by a dialog's keys; it takes none itself
      SetFocus(list_);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_STATIC;
    case WM_NCDESTROY: {
      const HWND gone = std::exchange(handle_, nullptr);
      SetWindowLongPtrW(gone, GWLP_USERDATA, 0);
      return DefWindowProcW(gone, message, w, l);
    }
    default:
      return DefWindowProcW(handle_, message, w, l);
  }
}

void ScrollBar::paint(HDC context, const RECT& area) const {
  FillRect(context, &area, tools_.brush(palette().surface));
  const HBRUSH line = tools_.brush(line_.color);
  const LONG length = vertical_ ? area.bottom : area.right;
  RECT edge = area;
  (vertical_ ? edge.left : edge.top) = thickness();
  FillRect(context, &edge, line);
  if (track_ < length) {
    edge = area;
    (vertical_ ? edge.top : edge.left) = length - line_.width;
    FillRect(context, &edge, line);
  }
  const Thumb place = thumb();
  const int margin = thickness() / kMarginPart;
  RECT shape = vertical_ ? RECT{0, place.start, thickness(), place.start + place.length}
                         : RECT{place.start, 0, place.start + place.length, thickness()};
  InflateRect(&shape, -margin, -margin);
  const int round = std::min(shape.right - shape.left, shape.bottom - shape.top);
  const ui::Color color = thumb_color(over_, dragging_);
  rounded_box(context, shape, round / 2, color, {color, 1});
}

void ScrollBar::press(int at) {
  if (at < 0 || at >= track_) return;
  const Thumb place = thumb();
  SetCapture(handle_);
  pointer_ = at;
  if (at >= place.start && at < place.start + place.length) {
    dragging_ = true;
    grip_ = at - place.start;
    InvalidateRect(handle_, nullptr, FALSE);
    return;
  }
  paging_ = at < place.start ? -1 : 1;
  SetTimer(handle_, kRepeat, kFirstRepeat, nullptr);
  page_on();
}

void ScrollBar::drag(int at) {
  scroll_to(place_of(scroll_, track_, thumb(), at - grip_));
}

// On by a page, until the thumb is under the pointer.
void ScrollBar::page_on() {
  const Thumb place = thumb();
  const bool before = pointer_ < place.start;
  const bool after = pointer_ >= place.start + place.length;
  if ((paging_ < 0 && !before) || (paging_ > 0 && !after) || paging_ == 0) return;
  scroll_to(std::int64_t{scroll_.at} + std::int64_t{paging_} * std::max(scroll_.page, 1));
}

void ScrollBar::let_go() {
  if (std::exchange(paging_, 0) != 0) KillTimer(handle_, kRepeat);
  if (std::exchange(dragging_, false)) InvalidateRect(handle_, nullptr, FALSE);
  if (GetCapture() == handle_) ReleaseCapture();
}

void ScrollBar::scroll_to(long long place) {
  const auto target =
      static_cast<int>(std::clamp<std::int64_t>(place, scroll_.least, last_place(scroll_)));
  if (target != scroll_.at) raise(on_scroll, target);
}

int ScrollBar::along(LPARAM l) const {
  return vertical_ ? GET_Y_LPARAM(l) : GET_X_LPARAM(l);
}

Thumb ScrollBar::thumb() const {
  return thumb_of(scroll_, track_, kShortestThumb * thickness());
}

// Without its edge.
int ScrollBar::thickness() const {
  return (vertical_ ? area_.right - area_.left : area_.bottom - area_.top) - line_.width;
}

}  // namespace ordelan::win32
