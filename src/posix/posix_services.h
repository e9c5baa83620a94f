// The clock and the regional settings of Linux.
#pragma once

#include "system/clock.h"
#include "system/regional.h"

namespace ordelan::posix {

class SteadyClock final : public system::Clock {
 public:
  Time now() override { return std::chrono::steady_clock::now(); }
};

// The user's own settings, as the environment names them.
class EnvironmentRegional final : public system::Regional {
 public:
  char decimal_mark() override;
  std::string short_date() override;
  std::string long_time() override;
};

}  // namespace ordelan::posix
