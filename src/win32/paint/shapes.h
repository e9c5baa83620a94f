// Smooth shapes, of which the controls that we paint are made.
#pragma once

#include <windows.h>

#include <span>

#include "ui/geometry.h"

namespace ordelan::win32 {

struct Line {
  ui::Color color{};
  int width = 1;  // in pixels
  bool operator==(const Line&) const = default;
};

// The edge of a rectangle alone, inside of it.
void square_edge(HDC context, RECT area, HBRUSH brush, int width);

// A rectangle with round corners, filled and with its edge inside of it. `radius` in pixels.
void rounded_box(HDC context, const RECT& area, int radius, ui::Color fill, const Line& edge);

// The edge of such a box alone, in dashes.
void dashed_box(HDC context, const RECT& area, int radius, const Line& edge);

// A line through the points, with round ends and corners. Whole numbers lie between the pixels.
void stroke(HDC context, std::span<const POINT> points, const Line& line);

}  // namespace ordelan::win32
