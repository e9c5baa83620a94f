#include "settings/ini_text.h"

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

// A line of the text; `end` is behind its line end.
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

// Where a key stands, or where it would be put.
struct Spot {
  bool in_section = false;      // the section is there
  std::optional<Line> line;     // the key's line
  std::size_t section_end = 0;  // behind the section's last line that is not empty
};

Spot find(std::string_view text, std::string_view section, std::string_view key) {
  Spot spot;
  Lines lines(text);
  Line line{};
  while (lines.next(line)) {
    if (const auto name = section_of(line.content)) {
      if (spot.in_section) return spot;
      spot.in_section = text::equal_ignoring_case(*name, section);
      spot.section_end = line.end;
      continue;
    }
    if (!spot.in_section || line.content.empty()) continue;
    spot.section_end = line.end;
    if (line.content.front() == ';') continue;
    const auto equals = line.content.find('=');
    if (equals == std::string_view::npos) continue;
    if (text::equal_ignoring_case(trimmed(line.content.substr(0, equals)), trimmed(key))) {
      spot.line = line;
      return spot;
    }
  }
  return spot;
}

std::string_view line_end_of(std::string_view text) {
  const auto feed = text.find('\n');
  const bool bare = feed != std::string_view::npos && (feed == 0 || text[feed - 1] != '\r');
  return bare ? "\n" : "\r\n";
}

}  // namespace

std::optional<std::string> ini_value(std::string_view text, std::string_view section,
                                     std::string_view key) {
  const Spot spot = find(text, section, key);
  if (!spot.line) return std::nullopt;
  const auto equals = spot.line->content.find('=');
  return std::string(unquoted(trimmed(spot.line->content.substr(equals + 1))));
}

std::string with_ini_value(std::string_view text, std::string_view section, std::string_view key,
                           std::string_view value) {
  const std::string_view line_end = line_end_of(text);
  const Spot spot = find(text, section, key);
  std::string result;
  const auto add_line = [&](std::string_view a, std::string_view b, std::string_view c) {
    if (!result.empty() && result.back() != '\n') result += line_end;
    result.append(a).append(b).append(c).append(line_end);
  };
  if (spot.line) {
    // The key keeps the spelling that it has.
    const std::string_view content = spot.line->content;
    result = text.substr(0, spot.line->begin);
    add_line(trimmed(content.substr(0, content.find('='))), "=", value);
    return result.append(text.substr(spot.line->end));
  }
  if (spot.in_section) {
    result = text.substr(0, spot.section_end);
    add_line(trimmed(key), "=", value);
    return result.append(text.substr(spot.section_end));
  }
  result = text;
  add_line("[", section, "]");
  add_line(trimmed(key), "=", value);
  return result;
}

}  // namespace ordelan::settings
