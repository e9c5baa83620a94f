// A thumb on a track, by which the user chooses a value. The slider decides where the thumb stands
// and which events are raised; its peer feeds it the mouse and paints the result.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "ui/control.h"
#include "ui/hover.h"
#include "ui/mouse.h"
#include "ui/property_bag.h"

namespace ordelan::ui {

// With their defaults. Pictures are named; an empty name is no picture.
struct SliderProperties {
  std::string picture_back;      // the track
  std::string picture_progress;  // what fills it up to the thumb
  std::string bar;               // the thumb, and its looks under the pointer and when it is held
  std::string bar_over;
  std::string bar_down;
  std::string mouse_icon;
  Color back_color = Color::button_face;
  std::int32_t min = 0;
  std::int32_t max = 100;
  std::int16_t large_change = 0;  // how far a press beside the thumb goes; 0 goes there
  std::int32_t value = 0;
  std::int32_t position = 0;  // 0 stands upright, anything else lies
};

enum class ThumbLook { normal, over, down };

class Slider : public Control {
 public:
  Slider(Window& window, std::string name, int index = -1);
  ~Slider() override;
  void attach(Backend& backend) override;
  void detach() override;

  // The properties. Each setter stores the value, counts the property as changed and draws the
  // slider anew.
  const SliderProperties& properties() const { return properties_; }
  void set_picture_back(std::string picture);
  void set_picture_progress(std::string picture);
  void set_bar(std::string picture);
  void set_bar_over(std::string picture);
  void set_bar_down(std::string picture);
  void set_mouse_icon(std::string picture);
  void set_slider_color(Color color);  // the ground: `back_color` follows it
  void set_large_change(std::int16_t change);

  std::int32_t min() const { return properties_.min; }
  std::int32_t max() const { return properties_.max; }
  std::int32_t value() const { return properties_.value; }
  // A value that the new end leaves outside becomes that end. An end that is written as it is
  // leaves the thumb where the user has put it.
  void set_min(std::int32_t wanted);
  void set_max(std::int32_t wanted);
  // Raises no Change: only the user does. Does nothing with a value out of the range, or
  // while the user holds the slider.
  void set_value(std::int32_t value);
  bool vertical() const { return properties_.position == 0; }
  // Turns the slider, and makes it as large as its track's picture.
  void set_position(std::int32_t position);

  // As for Button.
  const std::set<std::string, std::less<>>& changed_properties() const { return changed_; }
  void save(PropertyBag& bag);
  // Makes the slider as large as its track's picture too.
  void load(const PropertyBag& bag);

  // Measures the pictures anew and puts the thumb where the value is.
  void ResetPictures();

  // The thumb's offset along the track: from the left, or from the top of one that stands upright.
  int bar_pos() const { return bar_pos_; }
  bool dragging() const { return dragging_; }  // the thumb is held
  bool pressed() const { return pressed_; }    // the user's press is under way
  bool over() const { return hover_.over(); }

  // What is to be painted, in the slider's units. All looks of the thumb are as large as its first.
  ThumbLook thumb_look() const { return look_; }
  // The picture of that look; that of the normal one where it has none; empty for a plain thumb.
  const std::string& thumb_picture() const;
  Rect track_place() const;
  Rect fill_place() const;
  Rect thumb_place() const;

  // What the user does, fed by the peer, as for Button.
  void mouse_down(const Mouse& mouse);
  void mouse_move(const Mouse& mouse);
  void mouse_up(const Mouse& mouse);
  void press_lost();
  // A key, by the system's virtual key code: right and up go one on, left and down one back, the
  // pages by LargeChange or a tenth of the range, home and end to its ends. Raises Change where the
  // value has moved. False for keys that mean nothing here. A handler may destroy the slider.
  bool key(int code);
  // What a user chooses by neither, but through a program that reads the screen, say: the nearest
  // value within the range. Raises Change where the value has moved; does nothing while the slider
  // is held or not enabled. A handler may destroy the slider.
  void choose(std::int64_t wanted);

  // Set by the peer: whether the pointer is on the slider, asked every 10 ms while it may be.
  std::function<bool()> pointer_is_on_it;

  // The user has moved the value.
  std::function<void(std::int32_t value)> on_change;
  std::function<void(const Mouse&)> on_mouse_down;
  std::function<void(const Mouse&)> on_mouse_up;

 protected:
  void resized() override { ResetPictures(); }

 private:
  template <class T>
  void set(std::string_view name, T SliderProperties::*property, T value);
  void set_picture(std::string_view name, std::string SliderProperties::*property,
                   std::string picture);
  Size size_of(const std::string& picture) const;
  int along(Point place) const { return vertical() ? place.y : place.x; }
  int thumb_length() const;
  int room() const;
  int on_the_track(int offset) const;
  void redraw() { notify(Aspect::look); }
  void size_to_track();
  std::optional<std::int32_t> value_under_thumb() const;
  void end_written(bool other_end);
  void place_thumb();
  void redraw_from_value();
  void press(Point place);
  void page(bool forward);
  bool take_value();
  void take(std::int64_t value);
  void pointer_left();

  SliderProperties properties_;
  std::set<std::string, std::less<>> changed_;
  Hover hover_;
  Size track_;
  Size thumb_;
  ThumbLook look_ = ThumbLook::normal;
  int bar_pos_ = 0;
  int grip_ = 0;  // where on the thumb it is held
  bool dragging_ = false;
  bool pressed_ = false;
  bool paged_ = false;  // the press has moved the value itself, not the thumb
};

}  // namespace ordelan::ui
