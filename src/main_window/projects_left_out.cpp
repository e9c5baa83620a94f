// What the main window shows of the projects that are left out.
#include "main_window/main_window.h"
#include "main_window/projects_left_out_window.h"

namespace ordelan::main_window {

void Form1::show_ProyectosFuera() {
  const std::size_t count = work_.ProyectosFuera.size();
  LabelFuera.set_caption(std::to_string(count) + " proyectos no cuentan");
  LabelFuera.set_visible(count > 0);
  auto* const window = windows_.find<Fuera>();
  if (window == nullptr) return;
  if (count > 0) {
    window->fill();
  } else {
    window->Salir_Click();
  }
}

void Form1::LabelFuera_Click() {
  if (auto* const open = windows_.find<Fuera>()) {
    open->Salir_Click();
  } else if (Fuera* const made = windows_.touch<Fuera>()) {
    made->show();
  }
}

}  // namespace ordelan::main_window
