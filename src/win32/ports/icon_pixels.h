// The picture of a system's icon.
#pragma once

#include <windows.h>

#include <optional>

#include "system/shell.h"

namespace ordelan::win32 {

// A modern icon has its own alpha; an older one says in a mask which pixels let the ground through,
// and has nothing where the alpha should be: either way the alpha is right. Pixels that would turn
// the ground into its opposite are let through. The icon stays with the caller. Nothing if it
// cannot be read.
std::optional<system::Pixels> pixels_of(HICON icon);

}  // namespace ordelan::win32
