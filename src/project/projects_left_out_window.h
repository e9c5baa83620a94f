// The window that lists the projects that count for nothing, each with the reason.
#pragma once

#include "settings/settings.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/window.h"
#include "work/window_directory.h"
#include "work/work_in_hand.h"

namespace ordelan::project {

class Fuera final : public ui::Window {
 public:
  // Everything given must outlive the window. Its list is filled when it is loaded; who makes it
  // shows it.
  Fuera(ui::Backend& backend, const work::WorkInHand& work, work::WindowDirectory& windows,
        settings::Settings& settings);

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
  const work::WorkInHand& work_;
  work::WindowDirectory& windows_;
  settings::Settings& settings_;
};

}  // namespace ordelan::project
