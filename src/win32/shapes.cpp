#include "win32/shapes.h"

#include <vector>

#include "win32/drawing_tools.h"
#include "win32/gdi_plus.h"

namespace ordelan::win32 {
namespace {

Gdiplus::Color solid(ui::Color color) {
  const COLORREF plain = color_of(color);
  return {GetRValue(plain), GetGValue(plain), GetBValue(plain)};
}

Gdiplus::REAL real(LONG pixels) {
  return static_cast<Gdiplus::REAL>(pixels);
}

// The way of a pen of this width along the inside of the area. A pen of one pixel goes through the
// pixels' middles, which have whole numbers here.
void trace_box(Gdiplus::GraphicsPath& path, const RECT& area, int radius, int width) {
  const Gdiplus::REAL inset = real(width - 1) / 2;
  const Gdiplus::REAL round = 2 * real(radius);
  const Gdiplus::REAL left = real(area.left) + inset;
  const Gdiplus::REAL top = real(area.top) + inset;
  const Gdiplus::REAL right = real(area.right - 1) - inset;
  const Gdiplus::REAL bottom = real(area.bottom - 1) - inset;
  path.AddArc(left, top, round, round, 180, 90);
  path.AddArc(right - round, top, round, round, 270, 90);
  path.AddArc(right - round, bottom - round, round, round, 0, 90);
  path.AddArc(left, bottom - round, round, round, 90, 90);
  path.CloseFigure();
}

bool can_show(const RECT& area) {
  return gdi_plus_started() && area.right - area.left >= 2 && area.bottom - area.top >= 2;
}

}  // namespace

void square_edge(HDC context, RECT area, HBRUSH brush, int width) {
  for (int i = 0; i < width; ++i) {
    FrameRect(context, &area, brush);
    InflateRect(&area, -1, -1);
  }
}

void rounded_box(HDC context, const RECT& area, int radius, ui::Color fill, const Line& edge) {
  if (!can_show(area)) return;
  Gdiplus::Graphics graphics(context);
  graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  Gdiplus::GraphicsPath path;
  trace_box(path, area, radius, edge.width);
  const Gdiplus::SolidBrush brush(solid(fill));
  graphics.FillPath(&brush, &path);
  const Gdiplus::Pen pen(solid(edge.color), real(edge.width));
  graphics.DrawPath(&pen, &path);
}

void dashed_box(HDC context, const RECT& area, int radius, const Line& edge) {
  if (!can_show(area)) return;
  Gdiplus::Graphics graphics(context);
  graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  Gdiplus::GraphicsPath path;
  trace_box(path, area, radius, edge.width);
  Gdiplus::Pen pen(solid(edge.color), real(edge.width));
  pen.SetDashStyle(Gdiplus::DashStyleDash);
  graphics.DrawPath(&pen, &path);
}

void stroke(HDC context, std::span<const POINT> points, const Line& line) {
  if (!gdi_plus_started() || points.size() < 2) return;
  Gdiplus::Graphics graphics(context);
  graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  Gdiplus::Pen pen(solid(line.color), real(line.width));
  pen.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapRound);
  pen.SetLineJoin(Gdiplus::LineJoinRound);
  std::vector<Gdiplus::Point> way;
  for (const POINT& point : points) {
    way.emplace_back(static_cast<int>(point.x), static_cast<int>(point.y));
  }
  graphics.DrawLines(&pen, way.data(), static_cast<int>(way.size()));
}

}  // namespace ordelan::win32
