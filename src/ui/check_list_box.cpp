#include "ui/check_list_box.h"

#include <utility>

#include "ui/backend.h"

namespace ordelan::ui {

CheckListBox::~CheckListBox() {
  if (beside_ != nullptr) beside_->boxes_ = nullptr;
}

void CheckListBox::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

void CheckListBox::stand_beside(ListBox& list) {
  beside_ = &list;
  list.boxes_ = this;
  list.set_indent(bounds().width);
}

void CheckListBox::set_ticked(std::size_t index, bool ticked) {
  if (index >= ticks_.size() || ticks_[index] == ticked) return;
  ticks_[index] = ticked;
  notify(Aspect::value);
}

void CheckListBox::tick_all() {
  ticks_.assign(count(), true);
  notify(Aspect::value);
}

void CheckListBox::toggle(std::size_t index) {
  if (index >= ticks_.size()) return;
  set_ticked(index, !ticks_[index]);
  if (on_tick) on_tick(index);
}

void CheckListBox::fill(const ListBox& other) {
  share(other);
  ticks_.assign(count(), false);
}

void CheckListBox::fill(Rows rows) {
  clear();
  add(std::move(rows));
  ticks_.assign(count(), false);
}

void CheckListBox::clear() {
  ticks_.clear();
  ListBox::clear();
}

void CheckListBox::remove(std::size_t index) {
  if (index < ticks_.size()) ticks_.erase(ticks_.begin() + static_cast<std::ptrdiff_t>(index));
  ListBox::remove(index);
}

}  // namespace ordelan::ui
