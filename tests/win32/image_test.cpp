#include "ui/image.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

class RealImage : public BackendTest {
 protected:
  RealImage() {
    window.set_back_color(ui::rgb(0, 0, 200));
    image.set_bounds({20, 30, 40, 40});
  }

  HWND real_image() const { return real(L"Ordelan.Image1"); }

  // What is shown at a place of the picture's, in the layout's units.
  COLORREF shown(int x, int y) {
    backend.pump();
    UpdateWindow(real_image());
    const HDC context = GetDC(real_image());
    const COLORREF color = GetPixel(context, px(x), px(y));
    ReleaseDC(real_image(), context);
    return color;
  }
  // Two ways of mixing may differ by a step or two, and where a stretched pixel begins to pass into
  // the next is the system's affair.
  static bool near_to(COLORREF a, COLORREF b, int steps = 3) {
    const auto close = [&](int one, int other) { return std::abs(one - other) <= steps; };
    return close(GetRValue(a), GetRValue(b)) && close(GetGValue(a), GetGValue(b)) &&
           close(GetBValue(a), GetBValue(b));
  }

  ui::Image image{window, "Image1"};
};

constexpr COLORREF kGround = RGB(0, 0, 200);

TEST_F(RealImage, a_picture_is_clicked_where_the_button_is_let_go) {
  int clicks = 0;
  image.on_click = [&] { ++clicks; };
  show();
  press(real_image());
  EXPECT_EQ(clicks, 1);
  SendMessageW(real_image(), WM_LBUTTONDOWN, MK_LBUTTON, at(3, 3));
  SendMessageW(real_image(), WM_LBUTTONUP, 0, at(px(100), 3));  // let go beside it
  SendMessageW(real_image(), WM_LBUTTONUP, 0, at(3, 3));        // never pressed
  EXPECT_EQ(clicks, 1);
  SendMessageW(real_image(), WM_LBUTTONDBLCLK, MK_LBUTTON, at(3, 3));
  SendMessageW(real_image(), WM_LBUTTONUP, 0, at(3, 3));
  EXPECT_EQ(clicks, 2);
}

TEST_F(RealImage, two_quick_clicks_are_one_click_and_one_double_click) {
  std::string events;
  image.on_click = [&] { events += "c"; };
  image.on_double_click = [&] { events += "d"; };
  show();
  press(real_image());
  SendMessageW(real_image(), WM_LBUTTONDBLCLK, MK_LBUTTON, at(3, 3));
  SendMessageW(real_image(), WM_LBUTTONUP, 0, at(3, 3));
  EXPECT_EQ(events, "cd");
}

TEST_F(RealImage, a_missing_picture_shows_the_windows_ground) {
  image.set_picture("no existe");
  show();
  EXPECT_EQ(shown(20, 20), kGround);
}

TEST_F(RealImage, pixels_fill_the_control_rows_from_the_top) {
  image.set_pixels(2, 2, {0xFFFF0000, 0xFF00FF00, 0xFFFFFF00, 0xFFFFFFFF});
  show();
  EXPECT_TRUE(near_to(shown(1, 1), RGB(255, 0, 0), 40));
  EXPECT_TRUE(near_to(shown(38, 1), RGB(0, 255, 0), 40));
  EXPECT_TRUE(near_to(shown(1, 38), RGB(255, 255, 0), 40));
  EXPECT_TRUE(near_to(shown(38, 38), RGB(255, 255, 255), 40));
}

TEST_F(RealImage, pixels_of_the_controls_size_are_shown_one_by_one) {
  show();
  const int side = px(40);
  std::vector<std::uint32_t> argb(static_cast<std::size_t>(side * side), 0xFF102030);
  argb[static_cast<std::size_t>(5 * side + 7)] = 0xFFC08040;
  image.set_pixels(side, side, argb);
  backend.pump();
  UpdateWindow(real_image());
  const HDC context = GetDC(real_image());
  EXPECT_EQ(GetPixel(context, 7, 5), RGB(0xC0, 0x80, 0x40));
  EXPECT_EQ(GetPixel(context, 6, 5), RGB(0x10, 0x20, 0x30));
  EXPECT_EQ(GetPixel(context, 7, 4), RGB(0x10, 0x20, 0x30));
  ReleaseDC(real_image(), context);
}

TEST_F(RealImage, pixels_that_are_stretched_pass_into_each_other) {
  image.set_pixels(2, 1, {0xFF000000, 0xFFFFFFFF});
  show();
  int between = 0;
  for (int x = 0; x < 40; ++x) {
    const int grey = GetGValue(shown(x, 20));
    between += grey > 60 && grey < 195 ? 1 : 0;
  }
  EXPECT_GT(between, 2);
}

TEST_F(RealImage, transparent_pixels_let_the_windows_ground_through) {
  image.set_pixels(1, 1, {0x00FFFFFF});
  show();
  EXPECT_EQ(shown(20, 20), kGround);
  image.set_pixels(1, 1, {0x80FF0000});
  EXPECT_TRUE(near_to(shown(20, 20), RGB(128, 0, 100)));
  EXPECT_TRUE(near_to(shown(1, 38), RGB(128, 0, 100)));
}

TEST_F(RealImage, a_new_ground_of_the_window_is_seen_through_its_pictures) {
  image.set_pixels(1, 1, {0});
  show();
  ASSERT_EQ(shown(20, 20), kGround);
  window.set_back_color(ui::rgb(200, 200, 0));
  EXPECT_EQ(shown(20, 20), RGB(200, 200, 0));
}

TEST_F(RealImage, a_picture_by_name_takes_the_place_of_pixels) {
  show();
  image.set_pixels(1, 1, {0xFFFF0000});
  EXPECT_EQ(shown(20, 20), RGB(255, 0, 0));
  image.set_picture("");
  EXPECT_EQ(shown(20, 20), kGround);
}

}  // namespace
}  // namespace ordelan::test
