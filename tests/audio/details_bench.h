// Details of files that a test writes byte by byte.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "audio/details.h"
#include "audio/info_bench.h"

namespace ordelan::test {

// A file in memory; what it does not hold up to `size` is zeros.
inline audio::ByteSource source_of(std::string_view bytes, std::uint64_t size) {
  return audio::ByteSource(
      size, [bytes, size](std::uint64_t offset, std::span<std::uint8_t> buffer) {
        const auto left = size - std::min(size, offset);
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), left));
        std::memset(buffer.data(), 0, count);
        if (offset < bytes.size()) {
          const std::string_view held = bytes.substr(static_cast<std::size_t>(offset), count);
          std::memcpy(buffer.data(), held.data(), held.size());
        }
        return count;
      });
}

inline audio::Detalles details_of(std::string_view bytes) {
  audio::ByteSource source = source_of(bytes, bytes.size());
  return audio::read_details(source);
}

// The text of a tag; "(none)" where the file lacks it.
inline std::string tag_of(const audio::Detalles& details, std::string_view name) {
  for (const auto& [each, text] : details.etiquetas) {
    if (each == name) return text;
  }
  return "(none)";
}

// The numbers in one line: seconds, channels, rate, bits, bit rate; "-" where the file lacks one.
inline std::string numbers_of(const audio::Detalles& details) {
  const auto shown = [](const std::optional<std::int64_t>& value) {
    return value ? std::to_string(*value) : std::string("-");
  };
  std::string seconds = "-";
  if (details.duracion) {
    seconds = std::to_string(*details.duracion);
    seconds.resize(seconds.size() - 3);  // to a thousandth
  }
  return seconds + " s, " + shown(details.canales) + " ch, " + shown(details.frecuencia) + " Hz, " +
         shown(details.bits) + " bits, " + shown(details.velocidad) + " bit/s";
}

inline std::string big_endian(std::uint64_t value, int bytes) {
  std::string text = little_endian(value, bytes);
  std::reverse(text.begin(), text.end());
  return text;
}

// A chunk of a wav or, with lengths the other way round, of an aif; an odd one is padded.
inline std::string chunk(const std::string& name, const std::string& content, bool big = false) {
  const std::string length = big ? big_endian(content.size(), 4) : little_endian(content.size(), 4);
  return name + length + content + std::string(content.size() % 2, '\0');
}

inline std::string wav_file(const std::string& chunks) {
  return "RIFF" + little_endian(4 + chunks.size(), 4) + "WAVE" + chunks;
}

// The content of "fmt ".
inline std::string format_chunk(std::uint64_t kind, std::uint64_t channels, std::uint64_t rate,
                                std::uint64_t bits) {
  const std::uint64_t frame = channels * bits / 8;
  return little_endian(kind, 2) + little_endian(channels, 2) + little_endian(rate, 4) +
         little_endian(rate * frame, 4) + little_endian(frame, 2) + little_endian(bits, 2);
}

inline std::string utf16_bytes(std::string_view text, bool big = false) {
  std::string bytes;
  for (const char c : text) {
    const auto unit = static_cast<unsigned char>(c);
    bytes += big ? big_endian(unit, 2) : little_endian(unit, 2);
  }
  return bytes;
}

inline std::string comments(const std::vector<std::string>& fields) {
  std::string block = little_endian(4, 4) + "test" + little_endian(fields.size(), 4);
  for (const std::string& field : fields) block += little_endian(field.size(), 4) + field;
  return block;
}

// Blocks of a flac; the last one is marked.
inline std::string flac_file(const std::vector<std::pair<int, std::string>>& blocks,
                             const std::string& sound) {
  std::string file = "fLaC";
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const int last = i + 1 == blocks.size() ? 0x80 : 0;
    file += static_cast<char>(blocks[i].first | last);
    file += big_endian(blocks[i].second.size(), 3) + blocks[i].second;
  }
  return file + sound;
}
inline std::string stream_info(std::uint64_t rate, std::uint64_t channels, std::uint64_t bits,
                               std::uint64_t samples) {
  return std::string(10, '\0') +
         big_endian(rate << 44 | (channels - 1) << 41 | (bits - 1) << 36 | samples, 8) +
         std::string(16, '\0');
}

// Pages of an ogg stream that hold these packets, the last one with the granule; `page` bytes of
// content a page at most.
inline std::string ogg_page(std::uint64_t serial, std::uint64_t granule, const std::string& lacing,
                            const std::string& content) {
  return std::string("OggS") + '\0' + '\0' + little_endian(granule, 8) + little_endian(serial, 4) +
         std::string(8, '\0') + static_cast<char>(lacing.size()) + lacing + content;
}
inline std::string ogg_packet(std::uint64_t serial, std::uint64_t granule,
                              const std::string& packet, std::size_t segments_a_page = 255) {
  std::string lacing(packet.size() / 255, '\xFF');
  lacing += static_cast<char>(packet.size() % 255);
  std::string pages;
  std::size_t at = 0;
  for (std::size_t i = 0; i < lacing.size(); i += segments_a_page) {
    const std::string part = lacing.substr(i, segments_a_page);
    std::size_t length = 0;
    for (const char c : part) length += static_cast<unsigned char>(c);
    pages += ogg_page(serial, granule, part, packet.substr(at, length));
    at += length;
  }
  return pages;
}
inline std::string vorbis_head(std::uint64_t channels, std::uint64_t rate) {
  return "\x01vorbis" + std::string(4, '\0') + little_endian(channels, 1) + little_endian(rate, 4) +
         std::string(14, '\1');
}

// A block of ID3 frames.
inline std::string seven_bits(std::size_t value) {
  std::string bytes;
  for (int shift = 21; shift >= 0; shift -= 7) bytes += static_cast<char>(value >> shift & 0x7F);
  return bytes;
}
inline std::string id3_block(int version, const std::string& frames, int flags = 0) {
  return std::string("ID3") + static_cast<char>(version) + '\0' + static_cast<char>(flags) +
         seven_bits(frames.size()) + frames;
}
inline std::string id3_frame(int version, const std::string& name, const std::string& content,
                             int flags = 0) {
  if (version == 2) return name + big_endian(content.size(), 3) + content;
  return name + (version == 4 ? seven_bits(content.size()) : big_endian(content.size(), 4)) +
         big_endian(static_cast<std::uint64_t>(flags), 2) + content;
}

// Frames of an mp3 of 128 kbit/s, 44100 Hz, stereo, 417 bytes each.
inline std::string mp3_frames(std::size_t count) {
  std::string frame = "\xFF\xFB\x90" + std::string(414, '\0');
  std::string frames;
  for (std::size_t i = 0; i < count; ++i) frames += frame;
  return frames;
}

inline std::string box(const std::string& name, const std::string& content) {
  return big_endian(8 + content.size(), 4) + name + content;
}

}  // namespace ordelan::test
