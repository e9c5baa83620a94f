// The about window.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kAboutPlaces = {
    Place{"LabelNombre", -1, 16, 10, 352, 20},   Place{"ImageLogo", -1, 24, 52, 216, 52},
    Place{"LabelVersion", -1, 256, 80, 120, 18}, Place{"LabelTexto", -1, 24, 112, 352, 52},
    Place{"LabelWeb", -1, 24, 178, 220, 20},     Place{"cmdSalir", -1, 276, 170, 100, 32},
};

inline constexpr Layout kAbout{400, 216, kAboutPlaces};

}  // namespace ordelan::skin
