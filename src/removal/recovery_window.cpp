#include "removal/recovery_window.h"

#include <utility>

#include "removal/backup_folder.h"
#include "removal/reasons.h"
#include "removal/recovery.h"
#include "removal/removal_log.h"
#include "skin/recovery_layout.h"
#include "text/paths.h"
#include "text/rows.h"
#include "ui/list_width.h"
#include "work/job.h"
#include "work/place_keys.h"
#include "work/window_names.h"

namespace ordelan::removal {
namespace {

// From sound and its windows, which could hold a file open.
void close_sound(work::WindowDirectory& windows) {
  for (const char* const name :
       {work::window_name::kZoom, work::window_name::kSA, work::window_name::kPlayer}) {
    windows.close(name);
  }
}

}  // namespace

Recuperar::Recuperar(const RemovalContext& removal)
    : ProgramWindow(removal.work, {.name = kName,
                                   .title = "Recuperar",
                                   .layout = skin::kRecovery,
                                   .place = {200, 180},
                                   .place_key = work::place_key::kRecuperar,
                                   .stores_after_drag = true,
                                   .stores_at_unload = true,
                                   .topmost = true,
                                   .minimizable = true,
                                   .resizable = true,
                                   .smallest = {333, 200},
                                   .shown = true}),
      ListRecuperar(*this, "ListRecuperar"),
      Label1(*this, "Label1"),
      cmdOpen(*this, "cmdOpen"),
      cmdRecuperar(*this, "cmdRecuperar"),
      LabelCerrar(*this, "LabelCerrar"),
      ListNoRecuperados(*this, "ListNoRecuperados"),
      cmdMinimizar(*this, "cmdMinimizar"),
      Salir(*this, "Salir"),
      removal_(removal) {
  ListRecuperar.set_tip("Esta lista presenta los archivos que se han borrado");
  ListRecuperar.set_description("Archivos que se han borrado");
  Label1.set_caption("Listado de archivos a recuperar");
  cmdOpen.set_caption("Abrir log...");
  cmdOpen.set_tip("Abrir archivo log");
  cmdRecuperar.set_caption("Recuperar");
  cmdRecuperar.set_tip("Recuperar archivos al origen");
  LabelCerrar.set_caption(" Ahora de puede cerrar esta ventana ");
  ListNoRecuperados.set_description("Archivos que no se han recuperado");
  make_minimize_button(cmdMinimizar);
  make_close_button(Salir);
  set_up();
  on_close = [this] { Salir_Click(); };
  Salir.on_click = [this] { Salir_Click(); };
  cmdOpen.on_click = [this] { cmdOpen_Click(); };
  cmdRecuperar.on_click = [this] { RecuperarArchivos(); };
}

void Recuperar::Form_Load() {
  cmdRecuperar.hide();
  cmdOpen.show();
  close_sound(context().windows);
  LabelCerrar.hide();
  ListNoRecuperados.hide();
}

// Whether this window is still the one that the program shows.
bool Recuperar::is_open() const {
  return context().windows.find<Recuperar>() == this;
}

void Recuperar::cmdOpen_Click() {
  if (busy_) return;
  close_sound(context().windows);
  removal_.listener.hide_ListPath();
  const auto picked =
      context().platform.dialogs.open_files({.filter = "Archivos_Borrados (*.log)|*.log"});
  if (picked.empty() || !is_open() || busy_) return;
  const std::string& log = picked.front();
  if (text::Obtener_Nombre_Archivo(log) != kLogName) {
    Label1.set_caption("Este archivo no es válido");
    hide();
    return;
  }
  const auto file = context().platform.files.open(log);
  if (file && file->size() < kShortestLog) {
    warn_of_empty_log();
    return;
  }
  ListRecuperar.clear();
  const auto read = bytes_of(context().platform.files, log);
  if (!read) {
    // Nothing of a log that was read before may be brought back by this one's button.
    log_.clear();
    cmdRecuperar.hide();
    Label1.set_caption("No se puede leer: " + reason::of(read.status()));
    return;
  }
  const std::string& bytes = *read;

  busy_ = true;
  system::Pacer pacer(context().platform.pump, context().platform.clock);
  ListedFiles listed = read_log(bytes, [&] {
    pacer.turn();
    return is_open();
  });
  busy_ = false;
  if (!is_open()) return;
  log_ = log;
  if (!listed.heading.empty()) Label1.set_caption(listed.heading);
  ListRecuperar.add(std::move(listed.paths));
  if (ListRecuperar.empty()) return;
  ui::ListaAncho(ListRecuperar);
  Label1.set_caption("Hay: " + std::to_string(ListRecuperar.count()) + " " + Label1.caption());
  Label1.show();
  cmdRecuperar.show();
}

void Recuperar::warn_of_empty_log() {
  removal_.listener.show_ListPath(
      {" >>> AVISO <<< ", "   Este archivo no tiene archivos para recuperar"});
  hide();
  context().windows.close<Recuperar>();
}

void Recuperar::RecuperarArchivos() {
  if (busy_ || removal_.state.running) return;
  busy_ = true;
  removal_.sound.stop_and_empty();  // a file that plays cannot be replaced
  recovered_ = 0;
  not_recovered_.clear();
  const auto rows = ListRecuperar.kept_rows();
  system::Pacer pacer(context().platform.pump, context().platform.clock);
  const auto go_on = [&] {
    pacer.turn();
    return is_open();
  };
  Recovery recovery(context().platform.files, context().platform.shell, log_, go_on);
  for (const std::string& row : *rows) {
    std::string why = recovery.bring_back(row);
    if (why.empty()) {
      ++recovered_;
    } else {
      not_recovered_.push_back({row, std::move(why), {}});
    }
    if (!go_on()) break;
  }
  busy_ = false;
  if (!is_open()) return;
  cmdRecuperar.hide();
  Label1.set_caption("Operación terminada");
  cmdOpen.hide();
  LabelCerrar.show();
  ListNoRecuperados.clear();
  for (const Kept& each : not_recovered_) {
    ListNoRecuperados.add(text::row_with_reason(each.ruta, each.motivo));
  }
  ListNoRecuperados.set_visible(!not_recovered_.empty());
  ui::ListaAncho(ListNoRecuperados);
}

void Recuperar::Salir_Click() {
  context().windows.close<Recuperar>();
}

}  // namespace ordelan::removal
