// Puts the controls of a window where its layout says.
#pragma once

#include <span>

#include "skin/place.h"
#include "ui/window.h"

namespace ordelan::work {

// The order of the layout becomes the order of the controls. To be called before the window is
// loaded. Controls that the layout does not name stay where they are, and places of controls that
// the window does not have are passed over.
void arrange(ui::Window& window, std::span<const skin::Place> layout);

}  // namespace ordelan::work
