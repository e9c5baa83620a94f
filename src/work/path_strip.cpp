#include "work/path_strip.h"

#include "ui/list_width.h"

namespace ordelan::work {
namespace {

constexpr int kHeight = 30;

}  // namespace

PathStrip::PathStrip(ui::Window& window)
    : ListPath(window, "ListPath"), ImageIcon(window, "ImageIcon") {
  ListPath.set_description("Texto completo");
  ListPath.hide();
  ImageIcon.hide();
  ImageIcon.set_picture("proyecto");
  // The pointer over the strip puts it away, so that it never stands in the way of what it covers.
  ListPath.on_mouse_move = [this](ui::Point) { hide(); };
}

void PathStrip::MostrarPath(const std::string& Texto) {
  ui::Rect bounds = ListPath.bounds();
  bounds.height = kHeight;
  ListPath.set_bounds(bounds);
  ListPath.clear();
  ListPath.add(Texto);
  ui::ListaAncho(ListPath);

  // Only these two spellings are looked for: a project "Tema.Vip" shows without its icon.
  const bool project =
      Texto.find("vip") != std::string::npos || Texto.find("VIP") != std::string::npos;
  if (Texto == UltimoPath) {
    ListPath.set_visible(!ListPath.visible());
    if (project) ImageIcon.set_visible(ListPath.visible());
  } else {
    ListPath.show();
    ImageIcon.set_visible(project);
  }
  UltimoPath = Texto;
}

void PathStrip::show_rows(const std::vector<std::string>& rows) {
  ui::Rect bounds = ListPath.bounds();
  bounds.height = kHeight * static_cast<int>(rows.size());
  ListPath.set_bounds(bounds);
  ListPath.clear();
  ListPath.add(rows);
  ui::ListaAncho(ListPath);
  ListPath.show();
  ListPath.bring_to_front();
  UltimoPath.clear();
}

void PathStrip::hide() {
  ListPath.hide();
  ImageIcon.hide();
}

}  // namespace ordelan::work
