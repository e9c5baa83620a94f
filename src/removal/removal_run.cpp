#include "removal/removal_run.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "project/used_guard.h"
#include "removal/backup_folder_window.h"
#include "removal/backup_options_window.h"
#include "removal/protected_folders_window.h"
#include "removal/reasons.h"
#include "removal/removal_log.h"
#include "removal/removal_review_window.h"
#include "removal/run_colors.h"
#include "removal/shell_calls.h"
#include "text/paths.h"
#include "text/rows.h"
#include "ui/list_width.h"

namespace ordelan::removal {
namespace {

using system::Reason;
using system::Status;

// Sets a flag for as long as it lives.
class WhileRunning {
 public:
  explicit WhileRunning(bool& flag) : flag_(flag) { flag_ = true; }
  ~WhileRunning() { flag_ = false; }
  WhileRunning(const WhileRunning&) = delete;
  WhileRunning& operator=(const WhileRunning&) = delete;

 private:
  bool& flag_;
};

}  // namespace

RemovalRun::RemovalRun(const RemovalContext& removal, BacUp& options)
    : removal_(removal),
      context_(removal_.work),
      state_(removal.state),
      options_(options),
      check_(context_, removal_.second_reading),
      sizes_(context_.work, context_.platform) {}

// Takes up what has been set up in the windows. False if one of them does not come.
bool RemovalRun::begin() {
  review_ = context_.windows.touch<ParaBorrar>();
  if (review_ == nullptr || context_.windows.touch<FormNoBorrar>() == nullptr) return false;
  stop_waiting_ = state_.CancelarBorrado;
  order_ = {options_.CheckBackup.checked(),         options_.CheckBorrar.checked(),
            options_.CheckBorraAsociados.checked(), options_.CheckComprobar.checked(),
            review_->CheckVaciarPapelera.checked(), review_->CheckBorrarPapelera.checked(),
            review_->CheckConfirmar.checked()};
  return true;
}

std::vector<std::string> rows_to_search(const std::vector<std::string>& rows,
                                        const std::vector<std::string>& side_files) {
  std::vector<std::string> all = rows;
  std::copy_if(side_files.begin(), side_files.end(), std::back_inserter(all),
               [](const std::string& row) { return !is_audio_row(row); });
  return all;
}

void RemovalRun::BorrarSeleccionados() {
  if (state_.running) return;
  const WhileRunning running(state_.running);
  state_.asked = state_.gone = state_.side_files_gone = 0;
  state_.kept.clear();
  state_.begun = false;
  if (!begin() || refused()) return;
  state_.begun = true;
  options_.cmdParar.show();
  run();
  if (windows_open() && state_.begun) report();
  options_.cmdParar.hide();
}

// Why no run may begin as things are. Afterwards the job of the run has begun, unless one of the
// first reasons was found.
std::optional<std::string> RemovalRun::why_refused() {
  if (auto why = RunCheck::why_never(context_.work)) return why;
  job_.reset(new work::Job(work::Job::begin(context_.work, context_.platform)));
  return order_.CheckComprobar ? check_.why_not_now(*job_) : std::nullopt;
}

// Whether the run must not begin. Nothing has been changed then.
bool RemovalRun::refused() {
  std::optional<std::string> why = why_refused();
  if (!why && (job_->superseded() || !windows_open())) return true;
  if (!why && order_.CheckBackup) {
    backup_.emplace(context_.platform.files, context_.platform.shell, state_.RutaBackup,
                    [this, waiting = state_.CancelarBorrado] {
                      job_->turn();
                      // Without the careful look a row goes whether its copy was finished or not.
                      return !order_.CheckComprobar || waiting || !stopped();
                    });
    const Status taken = backup_->take();
    if (taken == Reason::in_use) {
      why = "Otro borrado está usando la carpeta " + state_.RutaBackup;
    } else if (!taken && (order_.CheckComprobar || taken != Reason::not_found)) {
      why = "No se puede usar la carpeta " + state_.RutaBackup + ": " + reason::of(taken);
    }
  }
  if (!why) return false;
  refuse(*why);
  return true;
}

void RemovalRun::refuse(const std::string& why) {
  options_.LabelResultado.set_caption("No se ha borrado nada. " + why);
  options_.LabelResultado.show();
  options_.ListNoBorrados.hide();
}

RemovalRun::Plan RemovalRun::plan() {
  Plan plan;
  if (state_.running || !begin()) return plan;
  if (auto why = why_refused()) plan.negativa = *why;
  if (!job_) return plan;
  look_at_rows();
  if (order_.CheckBorraAsociados) {
    for (const std::string& row : *context_.lists.List1.kept_rows()) {
      if (is_audio_row(row) || !context_.platform.files.info(row)) continue;
      plan.archivos.push_back({row, why_side_file_stays(row), false, true});
    }
  }
  if (!order_.CheckBorrar) return plan;
  const auto rows = review_->ListBorrar.kept_rows();
  for (std::size_t i = 0; i < rows->size(); ++i) {
    const std::string& row = (*rows)[i];
    Judged judged = judge(i, row);
    if (judged.fate == Fate::unticked) judged.motivo = reason::kUnticked;
    if (judged.fate == Fate::stays || judged.fate == Fate::is_protected) {
      plan.conservados.push_back({row, judged.motivo, judged.proyecto});
    }
    if (judged.fate == Fate::missing) judged.motivo = reason::of(Reason::not_found);
    const bool copied = order_.CheckBackup && context_.platform.files.info(row);
    plan.archivos.push_back({row, std::move(judged.motivo), copied, false});
  }
  return plan;
}

bool RemovalRun::windows_open() const {
  return context_.windows.find<BacUp>() == &options_ &&
         context_.windows.find<ParaBorrar>() == review_;
}

// As their window holds them now: it may be closed and opened again in the middle of a run.
std::vector<std::string> RemovalRun::protected_folders() const {
  const auto* const folders = context_.windows.touch<FormNoBorrar>();
  return folders != nullptr ? folders->List1.rows() : std::vector<std::string>();
}

// Whether the user, a window that was closed or a newer job ends the run.
bool RemovalRun::stopped() const {
  return state_.CancelarBorrado || !windows_open() || job_->superseded();
}

// What must stay is worked out before anything is touched: the log and the copies of this run would
// make its folder one of backups.
void RemovalRun::look_at_rows() {
  const auto rows = review_->ListBorrar.kept_rows();
  std::vector<std::string> unticked;
  for (std::size_t i = 0; i < rows->size(); ++i) {
    if (review_->ListStatus.ticked(i)) {
      ticked_.insert((*rows)[i]);
    } else {
      unticked.push_back((*rows)[i]);
    }
  }
  // A row that was thrown out is to be kept too, also under another path.
  const std::unordered_set<std::string_view> left(rows->begin(), rows->end());
  const auto offered = context_.lists.ListBorrar.kept_rows();
  for (const std::string& row : *offered) {
    if (!left.contains(row)) unticked.push_back(row);
  }
  state_.asked = order_.CheckBorrar ? ticked_.size() : 0;
  if (order_.CheckComprobar) check_.look_at(*rows, unticked, protected_folders(), *job_);
  if (order_.CheckComprobar && order_.CheckBorraAsociados && !job_->superseded()) {
    check_.look_at_side_files(*context_.lists.List1.kept_rows(), *job_);
  }
  if (order_.CheckComprobar && !job_->superseded()) read_again();
}

void RemovalRun::run() {
  options_.LabelResultado.set_caption("Comprobando los proyectos...");
  options_.LabelResultado.set_visible(order_.CheckComprobar);
  look_at_rows();
  if (goes_on() && !may_begin()) {
    state_.begun = false;
    state_.CancelarBorrado = false;
    refuse("La copia no cabe en " + state_.RutaBackup);
    return;
  }
  if (!goes_on() || (asked_ && !still_current())) {
    if (stop_asked()) show_cancelled();
    end();
    return;
  }
  if (backup_) keep_places();
  options_.LabelInfo.hide();
  options_.cmdBorrar.hide();
  context_.windows.close<CarpetaBack>();
  // The bin is emptied with a question, whatever CheckConfirmar says: it holds what others put
  // there.
  system::Shell& shell = context_.platform.shell;
  if (order_.CheckVaciarPapelera) {
    VaciarPapelera(shell, "", false).ignore();
    if (order_.CheckComprobar) still_current();
  }
  if (order_.CheckBorraAsociados) BorrarAsociados();
  if (backup_) backup_->begin_log().ignore();  // a row whose line cannot be written stays
  show_bar(review_->ListBorrar.count());
  state_.ArchivosBorrados = 0;
  if (order_.CheckBorrar && !order_.CheckBackup) {
    plain_branch();
  } else if (order_.CheckBorrar && order_.CheckBackup) {
    backup_branch();
  } else {
    idle_branch();
  }
  end();
}

void RemovalRun::show_bar(std::size_t rows) {
  constexpr int kLeft = 33;
  constexpr int kTop = 180;
  ui::Rect place = options_.XP_Bar.bounds();
  place.left = kLeft;
  place.top = kTop;
  options_.XP_Bar.set_bounds(place);
  options_.XP_Bar.set_range(0, static_cast<std::int64_t>(rows) - 1);
}

void RemovalRun::plain_branch() {
  // What BorrarAsociados has just sent to the bin goes with it.
  if (order_.CheckVaciarPapelera) {
    VaciarPapelera(context_.platform.shell, "", false).ignore();
    if (order_.CheckComprobar) still_current();
  }
  if (auto* const folders = context_.windows.touch<FormNoBorrar>()) folders->LeerRutasNoBorrados();
  const std::size_t rows = review_->ListBorrar.count();
  for (std::size_t i = 0; i < rows; ++i) {
    if (!row_procedure(i)) return;
  }
  closing_messages();
}

void RemovalRun::backup_branch() {
  backup_->log(log_heading(context_.platform.regional)).ignore();
  const std::size_t rows = review_->ListBorrar.count();
  for (std::size_t i = 0; i < rows; ++i) {
    if (!windows_open() || job_->superseded()) break;  // there is no row to be copied any more
    // Every row is copied, also those that stay: who unticks a row may miss it later all the same.
    copy_row(review_->ListBorrar.row(i));
    if (!row_procedure(i)) return;
  }
  closing_messages();
}

void RemovalRun::copy_row(const std::string& row) {
  if (row.empty()) return;
  const Status copied = backup_->copy(row);
  if (copied) {
    copied_.insert(row);
    return;
  }
  uncopied_.insert(row);
  if (!order_.CheckComprobar) return;  // it goes all the same
  if (context_.platform.files.info(row) && ticked_.contains(row)) {
    // The shell's question does not end a copy: only the user's stop does.
    const bool stopped = copied == Reason::cancelled;
    keep(row, reason::kNoCopy + (stopped ? std::string(reason::kStopped) : reason::of(copied)));
  }
}

void RemovalRun::idle_branch() {
  if (state_.AsociadosEncontrados != 0 || state_.ArchivosBorrados != 0) return;
  options_.LabelInfo.set_fore_color(kGreen);
  options_.LabelInfo.set_caption(" >> No hay archivos para borrar << ");
  options_.LabelInfo.show();
}

bool RemovalRun::let_events_run(std::size_t i) {
  job_->turn();
  if (stopped()) {
    show_cancelled();
    return false;
  }
  options_.XP_Bar.set_value(static_cast<std::int64_t>(i));
  return true;
}

void RemovalRun::show_cancelled() {
  options_.LabelInfo.set_fore_color(kPaleRed);
  options_.LabelInfo.set_caption(" >> Se han Cancelado todas las operaciones << ");
  options_.LabelInfo.show();
  if (windows_open()) options_.bring_to_front();
}

void RemovalRun::closing_messages() {
  if (!windows_open()) return;
  options_.LabelInfo.set_fore_color(kGreen);
  options_.LabelInfo.set_caption(" >> No se ha efectuado ninguna operacion << ");
  if (state_.ArchivosBorrados > 0) {
    options_.LabelInfo.set_caption(" >> Se han efectuado todas las operaciones << ");
  } else if (state_.AsociadosEncontrados > 0) {
    options_.LabelInfo.set_caption(" >> Se han borrado todos los asociados << ");
  }
  if (state_.ArchivosBorrados > 0 || state_.AsociadosEncontrados > 0) options_.bring_to_front();
  options_.LabelInfo.show();
}

void RemovalRun::end() {
  if (backup_) backup_->close();
  options_.XP_Bar.hide();
  if (windows_open()) {
    review_->cmdHecho.hide();
    review_->Salir.show();
  }
  state_.CancelarBorrado = false;
  context_.windows.close<CarpetaBack>();
}

void RemovalRun::keep(const std::string& row, std::string motivo, std::string proyecto) {
  state_.kept.push_back({row, std::move(motivo), std::move(proyecto)});
}

// Names the places that no copy gets: those in the backup folder of rows and of used files.
void RemovalRun::keep_places() {
  const std::string folder = system::with_backslash(state_.RutaBackup);
  std::vector<std::string> paths;
  for (const work::FolderTree::Entry& file : job_->folders().listing(folder).files) {
    paths.push_back(folder + std::string(file.name));
  }
  const auto used = context_.lists.ListUtilizados.kept_rows();
  const auto shown = context_.lists.ListVip.kept_rows();
  const auto rows = review_->ListBorrar.kept_rows();
  const auto same = project::same_as_used(paths, {used.get(), shown.get(), rows.get()},
                                          context_.platform.files, job_->folders(), [this] {
                                            job_->turn();
                                            return true;
                                          });
  for (std::size_t i = 0; i < paths.size(); ++i) {
    if (same[i]) backup_->keep_place(paths[i]);
  }
  // A lost file and a removed one have their places too, also in a numbered subfolder: a copy there
  // would be another recording, and in the way of the file's own return.
  for (const auto& list : {used, shown, rows}) {
    for (const std::string& row : *list) {
      backup_->keep_place(row);
      job_->turn();
    }
  }
}

void RemovalRun::report() {
  std::string text =
      std::to_string(state_.gone) + " de " + std::to_string(state_.asked) + " borrados";
  if (order_.CheckBorraAsociados) {
    text += ", y " + std::to_string(state_.side_files_gone) + " asociados";
  }
  options_.LabelResultado.set_caption(text);
  options_.LabelResultado.show();
  options_.ListNoBorrados.clear();
  for (const Kept& each : state_.kept) {
    options_.ListNoBorrados.add(text::row_with_reason(each.ruta, each.motivo));
  }
  options_.ListNoBorrados.set_visible(!state_.kept.empty());
  ui::ListaAncho(options_.ListNoBorrados);
}

}  // namespace ordelan::removal
