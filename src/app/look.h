// How the windows look: the colours of the skin as the backend takes them.
#pragma once

#include "ui/palette.h"

namespace ordelan::app {

ui::Palette skin_palette();

}  // namespace ordelan::app
