// Removal and recovery as the main window uses them: their windows are in the directory.
#pragma once

#include "removal/removal_state.h"
#include "removal/second_reading.h"
#include "work/context.h"

namespace ordelan::removal {

class Removal {
 public:
  // Adds the windows of this room to the directory. The arguments must outlive them.
  Removal(const work::Context& context, audio::Sound& sound, const Listener& listener);
  Removal(const Removal&) = delete;
  Removal& operator=(const Removal&) = delete;

  // Makes the review's lists those of ListBorrar.
  void CopiarListBorrados();
  // Shows the window with the options, or hides it.
  void CommandBorrado_Click();
  // The drives have been chosen: the window with the options can be used if it is there.
  void drives_chosen();
  // Shows the window that brings files back.
  void RecuperaBorrados_Click();
  // Whether CheckBorraAsociados is ticked: in the window, or as it was left.
  bool removes_side_files() const;

  // The files of ListBorrar that some project names or may name, with the reason; nothing where
  // the look was ended. See `SecondReading`.
  std::optional<std::vector<Kept>> named_files(const std::function<bool()>& go_on);

  RemovalState state;

 private:
  SecondReading second_reading_;
  RemovalContext removal_;
};

}  // namespace ordelan::removal
