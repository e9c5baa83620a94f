// The detail window: the rows of a list or the playlist, the mark of a project and what is said of
// a row below them, and a small transport.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kZoomPlaces = {
    Place{"LabelNvip", -1, 16, 9, 450, 20, kAcross},
    Place{"cmdMinimizar", -1, 490, 6, 28, 26, kTopRight},
    Place{"Close", -1, 522, 6, 28, 26, kTopRight},
    Place{"Files", -1, 16, 46, 396, 18, kAcross},
    Place{"ZoomLabelIndice", -1, 420, 46, 94, 18, kTopRight},
    Place{"cmdFilas", -1, 520, 42, 24, 22, kTopRight},
    Place{"ListFilesZoom", -1, 16, 68, 528, 212, kAllEdges},
    Place{"ImageIcono", -1, 16, 314, 30, 30, kBottomLeft},
    Place{"LabelVip", -1, 62, 320, 108, 18, kBottomLeft},
    Place{"ShapeVip", -1, 54, 316, 124, 26, kBottomLeft},
    Place{"CheckAutoPlay", -1, 16, 354, 110, 20, kBottomLeft},
    Place{"CheckToolTips", -1, 136, 354, 130, 20, kBottomLeft},
    Place{"TextInfo", -1, 276, 288, 268, 96, kBottom | kLeft | kRight},
    // Pause takes the place of play.
    Place{"Play", -1, 20, 394, 20, 20, kBottomLeft},
    Place{"Pause", -1, 20, 394, 20, 20, kBottomLeft},
    Place{"SliderTime", -1, 58, 395, 200, 18, kBottomLeft},
    Place{"SliderVol", -1, 276, 395, 100, 18, kBottomLeft},
    Place{"LabelVol", -1, 386, 395, 90, 18, kBottomLeft},
    Place{"PlayerMaster", -1, 508, 388, 36, 32, kBottomRight},
};

inline constexpr Layout kZoom{560, 430, kZoomPlaces};

}  // namespace ordelan::skin
