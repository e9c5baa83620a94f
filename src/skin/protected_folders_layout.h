// The window with the list of protected folders: the folders of the disk above, the list below.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kProtectedFoldersPlaces = {
    Place{"AvisoNoBorrados", -1, 150, 74, 340, 154},
    Place{"Label1", -1, 14, 10, 480, 20},
    Place{"Drive1", -1, 16, 76, 70, 148},
    Place{"LabelDir", -1, 94, 52, 530, 20},
    Place{"Dir1", -1, 94, 76, 530, 148},
    Place{"CommandAgregar", -1, 16, 236, 132, 32},
    Place{"CommandQuitar", -1, 156, 236, 132, 32},
    Place{"cmdBorrar", -1, 296, 236, 132, 32},
    Place{"Label2", -1, 16, 284, 400, 20},
    Place{"List1", -1, 16, 308, 608, 116},
    Place{"CheckAviso", -1, 16, 441, 220, 22},
    Place{"cmdSalir", -1, 516, 436, 108, 32},
    Place{"Salir", -1, 596, 4, 32, 32},
};

inline constexpr Layout kProtectedFolders{640, 484, kProtectedFoldersPlaces};

}  // namespace ordelan::skin
