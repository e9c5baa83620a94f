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
  // Says how the window of that class is made. Its name in the directory is `T::kName`.
  template <class T>
  void add(std::function<std::unique_ptr<T>()> maker) {
    makers_[T::kName] = std::move(maker);
  }

  // The window, made and loaded if it does not exist. Null when no maker was added, or when the
  // window was closed while it loaded.
  template <class T>
  T* touch() {
    return static_cast<T*>(touch(T::kName));
  }
  // The window if it exists; null otherwise.
  template <class T>
  T* find() const {
    return static_cast<T*>(find(T::kName));
  }
  // The same by name, for what is done to windows of any kind.
  ui::Window* touch(const std::string& name);
  ui::Window* find(const std::string& name) const;
  // Whether the window exists and is shown.
  bool visible(const std::string& name) const;

  template <class T>
  void hide() {
    hide(T::kName);
  }
  template <class T>
  void close() {
    close(T::kName);
  }

  // Hides the window of that name if it exists; it keeps its state.
  void hide(const std::string& name);

  // Unloads the window if it exists and does not refuse; the next touch makes a new one. The
  // object itself stays until `free_closed`, as one of its own handlers may be running.
  void close(const std::string& name);

  // Closes all windows, also those that refuse: the program ends.
  void close_all();

  // Frees the windows closed so far. To be called where no handler runs.
  void free_closed() { closed_.clear(); }

 private:
  using Maker = std::function<std::unique_ptr<ui::Window>()>;

  void take_away(const std::string& name);

  std::map<std::string, Maker> makers_;
  std::map<std::string, std::unique_ptr<ui::Window>> windows_;
  std::vector<std::unique_ptr<ui::Window>> closed_;
};

}  // namespace ordelan::work
