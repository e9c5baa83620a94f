// From a click on AbrirFichero to filled lists.
#include <algorithm>

#include "main_window/main_window.h"
#include "text/paths.h"
#include "ui/list_width.h"

namespace ordelan::main_window {

void Form1::AbrirFichero_Click() {
  if (work_.Borrando || work_.Descodificando) return;

  ZoomListas.hide();
  windows_.hide("Buscar");
  clocks.LabelD.set_caption("Tiempo descodificación");
  clocks.LabelD.hide();
  strip.TextDecode.hide();
  for (const char* window : {"Zoom", "SA", "Player"}) windows_.close(window);
  SalvaListados.hide();
  ActualizarVip.hide();

  const auto picked = platform_.dialogs.open_files({.filter = "Proyectos (*.vip)|*.vip"});
  // Something else may have been begun while the dialog was up.
  if (picked.empty() || work_.Descodificando || work_.Borrando) return;
  // Folders are cut at backslashes.
  std::string path = picked.front();
  std::replace(path.begin(), path.end(), '/', '\\');
  open_project(path);
}

void Form1::open_project(const std::string& path) {
  cmdReset_Click();
  tree_.forget();  // a job that was broken off may have left its listings
  // A stop that was asked of an earlier job must not make the gate refuse this project.
  work_.Cancelar = false;
  const auto job = work_.current_job();
  const bool valid = gate_.Valido(path);
  if (work_.superseded(job)) return;
  if (!valid) {
    if (const auto why = gate_.refusal()) left_out_.add(path, *why);
    show_ProyectosFuera();
    strip.Alerta(work::kWarning, " >>> AVISO <<<   Este proyecto no tiene archivos de audio", true);
    return;
  }

  work_.Descodificando = true;
  try {
    work_.RutaVip = path;
    work_.RutaProyectos = text::getPath(path, "\\");
    const std::string display_path = text::Obtener_VipPath(path);

    cmdPerdidos.hide();
    CommandBorrado.hide();
    cmdCancelar.show();
    work_.Cancelar = false;
    TextNum1.set_visible(false);
    ShowIco.hide();
    ListProyectosInfo.hide();  // it would stand on the rows
    strip.notice_decoding();
    clocks.iniciarCrono();

    list_projects();
    if (work_.superseded(job)) return;
    if (!display_path.empty() && !work_.RutaVip.empty()) {
      decode_picked_project(display_path);
      if (work_.superseded(job)) return;
      show_decoded();
      LlenarPerdidos();
      if (work_.superseded(job) || !forget_tree()) return;
      cmdReset.show();
      if (work_.Cancelar) cmdReset_Click();  // asked for while the report was made
      ZoomListas.show();
    }
  } catch (...) {
    // The display is left as far as it got.
  }
  if (!work_.superseded(job)) work_.Descodificando = false;
}

void Form1::list_projects() {
  const auto job = work_.current_job();
  if (CheckSubPath.checked()) {
    listing_.ListarCarpetas();
    if (!work_.superseded(job)) listing_.ListarProyectosCarpetas(CheckBAK.checked());
  } else {
    listing_.list_flat(CheckBAK.checked());
  }
  if (work_.superseded(job)) return;
  ui::ListaAncho(lists.ListProyectos);
  lists.ListProyectos.show();
  lists.head_projects(work_.RutaProyectos);
  lists.LabelCheck.set_visible(true);
}

void Form1::decode_picked_project(const std::string& display_path) {
  const auto job = work_.current_job();
  work_.CabeceraVip = reader.LeerCabeceraVip(work_.RutaVip);
  if (work_.superseded(job)) return;
  lists.ListVip.clear();
  strip.Alerta(work::kProgress, "Descodificando: " + work_.RutaVip, true);
  show_progress();
  decode_into_ListVip(work_.RutaVip, display_path);
  if (work_.superseded(job)) return;
  strip.Alerta(work::kProgress, ": ", false);
  LlenarListUtilizados();
  if (!work_.superseded(job)) LlenarListBorrar();
}

void Form1::show_decoded() {
  clocks.ShowLapsoDeco();
  clocks.ShowLapso();
  strip.TextDecode.hide();
  hide_progress();
  strip.LabelAviso.hide();
  if (removes_side_files() || lists.ListBorrar.count() > 1) CommandBorrado.show();

  show_ProyectosFuera();
  work_.PrimerProyecto.clear();
  work_.Cancelar = false;
  cmdCancelar.hide();
  SalvaListados.show();
  ActualizarVip.show();
}

}  // namespace ordelan::main_window
