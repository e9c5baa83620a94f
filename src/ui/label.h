// A line or block of text that can be clicked, or with a picture a place that invites to something.
#pragma once

#include <optional>
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

  // Where the text begins in the label, in twips, also before its left edge: what lies outside of
  // the label is not shown. The text is one line then, and no ellipsis ends it. Nothing for a text
  // that begins at the edge and keeps to the label's room. Meant to be moved at every tick of a
  // timer.
  std::optional<int> text_left() const { return text_left_; }
  void set_text_left(std::optional<int> twips) { assign(text_left_, twips, Aspect::value); }

  // How wide the caption is in one line, in twips; 0 where it cannot be measured.
  int text_width() const;

 private:
  std::string picture_;
  std::optional<int> text_left_;
};

}  // namespace ordelan::ui
