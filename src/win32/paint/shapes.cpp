#include "win32/paint/shapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "win32/paint/drawing_tools.h"

namespace ordelan::win32 {
namespace {

// A colour with its parts from 0 to 255, each already multiplied by the opacity, which is one too.
struct Paint {
  float red = 0;
  float green = 0;
  float blue = 0;
  float opacity = 0;
};

Paint operator*(const Paint& paint, float part) {
  return {paint.red * part, paint.green * part, paint.blue * part, paint.opacity * part};
}
Paint operator+(const Paint& a, const Paint& b) {
  return {a.red + b.red, a.green + b.green, a.blue + b.blue, a.opacity + b.opacity};
}

Paint opaque(ui::Color color) {
  const COLORREF plain = color_of(color);
  return {static_cast<float>(GetRValue(plain)), static_cast<float>(GetGValue(plain)),
          static_cast<float>(GetBValue(plain)), 255};
}

std::uint32_t byte_of(float part) {
  return static_cast<std::uint32_t>(part + 0.5F);
}

// How much of a pixel a shape covers whose edge is that far from the pixel's middle. Within the
// shape, distances are below zero.
float covered(float distance) {
  return std::clamp(0.5F - distance, 0.0F, 1.0F);
}

// Paints `paint(x, y)` over every pixel of the area: of the pixels' middles, from its corner.
template <class PaintAt>
void paint_each(HDC context, const RECT& area, const PaintAt& paint) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return;
  BITMAPINFO format{};
  format.bmiHeader = {sizeof format.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(context, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (!bitmap) return;
  auto* pixel = static_cast<std::uint32_t*>(bits);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const Paint there = paint(static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F);
      *pixel++ = (byte_of(there.opacity) << 24) | (byte_of(there.red) << 16) |
                 (byte_of(there.green) << 8) | byte_of(there.blue);
    }
  }
  const HDC memory = CreateCompatibleDC(context);
  const HGDIOBJ old = SelectObject(memory, bitmap);
  GdiAlphaBlend(context, area.left, area.top, width, height, memory, 0, 0, width, height,
                {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
  SelectObject(memory, old);
  DeleteDC(memory);
  DeleteObject(bitmap);
}

// A rectangle with round corners that fills its area.
class RoundBox {
 public:
  RoundBox(const RECT& area, int radius)
      : half_width_(static_cast<float>(area.right - area.left) / 2),
        half_height_(static_cast<float>(area.bottom - area.top) / 2),
        radius_(std::min({static_cast<float>(radius), half_width_, half_height_})) {}

  // From its edge to a point of the area, below zero within.
  float distance(float x, float y) const {
    const float past_x = std::abs(x - half_width_) - (half_width_ - radius_);
    const float past_y = std::abs(y - half_height_) - (half_height_ - radius_);
    const float outside = std::hypot(std::max(past_x, 0.0F), std::max(past_y, 0.0F));
    return outside + std::min(std::max(past_x, past_y), 0.0F) - radius_;
  }

  // How much of a point on the edge is drawn of a row of dashes: the corners are whole, and the
  // sides between them hold as many dashes as fit, evenly.
  float dash(float x, float y, float dash, float gap) const {
    const float side_x = half_width_ - radius_;
    const float side_y = half_height_ - radius_;
    const float from_x = std::abs(x - half_width_);
    const float from_y = std::abs(y - half_height_);
    if (from_x > side_x && from_y > side_y) return 1;
    const bool lies = from_y - side_y > from_x - side_x;
    const float length = 2 * (lies ? side_x : side_y);
    const float along = lies ? x - radius_ : y - radius_;
    const float count = std::max(1.0F, std::round(length / (dash + gap)));
    const float period = length / count;
    const float place = std::fmod(along, period);
    return covered(std::abs(place - period / 2) - (period - gap) / 2);
  }

 private:
  float half_width_;
  float half_height_;
  float radius_;
};

// From the line between two points to a third.
float distance_to_line(POINT from, POINT to, float x, float y) {
  const auto along_x = static_cast<float>(to.x - from.x);
  const auto along_y = static_cast<float>(to.y - from.y);
  const float away_x = x - static_cast<float>(from.x);
  const float away_y = y - static_cast<float>(from.y);
  const float length = along_x * along_x + along_y * along_y;
  const float part =
      length > 0 ? std::clamp((away_x * along_x + away_y * along_y) / length, 0.0F, 1.0F) : 0.0F;
  return std::hypot(away_x - part * along_x, away_y - part * along_y);
}

}  // namespace

void square_edge(HDC context, RECT area, HBRUSH brush, int width) {
  for (int i = 0; i < width; ++i) {
    FrameRect(context, &area, brush);
    InflateRect(&area, -1, -1);
  }
}

void rounded_box(HDC context, const RECT& area, int radius, ui::Color fill, const Line& edge) {
  const RoundBox box(area, radius);
  const Paint inside = opaque(fill);
  const Paint line = opaque(edge.color);
  const auto width = static_cast<float>(edge.width);
  paint_each(context, area, [&](float x, float y) {
    const float distance = box.distance(x, y);
    const float within = covered(distance + width);
    return inside * within + line * (covered(distance) - within);
  });
}

void dashed_box(HDC context, const RECT& area, int radius, const Line& edge) {
  constexpr float kDash = 3;  // in widths of the line
  constexpr float kGap = 2;
  const RoundBox box(area, radius);
  const Paint line = opaque(edge.color);
  const auto width = static_cast<float>(edge.width);
  paint_each(context, area, [&](float x, float y) {
    const float distance = box.distance(x, y);
    const float on_edge = covered(distance) - covered(distance + width);
    return on_edge > 0 ? line * (on_edge * box.dash(x, y, kDash * width, kGap * width)) : Paint();
  });
}

void stroke(HDC context, std::span<const POINT> points, const Line& line) {
  if (points.size() < 2) return;
  const auto [left, right] = std::minmax_element(
      points.begin(), points.end(), [](const POINT& a, const POINT& b) { return a.x < b.x; });
  const auto [top, bottom] = std::minmax_element(
      points.begin(), points.end(), [](const POINT& a, const POINT& b) { return a.y < b.y; });
  RECT area{left->x, top->y, right->x, bottom->y};
  InflateRect(&area, line.width, line.width);
  const Paint color = opaque(line.color);
  const float half = static_cast<float>(line.width) / 2;
  paint_each(context, area, [&](float x, float y) {
    x += static_cast<float>(area.left);
    y += static_cast<float>(area.top);
    float nearest = distance_to_line(points[0], points[1], x, y);
    for (std::size_t i = 2; i < points.size(); ++i) {
      nearest = std::min(nearest, distance_to_line(points[i - 1], points[i], x, y));
    }
    return color * covered(nearest - half);
  });
}

}  // namespace ordelan::win32
