// What the user does to a list: keys that move, letters, marks.
#include <algorithm>
#include <utility>

#include "ui/list_box.h"
#include "ui/raise_event.h"

namespace ordelan::ui {
namespace {

// The system's codes.
constexpr int kPageUp = 0x21;
constexpr int kPageDown = 0x22;
constexpr int kEnd = 0x23;
constexpr int kHome = 0x24;
constexpr int kUp = 0x26;
constexpr int kDown = 0x28;
constexpr int kA = 'A';

bool moves(int code) {
  return (code >= kPageUp && code <= kHome) || code == kUp || code == kDown;
}

}  // namespace

void ListBox::chosen(int index, bool by_key) {
  current_ = index;
  chosen_by_key_ = by_key;
  anchor_ = reach_ = -1;
  clear_marks();
}

void ListBox::set_markable(bool markable) {
  markable_ = markable;
  if (!markable) clear_marks();
}

ListBox::Rows ListBox::marked_rows() const {
  Rows marked;
  if (marks_.empty()) {
    if (current_ >= 0) marked.push_back(current_row());
    return marked;
  }
  marked.reserve(marks_.count());
  for (std::size_t i = 0; i < count(); ++i) {
    if (marks_.has(i)) marked.push_back(rows()[i]);
  }
  return marked;
}

void ListBox::mark_all() {
  if (!markable_ || empty()) return;
  RowMarks all;
  all.set_range(0, count() - 1, count());
  assign(marks_, std::move(all), Aspect::value);
}

void ListBox::clear_marks() {
  assign(marks_, RowMarks(), Aspect::value);
}

bool ListBox::key_down(int code, int held, int page) {
  // AltGr comes as Ctrl and Alt: it writes a letter.
  if ((held & kAltKey) != 0) return false;
  const bool control = markable_ && (held & kControlKey) != 0;
  const bool shift = markable_ && (held & kShiftKey) != 0;
  if (control && code == kA) {
    RowMarks all;
    if (!empty()) all.set_range(0, count() - 1, count());
    move_to(current_, std::move(all));
    return true;
  }
  if (!keys_move_ || !moves(code)) return false;
  if (empty()) return true;
  // With Ctrl the marks stay, so that rows further on can be marked besides.
  RowMarks marks = control ? marks_ : RowMarks();
  int to = 0;
  if (shift) {
    to = target(code, reach_ >= 0 ? reach_ : current_, page);
    if (anchor_ < 0) anchor_ = current_ >= 0 ? current_ : to;
    reach_ = to;
    marks.set_range(static_cast<std::size_t>(anchor_), static_cast<std::size_t>(to), count());
  } else {
    to = target(code, current_, page);
    anchor_ = reach_ = -1;
  }
  move_to(to, std::move(marks));
  return true;
}

// Where a key leads from a row. From none, which is -1, all but End lead to the first.
int ListBox::target(int code, int from, int page) const {
  const int last = static_cast<int>(count()) - 1;
  const int step = std::max(1, page - 1);  // one row of the page stays in sight
  if (from < 0 && code != kEnd) return 0;
  int to = 0;
  switch (code) {
    case kUp:
      to = from - 1;
      break;
    case kDown:
      to = from + 1;
      break;
    case kPageUp:
      to = from - step;
      break;
    case kPageDown:
      to = from + step;
      break;
    case kEnd:
      to = last;
      break;
    default:
      break;
  }
  return std::clamp(to, 0, last);
}

void ListBox::typed(char letter, std::uint32_t milliseconds) {
  constexpr unsigned char kDelete = 0x7F;
  const auto byte = static_cast<unsigned char>(letter);
  if (!keys_move_ || byte <= ' ' || byte == kDelete) return;
  const int to = type_ahead_.type(letter, milliseconds, rows(), current_);
  if (to < 0) return;
  anchor_ = reach_ = -1;
  move_to(to, RowMarks());
}

bool ListBox::mark_click(int index, int held) {
  if (!markable_ || (held & (kShiftKey | kControlKey)) == 0) return false;
  if (index < 0 || static_cast<std::size_t>(index) >= count()) return false;
  const auto row = static_cast<std::size_t>(index);
  RowMarks marks = (held & kControlKey) != 0 ? marks_ : RowMarks();
  if ((held & kShiftKey) != 0) {
    if (anchor_ < 0) anchor_ = current_ >= 0 ? current_ : index;
    marks.set_range(static_cast<std::size_t>(anchor_), row, count());
  } else {
    if (marks.empty() && current_ >= 0) {
      marks.set(static_cast<std::size_t>(current_), current_ != index, count());
    }
    marks.set(row, !marks.has(row), count());
    anchor_ = index;
  }
  reach_ = index;
  move_to(current_, std::move(marks));
  return true;
}

void ListBox::move_to(int index, RowMarks marks) {
  const bool moved = index != current_;
  const bool marked = marks != marks_;
  chosen_by_key_ = chosen_by_key_ || moved;
  assign(marks_, std::move(marks), Aspect::value);
  assign(current_, index, Aspect::current_row);
  const std::weak_ptr<const void> still = alive();
  if (marked) raise_event(on_marked);
  if (moved && !still.expired()) raise_event(on_moved);
}

}  // namespace ordelan::ui
