// Waiting for an effect, never for a time.
#pragma once

#include <windows.h>

#include <chrono>
#include <stdexcept>
#include <string>

namespace ordelan::test {

inline constexpr std::chrono::seconds kPatience{15};

// Asks again and again until it is so. False when it was not within the patience.
template <class Condition>
bool wait_for(const Condition& condition, std::chrono::milliseconds patience = kPatience) {
  const auto until = std::chrono::steady_clock::now() + patience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > until) return false;
    Sleep(2);
  }
  return true;
}

}  // namespace ordelan::test
