#include "ui/image.h"

#include "ui/backend.h"

namespace ordelan::ui {

void Image::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

}  // namespace ordelan::ui
