#include "win32/control_frame.h"

#include <algorithm>

#include "win32/screen_scale.h"

namespace ordelan::win32 {

RECT ControlFrame::inside_line(RECT area) {
  InflateRect(&area, -1, -1);
  return area;
}

RECT ControlFrame::inside(RECT area, int dpi) const {
  area = inside_line(area);
  InflateRect(&area, -to_pixels(side_air_, dpi), -to_pixels(top_air_, dpi));
  // A control without room has no inside either.
  area.right = std::max(area.left, area.right);
  area.bottom = std::max(area.top, area.bottom);
  return area;
}

void ControlFrame::paint(HWND control, bool focused, ui::Color ground, DrawingTools& tools) const {
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
  const RECT within = inside_line(area);
  FillRect(context, &within, tools.brush(ground));
  FrameRect(context, &area, tools.brush(line(focused)));
  ReleaseDC(control, context);
}

}  // namespace ordelan::win32
