// The enlarged list: its name, the headings of the list that it shows, and the rows.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr std::array kListasZoomPlaces = {
    Place{"LabelTitulo", -1, 16, 9, 450, 20, kAcross},
    Place{"cmdMinimizar", -1, 490, 6, 28, 26, kTopRight},
    Place{"Close", -1, 522, 6, 28, 26, kTopRight},
    Place{"LabelUp", -1, 16, 44, 498, 18, kAcross},
    Place{"LabelDwn", -1, 16, 62, 398, 18, kAcross},
    Place{"LZLabelIndice", -1, 420, 62, 94, 18, kTopRight},
    Place{"cmdFilas", -1, 520, 58, 24, 22, kTopRight},
    Place{"ListZoom", -1, 16, 84, 528, 300, kAllEdges},
    Place{"ImageIcono", -1, 16, 392, 30, 30, kBottomLeft},
    Place{"CheckToolTips", -1, 62, 397, 130, 20, kBottomLeft},
};

inline constexpr Layout kListasZoom{560, 430, kListasZoomPlaces};

}  // namespace ordelan::skin
