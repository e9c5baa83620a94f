// The choice among files of the same name.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kPathChoicePlaces = {
    Place{"Label1", -1, 16, 12, 608, 20},
    Place{"ListElegirRuta", -1, 16, 40, 608, 208},
    Place{"CheckCarpeta", -1, 16, 258, 608, 22},
};

inline constexpr Layout kPathChoice{640, 292, kPathChoicePlaces};

}  // namespace ordelan::skin
