// A one-row strip that shows a long path, or a heading that the window cuts off, in full.
#pragma once

#include <string>
#include <vector>

#include "ui/image.h"
#include "ui/list_box.h"
#include "ui/window.h"

namespace ordelan::work {

class PathStrip {
 public:
  explicit PathStrip(ui::Window& window);

  ui::ListBox ListPath;
  ui::Image ImageIcon;  // stands by the path of a project

  std::string UltimoPath;  // the text shown last

  // Shows `Texto`; the same text a second time inverts the strip.
  void MostrarPath(const std::string& Texto);
  // Shows rows of several lines.
  void show_rows(const std::vector<std::string>& rows);
  void hide();
};

}  // namespace ordelan::work
