#include "win32/window_region.h"

#include "ui/window_shape.h"

namespace ordelan::win32 {

HRGN CrearRegion(const ui::Pixels& Picture, COLORREF ColorMascara) {
  HRGN region = CreateRectRgn(0, 0, 0, 0);
  if (!region) return nullptr;
  for (const ui::PixelRun& run : ui::runs_without(Picture, static_cast<ui::Color>(ColorMascara))) {
    HRGN piece = CreateRectRgn(run.left, run.row, run.right, run.row + 1);
    if (!piece) continue;
    CombineRgn(region, region, piece, RGN_OR);
    DeleteObject(piece);
  }
  return region;
}

bool ExisteFuncion(const wchar_t* Libreria, const char* Nombre) {
  const HMODULE there = GetModuleHandleW(Libreria);
  const HMODULE module = there ? there : LoadLibraryW(Libreria);
  if (!module) return false;
  const bool exists = GetProcAddress(module, Nombre) != nullptr;
  if (!there) FreeLibrary(module);
  return exists;
}

}  // namespace ordelan::win32
