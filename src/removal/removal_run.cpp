#include "removal/removal_run.h"

#include <algorithm>
#include <array>
#include <utility>

#include "project/used_guard.h"
#include "removal/backup_folder_window.h"
#include "removal/backup_options_window.h"
#include "removal/protected_folders.h"
#include "removal/protected_folders_window.h"
#include "removal/reasons.h"
#include "removal/removal_log.h"
#include "removal/removal_review_window.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "ui/list_width.h"

namespace ordelan::removal {
namespace {

using system::Confirm;
using system::Reason;
using system::Status;

constexpr const char* kMark = "  --> Borrado";

constexpr ui::Color color(std::uint32_t word) {
  return static_cast<ui::Color>(word);
}
constexpr ui::Color kGreen = color(0x00FF00);
constexpr ui::Color kPaleGreen = color(0x80FF80);
constexpr ui::Color kPaleRed = color(0x8080FF);

bool is_audio(const std::string& row) {
  constexpr std::array<std::string_view, 7> kAudio = {".wav", ".aif", ".mp3", ".ogg",
                                                      "flac", ".wma", ".m4a"};
  const std::string last = text::lower(row.substr(row.size() < 4 ? 0 : row.size() - 4));
  return std::find(kAudio.begin(), kAudio.end(), last) != kAudio.end();
}

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

Status EnviarPapelera(system::Shell& shell, const std::string& Archivo, bool ask) {
  return shell.recycle(Archivo, ask ? Confirm::ask : Confirm::without_asking);
}

Status VaciarPapelera(system::Shell& shell, const std::string& Ruta, bool SinConfirmar) {
  return shell.empty_bin(Ruta, SinConfirmar ? Confirm::without_asking : Confirm::ask);
}

Status CopiarArchivo(system::Shell& shell, const std::string& Origen, const std::string& Destino) {
  return shell.copy_into(Origen, Destino);
}

RemovalRun::RemovalRun(const RemovalContext& removal, BacUp& options)
    : removal_(removal),
      context_(removal_.work),
      state_(removal.state),
      options_(options),
      check_(context_) {}

void RemovalRun::BorrarSeleccionados() {
  if (state_.running) return;
  const WhileRunning running(state_.running);
  state_.asked = state_.gone = state_.side_files_gone = 0;
  state_.kept.clear();
  review_ = context_.windows.touch<ParaBorrar>();
  folders_ = context_.windows.touch<FormNoBorrar>();
  if (review_ == nullptr || folders_ == nullptr) return;
  order_ = {options_.CheckBackup.checked(),         options_.CheckBorrar.checked(),
            options_.CheckBorraAsociados.checked(), options_.CheckComprobar.checked(),
            review_->CheckVaciarPapelera.checked(), review_->CheckBorrarPapelera.checked(),
            review_->CheckConfirmar.checked()};
  if (refused()) return;
  options_.cmdParar.show();
  run();
  if (windows_open()) report();
  options_.cmdParar.hide();
}

// Whether the run must not begin. Nothing has been changed then.
bool RemovalRun::refused() {
  std::optional<std::string> why = RunCheck::why_never(context_.work);
  if (!why) {
    job_.reset(new work::Job(work::Job::begin(context_.work, context_.platform)));
    if (order_.CheckComprobar) why = check_.why_not_now(*job_);
    if (!why && (job_->superseded() || !windows_open())) return true;
  }
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
  options_.LabelResultado.set_caption("No se ha borrado nada. " + *why);
  options_.LabelResultado.show();
  options_.ListNoBorrados.hide();
  return true;
}

bool RemovalRun::windows_open() const {
  return context_.windows.find<BacUp>() == &options_ &&
         context_.windows.find<ParaBorrar>() == review_;
}

// Whether the user, a window that was closed or a newer job ends the run.
bool RemovalRun::stopped() const {
  return state_.CancelarBorrado || !windows_open() || job_->superseded();
}

// What must stay is worked out before anything is touched: the log and the copies of this run would
// make its folder one of backups.
void RemovalRun::look_at_rows() {
  const auto rows = review_->ListBorrar.kept_rows();
  for (std::size_t i = 0; i < rows->size(); ++i) {
    if (review_->ListStatus.ticked(i)) ticked_.insert((*rows)[i]);
  }
  state_.asked = order_.CheckBorrar ? ticked_.size() : 0;
  if (order_.CheckComprobar) check_.look_at(*rows, folders_->List1.rows(), *job_);
  if (order_.CheckComprobar && order_.CheckBorraAsociados && !job_->superseded()) {
    check_.look_at_side_files(*context_.lists.List1.kept_rows(), *job_);
  }
}

void RemovalRun::run() {
  look_at_rows();
  if (job_->superseded() || !windows_open()) {
    end();
    return;
  }
  if (backup_) backup_->keep_names(names_not_to_overwrite());
  options_.LabelInfo.hide();
  options_.cmdBorrar.hide();
  context_.windows.close<CarpetaBack>();
  // The bin is emptied with a question, whatever CheckConfirmar says: it holds what others put
  // there.
  system::Shell& shell = context_.platform.shell;
  if (order_.CheckVaciarPapelera) VaciarPapelera(shell, "", false).ignore();
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
  if (order_.CheckVaciarPapelera) VaciarPapelera(context_.platform.shell, "", false).ignore();
  folders_->LeerRutasNoBorrados();
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
    if (!windows_open() || job_->superseded()) break;
    // Every row is copied, also those that stay: who unticks a row may miss it later all the same.
    copy_row(review_->ListBorrar.row(i));
    if (!row_procedure(i)) return;
  }
  closing_messages();
}

void RemovalRun::copy_row(const std::string& row) {
  if (row.empty()) return;
  const Status copied = backup_->copy(row);
  if (copied) return;
  uncopied_.insert(row);
  if (context_.platform.files.info(row) && ticked_.contains(row)) {
    keep(row, reason::kNoCopy + reason::of(copied));
  }
}

void RemovalRun::idle_branch() {
  if (state_.AsociadosEncontrados != 0 || state_.ArchivosBorrados != 0) return;
  options_.LabelInfo.set_fore_color(kGreen);
  options_.LabelInfo.set_caption(" >> No hay archivos para borrar << ");
  options_.LabelInfo.show();
}

// False when the run has to end.
bool RemovalRun::row_procedure(std::size_t i) {
  if (!windows_open() || job_->superseded()) return let_events_run(i);
  const std::string path = review_->ListBorrar.row(i);
  if (!review_->ListStatus.ticked(i) || !ticked_.contains(path)) return let_events_run(i);
  if (is_protected(path, folders_->List1.rows())) {
    keep(path, std::string(reason::kProtected) + "una carpeta de la lista");
    // Protected rows pass over the events and the look at the cancel.
    options_.XP_Bar.set_value(static_cast<std::int64_t>(i));
    return true;
  }
  if (!context_.platform.files.look_up(path)) {
    if (context_.platform.files.info(path)) keep(path, reason::kHidden);
    return let_events_run(i);
  }
  if (RunCheck::is_project(path)) {
    keep(path, reason::kProject);
    return let_events_run(i);
  }
  if (order_.CheckComprobar) {
    if (const Kept* const stays = check_.kept(path)) {
      state_.kept.push_back(*stays);
      return let_events_run(i);
    }
    if (check_.has_changed(path)) {
      keep(path, reason::kChanged);
      return let_events_run(i);
    }
    if (uncopied_.contains(path)) return let_events_run(i);
  }
  remove_row(i, path);
  return let_events_run(i);
}

void RemovalRun::remove_row(std::size_t i, const std::string& path) {
  if (order_.CheckBackup) {
    const Status logged = backup_->log(log_line(path));
    if (!logged && order_.CheckComprobar) {
      keep(path, reason::kNoLine + reason::of(logged));
      return;
    }
  }
  const Status removed = remove_file(path);
  mark(i, path);
  ++state_.ArchivosBorrados;
  if (context_.platform.files.info(path)) {
    keep(path, reason::of(removed));
  } else {
    ++state_.gone;
  }
}

Status RemovalRun::remove_file(const std::string& path) {
  return order_.CheckBorrarPapelera
             ? EnviarPapelera(context_.platform.shell, path, order_.CheckConfirmar)
             : context_.platform.files.remove(path);
}

// The mark is set whatever has become of the file: what really happened is listed in BacUp.
void RemovalRun::mark(std::size_t i, const std::string& path) {
  if (!windows_open() || review_->ListBorrar.row(i) != path) return;  // a question gave it time
  review_->ListBorrar.replace(i, path + kMark);
}

bool RemovalRun::let_events_run(std::size_t i) {
  job_->turn();
  if (stopped()) {
    cancelled_ = true;
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

// Everything in List1 that is not audio goes, whatever is ticked or protected: the audio program
// makes these files again.
void RemovalRun::BorrarAsociados() {
  options_.LabelInfo.hide();
  const auto rows = context_.lists.List1.kept_rows();
  show_bar(rows->size());
  system::FileSystem& files = context_.platform.files;
  std::size_t removed = 0;
  state_.AsociadosEncontrados = 0;
  for (const std::string& row : *rows) {
    if (!is_audio(row) && files.look_up(row)) ++state_.AsociadosEncontrados;
    job_->turn();
    if (job_->superseded() || !windows_open()) return;
  }
  for (std::size_t i = 0; i < rows->size(); ++i) {
    const std::string& row = (*rows)[i];
    if (is_audio(row)) continue;
    // Audio of more letters ("x.aiff") is none by the last four, and is in the list as well.
    if (RunCheck::is_project(row) || (order_.CheckComprobar && !RunCheck::is_side_file(row))) {
      const bool project = RunCheck::is_project(row);
      if (files.info(row)) keep(row, project ? reason::kProject : reason::kOtherKind);
    } else if (const Kept* const stays = order_.CheckComprobar ? check_.kept(row) : nullptr) {
      if (files.info(row)) state_.kept.push_back(*stays);
    } else {
      files.set_attributes(row, 0).ignore();
      if (files.look_up(row)) {
        const Status gone = remove_file(row);
        ++removed;
        if (files.info(row)) {
          keep(row, reason::of(gone));
        } else {
          ++state_.side_files_gone;
        }
      }
    }
    job_->turn();
    options_.XP_Bar.set_value(static_cast<std::int64_t>(i));
    if (stopped()) {
      cancelled_ = true;
      show_cancelled();
      break;
    }
  }
  options_.XP_Bar.hide();
  if (removed == 0 || !windows_open()) return;
  const std::string count = "Se han borrado: " + std::to_string(removed) + " archivos asociados";
  review_->LabelErase.set_caption(count + " de " + std::to_string(state_.AsociadosEncontrados));
  review_->LabelErase.show();
  options_.LabelInfo.set_fore_color(kPaleGreen);
  options_.LabelInfo.set_caption(" > " + count + " < ");
  options_.LabelInfo.show();
}

void RemovalRun::keep(const std::string& row, std::string motivo, std::string proyecto) {
  state_.kept.push_back({row, std::move(motivo), std::move(proyecto)});
}

// Those of the files in the backup folder that are rows, or that a project uses.
std::vector<std::string> RemovalRun::names_not_to_overwrite() {
  const std::string folder = system::with_backslash(state_.RutaBackup);
  std::vector<std::string> names;
  std::vector<std::string> paths;
  for (const work::FolderTree::Entry& file : job_->folders().listing(folder).files) {
    names.push_back(file.name);
    paths.push_back(folder + file.name);
  }
  const auto used = context_.lists.ListUtilizados.kept_rows();
  const auto shown = context_.lists.ListVip.kept_rows();
  const auto rows = review_->ListBorrar.kept_rows();
  const auto same = project::same_as_used(paths, {used.get(), shown.get(), rows.get()},
                                          context_.platform.files, job_->folders(), [this] {
                                            job_->turn();
                                            return true;
                                          });
  std::vector<std::string> kept;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (same[i]) kept.push_back(std::move(names[i]));
  }
  // A lost file has its place there too: a copy in it would be another recording.
  const std::string key = text::same_file_key(folder);
  for (const auto& list : {used, shown, rows}) {
    for (const std::string& row : *list) {
      const std::string place = text::getPath(row, "\\");
      if (place.size() > 2 && text::same_file_key(place) == key) {
        kept.push_back(text::Obtener_Nombre_Archivo(row));
      }
      job_->turn();
    }
  }
  return kept;
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
    options_.ListNoBorrados.add(each.ruta + "   (" + each.motivo + ")");
  }
  options_.ListNoBorrados.set_visible(!state_.kept.empty());
  ui::ListaAncho(options_.ListNoBorrados);
}

}  // namespace ordelan::removal
