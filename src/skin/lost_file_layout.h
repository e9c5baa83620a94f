// The report of lost files.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kLostFilePlaces = {
    Place{"Label1", -1, 16, 10, 560, 20, kAcross},
    Place{"ListPerdidos", -1, 16, 56, 688, 308, kAllEdges},
    Place{"TextEncontrados", -1, 16, 382, 420, 20, kBottom | kLeft | kRight},
    Place{"cmdLog", -1, 448, 376, 140, 32, kBottomRight},
    Place{"cmdSalir", -1, 596, 376, 108, 32, kBottomRight},
    Place{"Button2", -1, 640, 4, 32, 32, kTopRight},
    Place{"Salir", -1, 676, 4, 32, 32, kTopRight},
};

inline constexpr Layout kLostFile{720, 420, kLostFilePlaces};

}  // namespace ordelan::skin
