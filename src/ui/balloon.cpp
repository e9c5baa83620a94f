#include "ui/balloon.h"

#include "ui/backend.h"
#include "ui/control.h"
#include "ui/window.h"

namespace ordelan::ui {

Class1::~Class1() = default;

void Class1::Create(Window& parent) {
  Destroy();
  if (!parent.loaded()) return;
  exists_ = true;
  peer_ = parent.backend().attach(*this, parent);
}

void Class1::Show(int x, int y, const Control& over) {
  Show(over.bounds().left + x, over.bounds().top + y, over.window());
}

void Class1::Show(int x, int y, const Window& over) {
  if (!exists_) return;
  shown_ = Place{&over, {x, y}};
  notify(Aspect::visible);
}

void Class1::Destroy() {
  peer_.reset();
  shown_.reset();
  exists_ = false;
}

}  // namespace ordelan::ui
