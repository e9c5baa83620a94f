// The player: what can be opened and shown in its head, the title in a frame, the time beside the
// place in the file and the volume, and the transport below.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

// Where the spectrum stands, from the player's corner.
inline constexpr int kSpectrumRight = 10;
inline constexpr int kSpectrumAbove = 340;

inline constexpr std::array kPlayerPlaces = {
    Place{"AvisoPL", -1, 110, 82, 220, 44},
    // Pause takes the place of play.
    Place{"Control", 0, 10, 142, 52, 32},
    Place{"Control", 1, 10, 142, 52, 32},
    Place{"Control", 2, 66, 142, 38, 32},
    Place{"SliderTime", -1, 112, 118, 200, 18},
    Place{"SliderVol", -1, 330, 118, 100, 18},
    Place{"OpenFile", -1, 10, 6, 28, 26},
    Place{"PL", -1, 42, 6, 28, 26},
    Place{"SAtoggle1", -1, 74, 6, 28, 26},
    Place{"CheckToolTip", -1, 118, 148, 110, 20},
    Place{"CheckSeguir", -1, 236, 148, 194, 20},
    Place{"cmdMinimizar", -1, 370, 6, 28, 26},
    Place{"CloseW", -1, 402, 6, 28, 26},
    Place{"LabelDisplay", -1, 18, 49, 404, 22},
    Place{"PictureLD", -1, 10, 46, 420, 28},
    Place{"LabelTime", -1, 10, 80, 96, 34},
    Place{"mp3Baud", -1, 10, 117, 96, 18},
    // The waveform of the file, exactly above the slider whose place it shows.
    Place{"ImageOnda", -1, 112, 80, 200, 36},
    Place{"LabelVol", -1, 330, 98, 100, 18},
    Place{"LabelAviso", -1, 10, 178, 420, 18},
};

inline constexpr Layout kPlayer{440, 202, kPlayerPlaces};

}  // namespace ordelan::skin
