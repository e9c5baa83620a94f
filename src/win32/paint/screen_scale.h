// From the units that windows are laid out in (pixels at 96 dots per inch) to a screen's pixels.
#pragma once

#include <windows.h>

#include "ui/geometry.h"

namespace ordelan::win32 {

using ui::kUnitsPerInch;

// Rounded to the nearest, at any sign.
int to_pixels(int units, int dpi);
int to_units(int pixels, int dpi);
int twips_to_pixels(int twips, int dpi);

// How broad the thin lines are, in pixels: always whole ones, so that they are sharp.
int line_width(int dpi);

// Edges are scaled, not sizes: what touches in the layout touches on the screen.
RECT to_pixels(const ui::Rect& units, int dpi);

// The density that a window is shown at, and that of the main screen.
int dpi_of(HWND window);
int system_dpi();

// Grows a rectangle for controls by the borders that a window of this style has at this density.
void add_borders(RECT& area, DWORD style, DWORD extended_style, int dpi);

}  // namespace ordelan::win32
