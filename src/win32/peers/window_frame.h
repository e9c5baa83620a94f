// The line round a window that has no frame of the system's.
#pragma once

#include <windows.h>

#include "win32/paint/drawing_tools.h"

namespace ordelan::win32 {

// Paints the line, a darker shade of the window's ground, where the system keeps room for it.
void paint_frame(HWND window, DrawingTools& tools, ui::Color ground);

}  // namespace ordelan::win32
