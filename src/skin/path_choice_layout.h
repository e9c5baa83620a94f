// The choice among files of the same name.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr int kPathChoiceWidth = 640;
inline constexpr int kPathChoiceHeight = 264;

// In the order in which Tab goes through them.
inline constexpr std::array kPathChoice = {
    Place{"Label1", -1, 16, 12, 608, 20},
    Place{"ListElegirRuta", -1, 16, 40, 608, 208},
};

}  // namespace ordelan::skin
