// Where a control stands in its window. The look of a window is data, not code.
#pragma once

#include <string_view>

namespace ordelan::skin {

// In pixels at 96 dots per inch.
struct Place {
  std::string_view name;
  int index;  // in a control array; -1 for a control that stands alone
  int left;
  int top;
  int width;
  int height;
};

}  // namespace ordelan::skin
