#include "location/lost_file_window.h"

#include <utility>

#include "settings/reports.h"
#include "skin/lost_file_layout.h"
#include "work/place_keys.h"

namespace ordelan::location {

Perdidos::Perdidos(const work::Context& context, std::function<void(Perdidos&)> fill)
    : ProgramWindow(context, {.name = kName,
                              .title = "Archivos perdidos",
                              .layout = skin::kLostFile,
                              .place = {160, 160},
                              .place_key = work::place_key::kPerdidos,
                              .topmost = true,
                              .minimizable = true,
                              .resizable = true,
                              .smallest = {620, 240}}),
      ListPerdidos(*this, "ListPerdidos"),
      TextEncontrados(*this, "TextEncontrados"),
      Label1(*this, "Label1"),
      Button2(*this, "Button2"),
      Salir(*this, "Salir"),
      cmdSalir(*this, "cmdSalir"),
      cmdLog(*this, "cmdLog"),
      fill_(std::move(fill)) {
  Label1.set_caption("Archivos perdidos o desubicados, proyecto por proyecto");
  Label1.set_font({.points = 10, .bold = true});
  ListPerdidos.set_description("Archivos perdidos");
  make_minimize_button(Button2);
  make_close_button(Salir);
  cmdSalir.set_caption("Cerrar");
  cmdLog.set_caption("Salvar lista...");
  cmdLog.set_tip("Salvar la lista en un archivo de texto");
  set_up();
  on_close = [this] { Salir_Click(); };
  Salir.on_click = on_close;
  cmdSalir.on_click = on_close;
  cmdLog.on_click = [this] { cmdLog_Click(); };
}

void Perdidos::cmdLog_Click() {
  SalvarLog(context().platform.dialogs.save_file(
      {.filter = "Archivos log (*.log)|*.log", .extension = "*.log"}));
}

bool Perdidos::SalvarLog(const std::string& Archivo) {
  return settings::SalvarLog(context().platform.files, Archivo, ListPerdidos.rows());
}

void Perdidos::Salir_Click() {
  store_place();
  context().windows.close<Perdidos>();
}

}  // namespace ordelan::location
