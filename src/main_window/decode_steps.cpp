// The steps that opening, sweeping and decoding one project have in common.
#include "main_window/main_window.h"
#include "text/paths.h"
#include "ui/list_width.h"

namespace ordelan::main_window {

void Form1::show_progress() {
  CheckDragDrop.hide();
  CheckLogo.hide();
  strip.XP_ProgressBar1.show();
}

void Form1::hide_progress() {
  strip.XP_ProgressBar1.hide();
  CheckDragDrop.show();
  CheckLogo.show();
}

// A project without audio is taken for a MIDI one, unless the reading was cancelled: then it is not
// known.
void Form1::decode_into_ListVip(const std::string& path, const std::string& shown) {
  const auto job = work_.current_job();
  const bool found = reader.ExtraerNombres_Archivos(path, lists.ListVip, "", true);
  if (work_.superseded(job)) return;
  if (found) {
    ui::ListaAncho(lists.ListVip);
    lists.ListVip.show();
    work_.NombreProyecto = shown;
    lists.head_project(shown, work_.RutaProyectos);
  } else {
    lists.head_midi_project();
    lists.LabelCount[0].set_visible(!work_.Cancelar);
  }
}

void Form1::LlenarListUtilizados() {
  const auto job = work_.current_job();
  lists.ListUtilizados.clear();
  reader.TotalArchivosVip = 0;
  lists.ListUtilizados.hide();
  decoding_.DescodificarProyectos(CheckBAK.checked());
  if (work_.superseded(job)) return;
  ui::ListaAncho(lists.ListUtilizados);
  lists.ListUtilizados.show();
  lists.LabelAdd.set_visible(true);
}

void Form1::LlenarListBorrar() {
  const auto job = work_.current_job();
  lists.ListBorrar.clear();
  analysis_.ListarArchivosCarpetas();
  if (work_.superseded(job)) return;
  const auto also_used = decoding_.also_used();  // stays, whatever is decoded meanwhile
  analysis_.BuscarNoUtilizados(*also_used);
  if (work_.superseded(job)) return;
  ui::ListaAncho(lists.ListBorrar);
  lists.ListBorrar.show();
  show_CommandBorrado();
}

void Form1::LlenarPerdidos() {
  const auto job = work_.current_job();
  location_.lost_files.LlenarPerdidos(tree_);
  if (!work_.superseded(job) && lost_files().TextoPerdidos().size() >= 2) cmdPerdidos.show();
}

// Forgets what was listed of the disk for this job. False if something newer has taken its place.
bool Form1::forget_tree() {
  const auto job = work_.current_job();
  system::Pacer pacer(platform_.pump, platform_.clock);
  tree_.forget([&] { pacer.turn(); });
  return !work_.superseded(job);
}

// Shown when there is something to remove.
void Form1::show_CommandBorrado() {
  CommandBorrado.set_visible(!lists.ListBorrar.empty() || removes_side_files());
}

// The option of the removal window, as it was left.
bool Form1::removes_side_files() const {
  return settings_.number("Borrar todos los asociados      ------>", 0) == 1;
}

}  // namespace ordelan::main_window
