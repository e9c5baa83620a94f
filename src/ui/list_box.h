// A list of text rows. The list owns its rows: no code reads them from the real control, and a
// backend fetches only the rows that it paints.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"

namespace ordelan::ui {

class CheckListBox;

class ListBox : public Control {
 public:
  using Rows = std::vector<std::string>;

  ListBox(Window& window, std::string name, int index = -1);
  void attach(Backend& backend) override;

  const Rows& rows() const { return *rows_; }
  // The rows as they are now. They stay so even if the list changes meanwhile: they
  // are copied only then.
  std::shared_ptr<const Rows> kept_rows() const { return rows_; }
  std::size_t count() const { return rows_->size(); }
  bool empty() const { return rows_->empty(); }
  // The row's text; empty past the end.
  const std::string& row(std::size_t index) const;

  // Adds a row at the end. A row's text ends at its first NUL.
  void add(std::string_view row);
  void add(Rows rows);
  // Takes the rows of another list in place of its own. They are not copied before one of the two
  // lists changes.
  void share(const ListBox& other);
  void clear();
  // Empties the list and gives its rows.
  Rows take();
  // Takes out one row, or nothing past the end. The current row keeps its number.
  void remove(std::size_t index);
  // Takes out every row for which `unwanted` is true (by index), all at once.
  void remove_if(const std::function<bool(std::size_t)>& unwanted);
  void replace(std::size_t index, std::string_view row);

  // The row that the user chose last, -1 for none.
  int current() const { return current_; }
  void set_current(int index);
  // The user's choice; the peer is not notified.
  void chosen(int index, bool by_key = false) {
    current_ = index;
    chosen_by_key_ = by_key;
  }
  // Whether the last choice of the user's was made with the keyboard.
  bool chosen_by_key() const { return chosen_by_key_; }
  // The text of the current row; empty if there is none.
  const std::string& current_row() const;

  // The first row in sight.
  std::size_t top() const { return top_; }
  // Scrolls so that this row is the first, or as far as the list can be scrolled: if that is less,
  // `on_scroll` is raised.
  void set_top(std::size_t index);
  // The real list has another first row now; the peer is not notified.
  void scrolled(std::size_t top) { top_ = top; }

  // Room to the left of every row that is not scrolled with the text; to be set before the window
  // is loaded.
  int indent() const { return indent_; }
  void set_indent(int width) { indent_ = width; }

  // The boxes that stand in that room; null for none. See `CheckListBox::stand_beside`.
  CheckListBox* boxes() const { return boxes_; }

  // How far the rows can be scrolled sideways, in pixels as they are painted.
  int horizontal_extent() const { return extent_; }
  void set_horizontal_extent(int pixels) { assign(extent_, pixels, Aspect::extent); }

  // Whether files may be dropped here; to be set before the window is loaded.
  bool accepts_drops() const { return static_cast<bool>(on_drop); }

  // Another row has become the first in sight, by the user or because rows or the choice changed.
  std::function<void()> on_scroll;
  std::function<void()> on_right_click;
  // The left button was pressed below the last row. The current row stays.
  std::function<void()> on_click_below;
  std::function<void(int key_code)> on_key;
  // Full paths of dropped files and folders, in the order given. Empty when something was dropped
  // that is no file list.
  std::function<void(std::vector<std::string>)> on_drop;

 private:
  friend class CheckListBox;

  Rows& own_rows();
  void changed();

  std::shared_ptr<Rows> rows_ = std::make_shared<Rows>();  // changed by `own_rows` alone
  int current_ = -1;
  bool chosen_by_key_ = false;
  std::size_t top_ = 0;
  int extent_ = 0;
  int indent_ = 0;
  CheckListBox* boxes_ = nullptr;
};

}  // namespace ordelan::ui
