// Controls that share one name and are distinguished by a number, which can grow while the window
// is up.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/window.h"

namespace ordelan::ui {

template <class T>
class ControlArray {
 public:
  ControlArray(Window& window, std::string name, int count)
      : window_(window), name_(std::move(name)) {
    while (size() < count) load();
  }

  int size() const { return static_cast<int>(items_.size()); }
  T& operator[](int index) { return *items_.at(static_cast<std::size_t>(index)); }
  const T& operator[](int index) const { return *items_.at(static_cast<std::size_t>(index)); }

  // Adds the next control of the array, shown at once where the window is.
  T& load() {
    items_.push_back(std::make_unique<T>(window_, name_, size()));
    if (window_.loaded()) items_.back()->attach(window_.backend());
    return *items_.back();
  }

  // Takes away the last control of the array.
  void unload() { items_.pop_back(); }

  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

  void set_visible(bool visible) {
    for (auto& item : items_) item->set_visible(visible);
  }

 private:
  Window& window_;
  std::string name_;
  std::vector<std::unique_ptr<T>> items_;
};

}  // namespace ordelan::ui
