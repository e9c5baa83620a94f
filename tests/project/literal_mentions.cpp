#include "project/literal_mentions.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <optional>

#include "text/code_page.h"

namespace ordelan::test {
namespace {

enum class Way { bytes, utf8, wide };

// One character: its place, how many bytes it takes and what it is; `point` is -1 where there is
// none. `c` is its byte in the code page, -1 if it has none.
struct Character {
  long point = -1;
  int c = -1;
  std::size_t size = 0;
};

int in_page(long point) {
  if (point < 128) return static_cast<int>(point);
  for (int b = 128; b < 256; ++b) {
    if (text::kCodePoints[static_cast<std::size_t>(b)] == point) return b;
  }
  return -1;
}

Character read(Way way, const std::string& file, std::size_t at) {
  const auto b = [&](std::size_t i) { return static_cast<unsigned char>(file[i]); };
  const std::size_t left = at < file.size() ? file.size() - at : 0;
  if (way == Way::bytes) return left < 1 ? Character{} : Character{0, b(at), 1};
  if (way == Way::wide) {
    if (left < 2) return {};
    const long point = b(at) + 256 * b(at + 1);
    return {point, in_page(point), 2};
  }
  if (left < 1) return {};
  if (b(at) < 0x80) return {b(at), b(at), 1};
  for (std::size_t size = 2; size <= 4 && size <= left; ++size) {
    static constexpr int kLead[] = {0, 0, 0xC0, 0xE0, 0xF0};
    static constexpr int kLeads[] = {0, 0, 32, 16, 8};
    static constexpr long kFirst[] = {0, 0, 0x80, 0x800, 0x10000};
    if (b(at) < kLead[size] || b(at) >= kLead[size] + kLeads[size]) continue;
    long point = b(at) - kLead[size];
    for (std::size_t i = 1; i < size; ++i) {
      if (b(at + i) < 0x80 || b(at + i) > 0xBF) return {};
      point = point * 64 + (b(at + i) - 0x80);
    }
    if (point < kFirst[size] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) return {};
    return {point, in_page(point), size};
  }
  return {};
}

// The character that ends at `at`.
Character read_before(Way way, const std::string& file, std::size_t at) {
  for (std::size_t size = 1; size <= 4 && size <= at; ++size) {
    const Character found = read(way, file, at - size);
    if (found.point >= 0 && found.size == size) return found;
  }
  return {};
}

bool is_letter_or_digit(int c) {
  if (c < 0) return false;
  if (c < 128) return std::isalnum(c) != 0;
  const std::string letters =
      "\x83\x8A\x8C\x8E\x9A\x9C\x9E\x9F\xAA\xB5\xBA"
      "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"
      "\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD\xDE\xDF"
      "\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"
      "\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF8\xF9\xFA\xFB\xFC\xFD\xFE\xFF";
  return letters.find(static_cast<char>(c)) != std::string::npos;
}

bool impossible(int c) {
  return c >= 0 &&
         (c < 32 || std::string("\\/:*?\"<>|").find(static_cast<char>(c)) != std::string::npos);
}

bool starts(Way way, const std::string& file, std::size_t at) {
  if (way == Way::wide && at >= 3 && file[at - 1] == 0 && file[at - 3] != 0) return true;
  std::size_t blanks = 0;
  while (blanks < 256) {
    const Character before = read_before(way, file, at);
    if (before.c != ' ' || before.point < 0) break;
    at -= before.size;
    ++blanks;
  }
  if (blanks == 256) return true;
  if (at < (way == Way::wide ? 2u : 1u)) return true;
  const Character before = read_before(way, file, at);
  if (before.point < 0) return false;
  if (before.c < 0) return way == Way::wide;
  return impossible(before.c) ||
         std::string("=,;'([{#`\x91\x92\x93\x94\xA1\xBF").find(static_cast<char>(before.c)) !=
             std::string::npos;
}

bool stops(Way way, const std::string& file, std::size_t at) {
  const auto look = [&](std::size_t place) {
    Character found = read(way, file, place);
    if (found.point < 0 && way == Way::utf8) found = read(Way::bytes, file, place);
    return found;
  };
  const Character after = look(at);
  if (after.point < 0 || after.c < 0) return true;
  if (is_letter_or_digit(after.c) || after.c == '_' || after.c == '-') return false;
  if (after.c != '.') return true;
  const Character next = look(at + after.size);
  return next.point < 0 || !is_letter_or_digit(next.c);
}

bool length_stands(const std::string& file, std::size_t begin, std::size_t end, std::size_t letters,
                   bool wide) {
  const std::size_t bytes = end - begin;
  for (const std::size_t length : {letters, letters + 1, bytes, bytes + (wide ? 2 : 1)}) {
    for (const std::size_t width : {1u, 2u, 4u}) {
      std::string written;
      std::size_t rest = length;
      for (std::size_t i = 0; i < width; ++i, rest /= 256) {
        written += static_cast<char>(static_cast<unsigned char>(rest % 256));
      }
      if (rest == 0 && begin >= width && file.compare(begin - width, width, written) == 0) {
        return true;
      }
    }
  }
  return false;
}

struct Before {
  std::optional<std::size_t> drive;
  std::optional<std::size_t> run;
};

Before before_name(Way way, const std::string& file, std::size_t begin) {
  const std::size_t unit = way == Way::wide ? 2 : 1;
  const Way plain = way == Way::wide ? Way::wide : Way::bytes;
  Before found;
  for (std::size_t at = begin;; at -= unit) {
    if (begin - at > 12'288) return found;
    const auto is = [&](std::size_t place, const std::string& which) {
      const Character c = read(plain, file, place);
      return place < begin && c.c > 0 && which.find(static_cast<char>(c.c)) != std::string::npos;
    };
    if (is(at, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz") && is(at + unit, ":") &&
        is(at + 2 * unit, "\\/")) {
      found.drive = at;
      return found;
    }
    bool end_of_run = at < unit;
    if (!end_of_run) {
      const int c = read(plain, file, at - unit).c;
      end_of_run = impossible(c) && c != '\\' && c != '/' && c != ':';
    }
    if (end_of_run) {
      if (begin - at < 12'288) found.run = at;
      return found;
    }
  }
}

bool path_length_stands(Way way, const std::string& file, std::size_t begin, std::size_t end) {
  if (way == Way::wide) return length_stands(file, begin, end, (end - begin) / 2, true);
  std::size_t letters = 0;
  const std::string path = file.substr(begin, end - begin);
  for (std::size_t at = 0; at < path.size(); ++letters) {
    const Character c = read(Way::utf8, path, at);
    if (c.point < 0) return length_stands(file, begin, end, end - begin, false);
    at += c.size;
  }
  return length_stands(file, begin, end, letters, false);
}

bool mentioned(Way way, const std::string& file, std::size_t begin, std::size_t end,
               std::size_t letters) {
  if (length_stands(file, begin, end, letters, way == Way::wide)) return true;
  if (!starts(way, file, begin)) return false;
  if (way == Way::wide ? stops(way, file, end)
                       : stops(Way::bytes, file, end) || stops(Way::utf8, file, end)) {
    return true;
  }
  const Before before = before_name(way, file, begin);
  if (before.drive && path_length_stands(way, file, *before.drive, end)) return true;
  const std::size_t unit = way == Way::wide ? 2 : 1;
  for (std::size_t more = 0; before.run && more <= unit; more += unit) {
    if (*before.run + more <= begin && path_length_stands(way, file, *before.run + more, end)) {
      return true;
    }
  }
  return false;
}

// A part of the file in the code page; nothing where it does not fit.
std::optional<std::string> reading(Way way, const std::string& part) {
  std::string text;
  for (std::size_t at = 0; at < part.size();) {
    const Character c = read(way, part, at);
    if (c.point < 0 || c.c < 0) return std::nullopt;
    text += static_cast<char>(c.c);
    at += c.size;
  }
  return text;
}

LiteralMention mention(Way way, const std::string& file, std::size_t name, std::size_t begin,
                       std::size_t end, bool firm) {
  const Before before = before_name(way, file, begin);
  if (!before.drive) return {name, "", "", firm};
  const std::string own = reading(way, file.substr(begin, end - begin)).value();
  const std::string folder = file.substr(*before.drive, begin - *before.drive);
  if (way == Way::wide) {
    const auto wide = reading(way, folder);
    return {name, wide ? *wide + own : "", "", firm};
  }
  const auto utf8 = reading(Way::utf8, folder);
  return {name, folder + own, utf8 && *utf8 != folder ? *utf8 + own : "", firm};
}

bool ascii(int c) {
  return c >= 0 && c < 128;
}

}  // namespace

bool literally_short(std::string short_name, std::string name) {
  short_name = text::lower(short_name);
  name = text::lower(name);
  const auto split = [](const std::string& whole) {
    const auto dot = whole.rfind('.');
    return std::pair(whole.substr(0, dot), whole.substr(dot + 1));
  };
  const auto [base, extension] = split(name);
  const auto [short_base, short_extension] = split(short_name);

  // The extension: its first three characters, with odd ones dropped, as "_" or as they are.
  const auto first_three = [](const std::string& text) { return text.substr(0, 3); };
  std::string dropped;
  std::string marked;
  for (const char c : extension) {
    const bool odd = c != ' ' && ascii(static_cast<unsigned char>(c)) && !std::isalnum(c);
    if (c != ' ' && !odd) dropped += c;
    if (c != ' ') marked += odd ? '_' : c;
  }
  if (short_extension.empty() ||
      (short_extension != first_three(dropped) && short_extension != first_three(marked) &&
       short_extension != first_three(extension))) {
    return false;
  }

  // The base: some characters, "~" and a number.
  const auto tilde = short_base.rfind('~');
  if (short_base.size() > 8 || tilde == std::string::npos || tilde == 0 || tilde > 6) return false;
  const std::string number = short_base.substr(tilde + 1);
  if (number.empty()) return false;
  for (const char c : number) {
    if (c < '0' || c > '9') return false;
  }
  const std::string stem = short_base.substr(0, tilde);
  if (stem.find(' ') != std::string::npos || stem.find('.') != std::string::npos) return false;

  // Letter by letter, without odd characters; from one outside of ASCII on anything is possible.
  // What stands after the sixth letter of a name has no influence.
  const auto fits = [&base = base](const std::string& begin) {
    std::size_t at = 0;
    std::size_t compared = 0;
    for (const char c : begin) {
      if (!ascii(static_cast<unsigned char>(c))) return true;
      if (!std::isalnum(c)) continue;
      while (at < base.size() && ascii(static_cast<unsigned char>(base[at])) &&
             !std::isalnum(base[at])) {
        ++at;
      }
      if (at == base.size()) return false;
      if (!ascii(static_cast<unsigned char>(base[at]))) return true;
      if (base[at] != c) return false;
      ++at;
      if (++compared == 6) return true;
    }
    return true;
  };
  if (fits(stem)) return true;
  if (stem.size() < 5) return false;
  for (const char c : stem.substr(stem.size() - 4)) {
    if (!std::isxdigit(static_cast<unsigned char>(c))) return false;
  }
  return fits(stem.substr(0, stem.size() - 4));
}

std::set<LiteralMention> literal_mentions(const std::vector<std::string>& names,
                                          const std::string& file) {
  std::set<LiteralMention> found;
  std::vector<std::string> folded;
  std::size_t longest = 12;  // a short name
  for (const std::string& name : names) {
    const auto dot = name.rfind('.');
    const bool has_extension = dot != std::string::npos && dot + 1 < name.size();
    folded.push_back(has_extension ? text::lower(name) : "");
    longest = std::max(longest, name.size());
  }
  for (const Way way : {Way::bytes, Way::utf8, Way::wide}) {
    for (std::size_t begin = 0; begin < file.size(); ++begin) {
      // The text from here on, character by character.
      std::string text;
      std::size_t end = begin;
      while (text.size() < longest) {
        const Character c = read(way, file, end);
        if (c.point < 0 || c.c < 0 || impossible(c.c)) break;
        text += text::lower(static_cast<char>(c.c));
        end += c.size;
        const bool may_be_short = text.size() <= 12 && text.find('~') != std::string::npos &&
                                  text.find('.') != std::string::npos;
        std::optional<bool> here;
        for (std::size_t i = 0; i < names.size(); ++i) {
          if (folded[i].empty()) continue;
          const bool same = folded[i] == text;
          const bool cut = may_be_short && literally_short(text, folded[i]);
          if (!same && !cut) continue;
          if (!here) here = mentioned(way, file, begin, end, text.size());
          if (*here) {
            found.insert(mention(way, file, i, begin, end, true));
          } else if (starts(way, file, begin) && read(way, file, end).c != '.') {
            // Only a path can make up for the missing end.
            const LiteralMention loose = mention(way, file, i, begin, end, false);
            if (!std::get<1>(loose).empty()) found.insert(loose);
          }
        }
      }
    }
  }
  return found;
}

}  // namespace ordelan::test
