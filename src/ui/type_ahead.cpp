#include "ui/type_ahead.h"

#include <algorithm>

#include "text/code_page.h"
#include "text/rows.h"

namespace ordelan::ui {
namespace {

bool begins_with(std::string_view name, std::string_view letters) {
  return name.size() >= letters.size() &&
         std::equal(letters.begin(), letters.end(), name.begin(),
                    [](char letter, char byte) { return letter == text::lower(byte); });
}

}  // namespace

std::string_view typed_name(std::string_view row) {
  const std::size_t backslash = row.rfind('\\');
  return backslash == std::string_view::npos ? text::after_arrow(row) : row.substr(backslash + 1);
}

int find_by_name(const std::vector<std::string>& rows, std::string_view letters,
                 std::size_t start) {
  const std::size_t count = rows.size();
  if (start >= count) start = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = i < count - start ? start + i : i - (count - start);
    if (begins_with(typed_name(rows[row]), letters)) return static_cast<int>(row);
  }
  return -1;
}

int TypeAhead::type(char letter, std::uint32_t milliseconds, const std::vector<std::string>& rows,
                    int current) {
  if (milliseconds - last_ > kJoined) letters_.clear();
  last_ = milliseconds;
  letters_.push_back(text::lower(letter));
  if (letters_.find_first_not_of(letters_.front()) == std::string::npos) {
    return find_by_name(rows, {letters_.data(), 1}, static_cast<std::size_t>(current + 1));
  }
  return find_by_name(rows, letters_, static_cast<std::size_t>(std::max(current, 0)));
}

}  // namespace ordelan::ui
