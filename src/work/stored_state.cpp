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

void read_size(const settings::Settings& settings, ui::Window& window, const std::string& key) {
  constexpr int kLargest = 16384;
  const auto length = [&](const char* name, int present, int smallest) {
    return std::clamp(whole(settings.number(key + name, present)), smallest, kLargest);
  };
  const ui::Size least = window.smallest_size();
  window.set_size({length("_Width", window.size().width, least.width),
                   length("_Height", window.size().height, least.height)});
}

void write_size(settings::Settings& settings, const ui::Window& window, const std::string& key) {
  settings.set_number(key + "_Width", window.size().width);
  settings.set_number(key + "_Height", window.size().height);
}

}  // namespace ordelan::work
