// Striking out rows that stand in a list already.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace ordelan::project {

// Marks (true) every row that equals an earlier one, letter for letter. Rows for which `exempt` is
// true are never marked, and nothing is compared with them. `turn` is called now and then; it must
// leave `rows` alone.
std::vector<bool> repeated_rows(
    const std::vector<std::string>& rows,
    const std::function<bool(const std::string&)>& exempt =
        [](const std::string&) { return false; },
    const std::function<void()>& turn = [] {});

}  // namespace ordelan::project
