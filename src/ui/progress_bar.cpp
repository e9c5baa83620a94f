#include "ui/progress_bar.h"

#include "ui/backend.h"

namespace ordelan::ui {

void ProgressBar::attach(Backend& backend) { peer_ = backend.attach(*this); }

void ProgressBar::set_range(std::int64_t minimum, std::int64_t maximum) {
  assign(minimum_, minimum, Aspect::value);
  assign(maximum_, maximum, Aspect::value);
}

}  // namespace ordelan::ui
