// The grammar of list rows. A row's text is the only record of what the row stands for.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ordelan::text {

// A project's row: its number, " --> " and its full path.
std::string project_row(std::size_t number, std::string_view path);

// What follows the first ">" of a row, without the blanks before it; the row itself when it has
// no ">".
std::string_view after_arrow(std::string_view row);

// Whether the row names a file: rows that hold ">" or "----------" are titles and separators.
bool is_file_row(std::string_view row);

// The row of a path that is listed with the reason why: "<path>   (<reason>)".
std::string row_with_reason(const std::string& path, const std::string& reason);

}  // namespace ordelan::text
