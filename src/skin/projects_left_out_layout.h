// The window of the projects that count for nothing.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr int kProjectsLeftOutWidth = 680;
inline constexpr int kProjectsLeftOutHeight = 340;

// In the order in which Tab goes through them.
inline constexpr std::array kProjectsLeftOut = {
    Place{"Label1", -1, 16, 10, 560, 20},     Place{"ListFuera", -1, 16, 56, 648, 228},
    Place{"LabelNota", -1, 16, 302, 528, 20}, Place{"cmdSalir", -1, 556, 296, 108, 32},
    Place{"Button2", -1, 600, 4, 32, 32},     Place{"Salir", -1, 636, 4, 32, 32},
};

}  // namespace ordelan::skin
