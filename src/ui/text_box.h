// A box of text, one line or many, that the user may be allowed to change.
#pragma once

#include <string>

#include "ui/control.h"

namespace ordelan::ui {

class TextBox : public Control {
 public:
  TextBox(Window& window, std::string name, int index = -1);
  void attach(Backend& backend) override;

  const std::string& text() const { return text_; }
  void set_text(std::string text) { assign(text_, std::move(text), Aspect::text); }
  // What the user typed; the peer is not notified.
  void typed(std::string text) { text_ = std::move(text); }

  bool read_only() const { return read_only_; }
  void set_read_only(bool read_only) { assign(read_only_, read_only, Aspect::state); }

  // Whether the text may break into lines; to be set before the window is loaded.
  bool multiline() const { return multiline_; }
  void set_multiline(bool multiline) { multiline_ = multiline; }

  // Whether the box has an edge; to be set before the window is loaded.
  bool bordered() const { return bordered_; }
  void set_bordered(bool bordered) { bordered_ = bordered; }

  // How many lines the text takes as it is shown.
  int line_count() const;

 private:
  std::string text_;
  bool read_only_ = true;
  bool multiline_ = false;
  bool bordered_ = true;
};

}  // namespace ordelan::ui
