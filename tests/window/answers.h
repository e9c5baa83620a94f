// How long the program takes to answer while it works.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>

#include "window/program.h"

namespace ordelan::test {

// Asks the window in use again and again until `done`, and prints how long that took (`what`) and
// how long the longest answer did.
inline void watch_answers(Program& program, const std::string& what,
                          const std::function<bool()>& done) {
  using Clock = std::chrono::steady_clock;
  const auto begun = Clock::now();
  const auto milliseconds = [](Clock::duration time) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
  };
  Clock::duration longest{};
  std::ostringstream long_ones;
  while (!done()) {
    const auto asked = Clock::now();
    DWORD_PTR ignored = 0;
    ASSERT_NE(SendMessageTimeoutW(program.window(), WM_NULL, 0, 0, SMTO_NORMAL, 5000, &ignored), 0)
        << "the window did not answer for five seconds";
    const Clock::duration waited = Clock::now() - asked;
    longest = std::max(longest, waited);
    if (waited > std::chrono::milliseconds(50)) {
      long_ones << " " << milliseconds(waited) << " (at " << milliseconds(asked - begun) << ")";
    }
    ASSERT_LT(Clock::now() - begun, std::chrono::minutes(5));
    Sleep(20);  // asking all the time would take a core from the work
  }
  std::cout << what << " " << milliseconds(Clock::now() - begun)
            << " ms, the longest wait for an answer was " << milliseconds(longest)
            << " ms; over 50 ms:" << long_ones.str() << "\n";
}

}  // namespace ordelan::test
