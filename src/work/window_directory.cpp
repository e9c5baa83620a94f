#include "work/window_directory.h"

#include <utility>

namespace ordelan::work {

ui::Window* WindowDirectory::touch(const std::string& name) {
  if (ui::Window* there = find(name)) return there;
  const auto maker = makers_.find(name);
  if (maker == makers_.end()) return nullptr;
  auto window = maker->second();
  ui::Window& made = *window;
  windows_[name] = std::move(window);
  made.load();
  return find(name);  // its own loading may have closed it
}

ui::Window* WindowDirectory::find(const std::string& name) const {
  const auto found = windows_.find(name);
  return found == windows_.end() ? nullptr : found->second.get();
}

bool WindowDirectory::visible(const std::string& name) const {
  const ui::Window* const window = find(name);
  return window != nullptr && window->visible();
}

void WindowDirectory::hide(const std::string& name) {
  if (ui::Window* window = find(name)) window->hide();
}

void WindowDirectory::close(const std::string& name) {
  const ui::Window* const window = find(name);
  if (window == nullptr || (window->on_query_unload && !window->on_query_unload())) return;
  take_away(name);
}

void WindowDirectory::close_all() {
  while (!windows_.empty()) take_away(std::string(windows_.begin()->first));
}

void WindowDirectory::take_away(const std::string& name) {
  const auto found = windows_.find(name);
  if (found == windows_.end()) return;
  std::unique_ptr<ui::Window> window = std::move(found->second);
  windows_.erase(found);
  window->unload();
  closed_.push_back(std::move(window));
}

}  // namespace ordelan::work
