// The window that lists the projects that count for nothing, each with the reason.
#pragma once

#include "ui/button.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/window.h"
#include "work/context.h"

namespace ordelan::main_window {

class Fuera final : public ui::Window {
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
  work::Context context_;
};

}  // namespace ordelan::main_window
