// The report of lost files.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr int kLostFileWidth = 720;
inline constexpr int kLostFileHeight = 420;

// In the order in which Tab goes through them.
inline constexpr std::array kLostFile = {
    Place{"Label1", -1, 16, 14, 560, 20},
    Place{"ListPerdidos", -1, 16, 44, 688, 324},
    Place{"TextEncontrados", -1, 16, 384, 440, 20},
    Place{"cmdLog", -1, 472, 378, 120, 28},
    Place{"cmdSalir", -1, 600, 378, 104, 28},
    Place{"Button2", -1, 640, 8, 28, 26},
    Place{"Salir", -1, 676, 8, 28, 26},
};

}  // namespace ordelan::skin
