// Smooth shapes, of which the controls that we paint are made.
#pragma once

#include <windows.h>

#include <span>

namespace ordelan::win32 {

// A rectangle with round corners, filled and with a thin edge inside of it. `radius` in pixels.
void rounded_box(HDC context, const RECT& area, int radius, COLORREF fill, COLORREF edge);

// The edge of such a rectangle alone, in dashes.
void dashed_box(HDC context, const RECT& area, int radius, int width, COLORREF edge);

// A line through the points, with round ends and corners.
void stroke(HDC context, std::span<const POINT> points, int width, COLORREF color);

}  // namespace ordelan::win32
