// The window that brings removed files back from the log of a run with backup.
#pragma once

#include <string>
#include <vector>

#include "removal/removal_state.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "work/program_window.h"

namespace ordelan::removal {

class Recuperar final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "Recuperar";

  explicit Recuperar(const RemovalContext& removal);

  ui::ListBox ListRecuperar;  // a row for each line of the log
  ui::Label Label1;
  ui::Button cmdOpen;
  ui::Button cmdRecuperar;
  ui::Label LabelCerrar;
  ui::ListBox ListNoRecuperados;  // what was not brought back, each with its reason
  ui::Button cmdMinimizar;
  ui::Button Salir;

  // Asks for a log and lists its files.
  void cmdOpen_Click();
  // Brings every listed file back to where it was.
  void RecuperarArchivos();
  void Salir_Click();

  // How the last recovery went.
  std::size_t recovered() const { return recovered_; }
  const std::vector<Kept>& not_recovered() const { return not_recovered_; }
  // The log that is loaded, with its path; empty if none is.
  const std::string& log() const { return log_; }

 private:
  void Form_Load() override;
  bool is_open() const;
  void warn_of_empty_log();

  RemovalContext removal_;
  std::string log_;
  bool busy_ = false;  // the log is being read, or files are being brought back
  std::size_t recovered_ = 0;
  std::vector<Kept> not_recovered_;
};

}  // namespace ordelan::removal
