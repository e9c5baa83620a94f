// The window with the list of protected folders.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kProtectedFoldersPlaces = {
    Place{"AvisoNoBorrados", -1, 60, 90, 340, 200},
    Place{"Label1", -1, 16, 10, 400, 20},
    Place{"Drive1", -1, 16, 44, 70, 160},
    Place{"LabelDir", -1, 94, 44, 510, 18},
    Place{"Dir1", -1, 94, 66, 510, 138},
    Place{"CommandAgregar", -1, 16, 212, 120, 32},
    Place{"CommandQuitar", -1, 144, 212, 120, 32},
    Place{"cmdBorrar", -1, 272, 212, 120, 32},
    Place{"Label2", -1, 16, 252, 400, 18},
    Place{"List1", -1, 16, 274, 588, 110},
    Place{"CheckAviso", -1, 16, 400, 240, 22},
    Place{"cmdSalir", -1, 504, 396, 100, 32},
    Place{"Salir", -1, 576, 4, 32, 32},
};

inline constexpr Layout kProtectedFolders{620, 440, kProtectedFoldersPlaces};

}  // namespace ordelan::skin
