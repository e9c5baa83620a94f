// The boxes by which the user says on which drives may be searched: one for each drive.
#pragma once

#include <string>
#include <vector>

#include "ui/check_box.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/window.h"

namespace ordelan::location {

class DriveBoxes {
 public:
  // Box 0 stands in `window` from the beginning, without a drive.
  explicit DriveBoxes(ui::Window& window);

  // The caption of a box is also the key under which it is remembered, its tag the drive's root.
  ui::ControlArray<ui::CheckBox> Check1;
  ui::Label Label2;  // what is ticked, in words; stands under the last box

  // Makes box `Indice`, if it is not there yet, under the ones before it, and fits the window to
  // it.
  void CrearCheckBox(int Indice, const std::string& Texto);

  // Gives a box its drive.
  void name(int index, const std::string& caption, const std::string& root);

  // Takes away the boxes behind the first `count`; box 0 always stays.
  void keep(int count);

  int ticked() const;

  // Says in Label2 what is ticked.
  void redraw();

 private:
  void connect(ui::CheckBox& box);
  void fit_window();

  ui::Window& window_;
};

}  // namespace ordelan::location
