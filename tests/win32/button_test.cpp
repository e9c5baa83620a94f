#include "ui/button.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "skin/palette.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The number tiles have a colour of their own each, which is seen beside their strokes.
constexpr COLORREF kNormal = skin::kStep1;
constexpr COLORREF kOver = skin::kStep2;
constexpr COLORREF kDown = skin::kStep3;

// What Windows sends for each button of the mouse.
struct MouseButton {
  int number;
  UINT down;
  UINT up;
  UINT second;
};
constexpr MouseButton kLeft = {ui::kLeftButton, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK};
constexpr MouseButton kRight = {ui::kRightButton, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK};
constexpr MouseButton kMiddle = {ui::kMiddleButton, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK};

class RealButton : public BackendTest {
 protected:
  RealButton() {
    button.set_bounds({20, 30, 100, 40});
    button.set_style(1);
    button.set_picture_align(3);
    button.set_picture_normal("paso_1");
    button.set_picture_over("paso_2");
    button.set_picture_down("paso_3");
    button.on_click = [this] { events.emplace_back("Click"); };
    button.on_mouse_down = [this](const ui::Mouse& mouse) { record("Down", mouse); };
    button.on_mouse_move = [this](const ui::Mouse& mouse) { last = mouse; };
    button.on_mouse_up = [this](const ui::Mouse& mouse) { record("Up", mouse); };
  }
  void record(const char* event, const ui::Mouse& mouse) {
    events.push_back(event + std::to_string(mouse.button));
    last = mouse;
  }
  std::vector<std::string> take() { return std::exchange(events, {}); }

  HWND real_button() const { return real(L"Ordelan.cmdPlayer"); }
  void send(UINT message, WPARAM w = 0, int x = 50, int y = 11) const {
    SendMessageW(real_button(), message, w, at(px(x), px(y)));
  }
  void point_at(int x, int y) {
    POINT place{px(x), px(y)};
    ClientToScreen(real_button(), &place);
    SetCursorPos(place.x, place.y);
  }
  COLORREF shown(int x, int y) {
    backend.pump();
    UpdateWindow(real_button());
    const HDC context = GetDC(real_button());
    const COLORREF color = GetPixel(context, px(x), px(y));
    ReleaseDC(real_button(), context);
    return color;
  }
  // The colour of the tile that the button shows.
  COLORREF tile() { return shown(6, 20); }

  ui::Button button{window, "cmdPlayer"};
  std::vector<std::string> events;
  ui::Mouse last;
};

TEST_F(RealButton, events_carry_place_button_and_keys) {
  show();
  for (const MouseButton& mouse : {kLeft, kRight, kMiddle}) {
    send(mouse.down, MK_SHIFT, 37, 12);
    EXPECT_EQ(last, (ui::Mouse{{37, 12}, mouse.number, ui::kShiftKey}));
    send(WM_MOUSEMOVE, MK_CONTROL | MK_RBUTTON, 61, 9);
    EXPECT_EQ(last, (ui::Mouse{{61, 9}, ui::kRightButton, ui::kControlKey}));
    send(mouse.up, 0, 300, -7);
    EXPECT_EQ(last, (ui::Mouse{{300, -7}, mouse.number, 0}));
  }
}

TEST_F(RealButton, all_buttons_of_the_mouse_are_reported_and_all_but_the_right_one_click) {
  show();
  for (const MouseButton& mouse : {kLeft, kRight, kMiddle}) {
    send(mouse.down);
    EXPECT_EQ(GetCapture(), real_button()) << mouse.number;
    send(mouse.up);
    EXPECT_NE(GetCapture(), real_button()) << mouse.number;
  }
  EXPECT_THAT(events,
              ElementsAre("Down1", "Click", "Up1", "Down2", "Up2", "Down4", "Click", "Up4"));
}

TEST_F(RealButton, a_quick_second_press_is_a_press_whichever_button_of_the_mouse_it_is) {
  show();
  for (const MouseButton& mouse : {kLeft, kRight, kMiddle}) {
    send(mouse.down);
    send(mouse.up);
    const std::vector<std::string> first = take();
    send(mouse.second);
    EXPECT_EQ(GetCapture(), real_button()) << mouse.number;
    EXPECT_EQ(button.down(), mouse.number != ui::kRightButton);
    send(mouse.up);
    EXPECT_EQ(take(), first) << mouse.number;
  }
}

TEST_F(RealButton, a_right_click_inside_a_left_press_takes_nothing_of_it) {
  show();
  send(WM_LBUTTONDOWN);
  send(WM_RBUTTONDOWN);
  send(WM_RBUTTONUP);
  EXPECT_EQ(GetCapture(), real_button()) << "the left one still holds it";
  send(WM_LBUTTONUP);
  EXPECT_NE(GetCapture(), real_button());
  EXPECT_THAT(events, ElementsAre("Down1", "Down2", "Up2", "Click", "Up1"));
}

TEST_F(RealButton, presses_may_end_in_the_order_in_which_they_began) {
  show();
  send(WM_LBUTTONDOWN);
  send(WM_RBUTTONDOWN);
  send(WM_LBUTTONUP);
  EXPECT_EQ(GetCapture(), real_button());
  send(WM_RBUTTONUP);
  EXPECT_THAT(events, ElementsAre("Down1", "Down2", "Click", "Up1", "Up2"));
}

TEST_F(RealButton, a_release_without_its_press_means_nothing) {
  show();
  send(WM_LBUTTONUP);
  send(WM_RBUTTONDOWN);
  send(WM_LBUTTONUP);
  send(WM_RBUTTONUP);
  send(WM_RBUTTONUP);
  EXPECT_THAT(events, ElementsAre("Down2", "Up2"));
}

TEST_F(RealButton, presses_are_over_where_something_else_takes_the_mouse) {
  show();
  send(WM_LBUTTONDOWN);
  send(WM_RBUTTONDOWN);
  ReleaseCapture();
  EXPECT_FALSE(button.down());
  EXPECT_EQ(tile(), kNormal);
  send(WM_RBUTTONUP);
  send(WM_LBUTTONUP);
  EXPECT_THAT(events, ElementsAre("Down1", "Down2"));
}

TEST_F(RealButton, every_state_is_painted_as_it_comes) {
  show();
  SetCursorPos(0, 0);
  EXPECT_EQ(tile(), kNormal);
  point_at(50, 11);
  send(WM_MOUSEMOVE);
  EXPECT_EQ(tile(), kOver);
  send(WM_LBUTTONDOWN);
  EXPECT_EQ(tile(), kDown);
  send(WM_LBUTTONUP);
  EXPECT_EQ(tile(), kOver);
  SetCursorPos(0, 0);
  EXPECT_TRUE(pump_until([&] { return tile() == kNormal; }));
}

TEST_F(RealButton, the_end_of_the_hover_is_found_out_by_the_pointer) {
  std::vector<std::string> hover;
  button.on_mouse_in = [&](int) { hover.emplace_back("In"); };
  button.on_mouse_out = [&](int) { hover.emplace_back("Out"); };
  show();
  point_at(50, 11);
  ASSERT_TRUE(pump_until([&] { return button.over(); })) << "by the system's own messages";
  for (int turn = 0; turn < 10; ++turn) {
    backend.pump();
    Sleep(10);
  }
  EXPECT_THAT(hover, ElementsAre("In")) << "it goes on while the pointer rests";
  SetCursorPos(0, 0);
  EXPECT_TRUE(pump_until([&] { return !button.over(); }));
  EXPECT_THAT(hover, ElementsAre("In", "Out"));
}

TEST_F(RealButton, a_held_button_looks_let_go_while_the_pointer_is_elsewhere) {
  show();
  point_at(50, 11);
  ASSERT_TRUE(pump_until([&] { return button.over(); }));
  send(WM_LBUTTONDOWN);
  EXPECT_EQ(tile(), kDown);
  SetCursorPos(0, 0);
  EXPECT_TRUE(pump_until([&] { return tile() == kNormal; }));
  EXPECT_TRUE(button.down());
  send(WM_LBUTTONUP, 0, 300, 300);
  EXPECT_THAT(events, ElementsAre("Down1", "Up1"));
}

TEST_F(RealButton, what_has_the_masks_colour_lets_the_ground_through) {
  show();
  const COLORREF ground = shown(90, 20);
  ASSERT_EQ(tile(), kNormal);
  ASSERT_NE(ground, kNormal);
  button.set_mask_color(static_cast<ui::Color>(kNormal));
  EXPECT_EQ(tile(), kNormal) << "a mask is used only where that was asked for";
  button.set_use_mask_color(true);
  EXPECT_EQ(tile(), ground);
  button.set_mask_color(static_cast<ui::Color>(kNormal ^ 1));
  EXPECT_EQ(tile(), kNormal) << "a step away from the mask is no mask";
}

TEST_F(RealButton, a_plain_button_shows_none_of_its_pictures) {
  button.set_style(0);
  show();
  EXPECT_EQ(tile(), shown(90, 20));
}

TEST_F(RealButton, a_key_that_its_window_keeps_does_not_press_it) {
  bool keep = true;
  window.on_key_down = [&](ui::Key& key) { key.swallowed = keep; };
  button.on_mouse_down = button.on_mouse_up = nullptr;
  show();
  SetFocus(real_button());
  const auto press_key = [&](WPARAM key) {
    type(real_button(), key);
    PostMessageW(real_button(), WM_KEYUP, key, 0xC0000001);
    backend.pump();
  };
  press_key(VK_SPACE);
  press_key(VK_RETURN);
  EXPECT_THAT(events, IsEmpty());
  keep = false;
  press_key(VK_SPACE);
  press_key(VK_RETURN);
  EXPECT_THAT(events, ElementsAre("Click", "Click"));
}

}  // namespace
}  // namespace ordelan::test
