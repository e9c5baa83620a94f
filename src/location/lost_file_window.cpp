#include "location/lost_file_window.h"

#include <utility>

#include "settings/reports.h"
#include "skin/lost_file_layout.h"
#include "work/arrange.h"
#include "work/dress.h"
#include "work/stored_state.h"

namespace ordelan::location {

Perdidos::Perdidos(const work::Context& context, std::function<void(Perdidos&)> fill)
    : ui::Window(context.backend, kName),
      ListPerdidos(*this, "ListPerdidos"),
      TextEncontrados(*this, "TextEncontrados"),
      Label1(*this, "Label1"),
      Button2(*this, "Button2"),
      Salir(*this, "Salir"),
      cmdSalir(*this, "cmdSalir"),
      cmdLog(*this, "cmdLog"),
      context_(context) {
  set_title("Archivos perdidos");
  set_size({skin::kLostFileWidth, skin::kLostFileHeight});
  set_position({160, 160});
  set_borderless(true);
  set_minimizable(true);
  set_drag_by_background(true);
  Label1.set_caption("Archivos perdidos o desubicados, proyecto por proyecto");
  Label1.set_font({.points = 10, .bold = true});
  ListPerdidos.set_description("Archivos perdidos");
  Button2.set_description("Minimizar");
  Button2.set_tip("Minimizar a barra de tareas");
  Salir.set_description("Cerrar");
  Salir.set_tip("Cerrar esta ventana");
  cmdSalir.set_caption("Cerrar");
  cmdLog.set_caption("Salvar lista...");
  cmdLog.set_tip("Salvar la lista en un archivo de texto");
  work::arrange(*this, skin::kLostFile);
  work::dress(*this);
  on_load = [this, fill = std::move(fill)] {
    set_topmost(true);
    work::read_place(context_.settings, *this, "Perdidos", position());
    fill(*this);
  };
  on_close = [this] { Salir_Click(); };
  Salir.on_click = [this] { Salir_Click(); };
  cmdSalir.on_click = [this] { Salir_Click(); };
  Button2.on_click = [this] { set_minimized(true); };
  cmdLog.on_click = [this] { cmdLog_Click(); };
}

void Perdidos::cmdLog_Click() {
  SalvarLog(context_.platform.dialogs.save_file(
      {.filter = "Archivos log (*.log)|*.log", .extension = "*.log"}));
}

bool Perdidos::SalvarLog(const std::string& Archivo) {
  return settings::SalvarLog(context_.platform.files, Archivo, ListPerdidos.rows());
}

void Perdidos::Salir_Click() {
  work::write_place(context_.settings, *this, "Perdidos");
  context_.windows.close<Perdidos>();
}

}  // namespace ordelan::location
