// The window of the projects that are left out.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kProjectsLeftOutPlaces = {
    Place{"Label1", -1, 16, 10, 560, 20},     Place{"ListFuera", -1, 16, 56, 648, 228},
    Place{"LabelNota", -1, 16, 302, 528, 20}, Place{"cmdSalir", -1, 556, 296, 108, 32},
    Place{"Button2", -1, 600, 4, 32, 32},     Place{"Salir", -1, 636, 4, 32, 32},
};

inline constexpr Layout kProjectsLeftOut{680, 340, kProjectsLeftOutPlaces};

}  // namespace ordelan::skin
