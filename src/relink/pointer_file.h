// Pointer files: the numbers of a walk over one project, for the pass that overwrites its paths.
// Text, one number a line, as docs/format-ptr.md describes it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::relink {

// The name of the pointer file of a row of ListProyectos, as the pass that writes it makes it and
// as the pass that reads it back does. Both give the same name for every row of a Windows path,
// which holds no ">" of its own.
std::string written_pointer_name(std::string_view row);
std::string read_pointer_name(std::string_view row);

// One number as a line: a blank in the place of the sign, the digits, a blank, CR LF.
std::string pointer_line(std::int64_t number);

// Where a path stands: the 1-based positions of its first and its last byte. What a pointer file
// holds need not be that: `ini` may stand after `fin`, or `fin` be 0.
struct Pointer {
  std::int32_t ini = 0;
  std::int32_t fin = 0;
  bool operator==(const Pointer&) const = default;
};

// What a pointer file holds. Blanks around the numbers, any line ends and a last line without one
// will do.
struct Pointers {
  std::vector<Pointer> pairs;
  bool odd = false;      // a last number has no partner
  bool damaged = false;  // a line is no number of 32 bits: what follows it is not read
};
Pointers read_pointers(std::string_view bytes);

}  // namespace ordelan::relink
