// The window of the drives: as high as its boxes, which are made when the drives are known.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr int kDriveWindowWidth = 304;
inline constexpr int kDriveWindowHeight = 120;

// In the order in which Tab goes through them.
inline constexpr std::array kDriveWindow = {
    Place{"Label1", -1, 16, 12, 244, 36},
    Place{"Check1", 0, 16, 60, 200, 20},
    Place{"Label2", -1, 16, 84, 272, 32},
    Place{"cmdSalir", -1, 264, 8, 32, 32},
};

}  // namespace ordelan::skin
