#include "ui/slider.h"

#include <algorithm>
#include <utility>

#include "ui/backend.h"
#include "ui/raise_event.h"
#include "ui/slider_scale.h"
#include "ui/window.h"

namespace ordelan::ui {
namespace {

using Properties = SliderProperties;

constexpr int kPlainThumb = 11;  // the length of a thumb without a picture

template <class Visit>
void for_each_property(const Visit& visit) {
  visit("PictureBack", &Properties::picture_back);
  visit("PictureProgress", &Properties::picture_progress);
  visit("Bar", &Properties::bar);
  visit("BarOver", &Properties::bar_over);
  visit("BarDown", &Properties::bar_down);
  visit("MouseIcon", &Properties::mouse_icon);
  visit("BackColor", &Properties::back_color);
  visit("Min", &Properties::min);
  visit("Max", &Properties::max);
  visit("LargeChange", &Properties::large_change);
  visit("Value", &Properties::value);
  visit("Position", &Properties::position);
}

bool is_nothing(Size size) {
  return size.width <= 0 || size.height <= 0;
}

// As std::clamp, but the ends may have been set in the wrong order.
std::int32_t in_range(std::int64_t value, const Properties& properties) {
  const auto at_most = std::min<std::int64_t>(value, properties.max);
  return static_cast<std::int32_t>(std::max<std::int64_t>(at_most, properties.min));
}

}  // namespace

Slider::Slider(Window& window, std::string name, int index)
    : Control(window, std::move(name), index),
      hover_(
          window, [this] { return pointer_is_on_it && pointer_is_on_it(); },
          [this] { pointer_left(); }) {}

// The peer goes while the slider is whole.
Slider::~Slider() {
  Slider::detach();
}

void Slider::attach(Backend& backend) {
  peer_ = backend.attach(*this);
  ResetPictures();
}

void Slider::detach() {
  hover_.forget();
  pointer_is_on_it = nullptr;
  dragging_ = pressed_ = paged_ = false;
  look_ = ThumbLook::normal;
  Control::detach();
}

template <class T>
void Slider::set(std::string_view name, T SliderProperties::*property, T value) {
  properties_.*property = std::move(value);
  changed_.emplace(name);
}

void Slider::set_picture(std::string_view name, std::string SliderProperties::*property,
                         std::string picture) {
  set(name, property, std::move(picture));
  ResetPictures();
}

void Slider::set_picture_back(std::string picture) {
  set_picture("PictureBack", &Properties::picture_back, std::move(picture));
}
void Slider::set_picture_progress(std::string picture) {
  set_picture("PictureProgress", &Properties::picture_progress, std::move(picture));
}
void Slider::set_bar(std::string picture) {
  set_picture("Bar", &Properties::bar, std::move(picture));
}
void Slider::set_bar_over(std::string picture) {
  set_picture("BarOver", &Properties::bar_over, std::move(picture));
}
void Slider::set_bar_down(std::string picture) {
  set_picture("BarDown", &Properties::bar_down, std::move(picture));
}
void Slider::set_mouse_icon(std::string picture) {
  set("MouseIcon", &Properties::mouse_icon, std::move(picture));
  redraw();
}
void Slider::set_slider_color(Color color) {
  set_back_color(color);
  set("BackColor", &Properties::back_color, color);
  redraw();
}
void Slider::set_large_change(std::int16_t change) {
  set("LargeChange", &Properties::large_change, change);
  redraw();
}

void Slider::set_max(std::int32_t wanted) {
  const bool other_end = wanted != max();
  if (value() > wanted) properties_.value = wanted;
  set("Max", &Properties::max, wanted);
  end_written(other_end);
}

void Slider::set_min(std::int32_t wanted) {
  const bool other_end = wanted != min();
  if (value() < wanted) properties_.value = wanted;
  set("Min", &Properties::min, wanted);
  end_written(other_end);
}

// The same end is written many times a second while something plays. What the user has chosen is
// rounded, and would be placed elsewhere; on an upright track it may even lie beyond the end.
void Slider::end_written(bool other_end) {
  const auto shown = value_under_thumb();
  if (!other_end && shown && (*shown == value() || in_range(*shown, properties_) == value())) {
    redraw();
  } else {
    redraw_from_value();
  }
}

void Slider::set_value(std::int32_t value) {
  if (value < min() || value > max() || pressed_) return;
  set("Value", &Properties::value, value);
  redraw_from_value();
}

void Slider::set_position(std::int32_t position) {
  set("Position", &Properties::position, position);
  size_to_track();
  ResetPictures();
}

void Slider::size_to_track() {
  const Size track = size_of(properties_.picture_back);
  if (!is_nothing(track)) set_bounds({bounds().left, bounds().top, track.width, track.height});
}

void Slider::save(PropertyBag& bag) {
  const Properties standard;
  for_each_property([&](std::string_view name, auto property) {
    bag.write(name, properties_.*property, standard.*property);
  });
  changed_.clear();
}

void Slider::load(const PropertyBag& bag) {
  const Properties standard;
  for_each_property([&](std::string_view name, auto property) {
    properties_.*property = bag.read(name, standard.*property);
  });
  properties_.value = in_range(properties_.value, properties_);
  changed_.clear();
  set_back_color(properties_.back_color);
  size_to_track();
  ResetPictures();
}

void Slider::ResetPictures() {
  const Size whole{bounds().width, bounds().height};
  track_ = size_of(properties_.picture_back);
  if (is_nothing(track_)) track_ = whole;
  thumb_ = size_of(properties_.bar);
  if (is_nothing(thumb_)) {
    thumb_ = vertical() ? Size{track_.width, kPlainThumb} : Size{kPlainThumb, track_.height};
  }
  redraw_from_value();
}

Size Slider::size_of(const std::string& picture) const {
  if (picture.empty()) return {};
  return window().backend().picture_size(picture).value_or(Size{});
}

int Slider::thumb_length() const {
  return vertical() ? thumb_.height : thumb_.width;
}
int Slider::room() const {
  return (vertical() ? track_.height : track_.width) - thumb_length();
}
// A thumb that is longer than its track stays at its beginning.
int Slider::on_the_track(int offset) const {
  return std::max(0, std::min(offset, room()));
}

void Slider::place_thumb() {
  const auto offset = thumb_offset(value(), min(), max(), room());
  if (offset) bar_pos_ = on_the_track(vertical() ? room() - *offset : *offset);
}

// A thumb that the user holds is not moved by other changes.
void Slider::redraw_from_value() {
  if (!pressed_) place_thumb();
  redraw();
}

const std::string& Slider::thumb_picture() const {
  const std::string& wanted = look_ == ThumbLook::down   ? properties_.bar_down
                              : look_ == ThumbLook::over ? properties_.bar_over
                                                         : properties_.bar;
  return wanted.empty() ? properties_.bar : wanted;
}

Rect Slider::track_place() const {
  return {0, 0, track_.width, track_.height};
}
Rect Slider::fill_place() const {
  if (!vertical()) return {0, 0, bar_pos_, track_.height};
  const int top = bar_pos_ + thumb_.height;
  return {0, top, track_.width, std::max(0, track_.height - top)};
}
Rect Slider::thumb_place() const {
  if (!vertical()) {
    return {bar_pos_, (track_.height - thumb_.height) / 2, thumb_.width, thumb_.height};
  }
  return {(track_.width - thumb_.width) / 2, bar_pos_, thumb_.width, thumb_.height};
}

void Slider::mouse_down(const Mouse& mouse) {
  if (!enabled()) return;
  if (mouse.button == kLeftButton) press(mouse.at);
  raise_event(on_mouse_down, mouse);
}

void Slider::press(Point place) {
  const Rect thumb = thumb_place();
  const bool on_thumb = place.x >= thumb.left && place.x < thumb.left + thumb.width &&
                        place.y >= thumb.top && place.y < thumb.top + thumb.height;
  pressed_ = true;
  if (on_thumb) {
    dragging_ = true;
    look_ = ThumbLook::down;
    grip_ = along(place) - bar_pos_;
  } else if (properties_.large_change != 0) {
    page((along(place) < bar_pos_) == vertical());
  } else {
    bar_pos_ = along(place) - thumb_length() / 2;
  }
  bar_pos_ = on_the_track(bar_pos_);
  redraw();
}

void Slider::page(bool forward) {
  if (min() == max()) return;
  const int change = properties_.large_change;
  take(std::int64_t{value()} + (forward ? change : -change));
  place_thumb();
  paged_ = true;
}

void Slider::mouse_move(const Mouse& mouse) {
  if (!enabled()) return;
  const bool inside = mouse.at.x >= 0 && mouse.at.x <= bounds().width && mouse.at.y >= 0 &&
                      mouse.at.y <= bounds().height;
  if (inside && !over()) {
    hover_.enter();
    if (!dragging_) look_ = ThumbLook::over;
    redraw();
  }
  if (dragging_) {
    bar_pos_ = on_the_track(along(mouse.at) - grip_);
    const bool has_value = take_value();
    redraw();
    const auto here = alive();
    if (has_value) raise_event(on_change, value());
    if (here.expired()) return;
  }
  raise_event(on_mouse_move, mouse);
}

void Slider::mouse_up(const Mouse& mouse) {
  if (!enabled()) {
    press_lost();
    return;
  }
  if (mouse.button == kLeftButton && pressed_) {
    const auto here = alive();
    // A page has its value already: to read it from the thumb again would lose what is smaller than
    // a pixel, and the next page would come no further.
    if (!dragging_ && (paged_ || take_value())) raise_event(on_change, value());
    if (here.expired()) return;
    press_lost();
  }
  raise_event(on_mouse_up, mouse);
}

void Slider::press_lost() {
  if (!pressed_) return;
  dragging_ = pressed_ = paged_ = false;
  look_ = ThumbLook::normal;
  redraw();
}

bool Slider::key(int code) {
  constexpr int kPageUp = 0x21;
  constexpr int kPageDown = 0x22;
  constexpr int kEnd = 0x23;
  constexpr int kHome = 0x24;
  constexpr int kLeft = 0x25;
  constexpr int kUp = 0x26;
  constexpr int kRight = 0x27;
  constexpr int kDown = 0x28;
  constexpr std::int64_t kPages = 10;
  const std::int64_t range = std::int64_t{max()} - min();
  const std::int64_t large = properties_.large_change;
  const std::int64_t page = large != 0 ? large : std::max<std::int64_t>(1, range / kPages);
  std::int64_t wanted = value();
  switch (code) {
    case kRight:
    case kUp:
      wanted += 1;
      break;
    case kLeft:
    case kDown:
      wanted -= 1;
      break;
    case kPageUp:
      wanted += page;
      break;
    case kPageDown:
      wanted -= page;
      break;
    case kHome:
      wanted = min();
      break;
    case kEnd:
      wanted = max();
      break;
    default:
      return false;
  }
  choose(wanted);
  return true;
}

void Slider::choose(std::int64_t wanted) {
  if (!enabled() || pressed_ || in_range(wanted, properties_) == value()) return;
  take(wanted);
  redraw_from_value();
  raise_event(on_change, value());
}

std::optional<std::int32_t> Slider::value_under_thumb() const {
  const auto chosen = value_at(bar_pos_, room(), min(), max());
  return chosen && vertical() ? inverted(*chosen, min(), max()) : chosen;
}

bool Slider::take_value() {
  const auto chosen = value_under_thumb();
  if (chosen) set("Value", &Properties::value, *chosen);
  return chosen.has_value();
}

void Slider::take(std::int64_t wanted) {
  set("Value", &Properties::value, in_range(wanted, properties_));
}

void Slider::pointer_left() {
  if (!dragging_) look_ = ThumbLook::normal;
  redraw();
}

}  // namespace ordelan::ui
