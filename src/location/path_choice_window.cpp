#include "location/path_choice_window.h"

#include "skin/path_choice_layout.h"
#include "work/place_keys.h"

namespace ordelan::location {
namespace {

constexpr int kEnter = 13;

}  // namespace

ElegirRuta::ElegirRuta(const work::Context& context)
    : ProgramWindow(context, {.name = kName,
                              .title = "Elegir la ruta",
                              .layout = skin::kPathChoice,
                              .place_key = work::place_key::kElegirRuta,
                              .stores_at_unload = true,
                              .topmost = true,
                              .shown = true}),
      ListElegirRuta(*this, "ListElegirRuta"),
      CheckCarpeta(*this, "CheckCarpeta"),
      Label1(*this, "Label1") {
  Label1.set_caption(
      "Hay varios archivos con el mismo nombre. Clica el que debe utilizar el proyecto:");
  ListElegirRuta.set_description("Rutas encontradas");
  CheckCarpeta.set_caption("Igual para toda la carpeta");
  CheckCarpeta.hide();
  set_up();
  ListElegirRuta.on_click = [this] { ListElegirRuta_Click(); };
  // A click below the rows is a choice as well, of no path: it leaves the place empty.
  ListElegirRuta.on_click_below = [this] { choose(""); };
  ListElegirRuta.on_key = [this](int key) { ListElegirRuta_Key(key); };
}

void ElegirRuta::ListElegirRuta_Click() {
  // Who only goes from row to row with the keys has not chosen yet.
  if (!ListElegirRuta.chosen_by_key()) choose(ListElegirRuta.current_row());
}

void ElegirRuta::ListElegirRuta_Key(int key_code) {
  if (key_code == kEnter && ListElegirRuta.current() >= 0) choose(ListElegirRuta.current_row());
}

// The tick is not kept from one question to the next: it would choose for folders that the user has
// not thought of.
void ElegirRuta::offer_folder(const std::string& old_folder) {
  CheckCarpeta.set_checked(false);
  CheckCarpeta.set_tip("También para los demás archivos que estaban en " + old_folder);
  CheckCarpeta.set_visible(!old_folder.empty());
}

void ElegirRuta::choose(const std::string& row) {
  context().work.ArchivoActual = row;
  Elegido = true;
}

}  // namespace ordelan::location
