// The report of lost files.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr int kLostFileWidth = 720;
inline constexpr int kLostFileHeight = 420;

// In the order in which Tab goes through them.
inline constexpr std::array kLostFile = {
    Place{"Label1", -1, 16, 10, 560, 20},
    Place{"ListPerdidos", -1, 16, 56, 688, 308},
    Place{"TextEncontrados", -1, 16, 382, 420, 20},
    Place{"cmdLog", -1, 448, 376, 140, 32},
    Place{"cmdSalir", -1, 596, 376, 108, 32},
    Place{"Button2", -1, 640, 4, 32, 32},
    Place{"Salir", -1, 676, 4, 32, 32},
};

}  // namespace ordelan::skin
