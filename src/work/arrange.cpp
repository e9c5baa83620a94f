#include "work/arrange.h"

#include <algorithm>
#include <vector>

namespace ordelan::work {
namespace {

// One direction: the offset and the length, after the window has grown by `growth`.
void move(int& offset, int& length, bool near_edge, bool far_edge, int growth) {
  if (near_edge && far_edge) {
    length = std::max(0, length + growth);
  } else if (far_edge) {
    offset += growth;
  } else if (!near_edge) {
    offset += growth / 2;
  }
}

template <class Visit>
void each_control(ui::Window& window, const skin::Layout& layout, Visit&& visit) {
  for (const skin::Place& place : layout.places) {
    for (ui::Control* control : window.controls()) {
      if (control->name() == place.name && control->index() == place.index) visit(*control, place);
    }
  }
}

}  // namespace

ui::Rect anchored(const skin::Place& place, ui::Size layout, ui::Size window) {
  ui::Rect bounds{place.left, place.top, place.width, place.height};
  move(bounds.left, bounds.width, (place.edges & skin::kLeft) != 0,
       (place.edges & skin::kRight) != 0, window.width - layout.width);
  move(bounds.top, bounds.height, (place.edges & skin::kTop) != 0,
       (place.edges & skin::kBottom) != 0, window.height - layout.height);
  return bounds;
}

void arrange(ui::Window& window, const skin::Layout& layout) {
  each_control(window, layout, [&](ui::Control& control, const skin::Place& place) {
    control.set_bounds(anchored(place, {layout.width, layout.height}, window.size()));
  });
}

void order(ui::Window& window, const skin::Layout& layout) {
  std::vector<ui::Control*> controls;
  each_control(window, layout,
               [&](ui::Control& control, const skin::Place&) { controls.push_back(&control); });
  window.set_order(controls);
}

}  // namespace ordelan::work
