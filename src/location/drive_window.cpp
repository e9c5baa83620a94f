#include "location/drive_window.h"

#include <utility>

#include "skin/drive_window_layout.h"
#include "work/place_keys.h"
#include "work/stored_state.h"

namespace ordelan::location {

UnidadesBuscar::UnidadesBuscar(const work::Context& context,
                               std::function<void()> UnidadesDisponibles,
                               std::function<void(int)> on_chosen)
    : ProgramWindow(context, {.name = kName,
                              .title = "Unidades en las que buscar",
                              .layout = skin::kDriveWindow,
                              .place = {120, 120},
                              .place_key = work::place_key::kUnidadesBuscar,
                              .stores_after_drag = true}),
      Check1(*this, "Check1", 1),
      Label2(*this, "Label2"),
      Label1(*this, "Label1"),
      cmdSalir(*this, "cmdSalir"),
      UnidadesDisponibles_(std::move(UnidadesDisponibles)),
      on_chosen_(std::move(on_chosen)) {
  Check1[0].set_caption("Unidad: ");
  connect(Check1[0]);
  make_close_button(cmdSalir);
  Label1.set_caption("Unidades en las que se buscarán los archivos desubicados:");
  set_up();
  on_close = [this] { this->context().windows.close<UnidadesBuscar>(); };
  cmdSalir.on_click = on_close;
  on_query_unload = [this] { return Form_QueryUnload(); };
}

void UnidadesBuscar::Form_Load() {
  UnidadesDisponibles_();
  for (auto& box : Check1) work::read_box(context().settings, *box);
  redraw();
}

bool UnidadesBuscar::Form_QueryUnload() {
  hide();
  store_place();
  for (const auto& box : Check1) work::write_box(context().settings, *box);
  on_chosen_(ticked());
  return false;
}

}  // namespace ordelan::location
