// How the user's system writes numbers.
#pragma once

namespace ordelan::system {

class Regional {
 public:
  virtual ~Regional() = default;

  // The mark between the whole part and the fraction of a number: ',' or '.'.
  virtual char decimal_mark() = 0;
};

}  // namespace ordelan::system
