#include "text/code_page.h"

#include <algorithm>
#include <cstring>

namespace ordelan::text {
namespace {

constexpr std::array<std::uint16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<std::uint16_t, 256> make_code_points() {
  std::array<std::uint16_t, 256> points{};
  for (std::size_t byte = 0; byte < points.size(); ++byte) {
    points[byte] =
        byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80] : static_cast<std::uint16_t>(byte);
  }
  return points;
}

constexpr std::array<char, 256> make_lower() {
  std::array<char, 256> table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    unsigned folded = byte;
    if (byte >= 'A' && byte <= 'Z') folded = byte + 0x20;
    if (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7) folded = byte + 0x20;
    if (byte == 0x8A || byte == 0x8C || byte == 0x8E) folded = byte + 0x10;
    if (byte == 0x9F) folded = 0xFF;
    table[byte] = static_cast<char>(static_cast<unsigned char>(folded));
  }
  return table;
}

constexpr std::array<char, 256> kLower = make_lower();

constexpr std::array<char, 256> make_upper() {
  std::array<char, 256> table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    table[byte] = static_cast<char>(static_cast<unsigned char>(byte));
  }
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    const auto small = static_cast<unsigned char>(kLower[byte]);
    if (small != byte) table[small] = static_cast<char>(static_cast<unsigned char>(byte));
  }
  return table;
}

constexpr std::array<char, 256> kUpper = make_upper();

// Where each byte stands in the order of names: by the code point of its capital.
constexpr std::array<std::uint16_t, 256> make_places() {
  const auto points = make_code_points();
  std::array<std::uint16_t, 256> places{};
  for (std::size_t byte = 0; byte < places.size(); ++byte) {
    places[byte] = points[static_cast<unsigned char>(kUpper[byte])];
  }
  return places;
}

constexpr std::array<std::uint16_t, 256> kPlaces = make_places();

// One code point read from UTF-8 at `at`, which moves past it. Overlong forms, surrogates and
// cut sequences give nothing.
std::optional<std::uint32_t> next_code_point(std::string_view utf8, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
  const unsigned first = byte(at);
  if (first < 0x80) {
    ++at;
    return first;
  }
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || at + length > utf8.size()) return std::nullopt;
  std::uint32_t point = first & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0u) != 0x80u) return std::nullopt;
    point = (point << 6) | (byte(at + i) & 0x3Fu);
  }
  constexpr std::array<std::uint32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
  if (point < kSmallest[length] || surrogate || point > 0x10FFFF) return std::nullopt;
  at += length;
  return point;
}

std::optional<char> byte_of(std::uint32_t point) {
  if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) {
    return static_cast<char>(static_cast<unsigned char>(point));
  }
  const auto found = std::find(kHighControls.begin(), kHighControls.end(), point);
  if (found == kHighControls.end()) return std::nullopt;
  return static_cast<char>(static_cast<unsigned char>(0x80 + (found - kHighControls.begin())));
}

// Text that reads the same in both codes.
bool is_ascii(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080u;
  std::uint64_t eight = 0;
  for (; text.size() >= sizeof eight; text.remove_prefix(sizeof eight)) {
    std::memcpy(&eight, text.data(), sizeof eight);
    if ((eight & kHighBits) != 0) return false;
  }
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

const std::array<std::uint16_t, 256> kCodePoints = make_code_points();

std::string to_utf8(std::string_view ansi) {
  if (is_ascii(ansi)) return std::string(ansi);
  std::string utf8;
  utf8.reserve(ansi.size());
  for (const char c : ansi) {
    const unsigned point = kCodePoints[static_cast<unsigned char>(c)];
    if (point < 0x80) {
      utf8 += c;
    } else if (point < 0x800) {
      utf8 += static_cast<char>(0xC0u | (point >> 6));
      utf8 += static_cast<char>(0x80u | (point & 0x3Fu));
    } else {
      utf8 += static_cast<char>(0xE0u | (point >> 12));
      utf8 += static_cast<char>(0x80u | ((point >> 6) & 0x3Fu));
      utf8 += static_cast<char>(0x80u | (point & 0x3Fu));
    }
  }
  return utf8;
}

std::optional<std::string> from_utf8(std::string_view utf8) {
  std::string ansi;
  if (!from_utf8(utf8, ansi)) return std::nullopt;
  return ansi;
}

bool from_utf8(std::string_view utf8, std::string& ansi) {
  if (is_ascii(utf8)) {
    ansi.assign(utf8);
    return true;
  }
  ansi.clear();
  ansi.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const auto point = next_code_point(utf8, at);
    if (!point) return false;
    const auto byte = byte_of(*point);
    if (!byte) return false;
    ansi += *byte;
  }
  return true;
}

std::string from_utf8_with_marks(std::string_view utf8) {
  std::string ansi;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t begin = at;
    const auto point = next_code_point(utf8, at);
    if (!point) at = begin + 1;
    ansi += point ? byte_of(*point).value_or('?') : '?';
  }
  return ansi;
}

char lower(char byte) {
  return kLower[static_cast<unsigned char>(byte)];
}

std::string lower(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) c = lower(c);
  return folded;
}

char upper(char byte) {
  return kUpper[static_cast<unsigned char>(byte)];
}

std::string upper(std::string_view text) {
  std::string capitals(text);
  for (char& c : capitals) c = upper(c);
  return capitals;
}

bool equal_ignoring_case(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

bool less_ignoring_case(std::string_view a, std::string_view b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shorter; ++i) {
    if (a[i] == b[i]) continue;
    const auto place_a = kPlaces[static_cast<unsigned char>(a[i])];
    const auto place_b = kPlaces[static_cast<unsigned char>(b[i])];
    if (place_a != place_b) return place_a < place_b;
  }
  return a.size() < b.size();
}

std::string_view trim_left(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view trim(std::string_view text) {
  const auto trimmed = trim_left(text);
  return trimmed.substr(0, trimmed.find_last_not_of(' ') + 1);
}

}  // namespace ordelan::text
