#include "ui/slider.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>

#include "support/hostile_bytes.h"
#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingBackend::Change;
using ui::Mouse;
using ui::Rect;
using ui::ThumbLook;

Mouse left(int x, int y) {
  return {{x, y}, ui::kLeftButton, 0};
}

// A lying slider of 0 to 100 whose track is 110 long and whose thumb is 10: a pixel a step.
struct SliderTest : ::testing::Test {
  SliderTest() {
    listen(*slider);
    slider->set_bounds({30, 40, 110, 20});
    slider->set_position(1);
    window.load();
    sizes["bar"] = {10, 20};
    slider->set_bar("bar");
    events.clear();
    backend.take();
  }
  void listen(ui::Slider& it) {
    it.on_change = [this](std::int32_t value) {
      events.push_back("Change " + std::to_string(value));
    };
    it.on_mouse_down = [this](const Mouse&) { events.emplace_back("MouseDown"); };
    it.on_mouse_move = [this](const Mouse&) { events.emplace_back("MouseMove"); };
    it.on_mouse_up = [this](const Mouse&) { events.emplace_back("MouseUp"); };
  }
  std::vector<std::string> take() { return std::exchange(events, {}); }
  void stand_upright() {
    slider->set_position(0);
    slider->set_bounds({0, 0, 20, 110});
    sizes["bar"] = {20, 10};
    slider->ResetPictures();
  }
  void click(int x, int y) {
    slider->mouse_down(left(x, y));
    slider->mouse_up(left(x, y));
  }

  RecordingBackend backend;
  std::map<std::string, ui::Size>& sizes = backend.picture_sizes;
  ui::Window window{backend, "window"};
  std::unique_ptr<ui::Slider> slider = std::make_unique<ui::Slider>(window, "slider");
  std::vector<std::string> events;
};

TEST_F(SliderTest, a_new_slider_has_the_defaults) {
  const ui::Slider fresh(window, "fresh");
  const ui::SliderProperties& properties = fresh.properties();
  EXPECT_EQ(properties.picture_back, "");
  EXPECT_EQ(properties.picture_progress, "");
  EXPECT_EQ(properties.bar, "");
  EXPECT_EQ(properties.bar_over, "");
  EXPECT_EQ(properties.bar_down, "");
  EXPECT_EQ(properties.mouse_icon, "");
  EXPECT_EQ(static_cast<std::uint32_t>(properties.back_color), 0x8000000Fu);
  EXPECT_EQ(properties.min, 0);
  EXPECT_EQ(properties.max, 100);
  EXPECT_EQ(properties.large_change, 0);
  EXPECT_EQ(properties.value, 0);
  EXPECT_EQ(properties.position, 0);
  EXPECT_TRUE(fresh.vertical());
  EXPECT_FALSE(fresh.pressed() || fresh.dragging() || fresh.over());
}

void set_everything(ui::Slider& slider) {
  slider.set_picture_back("back");
  slider.set_picture_progress("progress");
  slider.set_bar("thumb");
  slider.set_bar_over("over");
  slider.set_bar_down("down");
  slider.set_mouse_icon("icon");
  slider.set_slider_color(ui::rgb(1, 2, 3));
  slider.set_min(-60);
  slider.set_max(12);
  slider.set_large_change(6);
  slider.set_value(-30);
  slider.set_position(2);
}

constexpr std::string_view kWholeSlider =
    "BackColor=0x00030201\nBar=thumb\nBarDown=down\nBarOver=over\nLargeChange=6\nMax=12\n"
    "Min=-60\nMouseIcon=icon\nPictureBack=back\nPictureProgress=progress\nPosition=2\nValue=-30\n";

TEST_F(SliderTest, properties_are_stored_under_their_names_and_come_back) {
  set_everything(*slider);
  EXPECT_EQ(slider->changed_properties().size(), 12u);
  ui::PropertyBag bag;
  slider->save(bag);
  EXPECT_EQ(bag.text(), kWholeSlider);
  EXPECT_THAT(slider->changed_properties(), IsEmpty());
  ui::Slider other(window, "other");
  other.load(ui::PropertyBag::parse(kWholeSlider));
  EXPECT_THAT(other.changed_properties(), IsEmpty());
  EXPECT_EQ(other.back_color(), ui::rgb(1, 2, 3));
  ui::PropertyBag again;
  other.save(again);
  EXPECT_EQ(again, bag);
}

TEST_F(SliderTest, properties_at_their_defaults_are_not_stored) {
  ui::Slider fresh(window, "fresh");
  ui::PropertyBag bag;
  fresh.save(bag);
  EXPECT_TRUE(bag.empty());
}

TEST_F(SliderTest, loading_puts_the_thumb_where_the_value_is) {
  slider->load(ui::PropertyBag::parse("Bar=bar\nPosition=1\nMin=50\nMax=150\nValue=70"));
  EXPECT_EQ(slider->bar_pos(), 20);
  slider->load(ui::PropertyBag::parse("Bar=bar\nPosition=1\nValue=1000"));
  EXPECT_EQ(slider->value(), 100) << "a value out of the range is its end";
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(SliderTest, a_value_moves_the_thumb_and_raises_nothing) {
  slider->set_value(37);
  EXPECT_EQ(slider->value(), 37);
  EXPECT_EQ(slider->bar_pos(), 37);
  EXPECT_THAT(backend.take(), ElementsAre(Change{"slider", ui::Aspect::look}));
  EXPECT_THAT(events, IsEmpty());
  EXPECT_EQ(slider->changed_properties().count("Value"), 1u);
}

TEST_F(SliderTest, a_value_above_the_maximum_does_nothing_and_the_thumb_stays) {
  slider->set_value(37);
  backend.take();
  slider->set_value(101);
  slider->set_value(-1);
  EXPECT_EQ(slider->value(), 37);
  EXPECT_EQ(slider->bar_pos(), 37);
  EXPECT_THAT(backend.take(), IsEmpty());
}

TEST_F(SliderTest, a_value_written_during_a_drag_does_nothing) {
  slider->mouse_down(left(5, 5));
  slider->mouse_move(left(25, 5));
  slider->set_value(80);
  EXPECT_EQ(slider->value(), 20);
  EXPECT_EQ(slider->bar_pos(), 20);
  slider->mouse_up(left(25, 5));
  slider->set_value(80);
  EXPECT_EQ(slider->value(), 80);
}

TEST_F(SliderTest, a_value_written_while_the_track_is_pressed_does_nothing) {
  slider->mouse_down(left(55, 5));
  slider->set_value(80);
  slider->mouse_up(left(55, 5));
  EXPECT_EQ(slider->value(), 50) << "the user's place, not the program's";
}

TEST_F(SliderTest, ends_written_during_a_press_do_not_move_the_thumb) {
  slider->mouse_down(left(55, 5));
  slider->set_max(200);
  slider->set_min(0);
  EXPECT_EQ(slider->bar_pos(), 50);
  slider->mouse_up(left(55, 5));
  EXPECT_THAT(events, ElementsAre("MouseDown", "Change 100", "MouseUp"));
}

TEST_F(SliderTest, an_end_takes_a_value_that_it_leaves_outside_with_it) {
  slider->set_value(80);
  slider->set_max(40);
  EXPECT_EQ(slider->value(), 40);
  EXPECT_EQ(slider->bar_pos(), 100);
  slider->set_max(80);
  EXPECT_EQ(slider->value(), 40);
  EXPECT_EQ(slider->bar_pos(), 50);
  slider->set_min(60);
  EXPECT_EQ(slider->value(), 60);
  EXPECT_EQ(slider->bar_pos(), 0);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(SliderTest, a_range_without_extent_leaves_the_thumb_and_raises_nothing) {
  slider->set_value(50);
  slider->set_min(50);
  slider->set_value(60);
  const int before = slider->bar_pos();
  ASSERT_GT(before, 0);
  slider->set_max(50);
  EXPECT_EQ(slider->value(), 50);
  EXPECT_EQ(slider->bar_pos(), before);
  click(90, 5);
  slider->set_large_change(5);
  click(10, 5);
  slider->key(0x27);
  EXPECT_THAT(events, ElementsAre("MouseDown", "MouseUp", "MouseDown", "MouseUp"));
  EXPECT_EQ(slider->value(), 50);
}

TEST_F(SliderTest, a_track_without_room_raises_nothing) {
  slider->set_value(50);
  sizes["bar"] = {110, 20};
  slider->ResetPictures();
  EXPECT_EQ(slider->bar_pos(), 0);
  slider->mouse_down(left(5, 5));
  slider->mouse_move(left(50, 5));
  slider->mouse_up(left(50, 5));
  EXPECT_THAT(events, ElementsAre("MouseDown", "MouseMove", "MouseUp"));
  EXPECT_EQ(slider->value(), 50);
}

TEST_F(SliderTest, a_thumb_longer_than_its_track_stays_at_the_beginning) {
  sizes["bar"] = {200, 20};
  slider->ResetPictures();
  slider->set_value(100);
  EXPECT_EQ(slider->bar_pos(), 0);
  slider->mouse_down(left(5, 5));
  slider->mouse_move(left(105, 5));
  EXPECT_EQ(slider->bar_pos(), 0);
}

TEST_F(SliderTest, a_click_on_the_track_raises_change_and_then_mouse_up) {
  click(65, 5);
  EXPECT_EQ(slider->value(), 60) << "the middle of the thumb comes under the pointer";
  EXPECT_THAT(events, ElementsAre("MouseDown", "Change 60", "MouseUp"));
  EXPECT_EQ(slider->bar_pos(), 60);
}

TEST_F(SliderTest, a_click_at_the_end_of_the_track_keeps_the_thumb_on_it) {
  click(109, 5);
  EXPECT_EQ(slider->value(), 100);
  click(0, 5);
  EXPECT_EQ(slider->value(), 0);
}

TEST_F(SliderTest, a_drag_moves_the_thumb_with_the_pointer_and_raises_change_on_the_way) {
  slider->set_value(30);
  slider->mouse_down(left(33, 5));
  EXPECT_TRUE(slider->dragging());
  EXPECT_TRUE(slider->pressed());
  EXPECT_EQ(slider->thumb_look(), ThumbLook::down);
  EXPECT_EQ(slider->bar_pos(), 30) << "the thumb does not jump to the pointer";
  slider->mouse_move(left(43, 100));
  EXPECT_EQ(slider->value(), 40);
  slider->mouse_move(left(500, 5));
  EXPECT_EQ(slider->value(), 100);
  slider->mouse_move(left(-500, 5));
  EXPECT_EQ(slider->value(), 0);
  slider->mouse_up(left(-500, 5));
  EXPECT_FALSE(slider->dragging() || slider->pressed());
  EXPECT_EQ(slider->thumb_look(), ThumbLook::normal);
  EXPECT_THAT(events, ElementsAre("MouseDown", "Change 40", "MouseMove", "Change 100", "MouseMove",
                                  "Change 0", "MouseMove", "MouseUp"));
}

TEST_F(SliderTest, a_press_on_the_thumb_that_goes_nowhere_changes_nothing) {
  slider->set_value(30);
  click(33, 5);
  EXPECT_EQ(slider->value(), 30);
  EXPECT_THAT(events, ElementsAre("MouseDown", "MouseUp"));
}

TEST_F(SliderTest, the_thumb_ends_at_its_edges) {
  slider->set_value(30);
  for (const int x : {30, 39}) {
    slider->mouse_down(left(x, 5));
    EXPECT_TRUE(slider->dragging()) << x;
    slider->mouse_up(left(x, 5));
  }
  for (const int x : {29, 40}) {
    slider->set_value(30);
    slider->mouse_down(left(x, 5));
    EXPECT_FALSE(slider->dragging()) << x;
    slider->mouse_up(left(x, 5));
  }
  sizes["bar"] = {10, 8};  // in the middle of the track's breadth: from 6 to 14
  slider->ResetPictures();
  slider->set_value(30);
  EXPECT_EQ(slider->thumb_place(), (Rect{30, 6, 10, 8}));
  slider->mouse_down(left(33, 5));
  EXPECT_FALSE(slider->dragging());
  slider->press_lost();
  slider->set_value(30);
  slider->mouse_down(left(33, 6));
  EXPECT_TRUE(slider->dragging());
}

TEST_F(SliderTest, a_press_beside_the_thumb_pages_toward_it) {
  slider->set_large_change(15);
  slider->set_value(50);
  slider->mouse_down(left(100, 5));
  EXPECT_EQ(slider->bar_pos(), 65);
  slider->mouse_up(left(100, 5));
  click(10, 5);
  click(10, 5);
  click(10, 5);
  EXPECT_THAT(events, ElementsAre("MouseDown", "Change 65", "MouseUp", "MouseDown", "Change 50",
                                  "MouseUp", "MouseDown", "Change 35", "MouseUp", "MouseDown",
                                  "Change 20", "MouseUp"));
  slider->set_value(95);
  click(109, 5);
  EXPECT_EQ(slider->value(), 100);
}

TEST_F(SliderTest, pages_smaller_than_a_pixel_go_on_all_the_same) {
  slider->set_max(7200);
  slider->set_large_change(7);
  for (int page = 1; page <= 20; ++page) {
    click(109, 5);
    ASSERT_EQ(slider->value(), 7 * page);
  }
}

TEST_F(SliderTest, other_buttons_of_the_mouse_move_nothing_and_are_reported) {
  slider->mouse_down({{60, 5}, ui::kRightButton, 0});
  slider->mouse_up({{60, 5}, ui::kRightButton, 0});
  EXPECT_EQ(slider->value(), 0);
  EXPECT_THAT(take(), ElementsAre("MouseDown", "MouseUp"));
  slider->mouse_down(left(5, 5));
  slider->mouse_down({{60, 5}, ui::kRightButton, 0});
  slider->mouse_up({{60, 5}, ui::kRightButton, 0});
  EXPECT_TRUE(slider->dragging()) << "the left one still holds it";
}

TEST_F(SliderTest, a_release_without_a_press_raises_no_change) {
  slider->mouse_up(left(60, 5));
  EXPECT_THAT(events, ElementsAre("MouseUp"));
}

TEST_F(SliderTest, a_vertical_slider_at_the_top_reads_the_maximum) {
  stand_upright();
  click(10, 0);
  EXPECT_EQ(slider->value(), 100);
  EXPECT_EQ(slider->bar_pos(), 0);
  click(10, 109);
  EXPECT_EQ(slider->value(), 0);
  EXPECT_EQ(slider->bar_pos(), 100);
  slider->mouse_down(left(10, 105));
  slider->mouse_move(left(10, 85));
  EXPECT_EQ(slider->value(), 20);
  slider->mouse_move(left(10, -300));
  EXPECT_EQ(slider->value(), 100);
  slider->mouse_up(left(10, -300));
}

TEST_F(SliderTest, a_vertical_slider_shows_its_values_from_the_bottom) {
  stand_upright();
  slider->set_value(0);
  EXPECT_EQ(slider->thumb_place(), (Rect{0, 100, 20, 10}));
  EXPECT_EQ(slider->fill_place(), (Rect{0, 110, 20, 0}));
  slider->set_value(25);
  EXPECT_EQ(slider->thumb_place(), (Rect{0, 75, 20, 10}));
  EXPECT_EQ(slider->fill_place(), (Rect{0, 85, 20, 25}));
  slider->set_value(100);
  EXPECT_EQ(slider->thumb_place(), (Rect{0, 0, 20, 10}));
}

TEST_F(SliderTest, with_a_negative_minimum_the_vertical_result_is_the_negated_value) {
  stand_upright();
  slider->set_min(-100);
  click(10, 0);
  EXPECT_EQ(slider->value(), 100);
  click(10, 109);
  EXPECT_EQ(slider->value(), -100);
  click(10, 30);  // the thumb at 25: -50, negated
  EXPECT_EQ(slider->value(), 50);
  slider->set_value(-50);
  EXPECT_EQ(slider->bar_pos(), 75);
  slider->set_min(-60);
  slider->set_max(12);
  click(10, 0);
  EXPECT_EQ(slider->value(), 60) << "negated also where the ends do not mirror each other";
}

TEST_F(SliderTest, a_vertical_page_goes_toward_the_press) {
  stand_upright();
  slider->set_large_change(15);
  slider->set_value(50);
  click(10, 1);
  EXPECT_EQ(slider->value(), 65);
  click(10, 108);
  EXPECT_EQ(slider->value(), 50);
}

TEST_F(SliderTest, a_vertical_value_comes_back_from_its_thumb_on_every_track) {
  for (int track = 1; track <= 400; track += 3) {
    for (const std::int32_t max : {1, 7, 100, 7200}) {
      stand_upright();
      slider->set_bounds({0, 0, 20, track});
      sizes["bar"] = {20, track > 10 ? 10 : 1};
      slider->ResetPictures();
      const int room = track - sizes["bar"].height;
      if (room == 0) continue;
      slider->set_max(max);
      for (std::int32_t value = 0; value <= max; value += 1 + max / 20) {
        slider->set_value(value);
        // A drag that moves nothing reads the value from the thumb.
        const ui::Point thumb{10, slider->bar_pos()};
        slider->mouse_down({thumb, ui::kLeftButton, 0});
        ASSERT_TRUE(slider->dragging());
        slider->mouse_move({thumb, ui::kLeftButton, 0});
        ASSERT_LE(slider->value(), value);
        ASSERT_LE(std::int64_t{value - slider->value()} * room, std::int64_t{max})
            << value << " of " << max << " on " << track;
        slider->mouse_up({thumb, ui::kLeftButton, 0});
      }
    }
  }
}

TEST_F(SliderTest, turning_makes_it_as_large_as_its_track) {
  sizes["track"] = {18, 90};
  slider->set_picture_back("track");
  EXPECT_EQ(slider->bounds(), (Rect{30, 40, 110, 20}));
  slider->set_position(0);
  EXPECT_EQ(slider->bounds(), (Rect{30, 40, 18, 90}));
  EXPECT_EQ(slider->track_place(), (Rect{0, 0, 18, 90}));
  slider->set_picture_back("gone");
  EXPECT_EQ(slider->track_place(), (Rect{0, 0, 18, 90})) << "a track without a picture fills it";
}

TEST_F(SliderTest, loading_makes_it_as_large_as_its_track) {
  sizes["track"] = {90, 18};
  slider->load(ui::PropertyBag::parse("PictureBack=track\nPosition=1\nBar=bar\nValue=50"));
  EXPECT_EQ(slider->bounds(), (Rect{30, 40, 90, 18}));
  EXPECT_EQ(slider->bar_pos(), 40);
  ui::Window other(backend, "other");
  ui::Slider hidden(other, "hidden");
  hidden.set_bounds({1, 2, 3, 4});
  hidden.load(ui::PropertyBag::parse("PictureBack=track"));
  EXPECT_EQ(hidden.bounds(), (Rect{1, 2, 90, 18})) << "also before it is shown";
  hidden.load(ui::PropertyBag::parse("PictureBack=gone"));
  EXPECT_EQ(hidden.bounds(), (Rect{1, 2, 90, 18}));
}

TEST_F(SliderTest, turning_before_it_is_shown_makes_it_as_large_as_its_track) {
  sizes["track"] = {18, 90};
  ui::Window other(backend, "other");
  ui::Slider hidden(other, "hidden");
  hidden.set_picture_back("track");
  hidden.set_position(0);
  EXPECT_EQ(hidden.bounds(), (Rect{0, 0, 18, 90}));
}

TEST_F(SliderTest, an_end_written_as_it_is_leaves_the_thumb_where_the_hand_put_it) {
  slider->set_max(7);
  click(42, 5);
  ASSERT_EQ(slider->value(), 2);
  ASSERT_EQ(slider->bar_pos(), 37);
  backend.take();
  slider->set_max(7);
  slider->set_min(0);
  EXPECT_EQ(slider->bar_pos(), 37);
  EXPECT_THAT(backend.take(),
              ElementsAre(Change{"slider", ui::Aspect::look}, Change{"slider", ui::Aspect::look}));
  slider->set_max(8);
  EXPECT_EQ(slider->bar_pos(), 25) << "another end places it by the value";
  slider->set_value(4);
  slider->set_value(2);
  slider->set_max(8);
  EXPECT_EQ(slider->bar_pos(), 25);
}

TEST_F(SliderTest, an_end_written_as_it_is_leaves_an_upright_thumb_too) {
  stand_upright();
  slider->set_max(100);
  slider->set_min(20);
  for (const int y : {0, 30, 55, 80, 109}) {
    click(10, y);
    const int before = slider->bar_pos();
    slider->set_max(100);
    EXPECT_EQ(slider->bar_pos(), before) << y;
  }
  slider->set_min(-60);
  slider->set_max(12);
  for (const int y : {0, 30, 55, 80, 109}) {
    click(10, y);
    const int before = slider->bar_pos();
    slider->set_max(12);
    EXPECT_EQ(slider->bar_pos(), before) << y;
    EXPECT_LE(slider->value(), 12) << "an end takes the value with it";
  }
}

TEST_F(SliderTest, an_upright_value_is_placed_from_the_bottom_in_any_range) {
  stand_upright();
  slider->set_max(100);
  slider->set_min(20);
  slider->set_value(40);
  EXPECT_EQ(slider->bar_pos(), 75);
  slider->set_min(-60);
  slider->set_max(12);
  slider->set_value(-6);
  EXPECT_EQ(slider->bar_pos(), 25);
  slider->set_value(12);
  click(10, 30);  // the thumb at 25: -42, negated
  EXPECT_EQ(slider->value(), 42);
  slider->set_min(20);
  slider->set_max(100);
  slider->set_value(100);
  click(10, 30);  // the thumb at 25: 40, from 100
  EXPECT_EQ(slider->value(), 60);
}

TEST_F(SliderTest, change_is_reported_also_where_the_value_is_the_same) {
  click(65, 5);
  click(65, 90);
  EXPECT_THAT(take(), ElementsAre("MouseDown", "Change 60", "MouseUp", "MouseDown", "Change 60",
                                  "MouseUp"));
  slider->mouse_down(left(65, 5));
  slider->mouse_move(left(65, 5));
  slider->mouse_move(left(65, 9));
  slider->mouse_up(left(65, 9));
  EXPECT_THAT(events, ElementsAre("MouseDown", "Change 60", "MouseMove", "Change 60", "MouseMove",
                                  "MouseUp"));
}

TEST_F(SliderTest, every_step_of_the_mouse_draws_it_anew) {
  const auto drawn = [&] { return backend.take().size(); };
  slider->on_change = nullptr;
  slider->mouse_down(left(65, 5));
  EXPECT_EQ(drawn(), 1u) << "a press on the track";
  slider->mouse_up(left(65, 5));
  EXPECT_EQ(drawn(), 1u) << "its release";
  slider->mouse_down(left(65, 5));
  EXPECT_EQ(drawn(), 1u) << "a press on the thumb";
  slider->mouse_move(left(500, 5));
  EXPECT_EQ(drawn(), 1u) << "a drag";
  slider->mouse_up(left(500, 5));
  EXPECT_EQ(drawn(), 1u) << "its end";
  slider->mouse_move({{50, 5}, 0, 0});
  EXPECT_GE(drawn(), 1u) << "the pointer's coming";
}

TEST_F(SliderTest, another_size_measures_the_pictures_anew) {
  slider->set_value(50);
  sizes["bar"] = {30, 20};
  slider->set_bounds({30, 40, 230, 20});
  EXPECT_EQ(slider->bar_pos(), 100);
  EXPECT_EQ(slider->thumb_place(), (Rect{100, 0, 30, 20}));
  EXPECT_EQ(slider->fill_place(), (Rect{0, 0, 100, 20}));
}

TEST_F(SliderTest, without_pictures_it_is_worked_all_the_same) {
  ui::Slider plain(window, "plain");
  listen(plain);
  plain.set_bounds({0, 0, 111, 20});
  plain.set_position(1);
  const Rect thumb = plain.thumb_place();
  EXPECT_EQ(thumb.height, 20);
  plain.mouse_down(left(110, 5));
  plain.mouse_up(left(110, 5));
  EXPECT_THAT(events, ElementsAre("MouseDown", "Change 100", "MouseUp"));
}

TEST_F(SliderTest, every_look_of_the_thumb_falls_back_to_the_plain_one) {
  slider->mouse_move({{50, 5}, 0, 0});
  EXPECT_EQ(slider->thumb_look(), ThumbLook::over);
  EXPECT_EQ(slider->thumb_picture(), "bar");
  slider->set_bar_over("over");
  slider->set_bar_down("down");
  EXPECT_EQ(slider->thumb_picture(), "over");
  slider->mouse_down(left(5, 5));
  EXPECT_EQ(slider->thumb_picture(), "down");
  slider->mouse_up(left(5, 5));
  EXPECT_EQ(slider->thumb_picture(), "bar");
}

TEST_F(SliderTest, keys_move_the_value_and_raise_change) {
  constexpr int kPageUp = 0x21, kPageDown = 0x22, kEnd = 0x23, kHome = 0x24;
  constexpr int kLeftKey = 0x25, kUp = 0x26, kRightKey = 0x27, kDown = 0x28;
  for (const int key : {kRightKey, kUp, kUp, kLeftKey, kDown, kPageUp, kPageUp, kPageDown, kEnd,
                        kEnd, kRightKey, kHome, kHome, kLeftKey, kPageDown}) {
    EXPECT_TRUE(slider->key(key));
  }
  EXPECT_THAT(take(), ElementsAre("Change 1", "Change 2", "Change 3", "Change 2", "Change 1",
                                  "Change 11", "Change 21", "Change 11", "Change 100", "Change 0"));
  slider->set_large_change(25);
  slider->key(kPageUp);
  EXPECT_EQ(slider->bar_pos(), 25);
  EXPECT_THAT(take(), ElementsAre("Change 25"));
  EXPECT_FALSE(slider->key('A'));
  slider->set_large_change(0);
  slider->set_value(0);
  slider->set_max(3);
  slider->key(kPageUp);
  EXPECT_EQ(slider->value(), 1) << "a page is one step at least";
}

TEST_F(SliderTest, the_key_up_lifts_the_thumb_of_a_vertical_slider) {
  stand_upright();
  slider->set_value(50);
  slider->key(0x26);
  EXPECT_EQ(slider->value(), 51);
  EXPECT_EQ(slider->bar_pos(), 49);
}

TEST_F(SliderTest, a_value_is_chosen_without_mouse_or_keys) {
  slider->choose(40);
  slider->choose(40);
  slider->choose(std::int64_t{1} << 40);
  slider->choose(-1);
  EXPECT_THAT(take(), ElementsAre("Change 40", "Change 100", "Change 0"));
  slider->mouse_down(left(5, 5));
  take();
  slider->choose(50);
  EXPECT_EQ(slider->value(), 0);
  slider->mouse_up(left(5, 5));
  slider->set_enabled(false);
  take();
  slider->choose(50);
  EXPECT_EQ(slider->value(), 0);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(SliderTest, keys_do_nothing_while_the_mouse_holds_the_thumb) {
  slider->mouse_down(left(5, 5));
  take();
  EXPECT_TRUE(slider->key(0x27));
  EXPECT_EQ(slider->value(), 0);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(SliderTest, a_slider_that_is_not_enabled_takes_nothing) {
  slider->set_enabled(false);
  click(60, 5);
  slider->mouse_move(left(60, 5));
  slider->key(0x27);
  EXPECT_THAT(events, IsEmpty());
  EXPECT_EQ(slider->value(), 0);
}

TEST_F(SliderTest, a_press_that_is_lost_ends_without_an_event) {
  slider->mouse_down(left(5, 5));
  slider->press_lost();
  EXPECT_FALSE(slider->pressed() || slider->dragging());
  slider->mouse_move(left(50, 5));
  EXPECT_EQ(slider->value(), 0);
  EXPECT_THAT(events, ElementsAre("MouseDown", "MouseMove"));
}

TEST_F(SliderTest, a_handler_may_write_the_value_only_after_the_press) {
  slider->on_change = [&](std::int32_t) { slider->set_value(5); };
  slider->on_mouse_up = [&](const Mouse&) { slider->set_value(slider->value() + 1); };
  click(65, 5);
  EXPECT_EQ(slider->value(), 61);
}

TEST_F(SliderTest, a_handler_may_destroy_the_slider) {
  const auto renew = [&] {
    slider = std::make_unique<ui::Slider>(window, "slider");
    listen(*slider);
    slider->set_bounds({0, 0, 110, 20});
    slider->set_position(1);
    take();
  };
  const auto destroy = [&](auto&&) { slider.reset(); };
  slider->on_change = destroy;
  slider->mouse_down(left(65, 5));
  slider->mouse_up(left(65, 5));
  EXPECT_THAT(take(), ElementsAre("MouseDown"));
  renew();
  slider->on_change = destroy;
  slider->mouse_down(left(5, 5));
  slider->mouse_move(left(25, 5));
  EXPECT_THAT(take(), ElementsAre("MouseDown"));
  renew();
  slider->on_change = destroy;
  slider->key(0x27);
  EXPECT_FALSE(slider);
  renew();
  slider->on_mouse_down = destroy;
  slider->mouse_down(left(65, 5));
  EXPECT_FALSE(slider);
  renew();
  slider->on_mouse_up = destroy;
  slider->mouse_up(left(65, 5));
  EXPECT_FALSE(slider);
}

TEST_F(SliderTest, a_handler_may_unload_the_window_in_the_middle_of_a_drag) {
  slider->on_change = [&](std::int32_t) { window.unload(); };
  slider->mouse_down(left(5, 5));
  slider->mouse_move(left(25, 5));
  EXPECT_FALSE(slider->pressed() || slider->dragging());
  EXPECT_THAT(events, ElementsAre("MouseDown"));
}

}  // namespace
}  // namespace ordelan::test
