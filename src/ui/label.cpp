#include "ui/label.h"

#include "ui/backend.h"

namespace ordelan::ui {

void Label::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

}  // namespace ordelan::ui
