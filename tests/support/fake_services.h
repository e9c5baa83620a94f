// A clock that a test sets, and regional settings that it chooses.
#pragma once

#include "system/clock.h"
#include "system/regional.h"

namespace ordelan::test {

class HandClock final : public system::Clock {
 public:
  Time time{};
  // How far the clock goes by itself at each look.
  std::chrono::microseconds step{0};

  Time now() override { return time += step; }
};

class FixedRegional final : public system::Regional {
 public:
  char mark = ',';

  char decimal_mark() override { return mark; }
  std::string short_date() override { return "21/11/2026"; }
  std::string long_time() override { return "9:05:07"; }
};

}  // namespace ordelan::test
