#include "settings/wide_text.h"

#include <cstdint>

namespace ordelan::settings {
namespace {

constexpr std::string_view kMark = "\xFF\xFE";

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

void append_unit(std::string& bytes, std::uint32_t unit) {
  bytes += static_cast<char>(unit & 0xFFu);
  bytes += static_cast<char>((unit >> 8) & 0xFFu);
}

}  // namespace

bool is_wide(std::string_view bytes) {
  return bytes.substr(0, kMark.size()) == kMark;
}

std::string utf8_of_wide(std::string_view bytes) {
  const auto unit = [&](std::size_t at) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at])) |
           (static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + 1])) << 8);
  };
  std::string utf8;
  for (std::size_t at = kMark.size(); at + 1 < bytes.size(); at += 2) {
    std::uint32_t point = unit(at);
    if (point >= 0xD800 && point < 0xDC00 && at + 3 < bytes.size()) {
      const std::uint32_t low = unit(at + 2);
      if (low >= 0xDC00 && low < 0xE000) {
        point = 0x10000 + ((point - 0xD800) << 10) + (low - 0xDC00);
        at += 2;
      }
    }
    append_utf8(utf8, point);  // half of a pair alone passes through, and comes back as it was
  }
  return utf8;
}

std::string wide_of_utf8(std::string_view utf8) {
  std::string bytes(kMark);
  for (std::size_t at = 0; at < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    std::uint32_t point = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length && at + i < utf8.size(); ++i) {
      point = (point << 6) | (static_cast<unsigned char>(utf8[at + i]) & 0x3Fu);
    }
    at += length;
    if (point < 0x10000) {
      append_unit(bytes, point);
    } else {
      append_unit(bytes, 0xD800 + ((point - 0x10000) >> 10));
      append_unit(bytes, 0xDC00 + ((point - 0x10000) & 0x3FFu));
    }
  }
  return bytes;
}

}  // namespace ordelan::settings
