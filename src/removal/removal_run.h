// One run of removal: the side files, then the rows of the review one by one, each to the bin or
// for good, with or without copies and a log.
//
// The order is always the same. A copy is checked before its row is written to the log, and the
// line has reached the disk before the file is touched: whenever the program ends, each file is in
// its place or can be brought back.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "removal/backup_folder.h"
#include "removal/removal_state.h"
#include "removal/run_check.h"
#include "removal/run_totals.h"
#include "work/job.h"

namespace ordelan::removal {

class BacUp;
class ParaBorrar;
class FormNoBorrar;

// Whether a row of List1 is audio by its last four characters: no side file.
bool is_audio_row(const std::string& row);

// What the projects are searched for before a run: the rows of the review, and the side files among
// those of List1. The same for the review and for the run, which then reads what has changed.
std::vector<std::string> rows_to_search(const std::vector<std::string>& rows,
                                        const std::vector<std::string>& side_files);

class RemovalRun {
 public:
  // `options` must be the window that the program has now.
  RemovalRun(const RemovalContext& removal, BacUp& options);

  // Does what has been set up in the windows. Events are handled in between; the run ends at the
  // next row when CancelarBorrado is set, when one of its windows is closed, or when a newer job
  // begins. Nothing is done while another run is under way, or where the careful look refuses it:
  // `options` then says why.
  void BorrarSeleccionados();

  // What `BorrarSeleccionados` would do, without touching anything.
  struct Planned {
    std::string ruta;
    std::string motivo;  // why it would stay; empty if it would go
    bool copia = false;  // whether it would be copied
    bool asociado = false;
  };
  struct Plan {
    std::string negativa;  // why no run would begin; empty if one would
    std::vector<Planned> archivos;
    std::vector<Kept> conservados;  // ticked rows that stay all the same
  };
  Plan plan();

 private:
  struct Order {  // the options as they were when the run began
    bool CheckBackup, CheckBorrar, CheckBorraAsociados, CheckComprobar;
    bool CheckVaciarPapelera, CheckBorrarPapelera, CheckConfirmar;
  };

  // What becomes of a row.
  enum class Fate { goes, unticked, is_protected, missing, stays };
  // What becomes of rows that cannot go to a bin.
  enum class WithoutBin { stay, go_for_good };
  struct Judged {
    Fate fate;
    std::string motivo;  // where it stays although it is ticked
    std::string proyecto;
  };

  bool begin();
  void run();
  bool refused();
  void refuse(const std::string& why);
  std::optional<std::string> why_refused();
  Judged judge(std::size_t i, const std::string& path) const;
  std::string why_side_file_stays(const std::string& row) const;
  void BorrarAsociados();
  void plain_branch();
  void backup_branch();
  void idle_branch();
  bool row_procedure(std::size_t i);
  bool let_events_run(std::size_t i);
  bool has_copy(const std::string& path);
  void remove_row(std::size_t i, const std::string& path);
  void mark(std::size_t i, const std::string& path);
  system::Status remove_file(const std::string& path);
  bool is_gone(system::Status removed, const std::string& path) const;
  void copy_row(const std::string& row);
  void closing_messages();
  void end();
  void show_bar(std::size_t rows);
  void show_cancelled();
  void report();
  void keep(const std::string& row, std::string motivo, std::string proyecto = {});
  void look_at_rows();
  void read_again();
  bool stop_asked() const;
  bool goes_on() const;
  bool still_current();
  bool may_begin();
  bool asks_of_bins(const RunTotals& totals);
  bool asks_of_room(const RunTotals& totals);
  RunTotals totals() const;
  bool fits_bin(const std::string& path) const;
  void keep_places();
  std::vector<std::string> protected_folders() const;
  bool stopped() const;
  bool windows_open() const;

  RemovalContext removal_;
  const work::Context& context_;
  RemovalState& state_;
  BacUp& options_;
  ParaBorrar* review_ = nullptr;
  std::unique_ptr<work::Job> job_;
  Order order_{};
  RunCheck check_;
  std::unordered_set<std::string> ticked_;    // the rows that were ticked when the run began
  std::unordered_set<std::string> copied_;    // rows that have a checked copy
  std::unordered_set<std::string> uncopied_;  // rows whose copy has failed
  std::optional<BackupFolder> backup_;
  RunSizes sizes_;
  bool stop_waiting_ = false;  // a stop was asked for before the run
  bool asked_ = false;         // a question stood since the projects were read
  WithoutBin without_bin_ = WithoutBin::stay;
};

}  // namespace ordelan::removal
