// The window of the report of lost files.
#pragma once

#include <functional>
#include <string>

#include "location/context.h"
#include "location/lost_file_list.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/window.h"

namespace ordelan::location {

class Perdidos final : public ui::Window, public LostFileList {
 public:
  // `fill` puts the present report into the list; it is called when the window is loaded.
  Perdidos(const Context& context, std::function<void(LostFileList&)> fill);

  ui::Label Label1;
  ui::Button Button2;  // minimises
  ui::Button Salir;
  ui::Button cmdSalir;
  ui::Button cmdLog;

  // Saves the list in a file that the user names.
  void cmdLog_Click();
  // Writes every row to the file. False when that failed, or when `Archivo` is empty.
  bool SalvarLog(const std::string& Archivo);
  // Remembers the place and closes.
  void Salir_Click();

 private:
  Context context_;
};

}  // namespace ordelan::location
