// Wav files with tones, and what a sound is like.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include "system/media.h"

namespace ordelan::test {

struct Tone {
  double hertz = 440;
  double seconds = 1;
  int bits = 16;  // 8, 16, 24, 32
  bool fraction = false;
  int channels = 2;
  int rate = 44'100;
  double level = 0.5;
};

// A whole wav file with that tone on all channels.
inline std::string wav_of(const Tone& tone) {
  const auto number = [](std::uint64_t value, int bytes) {
    std::string text;
    for (int at = 0; at < bytes; ++at) text += static_cast<char>(value >> 8 * at & 0xFF);
    return text;
  };
  const auto frames = static_cast<std::uint64_t>(tone.seconds * tone.rate);
  std::string data;
  for (std::uint64_t frame = 0; frame < frames; ++frame) {
    const double turns = tone.hertz * static_cast<double>(frame) / tone.rate;
    const double value = tone.level * std::sin(2 * 3.14159265358979 * turns);
    std::string sample;
    if (tone.fraction) {
      const auto small = static_cast<float>(value);
      std::uint32_t bits = 0;
      std::memcpy(&bits, &small, sizeof bits);
      sample = number(bits, 4);
    } else if (tone.bits == 8) {
      sample = number(static_cast<std::uint64_t>(std::lround(128 + 127 * value)), 1);
    } else {
      const double full = std::ldexp(1.0, tone.bits - 1) - 1;
      sample = number(static_cast<std::uint64_t>(std::llround(full * value)), tone.bits / 8);
    }
    for (int channel = 0; channel < tone.channels; ++channel) data += sample;
  }
  const auto channels = static_cast<std::uint64_t>(tone.channels);
  const std::uint64_t block = channels * static_cast<std::uint64_t>(tone.bits / 8);
  const auto rate = static_cast<std::uint64_t>(tone.rate);
  return "RIFF" + number(36 + data.size(), 4) + "WAVEfmt " + number(16, 4) +
         number(tone.fraction ? 3 : 1, 2) + number(channels, 2) + number(rate, 4) +
         number(rate * block, 4) + number(block, 2) +
         number(static_cast<std::uint64_t>(tone.bits), 2) + "data" + number(data.size(), 4) + data;
}

// The pitch of a sound that is one tone: how often a second it comes up through silence.
inline double hertz_of(const system::Heard& heard) {
  std::size_t first = 0;
  std::size_t last = 0;
  int rises = -1;
  for (std::size_t at = 1; at < heard.samples.size(); ++at) {
    if (heard.samples[at - 1] >= 0 || heard.samples[at] < 0) continue;
    if (rises++ < 0) first = at;
    last = at;
  }
  return rises <= 0 ? 0
                    : rises * static_cast<double>(heard.rate) / static_cast<double>(last - first);
}

}  // namespace ordelan::test
