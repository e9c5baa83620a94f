// The box that can be ticked, as all controls show it.
#pragma once

#include <windows.h>

namespace ordelan::win32 {

inline constexpr int kTickBox = 16;  // its side at 96 dots per inch

struct TickBox {
  bool ticked = false;
  bool enabled = true;
  bool lit = false;  // the pointer is on it, or the keyboard's focus
};

// Paints it into `area`, a square, on whatever is there.
void tick_box(HDC context, const RECT& area, const TickBox& box, int dpi);

}  // namespace ordelan::win32
