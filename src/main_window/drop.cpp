// Projects and folders dropped on the list of projects.
#include <algorithm>
#include <unordered_set>

#include "location/search_window.h"
#include "main_window/main_window.h"
#include "project/side_files.h"
#include "text/paths.h"
#include "text/rows.h"
#include "ui/list_width.h"

namespace ordelan::main_window {

void Form1::ListProyectos_Drop(const std::vector<std::string>& dropped) {
  if (work_.Borrando || work_.Descodificando) return;
  auto job = work::Job::begin(work_, platform_);
  dropped_ = dropped;
  work_.ListaBorrarCompleta = false;
  left_out_.clear();
  show_ProyectosFuera();
  kept_side_files_.clear();
  shown_before_reports_.reset();
  windows_.hide<location::Buscar>();
  // What the work before offers must not outlive this one, however it ends.
  lists.ListBorrar.clear();
  job.set_busy();
  clocks.LabelD.set_caption("Tiempo descodificación");
  PrepararBarrido();
  work_.PrimerProyecto.clear();
  work_.RutaProyectos.clear();  // that of the projects shown before
  strip.Alerta(work::kProgress, "", false);
  show_dropping();
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
    switch (drop_item(job, {items.begin() + static_cast<std::ptrdiff_t>(i), items.end()})) {
      case Dropped::taken:
      case Dropped::nothing:
        break;
      case Dropped::swept:
        show_commands();
        tell_kept_side_files();
        return;
      case Dropped::ended:
        return;
    }
  }

  ui::ListaAncho(lists.ListProyectos);
  if (work_.PrimerProyecto.empty() || job.cancelled()) {
    end_empty_drop();
    return;
  }
  // The path of a project, not of a folder: the headings show which one was dropped first.
  work_.RutaProyectos = work_.PrimerProyecto;
  if (!BarrerProyectos(job)) return;
  show_commands();
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
  show_commands();
  tell_kept_side_files();
}

// A project joins those to be swept; anything else is taken for a folder.
Form1::Dropped Form1::drop_item(work::Job& job, const std::vector<std::string>& items) {
  const std::string& item = items.front();
  if (job.cancelled()) {
    // A sweep of the projects taken so far would take the files of the others for unused.
    end_empty_drop();
    return Dropped::ended;
  }
  const auto there = platform_.files.look_up(item);
  if (!there || !project::is_project_name(there->name)) {
    // A project that is hidden or has gone is taken for a folder too.
    const auto found = platform_.files.info(item);
    if (!there && project::is_project_name(item) && !(found && found->folder)) {
      left_out_.add(item, found ? project::WhyOut::hidden : project::WhyOut::gone);
    }
    return drop_folder(job, items);
  }
  const bool valid = gate_.Valido(item);
  if (job.superseded()) return Dropped::ended;
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
Form1::Dropped Form1::drop_folder(work::Job& job, const std::vector<std::string>& items) {
  const std::string& folder = items.front();
  work_.RutaVip = folder;
  PrepararBarrido();
  const bool found = location_.BuscarVips(folder, job);
  if (job.superseded()) {
    // A cancel in the search itself has already emptied the window, which is the one newer job.
    if (job.cancelled() && work_.current_job() == job.number() + 1) show_commands();
    return Dropped::ended;
  }
  if (job.cancelled()) {
    end_empty_drop();
    return Dropped::ended;
  }
  if (!found) {
    // In pointer mode every project is refused: the folder may have some all the same.
    if (removes_side_files() && !work_.ModoPosiciones) ask_to_remove_side_files(job, folder);
    return job.superseded() ? Dropped::ended : Dropped::nothing;
  }
  leave_out_undropped(items);
  return BarrerProyectos(job) ? Dropped::swept : Dropped::ended;
}

// A folder without projects may be cleared of its side files, also of two kinds of audio.
void Form1::ask_to_remove_side_files(work::Job& job, const std::string& folder) {
  const auto answer = platform_.dialogs.message(
      {.title = "Borrar archivos asociados",
       .text =
           "Se van a borrar todos los archivos\r\n\r\nAsociados en la carpeta ....\r\n" + folder,
       .icon = system::Icon::critical,
       .buttons = system::Buttons::ok_cancel});
  if (answer != system::Answer::ok || job.must_stop()) return;
  const std::string place = system::with_backslash(folder);
  const project::SideFiles side = project::side_files_of(place, lists.List1.rows(), platform_.files,
                                                         job.folders(), [&] { return job.turn(); });
  if (job.must_stop()) return;
  job.folders().forget();  // a sweep of this drop must see the folder as it will be
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

}  // namespace ordelan::main_window
