#include "ui/balloon.h"

#include "ui/backend.h"
#include "ui/control.h"
#include "ui/window.h"

namespace ordelan::ui {

Class1::~Class1() = default;

void Class1::Create(Window& parent) {
  create(parent, nullptr);
}

void Class1::Create(Control& parent) {
  create(parent.window(), &parent);
}

void Class1::create(Window& window, Control* control) {
  Destroy();
  if (!window.loaded()) return;
  exists_ = true;
  peer_ = window.backend().attach(*this, window, control);
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
