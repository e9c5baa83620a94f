// The window in which the user chooses one of several files of the same name.
#pragma once

#include <string>

#include "location/context.h"
#include "location/path_choice.h"
#include "ui/label.h"
#include "ui/window.h"

namespace ordelan::location {

class ElegirRuta final : public ui::Window, public PathChoice {
 public:
  explicit ElegirRuta(const Context& context);

  ui::Label Label1;

  // A click with the mouse chooses; the keys move from row to row, and Enter chooses.
  void ListElegirRuta_Click();
  void ListElegirRuta_Key(int key_code);

 private:
  void choose(const std::string& row);

  Context context_;
};

}  // namespace ordelan::location
