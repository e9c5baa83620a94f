// A control with a caption.
#pragma once

#include <string>

#include "ui/control.h"

namespace ordelan::ui {

class Captioned : public Control {
 public:
  using Control::Control;

  const std::string& caption() const { return caption_; }
  void set_caption(std::string caption) { assign(caption_, std::move(caption), Aspect::text); }

 private:
  std::string caption_;
};

}  // namespace ordelan::ui
