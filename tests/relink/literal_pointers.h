// The walk that finds where the paths of a project stand, byte by byte and one byte a read: slow,
// plain, and what the fast walk is compared with.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::test {

struct LiteralPointers {
  std::int64_t PosFinalVip = 0;       // the last position that is looked at
  std::vector<std::int64_t> numbers;  // in the order in which they are printed
  std::vector<bool> ends;             // of each number, whether it is the end of a path
  std::set<std::int64_t> in_path;     // the positions that are looked at for a path's end
  // The first of those where no path began, but the one before it was empty: a walk that is stopped
  // there has written whole pairs too.
  std::set<std::int64_t> at_its_edge;
  std::string text;  // the pointer file
};

// Walks over the bytes of a whole project, marker search included.
LiteralPointers literal_pointers(std::string_view file);

// The same with a limit from elsewhere.
LiteralPointers literal_pointers(std::string_view file, std::int64_t PosFinalVip);

// What the marker "LIST....mdrl" limits the walk to, searched from `Desde` on; 0 without a marker.
std::int64_t literal_limit(std::string_view file, std::int64_t Desde);

// The name of a row's pointer file by the road of the pass that writes it, and by that of the pass
// that reads it.
std::string literal_written_name(std::string row);
std::string literal_read_name(std::string row);

}  // namespace ordelan::test
