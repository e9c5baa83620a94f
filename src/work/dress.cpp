#include "work/dress.h"

#include <cstdint>

#include "skin/look.h"
#include "ui/button.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/property_bag.h"
#include "ui/slider.h"
#include "ui/window_shape.h"

namespace ordelan::work {
namespace {

// Read once: every window is dressed from it.
const ui::PropertyBags& look() {
  static const ui::PropertyBags bags = ui::PropertyBags::parse(skin::all_looks());
  return bags;
}

void dress_control(ui::Control& control, const ui::PropertyBag& bag) {
  if (auto* const button = dynamic_cast<ui::Button*>(&control)) button->load(bag);
  if (auto* const slider = dynamic_cast<ui::Slider*>(&control)) slider->load(bag);
  if (auto* const image = dynamic_cast<ui::Image*>(&control)) {
    image->set_picture(bag.read("Picture", image->picture()));
  }
  if (auto* const label = dynamic_cast<ui::Label*>(&control)) {
    label->set_picture(bag.read("Picture", label->picture()));
  }
  control.set_fore_color(bag.read("ForeColor", control.fore_color()));
  control.set_back_color(bag.read("BackColor", control.back_color()));
  const auto points = bag.read("FontSize", static_cast<std::int32_t>(control.font().points));
  control.set_font({.points = points, .bold = bag.read("FontBold", control.font().bold)});
}

}  // namespace

void dress(ui::Window& window) {
  const ui::PropertyBag& own = look().bag(window.name(), window.name());
  window.set_back_color(own.read("BackColor", window.back_color()));
  window.set_background(own.read("Picture", window.background()));
  window.size_to_background();
  if (own.has("MaskColor")) {
    ui::AplicarForma(window, window.background(), own.read("MaskColor", ui::Color{0}));
  }
  for (ui::Control* const control : window.controls()) {
    const ui::PropertyBag& bag = look().bag(*control);
    if (!bag.empty()) dress_control(*control, bag);
  }
}

}  // namespace ordelan::work
