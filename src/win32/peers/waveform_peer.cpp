#include "win32/peers/waveform_peer.h"

#include "win32/paint/drawing_tools.h"
#include "win32/paint/screen_scale.h"
#include "win32/peers/handlers.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {

WaveformPeer::WaveformPeer(WindowPeer& parent, ui::Waveform& wave)
    : PaintedPeer(parent, wave), wave_(wave) {}

// One that is out of sight is drawn when it is painted next.
void WaveformPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::bounds)) repaint();
  if (!marks.has(ui::Aspect::value) || !IsWindowVisible(handle())) return;
  RECT area{};
  GetClientRect(handle(), &area);
  for (const RECT& part : redraw({area.right, area.bottom})) {
    InvalidateRect(handle(), &part, FALSE);
  }
}

void WaveformPeer::paint(HDC context, const RECT& area) {
  redraw({area.right, area.bottom});
  picture_.show(context);
}

void WaveformPeer::clicked(POINT place) {
  raise(wave_.on_press, ui::Point{to_units(place.x, dpi()), to_units(place.y, dpi())});
}

std::vector<RECT> WaveformPeer::redraw(SIZE size) {
  const ui::Palette& colors = palette();
  return picture_.draw(wave_.columns(), wave_.cursor(), size,
                       {.ground = wave_.back_color(),
                        .played = colors.accent,
                        .rest = colors.text_off,
                        .cursor = colors.text},
                       line_width(dpi()));
}

}  // namespace ordelan::win32
