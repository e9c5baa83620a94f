#include "ui/slider.h"

#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "skin/palette.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

using testing::ElementsAre;

class RealSlider : public BackendTest {
 protected:
  RealSlider() {
    slider.set_bounds({20, 30, 111, 20});
    slider.set_position(1);
    slider.on_change = [this](std::int32_t value) { changes.push_back(value); };
  }

  HWND real_slider() const { return real(L"Ordelan.SliderVol"); }
  void send(UINT message, WPARAM w, int x, int y = 10) const {
    SendMessageW(real_slider(), message, w, at(px(x), px(y)));
  }
  COLORREF shown(int x, int y = 10) {
    backend.pump();
    UpdateWindow(real_slider());
    const HDC context = GetDC(real_slider());
    const COLORREF color = GetPixel(context, px(x), px(y));
    ReleaseDC(real_slider(), context);
    return color;
  }

  ui::Slider slider{window, "SliderVol"};
  std::vector<std::int32_t> changes;
};

TEST_F(RealSlider, a_click_on_the_track_moves_the_value) {
  show();
  send(WM_LBUTTONDOWN, MK_LBUTTON, 110);
  send(WM_LBUTTONUP, 0, 110);
  EXPECT_EQ(slider.value(), 100);
  EXPECT_THAT(changes, ElementsAre(100));
  EXPECT_FALSE(slider.pressed());
  EXPECT_NE(GetCapture(), real_slider());
}

TEST_F(RealSlider, is_a_slider_with_its_value_to_screen_readers) {
  slider.set_min(-50);
  slider.set_max(200);
  slider.set_value(20);
  show();
  wchar_t kind[64] = {};
  GetClassNameW(real_slider(), kind, 64);
  EXPECT_EQ(std::wstring(kind), L"msctls_trackbar32");
  const auto ask = [&](UINT message) { return SendMessageW(real_slider(), message, 0, 0); };
  EXPECT_EQ(ask(TBM_GETRANGEMIN), -50);
  EXPECT_EQ(ask(TBM_GETRANGEMAX), 200);
  EXPECT_EQ(ask(TBM_GETPOS), 20);
  slider.set_value(150);
  backend.pump();
  EXPECT_EQ(ask(TBM_GETPOS), 150);
  type(real_slider(), VK_HOME);
  backend.pump();
  EXPECT_EQ(slider.value(), -50);
  EXPECT_EQ(ask(TBM_GETPOS), -50);
}

// As screen readers set a slider.
TEST_F(RealSlider, another_program_may_set_its_value) {
  show();
  const auto set = [&](int value) {
    SendMessageW(real_slider(), TBM_SETPOS, TRUE, value);
    backend.pump();
  };
  set(70);
  EXPECT_EQ(slider.value(), 70);
  set(70);
  set(1000);
  EXPECT_EQ(slider.value(), 100);
  EXPECT_EQ(SendMessageW(real_slider(), TBM_GETPOS, 0, 0), 100);
  EXPECT_THAT(changes, ElementsAre(70, 100));
}

TEST_F(RealSlider, the_wheel_leaves_value_and_thumb_alone) {
  slider.set_value(40);
  show();
  SendMessageW(real_slider(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  backend.pump();
  EXPECT_EQ(slider.value(), 40);
  EXPECT_EQ(SendMessageW(real_slider(), TBM_GETPOS, 0, 0), 40);
}

TEST_F(RealSlider, a_drag_goes_on_beside_the_slider) {
  show();
  send(WM_LBUTTONDOWN, MK_LBUTTON, 5);
  EXPECT_TRUE(slider.dragging());
  EXPECT_EQ(GetCapture(), real_slider());
  send(WM_MOUSEMOVE, MK_LBUTTON, 400, 300);
  EXPECT_EQ(slider.value(), 100);
  send(WM_LBUTTONUP, 0, 400, 300);
  EXPECT_FALSE(slider.dragging());
}

TEST_F(RealSlider, a_drag_ends_where_something_else_takes_the_mouse) {
  show();
  send(WM_LBUTTONDOWN, MK_LBUTTON, 5);
  ReleaseCapture();
  EXPECT_FALSE(slider.dragging());
  send(WM_MOUSEMOVE, 0, 60);
  EXPECT_EQ(slider.value(), 0);
}

TEST_F(RealSlider, events_carry_place_button_and_keys) {
  ui::Mouse last;
  slider.on_mouse_down = slider.on_mouse_move =
      slider.on_mouse_up = [&](const ui::Mouse& mouse) { last = mouse; };
  show();
  send(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, 61, 7);
  EXPECT_EQ(last, (ui::Mouse{{61, 7}, ui::kLeftButton, ui::kShiftKey}));
  send(WM_MOUSEMOVE, MK_LBUTTON | MK_CONTROL, 73, 9);
  EXPECT_EQ(last, (ui::Mouse{{73, 9}, ui::kLeftButton, ui::kControlKey}));
  send(WM_LBUTTONUP, 0, 85, 11);
  EXPECT_EQ(last, (ui::Mouse{{85, 11}, ui::kLeftButton, 0}));
  send(WM_MOUSEMOVE, 0, 40, 12);
  EXPECT_EQ(last, (ui::Mouse{{40, 12}, 0, 0}));
}

TEST_F(RealSlider, every_button_of_the_mouse_is_reported_and_keeps_the_mouse) {
  std::vector<std::string> events;
  slider.on_mouse_down = [&](const ui::Mouse& m) {
    events.push_back("Down" + std::to_string(m.button));
  };
  slider.on_mouse_up = [&](const ui::Mouse& m) {
    events.push_back("Up" + std::to_string(m.button));
  };
  show();
  struct Pair {
    UINT press;
    UINT release;
  };
  for (const Pair& mouse :
       {Pair{WM_LBUTTONDOWN, WM_LBUTTONUP}, Pair{WM_LBUTTONDBLCLK, WM_LBUTTONUP},
        Pair{WM_RBUTTONDOWN, WM_RBUTTONUP}, Pair{WM_RBUTTONDBLCLK, WM_RBUTTONUP},
        Pair{WM_MBUTTONDOWN, WM_MBUTTONUP}, Pair{WM_MBUTTONDBLCLK, WM_MBUTTONUP}}) {
    send(mouse.press, 0, 60);
    EXPECT_EQ(GetCapture(), real_slider()) << std::hex << mouse.press;
    send(mouse.release, 0, 60);
    EXPECT_NE(GetCapture(), real_slider()) << std::hex << mouse.release;
  }
  EXPECT_THAT(events, ElementsAre("Down1", "Up1", "Down1", "Up1", "Down2", "Up2", "Down2", "Up2",
                                  "Down4", "Up4", "Down4", "Up4"));
}

TEST_F(RealSlider, a_right_click_inside_a_drag_does_not_end_it) {
  show();
  send(WM_LBUTTONDOWN, MK_LBUTTON, 5);
  send(WM_RBUTTONDOWN, MK_LBUTTON | MK_RBUTTON, 5);
  send(WM_RBUTTONUP, MK_LBUTTON, 5);
  EXPECT_EQ(GetCapture(), real_slider());
  EXPECT_TRUE(slider.dragging());
  send(WM_MOUSEMOVE, MK_LBUTTON, 55);
  EXPECT_EQ(slider.value(), 50);
  send(WM_LBUTTONUP, 0, 55);
  EXPECT_FALSE(slider.dragging());
  EXPECT_NE(GetCapture(), real_slider());
}

TEST_F(RealSlider, a_release_without_its_press_is_not_reported) {
  int releases = 0;
  slider.on_mouse_up = [&](const ui::Mouse&) { ++releases; };
  show();
  send(WM_LBUTTONUP, 0, 60);
  send(WM_LBUTTONDOWN, MK_LBUTTON, 60);
  ReleaseCapture();
  send(WM_LBUTTONUP, 0, 60);
  EXPECT_EQ(releases, 0);
}

TEST_F(RealSlider, every_state_is_painted_as_it_comes) {
  constexpr COLORREF kNormal = skin::kStep1;
  constexpr COLORREF kOver = skin::kStep2;
  constexpr COLORREF kDown = skin::kStep3;
  slider.set_bounds({20, 30, 124, 24});
  slider.set_bar("paso_1");
  slider.set_bar_over("paso_2");
  slider.set_bar_down("paso_3");
  show();
  const auto thumb_at = [&](int left) { return shown(left + 3, 12); };
  const auto point_at = [&](int x, int y) {
    POINT place{px(x), px(y)};
    ClientToScreen(real_slider(), &place);
    SetCursorPos(place.x, place.y);
  };
  SetCursorPos(0, 0);
  EXPECT_EQ(thumb_at(0), kNormal);
  point_at(10, 12);
  send(WM_MOUSEMOVE, 0, 10);
  EXPECT_EQ(thumb_at(0), kOver);
  send(WM_LBUTTONDOWN, MK_LBUTTON, 10);
  EXPECT_EQ(thumb_at(0), kDown);
  send(WM_MOUSEMOVE, MK_LBUTTON, 60);
  EXPECT_EQ(thumb_at(50), kDown);
  EXPECT_NE(thumb_at(0), kDown);
  send(WM_LBUTTONUP, 0, 60);
  EXPECT_EQ(thumb_at(50), kNormal);
  SetCursorPos(0, 0);
  ASSERT_TRUE(pump_until([&] { return !slider.over(); }));
  point_at(10, 12);
  ASSERT_TRUE(pump_until([&] { return slider.over(); })) << "by the system's own messages";
  EXPECT_EQ(thumb_at(50), kOver);
  SetCursorPos(0, 0);
  EXPECT_TRUE(pump_until([&] { return thumb_at(50) == kNormal; }));
  send(WM_LBUTTONDOWN, MK_LBUTTON, 100);
  EXPECT_EQ(thumb_at(88), kNormal) << "the thumb jumps at the press, not at the release";
  send(WM_LBUTTONUP, 0, 100);
}

TEST_F(RealSlider, is_as_large_as_its_track_also_where_that_was_set_before_it_was_shown) {
  const auto size = [&] {
    RECT area{};
    GetWindowRect(real_slider(), &area);
    return std::pair(area.right - area.left, area.bottom - area.top);
  };
  const std::pair<LONG, LONG> tile(px(24), px(24));
  slider.set_picture_back("paso_1");
  slider.set_position(1);
  show();
  EXPECT_EQ(size(), tile);
  window.unload();
  slider.set_bounds({20, 30, 111, 20});
  slider.load(ui::PropertyBag::parse("Position=1\nPictureBack=paso_2"));
  show();
  EXPECT_EQ(size(), tile);
  slider.set_bounds({20, 30, 111, 20});
  slider.load(ui::PropertyBag::parse("PictureBack=paso_2"));
  backend.pump();
  EXPECT_EQ(size(), tile);
}

TEST_F(RealSlider, stands_upright_to_screen_readers_too) {
  const auto vertical = [&] {
    backend.pump();
    return (GetWindowLongPtrW(real_slider(), GWL_STYLE) & TBS_VERT) != 0;
  };
  show();
  EXPECT_FALSE(vertical());
  slider.set_position(0);
  EXPECT_TRUE(vertical());
  slider.set_position(2);
  EXPECT_FALSE(vertical());
  window.unload();
  slider.set_position(0);
  show();
  EXPECT_TRUE(vertical());
}

TEST_F(RealSlider, a_key_that_its_window_keeps_does_not_move_it) {
  bool keep = true;
  window.on_key_down = [&](ui::Key& key) { key.swallowed = keep; };
  show();
  SetFocus(real_slider());
  for (const WPARAM key : {VK_END, VK_RIGHT, VK_NEXT, VK_SPACE}) type(real_slider(), key);
  EXPECT_EQ(slider.value(), 0);
  EXPECT_EQ(SendMessageW(real_slider(), TBM_GETPOS, 0, 0), 0);
  EXPECT_THAT(changes, testing::IsEmpty());
  keep = false;
  type(real_slider(), VK_END);
  EXPECT_THAT(changes, ElementsAre(100));
}

TEST_F(RealSlider, keys_move_it_where_it_has_the_focus) {
  show();
  SetFocus(real_slider());
  type(real_slider(), VK_RIGHT);
  type(real_slider(), VK_UP);
  type(real_slider(), VK_LEFT);
  type(real_slider(), VK_END);
  EXPECT_THAT(changes, ElementsAre(1, 2, 1, 100));
  EXPECT_EQ(GetFocus(), real_slider()) << "arrows do not leave it";
}

TEST_F(RealSlider, it_is_painted_with_its_fill_and_its_thumb) {
  slider.set_back_color(ui::rgb(0, 0, 200));
  slider.set_value(50);
  show();
  EXPECT_EQ(shown(20), GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(shown(55), GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(shown(100), GetSysColor(COLOR_BTNSHADOW));
  EXPECT_EQ(shown(20, 1), RGB(0, 0, 200));
  slider.set_value(100);
  EXPECT_EQ(shown(55), GetSysColor(COLOR_HIGHLIGHT)) << "painted anew with each value";
}

TEST_F(RealSlider, a_handler_may_unload_its_own_window) {
  show();
  slider.on_change = [&](std::int32_t) { window.unload(); };
  send(WM_LBUTTONDOWN, MK_LBUTTON, 5);
  send(WM_MOUSEMOVE, MK_LBUTTON, 50);
  EXPECT_FALSE(window.loaded());
  show();
  EXPECT_FALSE(slider.pressed());
  send(WM_LBUTTONDOWN, MK_LBUTTON, 110);
  send(WM_LBUTTONUP, 0, 110);
  EXPECT_FALSE(window.loaded());
  slider.set_value(0);
  show();
  type(real_slider(), VK_RIGHT);
  EXPECT_FALSE(window.loaded());
}

// The number tiles have a colour of their own each, which the centre of none of their strokes is.
TEST_F(RealSlider, is_drawn_from_its_pictures) {
  slider.set_picture_back("paso_1");
  slider.set_picture_progress("paso_3");
  slider.set_bar("paso_4");
  show();
  slider.set_bounds({20, 30, 111, 24});
  const auto rgb = [](std::uint32_t word) { return static_cast<COLORREF>(word); };
  const ui::Rect thumb = slider.thumb_place();
  EXPECT_EQ(thumb.width, 24) << "the thumb is as large as its picture";
  EXPECT_EQ(shown(thumb.left + 3, thumb.top + 12), rgb(skin::kStep4));
  slider.set_value(100);
  EXPECT_EQ(shown(slider.thumb_place().left + 3, 12), rgb(skin::kStep4));
}

TEST_F(RealSlider, has_the_pointer_of_its_picture) {
  slider.set_mouse_icon("paso_1");
  show();
  SendMessageW(real_slider(), WM_SETCURSOR, reinterpret_cast<WPARAM>(real_slider()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  const HCURSOR own = GetCursor();
  EXPECT_NE(own, LoadCursorW(nullptr, IDC_ARROW));
  ICONINFO made{};
  ASSERT_TRUE(GetIconInfo(own, &made));
  EXPECT_FALSE(made.fIcon);
  DeleteObject(made.hbmColor);
  DeleteObject(made.hbmMask);
}

}  // namespace
}  // namespace ordelan::test
