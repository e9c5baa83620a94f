// Wav files: RIFF in both orders of bytes, RF64 for those beyond 4 GB, and W64.
#include <algorithm>
#include <array>
#include <cmath>

#include "audio/chunks.h"
#include "audio/headers.h"
#include "audio/integers.h"

namespace ordelan::audio {
namespace {

constexpr std::uint64_t kUnset = 0xFFFFFFFF;  // a length of 32 bits that stands for a longer one

struct RiffSound {
  std::string format;                  // the chunk "fmt "
  std::optional<std::uint64_t> bytes;  // how long the samples are
  std::uint64_t samples = 0;           // as the file says for sound that is not stored as it is
};

void describe(const RiffSound& sound, Number number, Detalles& details) {
  const std::string_view format = sound.format;
  const std::uint64_t kind = wav_kind(format, number);
  const bool plain = kind == 1 || kind == 3;
  const std::uint64_t rate = number(format, 4, 4);
  const std::uint64_t stored = number(format, 14, 2);
  const std::uint64_t frame = number(format, 12, 2);
  // The long form has room for 24 bits that are stored in 32.
  const std::uint64_t used = number(format, 0, 2) == 1 ? 0 : number(format, 18, 2);
  // What a plain file states is wrong more often than what follows from the rest.
  const bool follows = plain && rate * frame > 0;
  const std::uint64_t bytes_a_second = follows ? rate * frame : number(format, 8, 4);
  set(details.canales, number(format, 2, 2));
  set(details.frecuencia, rate);
  set(details.bits, plain && used > 0 && used < stored ? used : stored);
  set(details.velocidad, bytes_a_second * 8);
  if (!plain && sound.samples > 0) {
    set_duration(details, static_cast<double>(sound.samples), static_cast<double>(rate));
  } else if (sound.bytes) {
    set_duration(details, static_cast<double>(*sound.bytes), static_cast<double>(bytes_a_second));
  }
  if (!details.velocidad && sound.bytes) {
    set_mean_rate(details, static_cast<double>(*sound.bytes));
  }
}

void read_info(ByteSource& source, std::uint64_t at, std::uint64_t end, Number number,
               Etiquetas& tags) {
  static constexpr std::array<std::array<std::string_view, 2>, 14> kNames = {{
      {"INAM", "title"},
      {"IART", "artist"},
      {"IPRD", "album"},
      {"ICMT", "comment"},
      {"ICRD", "date"},
      {"IGNR", "genre"},
      {"IPRT", "track"},
      {"ITRK", "track"},
      {"ISFT", "encoder"},
      {"ICOP", "copyright"},
      {"IENG", "engineer"},
      {"ITCH", "encoded_by"},
      {"ISBJ", "subject"},
      {"IKEY", "keywords"},
  }};
  while (at + 8 <= end) {
    const std::string head = source.bytes(at, 8);
    if (head.size() < 8) break;
    const std::uint64_t length = std::min(number(head, 4, 4), end - at - 8);
    for (const auto& [chunk, name] : kNames) {
      if (std::string_view(head).substr(0, 4) != chunk) continue;
      const auto kept = static_cast<std::size_t>(std::min<std::uint64_t>(length, kMostText));
      const std::string text = source.bytes(at + 8, kept);
      add_tag(tags, name, text_of(std::string_view(text).substr(0, text.find('\0'))));
    }
    at += 8 + length + (length & 1);
  }
}

// The chunk of broadcast files: who recorded what, and when.
void read_broadcast(std::string_view chunk, Etiquetas& tags) {
  const auto field = [&](std::size_t at, std::size_t width) {
    const std::string_view bytes = chunk.substr(std::min(at, chunk.size()), width);
    return text_of(bytes.substr(0, bytes.find('\0')));
  };
  add_tag(tags, "description", field(0, 256));
  add_tag(tags, "originator", field(256, 32));
  add_missing_tag(tags, "date", field(320, 10));
}

// One chunk that a wav may have; others are passed over.
void read_chunk(ByteSource& source, const Chunk& chunk, RiffSound& sound, Etiquetas& tags) {
  const auto& [name, at, length, number] = chunk;
  if (name == "fmt " && sound.format.empty()) {
    sound.format = source.bytes(at, static_cast<std::size_t>(std::min<std::uint64_t>(length, 40)));
  } else if (name == "fact" && length >= 4) {
    sound.samples = number(source.bytes(at, 4), 0, 4);
  } else if (name == "data" && !sound.bytes) {
    sound.bytes = length;
  } else if (name == "LIST" && length >= 4 && source.bytes(at, 4) == "INFO") {
    read_info(source, at + 4, at + length, number, tags);
  } else if (name == "bext") {
    read_broadcast(source.bytes(at, static_cast<std::size_t>(std::min<std::uint64_t>(length, 602))),
                   tags);
  } else if (name == "id3 " || name == "ID3 ") {
    read_id3(source, at, at + length, tags);
  }
}

bool is_large(std::string_view kind) {
  return kind == "RF64" || kind == "BW64";
}

}  // namespace

std::uint64_t wav_kind(std::string_view format, Number number) {
  constexpr std::uint64_t kExtensible = 0xFFFE;
  const std::uint64_t kind = number(format, 0, 2);
  return kind == kExtensible && format.size() >= 40 ? number(format, 24, 2) : kind;
}

bool each_riff_chunk(ByteSource& source, const VisitChunk& visit) {
  const std::string head = source.bytes(0, 12);
  const std::string_view kind = std::string_view(head).substr(0, 4);
  const bool large = is_large(kind);
  if (!large && kind != "RIFF" && kind != "RIFX") return false;
  if (head.size() < 12 || head.substr(8) != "WAVE") return false;
  const Number number = kind == "RIFX" ? big_endian : little_endian;
  // A recording that was not ended properly has no lengths yet.
  const bool unended = number(head, 4, 4) == 0;
  std::uint64_t long_data = 0;  // the length of data beyond 4 GB
  for (std::uint64_t at = 12; at + 8 <= source.size();) {
    const std::string chunk = source.bytes(at, 8);
    if (chunk.size() < 8) break;
    const std::string_view name = std::string_view(chunk).substr(0, 4);
    const std::uint64_t left = source.size() - at - 8;
    std::uint64_t length = number(chunk, 4, 4);
    if (name == "ds64") {
      long_data = number(source.bytes(at + 8, 16), 8, 8);
    } else if (name == "data" && large && length == kUnset) {
      length = long_data;
    } else if (name == "data" && (length == kUnset || (length == 0 && unended))) {
      length = left;
    }
    length = std::min(length, left);
    visit({name, at + 8, length, number});
    at += 8 + length + (length & 1);
  }
  return true;
}

bool each_w64_chunk(ByteSource& source, const VisitChunk& visit) {
  // Chunks are named by 16 bytes, the first four of which are the name that a usual wav has.
  constexpr std::string_view kRiff("riff\x2E\x91\xCF\x11\xA5\xD6\x28\xDB\x04\xC1\x00\x00", 16);
  constexpr std::string_view kWave("wave\xF3\xAC\xD3\x11\x8C\xD1\x00\xC0\x4F\x8E\xDB\x8A", 16);
  constexpr std::uint64_t kHead = 24;
  const std::string head = source.bytes(0, 40);
  if (!head.starts_with(kRiff) || head.size() < 40 || head.substr(24) != kWave) return false;
  for (std::uint64_t at = 40; at + kHead <= source.size();) {
    const std::string chunk = source.bytes(at, kHead);
    if (chunk.size() < kHead) break;
    const std::uint64_t length = little_endian(chunk, 16, 8);  // its head included
    const std::uint64_t left = source.size() - at;
    if (length < kHead) break;
    visit({std::string_view(chunk).substr(0, 4), at + kHead, std::min(length, left) - kHead,
           little_endian});
    if (length >= left) break;
    at += (length + 7) / 8 * 8;
  }
  return true;
}

bool read_riff(ByteSource& source, Detalles& details) {
  const bool large = is_large(source.bytes(0, 4));
  RiffSound sound;
  std::uint64_t long_samples = 0;
  Number number = little_endian;
  const bool riff = each_riff_chunk(source, [&](const Chunk& chunk) {
    number = chunk.number;
    if (chunk.name == "ds64") long_samples = number(source.bytes(chunk.at, 24), 16, 8);
    read_chunk(source, chunk, sound, details.etiquetas);
  });
  if (!riff) return false;
  if (large && sound.samples == kUnset) sound.samples = long_samples;
  describe(sound, number, details);
  return true;
}

bool read_w64(ByteSource& source, Detalles& details) {
  RiffSound sound;
  const bool w64 = each_w64_chunk(source, [&](const Chunk& chunk) {
    if (chunk.name == "fmt " || chunk.name == "fact" || chunk.name == "data") {
      read_chunk(source, chunk, sound, details.etiquetas);
    }
  });
  if (!w64) return false;
  describe(sound, little_endian, details);
  return true;
}

}  // namespace ordelan::audio
