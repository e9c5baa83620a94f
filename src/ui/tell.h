// Raising a control's events.
#pragma once

#include <functional>
#include <utility>

namespace ordelan::ui {

// Runs a handler, if it is one. A copy is run: the control that it belongs to may go meanwhile.
// Whoever goes on after it asks Control::alive first.
template <class... Taken, class... Given>
void tell(const std::function<void(Taken...)>& handler, Given&&... arguments) {
  if (const auto copy = handler) copy(std::forward<Given>(arguments)...);
}

}  // namespace ordelan::ui
