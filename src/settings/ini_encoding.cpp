#include "settings/ini_encoding.h"

#include <cstdint>

namespace ordelan::settings {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLowFirstMark = "\xFF\xFE";
constexpr std::string_view kHighFirstMark = "\xFE\xFF";

std::string_view mark_of(IniEncoding encoding) {
  switch (encoding) {
    case IniEncoding::code_page:
      return {};
    case IniEncoding::utf8:
      return kUtf8Mark;
    case IniEncoding::utf16_low_first:
      return kLowFirstMark;
    case IniEncoding::utf16_high_first:
      return kHighFirstMark;
  }
  return {};
}

void append_utf8(std::string& utf8, std::uint32_t point) {
  const auto tail = [&](int shift) {
    utf8 += static_cast<char>(0x80u | ((point >> shift) & 0x3Fu));
  };
  if (point < 0x80) {
    utf8 += static_cast<char>(point);
  } else if (point < 0x800) {
    utf8 += static_cast<char>(0xC0u | (point >> 6));
    tail(0);
  } else if (point < 0x10000) {
    utf8 += static_cast<char>(0xE0u | (point >> 12));
    tail(6);
    tail(0);
  } else {
    utf8 += static_cast<char>(0xF0u | (point >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

// Half of a pair alone passes through as if it were a character, and comes back as it was.
std::string utf8_of_utf16(std::string_view bytes, bool high_first) {
  const auto unit = [&](std::size_t at) {
    const auto first = static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at]));
    const auto second = static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + 1]));
    return high_first ? (first << 8) | second : first | (second << 8);
  };
  std::string utf8;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    std::uint32_t point = unit(at);
    if (point >= 0xD800 && point < 0xDC00 && at + 3 < bytes.size()) {
      const std::uint32_t low = unit(at + 2);
      if (low >= 0xDC00 && low < 0xE000) {
        point = 0x10000 + ((point - 0xD800) << 10) + (low - 0xDC00);
        at += 2;
      }
    }
    append_utf8(utf8, point);
  }
  return utf8;
}

void append_utf16(std::string& bytes, std::string_view utf8, bool high_first) {
  const auto append_unit = [&](std::uint32_t unit) {
    const char low = static_cast<char>(unit & 0xFFu);
    const char high = static_cast<char>((unit >> 8) & 0xFFu);
    bytes += high_first ? high : low;
    bytes += high_first ? low : high;
  };
  for (std::size_t at = 0; at < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    std::uint32_t point = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length && at + i < utf8.size(); ++i) {
      point = (point << 6) | (static_cast<unsigned char>(utf8[at + i]) & 0x3Fu);
    }
    at += length;
    if (point < 0x10000) {
      append_unit(point);
    } else {
      append_unit(0xD800 + ((point - 0x10000) >> 10));
      append_unit(0xDC00 + ((point - 0x10000) & 0x3FFu));
    }
  }
}

}  // namespace

IniEncoding encoding_of(std::string_view bytes) {
  for (const IniEncoding marked :
       {IniEncoding::utf8, IniEncoding::utf16_low_first, IniEncoding::utf16_high_first}) {
    if (bytes.starts_with(mark_of(marked))) return marked;
  }
  return IniEncoding::code_page;
}

std::string ini_text(std::string_view bytes, IniEncoding encoding) {
  bytes.remove_prefix(mark_of(encoding).size());
  if (encoding == IniEncoding::utf16_low_first) return utf8_of_utf16(bytes, false);
  if (encoding == IniEncoding::utf16_high_first) return utf8_of_utf16(bytes, true);
  return std::string(bytes);
}

std::string ini_bytes(std::string_view text, IniEncoding encoding) {
  std::string bytes(mark_of(encoding));
  if (encoding == IniEncoding::utf16_low_first || encoding == IniEncoding::utf16_high_first) {
    append_utf16(bytes, text, encoding == IniEncoding::utf16_high_first);
  } else {
    bytes += text;
  }
  return bytes;
}

}  // namespace ordelan::settings
