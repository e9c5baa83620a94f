#include "win32/peers/peer_registry.h"

#include <algorithm>

#include "win32/paint/screen_scale.h"
#include "win32/peers/balloon_peer.h"
#include "win32/peers/control_peer.h"
#include "win32/peers/handlers.h"
#include "win32/peers/timer_peer.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

constexpr wchar_t kMessagesClass[] = L"Ordelan.Messages";
constexpr UINT kReminder = WM_APP;

template <class Map, class Key>
typename Map::mapped_type found(const Map& map, const Key& key) {
  const auto place = map.find(key);
  return place == map.end() ? nullptr : place->second;
}

}  // namespace

PeerRegistry::PeerRegistry(HINSTANCE instance)
    : instance_(instance), pictures_(instance), measure_dpi_(system_dpi()) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = procedure;
  kind.hInstance = instance;
  kind.lpszClassName = kMessagesClass;
  RegisterClassExW(&kind);  // a second registry finds it there
  messages_ = CreateWindowExW(0, kMessagesClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              instance, nullptr);
  SetWindowLongPtrW(messages_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

PeerRegistry::~PeerRegistry() {
  SetWindowLongPtrW(messages_, GWLP_USERDATA, 0);
  DestroyWindow(messages_);
}

LRESULT CALLBACK PeerRegistry::procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  auto* const registry = reinterpret_cast<PeerRegistry*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!registry || (message != WM_TIMER && message != kReminder)) {
    return DefWindowProcW(window, message, w, l);
  }
  return guarded([&]() -> LRESULT {
    if (message == WM_TIMER) {
      registry->tick(w);
    } else {
      registry->flush();
    }
    return 0;
  });
}

void PeerRegistry::enter(WindowPeer& window) {
  windows_[window.handle()] = &window;
}
void PeerRegistry::leave(WindowPeer& window) {
  take_balloons_of(window.handle());
  windows_.erase(window.handle());
}
void PeerRegistry::enter(ControlPeer& control) {
  controls_[control.handle()] = &control;
}

void PeerRegistry::leave(ControlPeer& control) {
  take_balloons_of(control.handle());
  controls_.erase(control.handle());
  marked_.erase(std::remove(marked_.begin(), marked_.end(), &control), marked_.end());
}

void PeerRegistry::leave(BalloonPeer& balloon) {
  balloons_.erase(std::remove(balloons_.begin(), balloons_.end(), &balloon), balloons_.end());
}

void PeerRegistry::take_balloons_of(HWND parent) {
  const auto balloons = balloons_;
  for (BalloonPeer* const each : balloons) each->parent_left(parent);
}

WindowPeer* PeerRegistry::window(const ui::Window& window) const {
  for (const auto& [handle, peer] : windows_) {
    if (&peer->window() == &window) return peer;
  }
  return nullptr;
}

WindowPeer* PeerRegistry::window(HWND handle) const {
  return found(windows_, handle);
}
ControlPeer* PeerRegistry::control(HWND handle) const {
  return found(controls_, handle);
}
ControlPeer* PeerRegistry::control(const ui::Control& control) const {
  for (const auto& [handle, peer] : controls_) {
    if (&peer->control() == &control) return peer;
  }
  return nullptr;
}
TextBoxPeer* PeerRegistry::text_box(const ui::TextBox& box) const {
  return found(text_boxes_, &box);
}

void PeerRegistry::mark(ControlPeer& control) {
  marked_.push_back(&control);
  if (reminded_) return;
  reminded_ = PostMessageW(messages_, kReminder, 0, 0) != FALSE;
}

void PeerRegistry::flush() {
  reminded_ = false;
  while (!marked_.empty()) {
    ControlPeer* const control = marked_.front();
    marked_.pop_front();
    control->flush();
  }
}

UINT_PTR PeerRegistry::enter(TimerPeer& timer) {
  timers_[++last_timer_] = &timer;
  return last_timer_;
}

void PeerRegistry::leave(UINT_PTR timer) {
  stop(timer);
  timers_.erase(timer);
}

void PeerRegistry::start(UINT_PTR timer, UINT milliseconds) {
  SetTimer(messages_, timer, milliseconds, nullptr);
}

void PeerRegistry::stop(UINT_PTR timer) {
  KillTimer(messages_, timer);
}

void PeerRegistry::tick(UINT_PTR timer) {
  if (ended_) return;
  // A tick may still be on its way when its timer is stopped or gone.
  if (TimerPeer* const peer = found(timers_, timer)) peer->tick();
}

void PeerRegistry::end() {
  ended_ = true;
  const auto windows = windows_;
  for (const auto& [handle, peer] : windows) ShowWindow(handle, SW_HIDE);
}

}  // namespace ordelan::win32
