#include "ui/waveform.h"

#include <utility>

#include "ui/backend.h"

namespace ordelan::ui {
namespace {

// Comparisons with what is no number are false.
double height(double wanted) {
  if (wanted >= 1) return 1;
  if (wanted <= -1) return -1;
  return wanted == wanted ? wanted : 0;
}

}  // namespace

void Waveform::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

void Waveform::set_columns(std::vector<WaveColumn> columns) {
  for (WaveColumn& column : columns) column = {height(column.low), height(column.high)};
  assign(columns_, std::move(columns), Aspect::value);
}

void Waveform::set_cursor(double place) {
  assign(cursor_, place >= 0 ? height(place) : -1, Aspect::value);
}

}  // namespace ordelan::ui
