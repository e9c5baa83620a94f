#include "settings/ini_text.h"

#include <initializer_list>

#include "text/code_page.h"

namespace ordelan::settings {
namespace {

bool blank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view unquoted(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

// A line of the text; `end` is the offset after its line end.
struct Line {
  std::size_t begin;
  std::size_t end;
  std::string_view content;  // without blanks at its ends
};

class Lines {
 public:
  explicit Lines(std::string_view text) : text_(text) {}

  bool next(Line& line) {
    if (at_ >= text_.size()) return false;
    const auto feed = text_.find('\n', at_);
    const auto end = feed == std::string_view::npos ? text_.size() : feed + 1;
    const auto stop = feed == std::string_view::npos ? text_.size() : feed;
    line = {at_, end, trimmed(text_.substr(at_, stop - at_))};
    at_ = end;
    return true;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

// The name of the section that a line opens; nothing if it opens none.
std::optional<std::string_view> section_of(std::string_view line) {
  if (line.empty() || line.front() != '[') return std::nullopt;
  const auto close = line.rfind(']');
  if (close == std::string_view::npos) return std::nullopt;
  return trimmed(line.substr(1, close - 1));
}

// Whether two names are equal with case ignored. In UTF-8 a letter and its capital have the same
// length; names with characters that the code page lacks are equal only byte by byte.
bool same_name(std::string_view a, std::string_view b, TextCode code) {
  if (a == b) return true;
  if (code == TextCode::code_page) return text::equal_ignoring_case(a, b);
  if (a.size() != b.size()) return false;
  const auto page_a = text::from_utf8(a);
  const auto page_b = text::from_utf8(b);
  return page_a && page_b && text::equal_ignoring_case(*page_a, *page_b);
}

// Where the value begins in a line that holds the key (without blanks at its ends); nothing in
// other lines. Windows' own calls end a key at the first "=" of its line: they never find one that
// holds a "=" (the label of a volume may), and add a line at every write. The program must not, so
// the line of a key begins with the whole key.
std::optional<std::size_t> value_in(std::string_view line, std::string_view key, TextCode code) {
  const auto equals = line.find('=', key.size());
  if (equals == std::string_view::npos) return std::nullopt;
  const std::string_view name = trimmed(line.substr(0, equals));
  if (name.size() != key.size() || !same_name(name, key, code)) return std::nullopt;
  return equals + 1;
}

// Where a key stands, or where it would be put.
struct Spot {
  bool in_section = false;      // the section exists
  std::optional<Line> line;     // the key's line
  std::size_t value = 0;        // where the value begins in the line's content
  std::size_t section_end = 0;  // after the section's last line that is not empty
};

// `key` has no blanks at its ends.
Spot find(std::string_view text, std::string_view section, std::string_view key, TextCode code) {
  Spot spot;
  Lines lines(text);
  Line line{};
  while (lines.next(line)) {
    if (const auto name = section_of(line.content)) {
      if (spot.in_section) return spot;
      spot.in_section = same_name(*name, section, code);
      spot.section_end = line.end;
      continue;
    }
    if (!spot.in_section || line.content.empty()) continue;
    spot.section_end = line.end;
    if (line.content.front() == ';') continue;
    if (const auto value = value_in(line.content, key, code)) {
      spot.line = line;
      spot.value = *value;
      return spot;
    }
  }
  return spot;
}

bool fits_one_line(std::string_view text) {
  return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

std::string_view line_end_of(std::string_view text) {
  const auto feed = text.find('\n');
  const bool bare = feed != std::string_view::npos && (feed == 0 || text[feed - 1] != '\r');
  return bare ? "\n" : "\r\n";
}

}  // namespace

std::optional<std::string> ini_value(std::string_view text, std::string_view section,
                                     std::string_view key, TextCode code) {
  const Spot spot = find(text, section, trimmed(key), code);
  if (!spot.line) return std::nullopt;
  return std::string(unquoted(trimmed(spot.line->content.substr(spot.value))));
}

std::string with_ini_value(std::string_view text, std::string_view section, std::string_view key,
                           std::string_view value, TextCode code) {
  if (!fits_one_line(key) || !fits_one_line(value)) return std::string(text);
  const std::string_view line_end = line_end_of(text);
  const std::string_view name = trimmed(key);
  const std::string_view blanks_after = key.substr(key.find_last_not_of(" \t") + 1);
  const Spot spot = find(text, section, name, code);
  // The key keeps the spelling that it has.
  const std::string_view spelling =
      spot.line ? trimmed(spot.line->content.substr(0, spot.value - 1)) : name;
  const std::size_t before = spot.line         ? spot.line->begin
                             : spot.in_section ? spot.section_end
                                               : text.size();
  const std::size_t after = spot.line ? spot.line->end : before;

  std::string result(text.substr(0, before));
  const auto add_line = [&](std::initializer_list<std::string_view> parts) {
    if (!result.empty() && result.back() != '\n') result += line_end;
    for (const std::string_view part : parts) result += part;
    result += line_end;
  };
  if (!spot.in_section) add_line({"[", section, "]"});
  add_line({spelling, blanks_after, "=", value});
  result += text.substr(after);
  // A key that cannot be found again would add a line each time.
  return find(result, section, name, code).line ? result : std::string(text);
}

}  // namespace ordelan::settings
