#include "ui/control.h"

#include <utility>

#include "ui/window.h"

namespace ordelan::ui {

Control::Control(Window& window, std::string name, int index)
    : window_(window), name_(std::move(name)), index_(index) {
  window_.add(*this);
}

Control::Control(Inside, Window& window, std::string name)
    : window_(window), name_(std::move(name)), index_(-1) {}

Control::~Control() {
  window_.remove(*this);
}

void Control::set_visible(bool visible) {
  assign(visible_, visible, Aspect::visible);
}
void Control::set_enabled(bool enabled) {
  assign(enabled_, enabled, Aspect::enabled);
}
void Control::set_bounds(const Rect& bounds) {
  const bool other_size = bounds.width != bounds_.width || bounds.height != bounds_.height;
  assign(bounds_, bounds, Aspect::bounds);
  if (other_size) resized();
}
void Control::set_back_color(Color color) {
  assign(back_color_, color, Aspect::colors);
}
void Control::set_fore_color(Color color) {
  assign(fore_color_, color, Aspect::colors);
}
void Control::set_font(const Font& font) {
  assign(font_, font, Aspect::font);
}
void Control::set_tip(std::string tip) {
  assign(tip_, std::move(tip), Aspect::tip);
}

void Control::set_description(std::string description) {
  assign(description_, std::move(description), Aspect::text);
}

void Control::detach() {
  alive_ = std::make_shared<char>();
  peer_.reset();
}

void Control::bring_to_front() {
  notify(Aspect::order);
}

}  // namespace ordelan::ui
