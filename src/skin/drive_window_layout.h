// The window of the drives: as high as its boxes, which are made when the drives have been listed.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kDriveWindowPlaces = {
    Place{"Label1", -1, 16, 12, 244, 36},
    Place{"Check1", 0, 16, 60, 200, 20},
    Place{"Label2", -1, 16, 84, 272, 32},
    Place{"cmdSalir", -1, 264, 8, 32, 32},
};

inline constexpr Layout kDriveWindow{304, 120, kDriveWindowPlaces};

}  // namespace ordelan::skin
