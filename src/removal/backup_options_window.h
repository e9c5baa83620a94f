// The window from which removal begins: its options, and how the last run went.
#pragma once

#include "removal/removal_run.h"
#include "removal/removal_state.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/progress_bar.h"
#include "ui/text_box.h"
#include "work/program_window.h"

namespace ordelan::removal {

class BacUp final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "BacUp";

  explicit BacUp(const RemovalContext& removal);

  ui::CheckBox CheckBackup;
  ui::CheckBox CheckBorrar;
  ui::CheckBox CheckBorraAsociados;
  ui::CheckBox CheckComprobar;  // keeps what may be used after all
  ui::Button cmdBorrar;         // opens the review
  ui::Button CommandProtegidas;
  ui::Button cmdParar;  // ends a run with backup, during which Cancela is hidden
  ui::Label LabelConfig;
  ui::Label LabelEspera;  // stands where a run is reported, until one begins
  ui::Label LabelInfo;
  ui::Label LabelResultado;    // what the last run has really done, or why none has begun
  ui::Label LabelVueltas;      // how many rows the review has again
  ui::ListBox ListNoBorrados;  // what is still there, each with its reason
  ui::ProgressBar XP_Bar;
  ui::Image ImageInfoVip;
  ui::TextBox AvisoAsociados;
  ui::Button cmdSalir;
  ui::Button Salir;
  ui::Button cmdMinimizar;

  // Shared with the other windows.
  std::string& RutaBackup;
  bool& CancelarBorrado;
  bool& Borrando;

  // Removes what has been set up in the windows of this room; see `RemovalRun`.
  void BorrarSeleccionados();
  // What that would do.
  RemovalRun::Plan plan();
  void cmdBorrar_Click();
  void cmdSalir_Click();
  void Salir_Click();

 private:
  void Form_Load() override;
  void name_controls();
  void end_sound();

  RemovalContext removal_;
};

}  // namespace ordelan::removal
