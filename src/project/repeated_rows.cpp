#include "project/repeated_rows.h"

#include <string_view>

#include "text/row_table.h"

namespace ordelan::project {

std::vector<bool> repeated_rows(const std::vector<std::string>& rows,
                                const std::function<bool(const std::string&)>& exempt,
                                const std::function<void()>& turn) {
  constexpr std::size_t kRowsBetweenTurns = 4096;
  text::RowTable seen(rows.size());
  const auto text_of = [&](text::RowTable::Row row) { return std::string_view(rows[row]); };
  std::vector<bool> repeated(rows.size(), false);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i % kRowsBetweenTurns == 0) turn();
    if (!exempt(rows[i])) {
      const auto row = static_cast<text::RowTable::Row>(i);
      repeated[i] = seen.put(row, text_of) != text::RowTable::kNone;
    }
  }
  return repeated;
}

}  // namespace ordelan::project
