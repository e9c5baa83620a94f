// What the user does to a list, without a screen.
#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <iostream>

#include "ui/check_list_box.h"
#include "ui/list_box.h"
#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::kAltKey;
using ui::kControlKey;
using ui::kShiftKey;

constexpr int kPageUpKey = 33;
constexpr int kPageDownKey = 34;
constexpr int kEndKey = 35;
constexpr int kHomeKey = 36;
constexpr int kUpKey = 38;
constexpr int kDownKey = 40;
constexpr int kDeleteKey = 46;
constexpr int kLetterA = 'A';
constexpr int kPage = 4;

struct ListKeysTest : ::testing::Test {
  ListKeysTest() {
    list.set_keys_move(true);
    list.set_markable(true);
    list.on_moved = [this] { events += "v"; };
    list.on_marked = [this] { events += "m"; };
    list.on_click = [this] { events += "c"; };
    list.on_double_click = [this] { events += "d"; };
    window.load();
    fill(12);
  }

  void fill(int count) {
    list.clear();
    ui::ListBox::Rows rows;
    for (int i = 0; i < count; ++i) rows.push_back("D:\\" + std::to_string(i));
    list.add(std::move(rows));
    backend.take();
  }

  bool key(int code, int held = 0) { return list.key_down(code, held, kPage); }
  // The current row after the key.
  int after(int code, int held = 0) {
    EXPECT_TRUE(key(code, held));
    return list.current();
  }

  std::vector<int> marked() const {
    std::vector<int> rows;
    for (std::size_t i = 0; i < list.count() + 2; ++i) {
      if (list.marked(i)) rows.push_back(static_cast<int>(i));
    }
    EXPECT_EQ(rows.size(), list.marked_count());
    return rows;
  }

  std::string taken_events() { return std::exchange(events, {}); }

  RecordingBackend backend;
  ui::Window window{backend, "window"};
  ui::ListBox list{window, "list"};
  std::string events;
};

TEST_F(ListKeysTest, keys_move_the_current_row_and_are_no_click) {
  list.set_current(5);
  EXPECT_EQ(after(kDownKey), 6);
  EXPECT_EQ(taken_events(), "v");
  EXPECT_EQ(after(kUpKey), 5);
  EXPECT_EQ(after(kHomeKey), 0);
  EXPECT_EQ(after(kEndKey), 11);
  EXPECT_EQ(taken_events(), "vvv");
  EXPECT_TRUE(list.chosen_by_key());
}

TEST_F(ListKeysTest, a_page_leaves_one_row_of_itself_in_sight) {
  list.set_current(1);
  EXPECT_EQ(after(kPageDownKey), 4);
  EXPECT_EQ(after(kPageUpKey), 1);
  EXPECT_EQ(after(kPageUpKey), 0);
  list.set_current(10);
  EXPECT_EQ(after(kPageDownKey), 11);
  list.key_down(kPageUpKey, 0, 1);
  EXPECT_EQ(list.current(), 10) << "a page of one row still moves";
  list.key_down(kPageUpKey, 0, 0);
  EXPECT_EQ(list.current(), 9);
}

TEST_F(ListKeysTest, from_no_row_keys_go_to_the_first_and_End_to_the_last) {
  for (const int code : {kUpKey, kDownKey, kPageUpKey, kPageDownKey, kHomeKey}) {
    list.set_current(-1);
    EXPECT_EQ(after(code), 0) << code;
  }
  list.set_current(-1);
  EXPECT_EQ(after(kEndKey), 11);
}

TEST_F(ListKeysTest, a_key_that_leads_nowhere_raises_nothing) {
  list.set_current(0);
  EXPECT_EQ(after(kUpKey), 0);
  EXPECT_EQ(after(kHomeKey), 0);
  list.set_current(11);
  EXPECT_EQ(after(kDownKey), 11);
  EXPECT_EQ(taken_events(), "");
  EXPECT_FALSE(list.chosen_by_key());
  list.clear();
  EXPECT_EQ(after(kDownKey), -1);
  EXPECT_EQ(after(kEndKey, kShiftKey), -1);
  EXPECT_EQ(after(kLetterA, kControlKey), -1);
  EXPECT_EQ(taken_events(), "");
}

TEST_F(ListKeysTest, the_real_list_gets_the_row_that_a_key_has_moved_to) {
  key(kDownKey);
  EXPECT_THAT(backend.take(),
              ElementsAre(RecordingBackend::Change{"list", ui::Aspect::current_row}));
  key(kDownKey, kShiftKey);
  EXPECT_THAT(backend.take(),
              ElementsAre(RecordingBackend::Change{"list", ui::Aspect::value},
                          RecordingBackend::Change{"list", ui::Aspect::current_row}));
}

TEST_F(ListKeysTest, other_keys_are_not_the_lists) {
  list.set_current(3);
  for (const int code : {kDeleteKey, 0x20, 0x25, 0x27, 0x0D, 0x6B, kLetterA}) {
    EXPECT_FALSE(key(code)) << code;
  }
  EXPECT_FALSE(key(kDownKey, kAltKey));
  EXPECT_FALSE(key(kLetterA, kControlKey | kAltKey)) << "AltGr writes a letter";
  EXPECT_FALSE(key(kLetterA, kShiftKey));
  EXPECT_EQ(list.current(), 3);
  EXPECT_EQ(taken_events(), "");
}

TEST_F(ListKeysTest, keys_do_not_move_unless_that_is_asked_for) {
  list.set_keys_move(false);
  EXPECT_FALSE(key(kDownKey));
  EXPECT_FALSE(key(kDownKey, kShiftKey));
  list.typed('1', 0);
  EXPECT_EQ(list.current(), -1);
  EXPECT_EQ(taken_events(), "");
  EXPECT_TRUE(key(kLetterA, kControlKey));
  EXPECT_EQ(list.marked_count(), 12u);
}

TEST_F(ListKeysTest, letters_move_to_names_and_are_no_click) {
  list.typed('1', 1000);
  EXPECT_EQ(list.current(), 1);
  list.typed('1', 1100);
  EXPECT_EQ(list.current(), 10);
  EXPECT_EQ(taken_events(), "vv");
  list.typed('x', 5000);
  EXPECT_EQ(list.current(), 10);
  EXPECT_EQ(taken_events(), "");
}

TEST_F(ListKeysTest, blanks_and_control_characters_are_no_letters) {
  list.add(" a");
  list.add("\x7F");
  list.add("\x01");
  for (const char byte : {' ', '\x7F', '\x01', '\r', '\b', '\x1B'}) list.typed(byte, 1000);
  EXPECT_EQ(list.current(), -1);
  list.typed('2', 1100);
  EXPECT_EQ(list.current(), 2) << "nor do they stand before one";
}

TEST_F(ListKeysTest, Shift_marks_from_where_it_began) {
  list.set_current(5);
  EXPECT_EQ(after(kDownKey, kShiftKey), 6);
  EXPECT_THAT(marked(), ElementsAre(5, 6));
  EXPECT_EQ(taken_events(), "mv") << "marks first";
  EXPECT_EQ(after(kDownKey, kShiftKey), 7);
  EXPECT_EQ(after(kUpKey, kShiftKey), 6);
  EXPECT_THAT(marked(), ElementsAre(5, 6));
  EXPECT_EQ(after(kUpKey, kShiftKey), 5);
  EXPECT_EQ(after(kUpKey, kShiftKey), 4);
  EXPECT_THAT(marked(), ElementsAre(4, 5));
  EXPECT_EQ(after(kPageDownKey, kShiftKey), 7);
  EXPECT_THAT(marked(), ElementsAre(5, 6, 7));
  EXPECT_EQ(after(kHomeKey, kShiftKey), 0);
  EXPECT_THAT(marked(), ElementsAre(0, 1, 2, 3, 4, 5));
  EXPECT_EQ(after(kEndKey, kShiftKey), 11);
  EXPECT_THAT(marked(), ElementsAre(5, 6, 7, 8, 9, 10, 11));
  events.clear();
  EXPECT_EQ(after(kEndKey, kShiftKey), 11);
  EXPECT_EQ(taken_events(), "") << "nothing has changed";
}

TEST_F(ListKeysTest, Shift_from_no_row_marks_the_row_it_leads_to) {
  EXPECT_EQ(after(kDownKey, kShiftKey), 0);
  EXPECT_THAT(marked(), ElementsAre(0));
  EXPECT_EQ(after(kDownKey, kShiftKey), 1);
  EXPECT_THAT(marked(), ElementsAre(0, 1));
}

TEST_F(ListKeysTest, a_plain_move_takes_the_marks_away_and_begins_anew) {
  list.set_current(2);
  key(kDownKey, kShiftKey);
  events.clear();
  EXPECT_EQ(after(kDownKey), 4);
  EXPECT_THAT(marked(), IsEmpty());
  EXPECT_EQ(taken_events(), "mv");
  EXPECT_EQ(after(kDownKey, kShiftKey), 5);
  EXPECT_THAT(marked(), ElementsAre(4, 5));
  list.typed('8', 1000);
  EXPECT_EQ(list.current(), 8);
  EXPECT_THAT(marked(), IsEmpty());
  key(kUpKey, kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(7, 8));
}

TEST_F(ListKeysTest, a_plain_key_at_the_end_takes_the_marks_away_too) {
  list.set_current(10);
  key(kDownKey, kShiftKey);
  events.clear();
  key(kDownKey);
  EXPECT_THAT(marked(), IsEmpty());
  EXPECT_EQ(taken_events(), "m");
}

TEST_F(ListKeysTest, a_letter_without_a_name_leaves_the_marks) {
  key(kLetterA, kControlKey);
  list.typed('x', 1000);
  EXPECT_EQ(list.marked_count(), 12u);
}

TEST_F(ListKeysTest, Ctrl_with_a_key_moves_and_leaves_the_marks) {
  list.set_current(2);
  key(kDownKey, kShiftKey);
  events.clear();
  EXPECT_EQ(after(kEndKey, kControlKey), 11);
  EXPECT_THAT(marked(), ElementsAre(2, 3));
  EXPECT_EQ(taken_events(), "v");
  EXPECT_EQ(after(kUpKey, kControlKey | kShiftKey), 10);
  EXPECT_THAT(marked(), ElementsAre(2, 3, 10, 11)) << "further rows besides";
}

TEST_F(ListKeysTest, Ctrl_A_marks_all_and_moves_nothing) {
  list.set_current(3);
  EXPECT_EQ(after(kLetterA, kControlKey), 3);
  EXPECT_EQ(list.marked_count(), 12u);
  EXPECT_EQ(taken_events(), "m");
  EXPECT_TRUE(key(kLetterA, kControlKey));
  EXPECT_EQ(taken_events(), "") << "all were marked";
  EXPECT_EQ(list.marked_rows(), list.rows());
}

TEST_F(ListKeysTest, a_click_with_Ctrl_marks_besides_the_current_row_and_does_not_move_it) {
  list.set_current(2);
  EXPECT_TRUE(list.mark_click(5, kControlKey));
  EXPECT_THAT(marked(), ElementsAre(2, 5));
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(taken_events(), "m");
  list.mark_click(8, kControlKey);
  EXPECT_THAT(marked(), ElementsAre(2, 5, 8));
  list.mark_click(5, kControlKey);
  EXPECT_THAT(marked(), ElementsAre(2, 8)) << "a second one takes the mark away";
  list.mark_click(2, kControlKey);
  EXPECT_THAT(marked(), ElementsAre(8)) << "from the current row too";
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(taken_events(), "mmm");
}

TEST_F(ListKeysTest, a_click_with_Ctrl_on_the_current_row_marks_it_alone) {
  list.set_current(2);
  list.mark_click(2, kControlKey);
  EXPECT_THAT(marked(), ElementsAre(2));
  list.mark_click(2, kControlKey);
  EXPECT_THAT(marked(), IsEmpty());
}

TEST_F(ListKeysTest, a_click_with_Ctrl_needs_no_current_row) {
  list.mark_click(4, kControlKey);
  EXPECT_THAT(marked(), ElementsAre(4));
  EXPECT_EQ(list.current(), -1);
}

TEST_F(ListKeysTest, a_click_with_Shift_marks_from_the_current_row) {
  list.set_current(4);
  EXPECT_TRUE(list.mark_click(7, kShiftKey));
  EXPECT_THAT(marked(), ElementsAre(4, 5, 6, 7));
  EXPECT_EQ(list.current(), 4);
  list.mark_click(2, kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(2, 3, 4)) << "in place of the range before";
  list.mark_click(6, kControlKey);
  list.mark_click(8, kControlKey | kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(2, 3, 4, 6, 7, 8)) << "from the row of Ctrl, besides";
  EXPECT_EQ(list.current(), 4);
  EXPECT_EQ(taken_events(), "mmmm");
}

TEST_F(ListKeysTest, a_click_with_Shift_without_a_current_row_marks_that_row_and_begins_there) {
  list.mark_click(4, kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(4));
  list.mark_click(6, kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(4, 5, 6));
}

TEST_F(ListKeysTest, keys_with_Shift_go_on_from_the_click_with_Shift) {
  list.set_current(4);
  list.mark_click(7, kShiftKey);
  EXPECT_EQ(after(kDownKey, kShiftKey), 8);
  EXPECT_THAT(marked(), ElementsAre(4, 5, 6, 7, 8));
}

TEST_F(ListKeysTest, keys_with_Shift_go_on_from_each_other) {
  list.set_current(4);
  list.mark_click(7, kShiftKey);
  key(kDownKey, kShiftKey);
  EXPECT_EQ(after(kDownKey, kShiftKey), 9);
  EXPECT_THAT(marked(), ElementsAre(4, 5, 6, 7, 8, 9));
}

TEST_F(ListKeysTest, the_first_row_is_a_row_like_the_others) {
  list.set_current(0);
  EXPECT_THAT(list.marked_rows(), ElementsAre("D:\\0"));
  EXPECT_EQ(after(kDownKey, kShiftKey), 1);
  EXPECT_EQ(after(kDownKey, kShiftKey), 2);
  EXPECT_THAT(marked(), ElementsAre(0, 1, 2));
  list.set_current(0);
  list.clear_marks();
  list.mark_click(3, kControlKey);
  EXPECT_THAT(marked(), ElementsAre(0, 3));
  list.set_current(0);
  list.mark_click(3, kShiftKey);
  list.mark_click(2, kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(0, 1, 2));
  list.set_current(5);
  list.mark_click(0, kControlKey);
  EXPECT_THAT(marked(), ElementsAre(1, 2)) << "its mark is taken away";
  list.mark_click(0, kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(0));
  list.mark_click(3, kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(0, 1, 2, 3));
  list.set_current(5);
  list.mark_click(0, kShiftKey);
  EXPECT_EQ(after(kDownKey, kShiftKey), 1);
  EXPECT_THAT(marked(), ElementsAre(1, 2, 3, 4, 5));
  list.typed('0', 1000);
  EXPECT_EQ(list.current(), 0);
}

TEST_F(ListKeysTest, the_programs_choice_leaves_the_marks_but_ranges_begin_there) {
  list.set_current(4);
  list.mark_click(6, kShiftKey);
  list.set_current(9);
  EXPECT_THAT(marked(), ElementsAre(4, 5, 6));
  EXPECT_EQ(after(kDownKey, kShiftKey), 10);
  EXPECT_THAT(marked(), ElementsAre(9, 10));
}

TEST_F(ListKeysTest, a_click_on_no_row_or_with_no_key_marks_nothing) {
  list.set_current(1);
  EXPECT_FALSE(list.mark_click(12, kControlKey));
  EXPECT_FALSE(list.mark_click(-1, kShiftKey));
  EXPECT_FALSE(list.mark_click(3, 0));
  EXPECT_FALSE(list.mark_click(3, kAltKey));
  EXPECT_THAT(marked(), IsEmpty());
  EXPECT_EQ(taken_events(), "");
}

TEST_F(ListKeysTest, a_list_that_is_not_markable_has_no_marks) {
  list.mark_all();
  list.set_markable(true);
  EXPECT_EQ(list.marked_count(), 12u) << "it was markable before";
  list.set_markable(false);
  EXPECT_THAT(marked(), IsEmpty());
  list.set_current(3);
  EXPECT_FALSE(list.mark_click(5, kControlKey));
  EXPECT_FALSE(key(kLetterA, kControlKey));
  EXPECT_EQ(after(kDownKey, kShiftKey), 4);
  EXPECT_EQ(after(kDownKey, kControlKey), 5);
  list.mark_all();
  EXPECT_THAT(marked(), IsEmpty());
  EXPECT_EQ(taken_events(), "vv");
}

TEST_F(ListKeysTest, the_users_choice_takes_the_marks_away) {
  list.set_current(4);
  list.mark_click(6, kShiftKey);
  list.chosen(8);
  EXPECT_THAT(marked(), IsEmpty());
  list.mark_click(9, kShiftKey);
  EXPECT_THAT(marked(), ElementsAre(8, 9));
}

TEST_F(ListKeysTest, marked_rows_come_in_the_order_of_the_list) {
  list.set_current(7);
  list.mark_click(3, kControlKey);
  list.mark_click(1, kControlKey);
  EXPECT_THAT(list.marked_rows(), ElementsAre("D:\\1", "D:\\3", "D:\\7"));
}

TEST_F(ListKeysTest, without_marks_the_current_row_stands_for_them) {
  EXPECT_THAT(list.marked_rows(), IsEmpty());
  list.set_current(7);
  EXPECT_THAT(list.marked_rows(), ElementsAre("D:\\7"));
  list.mark_click(2, kControlKey);
  list.mark_click(7, kControlKey);
  EXPECT_THAT(list.marked_rows(), ElementsAre("D:\\2")) << "the current row is not marked";
}

TEST_F(ListKeysTest, any_change_of_the_rows_takes_the_marks_away) {
  ui::ListBox other{window, "other"};
  other.add("a");
  const std::vector<std::function<void()>> changes = {
      [&] { list.add("x"); },
      [&] {
        list.add(std::vector<std::string>{"x", "y"});
      },
      [&] { list.share(other); },
      [&] { list.remove(11); },
      [&] { list.remove_if([](std::size_t row) { return row == 0; }); },
      [&] { list.replace(5, "x"); },
      [&] { list.take(); },
      [&] { list.clear(); },
  };
  for (std::size_t i = 0; i < changes.size(); ++i) {
    fill(12);
    list.set_current(2);
    list.mark_click(10, kShiftKey);
    ASSERT_EQ(list.marked_count(), 9u);
    changes[i]();
    EXPECT_THAT(marked(), IsEmpty()) << i;
    if (list.count() < 3) continue;
    // The range does not begin or end where rows are no more.
    list.set_current(-1);
    key(kDownKey, kShiftKey);
    EXPECT_THAT(marked(), ElementsAre(0)) << i;
  }
}

TEST_F(ListKeysTest, a_range_ends_at_the_current_row_once_rows_have_changed) {
  list.set_current(1);
  list.mark_click(11, kShiftKey);
  list.remove_if([](std::size_t row) { return row > 4; });
  EXPECT_EQ(after(kDownKey, kShiftKey), 2);
  EXPECT_THAT(marked(), ElementsAre(1, 2));
}

TEST_F(ListKeysTest, lists_that_share_rows_do_not_share_marks) {
  ui::ListBox other{window, "other"};
  other.share(list);
  list.mark_all();
  EXPECT_EQ(other.marked_count(), 0u);
  other.remove(0);
  EXPECT_EQ(list.marked_count(), 12u);
}

TEST_F(ListKeysTest, boxes_stay_with_their_rows_where_the_list_beside_is_markable) {
  ui::CheckListBox boxes{window, "boxes"};
  boxes.stand_beside(list);
  boxes.fill(list);
  boxes.set_ticked(4, true);
  list.mark_all();
  list.remove(1);
  boxes.remove(1);
  EXPECT_TRUE(boxes.ticked(3));
  EXPECT_EQ(boxes.rows(), list.rows());
  EXPECT_THAT(marked(), IsEmpty());
}

TEST_F(ListKeysTest, a_handler_may_take_the_list_away) {
  auto gone = std::make_unique<ui::ListBox>(window, "gone");
  gone->set_keys_move(true);
  gone->set_markable(true);
  gone->add(std::vector<std::string>{"a", "b"});
  bool moved = false;
  gone->on_marked = [&] { gone.reset(); };
  gone->on_moved = [&] { moved = true; };
  gone->key_down(kDownKey, kShiftKey, kPage);
  EXPECT_EQ(gone, nullptr);
  EXPECT_FALSE(moved);
}

TEST_F(ListKeysTest, the_row_at_a_place_is_counted_from_the_first_in_sight) {
  EXPECT_EQ(list.row_at({3, 0}), 0);
  EXPECT_EQ(list.row_at({3, 15}), 0);
  EXPECT_EQ(list.row_at({3, 16}), 1);
  list.set_top(10);
  EXPECT_EQ(list.row_at({3, 20}), 11);
  EXPECT_EQ(list.row_at({3, 32}), -1) << "below the last row";
  EXPECT_EQ(list.row_at({3, -1}), -1);
  list.set_row_height(20);
  EXPECT_EQ(list.row_at({3, 19}), 10);
  list.set_row_height(0);
  EXPECT_EQ(list.row_at({3, 1}), 11);
  fill(0);
  EXPECT_EQ(list.row_at({0, 0}), -1);
}

TEST_F(ListKeysTest, two_hundred_thousand_rows) {
  fill(200000);
  const auto timed = [](const char* what, const std::function<void()>& act) {
    const auto begin = std::chrono::steady_clock::now();
    act();
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - begin;
    std::cout << what << ": " << taken.count() << " ms\n";
  };
  timed("End", [&] { EXPECT_EQ(after(kEndKey), 199999); });
  timed("Shift+Home", [&] { EXPECT_EQ(after(kHomeKey, kShiftKey), 0); });
  EXPECT_EQ(list.marked_count(), 200000u);
  timed("Shift+Down", [&] { EXPECT_EQ(after(kDownKey, kShiftKey), 1); });
  timed("Ctrl+A", [&] { key(kLetterA, kControlKey); });
  timed("Ctrl+click", [&] { list.mark_click(5, kControlKey); });
  EXPECT_EQ(list.marked_count(), 199999u);
  timed("a letter that no name has", [&] { list.typed('z', 1000); });
}

}  // namespace
}  // namespace ordelan::test
