#include "win32/paint/exact_bitmap.h"

namespace ordelan::win32 {

HBITMAP exact_bitmap(int width, int height, std::uint32_t** pixels) {
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = width;
  format.bmiHeader.biHeight = -height;  // from the top
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (pixels) *pixels = bitmap ? static_cast<std::uint32_t*>(bits) : nullptr;
  return bitmap;
}

}  // namespace ordelan::win32
