// The bars of the spectrum: how loud each third of an octave of what is heard is.
#pragma once

#include <array>
#include <complex>
#include <cstddef>
#include <vector>

#include "system/clock.h"
#include "system/media.h"

namespace ordelan::audio {

class Spectrum {
 public:
  // From 25 Hz to 20 kHz.
  static constexpr std::size_t kBars = 30;
  // How many samples a picture is made of, at any rate; fewer count as silence before them.
  static constexpr std::size_t kSamples = 8192;

  // Heights from 0 (60 dB below a full-scale sine, or less) to 1 (a full-scale sine, or more).
  struct Bar {
    double level = 0;
    double peak = 0;  // stands for a while at the highest level before it falls
  };

  Spectrum();

  // What is heard at a time; a rate of 0 stands for silence. Bars rise at once and fall with time,
  // so that short sounds can be seen.
  void feed(const system::Heard& heard, system::Clock::Time now);

  const std::array<Bar, kBars>& bars() const { return bars_; }
  // Whether all bars and peaks have fallen to nothing.
  bool is_still() const;

  // The frequency in the middle of a bar, in hertz.
  static double frequency(std::size_t bar);

 private:
  using Levels = std::array<double, kBars>;

  Levels levels_of(const system::Heard& heard);
  void transform();

  std::vector<double> window_;                // of Hann
  std::vector<std::complex<double>> turns_;   // of the transform
  std::vector<std::complex<double>> values_;  // kept for their room
  std::array<Bar, kBars> bars_{};
  std::array<system::Clock::Time, kBars> peaked_{};
  system::Clock::Time fed_{};
  bool begun_ = false;
};

}  // namespace ordelan::audio
