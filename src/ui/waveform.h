// The waveform of a sound from its beginning on the left to its end on the right, and how much of
// it is played.
#pragma once

#include <functional>
#include <vector>

#include "ui/control.h"

namespace ordelan::ui {

// The lowest and the highest of the sound at a place, from -1 at the foot to 1 at the top.
struct WaveColumn {
  double low = 0;
  double high = 0;
  friend bool operator==(const WaveColumn&, const WaveColumn&) = default;
};

// Screen readers get its description only.
class Waveform : public Control {
 public:
  using Control::Control;
  void attach(Backend& backend) override;

  // From the left; they share the width. Values beyond the ends become the ends, and what is no
  // number becomes 0. Without columns nothing is shown, the cursor neither.
  const std::vector<WaveColumn>& columns() const { return columns_; }
  void set_columns(std::vector<WaveColumn> columns);

  // Where the playing is, from 0 to 1; -1 where there is no such place, also for anything below 0
  // and for what is no number. Meant to be called with every tick: a backend paints only what looks
  // different.
  double cursor() const { return cursor_; }
  void set_cursor(double place);

  // The user has clicked there, in the control's own units. Without a receiver a press is one of
  // the window's background.
  std::function<void(Point)> on_press;

 private:
  std::vector<WaveColumn> columns_;
  double cursor_ = -1;
};

}  // namespace ordelan::ui
