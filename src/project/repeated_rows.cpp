#include "project/repeated_rows.h"

#include <string_view>
#include <unordered_set>

namespace ordelan::project {

std::vector<bool> repeated_rows(const std::vector<std::string>& rows,
                                const std::function<bool(const std::string&)>& exempt,
                                const std::function<void()>& turn) {
  constexpr std::size_t kRowsBetweenTurns = 4096;
  std::unordered_set<std::string_view> seen;
  seen.reserve(rows.size());
  std::vector<bool> repeated(rows.size(), false);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i % kRowsBetweenTurns == 0) turn();
    if (!exempt(rows[i])) repeated[i] = !seen.insert(rows[i]).second;
  }
  return repeated;
}

}  // namespace ordelan::project
