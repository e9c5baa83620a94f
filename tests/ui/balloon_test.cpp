#include "ui/balloon.h"

#include <gmock/gmock.h>

#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingBackend::Change;

struct BalloonTest : ::testing::Test {
  BalloonTest() {
    label.set_bounds({100, 200, 50, 20});
    window.load();
    backend.take();
  }

  RecordingBackend backend;
  ui::Window window{backend, "window"};
  ui::Label label{window, "label"};
  ui::Class1 balloon;
};

TEST_F(BalloonTest, a_new_balloon_has_nothing_set) {
  EXPECT_EQ(balloon.style(), 0);
  EXPECT_FALSE(balloon.centered());
  EXPECT_EQ(balloon.icon(), 0);
  EXPECT_EQ(balloon.fore_color(), std::nullopt);
  EXPECT_EQ(balloon.back_color(), std::nullopt);
  EXPECT_EQ(balloon.title(), "");
  EXPECT_EQ(balloon.tip_text(), "");
  EXPECT_EQ(balloon.visible_time(), 0);
  EXPECT_EQ(balloon.delay_time(), 0);
  EXPECT_FALSE(balloon.exists());
}

TEST_F(BalloonTest, what_is_set_is_kept) {
  balloon.set_style(1);
  balloon.set_centered(true);
  balloon.set_icon(2);
  balloon.set_fore_color(ui::rgb(1, 2, 3));
  balloon.set_back_color(ui::rgb(4, 5, 6));
  balloon.set_title("title");
  balloon.set_tip_text("text");
  balloon.set_visible_time(5000);
  balloon.set_delay_time(10);
  EXPECT_EQ(balloon.style(), 1);
  EXPECT_TRUE(balloon.centered());
  EXPECT_EQ(balloon.icon(), 2);
  EXPECT_EQ(balloon.fore_color(), ui::rgb(1, 2, 3));
  EXPECT_EQ(balloon.back_color(), ui::rgb(4, 5, 6));
  EXPECT_EQ(balloon.title(), "title");
  EXPECT_EQ(balloon.tip_text(), "text");
  EXPECT_EQ(balloon.visible_time(), 5000);
  EXPECT_EQ(balloon.delay_time(), 10);
  EXPECT_THAT(backend.changes, IsEmpty()) << "no peer is notified before there is a balloon";
}

TEST_F(BalloonTest, showing_before_creating_does_nothing) {
  balloon.Show(1, 2, label);
  balloon.Show(1, 2, window);
  EXPECT_EQ(balloon.shown(), std::nullopt);
  EXPECT_THAT(backend.changes, IsEmpty());
  balloon.Create(window);
  EXPECT_EQ(balloon.shown(), std::nullopt) << "nor is it made up for later";
}

TEST_F(BalloonTest, it_is_shown_at_a_place_of_a_control_or_a_window) {
  balloon.Create(window);
  EXPECT_TRUE(balloon.exists());
  balloon.Show(3, 4, label);
  EXPECT_EQ(balloon.shown(), (ui::Class1::Place{&window, {103, 204}}));
  ui::Window other(backend, "other");
  balloon.Show(3, 4, other);
  EXPECT_EQ(balloon.shown(), (ui::Class1::Place{&other, {3, 4}}));
  EXPECT_THAT(backend.take(), ElementsAre(Change{"balloon", ui::Aspect::visible},
                                          Change{"balloon", ui::Aspect::visible}));
}

TEST_F(BalloonTest, a_balloon_that_is_up_takes_changes_over) {
  balloon.Create(window);
  balloon.set_tip_text("text");
  balloon.set_title("title");
  balloon.set_icon(1);
  balloon.set_fore_color(ui::rgb(1, 2, 3));
  balloon.set_back_color(std::nullopt);
  balloon.set_visible_time(1);
  balloon.set_delay_time(2);
  EXPECT_THAT(
      backend.take(),
      ElementsAre(Change{"balloon", ui::Aspect::text}, Change{"balloon", ui::Aspect::value},
                  Change{"balloon", ui::Aspect::value}, Change{"balloon", ui::Aspect::colors},
                  Change{"balloon", ui::Aspect::colors}, Change{"balloon", ui::Aspect::interval},
                  Change{"balloon", ui::Aspect::interval}));
}

TEST_F(BalloonTest, creating_again_takes_the_older_balloon_away_first) {
  balloon.Create(window);
  balloon.Show(1, 2, label);
  balloon.Create(window);
  EXPECT_THAT(backend.gone, ElementsAre("balloon"));
  EXPECT_TRUE(balloon.exists());
  EXPECT_EQ(balloon.shown(), std::nullopt);
}

TEST_F(BalloonTest, destroying_takes_it_away_and_keeps_what_was_set) {
  balloon.set_title("title");
  balloon.Create(window);
  balloon.Show(1, 2, label);
  balloon.Destroy();
  EXPECT_FALSE(balloon.exists());
  EXPECT_EQ(balloon.shown(), std::nullopt);
  EXPECT_THAT(backend.gone, ElementsAre("balloon"));
  backend.take();
  balloon.Destroy();
  balloon.Show(1, 2, label);
  balloon.set_title("other");
  EXPECT_THAT(backend.changes, IsEmpty());
  EXPECT_EQ(balloon.title(), "other");
}

TEST_F(BalloonTest, there_is_no_balloon_for_a_window_that_is_not_loaded) {
  window.unload();
  balloon.Create(window);
  EXPECT_FALSE(balloon.exists());
  balloon.Create(label);
  EXPECT_FALSE(balloon.exists());
}

TEST_F(BalloonTest, it_may_belong_to_a_control) {
  backend.attached.clear();
  balloon.Create(label);
  EXPECT_TRUE(balloon.exists());
  EXPECT_THAT(backend.attached, ElementsAre("balloon of label"));
  balloon.Create(window);
  EXPECT_THAT(backend.attached, ElementsAre("balloon of label", "balloon"));
  EXPECT_THAT(backend.gone, ElementsAre("balloon of label"));
}

}  // namespace
}  // namespace ordelan::test
