// The system's clock.
#pragma once

#include "system/clock.h"

namespace ordelan::win32 {

class Win32Clock final : public system::Clock {
 public:
  Time now() override { return std::chrono::steady_clock::now(); }
};

}  // namespace ordelan::win32
