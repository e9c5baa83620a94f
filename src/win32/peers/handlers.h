// Calling the program's handlers from the system's calls.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>

namespace ordelan::win32 {

// Runs a handler, unless it is empty. A copy is run: the handler may destroy its control.
template <class... Taken, class... Given>
void raise(const std::function<void(Taken...)>& handler, Given&&... arguments) {
  if (const auto copy = handler) copy(std::forward<Given>(arguments)...);
}

// Runs what the system called us for. Nothing thrown may cross into the system: it is
// reported to the debugger, and the event counts as handled.
template <class Body>
LRESULT guarded(const Body& body) noexcept {
  try {
    return body();
  } catch (const std::exception& error) {
    OutputDebugStringA(error.what());
  } catch (...) {
    OutputDebugStringA("Ordelan: a handler failed");
  }
  return 0;
}

}  // namespace ordelan::win32
