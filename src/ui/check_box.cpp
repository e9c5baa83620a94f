#include "ui/check_box.h"

#include "ui/backend.h"

namespace ordelan::ui {

void CheckBox::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

void CheckBox::toggle() {
  set_checked(!checked_);
  if (on_click) on_click();
}

}  // namespace ordelan::ui
