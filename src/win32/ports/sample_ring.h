// The newest seconds of what a file sounds like, with their times.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "system/media.h"

namespace ordelan::win32 {

// How the bytes of a file's samples are to be read.
struct SampleFormat {
  int rate = 0;      // samples a second of each channel
  int channels = 0;  // interleaved
  int bits = 0;      // of one sample: 8 without a sign, 16, 24, 32; or 32 and 64 with a fraction
  bool fraction = false;

  bool valid() const;
};

// The channels of each moment mixed into one, from -1 to 1. Bytes that make no whole moment are
// left out; empty for a format that is not valid.
std::vector<float> mix(const SampleFormat& format, std::span<const std::uint8_t> bytes);

// Written by the thread that brings samples, read by the one that shows them; neither waits for
// more than a copy.
class SampleRing {
 public:
  // Forgets everything; from now on samples have that rate. 0 is none.
  void start(int rate);
  // Forgets the samples: what comes now is of another place.
  void clear();
  // Samples that begin at that time of the file, in seconds. Those that do not follow the ones
  // before take their place.
  void add(double time, std::span<const float> samples);
  // The newest samples before that time of the file, `most` at the most. Empty where the ring has
  // none of that time.
  system::Heard before(double time, std::size_t most) const;
  // The time of the file up to which it has samples; nothing where it has none.
  std::optional<double> newest() const;

 private:
  mutable std::mutex mutex_;
  int rate_ = 0;
  std::vector<float> ring_;  // the sample with the number n stands at n % size
  std::int64_t begin_ = 0;   // numbers of the samples that it holds, counted from the file's
  std::int64_t end_ = 0;     // beginning
};

}  // namespace ordelan::win32
