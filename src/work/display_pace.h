// How often a long run shows how far it has got.
#pragma once

#include <chrono>
#include <optional>

#include "system/clock.h"

namespace ordelan::work {

class DisplayPace {
 public:
  // `clock` must outlive it.
  explicit DisplayPace(system::Clock& clock) : clock_(clock) {}

  // Whether it is time to show something again: ten times a second, as no user reads faster and
  // each showing costs the window time. True at the first call.
  bool due() {
    const auto now = clock_.now();
    if (displayed_ && now - *displayed_ < kInterval) return false;
    displayed_ = now;
    return true;
  }

 private:
  static constexpr std::chrono::milliseconds kInterval{100};

  system::Clock& clock_;
  std::optional<system::Clock::Time> displayed_;
};

}  // namespace ordelan::work
