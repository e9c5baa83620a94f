#include "ui/list_box.h"

#include <utility>

#include "ui/backend.h"

namespace ordelan::ui {
namespace {

const std::string kNoRow;

std::string_view until_nul(std::string_view row) {
  return row.substr(0, row.find('\0'));
}

}  // namespace

ListBox::ListBox(Window& window, std::string name, int index)
    : Control(window, std::move(name), index) {
  set_back_color(Color::window_background);
  set_fore_color(Color::window_text);
}

void ListBox::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

const std::string& ListBox::row(std::size_t index) const {
  return index < rows_.size() ? rows_[index] : kNoRow;
}

void ListBox::add(std::string_view row) {
  rows_.emplace_back(until_nul(row));
  changed();
}

void ListBox::add(std::vector<std::string> rows) {
  if (rows.empty()) return;
  for (std::string& row : rows) row.resize(until_nul(row).size());
  if (rows_.empty()) {
    rows_ = std::move(rows);
  } else {
    rows_.insert(rows_.end(), std::make_move_iterator(rows.begin()),
                 std::make_move_iterator(rows.end()));
  }
  changed();
}

void ListBox::clear() {
  if (rows_.empty() && current_ < 0) return;
  rows_.clear();
  rows_.shrink_to_fit();
  current_ = -1;
  changed();
}

std::vector<std::string> ListBox::take() {
  std::vector<std::string> rows;
  rows.swap(rows_);
  if (!rows.empty()) changed();
  return rows;
}

void ListBox::remove(std::size_t index) {
  if (index >= rows_.size()) return;
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
  changed();
}

void ListBox::remove_if(const std::function<bool(std::size_t)>& unwanted) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (unwanted(i)) continue;
    if (kept != i) rows_[kept] = std::move(rows_[i]);
    ++kept;
  }
  if (kept == rows_.size()) return;
  rows_.resize(kept);
  changed();
}

void ListBox::replace(std::size_t index, std::string_view row) {
  if (index >= rows_.size()) return;
  rows_[index] = until_nul(row);
  changed();
}

void ListBox::set_current(int index) {
  const bool there = index >= 0 && static_cast<std::size_t>(index) < rows_.size();
  assign(current_, there ? index : -1, Aspect::current_row);
}

const std::string& ListBox::current_row() const {
  return current_ < 0 ? kNoRow : row(static_cast<std::size_t>(current_));
}

void ListBox::changed() {
  if (current_ >= static_cast<int>(rows_.size())) current_ = -1;
  notify(Aspect::rows);
}

}  // namespace ordelan::ui
