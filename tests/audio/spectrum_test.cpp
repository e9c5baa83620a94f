// The bars of the spectrum, from tones whose frequency and level are known.
#include "audio/spectrum.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <numbers>

namespace ordelan::test {
namespace {

using audio::Spectrum;
using std::chrono::milliseconds;
using system::Heard;

constexpr system::Clock::Time kBegin{};

Heard tone_of(double frequency, double amplitude = 1, int rate = 44100,
              std::size_t count = Spectrum::kSamples) {
  Heard heard{rate, std::vector<float>(count)};
  for (std::size_t i = 0; i < count; ++i) {
    heard.samples[i] = static_cast<float>(
        amplitude * std::sin(2 * std::numbers::pi * frequency * static_cast<double>(i) / rate));
  }
  return heard;
}

std::size_t highest_of(const Spectrum& spectrum) {
  const auto& bars = spectrum.bars();
  const auto higher = [](const auto& a, const auto& b) { return a.level < b.level; };
  return static_cast<std::size_t>(std::max_element(bars.begin(), bars.end(), higher) -
                                  bars.begin());
}

// The bar that a frequency lies in.
std::size_t bar_of(double frequency) {
  std::size_t nearest = 0;
  for (std::size_t bar = 0; bar < Spectrum::kBars; ++bar) {
    const auto distance = [&](std::size_t of) {
      return std::abs(std::log(frequency / Spectrum::frequency(of)));
    };
    if (distance(bar) < distance(nearest)) nearest = bar;
  }
  return nearest;
}

TEST(Spectrum, its_bars_are_thirds_of_an_octave_from_25_hertz_to_20_kilohertz) {
  EXPECT_NEAR(Spectrum::frequency(0), 25, 0.5);
  EXPECT_NEAR(Spectrum::frequency(3), 50, 1);
  EXPECT_DOUBLE_EQ(Spectrum::frequency(16), 1000);
  EXPECT_NEAR(Spectrum::frequency(Spectrum::kBars - 1), 20'000, 400);
}

TEST(Spectrum, the_highest_bar_is_that_of_the_tone) {
  for (const int rate : {22050, 44100, 48000, 96000}) {
    for (const double frequency : {63.0, 100.0, 440.0, 1000.0, 3000.0, 8000.0}) {
      Spectrum spectrum;
      spectrum.feed(tone_of(frequency, 0.5, rate), kBegin);
      EXPECT_EQ(highest_of(spectrum), bar_of(frequency)) << frequency << " at " << rate;
    }
  }
}

TEST(Spectrum, a_full_scale_sine_has_the_full_height_and_one_of_6_dB_less_a_tenth_less) {
  for (const double frequency : {200.0, 1000.0, 5000.0}) {
    Spectrum loud;
    loud.feed(tone_of(frequency), kBegin);
    EXPECT_NEAR(loud.bars()[bar_of(frequency)].level, 1, 0.01) << frequency;
    Spectrum soft;
    soft.feed(tone_of(frequency, 0.5), kBegin);
    EXPECT_NEAR(soft.bars()[bar_of(frequency)].level, 0.9, 0.01) << frequency;
  }
}

TEST(Spectrum, bars_far_from_a_tone_stay_down) {
  Spectrum spectrum;
  spectrum.feed(tone_of(1000), kBegin);
  for (std::size_t bar = 0; bar < Spectrum::kBars; ++bar) {
    const bool far = bar + 2 < bar_of(1000) || bar > bar_of(1000) + 2;
    if (far) {
      EXPECT_LT(spectrum.bars()[bar].level, 0.05) << bar;
    }
  }
}

TEST(Spectrum, two_tones_are_two_bars) {
  Heard both = tone_of(200, 0.4);
  const Heard other = tone_of(4000, 0.4);
  for (std::size_t i = 0; i < both.samples.size(); ++i) both.samples[i] += other.samples[i];
  Spectrum spectrum;
  spectrum.feed(both, kBegin);
  EXPECT_GT(spectrum.bars()[bar_of(200)].level, 0.8);
  EXPECT_GT(spectrum.bars()[bar_of(4000)].level, 0.8);
  EXPECT_LT(spectrum.bars()[bar_of(900)].level, 0.1);
}

TEST(Spectrum, silence_nothing_and_no_rate_give_no_bars) {
  for (const Heard& heard : {Heard{}, Heard{44100, {}}, Heard{0, {1, 1, 1}},
                             Heard{44100, std::vector<float>(Spectrum::kSamples)}}) {
    Spectrum spectrum;
    spectrum.feed(heard, kBegin);
    EXPECT_TRUE(spectrum.is_still());
  }
}

TEST(Spectrum, the_newest_samples_count_where_there_are_more) {
  Heard heard = tone_of(300);
  const Heard newest = tone_of(3000);
  heard.samples.insert(heard.samples.end(), newest.samples.begin(), newest.samples.end());
  Spectrum spectrum;
  spectrum.feed(heard, kBegin);
  EXPECT_EQ(highest_of(spectrum), bar_of(3000));
}

TEST(Spectrum, few_samples_are_enough_for_a_picture) {
  Spectrum spectrum;
  spectrum.feed(tone_of(1000, 1, 44100, 2048), kBegin);
  EXPECT_EQ(highest_of(spectrum), bar_of(1000));
}

TEST(Spectrum, what_a_low_rate_cannot_hold_has_no_bar) {
  Spectrum spectrum;
  spectrum.feed(tone_of(1000, 1, 8000), kBegin);
  EXPECT_EQ(highest_of(spectrum), bar_of(1000));
  for (std::size_t bar = bar_of(4000); bar < Spectrum::kBars; ++bar) {
    EXPECT_EQ(spectrum.bars()[bar].level, 0) << bar;
  }
}

TEST(Spectrum, samples_that_are_no_numbers_or_too_large_do_no_harm) {
  Heard heard = tone_of(1000);
  heard.samples[10] = std::numeric_limits<float>::quiet_NaN();
  heard.samples[20] = std::numeric_limits<float>::infinity();
  for (std::size_t i = 1000; i < 1100; ++i) heard.samples[i] = 1e30F;
  Spectrum spectrum;
  spectrum.feed(heard, kBegin);
  for (const auto& bar : spectrum.bars()) {
    EXPECT_TRUE(std::isfinite(bar.level));
    EXPECT_LE(bar.level, 1);
  }
}

TEST(Spectrum, bars_rise_at_once_and_fall_to_nothing_when_the_sound_stops) {
  Spectrum spectrum;
  spectrum.feed(tone_of(1000), kBegin);
  const std::size_t bar = bar_of(1000);
  spectrum.feed(Heard{}, kBegin + milliseconds(33));
  EXPECT_LT(spectrum.bars()[bar].level, 1);
  EXPECT_GT(spectrum.bars()[bar].level, 0.8) << "not in one frame";
  spectrum.feed(Heard{}, kBegin + milliseconds(700));
  EXPECT_EQ(spectrum.bars()[bar].level, 0);
  EXPECT_FALSE(spectrum.is_still()) << "the peak still stands";
  for (int frame = 21; frame < 120; ++frame) {
    spectrum.feed(Heard{}, kBegin + milliseconds(33 * frame));
  }
  EXPECT_TRUE(spectrum.is_still());
}

TEST(Spectrum, a_peak_stands_at_the_highest_level_and_then_falls) {
  Spectrum spectrum;
  const std::size_t bar = bar_of(1000);
  spectrum.feed(tone_of(1000), kBegin);
  spectrum.feed(tone_of(1000, 0.1), kBegin + milliseconds(600));
  EXPECT_NEAR(spectrum.bars()[bar].level, 2.0 / 3, 0.02);
  EXPECT_NEAR(spectrum.bars()[bar].peak, 1, 0.01);
  spectrum.feed(tone_of(1000, 0.1), kBegin + milliseconds(800));
  EXPECT_LT(spectrum.bars()[bar].peak, 0.95);
  spectrum.feed(tone_of(1000), kBegin + milliseconds(900));
  EXPECT_NEAR(spectrum.bars()[bar].peak, 1, 0.01) << "a new highest level";
}

TEST(Spectrum, a_clock_that_stands_still_changes_nothing) {
  Spectrum spectrum;
  spectrum.feed(tone_of(1000), kBegin);
  spectrum.feed(Heard{}, kBegin);
  EXPECT_NEAR(spectrum.bars()[bar_of(1000)].level, 1, 0.01);
}

}  // namespace
}  // namespace ordelan::test
