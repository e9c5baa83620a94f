#include "work/arrange.h"

#include <vector>

namespace ordelan::work {

void arrange(ui::Window& window, std::span<const skin::Place> layout) {
  std::vector<ui::Control*> order;
  for (const skin::Place& place : layout) {
    for (ui::Control* control : window.controls()) {
      if (control->name() != place.name || control->index() != place.index) continue;
      control->set_bounds({place.left, place.top, place.width, place.height});
      order.push_back(control);
    }
  }
  window.set_order(order);
}

}  // namespace ordelan::work
