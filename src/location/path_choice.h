// The hits among which the user chooses when a name is found in several places.
#pragma once

#include "ui/list_box.h"
#include "ui/window.h"

namespace ordelan::location {

struct PathChoice {
  explicit PathChoice(ui::Window& window) : ListElegirRuta(window, "ListElegirRuta") {}

  ui::ListBox ListElegirRuta;
  bool Elegido = false;  // whether the user has chosen
};

}  // namespace ordelan::location
