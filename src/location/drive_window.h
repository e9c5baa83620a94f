// The window in which the user ticks the drives that may be searched. Closing it only hides it: its
// boxes are asked for as long as the program runs.
#pragma once

#include <functional>

#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "work/program_window.h"

namespace ordelan::location {

class UnidadesBuscar final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "UnidadesBuscar";

  // `UnidadesDisponibles` makes the boxes; it is called when the window is loaded. `on_chosen` is
  // called with how many drives are ticked each time the user has closed the window.
  UnidadesBuscar(const work::Context& context, std::function<void()> UnidadesDisponibles,
                 std::function<void(int)> on_chosen);

  // One box for each drive; box 0 exists from the beginning, without a drive. The caption of a box
  // is also the key under which it is stored, its tag the drive's root.
  ui::ControlArray<ui::CheckBox> Check1;
  ui::Label Label2;  // what is ticked, in words; stands under the last box

  // Makes box `Indice`, if it does not exist yet, under the ones before it, and fits the window to
  // it.
  void CrearCheckBox(int Indice, const std::string& Texto);

  // Gives a box its drive.
  void name_box(int index, const std::string& caption, const std::string& root);

  // Removes the boxes after the first `count`; box 0 always stays.
  void keep(int count);

  int ticked() const;

  // Says in Label2 what is ticked.
  void redraw();

  ui::Label Label1;
  ui::Button cmdSalir;

 private:
  void Form_Load() override;
  bool Form_QueryUnload();
  void connect(ui::CheckBox& box);
  void fit_window();

  std::function<void()> UnidadesDisponibles_;
  std::function<void(int)> on_chosen_;
};

}  // namespace ordelan::location
