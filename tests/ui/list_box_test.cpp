#include "ui/list_box.h"

#include <gmock/gmock.h>

#include <functional>

#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ListBoxTest : ::testing::Test {
  void fill(std::vector<std::string> rows) {
    list.clear();
    list.add(std::move(rows));
    backend.take();
  }
  void expect_only(ui::Aspect aspect) {
    EXPECT_THAT(backend.take(), ElementsAre(RecordingBackend::Change{"list", aspect}));
  }

  RecordingBackend backend;
  ui::Window window{backend, "window"};
  ui::ListBox list{window, "list"};
};

struct LoadedListBoxTest : ListBoxTest {
  LoadedListBoxTest() { window.load(); }
};

TEST_F(ListBoxTest, rows_come_back_in_the_order_in_which_they_were_added) {
  EXPECT_TRUE(list.empty());
  list.add("a");
  list.add(std::vector<std::string>{"b", "c"});
  list.add("");
  EXPECT_THAT(list.rows(), ElementsAre("a", "b", "c", ""));
  EXPECT_EQ(list.count(), 4u);
  EXPECT_FALSE(list.empty());
  EXPECT_EQ(list.row(1), "b");
  EXPECT_EQ(list.row(4), "");
}

TEST_F(ListBoxTest, a_row_ends_at_its_first_NUL) {
  list.add(std::string_view("a\0b", 3));
  list.add(std::string_view("\0b", 2));
  EXPECT_THAT(list.rows(), ElementsAre("a", ""));
  list.replace(0, std::string_view("c\0d", 3));
  EXPECT_EQ(list.row(0), "c");
}

TEST_F(ListBoxTest, rows_added_in_bulk_end_at_their_first_NUL_too) {
  list.add(std::vector<std::string>{std::string("a\0b", 3), "plain"});
  list.add(std::vector<std::string>{std::string("c\0", 2)});
  EXPECT_THAT(list.rows(), ElementsAre("a", "plain", "c"));
}

TEST_F(ListBoxTest, removing_a_row_lets_the_current_row_keep_its_number) {
  fill({"a", "b", "c", "d"});
  list.set_current(2);
  list.remove(0);
  EXPECT_THAT(list.rows(), ElementsAre("b", "c", "d"));
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(list.current_row(), "d");
}

TEST_F(ListBoxTest, the_current_row_is_none_once_its_number_has_no_row) {
  fill({"a", "b"});
  list.set_current(1);
  list.remove(0);
  EXPECT_EQ(list.current(), -1);
  EXPECT_EQ(list.current_row(), "");
}

TEST_F(ListBoxTest, kept_rows_stay_whatever_happens_to_the_list) {
  const std::vector<std::string> before = {"a", "b", "c"};
  const std::vector<std::function<void()>> changes = {
      [&] { list.add("d"); },
      [&] {
        list.add(std::vector<std::string>{"d", "e"});
      },
      [&] { list.remove(0); },
      [&] { list.remove_if([](std::size_t index) { return index == 1; }); },
      [&] { list.replace(2, "z"); },
      [&] { list.take(); },
      [&] { list.clear(); },
  };
  for (const auto& change : changes) {
    fill(before);
    const auto kept = list.kept_rows();
    EXPECT_EQ(kept.get(), &list.rows()) << "nothing is copied as long as nothing changes";
    change();
    EXPECT_EQ(*kept, before);
    EXPECT_NE(list.rows(), before);
  }
}

TEST_F(ListBoxTest, rows_that_are_kept_can_be_taken_too) {
  fill({"a", "b"});
  const auto kept = list.kept_rows();
  EXPECT_THAT(list.take(), ElementsAre("a", "b"));
  EXPECT_THAT(*kept, ElementsAre("a", "b"));
  EXPECT_TRUE(list.empty());
}

TEST_F(ListBoxTest, removing_past_the_end_changes_nothing) {
  fill({"a"});
  list.remove(1);
  list.remove(static_cast<std::size_t>(-1));
  EXPECT_THAT(list.rows(), ElementsAre("a"));
}

TEST_F(ListBoxTest, unwanted_rows_go_all_at_once_and_the_others_keep_their_order) {
  fill({"0", "1", "2", "3", "4", "5"});
  list.remove_if([](std::size_t index) { return index % 2 == 1 || index == 0; });
  EXPECT_THAT(list.rows(), ElementsAre("2", "4"));
  list.remove_if([](std::size_t) { return true; });
  EXPECT_THAT(list.rows(), IsEmpty());
}

TEST_F(ListBoxTest, every_row_is_asked_about_once_by_its_old_number) {
  fill({"a", "b", "c"});
  std::vector<std::size_t> asked;
  list.remove_if([&](std::size_t index) {
    asked.push_back(index);
    return index == 0;
  });
  EXPECT_THAT(asked, ElementsAre(0u, 1u, 2u));
}

TEST_F(ListBoxTest, an_unwanted_row_can_be_chosen_by_its_text) {
  fill({"a.wav", "x", "b.wav", "x"});
  list.remove_if([&](std::size_t index) { return list.row(index) == "x"; });
  EXPECT_THAT(list.rows(), ElementsAre("a.wav", "b.wav"));
}

TEST_F(ListBoxTest, replacing_changes_one_row_and_none_past_the_end) {
  fill({"a", "b"});
  list.replace(1, "c");
  list.replace(2, "d");
  EXPECT_THAT(list.rows(), ElementsAre("a", "c"));
}

TEST_F(ListBoxTest, clearing_leaves_no_row_and_no_current_one) {
  fill({"a", "b"});
  list.set_current(1);
  list.clear();
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.current(), -1);
}

TEST_F(ListBoxTest, a_missing_current_row_is_none) {
  fill({"a", "b"});
  EXPECT_EQ(list.current(), -1);
  list.set_current(1);
  EXPECT_EQ(list.current_row(), "b");
  list.set_current(2);
  EXPECT_EQ(list.current(), -1);
  list.set_current(-7);
  EXPECT_EQ(list.current(), -1);
}

TEST_F(ListBoxTest, drops_are_accepted_where_somebody_handles_them) {
  EXPECT_FALSE(list.accepts_drops());
  list.on_drop = [](const std::vector<std::string>&) {};
  EXPECT_TRUE(list.accepts_drops());
}

TEST_F(LoadedListBoxTest, each_change_of_the_rows_is_reported_once) {
  list.add("a");
  expect_only(ui::Aspect::rows);
  list.add(std::vector<std::string>{"b", "c", "d", "e"});
  expect_only(ui::Aspect::rows);
  list.replace(0, "z");
  expect_only(ui::Aspect::rows);
  list.remove(0);
  expect_only(ui::Aspect::rows);
  list.remove_if([](std::size_t index) { return index < 2; });
  expect_only(ui::Aspect::rows);
  list.clear();
  expect_only(ui::Aspect::rows);
}

TEST_F(LoadedListBoxTest, nothing_is_reported_when_no_row_changed) {
  list.clear();
  list.add(std::vector<std::string>{});
  fill({"a"});
  list.remove(1);
  list.replace(1, "b");
  list.remove_if([](std::size_t) { return false; });
  EXPECT_THAT(backend.take(), IsEmpty());
}

TEST_F(LoadedListBoxTest, the_current_row_is_reported_when_the_program_sets_it_only) {
  fill({"a", "b"});
  list.set_current(1);
  expect_only(ui::Aspect::current_row);
  list.set_current(1);
  list.chosen(0);
  EXPECT_THAT(backend.take(), IsEmpty());
  EXPECT_EQ(list.current_row(), "a");
}

TEST_F(ListBoxTest, the_first_row_in_sight_is_one_of_the_rows) {
  fill({"a", "b", "c"});
  list.set_top(2);
  EXPECT_EQ(list.top(), 2u);
  list.set_top(3);
  EXPECT_EQ(list.top(), 2u);
  list.remove(0);
  EXPECT_EQ(list.top(), 1u) << "it went with its row";
  list.clear();
  EXPECT_EQ(list.top(), 0u);
  list.set_top(1);
  EXPECT_EQ(list.top(), 0u);
}

TEST_F(LoadedListBoxTest, the_first_row_in_sight_is_reported_when_the_program_sets_it_only) {
  fill({"a", "b"});
  list.set_top(1);
  expect_only(ui::Aspect::top);
  list.set_top(1);
  list.scrolled(0);
  EXPECT_THAT(backend.take(), IsEmpty());
  EXPECT_EQ(list.top(), 0u);
}

TEST_F(LoadedListBoxTest, the_extent_is_reported_when_it_changes) {
  list.set_horizontal_extent(300);
  expect_only(ui::Aspect::extent);
  list.set_horizontal_extent(300);
  EXPECT_THAT(backend.take(), IsEmpty());
}

}  // namespace
}  // namespace ordelan::test
