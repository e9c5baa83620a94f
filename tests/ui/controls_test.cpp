// Check boxes, text boxes, pictures, progress bars and arrays of controls.
#include <gmock/gmock.h>

#include "ui/control_array.h"
#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingBackend::Change;

struct ControlsTest : ::testing::Test {
  RecordingBackend backend;
  ui::Window window{backend, "window"};
};

TEST_F(ControlsTest, setting_a_check_box_raises_no_click) {
  ui::CheckBox box(window, "box");
  int clicks = 0;
  box.on_click = [&] { ++clicks; };
  window.load();
  box.set_checked(true);
  box.set_checked(true);
  EXPECT_TRUE(box.checked());
  EXPECT_EQ(clicks, 0);
  EXPECT_THAT(backend.take(), ElementsAre(Change{"box", ui::Aspect::value}));
}

TEST_F(ControlsTest, a_click_on_a_check_box_changes_the_tick_before_it_is_handled) {
  ui::CheckBox box(window, "box");
  box.toggle();
  EXPECT_TRUE(box.checked()) << "also where no handler is set";
  std::vector<bool> seen;
  box.on_click = [&] { seen.push_back(box.checked()); };
  box.toggle();
  box.toggle();
  EXPECT_THAT(seen, ElementsAre(false, true));
}

TEST_F(ControlsTest, a_text_box_reports_what_the_program_wrote_and_not_what_the_user_typed) {
  ui::TextBox box(window, "box");
  EXPECT_TRUE(box.read_only());
  window.load();
  box.set_text("a");
  box.set_text("a");
  EXPECT_THAT(backend.take(), ElementsAre(Change{"box", ui::Aspect::text}));
  box.typed("b");
  EXPECT_THAT(backend.take(), IsEmpty());
  EXPECT_EQ(box.text(), "b");
  box.set_read_only(false);
  EXPECT_THAT(backend.take(), ElementsAre(Change{"box", ui::Aspect::state}));
}

TEST_F(ControlsTest, a_picture_is_reported_when_it_changes) {
  ui::Image image(window, "image");
  window.load();
  image.set_picture("proyecto");
  image.set_picture("proyecto");
  EXPECT_THAT(backend.take(), ElementsAre(Change{"image", ui::Aspect::value}));
}

TEST_F(ControlsTest, a_picture_is_shown_by_its_name_or_by_its_pixels) {
  ui::Image image(window, "image");
  image.set_picture("proyecto");
  window.load();
  image.set_pixels(2, 1, {0xFF0000FF, 0x80FFFFFF});
  EXPECT_THAT(backend.take(), ElementsAre(Change{"image", ui::Aspect::value}));
  EXPECT_EQ(image.picture(), "");
  EXPECT_EQ(image.pixels().width, 2);
  EXPECT_EQ(image.pixels().height, 1);
  EXPECT_THAT(image.pixels().argb, ElementsAre(0xFF0000FFu, 0x80FFFFFFu));
  image.set_picture("");
  EXPECT_THAT(backend.take(), ElementsAre(Change{"image", ui::Aspect::value}));
  EXPECT_THAT(image.pixels().argb, IsEmpty());
  image.set_picture("");
  EXPECT_THAT(backend.take(), IsEmpty());
}

TEST_F(ControlsTest, pixels_that_do_not_fill_their_size_are_no_picture) {
  ui::Image image(window, "image");
  struct Wrong {
    int width;
    int height;
    std::size_t pixels;
  };
  for (const Wrong wrong :
       {Wrong{2, 2, 3}, Wrong{2, 2, 5}, Wrong{-1, -1, 1}, Wrong{0, 5, 0}, Wrong{65536, 65536, 0}}) {
    image.set_pixels(1, 1, {0xFF000000});
    image.set_pixels(wrong.width, wrong.height, std::vector<std::uint32_t>(wrong.pixels));
    EXPECT_THAT(image.pixels().argb, IsEmpty()) << wrong.width << " x " << wrong.height;
    EXPECT_EQ(image.pixels().width, 0);
  }
}

TEST_F(ControlsTest, a_control_keeps_what_the_program_tags_it_with) {
  ui::ControlArray<ui::Label> array(window, "label", 2);
  window.load();
  EXPECT_EQ(array[0].tag(), "");
  array[0].set_tag("D:\\Mix");
  array[1].set_tag("7");
  EXPECT_EQ(array[0].tag(), "D:\\Mix");
  EXPECT_EQ(array[1].tag(), "7");
  EXPECT_THAT(backend.take(), IsEmpty()) << "it is never shown";
}

TEST_F(ControlsTest, a_progress_bar_keeps_any_value) {
  ui::ProgressBar bar(window, "bar");
  window.load();
  bar.set_value(-5);
  bar.set_value(5'000'000'000);
  bar.set_value(5'000'000'000);
  EXPECT_EQ(bar.value(), 5'000'000'000);
  EXPECT_THAT(backend.take(),
              ElementsAre(Change{"bar", ui::Aspect::value}, Change{"bar", ui::Aspect::value}));
}

TEST_F(ControlsTest, a_range_is_reported_once_with_both_its_ends) {
  // A peer that got one end only would see a range that is upside down.
  ui::ProgressBar bar(window, "bar");
  window.load();
  bar.set_range(1000, 2000);
  EXPECT_EQ(bar.minimum(), 1000);
  EXPECT_EQ(bar.maximum(), 2000);
  EXPECT_THAT(backend.take(), ElementsAre(Change{"bar", ui::Aspect::value}));
  bar.set_range(1000, 2000);
  EXPECT_THAT(backend.take(), IsEmpty());
  bar.set_range(1000, 3000);
  EXPECT_THAT(backend.take(), ElementsAre(Change{"bar", ui::Aspect::value}));
}

TEST_F(ControlsTest, the_controls_of_an_array_are_numbered_from_zero) {
  ui::ControlArray<ui::Label> array(window, "label", 2);
  EXPECT_EQ(array.size(), 2);
  EXPECT_EQ(array[0].name(), "label");
  EXPECT_EQ(array[0].index(), 0);
  EXPECT_EQ(array[1].index(), 1);
  EXPECT_THAT(window.controls(), ElementsAre(&array[0], &array[1]));
  EXPECT_THROW(array[2], std::out_of_range);
}

TEST_F(ControlsTest, a_control_loaded_into_a_window_that_is_up_is_shown_at_once) {
  ui::ControlArray<ui::CheckBox> array(window, "box", 1);
  window.load();
  ui::CheckBox& added = array.load();
  EXPECT_EQ(added.index(), 1);
  EXPECT_THAT(backend.attached, ElementsAre("window", "box0", "box1"));
  added.set_caption("E:");
  EXPECT_THAT(backend.take(), ElementsAre(Change{"box1", ui::Aspect::text}));
}

TEST_F(ControlsTest, a_control_loaded_before_its_window_is_shown_with_it) {
  ui::ControlArray<ui::CheckBox> array(window, "box", 1);
  array.load();
  EXPECT_THAT(backend.attached, IsEmpty());
  window.load();
  EXPECT_THAT(backend.attached, ElementsAre("window", "box0", "box1"));
}

TEST_F(ControlsTest, unloading_takes_the_last_control_of_an_array_away) {
  ui::ControlArray<ui::CheckBox> array(window, "box", 3);
  window.load();
  array.unload();
  EXPECT_EQ(array.size(), 2);
  EXPECT_THAT(backend.gone, ElementsAre("box2"));
  EXPECT_THAT(window.controls(), ElementsAre(&array[0], &array[1]));
  array.load();
  EXPECT_EQ(array[2].index(), 2);
}

TEST_F(ControlsTest, an_array_can_be_shown_and_hidden_as_one) {
  ui::ControlArray<ui::Label> array(window, "label", 3);
  array.set_visible(false);
  for (const auto& label : array) EXPECT_FALSE(label->visible());
  array.set_visible(true);
  for (const auto& label : array) EXPECT_TRUE(label->visible());
}

TEST_F(ControlsTest, starting_a_timer_is_reported_every_time_and_stopping_it_once) {
  ui::Timer timer(window, "timer", std::chrono::milliseconds(100));
  EXPECT_FALSE(timer.running());
  window.load();
  timer.stop();
  EXPECT_THAT(backend.take(), IsEmpty());
  timer.start();
  timer.start();
  EXPECT_TRUE(timer.running());
  EXPECT_EQ(backend.take().size(), 2u) << "its interval begins anew";
  timer.stop();
  timer.stop();
  EXPECT_FALSE(timer.running());
  EXPECT_THAT(backend.take(), ElementsAre(Change{"timer", ui::Aspect::interval}));
}

}  // namespace
}  // namespace ordelan::test
