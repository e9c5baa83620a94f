#include "location/drive_window.h"

#include <utility>

#include "skin/drive_window_layout.h"
#include "work/arrange.h"
#include "work/dress.h"
#include "work/stored_state.h"

namespace ordelan::location {

UnidadesBuscar::UnidadesBuscar(const work::Context& context,
                               std::function<void()> UnidadesDisponibles,
                               std::function<void(int)> on_chosen)
    : ui::Window(context.backend, kName),
      Check1(*this, "Check1", 1),
      Label2(*this, "Label2"),
      Label1(*this, "Label1"),
      cmdSalir(*this, "cmdSalir"),
      context_(context),
      UnidadesDisponibles_(std::move(UnidadesDisponibles)),
      on_chosen_(std::move(on_chosen)) {
  Check1[0].set_caption("Unidad: ");
  connect(Check1[0]);
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
  on_close = [this] { context_.windows.close<UnidadesBuscar>(); };
  cmdSalir.on_click = on_close;
  on_query_unload = [this] { return Form_QueryUnload(); };
  on_drag_end = [this] { work::write_place(context_.settings, *this, kName); };
}

void UnidadesBuscar::Form_Load() {
  work::read_place(context_.settings, *this, kName, position());
  UnidadesDisponibles_();
  for (auto& box : Check1) work::read_box(context_.settings, *box);
  redraw();
}

bool UnidadesBuscar::Form_QueryUnload() {
  hide();
  work::write_place(context_.settings, *this, kName);
  for (const auto& box : Check1) work::write_box(context_.settings, *box);
  on_chosen_(ticked());
  return false;
}

}  // namespace ordelan::location
