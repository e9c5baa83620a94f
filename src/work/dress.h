// Gives the controls of a window the look that the skin has for them.
#pragma once

#include "ui/window.h"

namespace ordelan::work {

// Sets up buttons, sliders, labels, pictures and the window itself from the skin's property bags.
// To be called before the window is loaded, when its controls have their captions. What the skin
// does not name stays as it is.
void dress(ui::Window& window);

}  // namespace ordelan::work
