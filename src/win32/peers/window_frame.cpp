#include "win32/peers/window_frame.h"

namespace ordelan::win32 {
namespace {

ui::Color frame_color(ui::Color ground) {
  const COLORREF color = color_of(ground);
  const auto darker = [](BYTE part) { return static_cast<std::uint8_t>(part * 5 / 8); };
  return ui::rgb(darker(GetRValue(color)), darker(GetGValue(color)), darker(GetBValue(color)));
}

}  // namespace

void paint_frame(HWND window, DrawingTools& tools, ui::Color ground) {
  const HDC context = GetWindowDC(window);
  if (!context) return;
  RECT area{};
  GetWindowRect(window, &area);
  OffsetRect(&area, -area.left, -area.top);
  FrameRect(context, &area, tools.brush(frame_color(ground)));
  ReleaseDC(window, context);
}

}  // namespace ordelan::win32
