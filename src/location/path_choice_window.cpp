#include "location/path_choice_window.h"

#include "skin/path_choice_layout.h"
#include "work/arrange.h"
#include "work/dress.h"
#include "work/stored_state.h"

namespace ordelan::location {
namespace {

constexpr int kEnter = 13;

}  // namespace

ElegirRuta::ElegirRuta(const work::Context& context)
    : ui::Window(context.backend, kName),
      ListElegirRuta(*this, "ListElegirRuta"),
      Label1(*this, "Label1"),
      context_(context) {
  set_title("Elegir la ruta");
  set_size({skin::kPathChoiceWidth, skin::kPathChoiceHeight});
  set_borderless(true);
  set_drag_by_background(true);
  Label1.set_caption(
      "Hay varios archivos con el mismo nombre. Clica el que debe utilizar el proyecto:");
  ListElegirRuta.set_description("Rutas encontradas");
  work::arrange(*this, skin::kPathChoice);
  work::dress(*this);
  on_load = [this] {
    work::read_place(context_.settings, *this, kName, {0, 0});
    set_topmost(true);
    show();
  };
  on_unload = [this] { work::write_place(context_.settings, *this, kName); };
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

void ElegirRuta::choose(const std::string& row) {
  context_.work.ArchivoActual = row;
  Elegido = true;
}

}  // namespace ordelan::location
