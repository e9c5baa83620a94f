#include "win32/peers/chart_host.h"

#include "win32/peers/handlers.h"

namespace ordelan::win32 {

void ChartHost::enter(HWND chart) {
  if (chart_ || !chart) return;
  chart_ = chart;
  report(chart);
}

void ChartHost::sized(HWND chart) {
  if (chart && chart == chart_) report(chart);
}

void ChartHost::leave(HWND chart) {
  if (!chart || chart != chart_) return;
  chart_ = nullptr;
  report(nullptr);
}

// Also called while a control is destroyed, which nothing thrown may leave.
void ChartHost::report(HWND chart) const {
  guarded([&] {
    raise(on_window, chart);
    return LRESULT{};
  });
}

}  // namespace ordelan::win32
