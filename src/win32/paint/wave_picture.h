// The picture of a waveform, kept in memory: of a new state only the lines of pixels that differ
// are painted.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "ui/geometry.h"
#include "ui/waveform.h"

namespace ordelan::win32 {

struct WaveColors {
  ui::Color ground{};
  ui::Color played{};
  ui::Color rest{};  // what is not played yet
  ui::Color cursor{};
  friend bool operator==(const WaveColors&, const WaveColors&) = default;
};

class WavePicture {
 public:
  WavePicture() = default;
  ~WavePicture() { forget(); }
  WavePicture(const WavePicture&) = delete;
  WavePicture& operator=(const WavePicture&) = delete;

  // Brings the picture to this state: its size and the width of its thin lines in pixels. Gives
  // the areas that look different since the last call; all in one where more than the wave changed.
  std::vector<RECT> draw(const std::vector<ui::WaveColumn>& columns, double cursor, SIZE size,
                         const WaveColors& colors, int line);

  // Shows what was drawn last, from the corner of `context`.
  void show(HDC context) const;

 private:
  enum class Part { empty, played, rest, cursor };
  // What is seen in one upright line of pixels: the wave's colour and where it is.
  struct Seen {
    Part part = Part::empty;
    LONG top = 0;
    LONG bottom = 0;
    friend bool operator==(const Seen&, const Seen&) = default;
  };

  bool fit(SIZE size, const WaveColors& colors, int line);
  Seen wanted(const std::vector<ui::WaveColumn>& columns, double cursor, LONG x) const;
  void paint_line(LONG x);
  void forget();

  SIZE size_{};
  WaveColors colors_;
  int line_ = 1;
  HBITMAP bitmap_ = nullptr;
  std::uint32_t* pixels_ = nullptr;  // of the bitmap
  std::vector<Seen> seen_;           // from the left
};

}  // namespace ordelan::win32
