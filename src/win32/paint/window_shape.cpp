#include "win32/paint/window_shape.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

#include "ui/window_shape.h"
#include "win32/paint/drawing_tools.h"

namespace ordelan::win32 {
namespace {

struct LibraryGone {
  void operator()(HMODULE library) const { FreeLibrary(library); }
};
using LibraryHandle = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryGone>;

bool same_columns(const RECT& a, const RECT& b) {
  return a.left == b.left && a.right == b.right;
}

// What the picture has beside the mask. Rows that are alike make one row of higher rectangles.
std::vector<RECT> rectangles_of(const ui::Pixels& picture, ui::Color mask) {
  const std::vector<ui::PixelRun> runs =
      ui::runs_without(picture, static_cast<ui::Color>(color_of(mask)));
  std::vector<RECT> rectangles;
  std::size_t last = 0;  // where those of the row above begin
  for (auto run = runs.begin(); run != runs.end();) {
    std::vector<RECT> row;
    for (const int y = run->row; run != runs.end() && run->row == y; ++run) {
      row.push_back({run->left, y, run->right, y + 1});
    }
    const auto above = rectangles.begin() + static_cast<std::ptrdiff_t>(last);
    const bool touches = above != rectangles.end() && above->bottom == row.front().top;
    if (touches && std::equal(above, rectangles.end(), row.begin(), row.end(), same_columns)) {
      std::for_each(above, rectangles.end(), [](RECT& each) { ++each.bottom; });
    } else {
      last = rectangles.size();
      rectangles.insert(rectangles.end(), row.begin(), row.end());
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
  if (picture.argb.empty()) return false;  // the user could not see or reach the window
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
  const std::vector<RECT> rectangles = rectangles_of(picture, mask);
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

ShapeRoad best_road(bool (*exists)(const char* library, const char* name)) {
  return exists("user32", "SetLayeredWindowAttributes") ? ShapeRoad::keyed : ShapeRoad::region;
}

bool AplicarForma(HWND window, const ui::Pixels& picture, ui::Color mask, ShapeRoad road) {
  return road == ShapeRoad::keyed ? key(window, mask) : cut(window, picture, mask);
}

void end_shape(HWND window) {
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_EXSTYLE);
  const bool layered = (style & WS_EX_LAYERED) != 0;
  RECT box{};
  if (!layered && GetWindowRgnBox(window, &box) == ERROR) return;
  if (layered) SetWindowLongPtrW(window, GWL_EXSTYLE, style & ~LONG_PTR{WS_EX_LAYERED});
  SetWindowRgn(window, nullptr, TRUE);
  SetWindowPos(window, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

}  // namespace ordelan::win32
