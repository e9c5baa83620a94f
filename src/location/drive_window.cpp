#include "location/drive_window.h"

#include <utility>

#include "skin/drive_window_layout.h"
#include "work/arrange.h"
#include "work/dress.h"

namespace ordelan::location {

UnidadesBuscar::UnidadesBuscar(const Context& context, std::function<void()> UnidadesDisponibles)
    : ui::Window(context.backend, "UnidadesBuscar"),
      DriveBoxes(static_cast<ui::Window&>(*this)),
      Label1(*this, "Label1"),
      cmdSalir(*this, "cmdSalir"),
      context_(context),
      UnidadesDisponibles_(std::move(UnidadesDisponibles)) {
  set_title("Unidades en las que buscar");
  set_size({skin::kDriveWindowWidth, skin::kDriveWindowHeight});
  set_position({120, 120});
  set_borderless(true);
  set_drag_by_background(true);
  cmdSalir.set_description("Cerrar");
  cmdSalir.set_tip("Cerrar esta ventana");
  Label1.set_caption("Unidades en las que se buscarán los archivos desubicados:");
  work::arrange(*this, skin::kDriveWindow);
  work::dress(*this);
  on_load = [this] { Form_Load(); };
  on_close = [this] { context_.windows.close("UnidadesBuscar"); };
  cmdSalir.on_click = on_close;
  on_query_unload = [this] { return Form_QueryUnload(); };
  on_drag_end = [this] { context_.settings.write_position(*this, "UnidadesBuscar"); };
}

void UnidadesBuscar::Form_Load() {
  context_.settings.read_position(*this, "UnidadesBuscar", position());
  UnidadesDisponibles_();
  for (auto& box : Check1) context_.settings.read(*box);
  redraw();
}

bool UnidadesBuscar::Form_QueryUnload() {
  hide();
  context_.settings.write_position(*this, "UnidadesBuscar");
  for (const auto& box : Check1) context_.settings.write(*box);
  context_.main.ActualizarVip.set_visible(ticked() > 0);
  return false;
}

}  // namespace ordelan::location
