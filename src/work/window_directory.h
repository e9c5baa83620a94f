// The directory through which one window asks for another by name. Windows come to life at the
// first touch and go and come again freely.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ui/window.h"

namespace ordelan::work {

class WindowDirectory {
 public:
  using Maker = std::function<std::unique_ptr<ui::Window>()>;

  // Says how the window of that name is made.
  void add(const std::string& name, Maker maker);

  // The window, made and loaded if it is not there; null when nobody knows the name.
  ui::Window* touch(const std::string& name);

  // The window if it is there; null otherwise.
  ui::Window* find(const std::string& name) const;
  bool visible(const std::string& name) const;

  // The piece of the window that others work with, where the window is one; null otherwise.
  template <class Piece>
  Piece* touch_as(const std::string& name) {
    return dynamic_cast<Piece*>(touch(name));
  }
  template <class Piece>
  Piece* find_as(const std::string& name) const {
    return dynamic_cast<Piece*>(find(name));
  }

  // Hides the window if it is there; it keeps its state.
  void hide(const std::string& name);

  // Takes the window away if it is there and does not refuse; the next touch makes a new one. The
  // object itself stays until `bury`, as one of its own handlers may be running.
  void close(const std::string& name);

  // Closes all windows, also those that refuse: the program ends.
  void close_all();

  // Frees the windows closed so far. To be called where no handler runs.
  void bury() { closed_.clear(); }

 private:
  void take_away(const std::string& name);

  std::map<std::string, Maker> makers_;
  std::map<std::string, std::unique_ptr<ui::Window>> windows_;
  std::vector<std::unique_ptr<ui::Window>> closed_;
};

}  // namespace ordelan::work
