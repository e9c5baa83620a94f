#include "win32/peers/progress_bar_peer.h"

#include <commctrl.h>

#include <utility>

#include "win32/paint/screen_scale.h"
#include "win32/paint/shapes.h"

namespace ordelan::win32 {
namespace {

constexpr int kRadius = 4;  // at 96 dots per inch

}  // namespace

int progress_steps(std::int64_t minimum, std::int64_t maximum, std::int64_t value) {
  if (maximum <= minimum || value <= minimum) return 0;
  if (value >= maximum) return kProgressSteps;
  // The differences may be too wide for 64 bits; a fraction need not be exact.
  const double whole = static_cast<double>(maximum) - static_cast<double>(minimum);
  const double done = static_cast<double>(value) - static_cast<double>(minimum);
  return static_cast<int>(done / whole * kProgressSteps);
}

ProgressBarPeer::ProgressBarPeer(WindowPeer& parent, ui::ProgressBar& bar)
    : DressedPeer(parent, bar, PROGRESS_CLASSW, 0), bar_(bar) {}

int ProgressBarPeer::percent() const {
  constexpr int kWhole = 100;
  return progress_steps(bar_.minimum(), bar_.maximum(), bar_.value()) / (kProgressSteps / kWhole);
}

std::optional<Face> ProgressBarPeer::face() const {
  return Face{.role = ROLE_SYSTEM_PROGRESSBAR,
              .name = text(),
              .value = std::to_wstring(percent()) + L"%",
              .state = STATE_SYSTEM_READONLY};
}

void ProgressBarPeer::report(const Marks& marks) {
  if (!marks.has(ui::Aspect::value) || std::exchange(reported_, percent()) == percent()) return;
  NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, handle(), OBJID_CLIENT, CHILDID_SELF);
}

void ProgressBarPeer::update(const Marks& marks) {
  if (!marks.has(ui::Aspect::value)) return;
  send(PBM_SETRANGE32, 0, kProgressSteps);
  send(PBM_SETPOS,
       static_cast<WPARAM>(progress_steps(bar_.minimum(), bar_.maximum(), bar_.value())));
  repaint();
}

void ProgressBarPeer::paint(HDC context, const RECT& area) {
  DrawingTools& tools = registry().tools();
  FillRect(context, &area, tools.brush(bar_.back_color()));
  const int radius = to_pixels(kRadius, dpi());
  const int line = line_width(dpi());
  rounded_box(context, area, radius, palette().surface, {palette().line, line});
  RECT done = area;
  InflateRect(&done, -2 * line, -2 * line);
  const int steps = progress_steps(bar_.minimum(), bar_.maximum(), bar_.value());
  done.right = done.left + MulDiv(done.right - done.left, steps, kProgressSteps);
  // Less than its round ends would not be a bar.
  if (done.right - done.left >= 2 * radius) {
    rounded_box(context, done, radius - line, palette().accent, {palette().accent, line});
  } else if (steps > 0) {
    FillRect(context, &done, tools.brush(palette().accent));
  }
}

}  // namespace ordelan::win32
