#include "work/stored_state.h"

#include <algorithm>
#include <cmath>

namespace ordelan::work {
namespace {

int whole(double value) {
  constexpr double kFarthest = 1e6;  // no screen is that wide
  return static_cast<int>(std::lround(std::clamp(value, -kFarthest, kFarthest)));
}

}  // namespace

void read_box(const settings::Settings& settings, ui::CheckBox& box) {
  const double value = settings.number(box.caption(), box.checked() ? 1 : 0);
  if (value == 0 || value == 1) box.set_checked(value == 1);
}

void write_box(settings::Settings& settings, const ui::CheckBox& box) {
  settings.GrabarIni(settings.RutaConfig, box.caption(), box.checked() ? "1" : "0");
}

void read_place(const settings::Settings& settings, ui::Window& window, const std::string& key,
                ui::Point fallback) {
  window.set_position({whole(settings.number(key + "_Left", fallback.x)),
                       whole(settings.number(key + "_Top", fallback.y))});
}

void write_place(settings::Settings& settings, const ui::Window& window, const std::string& key) {
  settings.set_number(key + "_Left", window.position().x);
  settings.set_number(key + "_Top", window.position().y);
}

}  // namespace ordelan::work
