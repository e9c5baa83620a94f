#include "ui/progress_bar.h"

#include "ui/backend.h"

namespace ordelan::ui {

void ProgressBar::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

void ProgressBar::set_range(std::int64_t minimum, std::int64_t maximum) {
  if (minimum == minimum_ && maximum == maximum_) return;
  minimum_ = minimum;
  maximum_ = maximum;
  notify(Aspect::value);  // once, as a peer must never see the new end with the old one
}

}  // namespace ordelan::ui
