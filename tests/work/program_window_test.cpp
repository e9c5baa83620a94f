#include "work/program_window.h"

#include <gmock/gmock.h>

#include "location/lost_file_window.h"
#include "support/program_bench.h"
#include "work/arrange.h"

namespace ordelan::test {
namespace {

constexpr ui::Size kLayout{100, 80};

ui::Rect in_window(unsigned edges, ui::Size window) {
  return work::anchored({"control", -1, 10, 20, 30, 40, edges}, kLayout, window);
}

TEST(Anchors, a_control_keeps_its_distance_to_the_edges_that_it_names) {
  const ui::Size larger{150, 90};
  EXPECT_EQ(in_window(skin::kTopLeft, larger), (ui::Rect{10, 20, 30, 40}));
  EXPECT_EQ(in_window(skin::kTopRight, larger), (ui::Rect{60, 20, 30, 40}));
  EXPECT_EQ(in_window(skin::kBottomLeft, larger), (ui::Rect{10, 30, 30, 40}));
  EXPECT_EQ(in_window(skin::kBottomRight, larger), (ui::Rect{60, 30, 30, 40}));
  EXPECT_EQ(in_window(skin::kAcross, larger), (ui::Rect{10, 20, 80, 40}));
  EXPECT_EQ(in_window(skin::kAllEdges, larger), (ui::Rect{10, 20, 80, 50}));
}

TEST(Anchors, a_control_that_names_neither_of_two_edges_stays_in_the_middle_between_them) {
  EXPECT_EQ(in_window(skin::kBottom, {150, 90}), (ui::Rect{35, 30, 30, 40}));
  EXPECT_EQ(in_window(skin::kRight, {150, 90}), (ui::Rect{60, 25, 30, 40}));
  EXPECT_EQ(in_window(skin::kBottom, {80, 80}), (ui::Rect{0, 20, 30, 40}));
}

TEST(Anchors, in_the_size_of_the_layout_every_control_stands_where_that_says) {
  for (unsigned edges = 0; edges < 16; ++edges) {
    EXPECT_EQ(in_window(edges, kLayout), (ui::Rect{10, 20, 30, 40})) << edges;
  }
}

TEST(Anchors, no_control_becomes_smaller_than_nothing) {
  EXPECT_EQ(in_window(skin::kAllEdges, {20, 10}), (ui::Rect{10, 20, 0, 0}));
}

struct ResizableWindow : ::testing::Test, ProgramBench {
  location::Perdidos& report() { return *windows.touch<location::Perdidos>(); }
};

TEST_F(ResizableWindow, its_controls_follow_the_size_that_the_user_gives_it) {
  start();
  location::Perdidos& window = report();
  const ui::Size was = window.size();
  const ui::Rect list = window.ListPerdidos.bounds();
  const ui::Rect close = window.cmdSalir.bounds();
  window.resized_to({was.width + 100, was.height + 50});
  EXPECT_EQ(window.ListPerdidos.bounds(),
            (ui::Rect{list.left, list.top, list.width + 100, list.height + 50}));
  EXPECT_EQ(window.cmdSalir.bounds(),
            (ui::Rect{close.left + 100, close.top + 50, close.width, close.height}));
  window.resized_to(was);
  EXPECT_EQ(window.ListPerdidos.bounds(), list);
}

TEST_F(ResizableWindow, in_its_smallest_size_no_control_covers_another) {
  start();
  location::Perdidos& window = report();
  window.resized_to(window.smallest_size());
  const auto& controls = window.controls();
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const ui::Rect& a = controls[i]->bounds();
    EXPECT_LE(a.left + a.width, window.size().width) << controls[i]->name();
    EXPECT_LE(a.top + a.height, window.size().height) << controls[i]->name();
    EXPECT_GE(a.left, 0) << controls[i]->name();
    for (std::size_t j = 0; j < i; ++j) {
      const ui::Rect& b = controls[j]->bounds();
      const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left ||
                         a.top + a.height <= b.top || b.top + b.height <= a.top;
      EXPECT_TRUE(apart) << controls[i]->name() << " " << controls[j]->name();
    }
  }
}

TEST_F(ResizableWindow, is_as_large_as_it_was_left_and_where_it_was_left) {
  start();
  report().resized_to({900, 500});
  report().set_position({33, 44});
  report().Salir_Click();
  ASSERT_EQ(windows.find<location::Perdidos>(), nullptr);
  EXPECT_EQ(report().size(), (ui::Size{900, 500}));
  EXPECT_EQ(report().position(), (ui::Point{33, 44}));
  EXPECT_EQ(report().ListPerdidos.bounds().width, 900 - 32);
}

TEST_F(ResizableWindow, a_stored_size_that_no_window_can_have_is_brought_into_the_limits) {
  disk.write("Config.ini", "[Settings]\r\nPerdidos_Width=-5\r\nPerdidos_Height=1e300\r\n");
  start();
  EXPECT_EQ(report().size().width, report().smallest_size().width);
  EXPECT_LE(report().size().height, 16384);
}

TEST_F(ResizableWindow, others_keep_the_size_of_their_layout_and_store_none) {
  disk.write("Config.ini", "[Settings]\r\nMe_Width=2000\r\nMe_Height=2000\r\n");
  start();
  EXPECT_EQ(form.size(), (ui::Size{1100, 720}));
  form.Salir_Click();
  EXPECT_EQ(settings.number("Me_Width", 0), 2000) << "not written";
}

}  // namespace
}  // namespace ordelan::test
