// A push button, drawn from pictures or plain. It decides what it shows and which events it raises;
// its peer feeds it the mouse and paints the result.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "ui/button_look.h"
#include "ui/captioned.h"
#include "ui/hover.h"
#include "ui/mouse.h"
#include "ui/property_bag.h"

namespace ordelan::ui {

class Button : public Captioned {
 public:
  Button(Window& window, std::string name, int index = -1);
  ~Button() override;
  void attach(Backend& backend) override;
  void detach() override;

  // The properties. Each setter stores the value, counts the property as changed and draws the
  // button anew, also where the value is the old one.
  const ButtonProperties& properties() const { return properties_; }
  void set_style(std::int16_t style);
  void set_use_mask_color(bool use);
  void set_picture_align(std::int16_t align);
  void set_picture_back(std::string picture);
  void set_picture_normal(std::string picture);
  void set_picture_disabled(std::string picture);
  void set_picture_down(std::string picture);
  void set_picture_over(std::string picture);
  void set_mouse_icon(std::string picture);
  void set_button_color(Color color);  // the ground too: `back_color` follows it
  void set_selected(bool selected);
  void set_mask_color(Color color);
  void set_mouse_pointer(std::int16_t pointer);

  // The names of the properties that were set since they were last loaded or saved.
  const std::set<std::string, std::less<>>& changed_properties() const { return changed_; }
  // Writes all properties; those at their default are not stored.
  void save(PropertyBag& bag);
  // Reads all properties, and draws the button once. What the bag does not hold gets its default.
  void load(const PropertyBag& bag);

  // Draws the button as it is now: takes down the look, and lets the peer paint it.
  void Refresh();
  // Back to the default look: all properties get their defaults. What the mouse does goes on.
  void Reset();

  bool down() const { return down_; }          // held by a button of the mouse but the right one
  bool over() const { return hover_.over(); }  // the pointer is on it

  // What is to be painted: the button as it was when it was last drawn. That is not always as it
  // is: one that is held shows nothing of it while the pointer is elsewhere.
  const ButtonLook& look() const { return look_; }
  const std::string& picture_to_show() const { return look_.picture; }
  // Where a picture of this size stands, in the button's units.
  Point placed(Size picture) const;

  // What the user does, fed by the peer. A release is passed on only after a press that was
  // passed on. A handler may destroy the button: nothing of it may be touched afterwards. A button
  // that is not enabled takes nothing.
  void mouse_down(const Mouse& mouse);
  void mouse_move(const Mouse& mouse);
  void mouse_up(const Mouse& mouse);
  // A quick second press, with the button and at the place of the first. The peer keeps the mouse
  // for the button, as it does for a first press.
  void double_click();
  // The key that presses buttons.
  void press_by_key();
  // Something else took the mouse capture in the middle of a press: no event reports it.
  void press_lost();

  // Asked every 10 ms while the pointer is over the button. The peer sets it; without it the
  // pointer counts as gone.
  std::function<bool()> pointer_is_on_it;

  // The events, beside `on_click` and `on_mouse_move`. In and out carry the button of the mouse:
  // the ones held when the pointer came, and the one pressed last when it went.
  std::function<void(const Mouse&)> on_mouse_down;
  std::function<void(const Mouse&)> on_mouse_up;
  std::function<void(int button)> on_mouse_in;
  std::function<void(int button)> on_mouse_out;

 protected:
  void resized() override { Refresh(); }

 private:
  template <class T>
  void set(std::string_view name, T ButtonProperties::*property, T value);
  void pointer_left();
  bool holds(Point place) const;

  ButtonProperties properties_;
  std::set<std::string, std::less<>> changed_;
  Hover hover_;
  bool down_ = false;
  Mouse last_;  // the last press
  ButtonLook look_;
};

}  // namespace ordelan::ui
