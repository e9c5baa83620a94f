// The small window in which the folder for the copies and the log is chosen before a run.
#pragma once

#include "removal/removal_state.h"
#include "ui/button.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"
#include "work/program_window.h"

namespace ordelan::removal {

class CarpetaBack final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "CarpetaBack";

  explicit CarpetaBack(const RemovalContext& removal);

  ui::Label LabelTitulo;
  ui::Button CarpetaNew;        // chooses again
  ui::Button cmdCarpetaBorrar;  // begins the run
  ui::ControlArray<ui::Label> LabelRuta;
  ui::Label LabelOK;
  ui::Label LabelAviso;
  ui::Label LabelEspacio;  // how much is copied, and how much room there is
  ui::TextBox AvisoBack;
  ui::Button cmdSalir;

  // Asks for the folder. The run can begin once one was chosen.
  void CrearCarpeta();
  void cmdCarpetaBorrar_Click();
  void cmdSalir_Click();

 private:
  void Form_Load() override;
  void show_room();

  RemovalContext removal_;
  // Whether a folder has been chosen since the window is shown.
  bool CarpetaElegida_ = false;
  bool CarpetaValida_ = false;
};

}  // namespace ordelan::removal
