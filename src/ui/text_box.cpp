#include "ui/text_box.h"

#include "ui/backend.h"
#include "ui/window.h"

namespace ordelan::ui {

void TextBox::attach(Backend& backend) { peer_ = backend.attach(*this); }

int TextBox::line_count() const { return window().backend().line_count(*this); }

}  // namespace ordelan::ui
