// How far a long job has come.
#pragma once

#include <cstdint>

#include "ui/control.h"

namespace ordelan::ui {

class ProgressBar : public Control {
 public:
  using Control::Control;
  void attach(Backend& backend) override;

  std::int64_t minimum() const { return minimum_; }
  std::int64_t maximum() const { return maximum_; }
  std::int64_t value() const { return value_; }

  void set_range(std::int64_t minimum, std::int64_t maximum);
  // Any value is kept; what is shown stays inside the range.
  void set_value(std::int64_t value) { assign(value_, value, Aspect::value); }

 private:
  std::int64_t minimum_ = 0;
  std::int64_t maximum_ = 100;
  std::int64_t value_ = 0;
};

}  // namespace ordelan::ui
