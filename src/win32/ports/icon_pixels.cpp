#include "win32/ports/icon_pixels.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <type_traits>

namespace ordelan::win32 {
namespace {

struct BitmapGone {
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
struct ContextGone {
  void operator()(HDC context) const { DeleteDC(context); }
};
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapGone>;
using ContextHandle = std::unique_ptr<std::remove_pointer_t<HDC>, ContextGone>;

// The bitmap as it is kept in memory, its fourth bytes included; nothing if it cannot be read.
std::optional<system::Pixels> pixels_of(HBITMAP bitmap) {
  BITMAP shape{};
  const ContextHandle context(CreateCompatibleDC(nullptr));
  if (!bitmap || !context || GetObjectW(bitmap, sizeof shape, &shape) == 0) return std::nullopt;
  BITMAPINFO wanted{};
  wanted.bmiHeader.biSize = sizeof wanted.bmiHeader;
  wanted.bmiHeader.biWidth = shape.bmWidth;
  wanted.bmiHeader.biHeight = -shape.bmHeight;  // from the top
  wanted.bmiHeader.biPlanes = 1;
  wanted.bmiHeader.biBitCount = 32;
  wanted.bmiHeader.biCompression = BI_RGB;
  system::Pixels pixels;
  pixels.width = shape.bmWidth;
  pixels.height = shape.bmHeight;
  pixels.argb.resize(static_cast<std::size_t>(shape.bmWidth) *
                     static_cast<std::size_t>(shape.bmHeight));
  const auto rows = static_cast<UINT>(shape.bmHeight);
  if (GetDIBits(context.get(), bitmap, 0, rows, pixels.argb.data(), &wanted, DIB_RGB_COLORS) !=
      shape.bmHeight) {
    return std::nullopt;
  }
  return pixels;
}

constexpr std::uint32_t kOpaque = 0xFF000000u;

// Makes see-through what is white in the mask, and opaque all the rest.
void put_through(std::span<const std::uint32_t> mask, std::span<std::uint32_t> picture) {
  for (std::size_t i = 0; i < picture.size(); ++i) {
    const bool through = i < mask.size() && (mask[i] & ~kOpaque) != 0;
    picture[i] = through ? 0 : picture[i] | kOpaque;
  }
}

}  // namespace

std::optional<system::Pixels> pixels_of(HICON icon) {
  ICONINFO parts{};
  if (!GetIconInfo(icon, &parts)) return std::nullopt;
  const BitmapHandle colour(parts.hbmColor);
  const BitmapHandle mask(parts.hbmMask);
  auto masking = pixels_of(mask.get());
  if (!masking) return std::nullopt;
  if (!colour) {
    // Black and white: the mask stands above the picture, in one bitmap.
    const std::span<const std::uint32_t> both = masking->argb;
    const auto upper = both.first(both.size() / 2);
    const auto lower = both.last(upper.size());
    system::Pixels picture{masking->width, masking->height / 2, {lower.begin(), lower.end()}};
    put_through(upper, picture.argb);
    return picture;
  }
  auto picture = pixels_of(colour.get());
  if (!picture) return std::nullopt;
  const bool has_alpha = std::any_of(picture->argb.begin(), picture->argb.end(),
                                     [](std::uint32_t pixel) { return (pixel & kOpaque) != 0; });
  if (!has_alpha) put_through(masking->argb, picture->argb);
  return picture;
}

}  // namespace ordelan::win32
