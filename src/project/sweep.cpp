// A sweep over many projects: by a drop, or of one row by a double click.
#include "project/main_window.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "text/rows.h"
#include "text/wildcard.h"
#include "ui/list_width.h"

namespace ordelan::project {

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
void Form1::BarrerProyectos() {
  const auto job = work_.current_job();
  strip.TextDecode.hide();
  ZoomListas.hide();
  // A folder of frozen tracks is never swept.
  if (work_.RutaProyectos.find("FreezeData") != std::string::npos) return;
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
  decode_into_ListVip(std::string(work_.PrimerProyecto));
  if (work_.superseded(job)) return;
  strip.Alerta(work::kProgress, ": ", false);
  LlenarListUtilizados();
  if (work_.superseded(job)) return;
  LlenarListBorrar();
  if (work_.superseded(job)) return;
  location_->LlenarPerdidos(tree_);
  if (work_.superseded(job)) return;
  tree_.forget();

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
  if (work_.Cancelar) {
    cmdReset_Click();
    return;
  }
  ZoomListas.show();
}

void Form1::show_swept() {
  SalvaListados.show();
  ActualizarVip.show();
  ZoomListas.show();
}

void Form1::ListProyectos_Drop(const std::vector<std::string>& items) {
  if (work_.Borrando || work_.Descodificando) return;
  const auto job = work_.begin_job();
  tree_.forget();
  windows_.hide("Buscar");
  ListProyectosInfo.hide();
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
  if (items.empty()) {
    cmdReset_Click();
    return;
  }
  clocks.iniciarCrono();
  lists.ListProyectos.hide();

  std::size_t number = 1;
  for (const std::string& item : items) {
    const auto there = platform_.files.look_up(item);
    const std::string name = there ? text::lower(there->name) : "";
    if (!name.ends_with(".vip")) {
      const bool swept = drop_folder(item);
      if (work_.superseded(job)) return;
      if (!swept) continue;
      show_swept();
      return;
    }
    const bool valid = validator_.Valido(item);
    if (work_.superseded(job)) return;
    if (!valid) continue;
    if (work_.PrimerProyecto.empty()) {
      lists.ListProyectos.clear();
      lists.List1.clear();
      work_.PrimerProyecto = item;
    }
    lists.ListProyectos.add(text::project_row(number++, item));
    lists.List1.add(item);
  }

  ui::ListaAncho(lists.ListProyectos);
  if (work_.PrimerProyecto.empty() || work_.Cancelar) {
    cmdReset_Click();
    return;
  }
  // The path of a project, not of a folder: the headings show which one was dropped first.
  work_.RutaProyectos = work_.PrimerProyecto;
  BarrerProyectos();
  if (!work_.superseded(job)) show_swept();
}

// Sweeps the projects of a dropped folder. False if there are none, or if it has been stopped.
bool Form1::drop_folder(const std::string& folder) {
  const auto job = work_.current_job();
  work_.RutaVip = folder;
  PrepararBarrido();
  const bool found = location_->BuscarVips(folder);
  if (work_.superseded(job)) return false;
  if (work_.Cancelar) {
    // A sweep of the projects found so far would take the files of the others for unused.
    cmdReset_Click();
    return false;
  }
  if (!found) {
    if (removes_side_files()) ask_to_remove_side_files(folder);
    return false;
  }
  BarrerProyectos();
  return !work_.superseded(job);
}

// A folder without projects may be cleared of side files, also of those of two kinds of audio. Only
// whole names count here, not the short ones by which searches find more: what is removed is gone.
void Form1::ask_to_remove_side_files(const std::string& folder) {
  const auto answer = platform_.dialogs.message(
      {.title = "Borrar archivos asociados",
       .text =
           "Se van a borrar todos los archivos\r\n\r\nAsociados en la carpeta ....\r\n" + folder,
       .icon = system::Icon::critical,
       .buttons = system::Buttons::ok_cancel});
  if (answer != system::Answer::ok) return;
  const std::string place = system::with_backslash(folder);
  const auto& files = tree_.listing(place).files;
  for (const char* extension : {"h2", "hdp", "hm2", "hmp", "ha2", "hap", "hg2", "hgp", "hf2", "hfp",
                                "cue", "hz", "wma", "m4a", "hs"}) {
    for (const FolderTree::Entry& file : files) {
      const bool fits = text::lower(text::Obtener_Extension(file.name)) == extension;
      if (fits && file.plain) platform_.files.remove(place + file.name);
    }
  }
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
  decode_into_ListVip(path);
  if (work_.superseded(job)) return;

  strip.Alerta(work::kProgress, ": ", false);
  lists.ListVip.show();
  strip.XP_ProgressBar1.show();
  CheckDragDrop.show();
  CheckLogo.hide();
  if (location_->has_report()) cmdPerdidos.show();
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
  work_.Cancelar = false;  // a stop asked of an earlier job
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

}  // namespace ordelan::project
