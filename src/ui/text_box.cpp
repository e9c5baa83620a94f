#include "ui/text_box.h"

#include <utility>

#include "ui/backend.h"
#include "ui/window.h"

namespace ordelan::ui {

TextBox::TextBox(Window& window, std::string name, int index)
    : Control(window, std::move(name), index) {
  set_back_color(Color::window_background);
  set_fore_color(Color::window_text);
}

void TextBox::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

int TextBox::line_count() const {
  return window().backend().line_count(*this);
}

}  // namespace ordelan::ui
