// The window with the options of removal.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kBackupOptionsPlaces = {
    Place{"AvisoAsociados", -1, 27, 57, 330, 190},
    Place{"CheckBackup", -1, 33, 60, 400, 22},
    Place{"CheckBorrar", -1, 33, 86, 400, 22},
    Place{"CheckBorraAsociados", -1, 33, 112, 300, 22},
    Place{"ImageInfoVip", -1, 340, 112, 22, 22},
    Place{"CheckComprobar", -1, 33, 138, 400, 22},
    Place{"XP_Bar", -1, 33, 180, 494, 12},
    Place{"LabelInfo", -1, 33, 204, 494, 20},
    Place{"LabelResultado", -1, 33, 230, 494, 36},
    Place{"LabelVueltas", -1, 33, 270, 494, 20},
    Place{"ListNoBorrados", -1, 33, 294, 494, 110},
    Place{"LabelConfig", -1, 16, 36, 528, 20},
    Place{"cmdBorrar", -1, 33, 420, 130, 32},
    Place{"CommandProtegidas", -1, 171, 420, 170, 32},
    Place{"cmdParar", -1, 349, 420, 80, 32},
    Place{"cmdSalir", -1, 437, 420, 90, 32},
    Place{"cmdMinimizar", -1, 480, 4, 32, 32},
    Place{"Salir", -1, 516, 4, 32, 32},
};

inline constexpr Layout kBackupOptions{560, 470, kBackupOptionsPlaces};

}  // namespace ordelan::skin
