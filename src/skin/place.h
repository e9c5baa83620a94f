// Where the controls of a window stand. The look of a window is data, not code.
#pragma once

#include <span>
#include <string_view>

namespace ordelan::skin {

// The edges of its window to which a control keeps its distance when the window is resized: with
// two opposite ones it grows with the window, with neither of them it stays in the middle.
inline constexpr unsigned kLeft = 1;
inline constexpr unsigned kTop = 2;
inline constexpr unsigned kRight = 4;
inline constexpr unsigned kBottom = 8;
inline constexpr unsigned kTopLeft = kTop | kLeft;
inline constexpr unsigned kTopRight = kTop | kRight;
inline constexpr unsigned kBottomLeft = kBottom | kLeft;
inline constexpr unsigned kBottomRight = kBottom | kRight;
inline constexpr unsigned kAcross = kTop | kLeft | kRight;
inline constexpr unsigned kAllEdges = kTop | kLeft | kRight | kBottom;

// In pixels at 96 dots per inch, of the window in the size of its layout.
struct Place {
  std::string_view name;
  int index;  // in a control array; -1 for a control that stands alone
  int left;
  int top;
  int width;
  int height;
  unsigned edges = kTopLeft;
};

struct Layout {
  int width;  // of the window, without borders
  int height;
  std::span<const Place> places;  // in the order in which Tab goes through them
};

}  // namespace ordelan::skin
