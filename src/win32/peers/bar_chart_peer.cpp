#include "win32/peers/bar_chart_peer.h"

#include "win32/paint/drawing_tools.h"
#include "win32/paint/screen_scale.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {

BarChartPeer::BarChartPeer(WindowPeer& parent, ui::BarChart& chart)
    : PaintedPeer(parent, chart, false, WS_CLIPCHILDREN), chart_(chart) {}

BarChartPeer::~BarChartPeer() {
  registry().charts().leave(handle());
}

void BarChartPeer::appear() {
  PaintedPeer::appear();
  reported_size_ = size();
  registry().charts().enter(handle());
}

// One that is out of sight is drawn when it is painted next.
void BarChartPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::bounds)) {
    const SIZE now = size();
    if (now.cx != reported_size_.cx || now.cy != reported_size_.cy) {
      reported_size_ = now;
      repaint();
      registry().charts().sized(handle());
    }
  }
  if (!marks.has(ui::Aspect::value) || !IsWindowVisible(handle())) return;
  for (const RECT& column : redraw(size())) InvalidateRect(handle(), &column, FALSE);
}

void BarChartPeer::paint(HDC context, const RECT& area) {
  redraw({area.right, area.bottom});
  picture_.show(context);
}

std::vector<RECT> BarChartPeer::redraw(SIZE size) {
  const ui::Palette& colors = palette();
  return picture_.draw(chart_.bars(), size,
                       {.ground = chart_.back_color(),
                        .grid = colors.line,
                        .low = colors.chosen,
                        .middle = colors.accent,
                        .high = colors.loud,
                        .peak = colors.text_dim},
                       line_width(dpi()));
}

SIZE BarChartPeer::size() const {
  RECT area{};
  GetClientRect(handle(), &area);
  return {area.right, area.bottom};
}

}  // namespace ordelan::win32
