#include "audio/samples.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>
#include <utility>

#include "audio/chunks.h"
#include "audio/integers.h"

namespace ordelan::audio {
namespace {

// Keeps the bytes of whole moments, and nothing of a file that makes no sense.
std::optional<StoredSamples> sensible(StoredSamples samples, std::uint64_t bytes) {
  const bool fraction = samples.kind.format == SampleFormat::fraction;
  const bool fits = fraction ? samples.width == 4 || samples.width == 8
                             : samples.width >= 1 && samples.width <= 4;
  if (samples.channels == 0 || !fits) return std::nullopt;
  const std::uint64_t moments = bytes / (samples.channels * samples.width);
  if (moments == 0) return std::nullopt;
  samples.count = moments * samples.channels;
  return samples;
}

struct WavSound {
  std::string format;  // the chunk "fmt "
  std::optional<std::uint64_t> at;
  std::uint64_t bytes = 0;
  Number number = little_endian;
};

std::optional<StoredSamples> of_wav(const WavSound& sound) {
  const Number number = sound.number;
  const std::uint64_t kind = wav_kind(sound.format, number);
  if (!sound.at || (kind != 1 && kind != 3)) return std::nullopt;
  StoredSamples samples;
  samples.at = *sound.at;
  samples.channels = number(sound.format, 2, 2);
  const std::uint64_t frame = number(sound.format, 12, 2);
  const std::uint64_t bits = number(sound.format, 14, 2);
  const std::uint64_t needed = (bits + 7) / 8;
  if (samples.channels == 0) return std::nullopt;
  // Samples may stand in more bytes than they fill, 24 bits in 32: the lowest ones are then empty.
  // A frame that has no room for them is a lie.
  const bool has_room = frame % samples.channels == 0 &&
                        frame / samples.channels >= std::max<std::uint64_t>(needed, 1);
  samples.width = static_cast<std::size_t>(has_room ? frame / samples.channels : needed);
  const SampleFormat whole = samples.width == 1 ? SampleFormat::offset : SampleFormat::whole;
  samples.kind = {kind == 3 ? SampleFormat::fraction : whole, number == Number{big_endian}};
  return sensible(samples, sound.bytes);
}

std::optional<StoredSamples> in_wav(ByteSource& source) {
  WavSound sound;
  const auto look = [&](const Chunk& chunk) {
    sound.number = chunk.number;
    if (chunk.name == "fmt " && sound.format.empty()) {
      const auto kept = static_cast<std::size_t>(std::min<std::uint64_t>(chunk.length, 40));
      sound.format = source.bytes(chunk.at, kept);
    } else if (chunk.name == "data" && !sound.at) {
      sound.at = chunk.at;
      sound.bytes = chunk.length;
    }
  };
  if (!each_riff_chunk(source, look) && !each_w64_chunk(source, look)) return std::nullopt;
  return of_wav(sound);
}

std::optional<StoredSamples> in_aiff(ByteSource& source) {
  constexpr std::uint64_t kBeforeSamples = 8;
  const bool aifc = is_aifc(source);
  std::string common;
  StoredSamples samples;
  std::uint64_t bytes = 0;
  const bool aiff = each_aiff_chunk(source, [&](const Chunk& chunk) {
    if (chunk.name == "COMM" && common.empty()) {
      const auto kept = static_cast<std::size_t>(std::min<std::uint64_t>(chunk.length, 22));
      common = source.bytes(chunk.at, kept);
    } else if (chunk.name == "SSND" && samples.at == 0 && chunk.length >= kBeforeSamples) {
      const std::uint64_t empty = big_endian(source.bytes(chunk.at, 4), 0, 4);
      const std::uint64_t before = std::min(chunk.length, kBeforeSamples + empty);
      samples.at = chunk.at + before;
      bytes = chunk.length - before;
    }
  });
  if (!aiff || common.size() < 8) return std::nullopt;
  const auto kind = aifc && common.size() >= 22 ? aifc_format(std::string_view(common).substr(18))
                                                : SampleKind{SampleFormat::whole, true};
  if (!kind) return std::nullopt;
  samples.kind = *kind;
  samples.channels = big_endian(common, 0, 2);
  samples.width = static_cast<std::size_t>((big_endian(common, 6, 2) + 7) / 8);
  const std::uint64_t stated = big_endian(common, 2, 4) * samples.channels * samples.width;
  return sensible(samples, stated > 0 ? std::min(bytes, stated) : bytes);
}

template <std::size_t Width, bool Big>
std::uint64_t bits_at(const std::uint8_t* bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < Width; ++i) {
    value |= std::uint64_t{bytes[i]} << (8 * (Big ? Width - 1 - i : i));
  }
  return value;
}

// Samples stand at the top of 32 bits, whatever their width: the same scale is right for all.
template <std::size_t Width, bool Big, bool Offset>
void widen_whole(Peaks& peaks, std::span<const std::uint8_t> bytes) {
  constexpr double kOne = 2147483648.0;
  std::int32_t low = INT32_MAX;
  std::int32_t high = INT32_MIN;
  const std::uint8_t* at = bytes.data();
  for (std::size_t left = bytes.size() / Width; left > 0; --left, at += Width) {
    auto bits = static_cast<std::uint32_t>(bits_at<Width, Big>(at) << (32 - 8 * Width));
    if constexpr (Offset) bits ^= 0x80000000u;
    const auto sample = static_cast<std::int32_t>(bits);
    low = std::min(low, sample);
    high = std::max(high, sample);
  }
  if (bytes.size() < Width) return;
  peaks.low = std::min(peaks.low, low / kOne);
  peaks.high = std::max(peaks.high, high / kOne);
}

template <class Fraction, class Bits, bool Big>
void widen_fractions(Peaks& peaks, std::span<const std::uint8_t> bytes) {
  for (std::size_t at = 0; at + sizeof(Bits) <= bytes.size(); at += sizeof(Bits)) {
    const auto bits = static_cast<Bits>(bits_at<sizeof(Bits), Big>(bytes.data() + at));
    const double sample = std::bit_cast<Fraction>(bits);
    if (sample != sample) continue;
    const double seen = std::clamp(sample, -1.0, 1.0);
    peaks.low = std::min(peaks.low, seen);
    peaks.high = std::max(peaks.high, seen);
  }
}

template <bool Big, bool Offset>
void widen_by_width(Peaks& peaks, std::size_t width, std::span<const std::uint8_t> bytes) {
  switch (width) {
    case 1:
      return widen_whole<1, Big, Offset>(peaks, bytes);
    case 2:
      return widen_whole<2, Big, Offset>(peaks, bytes);
    case 3:
      return widen_whole<3, Big, Offset>(peaks, bytes);
    case 4:
      return widen_whole<4, Big, Offset>(peaks, bytes);
    default:
      return;
  }
}

template <bool Big>
void widen_by(Peaks& peaks, const StoredSamples& kind, std::span<const std::uint8_t> bytes) {
  switch (kind.kind.format) {
    case SampleFormat::whole:
      return widen_by_width<Big, false>(peaks, kind.width, bytes);
    case SampleFormat::offset:
      return widen_by_width<Big, true>(peaks, kind.width, bytes);
    case SampleFormat::fraction:
      if (kind.width == 4) return widen_fractions<float, std::uint32_t, Big>(peaks, bytes);
      return widen_fractions<double, std::uint64_t, Big>(peaks, bytes);
  }
}

}  // namespace

std::optional<StoredSamples> stored_samples(ByteSource& source) {
  if (const auto samples = in_wav(source)) return samples;
  return in_aiff(source);
}

std::optional<SampleKind> aifc_format(std::string_view type) {
  static constexpr std::array<std::pair<std::string_view, SampleKind>, 10> kKinds = {{
      {"NONE", {SampleFormat::whole, true}},
      {"twos", {SampleFormat::whole, true}},
      {"sowt", {SampleFormat::whole, false}},
      {"raw ", {SampleFormat::offset, true}},
      {"in24", {SampleFormat::whole, true}},
      {"in32", {SampleFormat::whole, true}},
      {"fl32", {SampleFormat::fraction, true}},
      {"FL32", {SampleFormat::fraction, true}},
      {"fl64", {SampleFormat::fraction, true}},
      {"FL64", {SampleFormat::fraction, true}},
  }};
  for (const auto& [name, kind] : kKinds) {
    if (name == type) return kind;
  }
  return std::nullopt;
}

void widen(Peaks& peaks, const StoredSamples& kind, std::span<const std::uint8_t> bytes) {
  if (kind.kind.big_endian) {
    widen_by<true>(peaks, kind, bytes);
  } else {
    widen_by<false>(peaks, kind, bytes);
  }
}

}  // namespace ordelan::audio
