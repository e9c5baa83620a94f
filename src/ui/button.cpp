#include "ui/button.h"

#include "ui/backend.h"

namespace ordelan::ui {

void Button::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

}  // namespace ordelan::ui
