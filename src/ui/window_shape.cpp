#include "ui/window_shape.h"

#include <cstdint>

#include "ui/window.h"

namespace ordelan::ui {
namespace {

// Pixels have red in their high byte, colour words have it in their low one.
std::uint32_t pixel_of(Color color) {
  const auto word = static_cast<std::uint32_t>(color);
  return ((word & 0xFF) << 16) | (word & 0xFF00) | ((word >> 16) & 0xFF);
}

}  // namespace

std::vector<PixelRun> runs_without(const Pixels& picture, Color mask) {
  constexpr std::uint32_t kColorBits = 0xFFFFFF;
  std::vector<PixelRun> runs;
  if (picture.width <= 0 || picture.height <= 0) return runs;
  const auto width = static_cast<std::uint64_t>(picture.width);
  if (picture.argb.size() != width * static_cast<std::uint64_t>(picture.height)) return runs;
  const std::uint32_t hole = pixel_of(mask);
  const std::uint32_t* row = picture.argb.data();
  for (int y = 0; y < picture.height; ++y, row += width) {
    const auto is_hole = [&](int x) { return (row[x] & kColorBits) == hole; };
    for (int x = 0; x < picture.width;) {
      const int left = x;
      while (x < picture.width && !is_hole(x)) ++x;
      if (x > left) runs.push_back({y, left, x});
      while (x < picture.width && is_hole(x)) ++x;
    }
  }
  return runs;
}

void AplicarForma(Window& Ventana, const std::string& Picture, Color ColorMascara) {
  Ventana.set_shape({Picture, ColorMascara});
}

}  // namespace ordelan::ui
