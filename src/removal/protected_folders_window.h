// The window that keeps the list of folders whose files are not removed.
#pragma once

#include <string>

#include "removal/removal_state.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/text_box.h"
#include "work/program_window.h"

namespace ordelan::removal {

class FormNoBorrar final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "FormNoBorrar";

  explicit FormNoBorrar(const RemovalContext& removal);

  ui::ListBox List1;   // the protected folders
  ui::ListBox Drive1;  // a row for each drive
  ui::ListBox Dir1;    // the folder that is open, below those around it, and its subfolders
  ui::Label LabelDir;  // the path of that folder
  ui::Button CommandAgregar;
  ui::Button CommandQuitar;
  ui::Button cmdBorrar;
  ui::Button Salir;
  ui::Button cmdSalir;
  ui::CheckBox CheckAviso;
  ui::TextBox AvisoNoBorrados;
  ui::Label Label1;
  ui::Label Label2;

  // Reads the list as it was stored last.
  void LeerRutasNoBorrados();
  // Opens a folder in Dir1.
  void set_Dir1(const std::string& folder);
  const std::string& Dir1_Path() const { return path_; }
  void CommandAgregar_Click();
  void CommandQuitar_Click();
  void Salir_Click();

 private:
  void Form_Load() override;
  void name_controls();
  void GrabarRutas();
  void open_Dir1_row();

  RemovalContext removal_;
  std::string path_;  // without a backslash at its end, but for the root of a drive
};

// Shows the window.
void show_protected_folders(const work::Context& context);

}  // namespace ordelan::removal
