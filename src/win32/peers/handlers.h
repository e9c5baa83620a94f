// Calling the program's handlers from the system's calls.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>

namespace ordelan::win32 {

// Runs a handler, if it is one. A copy is run: the control that it belongs to may go meanwhile.
template <class... Taken, class... Given>
void raise(const std::function<void(Taken...)>& handler, Given&&... arguments) {
  if (const auto copy = handler) copy(std::forward<Given>(arguments)...);
}

// Runs what the system called us for. Nothing thrown may cross into the system: it is told to
// whoever debugs, and the event counts as done.
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
