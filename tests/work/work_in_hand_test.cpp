// The shared work: which runs have to stop, what the lists' headings say, and where controls stand.
#include "work/work_in_hand.h"

#include <gtest/gtest.h>

#include <array>

#include "headless/headless_backend.h"
#include "skin/main_window_layout.h"
#include "support/fake_services.h"
#include "work/arrange.h"
#include "work/work_lists.h"

namespace ordelan::test {
namespace {

TEST(WorkInHand, a_run_stops_when_it_is_cancelled) {
  work::WorkInHand work;
  const auto job = work.begin_job();
  EXPECT_FALSE(work.must_stop(job));
  work.Cancelar = true;
  EXPECT_TRUE(work.must_stop(job));
  EXPECT_FALSE(work.superseded(job));
}

TEST(WorkInHand, a_run_stops_when_a_newer_one_has_begun) {
  work::WorkInHand work;
  const auto first = work.begin_job();
  const auto second = work.begin_job();
  EXPECT_TRUE(work.superseded(first));
  EXPECT_TRUE(work.must_stop(first));
  EXPECT_FALSE(work.must_stop(second));
  EXPECT_EQ(work.current_job(), second);
}

struct LayoutTest : ::testing::Test {
  HandClock clock;
  headless::HeadlessBackend backend{clock};
  ui::Window window{backend, "window"};
};

TEST_F(LayoutTest, headings_count_the_rows_of_their_list) {
  work::WorkLists lists(window);
  EXPECT_TRUE(lists.empty());
  lists.ListProyectos.add(std::vector<std::string>{"1 --> a", "2 --> b"});
  lists.head_projects("D:\\Mix");
  EXPECT_EQ(lists.LabelCheck[0].caption(), "Encontrados 2 proyectos en:");
  EXPECT_EQ(lists.LabelCheck[1].caption(), "D:\\Mix");
  lists.ListVip.add("D:\\a.wav");
  lists.LabelCount.set_visible(false);
  lists.head_project("tema.vip", "D:\\Mix");
  EXPECT_EQ(lists.LabelCount[0].caption(), "1 Archivos utilizados en: tema.vip");
  EXPECT_EQ(lists.LabelCount[1].caption(), "D:\\Mix");
  EXPECT_TRUE(lists.LabelCount[0].visible());
  EXPECT_TRUE(lists.LabelCount[1].visible());
  EXPECT_FALSE(lists.empty());
}

TEST_F(LayoutTest, a_project_without_audio_has_a_heading_of_one_line) {
  work::WorkLists lists(window);
  lists.head_midi_project();
  EXPECT_NE(lists.LabelCount[0].caption(), "");
  EXPECT_FALSE(lists.LabelCount[1].visible());
}

TEST_F(LayoutTest, the_scratch_list_is_never_shown_and_is_ignored) {
  work::WorkLists lists(window);
  lists.List1.add("scratch");
  EXPECT_FALSE(lists.List1.visible());
  EXPECT_TRUE(lists.empty());
}

TEST_F(LayoutTest, each_control_stands_where_the_layout_says) {
  ui::Label label(window, "label");
  ui::ControlArray<ui::Label> array(window, "array", 2);
  ui::Label other(window, "other");
  other.set_bounds({9, 9, 9, 9});
  const std::array places = {
      skin::Place{"array", 1, 5, 6, 7, 8}, skin::Place{"array", 0, 3, 4, 5, 6},
      skin::Place{"label", -1, 1, 2, 3, 4}, skin::Place{"unknown", -1, 0, 0, 1, 1}};
  work::arrange(window, {100, 100, places});
  EXPECT_EQ(label.bounds(), (ui::Rect{1, 2, 3, 4}));
  EXPECT_EQ(array[0].bounds(), (ui::Rect{3, 4, 5, 6}));
  EXPECT_EQ(array[1].bounds(), (ui::Rect{5, 6, 7, 8}));
  EXPECT_EQ(other.bounds(), (ui::Rect{9, 9, 9, 9})) << "the layout does not name it";
}

TEST(MainWindowLayout, every_control_is_placed_once_and_inside_the_window) {
  const auto places = skin::kMainWindow.places;
  for (std::size_t i = 0; i < places.size(); ++i) {
    const auto& place = places[i];
    EXPECT_GE(place.left, 0) << place.name;
    EXPECT_GE(place.top, 0) << place.name;
    EXPECT_GT(place.width, 0) << place.name;
    EXPECT_GT(place.height, 0) << place.name;
    EXPECT_LE(place.left + place.width, skin::kMainWindow.width) << place.name;
    EXPECT_LE(place.top + place.height, skin::kMainWindow.height) << place.name;
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_FALSE(place.name == places[j].name && place.index == places[j].index) << place.name;
    }
  }
}

}  // namespace
}  // namespace ordelan::test
