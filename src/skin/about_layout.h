// The about window.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr int kAboutWidth = 400;
inline constexpr int kAboutHeight = 216;

// In the order in which Tab goes through them.
inline constexpr std::array kAbout = {
    Place{"LabelNombre", -1, 24, 20, 352, 36}, Place{"LabelVersion", -1, 24, 60, 352, 18},
    Place{"LabelTexto", -1, 24, 88, 352, 54},  Place{"LabelWeb", -1, 24, 150, 240, 18},
    Place{"cmdSalir", -1, 280, 172, 96, 28},
};

}  // namespace ordelan::skin
