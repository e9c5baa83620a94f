#include "text/rows.h"

#include "text/code_page.h"

namespace ordelan::text {

std::string project_row(std::size_t number, std::string_view path) {
  std::string row = std::to_string(number);
  row += " --> ";
  row += path;
  return row;
}

std::string_view after_arrow(std::string_view row) {
  const auto arrow = row.find('>');
  return arrow == std::string_view::npos ? row : trim_left(row.substr(arrow + 1));
}

bool is_file_row(std::string_view row) {
  return row.find('>') == std::string_view::npos &&
         row.find("----------") == std::string_view::npos;
}

std::string row_with_reason(const std::string& path, const std::string& reason) {
  return path + "   (" + reason + ")";
}

}  // namespace ordelan::text
