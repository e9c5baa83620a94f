#include "ui/button.h"

#include <utility>

#include "ui/backend.h"
#include "ui/raise_event.h"
#include "ui/window.h"

namespace ordelan::ui {
namespace {

using Properties = ButtonProperties;

// Runs `visit` for each property, with its name.
template <class Visit>
void for_each_property(const Visit& visit) {
  visit("Style", &Properties::style);
  visit("UseMaskColor", &Properties::use_mask_color);
  visit("PictureAlign", &Properties::picture_align);
  visit("PictureBack", &Properties::picture_back);
  visit("PictureNormal", &Properties::picture_normal);
  visit("PictureDisabled", &Properties::picture_disabled);
  visit("PictureDown", &Properties::picture_down);
  visit("PictureOver", &Properties::picture_over);
  visit("MouseIcon", &Properties::mouse_icon);
  visit("ButtonColor", &Properties::button_color);
  visit("Selected", &Properties::selected);
  visit("MaskColor", &Properties::mask_color);
  visit("MousePointer", &Properties::mouse_pointer);
}

}  // namespace

Button::Button(Window& window, std::string name, int index)
    : Captioned(window, std::move(name), index),
      hover_(
          window, [this] { return pointer_is_on_it && pointer_is_on_it(); },
          [this] { pointer_left(); }) {}

// The peer goes while the button is whole.
Button::~Button() {
  Button::detach();
}

void Button::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

void Button::detach() {
  hover_.forget();
  pointer_is_on_it = nullptr;
  down_ = false;
  Captioned::detach();
}

template <class T>
void Button::set(std::string_view name, T ButtonProperties::*property, T value) {
  properties_.*property = std::move(value);
  changed_.emplace(name);
  Refresh();
}

void Button::set_style(std::int16_t style) {
  set("Style", &Properties::style, style);
}
void Button::set_use_mask_color(bool use) {
  set("UseMaskColor", &Properties::use_mask_color, use);
}
void Button::set_picture_align(std::int16_t align) {
  set("PictureAlign", &Properties::picture_align, align);
}
void Button::set_picture_back(std::string picture) {
  set("PictureBack", &Properties::picture_back, std::move(picture));
}
void Button::set_picture_normal(std::string picture) {
  set("PictureNormal", &Properties::picture_normal, std::move(picture));
}
void Button::set_picture_disabled(std::string picture) {
  set("PictureDisabled", &Properties::picture_disabled, std::move(picture));
}
void Button::set_picture_down(std::string picture) {
  set("PictureDown", &Properties::picture_down, std::move(picture));
}
void Button::set_picture_over(std::string picture) {
  set("PictureOver", &Properties::picture_over, std::move(picture));
}
void Button::set_mouse_icon(std::string picture) {
  set("MouseIcon", &Properties::mouse_icon, std::move(picture));
}
void Button::set_button_color(Color color) {
  set_back_color(color);
  set("ButtonColor", &Properties::button_color, color);
}
void Button::set_selected(bool selected) {
  set("Selected", &Properties::selected, selected);
}
void Button::set_mask_color(Color color) {
  set("MaskColor", &Properties::mask_color, color);
}
void Button::set_mouse_pointer(std::int16_t pointer) {
  set("MousePointer", &Properties::mouse_pointer, pointer);
}

void Button::save(PropertyBag& bag) {
  const Properties standard;
  for_each_property([&](std::string_view name, auto property) {
    bag.write(name, properties_.*property, standard.*property);
  });
  changed_.clear();
}

void Button::load(const PropertyBag& bag) {
  const Properties standard;
  for_each_property([&](std::string_view name, auto property) {
    properties_.*property = bag.read(name, standard.*property);
  });
  changed_.clear();
  set_back_color(properties_.button_color);
  Refresh();
}

void Button::Refresh() {
  constexpr std::int16_t kPictures = 1;
  const bool pictures = properties_.style == kPictures;
  look_.picture = pictures ? chosen_picture(properties_, down_, over()) : std::string();
  look_.pressed = down_;
  look_.hovered = over();
  look_.selected = properties_.selected;
  notify(Aspect::look);
}

void Button::Reset() {
  properties_ = {};
  for_each_property([&](std::string_view name, auto) { changed_.emplace(name); });
  set_back_color(properties_.button_color);
  Refresh();
}

Point Button::placed(Size picture) const {
  return picture_place(properties_.picture_align, {bounds().width, bounds().height}, picture);
}

// Both edges count: a place on the last pixel may come out as the edge, in the layout's units.
bool Button::holds(Point place) const {
  return place.x >= 0 && place.x <= bounds().width && place.y >= 0 && place.y <= bounds().height;
}

void Button::mouse_down(const Mouse& mouse) {
  if (!enabled()) return;
  last_ = mouse;
  if (mouse.button != kRightButton) {
    down_ = true;
    Refresh();
  }
  raise_event(on_mouse_down, mouse);
}

void Button::mouse_move(const Mouse& mouse) {
  if (!enabled()) return;
  if (holds(mouse.at) && !over()) {
    const auto here = alive();
    hover_.enter();
    raise_event(on_mouse_in, mouse.button);
    if (here.expired()) return;
    Refresh();
  }
  raise_event(on_mouse_move, mouse);
}

void Button::mouse_up(const Mouse& mouse) {
  if (!enabled()) {
    press_lost();
    return;
  }
  down_ = false;
  if (mouse.button != kRightButton) {
    Refresh();
    const auto here = alive();
    if (holds(mouse.at)) raise_event(on_click);
    if (here.expired()) return;
  }
  raise_event(on_mouse_up, mouse);
}

void Button::double_click() {
  mouse_down(Mouse(last_));
}

void Button::press_by_key() {
  if (enabled()) raise_event(on_click);
}

void Button::press_lost() {
  if (!down_) return;
  down_ = false;
  Refresh();
}

void Button::pointer_left() {
  const auto here = alive();
  raise_event(on_mouse_out, last_.button);
  if (here.expired()) return;
  Refresh();
  if (!down_) return;
  down_ = false;
  Refresh();
  down_ = true;
}

}  // namespace ordelan::ui
