// The part of a run that reads the projects again and asks before the first file is touched.
#include "removal/backup_options_window.h"
#include "removal/removal_review_window.h"
#include "removal/removal_run.h"
#include "removal/run_totals.h"

namespace ordelan::removal {

// What has changed since the last time, and at first all.
void RemovalRun::read_again() {
  const auto rows = review_->ListBorrar.kept_rows();
  check_.read_again(rows_to_search(*rows, *context_.lists.List1.kept_rows()), [this] {
    job_->turn();
    return goes_on();
  });
}

// Whether the user has asked for a stop since the run began: an older order waits for the first
// row.
bool RemovalRun::stop_asked() const {
  return state_.CancelarBorrado && !stop_waiting_;
}

// After a question, which may have stood for hours. False where the run has to end.
bool RemovalRun::still_current() {
  if (order_.CheckComprobar && !job_->superseded() && windows_open()) read_again();
  return goes_on();
}

bool RemovalRun::goes_on() const {
  return !job_->superseded() && windows_open() && !stop_asked();
}

// What goes as far as it is known before the first row, with the drives whose bin is no help.
RunTotals RemovalRun::totals() const {
  const auto rows = review_->ListBorrar.kept_rows();
  const auto goes = [&](std::size_t i) {
    return ticked_.contains((*rows)[i]) && check_.kept((*rows)[i]) == nullptr;
  };
  return sizes_.totals(*rows, goes, order_.CheckBorrarPapelera,
                       order_.CheckBackup ? state_.RutaBackup : std::string());
}

// Asks what has to be asked before the first file is touched. False where the run must not begin.
bool RemovalRun::may_begin() {
  if (!order_.CheckBorrar || !order_.CheckComprobar) return true;
  const RunTotals totals = this->totals();
  if (order_.CheckBackup && !asks_of_room(totals)) return false;
  if (job_->superseded() || !windows_open()) return true;  // the run ends by itself
  if (!totals.no_bin.empty() && asks_of_bins(totals)) without_bin_ = WithoutBin::go_for_good;
  return true;
}

// Whether the run may begin although its copies have no room. Nothing is asked where they have.
bool RemovalRun::asks_of_room(const RunTotals& totals) {
  const auto free = free_room(context_.platform, state_.RutaBackup);
  if (!free || totals.room <= *free) return true;
  const std::string line = room_line(context_.platform, totals, state_.RutaBackup);
  const system::Message question{
      "Copia de seguridad", line + "\r\n\r\n¿Empezar de todos modos? Lo que no quepa se conserva.",
      system::Icon::exclamation, system::Buttons::yes_no};
  asked_ = true;
  return context_.platform.dialogs.message(question) == system::Answer::yes;
}

// Whether what cannot go to a bin is to be removed for good.
bool RemovalRun::asks_of_bins(const RunTotals& totals) {
  std::string text;
  for (const DriveWithoutBin& drive : totals.no_bin) text += sentence(drive) + "\r\n";
  const system::Message question{"Papelera de reciclaje",
                                 text + "\r\n¿Borrarlos para siempre? Si no, se conservan.",
                                 system::Icon::exclamation, system::Buttons::yes_no};
  asked_ = true;
  return context_.platform.dialogs.message(question) == system::Answer::yes;
}

}  // namespace ordelan::removal
