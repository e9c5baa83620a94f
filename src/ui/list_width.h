// How far a list must scroll sideways to show its longest row.
#pragma once

#include "ui/list_box.h"

namespace ordelan::ui {

// Gives the list the horizontal extent that its rows need, and returns it: the first row's width,
// or the width of a wider row plus 10 pixels of air. The ten count in the comparison, so that rows
// which are wider by less than that change nothing and the extent does not creep. An empty list
// gets 0.
int ListaAncho(ListBox& Lista);

// Takes the rows of another list that has its extent; they are measured again only where the two
// are written in different fonts. Returns the extent.
int share_rows(ListBox& Lista, const ListBox& other);

// What the last `ListaAncho` of any list gave; 0 before the first.
inline int AnchoLista = 0;

// The width of a text in the control's font, in pixels; 0 where it cannot be measured.
int MedirTexto(const Control& control, std::string_view Texto);

}  // namespace ordelan::ui
