// A picture.
#pragma once

#include <string>

#include "ui/control.h"

namespace ordelan::ui {

class Image : public Control {
 public:
  using Control::Control;
  void attach(Backend& backend) override;

  // The name of the picture among the program's resources; empty shows nothing.
  const std::string& picture() const { return picture_; }
  void set_picture(std::string picture) { assign(picture_, std::move(picture), Aspect::value); }

 private:
  std::string picture_;
};

}  // namespace ordelan::ui
