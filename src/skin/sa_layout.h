// The spectrum: the bar of the volume in a column of its own, the bars of what is heard beside it.
// It stands on the player, 10 further right, and so leaves 10 of it free on either side.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kSAPlaces = {
    Place{"cmdMinimizar", -1, 350, 6, 28, 26},
    Place{"Close", -1, 382, 6, 28, 26},
    Place{"Label1", -1, 38, 9, 300, 20},
    // It grows upwards from 320 with the volume, to this height at its most.
    Place{"ShapeVol", -1, 10, 20, 8, 300},
    Place{"WindowsMediaPlayer", -1, 43, 53, 360, 230},
    Place{"Picture1", -1, 36, 46, 374, 244},
    Place{"LabelTime", -1, 36, 298, 96, 34},
    Place{"LabelAviso", -1, 140, 297, 270, 36},
};

inline constexpr Layout kSA{420, 340, kSAPlaces};

}  // namespace ordelan::skin
