#include "ui/button.h"

#include <gmock/gmock.h>

#include <memory>

#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingBackend::Change;
using ui::Mouse;

const Mouse kLeft{{10, 5}, ui::kLeftButton, 0};
const Mouse kRight{{10, 5}, ui::kRightButton, 0};
const Mouse kMoving{{10, 5}, 0, 0};
const Mouse kOutside{{200, 5}, ui::kLeftButton, 0};

struct ButtonTest : ::testing::Test {
  ButtonTest() {
    button->set_bounds({0, 0, 100, 20});
    button->on_click = [this] { record("Click", Mouse{}); };
    button->on_mouse_down = [this](const Mouse& m) { record("MouseDown", m); };
    button->on_mouse_move = [this](const Mouse& m) { record("MouseMove", m); };
    button->on_mouse_up = [this](const Mouse& m) { record("MouseUp", m); };
    button->on_mouse_in = [this](int number) { record("MouseIn", {{}, number, 0}); };
    button->on_mouse_out = [this](int number) { record("MouseOut", {{}, number, 0}); };
    window.load();
    backend.take();
  }
  void record(const std::string& name, const Mouse& mouse) {
    events.push_back(name);
    last = mouse;
  }
  std::vector<std::string> take() { return std::exchange(events, {}); }
  void set_all_pictures() {
    button->set_style(1);
    button->set_picture_normal("normal");
    button->set_picture_disabled("disabled");
    button->set_picture_down("down");
    button->set_picture_over("over");
    backend.take();
  }
  int refreshes() {
    int count = 0;
    for (const Change& change : backend.take()) count += change.aspect == ui::Aspect::look ? 1 : 0;
    return count;
  }

  RecordingBackend backend;
  ui::Window window{backend, "window"};
  std::unique_ptr<ui::Button> button = std::make_unique<ui::Button>(window, "button");
  std::vector<std::string> events;
  Mouse last;
};

TEST_F(ButtonTest, a_new_button_has_the_defaults) {
  const ui::ButtonProperties& properties = button->properties();
  EXPECT_EQ(properties.style, 0);
  EXPECT_FALSE(properties.use_mask_color);
  EXPECT_EQ(properties.picture_align, 0);
  EXPECT_EQ(properties.picture_back, "");
  EXPECT_EQ(properties.picture_normal, "");
  EXPECT_EQ(properties.picture_disabled, "");
  EXPECT_EQ(properties.picture_down, "");
  EXPECT_EQ(properties.picture_over, "");
  EXPECT_EQ(properties.mouse_icon, "");
  EXPECT_EQ(static_cast<std::uint32_t>(properties.button_color), 0x8000000Fu);
  EXPECT_FALSE(properties.selected);
  EXPECT_EQ(static_cast<std::uint32_t>(properties.mask_color), 0x8000000Fu);
  EXPECT_EQ(properties.mouse_pointer, 0);
  EXPECT_FALSE(button->down());
  EXPECT_FALSE(button->over());
  EXPECT_THAT(button->changed_properties(), IsEmpty());
}

// Sets every property away from its default.
void set_everything(ui::Button& button) {
  button.set_style(1);
  button.set_use_mask_color(true);
  button.set_picture_align(4);
  button.set_picture_back("back");
  button.set_picture_normal("normal");
  button.set_picture_disabled("disabled");
  button.set_picture_down("down");
  button.set_picture_over("over");
  button.set_mouse_icon("icon");
  button.set_button_color(ui::rgb(1, 2, 3));
  button.set_selected(true);
  button.set_mask_color(ui::rgb(255, 0, 255));
  button.set_mouse_pointer(99);
}

constexpr std::string_view kEverything =
    "ButtonColor=0x00030201\nMaskColor=0x00FF00FF\nMouseIcon=icon\nMousePointer=99\n"
    "PictureAlign=4\nPictureBack=back\nPictureDisabled=disabled\nPictureDown=down\n"
    "PictureNormal=normal\nPictureOver=over\nSelected=true\nStyle=1\nUseMaskColor=true\n";

TEST_F(ButtonTest, every_setter_draws_once_and_counts_its_property_as_changed) {
  set_everything(*button);
  EXPECT_EQ(refreshes(), 13);
  EXPECT_THAT(button->changed_properties(),
              ElementsAre("ButtonColor", "MaskColor", "MouseIcon", "MousePointer", "PictureAlign",
                          "PictureBack", "PictureDisabled", "PictureDown", "PictureNormal",
                          "PictureOver", "Selected", "Style", "UseMaskColor"));
  button->set_style(1);
  EXPECT_EQ(refreshes(), 1) << "also with the value that it has";
}

TEST_F(ButtonTest, properties_are_stored_under_their_names) {
  set_everything(*button);
  ui::PropertyBag bag;
  button->save(bag);
  EXPECT_EQ(bag.text(), kEverything);
  EXPECT_THAT(button->changed_properties(), IsEmpty());
}

TEST_F(ButtonTest, properties_at_their_defaults_are_not_stored) {
  ui::PropertyBag bag;
  button->save(bag);
  EXPECT_TRUE(bag.empty());
  set_everything(*button);
  button->save(bag);
  button->Reset();
  button->save(bag);
  EXPECT_TRUE(bag.empty());
}

TEST_F(ButtonTest, loading_reads_every_property_and_draws_once) {
  button->load(ui::PropertyBag::parse(kEverything));
  EXPECT_EQ(refreshes(), 1);
  EXPECT_THAT(button->changed_properties(), IsEmpty());
  EXPECT_EQ(button->back_color(), ui::rgb(1, 2, 3));
  ui::PropertyBag bag;
  button->save(bag);
  EXPECT_EQ(bag.text(), kEverything);
}

TEST_F(ButtonTest, loading_gives_what_is_missing_or_bad_its_default) {
  set_everything(*button);
  button->load(
      ui::PropertyBag::parse("Style=many\nSelected=perhaps\nMaskColor=red\nPictureDown=d"));
  EXPECT_EQ(button->properties().style, 0);
  EXPECT_FALSE(button->properties().selected);
  EXPECT_EQ(button->properties().mask_color, ui::Color::button_face);
  EXPECT_EQ(button->properties().picture_normal, "");
  EXPECT_EQ(button->properties().picture_down, "d");
  EXPECT_EQ(button->back_color(), ui::Color::button_face);
}

TEST_F(ButtonTest, a_reset_gives_the_default_look) {
  set_everything(*button);
  button->Refresh();
  EXPECT_EQ(button->picture_to_show(), "disabled");
  backend.take();
  button->Reset();
  EXPECT_EQ(refreshes(), 1);
  EXPECT_EQ(button->look(), ui::ButtonLook{});
  EXPECT_EQ(button->properties().picture_normal, "");
  EXPECT_FALSE(button->properties().selected);
  EXPECT_EQ(button->back_color(), ui::Color::button_face);
  EXPECT_EQ(button->changed_properties().size(), 13u);
}

TEST_F(ButtonTest, a_reset_leaves_a_press_going_on) {
  set_all_pictures();
  button->mouse_move(kMoving);
  button->mouse_down(kLeft);
  take();
  button->Reset();
  EXPECT_TRUE(button->down());
  EXPECT_TRUE(button->over());
  EXPECT_TRUE(button->look().pressed);
  button->mouse_up(kLeft);
  EXPECT_THAT(events, ElementsAre("Click", "MouseUp"));
}

TEST_F(ButtonTest, events_come_in_their_place_between_state_and_drawing) {
  set_all_pictures();
  std::vector<std::string> seen;
  const auto note = [&](const char* event) {
    seen.push_back(std::string(event) + (button->over() ? " over" : "") +
                   (button->down() ? " down" : "") + " " + button->picture_to_show());
  };
  button->on_mouse_in = [&](int) { note("In"); };
  button->on_mouse_move = [&](const Mouse&) { note("Move"); };
  button->on_mouse_down = [&](const Mouse&) { note("Down"); };
  button->on_click = [&] { note("Click"); };
  button->on_mouse_up = [&](const Mouse&) { note("Up"); };
  button->mouse_move(kMoving);
  button->mouse_down(kLeft);
  button->mouse_up(kLeft);
  EXPECT_THAT(seen, ElementsAre("In over normal", "Move over over", "Down over down down",
                                "Click over over", "Up over over"));
}

TEST_F(ButtonTest, refresh_reports_the_look_and_nothing_else) {
  button->Refresh();
  EXPECT_THAT(backend.take(), ElementsAre(Change{"button", ui::Aspect::look}));
  EXPECT_THAT(button->changed_properties(), IsEmpty());
}

TEST_F(ButtonTest, another_size_draws_the_button_and_another_place_does_not) {
  button->set_bounds({5, 5, 100, 20});
  EXPECT_EQ(refreshes(), 0);
  button->set_bounds({5, 5, 101, 20});
  EXPECT_EQ(refreshes(), 1);
  EXPECT_EQ(button->placed({1, 10}), (ui::Point{50, 5}));
}

TEST_F(ButtonTest, in_the_plain_style_no_picture_is_drawn_whatever_is_set) {
  set_all_pictures();
  for (const std::int16_t style : {std::int16_t{0}, std::int16_t{2}, std::int16_t{-1}}) {
    button->set_style(style);
    EXPECT_EQ(button->picture_to_show(), "");
  }
  button->set_selected(true);
  EXPECT_EQ(button->picture_to_show(), "");
  button->mouse_down(kLeft);
  EXPECT_EQ(button->picture_to_show(), "");
  EXPECT_TRUE(button->look().pressed);
}

TEST_F(ButtonTest, a_selected_button_under_the_pointer_shows_the_disabled_picture) {
  set_all_pictures();
  button->set_selected(true);
  button->mouse_move(kMoving);
  EXPECT_TRUE(button->over());
  EXPECT_EQ(button->picture_to_show(), "disabled");
}

TEST_F(ButtonTest, a_click_is_reported_between_press_and_release) {
  set_all_pictures();
  button->mouse_move(kMoving);
  EXPECT_EQ(button->picture_to_show(), "over");
  button->mouse_down(kLeft);
  EXPECT_EQ(button->picture_to_show(), "down");
  EXPECT_TRUE(button->down());
  button->mouse_up(kLeft);
  EXPECT_EQ(button->picture_to_show(), "over");
  EXPECT_FALSE(button->down());
  EXPECT_THAT(events, ElementsAre("MouseIn", "MouseMove", "MouseDown", "Click", "MouseUp"));
}

TEST_F(ButtonTest, events_carry_button_keys_and_place) {
  const Mouse mouse{{7, 8}, ui::kMiddleButton, ui::kShiftKey | ui::kAltKey};
  button->mouse_down(mouse);
  EXPECT_EQ(last, mouse);
  button->mouse_up(mouse);
  EXPECT_EQ(last, mouse);
  EXPECT_THAT(take(), ElementsAre("MouseDown", "Click", "MouseUp")) << "only the right is no click";
  button->on_mouse_move = nullptr;
  button->mouse_move({{1, 2}, ui::kLeftButton, 0});
  EXPECT_EQ(last.button, ui::kLeftButton) << "the one held as the pointer came";
}

TEST_F(ButtonTest, the_pointer_comes_once) {
  button->mouse_move({{101, 0}, 0, 0});
  button->mouse_move({{0, -1}, 0, 0});
  EXPECT_FALSE(button->over());
  EXPECT_EQ(refreshes(), 0);
  button->mouse_move({{100, 20}, 0, 0});
  EXPECT_EQ(refreshes(), 1);
  button->mouse_move({{0, 0}, 0, 0});
  EXPECT_EQ(refreshes(), 0);
  EXPECT_THAT(events, ElementsAre("MouseMove", "MouseMove", "MouseIn", "MouseMove", "MouseMove"));
}

TEST_F(ButtonTest, a_right_click_presses_nothing_and_is_reported_all_the_same) {
  set_all_pictures();
  button->mouse_down(kRight);
  EXPECT_FALSE(button->down());
  button->mouse_up(kRight);
  EXPECT_EQ(refreshes(), 0);
  EXPECT_THAT(events, ElementsAre("MouseDown", "MouseUp"));
}

TEST_F(ButtonTest, a_release_outside_is_no_click) {
  button->mouse_down(kLeft);
  button->mouse_up(kOutside);
  EXPECT_FALSE(button->down());
  EXPECT_THAT(take(), ElementsAre("MouseDown", "MouseUp"));
  button->mouse_down(kLeft);
  button->mouse_up({{0, -1}, ui::kLeftButton, 0});
  EXPECT_THAT(take(), ElementsAre("MouseDown", "MouseUp"));
  button->mouse_down(kLeft);
  button->mouse_up({{100, 20}, ui::kLeftButton, 0});
  EXPECT_THAT(take(), ElementsAre("MouseDown", "Click", "MouseUp"));
}

TEST_F(ButtonTest, a_double_click_is_two_presses) {
  set_all_pictures();
  button->mouse_down(kLeft);
  button->mouse_up(kLeft);
  button->double_click();
  EXPECT_EQ(button->picture_to_show(), "down");
  EXPECT_EQ(last, kLeft);
  button->mouse_up(kLeft);
  EXPECT_THAT(events,
              ElementsAre("MouseDown", "Click", "MouseUp", "MouseDown", "Click", "MouseUp"));
}

TEST_F(ButtonTest, a_double_click_of_the_right_button_presses_nothing) {
  button->mouse_down(kRight);
  button->mouse_up(kRight);
  button->double_click();
  EXPECT_FALSE(button->down());
  button->mouse_up(kRight);
  EXPECT_THAT(events, ElementsAre("MouseDown", "MouseUp", "MouseDown", "MouseUp"));
}

TEST_F(ButtonTest, a_key_raises_the_click_alone) {
  set_all_pictures();
  button->press_by_key();
  EXPECT_THAT(events, ElementsAre("Click"));
  EXPECT_EQ(refreshes(), 0);
}

TEST_F(ButtonTest, a_button_that_is_not_enabled_takes_nothing) {
  button->set_enabled(false);
  button->press_by_key();
  button->mouse_move(kMoving);
  button->mouse_down(kLeft);
  button->mouse_up(kLeft);
  button->double_click();
  EXPECT_THAT(events, IsEmpty());
  EXPECT_FALSE(button->over());
  EXPECT_FALSE(button->down());
}

TEST_F(ButtonTest, a_button_disabled_while_it_is_held_is_let_go_without_a_click) {
  button->mouse_down(kLeft);
  button->set_enabled(false);
  button->mouse_up(kLeft);
  EXPECT_FALSE(button->down());
  EXPECT_FALSE(button->look().pressed);
  EXPECT_THAT(events, ElementsAre("MouseDown"));
}

TEST_F(ButtonTest, a_press_that_is_lost_ends_without_an_event) {
  button->mouse_down(kLeft);
  backend.take();
  button->press_lost();
  EXPECT_EQ(refreshes(), 1);
  EXPECT_FALSE(button->look().pressed);
  button->press_lost();
  EXPECT_EQ(refreshes(), 0);
  EXPECT_THAT(events, ElementsAre("MouseDown"));
}

TEST_F(ButtonTest, a_button_taken_off_the_screen_is_neither_held_nor_pointed_at) {
  button->mouse_move(kMoving);
  button->mouse_down(kLeft);
  take();
  window.unload();
  EXPECT_FALSE(button->over());
  EXPECT_FALSE(button->down());
  EXPECT_THAT(events, IsEmpty());
  window.load();
  button->mouse_move(kMoving);
  EXPECT_THAT(events, ElementsAre("MouseIn", "MouseMove"));
}

TEST_F(ButtonTest, its_timer_is_no_control_of_the_window) {
  EXPECT_THAT(window.controls(), ElementsAre(button.get()));
  button->mouse_move(kMoving);
  EXPECT_THAT(window.controls(), ElementsAre(button.get()));
  EXPECT_THAT(backend.attached, ElementsAre("window", "button", "OverTimer"));
  window.unload();
  EXPECT_THAT(backend.gone, ElementsAre("OverTimer", "button", "window"));
}

// What the user does, with one handler that takes the button away.
using Handler = std::function<void()>;
using Action = std::function<void(ui::Button&)>;
struct Takeaway {
  const char* event;
  std::function<void(ui::Button&, Handler)> handle;
  Action act;
  std::vector<std::string> events;  // before it
};

std::vector<Takeaway> takeaways() {
  return {
      {"MouseDown",
       [](ui::Button& b, Handler h) { b.on_mouse_down = [h](const Mouse&) { h(); }; },
       [](ui::Button& b) { b.mouse_down(kLeft); },
       {}},
      {"MouseIn",
       [](ui::Button& b, Handler h) { b.on_mouse_in = [h](int) { h(); }; },
       [](ui::Button& b) { b.mouse_move(kMoving); },
       {}},
      {"MouseMove",
       [](ui::Button& b, Handler h) { b.on_mouse_move = [h](const Mouse&) { h(); }; },
       [](ui::Button& b) { b.mouse_move(kMoving); },
       {"MouseIn"}},
      {"Click",
       [](ui::Button& b, Handler h) { b.on_click = h; },
       [](ui::Button& b) { b.mouse_up(kLeft); },
       {}},
      {"Click by key",
       [](ui::Button& b, Handler h) { b.on_click = h; },
       [](ui::Button& b) { b.press_by_key(); },
       {}},
      {"MouseUp",
       [](ui::Button& b, Handler h) { b.on_mouse_up = [h](const Mouse&) { h(); }; },
       [](ui::Button& b) { b.mouse_up(kLeft); },
       {"Click"}},
  };
}

TEST_F(ButtonTest, a_handler_may_destroy_the_button) {
  for (const Takeaway& takeaway : takeaways()) {
    auto fresh = std::make_unique<ui::Button>(window, "fresh");
    fresh->set_bounds({0, 0, 100, 20});
    fresh->on_click = [this] { events.emplace_back("Click"); };
    fresh->on_mouse_in = [this](int) { events.emplace_back("MouseIn"); };
    fresh->on_mouse_move = [this](const Mouse&) { events.emplace_back("MouseMove"); };
    fresh->on_mouse_up = [this](const Mouse&) { events.emplace_back("MouseUp"); };
    fresh->attach(backend);
    takeaway.handle(*fresh, [&] { fresh.reset(); });
    ui::Button& object = *fresh;
    takeaway.act(object);
    EXPECT_FALSE(fresh) << takeaway.event;
    EXPECT_EQ(take(), takeaway.events) << takeaway.event << ": no event comes after it";
  }
}

TEST_F(ButtonTest, a_handler_may_unload_the_window_and_nothing_is_reported_after_it) {
  button->on_click = [&] {
    events.emplace_back("Click");
    window.unload();
  };
  button->mouse_down(kLeft);
  button->mouse_up(kLeft);
  EXPECT_THAT(take(), ElementsAre("MouseDown", "Click"));
  window.load();
  button->on_mouse_in = [&](int) {
    events.emplace_back("MouseIn");
    window.unload();
  };
  button->mouse_move(kMoving);
  EXPECT_THAT(events, ElementsAre("MouseIn"));
  EXPECT_FALSE(button->over());
}

}  // namespace
}  // namespace ordelan::test
