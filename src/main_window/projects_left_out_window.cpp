#include "main_window/projects_left_out_window.h"

#include <string>
#include <utility>
#include <vector>

#include "skin/projects_left_out_layout.h"
#include "ui/list_width.h"
#include "work/arrange.h"
#include "work/dress.h"
#include "work/stored_state.h"

namespace ordelan::main_window {

Fuera::Fuera(const work::Context& context)
    : ui::Window(context.backend, kName),
      Label1(*this, "Label1"),
      ListFuera(*this, "ListFuera"),
      LabelNota(*this, "LabelNota"),
      Button2(*this, "Button2"),
      Salir(*this, "Salir"),
      cmdSalir(*this, "cmdSalir"),
      context_(context) {
  set_title("Proyectos que no cuentan");
  set_size({skin::kProjectsLeftOutWidth, skin::kProjectsLeftOutHeight});
  set_position({180, 180});
  set_borderless(true);
  set_minimizable(true);
  set_drag_by_background(true);
  Label1.set_caption(title());
  Label1.set_font({.points = 10, .bold = true});
  ListFuera.set_description(title());
  LabelNota.set_caption(
      "Lo que usan estos proyectos puede aparecer en la lista 4 como no utilizado.");
  Button2.set_description("Minimizar");
  Button2.set_tip("Minimizar a barra de tareas");
  Salir.set_description("Cerrar");
  Salir.set_tip("Cerrar esta ventana");
  cmdSalir.set_caption("Cerrar");
  work::arrange(*this, skin::kProjectsLeftOut);
  work::dress(*this);
  on_load = [this] {
    set_topmost(true);
    work::read_place(context_.settings, *this, name(), position());
    fill();
  };
  on_close = [this] { Salir_Click(); };
  Salir.on_click = [this] { Salir_Click(); };
  cmdSalir.on_click = [this] { Salir_Click(); };
  Button2.on_click = [this] { set_minimized(true); };
}

void Fuera::fill() {
  std::vector<std::string> rows;
  rows.reserve(context_.work.ProyectosFuera.size());
  for (const work::ProyectoFuera& each : context_.work.ProyectosFuera) {
    rows.push_back(each.ruta + "   (" + each.motivo + ")");
  }
  ListFuera.clear();
  ListFuera.add(std::move(rows));
  ui::ListaAncho(ListFuera);
}

void Fuera::Salir_Click() {
  work::write_place(context_.settings, *this, name());
  context_.windows.close<Fuera>();
}

}  // namespace ordelan::main_window
