// The timer by which buttons and sliders find out that the pointer has gone.
#include <gmock/gmock.h>

#include <memory>

#include "headless/headless_backend.h"
#include "support/fake_services.h"
#include "ui/button.h"
#include "ui/slider.h"
#include "ui/window.h"

namespace ordelan::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::Mouse;

struct HoverTest : ::testing::Test {
  HoverTest() {
    button->set_bounds({0, 0, 100, 20});
    button->set_style(1);
    button->set_picture_normal("normal");
    button->set_picture_down("down");
    button->set_picture_over("over");
    button->on_click = [this] { events.emplace_back("Click"); };
    button->on_mouse_in = [this](int) { events.emplace_back("MouseIn"); };
    button->on_mouse_out = [this](int number) {
      events.push_back("MouseOut " + std::to_string(number));
    };
    window.load();
    button->pointer_is_on_it = [this] {
      ++questions;
      return on_it;
    };
  }
  void tick() {
    clock.time += 10ms;
    backend.pump();
  }

  HandClock clock;
  headless::HeadlessBackend backend{clock};
  ui::Window window{backend, "window"};
  std::unique_ptr<ui::Button> button = std::make_unique<ui::Button>(window, "button");
  std::vector<std::string> events;
  int questions = 0;
  bool on_it = true;
};

TEST_F(HoverTest, the_pointer_is_not_polled_until_it_has_come) {
  tick();
  EXPECT_EQ(questions, 0);
  button->mouse_move({{1, 1}, 0, 0});
  clock.time += 9ms;
  backend.pump();
  EXPECT_EQ(questions, 0);
  clock.time += 1ms;
  backend.pump();
  EXPECT_EQ(questions, 1);
  tick();
  EXPECT_EQ(questions, 2);
}

TEST_F(HoverTest, the_first_tick_without_the_pointer_ends_it) {
  button->mouse_move({{1, 1}, 0, 0});
  tick();
  EXPECT_TRUE(button->over());
  EXPECT_EQ(button->picture_to_show(), "over");
  on_it = false;
  tick();
  EXPECT_FALSE(button->over());
  EXPECT_EQ(button->picture_to_show(), "normal");
  EXPECT_THAT(events, ElementsAre("MouseIn", "MouseOut 0"));
  const int asked = questions;
  tick();
  EXPECT_EQ(questions, asked) << "and the pointer is no longer polled";
  EXPECT_THAT(events, ElementsAre("MouseIn", "MouseOut 0"));
  on_it = true;
  button->mouse_move({{1, 1}, 0, 0});
  tick();
  EXPECT_TRUE(button->over());
  EXPECT_EQ(questions, asked + 1);
}

TEST_F(HoverTest, the_pointers_going_is_reported_before_the_button_is_drawn_without_it) {
  std::string seen;
  button->on_mouse_out = [&](int) {
    seen = (button->over() ? "over " : "gone ") + button->picture_to_show();
  };
  button->mouse_move({{1, 1}, 0, 0});
  on_it = false;
  tick();
  EXPECT_EQ(seen, "gone over");
  EXPECT_EQ(button->picture_to_show(), "normal");
}

TEST_F(HoverTest, a_press_dragged_out_and_let_go_is_no_click) {
  button->mouse_move({{1, 1}, 0, 0});
  button->mouse_down({{1, 1}, ui::kLeftButton, 0});
  button->mouse_move({{300, 1}, ui::kLeftButton, 0});
  on_it = false;
  tick();
  EXPECT_THAT(events, ElementsAre("MouseIn", "MouseOut 1"));
  button->mouse_up({{300, 1}, ui::kLeftButton, 0});
  EXPECT_THAT(events, ElementsAre("MouseIn", "MouseOut 1"));
}

TEST_F(HoverTest, a_held_button_shows_nothing_of_it_while_the_pointer_is_elsewhere) {
  button->mouse_move({{1, 1}, 0, 0});
  button->mouse_down({{1, 1}, ui::kLeftButton, 0});
  EXPECT_EQ(button->picture_to_show(), "down");
  on_it = false;
  tick();
  EXPECT_TRUE(button->down());
  EXPECT_FALSE(button->look().pressed);
  EXPECT_EQ(button->picture_to_show(), "normal");
  on_it = true;
  button->mouse_move({{1, 1}, ui::kLeftButton, 0});
  EXPECT_EQ(button->picture_to_show(), "down") << "back again";
  button->mouse_up({{1, 1}, ui::kLeftButton, 0});
  EXPECT_THAT(events, ElementsAre("MouseIn", "MouseOut 1", "MouseIn", "Click"));
}

TEST_F(HoverTest, without_a_peer_to_ask_the_pointer_counts_as_gone) {
  button->pointer_is_on_it = nullptr;
  button->mouse_move({{1, 1}, 0, 0});
  tick();
  EXPECT_FALSE(button->over());
}

TEST_F(HoverTest, a_button_may_be_destroyed_as_the_pointer_goes) {
  button->on_mouse_out = [&](int) { button.reset(); };
  button->mouse_move({{1, 1}, 0, 0});
  on_it = false;
  tick();
  EXPECT_FALSE(button);
  tick();
}

TEST_F(HoverTest, a_window_may_be_unloaded_as_the_pointer_goes) {
  button->on_mouse_out = [&](int) { window.unload(); };
  button->mouse_move({{1, 1}, 0, 0});
  button->mouse_down({{1, 1}, ui::kLeftButton, 0});
  on_it = false;
  tick();
  EXPECT_FALSE(window.loaded());
  EXPECT_FALSE(button->down()) << "the end of the window is the end of the press";
}

TEST_F(HoverTest, a_window_unloaded_under_the_pointer_stops_the_asking) {
  button->mouse_move({{1, 1}, 0, 0});
  window.unload();
  on_it = false;
  tick();
  EXPECT_EQ(questions, 0);
  EXPECT_THAT(events, ElementsAre("MouseIn"));
}

TEST_F(HoverTest, a_slider_shows_its_thumb_lit_while_the_pointer_is_over_it) {
  ui::Slider slider(window, "slider");
  slider.set_bounds({0, 0, 100, 20});
  slider.set_position(1);
  slider.set_bar("bar");
  slider.set_bar_over("over");
  bool here = true;
  slider.pointer_is_on_it = [&] { return here; };
  slider.mouse_move({{50, 10}, 0, 0});
  EXPECT_TRUE(slider.over());
  EXPECT_EQ(slider.thumb_picture(), "over");
  tick();
  EXPECT_EQ(slider.thumb_picture(), "over");
  here = false;
  tick();
  EXPECT_FALSE(slider.over());
  EXPECT_EQ(slider.thumb_picture(), "bar");
}

}  // namespace
}  // namespace ordelan::test
