// Reads the rows of another program's list. The real list keeps no texts: it is asked by message,
// and answers with another.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace ordelan::test {

struct Rows {
  std::size_t count = 0;           // how many the list has
  std::vector<std::wstring> rows;  // those that were asked for
};

// Row `index`, or all of them for -1. Nothing when the list gives no answer in time.
std::optional<Rows> read_rows(HWND list, int index = -1);

}  // namespace ordelan::test
