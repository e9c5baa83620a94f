// Going to a row of a list by the first letters of its file name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::ui {

// What typed letters are compared with: what stands after the row's last backslash. A row without
// one is compared as a whole, or from its arrow on.
std::string_view typed_name(std::string_view row);

// The first row from `start` on, and then from the first row on, whose name begins with these
// letters; -1 for none. `letters` are in lower case, rows in any.
int find_by_name(const std::vector<std::string>& rows, std::string_view letters, std::size_t start);

// The letters that the user types one after the other.
class TypeAhead {
 public:
  // Letters belong together when each comes within a second of the one before.
  static constexpr std::uint32_t kJoined = 1000;  // milliseconds

  // Takes one more letter, in any case, at a time in milliseconds that may have begun again at 0
  // since the last. Gives the row to go to from the current row, which is -1 for none; -1 where no
  // name begins so. One letter, also when it is typed again and again, goes on to the next row that
  // begins with it; several stay where they are as long as that row fits.
  int type(char letter, std::uint32_t milliseconds, const std::vector<std::string>& rows,
           int current);

 private:
  std::string letters_;
  std::uint32_t last_ = 0;
};

}  // namespace ordelan::ui
