#include "win32/paint/tick_box.h"

#include "win32/paint/drawing_tools.h"
#include "win32/paint/screen_scale.h"
#include "win32/paint/shapes.h"

namespace ordelan::win32 {
namespace {

// At 96 dots per inch.
constexpr int kRadius = 3;
constexpr int kTick = 2;

}  // namespace

void tick_box(HDC context, const RECT& area, const TickBox& box, int dpi) {
  const ui::Palette& colors = palette();
  const ui::Color accent = box.enabled ? colors.accent : colors.text_off;
  const ui::Color edge = box.ticked || box.lit ? accent : colors.text_dim;
  const ui::Color fill = box.ticked ? accent : colors.surface;
  rounded_box(context, area, to_pixels(kRadius, dpi), fill, {edge, line_width(dpi)});
  if (!box.ticked) return;
  const int side = area.right - area.left;
  const auto at = [&](int x, int y) {
    return POINT{area.left + MulDiv(side, x, kTickBox), area.top + MulDiv(side, y, kTickBox)};
  };
  const POINT tick[] = {at(4, 8), at(7, 11), at(12, 5)};
  stroke(context, tick, {colors.ground, to_pixels(kTick, dpi)});
}

}  // namespace ordelan::win32
