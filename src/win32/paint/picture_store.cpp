#include "win32/paint/picture_store.h"

#include <shlwapi.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "win32/ansi_text.h"
#include "win32/paint/gdi_plus.h"
#include "win32/paint/screen_scale.h"

namespace ordelan::win32 {
namespace {

constexpr std::array kScales = {100, 125, 150, 175, 200};  // in percent
constexpr int kBytesPerPixel = 4;
constexpr std::uint32_t kOpaque = 0xFF000000;

// A bitmap that looks at the pixels where they are.
Gdiplus::Bitmap view_of(const ui::Pixels& pixels, Gdiplus::PixelFormat format) {
  auto* const bytes = reinterpret_cast<BYTE*>(const_cast<std::uint32_t*>(pixels.argb.data()));
  return {pixels.width, pixels.height, pixels.width * kBytesPerPixel, format, bytes};
}

bool draw(Gdiplus::Graphics& graphics, const Gdiplus::Rect& place, Gdiplus::Bitmap& bitmap) {
  const auto own_width = static_cast<int>(bitmap.GetWidth());
  const auto own_height = static_cast<int>(bitmap.GetHeight());
  if (place.Width != own_width || place.Height != own_height) {
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  }
  // At its edges a stretched picture is mixed with itself, not with nothing.
  Gdiplus::ImageAttributes attributes;
  attributes.SetWrapMode(Gdiplus::WrapModeTileFlipXY);
  return graphics.DrawImage(&bitmap, place, 0, 0, own_width, own_height, Gdiplus::UnitPixel,
                            &attributes) == Gdiplus::Ok;
}

// From a colour that was multiplied by its opacity.
std::uint32_t divided(std::uint32_t argb) {
  const std::uint32_t alpha = argb >> 24;
  const auto part = [&](int shift) {
    return std::min(255u, ((argb >> shift) & 0xFF) * 255 / alpha) << shift;
  };
  return kOpaque | part(16) | part(8) | part(0);
}

// The number at a place of a PNG's head, where the picture's width and height are.
int number_at(const BYTE* bytes) {
  return (bytes[0] << 24) | (bytes[1] << 16) | (bytes[2] << 8) | bytes[3];
}

}  // namespace

PictureStore::PictureStore(HINSTANCE instance) : instance_(instance) {}

bool PictureStore::paint(HDC context, const RECT& area, const std::string& name, int dpi) {
  const ui::Pixels* const pixels = picture(name, dpi);
  return pixels && paint(context, area, *pixels);
}

bool PictureStore::paint(HDC context, const RECT& area, const ui::Pixels& pixels) {
  if (pixels.argb.empty() || !gdi_plus_started()) return false;
  Gdiplus::Bitmap bitmap = view_of(pixels, PixelFormat32bppARGB);
  if (bitmap.GetLastStatus() != Gdiplus::Ok) return false;
  Gdiplus::Graphics graphics(context);
  return draw(graphics, {area.left, area.top, area.right - area.left, area.bottom - area.top},
              bitmap);
}

std::optional<ui::Size> PictureStore::size(const std::string& name) {
  const std::optional<int> scale = scale_for(name, kUnitsPerInch);
  if (!scale) return std::nullopt;
  const HRSRC place = resource(name, *scale);
  const HGLOBAL loaded = LoadResource(instance_, place);
  const auto* const bytes = loaded ? static_cast<const BYTE*>(LockResource(loaded)) : nullptr;
  constexpr DWORD kWidthAt = 16;
  constexpr DWORD kHeightAt = 20;
  if (!bytes || SizeofResource(instance_, place) < kHeightAt + 4) return std::nullopt;
  return ui::Size{MulDiv(number_at(bytes + kWidthAt), 100, *scale),
                  MulDiv(number_at(bytes + kHeightAt), 100, *scale)};
}

ui::Pixels PictureStore::pixels(const std::string& name, int dpi, std::uint32_t mask) {
  const ui::Pixels* const found = picture(name, dpi);
  const std::optional<ui::Size> units = size(name);
  if (!found || !units) return {};
  return scaled(*found, {to_pixels(units->width, dpi), to_pixels(units->height, dpi)}, mask);
}

HRSRC PictureStore::resource(const std::string& name, int scale) const {
  return FindResourceW(instance_, widen(name + "_" + std::to_string(scale)).c_str(), L"PNG");
}

// A picture loses less by being made smaller than by being made larger.
std::optional<int> PictureStore::scale_for(const std::string& name, int dpi) const {
  if (name.empty()) return std::nullopt;
  std::optional<int> largest;
  for (const int scale : kScales) {
    if (!resource(name, scale)) continue;
    largest = scale;
    if (scale * kUnitsPerInch >= dpi * 100) break;
  }
  return largest;
}

const ui::Pixels* PictureStore::picture(const std::string& name, int dpi) {
  const std::optional<int> scale = scale_for(name, dpi);
  if (!scale) return nullptr;
  const auto key = std::pair(name, *scale);
  auto known = pictures_.find(key);
  if (known == pictures_.end()) known = pictures_.emplace(key, decode(name, *scale)).first;
  return known->second.argb.empty() ? nullptr : &known->second;
}

// GDI+ would look into the file again at every painting: the pixels are taken out of it.
ui::Pixels PictureStore::decode(const std::string& name, int scale) {
  const HRSRC place = resource(name, scale);
  const HGLOBAL loaded = LoadResource(instance_, place);
  const auto* const bytes = loaded ? static_cast<const BYTE*>(LockResource(loaded)) : nullptr;
  if (!bytes || !gdi_plus_started()) return {};
  IStream* const stream = SHCreateMemStream(bytes, SizeofResource(instance_, place));
  if (!stream) return {};
  ++decodes_;
  Gdiplus::Bitmap bitmap(stream);
  stream->Release();  // the bitmap holds its own
  if (bitmap.GetLastStatus() != Gdiplus::Ok) return {};
  const auto width = static_cast<int>(bitmap.GetWidth());
  const auto height = static_cast<int>(bitmap.GetHeight());
  const Gdiplus::Rect all(0, 0, width, height);
  Gdiplus::BitmapData data;
  if (bitmap.LockBits(&all, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data) !=
      Gdiplus::Ok) {
    return {};
  }
  ui::Pixels pixels{width, height, {}};
  const auto row_length = static_cast<std::size_t>(width);
  pixels.argb.resize(row_length * static_cast<std::size_t>(height));
  for (int y = 0; y < height; ++y) {
    std::memcpy(pixels.argb.data() + row_length * static_cast<std::size_t>(y),
                static_cast<const BYTE*>(data.Scan0) + std::ptrdiff_t{data.Stride} * y,
                row_length * kBytesPerPixel);
  }
  bitmap.UnlockBits(&data);
  return pixels;
}

// What is masked stands aside as transparent meanwhile, so that the outline stays sharp and takes
// nothing of the mask's colour.
ui::Pixels PictureStore::scaled(ui::Pixels picture, ui::Size wanted, std::uint32_t mask) {
  if (picture.width == wanted.width && picture.height == wanted.height) return picture;
  bool masked = false;
  for (std::uint32_t& pixel : picture.argb) {
    if (pixel != mask) continue;
    pixel = 0;
    masked = true;
  }
  ui::Pixels result{wanted.width, wanted.height, {}};
  result.argb.resize(static_cast<std::size_t>(wanted.width) *
                     static_cast<std::size_t>(wanted.height));
  {
    const auto format = masked ? PixelFormat32bppPARGB : PixelFormat32bppARGB;
    Gdiplus::Bitmap from = view_of(picture, format);
    Gdiplus::Bitmap to = view_of(result, format);
    Gdiplus::Graphics graphics(&to);
    graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
    if (!draw(graphics, {0, 0, wanted.width, wanted.height}, from)) return {};
  }
  if (!masked) return result;
  constexpr std::uint32_t kHalf = 0x80000000;
  for (std::uint32_t& pixel : result.argb) pixel = pixel < kHalf ? mask : divided(pixel);
  return result;
}

}  // namespace ordelan::win32
