// The window in which the user ticks the drives that may be searched. Closing it only hides it: its
// boxes are asked for as long as the program runs.
#pragma once

#include <functional>

#include "location/context.h"
#include "location/drive_boxes.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/window.h"

namespace ordelan::location {

class UnidadesBuscar final : public ui::Window, public DriveBoxes {
 public:
  // `UnidadesDisponibles` makes the boxes; it is called when the window is loaded.
  UnidadesBuscar(const Context& context, std::function<void()> UnidadesDisponibles);

  ui::Label Label1;
  ui::Button cmdSalir;

 private:
  void Form_Load();
  bool Form_QueryUnload();

  Context context_;
  std::function<void()> UnidadesDisponibles_;
};

}  // namespace ordelan::location
