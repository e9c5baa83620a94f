// The thin line round a list or a box of text, in which its focus is seen.
#pragma once

#include <windows.h>

#include "win32/paint/drawing_tools.h"

namespace ordelan::win32 {

class ControlFrame {
 public:
  // Within the line there is air, in units of the layout, in the control's own colour.
  ControlFrame(int side_air, int top_air) : side_air_(side_air), top_air_(top_air) {}

  // The line's colour.
  static ui::Color line(bool focused) { return focused ? palette().accent : palette().line; }

  // From a control's whole area to what lies within the line, and within the air too.
  static RECT inside_line(RECT area, int dpi);
  RECT inside(RECT area, int dpi) const;

  // Paints everything of the control that is not its client area. `focused` is whether the control
  // has the focus, or is just getting it.
  static void paint(HWND control, bool focused, ui::Color ground, int dpi, DrawingTools& tools);

 private:
  int side_air_;
  int top_air_;
};

}  // namespace ordelan::win32
