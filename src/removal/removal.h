// Removal and recovery as the main window uses them: their windows are in the directory.
#pragma once

#include "removal/removal_state.h"
#include "work/context.h"

namespace ordelan::removal {

class Removal {
 public:
  // Adds the windows of this room to the directory. The arguments must outlive them.
  Removal(const work::Context& context, const Listener& listener);
  Removal(const Removal&) = delete;
  Removal& operator=(const Removal&) = delete;

  // Makes the review's lists those of ListBorrar.
  void CopiarListBorrados();
  // Shows the window with the options, or hides it.
  void CommandBorrado_Click();
  // Shows the window that brings files back.
  void RecuperaBorrados_Click();
  // Whether CheckBorraAsociados is ticked: in the window, or as it was left.
  bool removes_side_files() const;

  RemovalState state;

 private:
  RemovalContext removal_;
};

}  // namespace ordelan::removal
