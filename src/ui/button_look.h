// How a button looks: its properties, and which picture of them is shown where.
#pragma once

#include <cstdint>
#include <string>

#include "ui/geometry.h"

namespace ordelan::ui {

// With their defaults. Pictures are named; an empty name is no picture.
struct ButtonProperties {
  std::int16_t style = 0;  // 1 draws pictures, anything else leaves the button plain
  bool use_mask_color = false;
  std::int16_t picture_align = 0;  // see `picture_place`
  std::string picture_back;
  std::string picture_normal;
  std::string picture_disabled;
  std::string picture_down;
  std::string picture_over;
  std::string mouse_icon;
  Color button_color = Color::button_face;
  bool selected = false;
  Color mask_color = Color::button_face;
  std::int16_t mouse_pointer = 0;
};

// What a button showed when it was last drawn.
struct ButtonLook {
  std::string picture;  // to be painted at `Button::placed`; empty for none
  bool pressed = false;
  bool hovered = false;
  bool selected = false;
  friend bool operator==(const ButtonLook&, const ButtonLook&) = default;
};

// The picture of a button in this state, whatever its style. A picture that is not set is replaced
// by the normal one; empty when there is none either. Being pressed goes before being selected, and
// a selected button takes no notice of the pointer.
const std::string& chosen_picture(const ButtonProperties& properties, bool down, bool over);

// Where the top left corner of a picture comes to stand in a control, by the number of its
// alignment: 1 at the top, 2 at the bottom, 3 at the left, 4 at the right, any other in the middle.
// A picture may be larger than the control: halves are cut toward zero on both sides of it.
Point picture_place(std::int16_t picture_align, Size control, Size picture);

}  // namespace ordelan::ui
