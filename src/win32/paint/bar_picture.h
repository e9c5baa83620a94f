// The picture of a bar chart, kept in memory: of a new state only the columns that differ are
// painted.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "ui/bar_chart.h"
#include "ui/geometry.h"

namespace ordelan::win32 {

// Bars pass from `low` at their foot through `middle` to `high` at the chart's top.
struct BarColors {
  ui::Color ground{};
  ui::Color grid{};  // the lines that part the height in six
  ui::Color low{};
  ui::Color middle{};
  ui::Color high{};
  ui::Color peak{};
  friend bool operator==(const BarColors&, const BarColors&) = default;
};

class BarPicture {
 public:
  BarPicture() = default;
  ~BarPicture() { forget(); }
  BarPicture(const BarPicture&) = delete;
  BarPicture& operator=(const BarPicture&) = delete;

  // Brings the picture to this state: its size and the width of its thin lines in pixels. Gives
  // the columns that look different since the last call; all in one where more than bars changed.
  std::vector<RECT> draw(const std::vector<ui::Bar>& bars, SIZE size, const BarColors& colors,
                         int line);

  // Shows what was drawn last, from the corner of `context`.
  void show(HDC context) const;

 private:
  // What is seen of a bar: heights in pixels.
  struct Seen {
    int level = 0;
    int peak = 0;
    friend bool operator==(const Seen&, const Seen&) = default;
  };

  bool fit(std::size_t bars, SIZE size, const BarColors& colors, int line);
  void mix_rows();
  RECT column(std::size_t bar) const;
  void paint_column(std::size_t bar);
  void forget();

  SIZE size_{};
  BarColors colors_;
  int line_ = 1;
  HBITMAP bitmap_ = nullptr;
  std::uint32_t* pixels_ = nullptr;        // of the bitmap
  std::vector<std::uint32_t> empty_rows_;  // the colour of each row beside the bars
  std::vector<std::uint32_t> full_rows_;   // and in them
  std::vector<Seen> seen_;
};

}  // namespace ordelan::win32
