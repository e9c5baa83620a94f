// The review of what will be removed: the list with its boxes on the left, the options beside it.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

// The heights of the list: alone, and above the list of what is kept.
inline constexpr int kRemovalReviewLongList = 361;
inline constexpr int kRemovalReviewShortList = 276;

inline constexpr std::array kRemovalReviewPlaces = {
    Place{"TextAviso", -1, 72, 120, 380, 96},
    Place{"AvisoSound", -1, 544, 166, 284, 106, kTopRight},
    Place{"LabelErase", -1, 14, 10, 600, 20, kAcross},
    Place{"ListStatus", -1, 40, 46, 19, kRemovalReviewLongList, kTop | kBottom | kLeft},
    Place{"ListBorrar", -1, 40, 46, 500, kRemovalReviewLongList, kAllEdges},
    Place{"CheckConfirmar", -1, 556, 56, 264, 22, kTopRight},
    Place{"CheckBorrarPapelera", -1, 556, 84, 264, 22, kTopRight},
    Place{"CheckVaciarPapelera", -1, 556, 112, 264, 22, kTopRight},
    Place{"CheckAudio", -1, 556, 140, 240, 22, kTopRight},
    Place{"ImageInfoSound", -1, 800, 141, 20, 20, kTopRight},
    Place{"ParaBorrarCheckToolTip", -1, 556, 168, 264, 22, kTopRight},
    Place{"CommandProtegidas", -1, 556, 204, 200, 32, kTopRight},
    Place{"TextSound", -1, 556, 252, 264, 20, kTopRight},
    Place{"ImagePlayPauSt", 0, 556, 284, 20, 20, kTopRight},
    Place{"ImagePlayPauSt", 1, 584, 284, 20, 20, kTopRight},
    Place{"ImagePlayPauSt", 2, 612, 284, 20, 20, kTopRight},
    // The mark grows upwards from 460 with the volume, to this height at its most.
    Place{"ImageVol", -1, 20, 160, 8, 300},
    Place{"LabelVol", -1, 13, 462, 24, 18},
    Place{"LabelConservados", -1, 556, 306, 264, 18, kBottomRight},
    Place{"ListConservados", -1, 40, 328, 780, 79, kBottom | kLeft | kRight},
    Place{"Label1", -1, 40, 414, 780, 20, kBottom | kLeft | kRight},
    Place{"LabelEspacio", -1, 44, 440, 776, 18, kBottom | kLeft | kRight},
    Place{"LabelPapelera", -1, 44, 462, 776, 36, kBottom | kLeft | kRight},
    Place{"cmdHecho", -1, 40, 508, 120, 32, kBottomLeft},
    Place{"Cancela", -1, 168, 508, 120, 32, kBottomLeft},
    Place{"cmdSalir", -1, 712, 508, 108, 32, kBottomRight},
    Place{"cmdMinimizar", -1, 756, 4, 32, 32, kTopRight},
    Place{"Salir", -1, 792, 4, 32, 32, kTopRight},
};

inline constexpr Layout kRemovalReview{836, 556, kRemovalReviewPlaces};

}  // namespace ordelan::skin
