// A list of text rows. The list owns its rows: no code reads them from the real control, and a
// backend fetches only the rows that it paints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/control.h"
#include "ui/row_marks.h"
#include "ui/type_ahead.h"

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
  // The user's choice, which takes all marks away; the peer is not notified of the current row.
  void chosen(int index, bool by_key = false);
  // Whether the last choice of the user's was made with the keyboard.
  bool chosen_by_key() const { return chosen_by_key_; }
  // The text of the current row; empty if there is none.
  const std::string& current_row() const;

  // Whether keys only move the current row and raise `on_moved`. Where they do not, a row that they
  // move to is chosen as if it were clicked.
  bool keys_move() const { return keys_move_; }
  void set_keys_move(bool move) { keys_move_ = move; }

  // Whether the user can mark several rows. Without it a click with Ctrl or Shift is a plain one.
  bool markable() const { return markable_; }
  void set_markable(bool markable);

  // Rows are marked beside the current row, which remains the one: a click with Ctrl or Shift marks
  // and does not move it, a key with Shift moves it and marks what lies between. The first Ctrl
  // click marks the current row too: it is what the user has chosen so far. A plain click or a key
  // that moves takes all marks away, and so does any change of the rows: a mark never comes to lie
  // on a row that the user has not seen there. `set_current` leaves them.
  bool marked(std::size_t index) const { return marks_.has(index); }
  std::size_t marked_count() const { return marks_.count(); }
  // The texts of the marked rows in the order of the list; the current row where none is marked,
  // and nothing without one.
  Rows marked_rows() const;
  // By the program; no event is raised.
  void mark_all();
  void clear_marks();

  // The user's key, with the keys held with it (`kShiftKey`...): moves the current row, or marks.
  // `page` is how many rows are seen. False where the list has no use for the key: it is none that
  // moves, or keys do not move here.
  bool key_down(int code, int held, int page);
  // A letter that the user has typed: the current row moves to a file name that begins with it and
  // those that came less than a second before. Blanks and control characters are ignored, and all
  // where keys do not move.
  void typed(char letter, std::uint32_t milliseconds);
  // The user's click on a row with Ctrl or Shift held. False where that is a plain click.
  bool mark_click(int index, int held);

  // Whether the right button chooses the row under the pointer, as it does unless this is set.
  bool right_click_moves() const { return right_click_moves_; }
  void set_right_click_moves(bool moves) { right_click_moves_ = moves; }
  // The row under the pointer at the last click of the right button; -1 for none.
  int right_clicked() const { return right_clicked_; }
  void right_clicked_at(int index) { right_clicked_ = index; }

  // The row at a place of the list's, as events of the mouse report it; -1 for none.
  int row_at(Point place) const;
  // How high a row is in a list that is not shown; one that is shown measures its own.
  void set_row_height(int units) { row_height_ = units > 0 ? units : 1; }

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
  // A key has moved the current row, in a list where keys move.
  std::function<void()> on_moved;
  // The user has changed which rows are marked. It comes before `on_moved` or `on_click` where one
  // act raises both.
  std::function<void()> on_marked;
  // The Enter key, once a press, on a current row. `on_key` comes before it.
  std::function<void()> on_enter;
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
  int target(int code, int from, int page) const;
  void move_to(int index, RowMarks marks);

  std::shared_ptr<Rows> rows_ = std::make_shared<Rows>();  // changed by `own_rows` alone
  int current_ = -1;
  bool chosen_by_key_ = false;
  bool keys_move_ = false;
  bool markable_ = false;
  bool right_click_moves_ = true;
  RowMarks marks_;
  int anchor_ = -1;  // where a marked range begins and ends; -1 stands for the current row
  int reach_ = -1;
  TypeAhead type_ahead_;
  int right_clicked_ = -1;
  int row_height_ = 16;
  std::size_t top_ = 0;
  int extent_ = 0;
  int indent_ = 0;
  CheckListBox* boxes_ = nullptr;
};

}  // namespace ordelan::ui
