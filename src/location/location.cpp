#include "location/location.h"

#include <memory>

#include "location/about_window.h"
#include "location/drive_window.h"
#include "location/lost_file_window.h"
#include "location/path_choice_window.h"
#include "location/search_window.h"

namespace ordelan::location {

Location::Location(const Context& context, const std::string& version)
    : lost_files(context), context_(context) {
  context_.windows.add("Buscar", [this] { return std::make_unique<Buscar>(context_); });
  context_.windows.add("UnidadesBuscar", [this] {
    return std::make_unique<UnidadesBuscar>(
        context_, [this] { context_.windows.touch_as<Buscar>("Buscar")->UnidadesDisponibles(); });
  });
  context_.windows.add("ElegirRuta", [this] { return std::make_unique<ElegirRuta>(context_); });
  context_.windows.add("Perdidos", [this] {
    return std::make_unique<Perdidos>(context_,
                                      [this](LostFileList& list) { lost_files.show_in(list); });
  });
  context_.windows.add("Acerca",
                       [this, version] { return std::make_unique<Acerca>(context_, version); });
}

int Location::UnidadesDisponibles() {
  // The window makes its boxes, and ticks them, when it is loaded.
  const auto* const boxes = context_.windows.touch_as<DriveBoxes>("UnidadesBuscar");
  context_.windows.hide("UnidadesBuscar");
  return boxes->ticked();
}

bool Location::BuscarVips(const std::string& folder) {
  auto* const buscar = context_.windows.touch_as<Buscar>("Buscar");
  buscar->Text1.set_text(folder);
  return buscar->BuscarVips();
}

bool Location::has_report() {
  const auto* const list = context_.windows.touch_as<LostFileList>("Perdidos");
  return !list->ListPerdidos.empty();
}

}  // namespace ordelan::location
