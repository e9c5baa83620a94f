// Saving the lists as reports, in a folder beside the projects.
#include "main_window/main_window.h"
#include "settings/reports.h"
#include "text/paths.h"
#include "ui/list_width.h"

namespace ordelan::main_window {

void Form1::SalvaListados_Click() {
  if (work_.Borrando || work_.Descodificando || work_.Actualizando) return;
  if (work_.RutaProyectos.empty()) return;  // after a drop of nothing: there is nothing to save
  auto job = work::Job::begin(work_, platform_);
  work_.Cancelar = false;
  const std::string folder = work_.RutaProyectos + "Listados\\";
  if (!platform_.files.info(folder)) platform_.files.make_folder(folder).ignore();
  show_saving_reports();

  std::vector<std::string> failed;
  const auto save = [&](const std::string& name, const ui::ListBox& list,
                        const ui::ControlArray<ui::Label>& headings) {
    const bool saved =
        settings::SalvarListados(platform_.files, platform_.regional, folder + name, list.rows(),
                                 headings[0].caption(), headings[1].caption());
    if (!saved) failed.push_back(folder + name);
  };
  // Begun again in the middle of itself, the reports still put back what stood before the first.
  if (!shown_before_reports_) shown_before_reports_ = shown_project();
  job.set_busy();
  for (std::size_t i = 0; i < lists.ListProyectos.count(); ++i) {
    const std::string row = lists.ListProyectos.row(i);
    ListProyectos_Decode(job, i);
    if (job.superseded()) return;
    if (job.cancelled()) break;
    save("Archivos de " + text::Obtener_Nombre_Archivo(row) + ".log", lists.ListVip,
         lists.LabelCount);
    // Small projects are read too quickly to give the window a turn.
    job.turn();
    if (job.superseded()) return;
  }
  work_.Cancelar = false;
  if (shown_before_reports_) show_again(*shown_before_reports_);
  shown_before_reports_.reset();
  job.set_idle();
  show_reports_saved();
  save("Archivos Totales.log", lists.ListUtilizados, lists.LabelAdd);
  save("Archivos a Borrar.log", lists.ListBorrar, lists.LabelErase);
  tell_unsaved(failed);
}

// What the window shows of the decoded project. It is put back as it stood, not decoded again: the
// project may be no row of the list (a backup opened by hand), stand there in another case, or have
// changed on the disk since.
Form1::ShownProject Form1::shown_project() const {
  ShownProject shown{lists.ListVip.rows(),
                     lists.ListVip.visible(),
                     lists.ListVip.current(),
                     work_.NombreProyecto,
                     {}};
  for (const auto& heading : lists.LabelCount) {
    shown.headings.push_back({heading->caption(), heading->visible()});
  }
  return shown;
}

void Form1::show_again(const ShownProject& shown) {
  lists.ListVip.clear();
  lists.ListVip.add(shown.rows);
  ui::ListaAncho(lists.ListVip);
  lists.ListVip.set_visible(shown.visible);
  lists.ListVip.set_current(shown.current);
  work_.NombreProyecto = shown.NombreProyecto;
  for (std::size_t i = 0; i < shown.headings.size(); ++i) {
    ui::Label& heading = lists.LabelCount[static_cast<int>(i)];
    heading.set_caption(shown.headings[i].caption);
    heading.set_visible(shown.headings[i].visible);
  }
}

// Reports that could not be written are named on the strip, without a message box.
void Form1::tell_unsaved(const std::vector<std::string>& failed) {
  if (failed.empty()) return;
  std::string text = " >>> AVISO <<<   No se ha podido salvar:";
  for (const std::string& path : failed) text += "\r\n" + path;
  strip.Alerta(work::kWarning, text, true);
}

}  // namespace ordelan::main_window
