// Windows that are not rectangles: a picture says which of their pixels exist.
#pragma once

#include <windows.h>

#include "ui/image.h"

namespace ordelan::win32 {

// Whether a library of the system's has a function. `library` is named without path, "user32"; a
// missing one has none.
bool ExisteFuncion(const char* library, const char* name);

// The part of the picture that is not the mask: every pixel whose colour differs from it, by
// however little. Opacity is ignored. A picture of nothing but the mask gives an empty region. The
// caller owns the region; null when the system has no room for it.
HRGN CrearRegion(const ui::Pixels& picture, ui::Color mask);

enum class ShapeRoad {
  keyed,   // the window is painted as a rectangle, and what has the mask's colour is not shown
  region,  // the window is cut to a region
};

// The road that a system offers: the first, unless it lacks the function for it.
ShapeRoad best_road(bool (*exists)(const char* library, const char* name) = ExisteFuncion);

// Gives the window the shape of the picture, whose top left corner lies in that of the room for its
// controls. What is masked is not shown, and takes no clicks. By the keyed road the window has to
// paint the mask where it is not to be, and may paint it elsewhere for further holes. False when
// the system refuses, and by the other road without a picture; the window is as it was then.
bool AplicarForma(HWND window, const ui::Pixels& picture, ui::Color mask,
                  ShapeRoad road = best_road());

// Makes the window a rectangle again, whichever call gave it a shape. One without is not touched.
void end_shape(HWND window);

}  // namespace ordelan::win32
