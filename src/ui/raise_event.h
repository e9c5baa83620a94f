// Raising a control's events.
#pragma once

#include <functional>
#include <utility>

namespace ordelan::ui {

// Runs a handler, unless it is empty. A copy is run: the handler may destroy its control.
// A caller that goes on afterwards checks Control::alive first.
template <class... Taken, class... Given>
void raise_event(const std::function<void(Taken...)>& handler, Given&&... arguments) {
  if (const auto copy = handler) copy(std::forward<Given>(arguments)...);
}

}  // namespace ordelan::ui
