// How the user's system writes numbers, dates and times.
#pragma once

#include <string>

namespace ordelan::system {

class Regional {
 public:
  virtual ~Regional() = default;

  // The mark between the whole part and the fraction of a number: ',' or '.'.
  virtual char decimal_mark() = 0;

  // Today in the system's short form, and the time of day in its long form.
  virtual std::string short_date() = 0;
  virtual std::string long_time() = 0;
};

}  // namespace ordelan::system
