// What a control is to a screen reader, where we say it in place of the system.
#pragma once

#include <windows.h>

#include <string>

namespace ordelan::win32 {

struct Face {
  LONG role = 0;  // ROLE_SYSTEM_...
  std::wstring name{};
  std::wstring value{};   // empty where it has none
  std::wstring action{};  // the word for what a click does; empty where it does nothing
  LONG state = 0;         // STATE_SYSTEM_..., beside what every control has
};

}  // namespace ordelan::win32
