#include "win32/paint/bar_picture.h"

#include <algorithm>
#include <cmath>

#include "win32/paint/drawing_tools.h"
#include "win32/paint/exact_bitmap.h"

namespace ordelan::win32 {
namespace {

constexpr int kGridParts = 6;
constexpr double kMiddle = 0.6;   // the height at which bars have their middle colour
constexpr double kFaint = 0.45;   // how much of their colour grid lines have
constexpr LONG kRoomForGaps = 4;  // columns narrower than this touch each other

// Between two colours, as a pixel.
std::uint32_t mixed(ui::Color from, ui::Color to, double share) {
  const COLORREF a = color_of(from);
  const COLORREF b = color_of(to);
  const auto part = [&](int one, int other) {
    return static_cast<std::uint32_t>(std::lround(one + (other - one) * share));
  };
  return part(GetRValue(a), GetRValue(b)) << 16 | part(GetGValue(a), GetGValue(b)) << 8 |
         part(GetBValue(a), GetBValue(b));
}

int in_pixels(double height, LONG whole) {
  return static_cast<int>(std::lround(height * whole));
}

}  // namespace

std::vector<RECT> BarPicture::draw(const std::vector<ui::Bar>& bars, SIZE size,
                                   const BarColors& colors, int line) {
  const bool anew = fit(bars.size(), size, colors, line);
  if (!bitmap_) return {};
  GdiFlush();  // it may still be on its way to the screen
  std::vector<RECT> changed;
  for (std::size_t i = 0; i < bars.size(); ++i) {
    const Seen now{in_pixels(bars[i].level, size.cy), in_pixels(bars[i].peak, size.cy)};
    if (now == seen_[i]) continue;
    seen_[i] = now;
    paint_column(i);
    changed.push_back(column(i));
  }
  if (anew) return {RECT{0, 0, size.cx, size.cy}};
  return changed;
}

void BarPicture::show(HDC context) const {
  if (!bitmap_) return;
  const BitmapContext picture(context, bitmap_);
  BitBlt(context, 0, 0, size_.cx, size_.cy, picture.get(), 0, 0, SRCCOPY);
}

// True when the picture was begun anew, without bars.
bool BarPicture::fit(std::size_t bars, SIZE size, const BarColors& colors, int line) {
  const bool same_size = size.cx == size_.cx && size.cy == size_.cy;
  if (bitmap_ && same_size && bars == seen_.size() && colors == colors_ && line == line_) {
    return false;
  }
  if (!same_size) forget();
  size_ = size;
  colors_ = colors;
  line_ = line;
  seen_.assign(bars, {});
  if (size.cx <= 0 || size.cy <= 0) return false;
  if (!bitmap_) bitmap_ = exact_bitmap(size.cx, size.cy, &pixels_);
  if (!bitmap_) return false;
  mix_rows();
  GdiFlush();
  std::uint32_t* row = pixels_;
  for (const std::uint32_t color : empty_rows_) row = std::fill_n(row, size.cx, color);
  return true;
}

void BarPicture::mix_rows() {
  const LONG height = size_.cy;
  empty_rows_.assign(static_cast<std::size_t>(height), mixed(colors_.ground, colors_.ground, 0));
  for (LONG part = 1; part < kGridParts; ++part) {
    const LONG top = height * part / kGridParts;
    for (LONG y = top; y < std::min(height, top + line_); ++y) {
      empty_rows_[static_cast<std::size_t>(y)] = mixed(colors_.ground, colors_.grid, kFaint);
    }
  }
  full_rows_.clear();
  for (LONG y = 0; y < height; ++y) {
    const double share = 1 - static_cast<double>(y) / height;
    full_rows_.push_back(
        share < kMiddle ? mixed(colors_.low, colors_.middle, share / kMiddle)
                        : mixed(colors_.middle, colors_.high, (share - kMiddle) / (1 - kMiddle)));
  }
}

// Of the whole width, so that the chart is filled from edge to edge; a gap follows all but the
// last.
RECT BarPicture::column(std::size_t bar) const {
  const auto count = static_cast<LONG>(seen_.size());
  const auto place = static_cast<LONG>(bar);
  const LONG left = size_.cx * place / count;
  const LONG next = size_.cx * (place + 1) / count;
  const LONG gap = size_.cx / count < kRoomForGaps * line_ ? 0 : 2 * line_;
  return {left, 0, place + 1 == count ? next : std::max(left + 1, next - gap), size_.cy};
}

void BarPicture::paint_column(std::size_t bar) {
  const RECT place = column(bar);
  const Seen& seen = seen_[bar];
  const LONG level_top = size_.cy - seen.level;
  const LONG peak_top = size_.cy - seen.peak;
  const LONG peak_bottom = seen.peak > 0 ? peak_top + line_ : peak_top;
  const std::uint32_t peak = mixed(colors_.peak, colors_.peak, 0);
  const LONG width = std::min(place.right, size_.cx) - place.left;
  std::uint32_t* at = pixels_ + place.left;
  for (LONG y = 0; y < size_.cy; ++y, at += size_.cx) {
    const auto row = static_cast<std::size_t>(y);
    const bool in_peak = y >= peak_top && y < peak_bottom;
    std::fill_n(at, width, in_peak ? peak : y >= level_top ? full_rows_[row] : empty_rows_[row]);
  }
}

void BarPicture::forget() {
  if (bitmap_) DeleteObject(bitmap_);
  bitmap_ = nullptr;
  pixels_ = nullptr;
}

}  // namespace ordelan::win32
