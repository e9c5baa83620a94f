// A message of the mouse, as the toolkit reports it.
#pragma once

#include <windows.h>

#include "ui/mouse.h"

namespace ordelan::win32 {

// What a mouse message says, its place in units of the layout. A press or release gives its one
// button, a move those that are held.
ui::Mouse mouse_of(UINT message, WPARAM w, LPARAM l, int dpi);

// Whether the pointer is over the window, with nothing above it.
bool pointer_is_on(HWND window);

}  // namespace ordelan::win32
