// Whether the pointer is over a control that looks different then. The system reports when
// the pointer comes but not when it has gone, so the pointer is polled while it is over the
// control.
#pragma once

#include <functional>

#include "ui/timer.h"

namespace ordelan::ui {

class Hover {
 public:
  // `pointer_is_on_it` is asked every 10 ms while the pointer is over the control; after the first
  // no `on_leave` runs, once. `window` is the control's. The owner detaches the hover with itself.
  Hover(Window& window, std::function<bool()> pointer_is_on_it, std::function<void()> on_leave);

  bool over() const { return over_; }

  // The pointer has come: it is watched from here on.
  void enter();
  // Stops watching: the pointer counts as gone, and no event is raised.
  void forget();

  const Timer& timer() const { return over_timer_; }

 private:
  void tick();

  std::function<bool()> pointer_is_on_it_;
  std::function<void()> on_leave_;
  Timer over_timer_;
  bool over_ = false;
};

}  // namespace ordelan::ui
