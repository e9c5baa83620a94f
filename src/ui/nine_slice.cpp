#include "ui/nine_slice.h"

#include <vector>

namespace ordelan::ui {
namespace {

// For each pixel of a line of the wanted length, the pixel of the line that it is taken from.
std::vector<std::size_t> sources(int length, int wanted) {
  std::vector<std::size_t> from;
  from.reserve(static_cast<std::size_t>(wanted));
  const int kept = length < wanted ? length : wanted;
  const int first = kept / 2;                  // of the near half
  const int second = wanted - (kept - first);  // where the far half begins
  for (int i = 0; i < wanted; ++i) {
    const int source = i < first ? i : i >= second ? i - wanted + length : length / 2;
    from.push_back(static_cast<std::size_t>(source));
  }
  return from;
}

}  // namespace

Pixels nine_sliced(const Pixels& picture, Size wanted) {
  if (picture.argb.empty() || wanted.width <= 0 || wanted.height <= 0) return {};
  Pixels result{wanted.width, wanted.height, {}};
  const auto width = static_cast<std::size_t>(picture.width);
  const std::vector<std::size_t> columns = sources(picture.width, wanted.width);
  result.argb.reserve(columns.size() * static_cast<std::size_t>(wanted.height));
  for (const std::size_t row : sources(picture.height, wanted.height)) {
    for (const std::size_t column : columns) {
      result.argb.push_back(picture.argb[row * width + column]);
    }
  }
  return result;
}

}  // namespace ordelan::ui
