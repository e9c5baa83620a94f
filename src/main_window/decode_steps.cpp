// The steps that opening, sweeping and decoding one project have in common.
#include "main_window/main_window.h"
#include "ui/list_width.h"

namespace ordelan::main_window {

// A project without audio is taken for a MIDI one, unless the reading was cancelled: then it is not
// known.
void Form1::decode_into_ListVip(work::Job& job, const std::string& path, const std::string& shown) {
  const bool found = reader.ExtraerNombres_Archivos(path, project::into(lists.ListVip), "", true);
  if (job.superseded()) return;
  if (found) {
    ui::ListaAncho(lists.ListVip);
    lists.ListVip.show();
    work_.NombreProyecto = shown;
    lists.head_project(shown, work_.RutaProyectos);
  } else {
    lists.head_midi_project();
    lists.LabelCount[0].set_visible(!job.cancelled());
  }
}

void Form1::LlenarListUtilizados(work::Job& job) {
  lists.ListUtilizados.clear();
  reader.TotalArchivosVip = 0;
  lists.ListUtilizados.hide();
  decoding_.DescodificarProyectos(job, CheckBAK.checked());
  if (job.superseded()) return;
  ui::ListaAncho(lists.ListUtilizados);
  lists.ListUtilizados.show();
  lists.LabelAdd.set_visible(true);
}

void Form1::LlenarListBorrar(work::Job& job) {
  lists.ListBorrar.clear();
  const auto candidates = analysis_.ListarArchivosCarpetas(job);
  if (job.superseded()) return;
  const std::vector<std::string> also_used = decoding_.also_used();  // a decode may come between
  analysis_.BuscarNoUtilizados(job, candidates, also_used);
  if (job.superseded()) return;
  ui::ListaAncho(lists.ListBorrar);
  lists.ListBorrar.show();
  show_CommandBorrado();
}

void Form1::LlenarPerdidos(work::Job& job) {
  location_.lost_files.LlenarPerdidos(job);
  if (!job.superseded() && lost_files().TextoPerdidos().size() >= 2) cmdPerdidos.show();
}

// The option of the removal window, as it was left.
bool Form1::removes_side_files() const {
  return settings_.number("Borrar todos los asociados      ------>", 0) == 1;
}

}  // namespace ordelan::main_window
