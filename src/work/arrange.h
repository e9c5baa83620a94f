// Puts the controls of a window where its layout says.
#pragma once

#include "skin/place.h"
#include "ui/window.h"

namespace ordelan::work {

// Where a control stands in a window of size `window`, whose layout has size `layout`. No control
// becomes smaller than nothing.
ui::Rect anchored(const skin::Place& place, ui::Size layout, ui::Size window);

// Places the controls for the present size of the window. Controls that the layout does not name
// stay where they are, and places of controls that the window does not have are ignored.
void arrange(ui::Window& window, const skin::Layout& layout);

// Makes the order of the layout the order of the controls. To be called before the window is
// loaded.
void order(ui::Window& window, const skin::Layout& layout);

}  // namespace ordelan::work
