// A box that is ticked or not, with its caption.
#pragma once

#include "ui/captioned.h"

namespace ordelan::ui {

class CheckBox : public Captioned {
 public:
  using Captioned::Captioned;
  void attach(Backend& backend) override;

  bool checked() const { return checked_; }
  // Sets the tick without raising a click.
  void set_checked(bool checked) { assign(checked_, checked, Aspect::value); }
  // The user's click: changes the tick and raises `on_click`.
  void toggle();

 private:
  bool checked_ = false;
};

}  // namespace ordelan::ui
