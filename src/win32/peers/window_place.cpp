// Where a real window stands, how large it is there, and of which shape.
#include <algorithm>
#include <iterator>
#include <utility>

#include "win32/paint/screen_scale.h"
#include "win32/paint/window_shape.h"
#include "win32/peers/control_peer.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

// Positions on the desktop keep one scale, whichever screen they are on: a window that is put back
// where it was comes to lie there.
ui::Point position_of(HWND handle) {
  RECT area{};
  GetWindowRect(handle, &area);
  const int dpi = system_dpi();
  return ui::Point{to_units(area.left, dpi), to_units(area.top, dpi)};
}

}  // namespace

void WindowPeer::update_shape() {
  const ui::Shape& shape = window_.shape();
  if (shape.picture.empty() ||
      !AplicarForma(handle_, ground_of(registry_.pictures(), window_, shape.picture, dpi_),
                    shape.mask)) {
    end_shape(handle_);
  }
}

// The density at which the window is shown: that of its screen, or the next smaller usual one at
// which the screen holds it.
int WindowPeer::fitting_dpi() const {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  if (!GetMonitorInfoW(MonitorFromWindow(handle_, MONITOR_DEFAULTTONEAREST), &monitor)) {
    return screen_dpi_;
  }
  // One that can be resized need not be shown smaller: it is made smaller where that is needed.
  const ui::Size size = window_.resizable() ? window_.smallest_size() : window_.size();
  const auto fits = [&](int dpi) {
    const RECT area = outer_area(size, dpi);
    return area.right - area.left <= monitor.rcWork.right - monitor.rcWork.left &&
           area.bottom - area.top <= monitor.rcWork.bottom - monitor.rcWork.top;
  };
  if (fits(screen_dpi_)) return screen_dpi_;
  for (const int smaller : {192, 168, 144, 120}) {
    if (smaller < screen_dpi_ && fits(smaller)) return smaller;
  }
  return std::min(screen_dpi_, kUnitsPerInch);
}

// What the window with its frame takes, from the corner of its room for controls.
RECT WindowPeer::outer_area(ui::Size size, int dpi) const {
  RECT area{0, 0, to_pixels(size.width, dpi), to_pixels(size.height, dpi)};
  add_borders(area, style(), extended_style(), dpi);
  return area;
}

// Brings the controls to the scale at which the window is to be shown.
void WindowPeer::rescale() {
  const int dpi = fitting_dpi();
  if (std::exchange(dpi_, dpi) == dpi) return;
  update_shape();
  tips_->scale(dpi_);
  for (HWND child = GetWindow(handle_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (ControlPeer* const control = registry_.control(child)) control->rescale();
  }
  InvalidateRect(handle_, nullptr, TRUE);
}

void WindowPeer::place() {
  rescale();
  const int desktop_dpi = system_dpi();
  const int width = to_pixels(window_.size().width, dpi_);
  const int height = to_pixels(window_.size().height, dpi_);
  const RECT area = outer_area(window_.size(), dpi_);
  RECT before{};
  GetClientRect(handle_, &before);
  placing_ = true;
  SetWindowPos(handle_, nullptr, to_pixels(window_.position().x, desktop_dpi),
               to_pixels(window_.position().y, desktop_dpi), area.right - area.left,
               area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
  // Where the system does not scale borders and title, they are not what was computed.
  RECT room{};
  if (!IsIconic(handle_) && GetClientRect(handle_, &room) &&
      (room.right != width || room.bottom != height)) {
    SetWindowPos(handle_, nullptr, 0, 0, area.right - area.left + width - room.right,
                 area.bottom - area.top + height - room.bottom,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  placing_ = false;
  // Not where only its place is new: it would be painted for nothing.
  const bool same_size = before.right == width && before.bottom == height;
  if (window_.resizable() && !same_size) show_new_size();
}

// The ground and the shape are those of the size.
void WindowPeer::show_new_size() {
  update_shape();
  InvalidateRect(handle_, nullptr, TRUE);
}

// Which part of its frame a place on the screen is, by which the system resizes the window; its
// inside where it is none of them.
LRESULT WindowPeer::part_at(POINT place) const {
  constexpr int kGrip = 6;
  RECT area{};
  GetWindowRect(handle_, &area);
  const int grip = to_pixels(kGrip, dpi_);
  const bool left = place.x < area.left + grip;
  const bool right = place.x >= area.right - grip;
  const bool top = place.y < area.top + grip;
  const bool bottom = place.y >= area.bottom - grip;
  if (top) return left ? HTTOPLEFT : right ? HTTOPRIGHT : HTTOP;
  if (bottom) return left ? HTBOTTOMLEFT : right ? HTBOTTOMRIGHT : HTBOTTOM;
  return left ? HTLEFT : right ? HTRIGHT : HTCLIENT;
}

void WindowPeer::limit_size(MINMAXINFO& limits) const {
  const RECT least = outer_area(window_.smallest_size(), dpi_);
  limits.ptMinTrackSize = {least.right - least.left, least.bottom - least.top};
}

void WindowPeer::resized(int width, int height) {
  if (placing_ || !window_.resizable()) return;
  window_.resized_to({to_units(width, dpi_), to_units(height, dpi_)});
  show_new_size();
  registry_.flush();
}

// A window that is put back where no screen is any more could not even be dragged back, and buttons
// that lie beside the screen cannot be pressed.
void WindowPeer::bring_onto_a_screen() {
  RECT area{};
  if (IsIconic(handle_) || !GetWindowRect(handle_, &area)) return;
  const POINT corners[] = {{area.left, area.top},
                           {area.right - 1, area.top},
                           {area.left, area.bottom - 1},
                           {area.right - 1, area.bottom - 1}};
  if (std::all_of(std::begin(corners), std::end(corners), [](POINT corner) {
        return MonitorFromPoint(corner, MONITOR_DEFAULTTONULL) != nullptr;
      })) {
    return;
  }
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  if (!GetMonitorInfoW(MonitorFromRect(&area, MONITOR_DEFAULTTONEAREST), &monitor)) return;
  const RECT& screen = monitor.rcWork;
  if (window_.resizable()) {
    // Its far corner must be in reach, or it could not be made smaller.
    const LONG width = std::min(area.right - area.left, screen.right - screen.left);
    const LONG height = std::min(area.bottom - area.top, screen.bottom - screen.top);
    SetWindowPos(handle_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    GetWindowRect(handle_, &area);
  }
  // The far edges first: of a window larger than the screen, the title stays in sight.
  const LONG left =
      std::max(screen.left, std::min(area.left, screen.right - (area.right - area.left)));
  const LONG top =
      std::max(screen.top, std::min(area.top, screen.bottom - (area.bottom - area.top)));
  SetWindowPos(handle_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  window_.moved_to(position_of(handle_));
}

void WindowPeer::moved() {
  if (placing_ || IsIconic(handle_)) return;
  window_.moved_to(position_of(handle_));
}

void WindowPeer::change_dpi(int dpi, const RECT& suggested) {
  screen_dpi_ = dpi;
  SetWindowPos(handle_, nullptr, suggested.left, suggested.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  window_.moved_to(position_of(handle_));
  place();
  registry_.flush();
}

}  // namespace ordelan::win32
