#include "win32/paint/backdrop.h"

#include <algorithm>

#include "ui/nine_slice.h"
#include "ui/window.h"
#include "win32/paint/exact_bitmap.h"
#include "win32/paint/screen_scale.h"

namespace ordelan::win32 {
namespace {

std::uint32_t mask_of(const ui::Window& window) {
  if (window.shape().picture.empty()) return kMaskPixel;
  constexpr std::uint32_t kOpaque = 0xFF000000;
  const COLORREF mask = color_of(window.shape().mask);
  return kOpaque | std::uint32_t{GetRValue(mask)} << 16 | std::uint32_t{GetGValue(mask)} << 8 |
         GetBValue(mask);
}

}  // namespace

ui::Pixels ground_of(PictureStore& pictures, const ui::Window& window, const std::string& picture,
                     int dpi) {
  ui::Pixels pixels = pictures.pixels(picture, dpi, mask_of(window));
  if (!window.resizable()) return pixels;
  return ui::nine_sliced(
      pixels, {to_pixels(window.size().width, dpi), to_pixels(window.size().height, dpi)});
}

void Backdrop::paint(HDC context, const RECT& area, POINT origin, const ui::Window& window,
                     int dpi) {
  make_ready(window, dpi);
  const LONG width = std::min(area.right - area.left, size_.cx - origin.x);
  const LONG height = std::min(area.bottom - area.top, size_.cy - origin.y);
  if (!bitmap_ || width < area.right - area.left || height < area.bottom - area.top) {
    FillRect(context, &area, tools_.brush(window.back_color()));
  }
  if (!bitmap_ || width <= 0 || height <= 0) return;
  const BitmapContext picture(context, bitmap_);
  BitBlt(context, area.left, area.top, width, height, picture.get(), origin.x, origin.y, SRCCOPY);
}

void Backdrop::make_ready(const ui::Window& window, int dpi) {
  const ui::Size size = window.resizable() ? window.size() : ui::Size{};
  const auto wanted =
      std::tuple(window.background(), dpi, color_of(window.back_color()), size.width, size.height);
  if (made_for_ == wanted) return;
  forget();
  made_for_ = wanted;
  const ui::Pixels pixels = ground_of(pictures_, window, window.background(), dpi);
  if (pixels.argb.empty()) return;
  bitmap_ = exact_bitmap(pixels.width, pixels.height);
  if (!bitmap_) return;
  size_ = {pixels.width, pixels.height};
  const RECT all{0, 0, pixels.width, pixels.height};
  const BitmapContext context(nullptr, bitmap_);
  FillRect(context.get(), &all, tools_.brush(window.back_color()));
  pictures_.paint(context.get(), all, pixels);
}

void Backdrop::forget() {
  if (bitmap_) DeleteObject(bitmap_);
  bitmap_ = nullptr;
  size_ = {};
}

}  // namespace ordelan::win32
