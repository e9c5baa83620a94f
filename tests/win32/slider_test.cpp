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
    slider.on_change = [this](std::int32_t value) { told.push_back(value); };
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
  std::vector<std::int32_t> told;
};

TEST_F(RealSlider, a_click_on_the_track_moves_the_value) {
  show();
  send(WM_LBUTTONDOWN, MK_LBUTTON, 110);
  send(WM_LBUTTONUP, 0, 110);
  EXPECT_EQ(slider.value(), 100);
  EXPECT_THAT(told, ElementsAre(100));
  EXPECT_FALSE(slider.pressed());
  EXPECT_NE(GetCapture(), real_slider());
}

TEST_F(RealSlider, is_a_slider_with_its_value_to_whoever_reads_the_screen) {
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

// As programs for people who see nothing set a slider.
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
  EXPECT_THAT(told, ElementsAre(70, 100));
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

TEST_F(RealSlider, keys_move_it_where_it_has_the_focus) {
  show();
  SetFocus(real_slider());
  type(real_slider(), VK_RIGHT);
  type(real_slider(), VK_UP);
  type(real_slider(), VK_LEFT);
  type(real_slider(), VK_END);
  EXPECT_THAT(told, ElementsAre(1, 2, 1, 100));
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
