// The colours in which the windows are painted.
#pragma once

#include "ui/geometry.h"

namespace ordelan::ui {

// The defaults are the system's own colours.
struct Palette {
  Color ground = Color::button_face;         // what everything stands on
  Color surface = Color::window_background;  // lists and text boxes
  Color raised = Color::button_face;         // buttons, as they are, under the pointer, pressed
  Color raised_over = Color::button_light;
  Color raised_down = Color::button_shadow;
  Color line = Color::button_shadow;  // edges
  Color text = Color::button_text;
  Color text_over = Color::button_text;  // under the pointer
  Color text_dim = Color::button_text;
  Color text_off = Color::gray_text;  // what cannot be used now
  Color accent = Color::highlight;    // ticks, progress, the focus
  Color loud = Color::highlight;      // the top of a full chart
  Color chosen = Color::highlight;    // the ground of a chosen row, and its text
  Color chosen_text = Color::highlight_text;
};

}  // namespace ordelan::ui
