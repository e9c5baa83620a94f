// What the pointer and a click show of a row: its number, and a balloon with what is known of its
// file.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "ui/balloon.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/timer.h"
#include "work/context.h"

namespace ordelan::audio {

class FileInfo;

class RowView {
 public:
  // The balloons go by a timer on the main window. What it is given must outlive it.
  RowView(const work::Context& context, FileInfo& info);
  RowView(const RowView&) = delete;
  RowView& operator=(const RowView&) = delete;

  // The pointer is at that place of the list, in units: `Label` shows the number of the row there,
  // and goes where there is none. Nothing while projects are decoded, or for an empty list.
  void ViewItem(ui::ListBox& Lista, ui::Point at, ui::Label& Label);

  // Shows size and date of the file of a row, and below them `FileInfo::TextoToolTip`, in the
  // balloon of the list of that name; TextoToolTip then has the whole text. A row of a project
  // shows size and date alone. Nothing is shown of a missing file.
  void ToolTipShow(const std::string& Nombre, ui::ListBox& Lista, const std::string& Fila);
  // The same in the general balloon, for a file that is shown beside its row.
  void ShowToolTip(const std::string& Nombre, ui::ListBox& Lista, const std::string& Fila);
  // A text of the caller's in the general balloon.
  void show_text(ui::ListBox& Lista, const std::string& title, const std::string& text);

  // Takes the balloon away, if one is shown.
  void hide();
  // Whether one is shown, and its text: empty for none.
  std::string shown_text() const;

  // The path that a row of a file list holds: of one with a mark what stands before the mark, or of
  // a project's what follows its number.
  static std::string path_of(const std::string& row);

  // Where the pointer was last, in units of its list, both packed into one number, and the row
  // there, from 0; -1 for none.
  std::int32_t CursorX = 0;
  std::int32_t CursorY = 0;
  std::int32_t PosicionLista = 0;  // read by nothing: a row is asked for by its place itself
  int ItemBajoCursor = -1;

 private:
  ui::Class1& balloon(const std::string& name);
  bool describe(const std::string& name, const std::string& row);
  void show(ui::Class1& balloon, ui::ListBox& list, const std::string& title,
            const std::string& text);

  work::Context context_;
  FileInfo& info_;
  const ui::ListBox* under_pointer_ = nullptr;  // compared, and never followed
  std::map<std::string, ui::Class1> balloons_;  // by the name of the list; "" the general one
  ui::Class1* shown_ = nullptr;                 // one of them
  ui::Timer TimerGlobo;                         // takes away what is read by now
};

}  // namespace ordelan::audio
