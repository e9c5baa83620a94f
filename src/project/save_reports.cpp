// Saving the lists as reports, in a folder beside the projects.
#include "project/main_window.h"
#include "settings/reports.h"
#include "text/paths.h"

namespace ordelan::project {

void Form1::SalvaListados_Click() {
  if (work_.Borrando || work_.Descodificando) return;
  const auto job = work_.begin_job();
  work_.Cancelar = false;
  const std::string folder = work_.RutaProyectos + "Listados\\";
  if (!platform_.files.info(folder)) platform_.files.make_folder(folder);
  CheckDragDrop.hide();
  CheckLogo.hide();
  lists.ListProyectos.hide();

  const auto save = [&](const std::string& name, const ui::ListBox& list,
                        const ui::ControlArray<ui::Label>& headings) {
    settings::SalvarListados(platform_.files, platform_.regional, folder + name, list,
                             headings[0].caption(), headings[1].caption());
  };
  const std::string shown = work_.NombreProyecto;
  std::size_t remembered = lists.ListProyectos.count();
  work_.Descodificando = true;
  for (std::size_t i = 0; i < lists.ListProyectos.count(); ++i) {
    const std::string row = lists.ListProyectos.row(i);
    if (row.find(shown) != std::string::npos) remembered = i;
    ListProyectos_Decode(i);
    if (work_.superseded(job)) return;
    if (work_.Cancelar) break;
    save("Archivos de " + text::Obtener_Nombre_Archivo(row) + ".log", lists.ListVip,
         lists.LabelCount);
  }
  work_.Cancelar = false;
  // The window is left as it stood.
  if (remembered < lists.ListProyectos.count()) ListProyectos_Decode(remembered);
  if (work_.superseded(job)) return;
  work_.Descodificando = false;
  strip.XP_ProgressBar1.hide();
  lists.ListProyectos.show();
  CheckDragDrop.show();
  CheckLogo.show();
  save("Archivos Totales.log", lists.ListUtilizados, lists.LabelAdd);
  save("Archivos a Borrar.log", lists.ListBorrar, lists.LabelErase);
}

}  // namespace ordelan::project
