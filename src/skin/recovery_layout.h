// The window that brings files back.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kRecoveryPlaces = {
    Place{"Label1", -1, 16, 10, 400, 20, kAcross},
    Place{"ListRecuperar", -1, 16, 40, 488, 180, kAllEdges},
    Place{"ListNoRecuperados", -1, 16, 228, 488, 60, kBottom | kLeft | kRight},
    Place{"cmdOpen", -1, 16, 296, 120, 32, kBottomLeft},
    Place{"cmdRecuperar", -1, 384, 296, 120, 32, kBottomRight},
    Place{"LabelCerrar", -1, 16, 334, 488, 18, kBottom | kLeft | kRight},
    Place{"cmdMinimizar", -1, 444, 4, 32, 32, kTopRight},
    Place{"Salir", -1, 480, 4, 32, 32, kTopRight},
};

inline constexpr Layout kRecovery{520, 360, kRecoveryPlaces};

}  // namespace ordelan::skin
