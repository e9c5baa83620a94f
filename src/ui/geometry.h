// Places and looks, in the units that windows are laid out in: pixels at 96 dots per inch. A
// backend scales them to the screen.
#pragma once

#include <cstdint>

namespace ordelan::ui {

inline constexpr int kUnitsPerInch = 96;

// A finer unit, for what moves slowly: a fifteenth of a pixel at 96 dots per inch.
inline constexpr int kTwipsPerUnit = 15;
inline constexpr int kTwipsPerInch = kUnitsPerInch * kTwipsPerUnit;

struct Point {
  int x = 0;
  int y = 0;
  friend bool operator==(Point, Point) = default;
};

struct Size {
  int width = 0;
  int height = 0;
  friend bool operator==(Size, Size) = default;
};

struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

// A colour word: 0xBBGGRR, or 0x80000000 plus the number of a system colour.
enum class Color : std::uint32_t {
  window_background = 0x80000005,
  window_text = 0x80000008,
  highlight = 0x8000000D,
  highlight_text = 0x8000000E,
  button_face = 0x8000000F,
  button_shadow = 0x80000010,
  gray_text = 0x80000011,
  button_text = 0x80000012,
  button_light = 0x80000014,
};

constexpr Color rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  return static_cast<Color>((std::uint32_t{blue} << 16) | (std::uint32_t{green} << 8) | red);
}

// The interface's one typeface, in points.
struct Font {
  int points = 9;
  bool bold = false;
  friend bool operator==(const Font&, const Font&) = default;
};

}  // namespace ordelan::ui
