// The window that lists the projects that are left out, each with the reason.
#pragma once

#include "ui/button.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "work/program_window.h"

namespace ordelan::main_window {

class Fuera final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "Fuera";

  // Its list is filled when it is loaded; the caller that makes it shows it.
  explicit Fuera(const work::Context& context);

  ui::Label Label1;
  ui::ListBox ListFuera;  // a row a project: its path, and the reason in brackets
  ui::Label LabelNota;
  ui::Button Button2;  // minimises
  ui::Button Salir;
  ui::Button cmdSalir;

  // Fills the list from the work in hand as it is now.
  void fill();
  // Remembers the place and closes.
  void Salir_Click();

 private:
  void Form_Load() override { fill(); }
};

}  // namespace ordelan::main_window
