#include "win32/progress_bar_peer.h"

#include <commctrl.h>

namespace ordelan::win32 {

int progress_steps(std::int64_t minimum, std::int64_t maximum, std::int64_t value) {
  if (maximum <= minimum || value <= minimum) return 0;
  if (value >= maximum) return kProgressSteps;
  // The differences may be too wide for 64 bits; a fraction need not be exact.
  const double whole = static_cast<double>(maximum) - static_cast<double>(minimum);
  const double done = static_cast<double>(value) - static_cast<double>(minimum);
  return static_cast<int>(done / whole * kProgressSteps);
}

ProgressBarPeer::ProgressBarPeer(WindowPeer& parent, ui::ProgressBar& bar)
    : ControlPeer(parent, bar, PROGRESS_CLASSW, 0), bar_(bar) {}

void ProgressBarPeer::update(const Marks& marks) {
  if (!marks.has(ui::Aspect::value)) return;
  const int steps = progress_steps(bar_.minimum(), bar_.maximum(), bar_.value());
  // Themed bars glide upwards, and show late what is done; going down they jump. So the bar is set
  // one step too far and then back, with room for that step at the end.
  send(PBM_SETRANGE32, 0, kProgressSteps + 1);
  send(PBM_SETPOS, static_cast<WPARAM>(steps + 1));
  send(PBM_SETPOS, static_cast<WPARAM>(steps));
  send(PBM_SETRANGE32, 0, kProgressSteps);
}

}  // namespace ordelan::win32
