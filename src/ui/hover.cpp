#include "ui/hover.h"

#include <utility>

#include "ui/raise_event.h"
#include "ui/window.h"

namespace ordelan::ui {
namespace {

constexpr Timer::Interval kInterval{10};

}  // namespace

Hover::Hover(Window& window, std::function<bool()> pointer_is_on_it, std::function<void()> on_leave)
    : pointer_is_on_it_(std::move(pointer_is_on_it)),
      on_leave_(std::move(on_leave)),
      over_timer_(Control::Inside{}, window, "OverTimer", kInterval) {
  over_timer_.on_tick = [this] { tick(); };
}

void Hover::enter() {
  over_ = true;
  // Most controls are never pointed at: the timer's peer is made when one is.
  Window& window = over_timer_.window();
  if (window.loaded()) over_timer_.attach(window.backend());
  over_timer_.start();
}

void Hover::forget() {
  over_ = false;
  over_timer_.stop();
  over_timer_.detach();
}

void Hover::tick() {
  if (pointer_is_on_it_()) return;
  over_timer_.stop();
  over_ = false;
  raise_event(on_leave_);
}

}  // namespace ordelan::ui
