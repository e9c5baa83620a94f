// The window in which the backup folder is chosen. What is shown before a choice, after it, and
// after none was made, shares the room below the button.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kBackupFolderPlaces = {
    Place{"AvisoBack", -1, 31, 140, 378, 96},    Place{"LabelTitulo", -1, 14, 10, 360, 20},
    Place{"CarpetaNew", -1, 31, 56, 180, 32},    Place{"LabelRuta", 0, 31, 104, 378, 18},
    Place{"LabelAviso", -1, 31, 104, 378, 18},   Place{"LabelRuta", 1, 31, 126, 378, 36},
    Place{"LabelOK", -1, 31, 174, 378, 18},      Place{"cmdCarpetaBorrar", -1, 31, 204, 140, 32},
    Place{"LabelEspacio", -1, 31, 250, 378, 36}, Place{"cmdSalir", -1, 396, 4, 32, 32},
};

inline constexpr Layout kBackupFolder{440, 300, kBackupFolderPlaces};

}  // namespace ordelan::skin
