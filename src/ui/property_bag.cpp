#include "ui/property_bag.h"

#include <charconv>
#include <optional>
#include <utility>

#include "ui/control.h"
#include "ui/window.h"

namespace ordelan::ui {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::uint32_t kSystemColors = 0x80000000;

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool can_be_a_name(std::string_view name) {
  return !name.empty() && trimmed(name) == name && name.front() != '#' && name.front() != '[' &&
         name.find_first_of("=\r\n") == std::string_view::npos;
}

// The next line of a text, without its end. The text loses it.
std::string_view take_a_line(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

template <class Number>
std::optional<Number> number(std::string_view text, int base = 10) {
  Number value{};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value, base);
  if (error != std::errc() || rest != end) return std::nullopt;
  return value;
}

template <class Number>
Number number_or(const std::string* text, Number fallback) {
  return text ? number<Number>(trimmed(*text)).value_or(fallback) : fallback;
}

bool is_a_color(std::uint32_t word) {
  return word <= 0xFFFFFF || (word >= kSystemColors && word <= kSystemColors + 0xFF);
}

std::string hex(std::uint32_t word) {
  char digits[8];
  const auto [end, error] = std::to_chars(digits, digits + sizeof digits, word, 16);
  std::string text(digits, end);
  for (char& digit : text) {
    if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
  }
  return "0x" + std::string(sizeof digits - text.size(), '0') + text;
}

// A text that may hold line breaks, on one line.
std::string escaped(std::string_view text) {
  std::string line;
  for (const char c : text) {
    if (c == '\\') {
      line += "\\\\";
    } else if (c == '\n') {
      line += "\\n";
    } else if (c == '\r') {
      line += "\\r";
    } else {
      line += c;
    }
  }
  return line;
}

// A backslash before anything else is only a backslash.
std::string unescaped(std::string_view line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char next = line[i] == '\\' && i + 1 < line.size() ? line[i + 1] : '\0';
    if (next != '\\' && next != 'n' && next != 'r') {
      text += line[i];
      continue;
    }
    text += next == 'n' ? '\n' : next == 'r' ? '\r' : '\\';
    ++i;
  }
  return text;
}

std::string section_of(std::string_view window, std::string_view control, int index) {
  std::string section = std::string(window) + "." + std::string(control);
  if (index >= 0) section += "(" + std::to_string(index) + ")";
  return section;
}

}  // namespace

PropertyBag PropertyBag::parse(std::string_view text) {
  PropertyBag bag;
  while (!text.empty()) bag.take_line(take_a_line(text));
  return bag;
}

void PropertyBag::take_line(std::string_view line) {
  const std::size_t mark = line.find('=');
  if (mark == std::string_view::npos) return;
  const std::string_view name = trimmed(line.substr(0, mark));
  if (can_be_a_name(name)) values_[std::string(name)] = line.substr(mark + 1);
}

bool PropertyBag::read(std::string_view name, bool fallback) const {
  const std::string* const value = find(name);
  if (!value) return fallback;
  const std::string_view word = trimmed(*value);
  return word == "true" || (word != "false" && fallback);
}

std::int16_t PropertyBag::read(std::string_view name, std::int16_t fallback) const {
  return number_or(find(name), fallback);
}

std::int32_t PropertyBag::read(std::string_view name, std::int32_t fallback) const {
  return number_or(find(name), fallback);
}

Color PropertyBag::read(std::string_view name, Color fallback) const {
  const std::string* const value = find(name);
  if (!value) return fallback;
  const std::string_view word = trimmed(*value);
  const bool is_hex = word.starts_with("0x");
  const auto color = number<std::uint32_t>(is_hex ? word.substr(2) : word, is_hex ? 16 : 10);
  return color && is_a_color(*color) ? static_cast<Color>(*color) : fallback;
}

std::string PropertyBag::read(std::string_view name, const std::string& fallback) const {
  const std::string* const value = find(name);
  return value ? unescaped(*value) : fallback;
}

void PropertyBag::write(std::string_view name, bool value, bool standard) {
  store(name, value ? "true" : "false", value == standard);
}
void PropertyBag::write(std::string_view name, std::int16_t value, std::int16_t standard) {
  store(name, std::to_string(value), value == standard);
}
void PropertyBag::write(std::string_view name, std::int32_t value, std::int32_t standard) {
  store(name, std::to_string(value), value == standard);
}
void PropertyBag::write(std::string_view name, Color value, Color standard) {
  store(name, hex(static_cast<std::uint32_t>(value)), value == standard);
}
void PropertyBag::write(std::string_view name, const std::string& value,
                        const std::string& standard) {
  store(name, escaped(value), value == standard);
}

void PropertyBag::store(std::string_view name, std::string value, bool standard) {
  if (!can_be_a_name(name)) return;
  if (!standard) {
    values_[std::string(name)] = std::move(value);
  } else if (const auto old = values_.find(name); old != values_.end()) {
    values_.erase(old);
  }
}

const std::string* PropertyBag::find(std::string_view name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? nullptr : &found->second;
}

std::string PropertyBag::text() const {
  std::string text;
  for (const auto& [name, value] : values_) text += name + "=" + value + "\n";
  return text;
}

PropertyBags PropertyBags::parse(std::string_view text) {
  PropertyBags bags;
  PropertyBag* current = nullptr;
  while (!text.empty()) {
    const std::string_view line = take_a_line(text);
    const std::string_view mark = trimmed(line);
    if (mark.starts_with('[')) {
      const std::size_t end = mark.find(']');
      const bool whole = end == mark.size() - 1;
      const std::string_view section = whole ? trimmed(mark.substr(1, end - 1)) : "";
      current = section.empty() ? nullptr : &bags.bags_[std::string(section)];
    } else if (current) {
      current->take_line(line);
    }
  }
  return bags;
}

const PropertyBag& PropertyBags::bag(std::string_view window, std::string_view control,
                                     int index) const {
  static const PropertyBag kNothing;
  const auto found = bags_.find(section_of(window, control, index));
  return found == bags_.end() ? kNothing : found->second;
}

const PropertyBag& PropertyBags::bag(const Control& control) const {
  return bag(control.window().name(), control.name(), control.index());
}

void PropertyBags::set(std::string_view window, std::string_view control, int index,
                       PropertyBag bag) {
  bags_[section_of(window, control, index)] = std::move(bag);
}

std::string PropertyBags::text() const {
  std::string text;
  for (const auto& [section, bag] : bags_) {
    if (!text.empty()) text += "\n";
    text += "[" + section + "]\n" + bag.text();
  }
  return text;
}

}  // namespace ordelan::ui
