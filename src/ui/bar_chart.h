// Bars side by side, each with a mark at the height that it has lately reached.
#pragma once

#include <vector>

#include "ui/control.h"

namespace ordelan::ui {

// Heights from 0 to 1 of the chart's own.
struct Bar {
  double level = 0;
  double peak = 0;  // of the mark; none is shown at 0
  friend bool operator==(const Bar&, const Bar&) = default;
};

// Screen readers get its description only: bars change too often to be read out.
class BarChart : public Control {
 public:
  using Control::Control;
  void attach(Backend& backend) override;

  // From the left; they share the chart's width. Heights beyond the ends become the ends, and what
  // is no number becomes 0. Meant to be called 30 times a second: a backend paints only what looks
  // different.
  const std::vector<Bar>& bars() const { return bars_; }
  void set_bars(std::vector<Bar> bars);

 private:
  std::vector<Bar> bars_;
};

}  // namespace ordelan::ui
