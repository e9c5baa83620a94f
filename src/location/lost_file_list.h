// The report of lost files as its window shows it.
#pragma once

#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/window.h"

namespace ordelan::location {

struct LostFileList {
  explicit LostFileList(ui::Window& window)
      : ListPerdidos(window, "ListPerdidos"), TextEncontrados(window, "TextEncontrados") {}

  ui::ListBox ListPerdidos;
  ui::Label TextEncontrados;  // how many rows there are
};

}  // namespace ordelan::location
