// What can be done with the files that the rows of a list name, besides a click: their paths as
// text, their folder, their properties.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>

#include "system/platform.h"
#include "ui/button.h"
#include "ui/list_box.h"

namespace ordelan::work {

class RowCommands {
 public:
  // `button` shows the menu from now on. What it is given must outlive it.
  RowCommands(const system::Platform& platform, ui::ListBox& list, ui::Button& button);
  RowCommands(const RowCommands&) = delete;
  RowCommands& operator=(const RowCommands&) = delete;

  // Lets the user choose one of the commands: at the pointer, or at what has the focus.
  void show_menu(bool by_key) const;
  // The paths of the marked rows, or of the current one, go to the clipboard, a line each; those of
  // all rows. Rows that name no file are left out; without any the clipboard stays.
  void copy_path() const;
  void copy_all() const;
  // Where the file of the current row was found by a search, to the clipboard.
  void copy_found() const;
  // A search has found the file of that row there. All of it is forgotten by `forget_found`.
  void note_found(const std::string& row, const std::string& path) { found_[row] = path; }
  void forget_found() { found_.clear(); }
  // Opens the folder of the current row with its file chosen; the system's own sheet on that file.
  void open_folder() const;
  void show_properties() const;

  ui::ListBox& list() const { return list_; }

 private:
  void copy(const std::function<bool(std::size_t)>& wanted) const;

  const system::Platform& platform_;
  ui::ListBox& list_;
  std::map<std::string, std::string> found_;  // by the row
};

// The path that a row of any list names: what follows the number of a project, or the row itself.
// Empty for a separator and for any other row without a path.
std::string path_of_row(const std::string& row);

}  // namespace ordelan::work
