// The part of a run that handles one row.
#include <limits>

#include "removal/backup_options_window.h"
#include "removal/protected_folders.h"
#include "removal/protected_folders_window.h"
#include "removal/reasons.h"
#include "removal/removal_log.h"
#include "removal/removal_review_window.h"
#include "removal/removal_run.h"
#include "removal/shell_calls.h"

namespace ordelan::removal {

using system::Status;

namespace {

constexpr const char* kMark = "  --> Borrado";

}  // namespace

RemovalRun::Judged RemovalRun::judge(std::size_t i, const std::string& path) const {
  if (!review_->ListStatus.ticked(i) || !ticked_.contains(path)) return {Fate::unticked, {}, {}};
  if (is_protected(path, protected_folders())) {
    return {Fate::is_protected, std::string(reason::kProtected) + "una carpeta de la lista", {}};
  }
  const auto found = context_.platform.files.info(path);
  if (!found) return {Fate::missing, {}, {}};
  if (found->folder || found->hidden || found->system) return {Fate::stays, reason::kHidden, {}};
  if (RunCheck::is_project(path)) return {Fate::stays, reason::kProject, {}};
  if (!order_.CheckComprobar) return {Fate::goes, {}, {}};
  if (const Kept* const kept = check_.kept(path)) {
    return {Fate::stays, kept->motivo, kept->proyecto};
  }
  if (check_.has_changed(path, *found)) return {Fate::stays, reason::kChanged, {}};
  if (order_.CheckBorrarPapelera && without_bin_ == WithoutBin::stay && !fits_bin(path)) {
    return {
        Fate::stays, sizes_.bin_capacity(path) == 0 ? reason::kNoBin : reason::kTooLargeForBin, {}};
  }
  return {Fate::goes, {}, {}};
}

// False when the run has to end.
bool RemovalRun::row_procedure(std::size_t i) {
  if (!windows_open() || job_->superseded()) return let_events_run(i);
  const std::string path = review_->ListBorrar.row(i);
  const Judged judged = judge(i, path);
  if (!judged.motivo.empty()) keep(path, judged.motivo, judged.proyecto);
  if (judged.fate == Fate::is_protected) {
    // Protected rows pass over the events and the look at the cancel.
    options_.XP_Bar.set_value(static_cast<std::int64_t>(i));
    return true;
  }
  if (judged.fate == Fate::goes && has_copy(path)) remove_row(i, path);
  return let_events_run(i);
}

// Whether a row may go as far as copies are concerned. The list may have changed while the copy was
// made: the row is then another one than that which was copied.
bool RemovalRun::has_copy(const std::string& path) {
  if (!order_.CheckBackup || !order_.CheckComprobar || copied_.contains(path)) return true;
  if (!uncopied_.contains(path)) keep(path, std::string(reason::kNoCopy) + reason::kListChanged);
  return false;
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
  if (is_gone(removed, path)) {
    ++state_.gone;
  } else {
    keep(path, reason::of(removed));
  }
}

// Looked up only where the removal has failed: a missing name takes long to look up in a large
// folder on Linux.
bool RemovalRun::is_gone(Status removed, const std::string& path) const {
  return removed || !context_.platform.files.info(path);
}

Status RemovalRun::remove_file(const std::string& path) {
  const bool for_good =
      !order_.CheckBorrarPapelera || (without_bin_ == WithoutBin::go_for_good && !fits_bin(path));
  return for_good ? context_.platform.files.remove(path)
                  : EnviarPapelera(context_.platform.shell, path, order_.CheckConfirmar);
}

bool RemovalRun::fits_bin(const std::string& path) const {
  const std::uint64_t capacity = sizes_.bin_capacity(path);
  if (capacity == 0 || capacity == std::numeric_limits<std::uint64_t>::max()) return capacity > 0;
  const auto info = context_.platform.files.info(path);
  return !info || info->size <= capacity;
}

// The mark is set whatever has become of the file: what really happened is listed in BacUp.
void RemovalRun::mark(std::size_t i, const std::string& path) {
  if (!windows_open() || review_->ListBorrar.row(i) != path) return;  // a question gave it time
  review_->ListBorrar.replace(i, path + kMark);
}

}  // namespace ordelan::removal
