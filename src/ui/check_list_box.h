// A list of rows with a box each.
#pragma once

#include <functional>
#include <vector>

#include "ui/list_box.h"

namespace ordelan::ui {

class CheckListBox final : public ListBox {
 public:
  using ListBox::ListBox;

  // Whether the row's box is ticked; false past the end.
  bool ticked(std::size_t index) const { return index < ticks_.size() && ticks_[index]; }
  // Nothing happens past the end.
  void set_ticked(std::size_t index, bool ticked);
  void tick_all();
  // The user's click on a box: changes the tick and raises `on_tick`.
  void toggle(std::size_t index);

  // New rows are not ticked.
  void fill(Rows rows);
  // Take rows out with their boxes.
  void clear();
  void remove(std::size_t index);

  std::function<void(std::size_t)> on_tick;

 private:
  // Rows come and go by the functions above alone, or boxes and rows would no longer agree.
  using ListBox::add;
  using ListBox::remove_if;
  using ListBox::replace;
  using ListBox::take;

  std::vector<bool> ticks_;
};

}  // namespace ordelan::ui
