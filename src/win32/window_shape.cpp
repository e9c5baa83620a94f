#include "win32/window_shape.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

#include "win32/drawing_tools.h"

namespace ordelan::win32 {
namespace {

struct LibraryGone {
  void operator()(HMODULE library) const { FreeLibrary(library); }
};
using LibraryHandle = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryGone>;

// The mask as a picture's pixel, without its opacity.
std::uint32_t pixel_of(ui::Color color) {
  const COLORREF word = color_of(color);
  return (std::uint32_t{GetRValue(word)} << 16) | (std::uint32_t{GetGValue(word)} << 8) |
         GetBValue(word);
}

// The runs of one row that are not the mask, each as a rectangle of that row.
std::vector<RECT> runs_of(const ui::Pixels& picture, int y, std::uint32_t mask) {
  const std::uint32_t* const row =
      picture.argb.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width);
  const auto is_mask = [&](int x) { return (row[x] & 0x00FFFFFF) == mask; };
  std::vector<RECT> runs;
  int x = 0;
  while (x < picture.width) {
    while (x < picture.width && is_mask(x)) ++x;
    const int start = x;
    while (x < picture.width && !is_mask(x)) ++x;
    if (x > start) runs.push_back({start, y, x, y + 1});
  }
  return runs;
}

bool same_columns(const RECT& a, const RECT& b) {
  return a.left == b.left && a.right == b.right;
}

// All runs of the picture. Rows that are alike make one row of higher rectangles.
std::vector<RECT> rectangles_of(const ui::Pixels& picture, std::uint32_t mask) {
  std::vector<RECT> rectangles;
  std::size_t last = 0;  // where those of the row above begin
  for (int y = 0; y < picture.height; ++y) {
    const std::vector<RECT> runs = runs_of(picture, y, mask);
    const auto above = rectangles.begin() + static_cast<std::ptrdiff_t>(last);
    const bool touches = above != rectangles.end() && above->bottom == y;
    if (touches && std::equal(above, rectangles.end(), runs.begin(), runs.end(), same_columns)) {
      std::for_each(above, rectangles.end(), [](RECT& each) { ++each.bottom; });
    } else if (!runs.empty()) {
      last = rectangles.size();
      rectangles.insert(rectangles.end(), runs.begin(), runs.end());
    }
  }
  return rectangles;
}

// From the room for controls to the whole window, borders included.
POINT origin_of_room(HWND window) {
  POINT corner{};
  RECT area{};
  ClientToScreen(window, &corner);
  GetWindowRect(window, &area);
  return {corner.x - area.left, corner.y - area.top};
}

bool cut(HWND window, const ui::Pixels& picture, ui::Color mask) {
  HRGN const region = CrearRegion(picture, mask);
  if (!region) return false;
  const POINT origin = origin_of_room(window);
  OffsetRgn(region, origin.x, origin.y);
  // The system owns it from here on, unless it refuses.
  if (SetWindowRgn(window, region, TRUE)) return true;
  DeleteObject(region);
  return false;
}

bool key(HWND window, ui::Color mask) {
  const LONG_PTR old = GetWindowLongPtrW(window, GWL_EXSTYLE);
  SetWindowLongPtrW(window, GWL_EXSTYLE, old | WS_EX_LAYERED);
  if (SetLayeredWindowAttributes(window, color_of(mask), 0, LWA_COLORKEY)) return true;
  SetWindowLongPtrW(window, GWL_EXSTYLE, old);
  return false;
}

}  // namespace

bool ExisteFuncion(const char* library, const char* name) {
  const LibraryHandle loaded(LoadLibraryExA(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
  return loaded && GetProcAddress(loaded.get(), name) != nullptr;
}

HRGN CrearRegion(const ui::Pixels& picture, ui::Color mask) {
  const std::vector<RECT> rectangles = rectangles_of(picture, pixel_of(mask));
  if (rectangles.empty()) return CreateRectRgn(0, 0, 0, 0);
  const std::size_t bytes = rectangles.size() * sizeof(RECT);
  std::vector<BYTE> room(sizeof(RGNDATAHEADER) + bytes);
  auto* const data = reinterpret_cast<RGNDATA*>(room.data());
  data->rdh = {sizeof(RGNDATAHEADER),
               RDH_RECTANGLES,
               static_cast<DWORD>(rectangles.size()),
               static_cast<DWORD>(bytes),
               {0, 0, picture.width, picture.height}};
  std::memcpy(data->Buffer, rectangles.data(), bytes);
  return ExtCreateRegion(nullptr, static_cast<DWORD>(room.size()), data);
}

ShapeRoad best_road() {
  static const bool can_be_keyed = ExisteFuncion("user32", "SetLayeredWindowAttributes");
  return can_be_keyed ? ShapeRoad::keyed : ShapeRoad::region;
}

bool AplicarForma(HWND window, const ui::Pixels& picture, ui::Color mask, ShapeRoad road) {
  return road == ShapeRoad::keyed ? key(window, mask) : cut(window, picture, mask);
}

}  // namespace ordelan::win32
