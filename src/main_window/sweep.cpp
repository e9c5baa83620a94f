// A sweep over many projects, and the decoding of one row by a double click.
#include "main_window/main_window.h"
#include "text/paths.h"
#include "text/rows.h"
#include "ui/list_width.h"

namespace ordelan::main_window {

void Form1::PrepararBarrido() {
  close_windows({kSA, kPlayer});
  show_sweeping();
  work_.Cancelar = false;
}

// The projects to sweep are the rows of List1. Each gets its own number, so that no two rows of
// ListProyectos are ever equal and there is nothing to strike out among them.
bool Form1::BarrerProyectos(work::Job& job) {
  strip.TextDecode.hide();
  ZoomListas.hide();
  // A folder of frozen tracks is never swept.
  if (work_.RutaProyectos.find("FreezeData") != std::string::npos) return true;
  PrepararBarrido();
  job.set_busy();
  clocks.iniciarCrono();

  lists.ListProyectos.hide();
  std::vector<std::string> rows;
  for (const std::string& project : lists.List1.rows()) {
    rows.push_back(text::project_row(rows.size() + 1, project));
  }
  lists.ListProyectos.clear();
  lists.ListProyectos.add(std::move(rows));
  ui::ListaAncho(lists.ListProyectos);

  const std::string& first = lists.ListProyectos.row(0);
  if (work_.RutaProyectos.empty()) {
    work_.RutaProyectos = text::Obtener_Nombre_Path(first, false);
  }
  if (work_.PrimerProyecto.empty()) work_.PrimerProyecto = text::Obtener_VipPath(first);
  ShowIco.hide();
  show_projects();

  lists.ListVip.clear();
  strip.Alerta(work::kProgress, "Descodificando: " + work_.PrimerProyecto, true);
  show_progress();
  const std::string first_project = work_.PrimerProyecto;
  decode_into_ListVip(job, first_project, first_project);
  if (job.superseded()) return false;
  strip.Alerta(work::kProgress, ": ", false);
  LlenarListUtilizados(job);
  if (job.superseded()) return false;
  LlenarListBorrar(job);
  if (job.superseded()) return false;
  LlenarPerdidos(job);
  if (job.superseded() || !job.forget_folders()) return false;

  show_ProyectosFuera();
  show_swept();
  clocks.ShowLapso();
  clocks.ShowLapsoDeco();
  strip.Alerta(work::kProgress, ": ", false);
  job.set_idle();
  cmdReset.show();
  // The window is then empty, and the box stands on it all the same until something is opened.
  if (job.cancelled()) cmdReset_Click();
  ZoomListas.show();
  return true;
}

void Form1::ListProyectos_Decode(work::Job& job, std::size_t Indice) {
  strip.TextDecode.hide();
  path_strip.ListPath.hide();
  ZoomListas.hide();
  close_windows({kPlayer});
  for (const char* window : {kListasZoom, kZoom}) windows_.hide(window);
  clocks.iniciarCrono();
  const std::string path = text::Obtener_VipPath(lists.ListProyectos.row(Indice));

  lists.ListVip.clear();
  strip.Alerta(work::kProgress, "Descodificando: " + path, true);
  show_decoding_row();
  decode_into_ListVip(job, path, path);
  if (job.superseded()) return;

  strip.Alerta(work::kProgress, ": ", false);
  show_decoded_row();
  work_.NombreProyecto = path;
  clocks.ShowLapso();
  clocks.ShowLapsoDeco();
}

void Form1::ListProyectos_DblClick() {
  ui::ListBox& list = lists.ListProyectos;
  if (!decode_row(list.current())) return;
  path_strip.ListPath.hide();
  sound_.rows.ToolTipShow("ListProyectos", list, list.current_row());
}

// Decodes that row of ListProyectos into ListVip. False where it may not be, or a newer job has
// taken its place.
bool Form1::decode_row(int row) {
  // While projects are updated the reader gives no rows: the list would only be emptied.
  if (work_.Borrando || work_.Descodificando || work_.Actualizando) return false;
  // The enlarged list may have more rows than there are projects.
  if (row < 0 || static_cast<std::size_t>(row) >= lists.ListProyectos.count()) return false;
  auto job = work::Job::begin(work_, platform_);
  shown_before_reports_.reset();
  work_.Cancelar = false;   // a stop asked of an earlier job
  strip.LabelAviso.hide();  // the notice of that job
  sound_.set_URL("");
  sound_.hide_balloons();
  path_strip.ImageIcon.hide();
  job.set_busy();
  show_progress();
  ListProyectos_Decode(job, static_cast<std::size_t>(row));
  if (job.superseded()) return false;
  // What has not been read to its end says too little about what is used.
  if (job.cancelled()) work_.ListaBorrarCompleta = false;
  hide_progress();
  job.set_idle();
  return true;
}

void Form1::ListProyectos_Click() {
  if (work_.Borrando) return;
  sound_.hide_AvisoPL();
  work_.ClickEnLista = true;
  if (work_.Descodificando) return;
  ui::ListBox& list = lists.ListProyectos;
  sound_.begin_click();  // what is searched for a click on another list is not waited for
  path_strip.MostrarPath(list.current_row());
  sound_.media().stop();
  if (ZoomListas.checked()) {
    clicks.enlarge_projects();
  } else {
    sound_.rows.ToolTipShow("ListProyectos", list, list.current_row());
    sound_.HacerVisibles();
  }
}

}  // namespace ordelan::main_window
