#include "main_window/about_window.h"

#include "skin/about_layout.h"

namespace ordelan::main_window {

Acerca::Acerca(const work::Context& context)
    : ProgramWindow(context, {.name = kName,
                              .title = "Acerca de Ordelan",
                              .layout = skin::kAbout,
                              .place = {200, 160},
                              .topmost = true,
                              .shown = true}),
      LabelNombre(*this, "LabelNombre"),
      ImageLogo(*this, "ImageLogo"),
      LabelVersion(*this, "LabelVersion"),
      LabelTexto(*this, "LabelTexto"),
      LabelWeb(*this, "LabelWeb"),
      cmdSalir(*this, "cmdSalir") {
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
  set_up();
  LabelWeb.on_click = [this] { this->context().platform.shell.open(kWebPage); };
  on_key_down = [this](ui::Key& key) {
    constexpr int kEscape = 27;
    if (key.code == kEscape) cmdSalir.on_click();
  };
  cmdSalir.on_click = [this] { this->context().windows.close<Acerca>(); };
  on_close = cmdSalir.on_click;
}

}  // namespace ordelan::main_window
