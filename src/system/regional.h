// How the user's system writes numbers, dates and times.
#pragma once

#include <string>

namespace ordelan::system {

class Regional {
 public:
  virtual ~Regional() = default;

  // The mark between the whole part and the fraction of a number: ',' or '.'.
  virtual char decimal_mark() = 0;

  // Today and the time of day, each in the system's short form.
  virtual std::string short_date() = 0;
  virtual std::string short_time() = 0;

  // The time of day in the long form, with its seconds.
  virtual std::string long_time() = 0;

  // A moment in local time, given as days since the 30th of December 1899 with their fraction, as
  // the short date and the long time with a blank between; "" for one that the system cannot write.
  virtual std::string date_and_time(double moment) = 0;
};

}  // namespace ordelan::system
