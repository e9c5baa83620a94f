// From a click on AbrirFichero to filled lists.
#include <algorithm>

#include "location/search_window.h"
#include "main_window/main_window.h"
#include "text/paths.h"
#include "ui/list_width.h"

namespace ordelan::main_window {

void Form1::AbrirFichero_Click() {
  if (work_.Borrando) return;
  sound_.hide_AvisoPL();
  if (work_.Descodificando) return;

  windows_.hide<location::Buscar>();
  close_windows({kZoom, kSA, kPlayer});
  clocks.LabelD.set_caption("Tiempo descodificación");
  show_choosing();

  const auto picked = platform_.dialogs.open_files({.filter = "Proyectos (*.vip)|*.vip"});
  // Something else may have been begun while the dialog was up.
  if (picked.empty() || work_.Descodificando || work_.Borrando) return;
  // Folders are cut at backslashes.
  std::string path = picked.front();
  std::replace(path.begin(), path.end(), '/', '\\');
  open_project(path);
}

// The same once more, as the disk has it now.
void Form1::open_again() {
  if (work_.Borrando || work_.Descodificando || work_.Actualizando) return;
  if (!dropped_.empty()) {
    ListProyectos_Drop(std::vector(dropped_));
  } else if (!work_.RutaVip.empty()) {
    sound_.hide_AvisoPL();
    close_windows({kZoom, kSA, kPlayer});
    show_choosing();
    open_project(std::string(work_.RutaVip));
  }
}

void Form1::open_project(const std::string& path) {
  dropped_.clear();
  cmdReset_Click();
  // A stop that was asked of an earlier job must not make the gate refuse this project.
  work_.Cancelar = false;
  auto job = work::Job::join(work_, platform_);
  const bool valid = gate_.Valido(path);
  if (job.superseded()) return;
  if (!valid) {
    if (const auto why = gate_.refusal()) left_out_.add(path, *why);
    show_ProyectosFuera();
    // An update may have left it so: the way back must not need a project that can be read.
    relink_.look_for_undo(text::getPath(path, "\\"));
    strip.Alerta(work::kWarning, " >>> AVISO <<<   Este proyecto no tiene archivos de audio", true);
    return;
  }

  job.set_busy();
  try {
    decode_folder(job, path);
  } catch (...) {
    // The display is left as far as it got.
  }
}

void Form1::decode_folder(work::Job& job, const std::string& path) {
  work_.RutaVip = path;
  work_.RutaProyectos = text::getPath(path, "\\");
  const std::string display_path = text::Obtener_VipPath(path);
  work_.Cancelar = false;
  show_opening();
  clocks.iniciarCrono();

  list_projects(job);
  if (job.superseded() || display_path.empty() || work_.RutaVip.empty()) return;
  decode_picked_project(job, display_path);
  if (job.superseded()) return;

  clocks.ShowLapsoDeco();
  clocks.ShowLapso();
  show_opened();
  show_ProyectosFuera();
  work_.PrimerProyecto.clear();
  work_.Cancelar = false;
  LlenarPerdidos(job);
  if (job.superseded() || !job.forget_folders()) return;
  cmdReset.show();
  if (job.cancelled()) cmdReset_Click();  // asked for while the report was made
  ZoomListas.show();
}

void Form1::list_projects(work::Job& job) {
  if (CheckSubPath.checked()) {
    listing_.ListarCarpetas(job);
    if (!job.superseded()) listing_.ListarProyectosCarpetas(job, CheckBAK.checked());
  } else {
    listing_.list_flat(job, CheckBAK.checked());
  }
  if (job.superseded()) return;
  ui::ListaAncho(lists.ListProyectos);
  show_projects();
}

void Form1::decode_picked_project(work::Job& job, const std::string& display_path) {
  work_.CabeceraVip = reader.LeerCabeceraVip(work_.RutaVip);
  if (job.superseded()) return;
  lists.ListVip.clear();
  strip.Alerta(work::kProgress, "Descodificando: " + work_.RutaVip, true);
  show_progress();
  decode_into_ListVip(job, work_.RutaVip, display_path);
  if (job.superseded()) return;
  strip.Alerta(work::kProgress, ": ", false);
  LlenarListUtilizados(job);
  if (!job.superseded()) LlenarListBorrar(job);
}

}  // namespace ordelan::main_window
