// The window of the report of lost files.
#pragma once

#include <functional>
#include <string>

#include "ui/button.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "work/program_window.h"

namespace ordelan::location {

class Perdidos final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "Perdidos";

  // `fill` puts the present report into the list; it is called when the window is loaded.
  Perdidos(const work::Context& context, std::function<void(Perdidos&)> fill);

  ui::ListBox ListPerdidos;
  ui::Label TextEncontrados;  // how many rows there are
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
  void Form_Load() override { fill_(*this); }

  std::function<void(Perdidos&)> fill_;
};

}  // namespace ordelan::location
