#include "win32/shapes.h"

#include <vector>

#include "win32/gdi_plus.h"

namespace ordelan::win32 {
namespace {

// GDI+ for as long as the program runs: it must outlive everything that paints.
bool ready() {
  static const bool started = [] {
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    return Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok;
  }();
  return started;
}

Gdiplus::Color solid(COLORREF color) {
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

void trace_box(Gdiplus::GraphicsPath& path, const RECT& area, int radius) {
  const int round = 2 * radius;
  const int left = static_cast<int>(area.left);
  const int top = static_cast<int>(area.top);
  const int right = static_cast<int>(area.right) - 1;
  const int bottom = static_cast<int>(area.bottom) - 1;
  path.AddArc(left, top, round, round, 180, 90);
  path.AddArc(right - round, top, round, round, 270, 90);
  path.AddArc(right - round, bottom - round, round, round, 0, 90);
  path.AddArc(left, bottom - round, round, round, 90, 90);
  path.CloseFigure();
}

bool can_show(const RECT& area) {
  return ready() && area.right - area.left >= 2 && area.bottom - area.top >= 2;
}

}  // namespace

void rounded_box(HDC context, const RECT& area, int radius, COLORREF fill, COLORREF edge) {
  if (!can_show(area)) return;
  Gdiplus::Graphics graphics(context);
  graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  Gdiplus::GraphicsPath path;
  trace_box(path, area, radius);
  const Gdiplus::SolidBrush brush(solid(fill));
  graphics.FillPath(&brush, &path);
  const Gdiplus::Pen pen(solid(edge));
  graphics.DrawPath(&pen, &path);
}

void dashed_box(HDC context, const RECT& area, int radius, int width, COLORREF edge) {
  if (!can_show(area)) return;
  Gdiplus::Graphics graphics(context);
  graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  Gdiplus::GraphicsPath path;
  trace_box(path, area, radius);
  Gdiplus::Pen pen(solid(edge), static_cast<Gdiplus::REAL>(width));
  pen.SetDashStyle(Gdiplus::DashStyleDash);
  graphics.DrawPath(&pen, &path);
}

void stroke(HDC context, std::span<const POINT> points, int width, COLORREF color) {
  if (!ready() || points.size() < 2) return;
  Gdiplus::Graphics graphics(context);
  graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  Gdiplus::Pen pen(solid(color), static_cast<Gdiplus::REAL>(width));
  pen.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapRound);
  pen.SetLineJoin(Gdiplus::LineJoinRound);
  std::vector<Gdiplus::Point> line;
  for (const POINT& point : points) {
    line.emplace_back(static_cast<int>(point.x), static_cast<int>(point.y));
  }
  graphics.DrawLines(&pen, line.data(), static_cast<int>(line.size()));
}

}  // namespace ordelan::win32
