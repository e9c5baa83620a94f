// Aif files, and aifc ones, which may hold sound that is stored otherwise.
#include <algorithm>
#include <array>
#include <cmath>

#include "audio/chunks.h"
#include "audio/headers.h"
#include "audio/integers.h"
#include "audio/samples.h"

namespace ordelan::audio {
namespace {

// A number of 80 bits: a sign, 15 bits of exponent, 64 of fraction.
double number_of_80_bits(std::string_view bytes) {
  const auto exponent = static_cast<int>(big_endian(bytes, 0, 2) & 0x7FFF);
  return std::ldexp(static_cast<double>(big_endian(bytes, 2, 8)), exponent - 16383 - 63);
}

struct SoundChunk {
  std::string common;  // the chunk "COMM"
  std::uint64_t bytes = 0;
};

void describe(const SoundChunk& sound, bool compressed_kind, Detalles& details) {
  const std::string_view common = sound.common;
  const std::uint64_t channels = big_endian(common, 0, 2);
  // Of one kind of packed sound the chunk counts packets of 64 samples.
  const bool packets = compressed_kind && common.size() >= 22 && common.substr(18, 4) == "ima4";
  const std::uint64_t frames = big_endian(common, 2, 4) * (packets ? 64 : 1);
  const std::uint64_t bits = big_endian(common, 6, 2);
  const double rate = number_of_80_bits(common.substr(std::min<std::size_t>(8, common.size())));
  const bool plain =
      !compressed_kind || common.size() < 22 || aifc_format(common.substr(18, 4)).has_value();
  set(details.canales, channels);
  set(details.bits, bits);
  if (!(rate >= 1 && rate < 1e9)) return;
  set(details.frecuencia, static_cast<std::uint64_t>(std::lround(rate)));
  set_duration(details, static_cast<double>(frames), rate);
  if (plain) {
    const auto frame_bits = static_cast<double>(channels * ((bits + 7) / 8 * 8));
    set(details.velocidad, static_cast<std::uint64_t>(std::llround(frame_bits * rate)));
  } else {
    set_mean_rate(details, static_cast<double>(sound.bytes));
  }
}

}  // namespace

bool each_aiff_chunk(ByteSource& source, const VisitChunk& visit) {
  const std::string head = source.bytes(0, 12);
  const std::string_view kind =
      std::string_view(head).substr(std::min<std::size_t>(8, head.size()));
  if (!head.starts_with("FORM") || (kind != "AIFF" && kind != "AIFC")) return false;
  for (std::uint64_t at = 12; at + 8 <= source.size();) {
    const std::string chunk = source.bytes(at, 8);
    if (chunk.size() < 8) break;
    const std::uint64_t length = std::min(big_endian(chunk, 4, 4), source.size() - at - 8);
    visit({std::string_view(chunk).substr(0, 4), at + 8, length, big_endian});
    at += 8 + length + (length & 1);
  }
  return true;
}

bool is_aifc(ByteSource& source) {
  return source.bytes(8, 4) == "AIFC";
}

bool read_aiff(ByteSource& source, Detalles& details) {
  static constexpr std::array<std::array<std::string_view, 2>, 4> kTexts = {
      {{"NAME", "title"}, {"AUTH", "artist"}, {"(c) ", "copyright"}, {"ANNO", "comment"}}};
  const bool compressed_kind = is_aifc(source);
  SoundChunk sound;
  const bool aiff = each_aiff_chunk(source, [&](const Chunk& chunk) {
    const auto& [name, at, length, number] = chunk;
    const auto kept = static_cast<std::size_t>(std::min<std::uint64_t>(length, kMostText));
    if (name == "COMM" && sound.common.empty()) {
      sound.common = source.bytes(at, std::min<std::size_t>(kept, 22));
    } else if (name == "SSND") {
      sound.bytes = length - std::min<std::uint64_t>(length, 8);
    } else if (name == "ID3 " || name == "id3 ") {
      read_id3(source, at, at + length, details.etiquetas);
    }
    for (const auto& [text_chunk, tag] : kTexts) {
      if (name == text_chunk) add_tag(details.etiquetas, tag, text_of(source.bytes(at, kept)));
    }
  });
  if (!aiff) return false;
  describe(sound, compressed_kind, details);
  return true;
}

}  // namespace ordelan::audio
