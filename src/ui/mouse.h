// What the mouse does to a control.
#pragma once

#include "ui/geometry.h"

namespace ordelan::ui {

// The buttons of the mouse, as events report them. A move reports all that are held, added up.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 4;

// The keys that are held with it, added up.
inline constexpr int kShiftKey = 1;
inline constexpr int kControlKey = 2;
inline constexpr int kAltKey = 4;

struct Mouse {
  Point at;  // in the control's own units
  int button = 0;
  int shift = 0;

  // A handler may ask for the place alone.
  operator Point() const { return at; }
  friend bool operator==(const Mouse&, const Mouse&) = default;
};

}  // namespace ordelan::ui
