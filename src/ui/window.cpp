#include "ui/window.h"

#include <algorithm>
#include <utility>

namespace ordelan::ui {

Window::Window(Backend& backend, std::string name) : backend_(backend), name_(std::move(name)) {}

Window::~Window() = default;

void Window::load() {
  if (loaded_) return;
  loaded_ = true;
  peer_ = backend_.attach(*this);
  for (Control* control : controls_) control->attach(backend_);
  if (on_load) on_load();
}

void Window::unload() {
  if (!loaded_) return;
  if (on_unload) on_unload();
  loaded_ = false;
  visible_ = false;
  for (Control* control : controls_) control->detach();
  peer_.reset();
}

void Window::set_order(const std::vector<Control*>& order) {
  const auto place = [&](const Control* control) {
    return std::find(order.begin(), order.end(), control) - order.begin();
  };
  std::stable_sort(controls_.begin(), controls_.end(),
                   [&](const Control* a, const Control* b) { return place(a) < place(b); });
}

void Window::set_title(std::string title) {
  assign(title_, std::move(title), Aspect::text);
}
void Window::set_visible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  notify(Aspect::visible);
  if (on_visible) on_visible();
}
void Window::show_quietly() {
  shows_quietly_ = true;
  show();
  shows_quietly_ = false;
}
void Window::set_position(Point position) {
  assign(position_, position, Aspect::bounds);
}
void Window::set_size(Size size) {
  if (size_ == size) return;
  size_ = size;
  // The controls first: they are then painted once, in their new places.
  if (on_resize) on_resize();
  notify(Aspect::bounds);
}
void Window::resized_to(Size size) {
  if (size_ == size) return;
  size_ = size;
  if (on_resize) on_resize();
}
void Window::set_back_color(Color color) {
  assign(back_color_, color, Aspect::colors);
}
void Window::set_background(std::string picture) {
  assign(background_, std::move(picture), Aspect::colors);
}
void Window::size_to_background() {
  if (const auto size = backend_.picture_size(background_)) set_size(*size);
}
void Window::set_topmost(bool topmost) {
  assign(topmost_, topmost, Aspect::order);
}
void Window::set_minimized(bool minimized) {
  assign(minimized_, minimized, Aspect::state);
}
void Window::set_waiting(bool waiting) {
  assign(waiting_, waiting, Aspect::state);
}

void Window::set_shape(Shape shape) {
  assign(shape_, std::move(shape), Aspect::shape);
}

void Window::add(Control& control) {
  // A control made at run time in a window that is up already. Its constructor is still running,
  // so its owner attaches it (see ControlArray::load).
  controls_.push_back(&control);
}

void Window::remove(Control& control) {
  controls_.erase(std::remove(controls_.begin(), controls_.end(), &control), controls_.end());
}

}  // namespace ordelan::ui
