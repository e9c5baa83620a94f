// Files that are long but take no room.
#pragma once

#include <cstdint>
#include <filesystem>

namespace ordelan::test {

// Makes a file that is there that long; what is new in it is NULs. Throws when it cannot.
// (MinGW's own way to do so now and then calls a file of gigabytes too large.)
void lengthen(const std::filesystem::path& file, std::uint64_t length);

}  // namespace ordelan::test
