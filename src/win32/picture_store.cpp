#include "win32/picture_store.h"

#include <shlwapi.h>

#include "win32/ansi_text.h"
#include "win32/gdi_plus.h"

namespace ordelan::win32 {
namespace {

bool stretch(HDC context, const RECT& area, Gdiplus::Bitmap& bitmap) {
  Gdiplus::Graphics graphics(context);
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  const auto own_width = static_cast<int>(bitmap.GetWidth());
  const auto own_height = static_cast<int>(bitmap.GetHeight());
  if (width != own_width || height != own_height) {
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  }
  // At its edges a stretched picture is mixed with itself, not with nothing.
  Gdiplus::ImageAttributes attributes;
  attributes.SetWrapMode(Gdiplus::WrapModeTileFlipXY);
  const Gdiplus::Rect place(area.left, area.top, width, height);
  return graphics.DrawImage(&bitmap, place, 0, 0, own_width, own_height, Gdiplus::UnitPixel,
                            &attributes) == Gdiplus::Ok;
}

}  // namespace

PictureStore::PictureStore(HINSTANCE instance) : instance_(instance) {}

PictureStore::~PictureStore() {
  pictures_.clear();
  if (token_) Gdiplus::GdiplusShutdown(token_);
}

bool PictureStore::paint(HDC context, const RECT& area, const std::string& name) {
  Gdiplus::Bitmap* const bitmap = name.empty() ? nullptr : picture(name);
  return bitmap && stretch(context, area, *bitmap);
}

bool PictureStore::paint(HDC context, const RECT& area, const ui::Pixels& pixels) {
  if (pixels.argb.empty() || !start()) return false;
  // The bitmap looks at the pixels where they are, and only reads them.
  auto* const bytes = reinterpret_cast<BYTE*>(const_cast<std::uint32_t*>(pixels.argb.data()));
  constexpr int kBytesPerPixel = 4;
  Gdiplus::Bitmap bitmap(pixels.width, pixels.height, pixels.width * kBytesPerPixel,
                         PixelFormat32bppARGB, bytes);
  return bitmap.GetLastStatus() == Gdiplus::Ok && stretch(context, area, bitmap);
}

bool PictureStore::start() {
  if (token_) return true;
  const Gdiplus::GdiplusStartupInput input;
  return Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
}

Gdiplus::Bitmap* PictureStore::picture(const std::string& name) {
  if (const auto known = pictures_.find(name); known != pictures_.end()) {
    return known->second.get();
  }
  return pictures_.emplace(name, read(name)).first->second.get();
}

std::unique_ptr<Gdiplus::Bitmap> PictureStore::read(const std::string& name) {
  const HRSRC place = FindResourceW(instance_, widen(name).c_str(), L"PNG");
  const HGLOBAL loaded = place ? LoadResource(instance_, place) : nullptr;
  const auto* bytes = loaded ? static_cast<const BYTE*>(LockResource(loaded)) : nullptr;
  if (!bytes) return nullptr;
  if (!start()) return nullptr;
  IStream* const stream = SHCreateMemStream(bytes, SizeofResource(instance_, place));
  if (!stream) return nullptr;
  auto bitmap = std::make_unique<Gdiplus::Bitmap>(stream);
  stream->Release();  // the bitmap holds its own
  if (bitmap->GetLastStatus() != Gdiplus::Ok) return nullptr;
  return bitmap;
}

}  // namespace ordelan::win32
