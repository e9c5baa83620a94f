#include "ui/list_width.h"

#include "ui/backend.h"
#include "ui/window.h"

namespace ordelan::ui {
namespace {

int width(const CharacterWidths& widths, std::string_view text) {
  int sum = 0;
  for (const char c : text) sum += widths[static_cast<unsigned char>(c)];
  return sum;
}

CharacterWidths widths_of(const Control& control) {
  return control.window().backend().character_widths(control.font());
}

}  // namespace

int ListaAncho(ListBox& Lista) {
  constexpr int kAir = 10;
  const CharacterWidths widths = widths_of(Lista);
  int widest = width(widths, Lista.row(0));
  for (const std::string& row : Lista.rows()) {
    const int wide = width(widths, row);
    if (wide > widest) widest = wide + kAir;
  }
  Lista.set_horizontal_extent(widest);
  AnchoLista = widest;
  return widest;
}

int share_rows(ListBox& Lista, const ListBox& other) {
  Lista.share(other);
  if (Lista.font() != other.font()) return ListaAncho(Lista);
  Lista.set_horizontal_extent(other.horizontal_extent());
  AnchoLista = other.horizontal_extent();
  return AnchoLista;
}

int MedirTexto(const Control& control, std::string_view Texto) {
  return width(widths_of(control), Texto);
}

}  // namespace ordelan::ui
