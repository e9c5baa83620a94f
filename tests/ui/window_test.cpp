#include "ui/window.h"

#include <gmock/gmock.h>

#include <functional>

#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using Change = RecordingBackend::Change;

struct WindowTest : ::testing::Test {
  // Makes the same change twice: it is to be reported once.
  void expect_one(const std::string& name, ui::Aspect aspect, const std::function<void()>& change) {
    change();
    change();
    EXPECT_THAT(backend.take(), ElementsAre(Change{name, aspect}));
  }

  RecordingBackend backend;
  ui::Window window{backend, "window"};
  ui::Label label{window, "label"};
  ui::Button button{window, "button"};
};

TEST_F(WindowTest, loading_makes_the_window_and_then_its_controls_in_order) {
  EXPECT_FALSE(window.loaded());
  EXPECT_THAT(backend.attached, IsEmpty());
  window.load();
  EXPECT_TRUE(window.loaded());
  EXPECT_THAT(backend.attached, ElementsAre("window", "label", "button"));
}

TEST_F(WindowTest, on_load_runs_once_when_all_controls_are_there) {
  int loads = 0;
  window.on_load = [&] {
    ++loads;
    EXPECT_EQ(backend.attached.size(), 3u);
    EXPECT_TRUE(window.loaded());
    window.load();
  };
  window.load();
  window.load();
  EXPECT_EQ(loads, 1);
  EXPECT_EQ(backend.attached.size(), 3u);
}

TEST_F(WindowTest, nothing_is_reported_before_the_window_is_loaded) {
  window.set_title("t");
  window.show();
  label.set_caption("c");
  label.hide();
  EXPECT_THAT(backend.changes, IsEmpty());
}

TEST_F(WindowTest, nothing_is_reported_after_the_window_is_unloaded) {
  window.load();
  window.unload();
  window.set_title("t");
  label.set_caption("c");
  button.bring_to_front();
  EXPECT_THAT(backend.changes, IsEmpty());
  EXPECT_EQ(label.caption(), "c") << "the objects stay";
}

TEST_F(WindowTest, unloading_takes_the_controls_away_before_the_window) {
  window.load();
  window.show();
  window.unload();
  EXPECT_FALSE(window.loaded());
  EXPECT_FALSE(window.visible());
  EXPECT_THAT(backend.gone, ElementsAre("label", "button", "window"));
  window.unload();
  EXPECT_EQ(backend.gone.size(), 3u);
}

TEST_F(WindowTest, a_window_can_be_loaded_again) {
  window.load();
  window.unload();
  window.load();
  label.set_caption("c");
  EXPECT_THAT(backend.take(), ElementsAre(Change{"label", ui::Aspect::text}));
}

TEST_F(WindowTest, a_control_that_goes_takes_its_peer_along_and_leaves_the_window) {
  auto extra = std::make_unique<ui::Label>(window, "extra");
  EXPECT_THAT(window.controls(), ElementsAre(&label, &button, extra.get()));
  window.load();
  extra.reset();
  EXPECT_THAT(backend.gone, ElementsAre("extra"));
  EXPECT_THAT(window.controls(), ElementsAre(&label, &button));
}

TEST_F(WindowTest, a_window_that_goes_lets_no_peer_live_on) {
  {
    ui::Window other(backend, "other");
    ui::Image image(other, "image");
    other.load();
  }
  EXPECT_THAT(backend.gone, UnorderedElementsAre("other", "image"));
}

TEST_F(WindowTest, each_change_of_a_window_is_reported_once) {
  window.load();
  using ui::Aspect;
  expect_one("window", Aspect::text, [&] { window.set_title("t"); });
  expect_one("window", Aspect::visible, [&] { window.show(); });
  expect_one("window", Aspect::visible, [&] { window.hide(); });
  expect_one("window", Aspect::bounds, [&] { window.set_position({3, 4}); });
  expect_one("window", Aspect::bounds, [&] { window.set_size({30, 40}); });
  expect_one("window", Aspect::colors, [&] { window.set_back_color(ui::rgb(1, 2, 3)); });
  expect_one("window", Aspect::colors, [&] { window.set_background("fondo"); });
  expect_one("window", Aspect::order, [&] { window.set_topmost(true); });
  expect_one("window", Aspect::state, [&] { window.set_minimized(true); });
  expect_one("window", Aspect::state, [&] { window.set_waiting(true); });
}

TEST_F(WindowTest, it_takes_the_size_of_its_background_where_that_exists) {
  window.set_size({30, 40});
  window.set_background("fondo");
  window.size_to_background();
  EXPECT_EQ(window.size(), (ui::Size{30, 40}));
  backend.picture_sizes["fondo"] = {200, 100};
  window.size_to_background();
  EXPECT_EQ(window.size(), (ui::Size{200, 100}));
}

TEST_F(WindowTest, what_the_user_did_to_the_window_is_not_reported_back) {
  window.load();
  window.moved_to({5, 6});
  window.minimized_by_user(true);
  EXPECT_EQ(window.position(), (ui::Point{5, 6}));
  EXPECT_TRUE(window.minimized());
  EXPECT_THAT(backend.take(), IsEmpty());
}

TEST_F(WindowTest, each_change_of_a_control_is_reported_once) {
  window.load();
  using ui::Aspect;
  expect_one("label", Aspect::text, [&] { label.set_caption("c"); });
  expect_one("label", Aspect::visible, [&] { label.hide(); });
  expect_one("label", Aspect::enabled, [&] { label.set_enabled(false); });
  expect_one("label", Aspect::bounds, [&] { label.set_bounds({1, 2, 3, 4}); });
  expect_one("label", Aspect::colors, [&] { label.set_back_color(ui::rgb(1, 2, 3)); });
  expect_one("label", Aspect::colors, [&] { label.set_fore_color(ui::rgb(3, 2, 1)); });
  expect_one("label", Aspect::font, [&] { label.set_font({.points = 18, .bold = true}); });
  expect_one("label", Aspect::tip, [&] { label.set_tip("tip"); });
  expect_one("label", Aspect::text, [&] { label.set_description("what it is"); });
}

TEST_F(WindowTest, coming_to_the_front_is_reported_every_time) {
  window.load();
  label.bring_to_front();
  label.bring_to_front();
  window.bring_to_front();
  EXPECT_THAT(backend.take(),
              ElementsAre(Change{"label", ui::Aspect::order}, Change{"label", ui::Aspect::order},
                          Change{"window", ui::Aspect::order}));
}

TEST(Colors, a_colour_word_holds_blue_green_and_red) {
  EXPECT_EQ(ui::rgb(0x11, 0x22, 0x33), ui::Color{0x332211});
}

}  // namespace
}  // namespace ordelan::test
