#include "win32/paint/mouse_pointers.h"

#include <algorithm>

#include "win32/paint/picture_store.h"

namespace ordelan::win32 {
namespace {

// By their numbers. Those for sizes go north-east, north, north-west, east.
LPCWSTR system_pointer(std::int16_t number) {
  switch (number) {
    case 1:
      return IDC_ARROW;
    case 2:
      return IDC_CROSS;
    case 3:
      return IDC_IBEAM;
    case 5:
    case 15:
      return IDC_SIZEALL;
    case 6:
      return IDC_SIZENESW;
    case 7:
      return IDC_SIZENS;
    case 8:
      return IDC_SIZENWSE;
    case 9:
      return IDC_SIZEWE;
    case 10:
      return IDC_UPARROW;
    case 11:
      return IDC_WAIT;
    case 12:
      return IDC_NO;
    case 13:
      return IDC_APPSTARTING;
    case 14:
      return IDC_HELP;
    default:
      return nullptr;
  }
}

}  // namespace

MousePointers::~MousePointers() {
  for (const auto& [key, cursor] : made_) {
    if (cursor) DestroyCursor(cursor);
  }
}

HCURSOR MousePointers::find(std::int16_t number, const std::string& picture, int dpi) {
  if (number == kOwn) return made_of(picture, dpi);
  const LPCWSTR name = system_pointer(number);
  return name ? LoadCursorW(nullptr, name) : nullptr;
}

HCURSOR MousePointers::made_of(const std::string& picture, int dpi) {
  if (picture.empty()) return nullptr;
  const auto [found, is_new] = made_.try_emplace({picture, dpi}, nullptr);
  if (!is_new) return found->second;
  const ui::Pixels pixels = pictures_.pixels(picture, dpi);
  if (pixels.argb.empty()) return nullptr;
  BITMAPV5HEADER header{};
  header.bV5Size = sizeof header;
  header.bV5Width = pixels.width;
  header.bV5Height = -pixels.height;  // from the top
  header.bV5Planes = 1;
  header.bV5BitCount = 32;
  header.bV5Compression = BI_BITFIELDS;
  header.bV5RedMask = 0x00FF0000;
  header.bV5GreenMask = 0x0000FF00;
  header.bV5BlueMask = 0x000000FF;
  header.bV5AlphaMask = 0xFF000000;
  void* bits = nullptr;
  const HDC screen = GetDC(nullptr);
  const HBITMAP colors = CreateDIBSection(screen, reinterpret_cast<const BITMAPINFO*>(&header),
                                          DIB_RGB_COLORS, &bits, nullptr, 0);
  ReleaseDC(nullptr, screen);
  const HBITMAP mask = CreateBitmap(pixels.width, pixels.height, 1, 1, nullptr);
  if (colors && mask) {
    std::copy(pixels.argb.begin(), pixels.argb.end(), static_cast<std::uint32_t*>(bits));
    ICONINFO icon{FALSE, 0, 0, mask, colors};
    found->second = CreateIconIndirect(&icon);
  }
  if (colors) DeleteObject(colors);
  if (mask) DeleteObject(mask);
  return found->second;
}

}  // namespace ordelan::win32
