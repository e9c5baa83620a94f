// The window that brings files back.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

// The list keeps 15 to the sides, 30 to the top and 60 to the bottom. What was not brought back
// covers its lower part, and the last words stand where the buttons were.
inline constexpr std::array kRecoveryPlaces = {
    Place{"Label1", -1, 15, 5, 430, 20, kAcross},
    Place{"ListNoRecuperados", -1, 15, 170, 490, 90, kBottom | kLeft | kRight},
    Place{"ListRecuperar", -1, 15, 30, 490, 230, kAllEdges},
    Place{"LabelCerrar", -1, 130, 284, 260, 20, kBottom},
    Place{"cmdOpen", -1, 15, 270, 130, 32, kBottomLeft},
    Place{"cmdRecuperar", -1, 375, 270, 130, 32, kBottomRight},
    Place{"cmdMinimizar", -1, 454, 2, 28, 26, kTopRight},
    Place{"Salir", -1, 486, 2, 28, 26, kTopRight},
};

inline constexpr Layout kRecovery{520, 320, kRecoveryPlaces};

}  // namespace ordelan::skin
