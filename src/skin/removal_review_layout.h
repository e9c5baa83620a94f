// The review of what will be removed.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kRemovalReviewPlaces = {
    Place{"TextAviso", -1, 60, 120, 420, 110},
    Place{"AvisoSound", -1, 440, 240, 300, 120},
    Place{"ListStatus", -1, 40, 46, 19, 379},
    Place{"ListBorrar", -1, 40, 46, 500, 379},
    Place{"CheckConfirmar", -1, 552, 60, 200, 22},
    Place{"CheckBorrarPapelera", -1, 552, 88, 200, 22},
    Place{"CheckVaciarPapelera", -1, 552, 116, 200, 22},
    Place{"CheckAudio", -1, 552, 144, 180, 22},
    Place{"ImageInfoSound", -1, 734, 144, 22, 22},
    Place{"ParaBorrarCheckToolTip", -1, 552, 172, 200, 22},
    Place{"CommandProtegidas", -1, 552, 210, 190, 32},
    Place{"TextSound", -1, 552, 250, 190, 36},
    Place{"ImagePlayPauSt", 0, 552, 300, 24, 24},
    Place{"ImagePlayPauSt", 1, 580, 300, 24, 24},
    Place{"ImagePlayPauSt", 2, 608, 300, 24, 24},
    Place{"LabelVol", -1, 16, 440, 24, 18},
    Place{"ImageVol", -1, 20, 160, 8, 300},
    Place{"LabelErase", -1, 40, 18, 400, 20},
    Place{"Label1", -1, 40, 432, 680, 20},
    Place{"cmdHecho", -1, 552, 470, 90, 32},
    Place{"Cancela", -1, 650, 470, 90, 32},
    Place{"cmdSalir", -1, 40, 470, 90, 32},
    Place{"cmdMinimizar", -1, 680, 4, 32, 32},
    Place{"Salir", -1, 716, 4, 32, 32},
};

inline constexpr Layout kRemovalReview{760, 520, kRemovalReviewPlaces};

}  // namespace ordelan::skin
