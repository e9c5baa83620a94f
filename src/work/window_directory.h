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

  // Hides the window if it is there; it keeps its state.
  void hide(const std::string& name);

  // Takes the window away if it is there; the next touch makes a new one. The object itself stays
  // until `bury`, as one of its own handlers may be running.
  void close(const std::string& name);

  // Frees the windows closed so far. To be called where no handler runs.
  void bury() { closed_.clear(); }

 private:
  std::map<std::string, Maker> makers_;
  std::map<std::string, std::unique_ptr<ui::Window>> windows_;
  std::vector<std::unique_ptr<ui::Window>> closed_;
};

}  // namespace ordelan::work
