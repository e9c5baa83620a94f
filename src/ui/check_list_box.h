// A list of rows of which only the boxes are seen, one a row. It stands beside a list of texts with
// the same rows.
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "ui/list_box.h"

namespace ordelan::ui {

class CheckListBox final : public ListBox {
 public:
  using ListBox::ListBox;
  ~CheckListBox() override;
  void attach(Backend& backend) override;

  // Makes these the boxes of `list`, a list of the same window: they are shown in its room to the
  // left, as high as its rows, and what the keyboard and the mouse's wheel do to them is done to
  // the list. Both scroll on their own. To be called before the window is loaded; the list must be
  // destroyed after the boxes.
  void stand_beside(ListBox& list);
  // The list of texts; null if there is none.
  ListBox* beside() const { return beside_; }

  // Whether the row's box is ticked; false past the end.
  bool ticked(std::size_t index) const { return index < ticks_.size() && ticks_[index]; }
  // Nothing happens past the end.
  void set_ticked(std::size_t index, bool ticked);
  bool all_ticked() const { return std::find(ticks_.begin(), ticks_.end(), false) == ticks_.end(); }
  void tick_all();
  // The user's click on a box: changes the tick and raises `on_tick`.
  void toggle(std::size_t index);

  // New rows are not ticked.
  void fill(Rows rows);
  void fill(const ListBox& other);
  // Take rows out with their boxes.
  void clear();
  void remove(std::size_t index);

  std::function<void(std::size_t)> on_tick;

 private:
  // Rows come and go by the functions above alone, or boxes and rows would no longer agree.
  using ListBox::add;
  using ListBox::remove_if;
  using ListBox::replace;
  using ListBox::share;
  using ListBox::take;

  std::vector<bool> ticks_;
  ListBox* beside_ = nullptr;
};

}  // namespace ordelan::ui
