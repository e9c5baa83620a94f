#include "audio/tags.h"

#include <algorithm>
#include <array>
#include <optional>

#include "audio/integers.h"
#include "text/code_page.h"

namespace ordelan::audio {
namespace {

std::string* find_text(Etiquetas& tags, std::string_view name) {
  const auto found =
      std::find_if(tags.begin(), tags.end(), [&](const auto& each) { return each.first == name; });
  return found == tags.end() ? nullptr : &found->second;
}

std::string_view trimmed(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  const auto blank = [](char c) { return c == ' ' || c == '\r' || c == '\n' || c == '\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

void put(Etiquetas& tags, std::string_view raw_name, std::string_view raw_text, bool join) {
  const std::string name = text::lower(trimmed(raw_name));
  const std::string_view text = trimmed(raw_text).substr(0, kMostText);
  if (name.empty() || text.empty()) return;
  std::string* const old = find_text(tags, name);
  if (old == nullptr) {
    if (tags.size() < kMostTags) tags.emplace_back(name, text);
  } else if (join && *old != text && old->size() + text.size() + 2 <= kMostText) {
    old->append("; ").append(text);
  }
}

bool is_utf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    if (!text::next_code_point(bytes, at)) return false;
  }
  return true;
}

// UTF-8 that was cut somewhere, without the part of a character at its end.
std::string_view whole_characters(std::string_view bytes) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
  for (std::size_t back = 1; back <= std::min<std::size_t>(3, bytes.size()); ++back) {
    const unsigned char lead = byte(bytes.size() - back);
    if (lead < 0x80) break;
    if (lead < 0xC0) continue;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    return length > back ? bytes.substr(0, bytes.size() - back) : bytes;
  }
  return bytes;
}

// What other kinds of files call by the usual name.
std::string_view usual_name(std::string_view vorbis) {
  static constexpr std::array<std::array<std::string_view, 2>, 6> kNames = {{
      {"albumartist", "album_artist"},
      {"tracknumber", "track"},
      {"discnumber", "disc"},
      {"year", "date"},
      {"description", "comment"},
      {"album artist", "album_artist"},
  }};
  for (const auto& [theirs, usual] : kNames) {
    if (vorbis == theirs) return usual;
  }
  return vorbis;
}

}  // namespace

void add_tag(Etiquetas& tags, std::string_view name, std::string_view text) {
  put(tags, name, text, true);
}

void add_missing_tag(Etiquetas& tags, std::string_view name, std::string_view text) {
  put(tags, name, text, false);
}

std::string text_of(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  const std::string_view whole = whole_characters(bytes);
  return is_utf8(whole) ? text::from_utf8_with_marks(whole) : std::string(bytes);
}

std::string text_of_utf16(std::string_view bytes, bool big) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    big = bytes[0] == '\xFE';
    bytes.remove_prefix(2);
  }
  const auto unit = [&](std::size_t at) {
    return static_cast<std::uint32_t>(big ? big_endian(bytes, at, 2) : little_endian(bytes, at, 2));
  };
  std::string text;
  for (std::size_t at = 0; at + 2 <= bytes.size(); at += 2) {
    std::uint32_t point = unit(at);
    if (point >= 0xD800 && point < 0xDC00) {
      const std::uint32_t low = unit(at + 2);
      if (low >= 0xDC00 && low < 0xE000) {
        point = 0x10000 + ((point - 0xD800) << 10) + (low - 0xDC00);
        at += 2;
      }
    }
    text += text::byte_of(point).value_or('?');
  }
  return text;
}

void read_vorbis_comment(ByteStream& stream, Etiquetas& tags) {
  const auto number = [&](std::uint64_t& value) {
    const std::string bytes = stream.take(4);
    value = little_endian(bytes, 0, 4);
    return bytes.size() == 4;
  };
  std::uint64_t length = 0;
  std::uint64_t count = 0;
  if (!number(length)) return;
  stream.skip(length);
  if (!number(count)) return;
  for (; count > 0 && number(length); --count) {
    const auto kept = static_cast<std::size_t>(std::min<std::uint64_t>(length, kMostText));
    const std::string field = stream.take(kept);
    stream.skip(length - kept);
    const std::size_t equals = field.find('=');
    if (equals == std::string::npos) continue;
    const std::string name = text::lower(std::string_view(field).substr(0, equals));
    if (name == "metadata_block_picture" || name == "coverart") continue;
    add_tag(tags, usual_name(name), text_of(std::string_view(field).substr(equals + 1)));
  }
}

}  // namespace ordelan::audio
