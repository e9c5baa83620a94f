#include "app/argument_path.h"

#include <algorithm>
#include <vector>

#include "text/code_page.h"

namespace ordelan::app {
namespace {

constexpr std::string_view kSeparators = "\\/";

bool is_separator(char c) {
  return kSeparators.find(c) != std::string_view::npos;
}

}  // namespace

bool has_drive(std::string_view path) {
  if (path.size() < 2 || path[1] != ':') return false;
  return (path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z');
}

std::string full_path(std::string_view path) {
  if (!has_drive(path) || (path.size() > 2 && !is_separator(path[2]))) return std::string(path);
  const bool ends_open = is_separator(path.back());
  std::vector<std::string_view> names;
  for (std::string_view rest = path.substr(2); !rest.empty();) {
    const std::string_view name = rest.substr(0, rest.find_first_of(kSeparators));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != ".") {
      names.push_back(name);
    }
  }
  std::string full(path.substr(0, 2));
  for (const std::string_view name : names) full.append("\\").append(name);
  if (names.empty() || ends_open) full += '\\';
  return full;
}

ArgumentPath drive_path(const std::string& argument) {
  const auto ansi = text::from_utf8(argument);
  return ansi ? ArgumentPath::of(full_path(*ansi)) : ArgumentPath::none(kNotInCodePage);
}

}  // namespace ordelan::app
