// The backend's counterpart of a control, which shows it.
#pragma once

namespace ordelan::ui {

// What has changed about a control. The peer reads the new state from the control itself.
enum class Aspect {
  text,
  visible,
  enabled,
  bounds,
  colors,
  font,
  tip,
  rows,
  current_row,
  top,  // the first row of a list that is in sight
  extent,
  value,
  interval,
  order,
  state,
  look,   // a control that is drawn from pictures is to be drawn anew
  shape,  // the outline of a window
};

class Peer {
 public:
  virtual ~Peer() = default;

  // Called after each change, any number of times in a row; a peer may wait with the showing until
  // the next pump.
  virtual void changed(Aspect aspect) = 0;
};

}  // namespace ordelan::ui
