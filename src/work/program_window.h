// What all windows of the program share: they are made from data and remember their place.
#pragma once

#include "skin/place.h"
#include "ui/button.h"
#include "ui/list_box.h"
#include "ui/window.h"
#include "work/context.h"

namespace ordelan::work {

// A window as data.
struct WindowKind {
  const char* name;   // in the directory and in the looks
  const char* title;  // in the task bar
  const skin::Layout& layout;
  ui::Point place = {};             // where it stands while no place is stored
  const char* place_key = nullptr;  // of its stored place; null where no place is stored
  // When the place is stored, besides the calls of `store_place`.
  bool stores_after_drag = false;
  bool stores_at_unload = false;
  bool topmost = false;
  bool minimizable = false;
  bool resizable = false;  // the size is stored with the place
  ui::Size smallest = {};  // of one that can be resized
  bool shown = false;      // as soon as it is loaded; others are shown by their callers
};

class ProgramWindow : public ui::Window {
 public:
  // Takes its size from the ground's picture or the layout, and then a stored one, which is read
  // when the window is loaded.
  ProgramWindow(const Context& context, const WindowKind& kind);

  // Stores where the window stands, and how large it is if it can be resized.
  void store_place();
  // Puts it where it was stored. The place that it has is the default.
  void read_place();

 protected:
  // To be called at the end of the constructor, when the controls have their captions: gives them
  // their places and looks.
  void set_up();
  // What the window does when it is loaded and has its place; it is shown after that.
  virtual void Form_Load() {}

  // Buttons of the title line: their pictures have no words, so that they are described.
  void make_minimize_button(ui::Button& button);
  void make_close_button(ui::Button& button);
  // A list whose click does something with the row: keys only move the choice or mark rows, and a
  // press of the right button leaves the choice where it is.
  static void make_list_keys(ui::ListBox& list);

  const Context& context() const { return context_; }

 private:
  void load_place_and_content();

  Context context_;
  WindowKind kind_;
};

}  // namespace ordelan::work
