#include "ui/check_list_box.h"

#include <gmock/gmock.h>

#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct CheckListBoxTest : ::testing::Test {
  CheckListBoxTest() {
    boxes.set_bounds({10, 10, 19, 200});
    boxes.on_tick = [this](std::size_t row) { ticked.push_back(row); };
  }

  RecordingBackend backend;
  ui::Window window{backend, "window"};
  ui::ListBox list{window, "list"};
  ui::CheckListBox boxes{window, "boxes"};
  std::vector<std::size_t> ticked;
};

TEST_F(CheckListBoxTest, new_rows_are_not_ticked_and_all_can_be_at_once) {
  boxes.fill({"a", "b"});
  EXPECT_FALSE(boxes.ticked(0));
  boxes.tick_all();
  EXPECT_TRUE(boxes.ticked(0));
  EXPECT_TRUE(boxes.ticked(1));
  EXPECT_FALSE(boxes.ticked(2)) << "past the end";
  EXPECT_THAT(ticked, IsEmpty()) << "that was not the user";
}

TEST_F(CheckListBoxTest, a_click_changes_the_tick_and_is_reported) {
  boxes.fill({"a", "b"});
  boxes.toggle(1);
  EXPECT_TRUE(boxes.ticked(1));
  boxes.toggle(1);
  EXPECT_FALSE(boxes.ticked(1));
  boxes.toggle(2);
  EXPECT_THAT(ticked, ElementsAre(1u, 1u));
}

TEST_F(CheckListBoxTest, a_removed_row_takes_its_tick_along) {
  boxes.fill({"a", "b", "c"});
  boxes.set_ticked(2, true);
  boxes.remove(0);
  EXPECT_FALSE(boxes.ticked(0));
  EXPECT_TRUE(boxes.ticked(1));
  boxes.remove(9);
  EXPECT_EQ(boxes.count(), 2u);
  boxes.clear();
  EXPECT_FALSE(boxes.ticked(0));
}

TEST_F(CheckListBoxTest, boxes_have_the_room_to_the_left_of_the_list_that_they_stand_beside) {
  EXPECT_EQ(list.boxes(), nullptr);
  boxes.stand_beside(list);
  EXPECT_EQ(boxes.beside(), &list);
  EXPECT_EQ(list.boxes(), &boxes);
  EXPECT_EQ(list.indent(), 19);
}

TEST_F(CheckListBoxTest, a_list_forgets_boxes_that_are_destroyed) {
  {
    ui::CheckListBox shorter(window, "shorter");
    shorter.stand_beside(list);
  }
  EXPECT_EQ(list.boxes(), nullptr);
}

TEST_F(CheckListBoxTest, boxes_and_list_scroll_on_their_own) {
  list.add(std::vector<std::string>(100, "x"));
  boxes.fill(std::vector<std::string>(100, "x"));
  boxes.stand_beside(list);
  boxes.set_top(40);
  EXPECT_EQ(list.top(), 0u);
  list.set_top(7);
  EXPECT_EQ(boxes.top(), 40u);
}

TEST_F(CheckListBoxTest, ticks_and_places_are_shown) {
  window.load();
  boxes.fill({"a", "b"});
  backend.take();
  boxes.toggle(0);
  EXPECT_THAT(backend.take(), Contains(RecordingBackend::Change{"boxes", ui::Aspect::value}));
  boxes.set_top(1);
  EXPECT_THAT(backend.take(), Contains(RecordingBackend::Change{"boxes", ui::Aspect::top}));
  boxes.set_top(1);
  EXPECT_THAT(backend.take(), IsEmpty());
}

}  // namespace
}  // namespace ordelan::test
