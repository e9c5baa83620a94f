// What the tests do to files where the standard library is not up to it on every system.
#pragma once

#include <cstdint>
#include <filesystem>

namespace ordelan::test {

// Makes an existing file that long; what is new in it is NULs, which take no room. Throws when
// it cannot. (MinGW's library now and then calls a file of gigabytes too large.)
void lengthen(const std::filesystem::path& file, std::uint64_t length);

// Removes a folder (an absolute path) with all that is in it, however deep it lies. Links are
// removed, what they lead to stays; what cannot be removed is left. (MinGW's library stops where
// paths are longer than MAX_PATH.)
void remove_tree(const std::filesystem::path& folder);

}  // namespace ordelan::test
