// Files that are long but take no room.
#pragma once

#include <cstdint>
#include <filesystem>

namespace ordelan::test {

// Makes a file that is there that long; what is new in it is NULs. Throws when it cannot.
inline void lengthen(const std::filesystem::path& file, std::uint64_t length) {
  std::filesystem::resize_file(file, length);
}

}  // namespace ordelan::test
