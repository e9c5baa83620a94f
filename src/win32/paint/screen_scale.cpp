#include "win32/paint/screen_scale.h"

#include <algorithm>

namespace ordelan::win32 {
namespace {

// Calls that the first editions of Windows 10 lack.
template <class Function>
Function user32_call(const char* name) {
  const HMODULE module = GetModuleHandleW(L"user32.dll");
  if (!module) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

int to_pixels(int units, int dpi) {
  return MulDiv(units, dpi, kUnitsPerInch);
}
int to_units(int pixels, int dpi) {
  return MulDiv(pixels, kUnitsPerInch, dpi);
}
int twips_to_pixels(int twips, int dpi) {
  return MulDiv(twips, dpi, ui::kTwipsPerInch);
}

int line_width(int dpi) {
  return std::max(1, dpi / kUnitsPerInch);
}

RECT to_pixels(const ui::Rect& units, int dpi) {
  return RECT{to_pixels(units.left, dpi), to_pixels(units.top, dpi),
              to_pixels(units.left + units.width, dpi), to_pixels(units.top + units.height, dpi)};
}

int system_dpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSX) : kUnitsPerInch;
  if (screen) ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : kUnitsPerInch;
}

int dpi_of(HWND window) {
  static const auto call = user32_call<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
  const int dpi = call ? static_cast<int>(call(window)) : 0;
  return dpi > 0 ? dpi : system_dpi();
}

void add_borders(RECT& area, DWORD style, DWORD extended_style, int dpi) {
  static const auto call =
      user32_call<BOOL(WINAPI*)(LPRECT, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
  if (call && call(&area, style, FALSE, extended_style, static_cast<UINT>(dpi))) return;
  AdjustWindowRectEx(&area, style, FALSE, extended_style);
}

}  // namespace ordelan::win32
