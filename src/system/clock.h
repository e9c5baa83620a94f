// Time that only goes forward.
#pragma once

#include <chrono>

namespace ordelan::system {

class Clock {
 public:
  using Time = std::chrono::steady_clock::time_point;
  virtual ~Clock() = default;

  virtual Time now() = 0;
};

}  // namespace ordelan::system
