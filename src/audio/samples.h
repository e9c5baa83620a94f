// Sound that is stored as it is: where its samples stand in a file, and how high they reach.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "audio/byte_source.h"

namespace ordelan::audio {

enum class SampleFormat { whole, offset, fraction };  // `offset`: silence is half of the range

struct SampleKind {
  SampleFormat format = SampleFormat::whole;
  bool big_endian = false;
};

// The samples of a file, those of one moment side by side.
struct StoredSamples {
  std::uint64_t at = 0;        // where the first begins
  std::uint64_t count = 0;     // of all channels together; whole moments only
  std::uint64_t channels = 0;  // at least 1
  std::size_t width = 0;       // bytes of one: 1 to 4, or 4 and 8 for fractions
  SampleKind kind;
};

// Where the samples of a wav or aif stand. Nothing where the bytes are no such file, where its
// sound is stored otherwise or its header makes no sense, and where it has none.
std::optional<StoredSamples> stored_samples(ByteSource& source);

// How an aifc stores sound of that type of four letters; nothing where it is packed.
std::optional<SampleKind> aifc_format(std::string_view type);

// The lowest and the highest of some samples. `low` is above `high` for none at all.
struct Peaks {
  double low = 1;
  double high = -1;
  friend bool operator==(const Peaks&, const Peaks&) = default;
};

// Widens `peaks` by samples in their bytes, from -1 to 1: fractions beyond become these ends, and
// what is no number counts for nothing. What remains after the last whole sample is left out.
void widen(Peaks& peaks, const StoredSamples& kind, std::span<const std::uint8_t> bytes);

}  // namespace ordelan::audio
