// Which rows of a list are marked.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace ordelan::ui {

class RowMarks {
 public:
  // Whether the row is marked; false past the end.
  bool has(std::size_t row) const { return row < marked_.size() && marked_[row]; }
  std::size_t count() const { return count_; }
  bool empty() const { return count_ == 0; }

  void clear() {
    marked_.clear();
    count_ = 0;
  }

  // Marks a row of a list of `rows` rows, or takes its mark away.
  void set(std::size_t row, bool marked, std::size_t rows) {
    if (row >= rows || has(row) == marked) return;
    marked_.resize(rows);
    marked_[row] = marked;
    marked ? ++count_ : --count_;
    if (empty()) clear();
  }

  // Marks all rows from the one to the other, both included, of a list of `rows` rows.
  void set_range(std::size_t one, std::size_t other, std::size_t rows) {
    const std::size_t last = std::max(one, other);
    if (last >= rows) return;
    marked_.resize(rows);
    for (std::size_t row = std::min(one, other); row <= last; ++row) {
      if (!marked_[row]) ++count_;
      marked_[row] = true;
    }
  }

  friend bool operator==(const RowMarks&, const RowMarks&) = default;

 private:
  std::vector<bool> marked_;  // as many as there are rows, or none
  std::size_t count_ = 0;
};

}  // namespace ordelan::ui
