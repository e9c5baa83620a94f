// How much of a message's text a message box has room for on the screen.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace ordelan::win32 {

// The text itself if it fits; otherwise as many of its first lines (parted by CR LF) as fit
// together with a line that says how many more there are. `fits` holds for a text that is shorter
// than one for which it holds.
std::wstring fitting_text(const std::wstring& text,
                          const std::function<bool(const std::wstring&)>& fits);

// Whether a message box of this owner (null for none) that shows this text, with its title and its
// buttons, is no taller than the screen that the owner is on.
bool fits_screen(HWND owner, const std::wstring& text);

}  // namespace ordelan::win32
