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
  work_.ListaBorrarCompleta = false;
  const auto candidates = analysis_.ListarArchivosCarpetas(job);
  if (job.superseded()) return;
  const std::vector<std::string> also_used = decoding_.also_used();  // a decode may come between
  analysis_.BuscarNoUtilizados(job, candidates, also_used);
  if (job.superseded()) return;
  if (!job.cancelled() && !lists.ListUtilizados.empty()) {
    CopiarListBorrados();
    if (may_remove) note_listed(job);
    if (job.superseded()) return;
    work_.ListaBorrarCompleta = may_remove && !job.cancelled();
  }
  ui::ListaAncho(lists.ListBorrar);
  lists.ListBorrar.show();
  show_CommandBorrado();
}

// Notes how the files of list 4 stand on the disk: one that changes later is not removed.
void Form1::note_listed(work::Job& job) {
  work_.VistosBorrar.clear();
  work_.FilasVistas = lists.ListBorrar.kept_rows();
  const auto rows = work_.FilasVistas;
  work_.VistosBorrar.reserve(rows->size());
  for (const std::string& row : *rows) {
    // A look at each takes seconds on Windows, whose listings have told it already.
    const work::FolderTree::Entry* const listed = job.folders().known_file(row);
    if (listed != nullptr && listed->modified != 0) {
      work_.VistosBorrar.push_back({listed->size, listed->modified});
    } else {
      const auto info = platform_.files.info(row);
      work_.VistosBorrar.push_back(info ? work::Visto{info->size, info->modified}
                                        : work::Visto{work::Visto::kMissing, 0});
    }
    if (!job.turn()) return;
  }
}

void Form1::LlenarPerdidos(work::Job& job) {
  location_.lost_files.LlenarPerdidos(job);
  if (!job.superseded() && lost_files().TextoPerdidos().size() >= 2) cmdPerdidos.show();
}

}  // namespace ordelan::main_window
