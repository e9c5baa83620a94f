// Bitmaps that keep all colours exactly, whatever the screen has.
#pragma once

#include <windows.h>

#include <cstdint>

namespace ordelan::win32 {

// Rows from the top, 0x00RRGGBB. `pixels` is given where they stand, for as long as the bitmap
// lives. The caller owns the bitmap; null when the system has no room for it.
HBITMAP exact_bitmap(int width, int height, std::uint32_t** pixels = nullptr);

// A context that a bitmap is painted on, or from.
class BitmapContext {
 public:
  BitmapContext(HDC like, HBITMAP bitmap)
      : context_(CreateCompatibleDC(like)), old_(SelectObject(context_, bitmap)) {}
  ~BitmapContext() {
    SelectObject(context_, old_);
    DeleteDC(context_);
  }
  BitmapContext(const BitmapContext&) = delete;
  BitmapContext& operator=(const BitmapContext&) = delete;

  HDC get() const { return context_; }

 private:
  HDC context_;
  HGDIOBJ old_;
};

}  // namespace ordelan::win32
