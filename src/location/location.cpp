#include "location/location.h"

#include <memory>

#include "location/drive_window.h"
#include "location/lost_file_window.h"
#include "location/path_choice_window.h"
#include "location/search_window.h"

namespace ordelan::location {

Location::Location(const work::Context& context, project::VipReader& reader,
                   project::LeftOut& left_out, const Listener& listener)
    : lost_files(context), context_(context) {
  work::WindowDirectory& windows = context.windows;
  windows.add<Buscar>([context, &reader, &left_out, listener] {
    return std::make_unique<Buscar>(context, reader, left_out, listener.cmdReset_Click,
                                    listener.hits);
  });
  windows.add<UnidadesBuscar>([context, listener] {
    return std::make_unique<UnidadesBuscar>(
        context, [context] { context.windows.touch<Buscar>()->UnidadesDisponibles(); },
        listener.on_drives_chosen);
  });
  windows.add<ElegirRuta>([context] { return std::make_unique<ElegirRuta>(context); });
  windows.add<Perdidos>([this] {
    return std::make_unique<Perdidos>(context_,
                                      [this](Perdidos& window) { lost_files.show_in(window); });
  });
}

int Location::UnidadesDisponibles() {
  // The window makes its boxes, and ticks them, when it is loaded.
  const auto* const drives = context_.windows.touch<UnidadesBuscar>();
  context_.windows.hide<UnidadesBuscar>();
  return drives->ticked();
}

bool Location::BuscarVips(const std::string& folder, work::Job& job) {
  auto* const buscar = context_.windows.touch<Buscar>();
  buscar->Text1.set_text(folder);
  return buscar->BuscarVips(job);
}

bool Location::has_report() {
  return !context_.windows.touch<Perdidos>()->ListPerdidos.empty();
}

}  // namespace ordelan::location
