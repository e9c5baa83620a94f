#include "win32/peers/control_frame.h"

#include <algorithm>

#include "win32/paint/screen_scale.h"

namespace ordelan::win32 {

RECT ControlFrame::inside_line(RECT area, int dpi) {
  InflateRect(&area, -line_width(dpi), -line_width(dpi));
  return area;
}

RECT ControlFrame::inside(RECT area, int dpi) const {
  area = inside_line(area, dpi);
  InflateRect(&area, -to_pixels(side_air_, dpi), -to_pixels(top_air_, dpi));
  // A control without room has no inside either.
  area.right = std::max(area.left, area.right);
  area.bottom = std::max(area.top, area.bottom);
  return area;
}

void ControlFrame::paint(HWND control, bool focused, ui::Color ground, int dpi,
                         DrawingTools& tools) {
  const HDC context = GetWindowDC(control);
  if (!context) return;
  RECT area{};
  GetWindowRect(control, &area);
  RECT client{};
  GetClientRect(control, &client);
  MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&client), 2);
  OffsetRect(&client, -area.left, -area.top);
  OffsetRect(&area, -area.left, -area.top);
  ExcludeClipRect(context, client.left, client.top, client.right, client.bottom);
  const RECT within = inside_line(area, dpi);
  FillRect(context, &within, tools.brush(ground));
  ExcludeClipRect(context, within.left, within.top, within.right, within.bottom);
  FillRect(context, &area, tools.brush(line(focused)));
  ReleaseDC(control, context);
}

}  // namespace ordelan::win32
