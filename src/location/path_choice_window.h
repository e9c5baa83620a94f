// The window in which the user chooses one of several files of the same name.
#pragma once

#include <string>

#include "ui/check_box.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "work/program_window.h"

namespace ordelan::location {

class ElegirRuta final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "ElegirRuta";

  explicit ElegirRuta(const work::Context& context);

  ui::ListBox ListElegirRuta;
  ui::CheckBox CheckCarpeta;  // whether the choice is that of all files of the old folder
  ui::Label Label1;
  bool Elegido = false;  // whether the user has chosen

  // Shows CheckCarpeta, not ticked, for the files of this folder; hides it where it is empty.
  void offer_folder(const std::string& old_folder);
  bool for_whole_folder() const { return CheckCarpeta.visible() && CheckCarpeta.checked(); }

  // A click with the mouse chooses; the keys move from row to row, and Enter chooses.
  void ListElegirRuta_Click();
  void ListElegirRuta_Key(int key_code);

 private:
  void choose(const std::string& row);
};

}  // namespace ordelan::location
