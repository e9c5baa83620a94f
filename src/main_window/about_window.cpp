#include "main_window/about_window.h"

#include "skin/about_layout.h"
#include "work/arrange.h"
#include "work/dress.h"

namespace ordelan::main_window {

Acerca::Acerca(const work::Context& context)
    : ui::Window(context.backend, kName),
      LabelNombre(*this, "LabelNombre"),
      ImageLogo(*this, "ImageLogo"),
      LabelVersion(*this, "LabelVersion"),
      LabelTexto(*this, "LabelTexto"),
      LabelWeb(*this, "LabelWeb"),
      cmdSalir(*this, "cmdSalir"),
      context_(context) {
  set_title("Acerca de Ordelan");
  set_size({skin::kAboutWidth, skin::kAboutHeight});
  set_position({200, 160});  // the place is not remembered: it is looked at once
  set_borderless(true);
  set_drag_by_background(true);
  LabelNombre.set_caption("Acerca de Ordelan");
  LabelNombre.set_font({.points = 10, .bold = true});
  ImageLogo.set_description("Ordelan");
  LabelVersion.set_caption("Versión " ORDELAN_VERSION);
  LabelTexto.set_caption(
      "Qué audio utilizan tus proyectos de Samplitude y Sequoia, qué no utiliza ninguno y qué se "
      "ha perdido.");
  LabelWeb.set_caption(kWebPage);
  LabelWeb.set_tip("Abrir la página web");
  cmdSalir.set_caption("Cerrar");
  work::arrange(*this, skin::kAbout);
  work::dress(*this);
  on_load = [this] {
    set_topmost(true);
    show();
  };
  LabelWeb.on_click = [this] { context_.platform.shell.open(kWebPage); };
  on_key_down = [this](ui::Key& key) {
    constexpr int kEscape = 27;
    if (key.code == kEscape) cmdSalir.on_click();
  };
  cmdSalir.on_click = [this] { context_.windows.close<Acerca>(); };
  on_close = cmdSalir.on_click;
}

}  // namespace ordelan::main_window
