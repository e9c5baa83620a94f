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

constexpr std::array<char, 256> kLowerForms = make_lower();

constexpr std::array<char, 256> make_upper() {
  std::array<char, 256> table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    table[byte] = static_cast<char>(static_cast<unsigned char>(byte));
  }
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    const auto small = static_cast<unsigned char>(kLowerForms[byte]);
    if (small != byte) table[small] = static_cast<char>(static_cast<unsigned char>(byte));
  }
  return table;
}

constexpr std::array<char, 256> kCapitals = make_upper();

// Where each byte stands in the order of names: by the code point of its capital.
constexpr std::array<std::uint16_t, 256> make_places() {
  const auto points = make_code_points();
  std::array<std::uint16_t, 256> places{};
  for (std::size_t byte = 0; byte < places.size(); ++byte) {
    places[byte] = points[static_cast<unsigned char>(kCapitals[byte])];
  }
  return places;
}

constexpr std::array<std::uint16_t, 256> kPlaces = make_places();

constexpr std::size_t kWord = sizeof(std::uint64_t);

// Eight bytes of a text at once.
std::uint64_t word_at(std::string_view text, std::size_t at) {
  std::uint64_t word = 0;
  std::memcpy(&word, text.data() + at, kWord);
  return word;
}

// How many bytes of the text from `from` on read the same in both codes.
std::size_t ascii_run(std::string_view text, std::size_t from) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080u;
  std::size_t at = from;
  while (at + kWord <= text.size() && (word_at(text, at) & kHighBits) == 0) at += kWord;
  while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) ++at;
  return at - from;
}

}  // namespace

const std::array<std::uint16_t, 256> kCodePoints = make_code_points();
const std::array<char, 256> kLower = kLowerForms;
const std::array<char, 256> kUpper = kCapitals;

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

std::string to_utf8(std::string_view ansi) {
  std::string utf8;
  utf8.reserve(ansi.size() + ansi.size() / 8);  // few letters take more bytes than one
  append_utf8(ansi, utf8);
  return utf8;
}

void append_utf8(std::string_view ansi, std::string& utf8) {
  for (std::size_t at = 0;; ++at) {
    const std::size_t run = ascii_run(ansi, at);
    utf8.append(ansi, at, run);
    at += run;
    if (at == ansi.size()) return;
    const unsigned point = kCodePoints[static_cast<unsigned char>(ansi[at])];
    if (point < 0x800) {
      utf8 += static_cast<char>(0xC0u | (point >> 6));
    } else {
      utf8 += static_cast<char>(0xE0u | (point >> 12));
      utf8 += static_cast<char>(0x80u | ((point >> 6) & 0x3Fu));
    }
    utf8 += static_cast<char>(0x80u | (point & 0x3Fu));
  }
}

std::optional<std::string> from_utf8(std::string_view utf8) {
  std::string ansi;
  if (!from_utf8(utf8, ansi)) return std::nullopt;
  return ansi;
}

bool from_utf8(std::string_view utf8, std::string& ansi) {
  ansi.clear();
  ansi.reserve(utf8.size());
  for (std::size_t at = 0;;) {
    const std::size_t run = ascii_run(utf8, at);
    ansi.append(utf8, at, run);
    at += run;
    if (at == utf8.size()) return true;
    const auto point = next_code_point(utf8, at);
    if (!point) return false;
    const auto byte = byte_of(*point);
    if (!byte) return false;
    ansi += *byte;
  }
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

std::string lower(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) c = lower(c);
  return folded;
}

std::string upper(std::string_view text) {
  std::string capitals(text);
  for (char& c : capitals) c = upper(c);
  return capitals;
}

bool equal_ignoring_case(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  // Mostly they are equal letter for letter, or differ soon.
  return a == b || std::equal(a.begin(), a.end(), b.begin(),
                              [](char x, char y) { return lower(x) == lower(y); });
}

int compare_ignoring_case(std::string_view a, std::string_view b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  std::size_t i = 0;
  // The takes of a folder mostly begin alike.
  while (i + kWord <= shorter && word_at(a, i) == word_at(b, i)) i += kWord;
  for (; i < shorter; ++i) {
    if (a[i] == b[i]) continue;
    const int place_a = kPlaces[static_cast<unsigned char>(a[i])];
    const int place_b = kPlaces[static_cast<unsigned char>(b[i])];
    if (place_a != place_b) return place_a - place_b;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
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
