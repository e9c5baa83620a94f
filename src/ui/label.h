// A line or block of text that can be clicked.
#pragma once

#include "ui/captioned.h"

namespace ordelan::ui {

class Label : public Captioned {
 public:
  using Captioned::Captioned;
  void attach(Backend& backend) override;
};

}  // namespace ordelan::ui
