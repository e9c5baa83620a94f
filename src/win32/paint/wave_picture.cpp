#include "win32/paint/wave_picture.h"

#include <algorithm>
#include <cmath>

#include "win32/paint/drawing_tools.h"
#include "win32/paint/exact_bitmap.h"

namespace ordelan::win32 {
namespace {

std::uint32_t pixel_of(ui::Color color) {
  const COLORREF word = color_of(color);
  return static_cast<std::uint32_t>(GetRValue(word) << 16 | GetGValue(word) << 8 | GetBValue(word));
}

// From the top, of a value between -1 and 1.
LONG row_of(double value, LONG height) {
  return static_cast<LONG>(std::lround((1 - value) / 2 * static_cast<double>(height)));
}

}  // namespace

std::vector<RECT> WavePicture::draw(const std::vector<ui::WaveColumn>& columns, double cursor,
                                    SIZE size, const WaveColors& colors, int line) {
  const bool anew = fit(size, colors, line);
  if (!bitmap_) return {};
  GdiFlush();  // it may still be on its way to the screen
  std::vector<RECT> changed;
  for (LONG x = 0; x < size.cx; ++x) {
    Seen& seen = seen_[static_cast<std::size_t>(x)];
    const Seen now = wanted(columns, cursor, x);
    if (now == seen) continue;
    seen = now;
    paint_line(x);
    if (!changed.empty() && changed.back().right == x) {
      changed.back().right = x + 1;
    } else {
      changed.push_back({x, 0, x + 1, size.cy});
    }
  }
  if (anew) return {RECT{0, 0, size.cx, size.cy}};
  return changed;
}

void WavePicture::show(HDC context) const {
  if (!bitmap_) return;
  const BitmapContext picture(context, bitmap_);
  BitBlt(context, 0, 0, size_.cx, size_.cy, picture.get(), 0, 0, SRCCOPY);
}

// True when the picture was begun anew, without a wave.
bool WavePicture::fit(SIZE size, const WaveColors& colors, int line) {
  const bool same_size = size.cx == size_.cx && size.cy == size_.cy;
  if (bitmap_ && same_size && colors == colors_ && line == line_) return false;
  if (!same_size) forget();
  size_ = size;
  colors_ = colors;
  line_ = line;
  if (size.cx <= 0 || size.cy <= 0) return false;
  if (!bitmap_) bitmap_ = exact_bitmap(size.cx, size.cy, &pixels_);
  if (!bitmap_) return false;
  seen_.assign(static_cast<std::size_t>(size.cx), {});
  GdiFlush();
  std::fill_n(pixels_, static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy),
              pixel_of(colors.ground));
  return true;
}

// Several columns that share a line of pixels are shown together; silence is a thin line.
WavePicture::Seen WavePicture::wanted(const std::vector<ui::WaveColumn>& columns, double cursor,
                                      LONG x) const {
  if (columns.empty()) return {};
  const auto count = static_cast<LONG>(columns.size());
  const LONG at = static_cast<LONG>(std::lround(cursor * (size_.cx - line_)));
  if (cursor >= 0 && x >= at && x < at + line_) return {Part::cursor, 0, size_.cy};
  const LONG first = x * count / size_.cx;
  const LONG last = std::max(first + 1, (x + 1) * count / size_.cx);
  double low = 1;
  double high = -1;
  for (LONG i = first; i < last; ++i) {
    low = std::min(low, columns[static_cast<std::size_t>(i)].low);
    high = std::max(high, columns[static_cast<std::size_t>(i)].high);
  }
  Seen seen{cursor >= 0 && x < at ? Part::played : Part::rest, row_of(high, size_.cy),
            row_of(low, size_.cy)};
  if (seen.bottom - seen.top < line_) {
    seen.top = std::clamp<LONG>(seen.top, 0, std::max<LONG>(size_.cy - line_, 0));
    seen.bottom = std::min<LONG>(seen.top + line_, size_.cy);
  }
  return seen;
}

void WavePicture::paint_line(LONG x) {
  const Seen& seen = seen_[static_cast<std::size_t>(x)];
  const std::uint32_t ground = pixel_of(colors_.ground);
  const std::uint32_t wave = seen.part == Part::cursor   ? pixel_of(colors_.cursor)
                             : seen.part == Part::played ? pixel_of(colors_.played)
                                                         : pixel_of(colors_.rest);
  std::uint32_t* at = pixels_ + x;
  for (LONG y = 0; y < size_.cy; ++y, at += size_.cx) {
    *at = y >= seen.top && y < seen.bottom ? wave : ground;
  }
}

void WavePicture::forget() {
  if (bitmap_) DeleteObject(bitmap_);
  bitmap_ = nullptr;
  pixels_ = nullptr;
}

}  // namespace ordelan::win32
