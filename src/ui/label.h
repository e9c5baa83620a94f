// A line or block of text that can be clicked, or with a picture a place that invites to something.
#pragma once

#include <string>

#include "ui/captioned.h"

namespace ordelan::ui {

class Label : public Captioned {
 public:
  using Captioned::Captioned;
  void attach(Backend& backend) override;

  // The name of a picture above the text; the two then stand in the middle of a dashed frame. Empty
  // for a plain text.
  const std::string& picture() const { return picture_; }
  void set_picture(std::string picture) { assign(picture_, std::move(picture), Aspect::value); }

 private:
  std::string picture_;
};

}  // namespace ordelan::ui
