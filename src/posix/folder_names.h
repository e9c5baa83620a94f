// The names in large folders, for the question which of them differs from a given one by case at
// most: Linux has no answer of its own but a look at all of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ordelan::posix {

// The entry of a folder whose name differs from `name`, code-page text, by case at most; of several
// the first by its bytes. Nothing where there is none, or where the folder cannot be read. `folder`
// is a native path.
//
// A folder of many entries that is asked about again and again is kept in memory, and the system
// reports each change of it: the answer is always that of a look at the folder.
std::optional<std::string> entry_ignoring_case(const std::string& folder, std::string_view name);

}  // namespace ordelan::posix
