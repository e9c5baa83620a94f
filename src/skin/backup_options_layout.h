// The window with the options of removal: the options, how the last run went, the buttons.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kBackupOptionsPlaces = {
    Place{"AvisoAsociados", -1, 27, 57, 330, 160},
    Place{"LabelConfig", -1, 14, 10, 496, 20},
    Place{"CheckBackup", -1, 33, 54, 330, 22},
    Place{"CheckBorrar", -1, 33, 80, 330, 22},
    Place{"CheckBorraAsociados", -1, 33, 106, 250, 22},
    Place{"ImageInfoVip", -1, 290, 107, 20, 20},
    Place{"CheckComprobar", -1, 33, 132, 330, 22},
    Place{"XP_Bar", -1, 33, 180, 534, 12},
    Place{"LabelInfo", -1, 33, 200, 534, 20},
    Place{"LabelEspera", -1, 33, 200, 534, 20},
    Place{"LabelResultado", -1, 33, 224, 534, 36},
    Place{"LabelVueltas", -1, 33, 262, 534, 18},
    Place{"ListNoBorrados", -1, 33, 284, 534, 98},
    Place{"cmdBorrar", -1, 16, 408, 140, 32},
    Place{"CommandProtegidas", -1, 164, 408, 190, 32},
    Place{"cmdParar", -1, 362, 408, 96, 32},
    Place{"cmdSalir", -1, 476, 408, 108, 32},
    Place{"cmdMinimizar", -1, 520, 4, 32, 32},
    Place{"Salir", -1, 556, 4, 32, 32},
};

inline constexpr Layout kBackupOptions{600, 456, kBackupOptionsPlaces};

}  // namespace ordelan::skin
