#include "ui/bar_chart.h"

#include <utility>

#include "ui/backend.h"

namespace ordelan::ui {
namespace {

// Comparisons with what is no number are false.
double height(double wanted) {
  if (wanted >= 1) return 1;
  return wanted > 0 ? wanted : 0;
}

}  // namespace

void BarChart::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

void BarChart::set_bars(std::vector<Bar> bars) {
  for (Bar& bar : bars) bar = {height(bar.level), height(bar.peak)};
  assign(bars_, std::move(bars), Aspect::value);
}

}  // namespace ordelan::ui
