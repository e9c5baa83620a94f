// A push button.
#pragma once

#include "ui/captioned.h"

namespace ordelan::ui {

class Button : public Captioned {
 public:
  using Captioned::Captioned;
  void attach(Backend& backend) override;
};

}  // namespace ordelan::ui
