// Pictures of window grounds in other sizes than they are drawn.
#pragma once

#include "ui/geometry.h"
#include "ui/image.h"

namespace ordelan::ui {

// The picture in another size: it is cut in its middle, where the column and the row there are
// repeated, or columns and rows around it are left out. Corners and edges stay as they are, and no
// pixel is mixed with another, so that a mask stays one. Empty for an empty picture or size.
Pixels nine_sliced(const Pixels& picture, Size wanted);

}  // namespace ordelan::ui
