#include "relink/relink.h"

#include <utility>

#include "location/drive_window.h"
#include "location/lost_file_window.h"
#include "location/path_choice_window.h"
#include "location/under_way.h"
#include "relink/undo.h"
#include "relink/update_report.h"
#include "removal/backup_options_window.h"
#include "removal/recovery_window.h"
#include "removal/removal_review_window.h"
#include "text/rows.h"
#include "work/window_names.h"

namespace ordelan::relink {
namespace {

constexpr ui::Color kUpdating{0xC0C0FF};

constexpr const char* kQuestion =
    "Esta función actualiza los proyectos Vip de la forma siguiente:\r\n"
    "\r\n"
    "Sustituye la ruta de los archivos de audio que figuran en los Vip\r\n"
    "y que físicamente están en otra ruta diferente a la que figura en los Vip's.\r\n"
    "\r\n"
    "Samplitude al abrir un proyecto Vip, que no encuentra los archivos de audio. \r\n"
    "pide localizarlos uno por uno, y si no, los vuelve a bouncear.\r\n"
    "Esta operación lleva mucho tiempo, o repetir los archivos FreezeData";

constexpr const char* kNoDrives =
    "Al no haber unidades de disco seleccionadas\r\n"
    "para buscar los archivos desubicados.\r\n"
    "\r\n"
    "No se puede hacer la actualización.\r\n"
    "Pulsar menú Configurar, y seleccionar unidades.\r\n"
    "Volver a pulsar menú ActualizarVip";

// What could not be restored, as lines after others.
std::string lines_of(const std::vector<removal::Kept>& not_undone) {
  std::vector<std::string> rows;
  for (const removal::Kept& kept : not_undone) {
    rows.push_back(text::row_with_reason(kept.ruta, kept.motivo));
  }
  return strip_lines(rows);
}

}  // namespace

Relink::Relink(const work::Context& context, project::VipReader& reader,
               const location::LostFiles& lost_files, Listener listener)
    : context_(context), reader_(reader), lost_files_(lost_files), listener_(std::move(listener)) {}

bool Relink::is_busy() const {
  // The one search of the program at a time: inside another, all files would seem lost.
  return context_.work.Borrando || context_.work.Actualizando || context_.work.Descodificando ||
         context_.work.Buscando;
}

int Relink::ticked_drives() {
  const auto* const drives = context_.windows.touch<location::UnidadesBuscar>();
  return drives == nullptr ? 0 : drives->ticked();
}

void Relink::message(const std::string& title, const std::string& text, system::Icon icon) {
  context_.platform.dialogs.message({.title = title, .text = text, .icon = icon});
}

void Relink::ActualizarVip_Click() {
  if (is_busy()) return;
  work::WorkInHand& work = context_.work;
  outcome_ = {};
  work.ModoPosiciones = false;
  const auto answer = context_.platform.dialogs.message({.title = "Leer con atención",
                                                         .text = kQuestion,
                                                         .icon = system::Icon::information,
                                                         .buttons = system::Buttons::yes_no});
  // Something else may have been begun while the box was up.
  if (answer != system::Answer::yes || is_busy()) return;
  for (const char* const window :
       {work::window_name::kZoom, work::window_name::kPlayer, work::window_name::kSA,
        work::window_name::kListasZoom, removal::BacUp::kName, location::ElegirRuta::kName,
        removal::ParaBorrar::kName, location::Perdidos::kName, removal::Recuperar::kName}) {
    context_.windows.close(window);
  }
  int counter = ticked_drives();
  if (counter == 0) {
    message("Aviso", kNoDrives, system::Icon::critical);
    // It stays on: until something is opened or emptied, a dropped project is refused rather than
    // swept by a program that has just said that it cannot go on.
    work.ModoPosiciones = true;
    return;
  }
  update(counter);
}

void Relink::begin_clocks() {
  work::Clocks& clocks = context_.clocks;
  listener_.show_updating();
  clocks.iniciarCrono();
  clocks.LabelD.set_caption("Tiempo actualización");
  clocks.TextLapsoTotal.set_back_color(kUpdating);
  clocks.TimeDeco.set_back_color(kUpdating);
}

void Relink::update(int& counter) {
  work::WorkInHand& work = context_.work;
  const location::UnderWay under_way(work.Actualizando);
  work.Cancelar = false;  // a stop asked of an earlier job
  auto job = work::Job::begin(work, context_.platform);
  begin_clocks();
  if (!lost_files_.HayPerdidos()) {
    counter = 0;
    close_job(counter);
    if (!job.superseded()) look_for_undo(work.RutaProyectos);
    return;
  }
  outcome_.begun = true;
  const UpdateRun::End end = run(job, counter);
  if (job.superseded()) return;
  const bool on = end == UpdateRun::End::no_pointers ? end_without_pointers() : close_job(counter);
  if (!on) return;
  show_left_alone();
  look_for_undo(work.RutaProyectos);
}

UpdateRun::End Relink::run(work::Job& job, int& counter) {
  work::WorkInHand& work = context_.work;
  work.RutaProyectos = projects_folder(work.RutaProyectos);
  // The rows are kept: what empties the list meanwhile ends the job.
  UpdateRun run(context_, reader_, listener_.pointers, options, job, work.RutaProyectos,
                context_.lists.ListProyectos.rows());
  work.ModoPosiciones = true;
  run.prepare();
  if (!job.must_stop()) context_.clocks.IniciarCronoActualizar();
  const UpdateRun::End end = run.patch([&counter] { counter = 0; });
  outcome_.Informe = run.Informe();
  outcome_.carpetas_sin_ver = run.unseen();
  outcome_.informe_guardado = run.save_report();
  outcome_.proyectos = run.take_projects();
  run.finish();
  return end;
}

// A row has no pointer file: all ends here, and nothing else is put back.
bool Relink::end_without_pointers() {
  outcome_.titulo = "No existen archivos de punteros";
  outcome_.icono = system::Icon::critical;
  const work::JobNumber number = context_.work.current_job();
  message(outcome_.titulo, outcome_.Informe, outcome_.icono);
  if (context_.work.superseded(number)) return false;  // begun while the box was up
  context_.work.ModoPosiciones = false;
  listener_.hide_ActualizarVip();
  return true;
}

bool Relink::close_job(int counter) {
  work::WorkInHand& work = context_.work;
  const bool cancelled = work.Cancelar;
  if (cancelled) listener_.cmdReset_Click();
  work::Clocks& clocks = context_.clocks;
  clocks.ShowTimeActualizar();
  for (ui::TextBox* box : {&clocks.TextLapsoTotal, &clocks.TimeDeco}) {
    box->set_back_color(ui::Color::window_background);
  }
  clocks.TimerActualizar.stop();
  clocks.TimerLap.stop();
  context_.strip.TextDecode.hide();
  if (!cancelled) {
    // The counter is that of the drives, and every project zeroes it: so the second title stands
    // after every run that came to a project. Users know it as the sign of the end.
    const bool any = counter > 0;
    outcome_.titulo = any ? "Proyectos Vip actualizados a ubicación actual"
                          : "Estos proyectos Vip no tienen archivos desubicados";
    outcome_.icono = any ? system::Icon::information : system::Icon::exclamation;
    const work::JobNumber number = work.current_job();
    message(outcome_.titulo, outcome_.Informe, outcome_.icono);
    if (work.superseded(number)) return false;  // begun while the box was up
  }
  work.ModoPosiciones = false;
  listener_.show_updated();
  return true;
}

// The box has only names: which projects were left as they were is said after it, on the strip.
void Relink::show_left_alone() {
  if (context_.work.Cancelar || context_.work.Descodificando) return;
  const std::string left = left_alone(outcome_.proyectos);
  const std::string report = "Originales\\" + std::string(kReportName);
  std::string see;  // a simulation leaves no report
  if (!options.simulate) {
    see = outcome_.informe_guardado ? " (vea " + report + ")"
                                    : " (no se ha podido guardar " + report + ")";
  }
  std::string text;
  if (!left.empty()) {
    text = "Proyectos que no se han actualizado" + see + ":" + left;
  } else if (const std::size_t unseen = outcome_.carpetas_sin_ver.size(); unseen > 0) {
    text = "Carpetas que no se han podido ver: " + std::to_string(unseen) + see;
  } else if (!outcome_.informe_guardado) {
    text = "No se ha podido guardar " + report;
  }
  if (!text.empty()) context_.strip.Alerta(work::kWarning, " >>> AVISO <<<   " + text, true);
}

std::vector<std::string> Relink::GrabarPunteros(const std::string& Carpeta) {
  auto job = work::Job::begin(context_.work, context_.platform);
  PointerWriter writer(context_, reader_, listener_.pointers);
  writer.GrabarPunteros(Carpeta, context_.lists.ListProyectos.rows(), job);
  std::vector<std::string> names;
  for (const auto& [key, file] : writer.written()) names.push_back(file.name);
  return names;
}

void Relink::look_for_undo(const std::string& RutaProyectos) {
  undo_folder_.clear();
  if (!RutaProyectos.empty()) {
    const std::string folder = originals_folder(projects_folder(RutaProyectos));
    if (Undo::available(context_.platform.files, folder)) undo_folder_ = folder;
  }
  listener_.offer_undo(!undo_folder_.empty());
}

// What can never be restored (its copy was deleted, its folder is another one) must not keep the
// user from going back behind it.
void Relink::offer_to_give_up(Undo& undo, work::Job& job) {
  if (not_undone_->empty() || undo.restored() > 0 || job.must_stop()) return;
  const auto answer = context_.platform.dialogs.message(
      {.title = "Deshacer actualización",
       .text = "No se ha podido restaurar:" + lines_of(*not_undone_) +
               "\r\n\r\n"
               "¿Dar por deshecha esta actualización, para poder deshacer la anterior?\r\n"
               "Los originales se conservan.",
       .icon = system::Icon::question,
       .buttons = system::Buttons::yes_no});
  if (answer == system::Answer::yes && !job.superseded() && undo.give_up()) not_undone_->clear();
}

void Relink::DeshacerActualizacion_Click() {
  if (is_busy() || undo_folder_.empty()) return;
  not_undone_.reset();
  const std::string folder = undo_folder_;
  const location::UnderWay under_way(context_.work.Actualizando);
  auto job = work::Job::begin(context_.work, context_.platform);
  context_.work.Cancelar = false;
  Undo undo(context_.platform.files, context_.platform.shell, folder, [&] { return job.turn(); });
  const auto answer = context_.platform.dialogs.message(
      {.title = "Deshacer actualización",
       .text = "Los proyectos vuelven a ser los de antes de la última actualización.\r\n"
               "Son " +
               std::to_string(undo.projects()) + ", de los originales que hay en:\r\n" + folder +
               "\r\n\r\n"
               "Los que han cambiado desde entonces se guardan antes en esa carpeta.\r\n"
               "¿Deshacer la actualización?",
       .icon = system::Icon::question,
       .buttons = system::Buttons::yes_no});
  if (answer != system::Answer::yes || job.superseded()) return;
  not_undone_ = undo.run();
  if (job.superseded()) return;
  offer_to_give_up(undo, job);
  if (job.superseded()) return;
  std::string text = "Proyectos restaurados: " + std::to_string(undo.restored());
  if (undo.saved() > 0) {
    text += "\r\nGuardados antes porque habían cambiado: " + std::to_string(undo.saved());
  }
  text += lines_of(*not_undone_);
  context_.strip.Alerta(not_undone_->empty() ? work::kResult : work::kWarning, text, true);
  look_for_undo(context_.work.RutaProyectos);
}

}  // namespace ordelan::relink
