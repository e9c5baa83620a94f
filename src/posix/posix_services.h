// The clock and the regional settings of Linux.
#pragma once

#include <string>
#include <string_view>

#include "system/clock.h"
#include "system/regional.h"

namespace ordelan::posix {

class SteadyClock final : public system::Clock {
 public:
  Time now() override { return std::chrono::steady_clock::now(); }
};

// A locale's format of the time of day without its seconds: "%H:%M" of "%H:%M:%S" or "%T". What a
// locale writes for "%r" is given in `halves`, the form with the halves of the day.
std::string without_seconds(std::string_view format, std::string_view halves);

// The user's own settings, as the environment names them.
class EnvironmentRegional final : public system::Regional {
 public:
  char decimal_mark() override;
  std::string short_date() override;
  std::string short_time() override;
  std::string long_time() override;
  std::string date_and_time(double moment) override;
};

}  // namespace ordelan::posix
