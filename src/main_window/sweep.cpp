// A sweep over many projects: by a drop, or of one row by a double click.
#include <algorithm>
#include <unordered_set>

#include "main_window/main_window.h"
#include "project/side_files.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "text/rows.h"
#include "ui/list_width.h"

namespace ordelan::main_window {

void Form1::PrepararBarrido() {
  for (const char* window : {"SA", "Player"}) windows_.close(window);
  lists.LabelCount.set_visible(false);
  lists.ListVip.hide();
  lists.LabelAdd.set_visible(false);
  lists.LabelCheck.set_visible(false);
  lists.LabelErase.set_visible(false);
  lists.ListBorrar.hide();
  lists.ListUtilizados.hide();
  cmdPerdidos.hide();
  CommandBorrado.hide();
  cmdCancelar.show();
  work_.Cancelar = false;
  TextNum1.set_visible(false);
}

// The projects to sweep are the rows of List1. Each gets its own number, so that no two rows of
// ListProyectos are ever equal and there is nothing to strike out among them.
bool Form1::BarrerProyectos() {
  const auto job = work_.current_job();
  strip.TextDecode.hide();
  ZoomListas.hide();
  // A folder of frozen tracks is never swept.
  if (work_.RutaProyectos.find("FreezeData") != std::string::npos) return true;
  PrepararBarrido();
  work_.Descodificando = true;
  clocks.iniciarCrono();

  lists.ListProyectos.hide();
  std::vector<std::string> rows;
  for (const std::string& project : lists.List1.rows()) {
    rows.push_back(text::project_row(rows.size() + 1, project));
  }
  lists.ListProyectos.clear();
  lists.ListProyectos.add(std::move(rows));
  ui::ListaAncho(lists.ListProyectos);

  ListProyectosInfo.hide();
  const std::string& first = lists.ListProyectos.row(0);
  if (work_.RutaProyectos.empty()) {
    work_.RutaProyectos = text::Obtener_Nombre_Path(first, false);
  }
  if (work_.PrimerProyecto.empty()) work_.PrimerProyecto = text::Obtener_VipPath(first);
  ShowIco.hide();
  lists.ListProyectos.show();
  lists.head_projects(work_.RutaProyectos);
  lists.LabelCheck.set_visible(true);

  lists.ListVip.clear();
  strip.Alerta(work::kProgress, "Descodificando: " + work_.PrimerProyecto, true);
  show_progress();
  const std::string first_project = work_.PrimerProyecto;
  decode_into_ListVip(first_project, first_project);
  if (work_.superseded(job)) return false;
  strip.Alerta(work::kProgress, ": ", false);
  LlenarListUtilizados();
  if (work_.superseded(job)) return false;
  LlenarListBorrar();
  if (work_.superseded(job)) return false;
  LlenarPerdidos();
  if (work_.superseded(job) || !forget_tree()) return false;

  show_ProyectosFuera();
  lists.ListBorrar.show();
  cmdCancelar.hide();
  cmdPerdidos.show();
  hide_progress();
  clocks.ShowLapso();
  clocks.ShowLapsoDeco();
  strip.LabelAviso.hide();
  strip.Alerta(work::kProgress, ": ", false);
  work_.Descodificando = false;
  cmdReset.show();
  // The window is then empty, and the box stands on it all the same until something is opened.
  if (work_.Cancelar) cmdReset_Click();
  ZoomListas.show();
  return true;
}

void Form1::show_swept() {
  SalvaListados.show();
  ActualizarVip.show();
  ZoomListas.show();
}

void Form1::ListProyectos_Drop(const std::vector<std::string>& dropped) {
  if (work_.Borrando || work_.Descodificando) return;
  work_.begin_job();
  left_out_.clear();
  show_ProyectosFuera();
  kept_side_files_.clear();
  shown_before_reports_.reset();
  tree_.forget();
  windows_.hide("Buscar");
  ListProyectosInfo.hide();
  // What the work before offers must not outlive this one, however it ends.
  lists.ListBorrar.clear();
  strip.TextDecode.hide();
  ZoomListas.hide();
  work_.Descodificando = true;
  clocks.LabelD.set_caption("Tiempo descodificación");
  PrepararBarrido();
  work_.PrimerProyecto.clear();
  work_.RutaProyectos.clear();  // that of the projects shown before
  strip.Alerta(work::kProgress, "", false);
  ShowIco.hide();
  strip.notice_decoding();
  SalvaListados.hide();
  ActualizarVip.hide();
  if (dropped.empty()) {
    cmdReset_Click();
    return;
  }
  // Rows are cut at backslashes.
  std::vector<std::string> items = dropped;
  for (std::string& item : items) std::replace(item.begin(), item.end(), '/', '\\');
  clocks.iniciarCrono();
  lists.ListProyectos.hide();

  for (std::size_t i = 0; i < items.size(); ++i) {
    switch (drop_item({items.begin() + static_cast<std::ptrdiff_t>(i), items.end()})) {
      case Dropped::taken:
      case Dropped::nothing:
        break;
      case Dropped::swept:
        show_swept();
        tell_kept_side_files();
        return;
      case Dropped::ended:
        return;
    }
  }

  ui::ListaAncho(lists.ListProyectos);
  if (work_.PrimerProyecto.empty() || work_.Cancelar) {
    end_empty_drop();
    return;
  }
  // The path of a project, not of a folder: the headings show which one was dropped first.
  work_.RutaProyectos = work_.PrimerProyecto;
  if (!BarrerProyectos()) return;
  show_swept();
  tell_kept_side_files();
}

// The first of the items was a folder that ended the drop: the projects of the others do not count.
void Form1::leave_out_undropped(const std::vector<std::string>& items) {
  const std::string swept = text::same_file_key(items.front()) + "\\";
  std::unordered_set<std::string> listed;
  for (const std::string& project : lists.List1.rows()) {
    listed.insert(text::same_file_key(project));
  }
  for (std::size_t i = 1; i < items.size(); ++i) {
    const std::string key = text::same_file_key(items[i]);
    if (listed.contains(key) || (key + "\\").starts_with(swept)) continue;
    const auto there = platform_.files.info(items[i]);
    if (there && (there->folder || project::is_project_name(there->name))) {
      left_out_.add(items[i], project::WhyOut::after_folder);
    }
  }
}

// The window is emptied, and the entries that a sweep ends with stand on it all the same. Why
// nothing of what was dropped counts stays to be seen.
void Form1::end_empty_drop() {
  const auto left_out = work_.ProyectosFuera;
  cmdReset_Click();
  work_.ProyectosFuera = left_out;
  show_ProyectosFuera();
  show_swept();
  tell_kept_side_files();
}

// A project joins those to be swept; anything else is taken for a folder.
Form1::Dropped Form1::drop_item(const std::vector<std::string>& items) {
  const std::string& item = items.front();
  if (work_.Cancelar) {
    // A sweep of the projects taken so far would take the files of the others for unused.
    end_empty_drop();
    return Dropped::ended;
  }
  const auto job = work_.current_job();
  const auto there = platform_.files.look_up(item);
  if (!there || !project::is_project_name(there->name)) {
    // A project that is hidden or has gone is taken for a folder too.
    const auto found = platform_.files.info(item);
    if (!there && project::is_project_name(item) && !(found && found->folder)) {
      left_out_.add(item, found ? project::WhyOut::hidden : project::WhyOut::gone);
    }
    return drop_folder(items);
  }
  const bool valid = gate_.Valido(item);
  if (work_.superseded(job)) return Dropped::ended;
  if (!valid) {
    if (const auto why = gate_.refusal()) left_out_.add(item, *why);
    return Dropped::nothing;
  }
  if (work_.PrimerProyecto.empty()) {
    lists.ListProyectos.clear();
    lists.List1.clear();
    work_.PrimerProyecto = item;
  }
  lists.ListProyectos.add(text::project_row(lists.ListProyectos.count() + 1, item));
  lists.List1.add(item);
  return Dropped::taken;
}

// Sweeps the projects dropped so far together with those of a dropped folder, if it has any.
Form1::Dropped Form1::drop_folder(const std::vector<std::string>& items) {
  const std::string& folder = items.front();
  const auto job = work_.current_job();
  work_.RutaVip = folder;
  PrepararBarrido();
  const bool found = location_.BuscarVips(folder);
  if (work_.superseded(job)) {
    // A cancel in the search itself has already emptied the window, which is the one newer job.
    if (work_.Cancelar && work_.current_job() == job + 1) show_swept();
    return Dropped::ended;
  }
  if (work_.Cancelar) {
    end_empty_drop();
    return Dropped::ended;
  }
  if (!found) {
    if (removes_side_files()) ask_to_remove_side_files(folder);
    return work_.superseded(job) ? Dropped::ended : Dropped::nothing;
  }
  leave_out_undropped(items);
  return BarrerProyectos() ? Dropped::swept : Dropped::ended;
}

// A folder without projects may be cleared of its side files, also of two kinds of audio.
void Form1::ask_to_remove_side_files(const std::string& folder) {
  const auto job = work_.current_job();
  const auto answer = platform_.dialogs.message(
      {.title = "Borrar archivos asociados",
       .text =
           "Se van a borrar todos los archivos\r\n\r\nAsociados en la carpeta ....\r\n" + folder,
       .icon = system::Icon::critical,
       .buttons = system::Buttons::ok_cancel});
  if (answer != system::Answer::ok || work_.must_stop(job)) return;
  const std::string place = system::with_backslash(folder);
  system::Pacer pacer(platform_.pump, platform_.clock);
  const project::SideFiles side =
      project::side_files_of(place, lists.List1.rows(), platform_.files, tree_,
                             [&] { return !(pacer.turn() && work_.must_stop(job)); });
  if (work_.must_stop(job)) return;
  tree_.forget();  // a sweep of this drop must see the folder as it will be
  for (const std::string& name : side.removable) platform_.files.remove(place + name).ignore();
  for (const std::string& name : side.kept) kept_side_files_.push_back(place + name);
  if (!side.unreadable.empty() && !side.kept.empty()) {
    kept_side_files_.push_back("No se puede leer: " + side.unreadable);
  }
}

// Said at the end of a drop, as a sweep and a reset put the strip away.
void Form1::tell_kept_side_files() {
  if (kept_side_files_.empty()) return;
  std::string text = " >>> AVISO <<<   Se conserva el audio que nombra algún proyecto:";
  for (const std::string& row : kept_side_files_) text += "\r\n" + row;
  strip.Alerta(work::kWarning, text, true);
  kept_side_files_.clear();
}

void Form1::ListProyectos_Decode(std::size_t Indice) {
  const auto job = work_.current_job();
  strip.TextDecode.hide();
  path_strip.ListPath.hide();
  ZoomListas.hide();
  for (const char* window : {"ListasZoom", "Player", "Zoom"}) windows_.hide(window);
  clocks.iniciarCrono();
  const std::string path = text::Obtener_VipPath(lists.ListProyectos.row(Indice));

  cmdPerdidos.hide();
  CommandBorrado.hide();
  cmdCancelar.show();
  ListProyectosInfo.hide();
  lists.ListProyectos.show();
  lists.head_projects(work_.RutaProyectos);
  lists.LabelCheck.set_visible(true);
  lists.ListVip.clear();
  lists.ListVip.hide();
  strip.Alerta(work::kProgress, "Descodificando: " + path, true);
  show_progress();
  decode_into_ListVip(path, path);
  if (work_.superseded(job)) return;

  strip.Alerta(work::kProgress, ": ", false);
  lists.ListVip.show();
  strip.XP_ProgressBar1.show();
  CheckDragDrop.show();
  CheckLogo.hide();
  if (location_.has_report()) cmdPerdidos.show();
  show_CommandBorrado();
  cmdCancelar.hide();
  work_.NombreProyecto = path;
  ZoomListas.show();
  clocks.ShowLapso();
  clocks.ShowLapsoDeco();
}

void Form1::ListProyectos_DblClick() {
  if (work_.Borrando || work_.Descodificando) return;
  if (lists.ListProyectos.current() < 0) return;
  const auto job = work_.begin_job();
  shown_before_reports_.reset();
  work_.Cancelar = false;   // a stop asked of an earlier job
  strip.LabelAviso.hide();  // the notice of that job
  path_strip.ImageIcon.hide();
  work_.Descodificando = true;
  CheckDragDrop.hide();
  CheckLogo.hide();
  ListProyectos_Decode(static_cast<std::size_t>(lists.ListProyectos.current()));
  if (work_.superseded(job)) return;
  hide_progress();
  work_.Descodificando = false;
  path_strip.ListPath.hide();
}

void Form1::ListProyectos_Click() {
  if (work_.Borrando) return;
  work_.ClickEnLista = true;
  if (work_.Descodificando) return;
  path_strip.MostrarPath(lists.ListProyectos.current_row());
}

}  // namespace ordelan::main_window
