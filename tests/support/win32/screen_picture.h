// Pictures of the screen.
#pragma once

#include <windows.h>

#include <string>

namespace ordelan::test {

// Saves what the screen shows as a PNG file, of the whole screen or of an area of it, into the
// folder $ORDELAN_SHOTS ("screenshots" where there is none), which is made if it is missing. Gives
// the file's path, empty when it could not be saved.
std::wstring save_screen(const std::string& name);
std::wstring save_screen(const std::string& name, const RECT& area);

// Waits until two looks at the screen show the same, a second at most: what has just changed is
// painted then. A screen on which something runs is never still.
void wait_for_still_screen();

}  // namespace ordelan::test
