#include "main_window/projects_left_out_window.h"

#include <string>
#include <utility>
#include <vector>

#include "skin/projects_left_out_layout.h"
#include "text/rows.h"
#include "ui/list_width.h"
#include "work/place_keys.h"

namespace ordelan::main_window {

Fuera::Fuera(const work::Context& context)
    : ProgramWindow(context, {.name = kName,
                              .title = "Proyectos que no cuentan",
                              .layout = skin::kProjectsLeftOut,
                              .place = {180, 180},
                              .place_key = work::place_key::kFuera,
                              .topmost = true,
                              .minimizable = true}),
      Label1(*this, "Label1"),
      ListFuera(*this, "ListFuera"),
      LabelNota(*this, "LabelNota"),
      Button2(*this, "Button2"),
      Salir(*this, "Salir"),
      cmdSalir(*this, "cmdSalir") {
  Label1.set_caption(title());
  Label1.set_font({.points = 10, .bold = true});
  ListFuera.set_description(title());
  LabelNota.set_caption(
      "Lo que usan estos proyectos puede aparecer en la lista 4 como no utilizado.");
  make_minimize_button(Button2);
  make_close_button(Salir);
  cmdSalir.set_caption("Cerrar");
  set_up();
  on_close = [this] { Salir_Click(); };
  Salir.on_click = on_close;
  cmdSalir.on_click = on_close;
}

void Fuera::fill() {
  std::vector<std::string> rows;
  rows.reserve(context().work.ProyectosFuera.size());
  for (const work::ProyectoFuera& each : context().work.ProyectosFuera) {
    rows.push_back(text::row_with_reason(each.ruta, each.motivo));
  }
  ListFuera.clear();
  ListFuera.add(std::move(rows));
  ui::ListaAncho(ListFuera);
}

void Fuera::Salir_Click() {
  store_place();
  context().windows.close<Fuera>();
}

}  // namespace ordelan::main_window
