// The bar that shows the volume in several windows, each with a foot and a scale of its own.
#pragma once

#include <cmath>
#include <cstdint>

#include "ui/image.h"

namespace ordelan::audio {

// Makes the bar `step` units high for each step of the level, 0 to 100, growing upwards from
// `foot`.
inline void raise_bar(ui::Image& bar, int foot, double step, std::int32_t Level) {
  ui::Rect place = bar.bounds();
  place.height = static_cast<int>(std::lround(step * Level));
  place.top = foot - place.height;
  bar.set_bounds(place);
}

}  // namespace ordelan::audio
