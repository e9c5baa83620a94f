// Folders whose files stay although nothing uses them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ordelan::removal {

// Whether the list of protected folders keeps a path. Of each folder the piece from the third
// character on, without the last one, is looked for anywhere in the path, letter case respected. So
// the drive does not matter, a folder protects its neighbours whose names begin like its own, and
// the root of a drive protects everything. It stays so because lists that users have stored rely on
// it: a folder moved to another drive is still protected.
bool is_protected(std::string_view path, const std::vector<std::string>& folders);

// The first of `folders` in which or below which the path lies, letter case and spelling ignored;
// empty if there is none. The careful companion of `is_protected`, which misses a folder that is
// spelt in other letter case.
std::string folder_around(std::string_view path, const std::vector<std::string>& folders);

}  // namespace ordelan::removal
