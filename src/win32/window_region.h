// The outline of a picture as a region, for systems that cannot make a colour see-through.
#pragma once

#include <windows.h>

#include "ui/image.h"

namespace ordelan::win32 {

// All of the picture but what is of exactly that colour (a plain one); empty for a picture of that
// colour alone. The region is the caller's, to be deleted or handed on. Null where the system
// cannot make one.
HRGN CrearRegion(const ui::Pixels& Picture, COLORREF ColorMascara);

// Whether a library of the system's has a function of that name.
bool ExisteFuncion(const wchar_t* Libreria, const char* Nombre);

}  // namespace ordelan::win32
