// How the user has set Windows to write numbers, dates and times.
#pragma once

#include "system/regional.h"

namespace ordelan::win32 {

class Win32Regional final : public system::Regional {
 public:
  // Asked anew each time: the user may change it while the program runs.
  char decimal_mark() override;
  std::string short_date() override;
  std::string short_time() override;
  std::string long_time() override;
  std::string date_and_time(double moment) override;
};

}  // namespace ordelan::win32
