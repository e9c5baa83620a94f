#include "text/wildcard.h"

#include <string>

#include "text/code_page.h"

namespace ordelan::text {
namespace {

bool fits(std::string_view pattern, std::string_view name) {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string_view::npos;
  std::size_t retry = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      retry = n;
    } else if (p < pattern.size() && (pattern[p] == '?' || lower(pattern[p]) == lower(name[n]))) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++retry;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace

bool matches(std::string_view pattern, std::string_view name) {
  if (pattern == "*" || pattern == "*.*") return true;
  if (fits(pattern, name)) return true;
  // A whole name is no search, and only searches find by short names.
  if (pattern.find_first_of("*?") == std::string_view::npos) return false;
  const auto pattern_dot = pattern.rfind('.');
  const auto name_dot = name.rfind('.');
  constexpr std::size_t kShortExtension = 3;
  if (pattern_dot == std::string_view::npos || name_dot == std::string_view::npos ||
      pattern.size() - pattern_dot - 1 != kShortExtension ||
      pattern.find('*', pattern_dot) != std::string_view::npos ||
      name.size() - name_dot - 1 <= kShortExtension) {
    return false;
  }
  return fits(pattern, name.substr(0, name_dot + 1 + kShortExtension));
}

}  // namespace ordelan::text
