// The names under which other processes find our windows: assistive tools, and tests. A name is
// the name of a window property (GetProp) that only the window of that name has.
#pragma once

#include <string>

#include "ui/control.h"
#include "ui/window.h"
#include "win32/ansi_text.h"

namespace ordelan::win32 {

// "Ordelan.ListVip"; "Ordelan.Label1(3)" for a member of a control array.
inline std::wstring property_name(const ui::Control& control) {
  std::wstring name = L"Ordelan." + widen(control.name());
  if (control.index() >= 0) name += L"(" + std::to_wstring(control.index()) + L")";
  return name;
}

// "Ordelan.Window.Form1".
inline std::wstring property_name(const ui::Window& window) {
  return L"Ordelan.Window." + widen(window.name());
}

}  // namespace ordelan::win32
