// Wma files: one header object with a few objects inside.
#include <algorithm>
#include <array>

#include "audio/headers.h"
#include "audio/integers.h"

namespace ordelan::audio {
namespace {

constexpr std::string_view kHeader(
    "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16);
constexpr std::string_view kFile("\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65",
                                 16);
constexpr std::string_view kStream(
    "\x91\x07\xDC\xB7\xB7\xA9\xCF\x11\x8E\xE6\x00\xC0\x0C\x20\x53\x65", 16);
constexpr std::string_view kSound(
    "\x40\x9E\x69\xF8\x4D\x5B\xCF\x11\xA8\xFD\x00\x80\x5F\x5C\x44\x2B", 16);
constexpr std::string_view kDescription(
    "\x33\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16);
constexpr std::string_view kMoreDescription(
    "\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0\x00\xA0\xC9\x5E\xA8\x50", 16);
constexpr std::uint64_t kHead = 24;  // of each object: its kind and its length

void read_file(std::string_view fields, Detalles& details) {
  constexpr double kUnits = 1e7;
  const auto played = static_cast<double>(little_endian(fields, 40, 8)) / kUnits;
  const auto before = static_cast<double>(little_endian(fields, 56, 8)) / 1000;
  if (played > 0) set_duration(details, played - before, 1);
}

void read_stream(std::string_view fields, Detalles& details) {
  constexpr std::uint64_t kPlain = 1;
  constexpr std::uint64_t kLossless = 0x163;
  if (!fields.starts_with(kSound) || details.canales) return;
  const std::string_view format = fields.substr(std::min<std::size_t>(54, fields.size()));
  const std::uint64_t kind = little_endian(format, 0, 2);
  set(details.canales, little_endian(format, 2, 2));
  set(details.frecuencia, little_endian(format, 4, 4));
  set(details.velocidad, little_endian(format, 8, 4) * 8);
  if (kind == kPlain || kind == kLossless) set(details.bits, little_endian(format, 14, 2));
}

void read_description(ByteStream& stream, Etiquetas& tags) {
  static constexpr std::array<std::string_view, 5> kNames = {"title", "artist", "copyright",
                                                             "comment", ""};
  const std::string lengths = stream.take(10);
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    const auto length = static_cast<std::size_t>(little_endian(lengths, 2 * i, 2));
    add_tag(tags, kNames[i], text_of_utf16(stream.take(length), false));
  }
}

std::string_view usual_name(std::string_view theirs) {
  static constexpr std::array<std::array<std::string_view, 2>, 12> kNames = {{
      {"WM/AlbumTitle", "album"},
      {"WM/AlbumArtist", "album_artist"},
      {"WM/Genre", "genre"},
      {"WM/Year", "date"},
      {"WM/TrackNumber", "track"},
      {"WM/PartOfSet", "disc"},
      {"WM/Composer", "composer"},
      {"WM/Publisher", "publisher"},
      {"WM/EncodingSettings", "encoder"},
      {"WM/Language", "language"},
      {"Author", "artist"},
      {"Description", "comment"},
  }};
  for (const auto& [name, usual] : kNames) {
    if (theirs == name) return usual;
  }
  return theirs;
}

void read_more_description(ByteStream& stream, Etiquetas& tags) {
  constexpr std::uint64_t kText = 0;
  constexpr std::uint64_t kNumber = 3;
  const auto number = [&] { return little_endian(stream.take(2), 0, 2); };
  for (std::uint64_t count = number(); count > 0; --count) {
    const std::string raw_name = stream.take(static_cast<std::size_t>(number()));
    const std::uint64_t kind = number();
    const std::uint64_t length = number();
    if (raw_name.empty()) return;
    std::string name = text_of_utf16(raw_name, false);
    name = name.substr(0, name.find('\0'));
    const auto kept = static_cast<std::size_t>(std::min<std::uint64_t>(length, 2 * kMostText));
    const std::string value = stream.take(kept);
    stream.skip(length - kept);
    if (kind == kText) {
      add_tag(tags, usual_name(name), text_of_utf16(value, false));
    } else if (kind == kNumber && name == "WM/TrackNumber") {
      add_tag(tags, "track", std::to_string(little_endian(value, 0, 4)));
    }
  }
}

}  // namespace

bool read_asf(ByteSource& source, Detalles& details) {
  const std::string head = source.bytes(0, 30);
  if (!head.starts_with(kHeader)) return false;
  const std::uint64_t end = std::min(little_endian(head, 16, 8), source.size());
  for (std::uint64_t at = 30; at < end && end - at >= kHead;) {
    const std::string object = source.bytes(at, kHead);
    const std::uint64_t length = little_endian(object, 16, 8);
    if (length < kHead) break;
    const std::string_view kind = std::string_view(object).substr(0, 16);
    const std::uint64_t content_end = at + std::min(length, end - at);
    SourceStream stream(source, at + kHead, content_end);
    if (kind == kFile) {
      read_file(stream.take(80), details);
    } else if (kind == kStream) {
      read_stream(stream.take(54 + 18), details);
    } else if (kind == kDescription) {
      read_description(stream, details.etiquetas);
    } else if (kind == kMoreDescription) {
      read_more_description(stream, details.etiquetas);
    }
    at = content_end;
  }
  return true;
}

}  // namespace ordelan::audio
