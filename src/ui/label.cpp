#include "ui/label.h"

#include "ui/backend.h"
#include "ui/list_width.h"
#include "ui/window.h"

namespace ordelan::ui {

void Label::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

int Label::text_width() const {
  const std::int64_t pixels = MedirTexto(*this, caption());
  const std::int64_t dpi = window().backend().measure_dpi();
  return static_cast<int>(pixels * kTwipsPerInch / dpi);
}

}  // namespace ordelan::ui
