// The window in which the backup folder is chosen.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kBackupFolderPlaces = {
    Place{"AvisoBack", -1, 31, 140, 340, 100},      Place{"CarpetaNew", -1, 31, 16, 170, 32},
    Place{"cmdCarpetaBorrar", -1, 209, 16, 90, 32}, Place{"cmdSalir", -1, 307, 16, 90, 32},
    Place{"LabelRuta", 0, 31, 60, 360, 18},         Place{"LabelRuta", 1, 31, 80, 360, 18},
    Place{"LabelOK", -1, 31, 104, 360, 18},         Place{"LabelAviso", -1, 31, 104, 360, 18},
};

inline constexpr Layout kBackupFolder{420, 260, kBackupFolderPlaces};

}  // namespace ordelan::skin
