#include "ui/list_box.h"

#include <algorithm>
#include <utility>

#include "ui/backend.h"
#include "ui/window.h"

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
  return index < count() ? rows()[index] : kNoRow;
}

void ListBox::add(std::string_view row) {
  own_rows().emplace_back(until_nul(row));
  changed();
}

void ListBox::add(Rows added) {
  if (added.empty()) return;
  for (std::string& row : added) row.resize(until_nul(row).size());
  if (empty()) {
    rows_ = std::make_shared<Rows>(std::move(added));
  } else {
    Rows& rows = own_rows();
    rows.insert(rows.end(), std::make_move_iterator(added.begin()),
                std::make_move_iterator(added.end()));
  }
  changed();
}

void ListBox::share(const ListBox& other) {
  rows_ = other.rows_;
  current_ = -1;
  changed();
}

void ListBox::clear() {
  if (empty() && current_ < 0) return;
  rows_ = std::make_shared<Rows>();
  current_ = -1;
  changed();
}

ListBox::Rows ListBox::take() {
  if (empty()) return {};
  Rows rows = std::move(own_rows());
  rows_ = std::make_shared<Rows>();
  changed();
  return rows;
}

void ListBox::remove(std::size_t index) {
  if (index >= count()) return;
  Rows& rows = own_rows();
  rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
  changed();
}

void ListBox::remove_if(const std::function<bool(std::size_t)>& unwanted) {
  Rows& rows = own_rows();
  std::size_t kept = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (unwanted(i)) continue;
    if (kept != i) rows[kept] = std::move(rows[i]);
    ++kept;
  }
  if (kept == rows.size()) return;
  rows.resize(kept);
  changed();
}

void ListBox::replace(std::size_t index, std::string_view row) {
  if (index >= count()) return;
  own_rows()[index] = until_nul(row);
  changed();
}

void ListBox::set_current(int index) {
  const bool there = index >= 0 && static_cast<std::size_t>(index) < count();
  anchor_ = reach_ = -1;
  assign(current_, there ? index : -1, Aspect::current_row);
}

int ListBox::row_at(Point place) const {
  if (const auto shown = window().backend().row_at(*this, place)) return *shown;
  if (place.y < 0) return -1;
  const std::size_t row = top_ + static_cast<std::size_t>(place.y / row_height_);
  return row < count() ? static_cast<int>(row) : -1;
}

void ListBox::set_top(std::size_t index) {
  assign(top_, std::min(index, empty() ? 0 : count() - 1), Aspect::top);
}

const std::string& ListBox::current_row() const {
  return current_ < 0 ? kNoRow : row(static_cast<std::size_t>(current_));
}

ListBox::Rows& ListBox::own_rows() {
  if (rows_.use_count() > 1) rows_ = std::make_shared<Rows>(*rows_);
  return *rows_;
}

void ListBox::changed() {
  if (current_ >= static_cast<int>(count())) current_ = -1;
  top_ = std::min(top_, empty() ? 0 : count() - 1);
  marks_.clear();
  anchor_ = reach_ = -1;
  notify(Aspect::rows);
}

}  // namespace ordelan::ui
