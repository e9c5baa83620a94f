// Where the rows of a reading go.
#pragma once

#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "ui/list_box.h"

namespace ordelan::project {

// Takes rows, in the order in which they were found.
using RowSink = std::function<void(std::vector<std::string> rows)>;

// Adds them at the end of a list, which must outlive the sink.
inline RowSink into(ui::ListBox& list) {
  return [&list](std::vector<std::string> rows) { list.add(std::move(rows)); };
}
inline RowSink into(std::vector<std::string>& list) {
  return [&list](std::vector<std::string> rows) {
    list.insert(list.end(), std::make_move_iterator(rows.begin()),
                std::make_move_iterator(rows.end()));
  };
}

// For a caller that only asks whether there is any row.
inline RowSink nowhere() {
  return [](std::vector<std::string>) {};
}

}  // namespace ordelan::project
