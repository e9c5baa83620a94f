#include "work/arrange.h"

namespace ordelan::work {

void arrange(ui::Window& window, std::span<const skin::Place> layout) {
  for (ui::Control* control : window.controls()) {
    for (const skin::Place& place : layout) {
      if (control->name() != place.name || control->index() != place.index) continue;
      control->set_bounds({place.left, place.top, place.width, place.height});
    }
  }
}

}  // namespace ordelan::work
