// The turn that a long job gives to the window, and the pace at which it does so.
#pragma once

#include <chrono>

#include "system/clock.h"

namespace ordelan::system {

class EventPump {
 public:
  virtual ~EventPump() = default;

  // Runs every event that is waiting: clicks, keys, timers, painting. Any handler may run inside,
  // close windows and start or stop jobs, so that the caller looks at its flags afterwards.
  virtual void pump() = 0;

  // The same for a loop that has nothing to do until something happens: sleeps until there is an
  // event, for a moment at most.
  virtual void wait() = 0;

  // Whether the program is at its end: no more events will come.
  virtual bool ended() const = 0;
};

// Pumps by elapsed time: a loop calls `turn` as often as it likes, and the window answers soon
// while the loop loses nothing.
class Pacer {
 public:
  Pacer(EventPump& pump, Clock& clock) : pump_(pump), clock_(clock), last_(clock.now()) {}

  // Pumps if the last pump is long enough ago. True when it did, so that flags may have changed.
  bool turn() {
    if (clock_.now() - last_ < kInterval) return false;
    pump_.pump();
    last_ = clock_.now();
    return true;
  }

 private:
  // A window that answers within 30 ms feels immediate.
  static constexpr std::chrono::milliseconds kInterval{15};

  EventPump& pump_;
  Clock& clock_;
  Clock::Time last_;
};

}  // namespace ordelan::system
