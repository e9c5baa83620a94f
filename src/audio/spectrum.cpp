#include "audio/spectrum.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>
#include <utility>

namespace ordelan::audio {
namespace {

constexpr double kRange = 60;  // dB between nothing and the full height
constexpr double kFall = 1.6;  // heights a second
constexpr double kPeakFall = 0.5;
constexpr std::chrono::milliseconds kPeakHold{700};

// The bar of 1 kHz, from which the others are counted.
constexpr int kBarOfKilohertz = 16;
const double kThird = std::cbrt(2.0);

double height_of(double power) {
  if (power <= 0) return 0;
  return std::clamp(1 + 10 * std::log10(power) / kRange, 0.0, 1.0);
}

}  // namespace

Spectrum::Spectrum() : window_(kSamples), turns_(kSamples / 2), values_(kSamples) {
  constexpr double kTurn = 2 * std::numbers::pi / static_cast<double>(kSamples);
  for (std::size_t i = 0; i < kSamples; ++i) {
    window_[i] = 0.5 - 0.5 * std::cos(kTurn * static_cast<double>(i));
  }
  for (std::size_t i = 0; i < turns_.size(); ++i) {
    turns_[i] = std::polar(1.0, -kTurn * static_cast<double>(i));
  }
}

double Spectrum::frequency(std::size_t bar) {
  return 1000 * std::pow(kThird, static_cast<int>(bar) - kBarOfKilohertz);
}

// The fast Fourier transform of values_, in place.
void Spectrum::transform() {
  for (std::size_t i = 1, j = 0; i < kSamples; ++i) {
    std::size_t bit = kSamples / 2;
    for (; (j & bit) != 0; bit /= 2) j ^= bit;
    j ^= bit;
    if (i < j) std::swap(values_[i], values_[j]);
  }
  for (std::size_t half = 1; half < kSamples; half *= 2) {
    const std::size_t step = kSamples / (2 * half);
    for (std::size_t begin = 0; begin < kSamples; begin += 2 * half) {
      for (std::size_t i = 0; i < half; ++i) {
        const auto turned = values_[begin + half + i] * turns_[i * step];
        values_[begin + half + i] = values_[begin + i] - turned;
        values_[begin + i] += turned;
      }
    }
  }
}

Spectrum::Levels Spectrum::levels_of(const system::Heard& heard) {
  Levels levels{};
  if (heard.rate <= 0 || heard.samples.empty()) return levels;
  const std::size_t count = std::min(heard.samples.size(), kSamples);
  const std::size_t silence = kSamples - count;
  for (std::size_t i = 0; i < kSamples; ++i) {
    const float sample = i < silence ? 0.0F : heard.samples[heard.samples.size() - kSamples + i];
    // A file of floating-point samples may hold what is no number.
    values_[i] = std::isfinite(sample) ? std::clamp<double>(sample, -1, 1) * window_[i] : 0;
  }
  transform();
  // A full-scale sine has the power 1: half of its amplitude is in its bin, half of that after the
  // window, which spreads its power over one and a half bins.
  const double scale = 4.0 / static_cast<double>(kSamples);
  const double whole = scale * scale / 1.5;
  const double bin = heard.rate / static_cast<double>(kSamples);
  for (std::size_t bar = 0; bar < kBars; ++bar) {
    const double low = frequency(bar) / std::sqrt(kThird) / bin;
    const double high = frequency(bar) * std::sqrt(kThird) / bin;
    if (high >= static_cast<double>(kSamples) / 2) break;  // no sound of that rate is so high
    // Each bin counts for the part of it that lies in the bar.
    double power = 0;
    for (auto i = static_cast<std::size_t>(low + 0.5); static_cast<double>(i) - 0.5 < high; ++i) {
      const double part = std::min(static_cast<double>(i) + 0.5, high) -
                          std::max(static_cast<double>(i) - 0.5, low);
      power += part * std::norm(values_[i]);
    }
    levels[bar] = height_of(power * whole);
  }
  return levels;
}

void Spectrum::feed(const system::Heard& heard, system::Clock::Time now) {
  const Levels levels = levels_of(heard);
  const double seconds =
      begun_ ? std::max(0.0, std::chrono::duration<double>(now - fed_).count()) : 0;
  fed_ = now;
  begun_ = true;
  for (std::size_t i = 0; i < kBars; ++i) {
    Bar& bar = bars_[i];
    bar.level = std::max(levels[i], bar.level - kFall * seconds);
    if (bar.level >= bar.peak) {
      bar.peak = bar.level;
      peaked_[i] = now;
    } else if (now - peaked_[i] > kPeakHold) {
      bar.peak = std::max(bar.level, bar.peak - kPeakFall * seconds);
    }
  }
}

bool Spectrum::is_still() const {
  return std::all_of(bars_.begin(), bars_.end(),
                     [](const Bar& bar) { return bar.level <= 0 && bar.peak <= 0; });
}

}  // namespace ordelan::audio
