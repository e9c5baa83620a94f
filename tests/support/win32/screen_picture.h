// Pictures of the screen.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace ordelan::test {

// Saves what the screen shows as a PNG file, of the whole screen or of an area of it, into the
// folder $ORDELAN_SHOTS ("build\screenshots" where there is none), which is made if it is missing.
// Gives the file's path, empty when it could not be saved.
std::wstring save_screen(const std::string& name);
std::wstring save_screen(const std::string& name, const RECT& area);

// What the screen shows in an area of it, row by row: 0x00RRGGBB in the lower 24 bits of each.
// Empty when it cannot be seen.
std::vector<std::uint32_t> screen_pixels(const RECT& area);

// Waits until two looks at the screen show the same, a second at most: what has just changed is
// painted then. A screen on which something runs is never still.
void wait_for_still_screen();

}  // namespace ordelan::test
