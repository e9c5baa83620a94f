// A picture on the ground of a window.
#include <windows.h>

#include <gtest/gtest.h>

#include "skin/palette.h"
#include "ui/image.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

class Background : public BackendTest {
 protected:
  Background() {
    window.set_borderless(true);
    window.set_back_color(ui::rgb(0, 0, 200));
  }

  // What the window, or one of its controls, shows at a place of its own.
  COLORREF shown(HWND handle, int x, int y) {
    backend.pump();
    UpdateWindow(handle);
    const HDC context = GetDC(handle);
    const COLORREF color = GetPixel(context, px(x), px(y));
    ReleaseDC(handle, context);
    return color;
  }
  COLORREF shown(int x, int y) { return shown(real_window(), x, y); }
  bool has_border() const { return (GetWindowLongPtrW(real_window(), GWL_STYLE) & WS_BORDER) != 0; }
};

constexpr COLORREF kBack = RGB(0, 0, 200);

TEST_F(Background, is_shown_from_the_top_left_corner) {
  window.set_background("fondo_acerca");
  window.size_to_background();
  EXPECT_EQ(window.size(), (ui::Size{400, 216}));
  show();
  EXPECT_EQ(shown(0, 0), skin::kMask);
  EXPECT_EQ(shown(200, 0), skin::kLine);
  EXPECT_EQ(shown(200, 20), skin::kHeader);
  EXPECT_EQ(shown(200, 120), skin::kGround);
  EXPECT_EQ(shown(399, 120), skin::kLine);
}

TEST_F(Background, leaves_the_back_colour_where_it_does_not_reach) {
  window.set_background("fondo_acerca");
  show();
  EXPECT_EQ(shown(399, 120), skin::kLine);
  EXPECT_EQ(shown(400, 120), kBack);
  EXPECT_EQ(shown(200, 216), kBack);
}

TEST_F(Background, that_is_missing_leaves_the_back_colour_and_the_size) {
  window.set_background("no existe");
  window.size_to_background();
  EXPECT_EQ(window.size(), (ui::Size{500, 400}));
  show();
  EXPECT_EQ(shown(0, 0), kBack);
  EXPECT_EQ(shown(200, 120), kBack);
}

TEST_F(Background, can_be_changed_while_it_is_shown) {
  show();
  EXPECT_EQ(shown(200, 20), kBack);
  window.set_background("fondo_acerca");
  EXPECT_EQ(shown(200, 45), skin::kGround);
  window.set_background("fondo_principal");
  EXPECT_EQ(shown(200, 45), skin::kHeader);
  window.set_background("");
  EXPECT_EQ(shown(200, 45), kBack);
  window.set_back_color(ui::rgb(200, 0, 0));
  EXPECT_EQ(shown(200, 45), RGB(200, 0, 0));
}

TEST_F(Background, brings_the_line_round_a_borderless_window) {
  show();
  EXPECT_TRUE(has_border());
  window.set_background("fondo_acerca");
  EXPECT_FALSE(has_border());
  RECT outer{};
  GetWindowRect(real_window(), &outer);
  EXPECT_EQ(outer.right - outer.left, px(500));
  EXPECT_EQ(outer.bottom - outer.top, px(400));
  SendMessageW(real_window(), WM_NCACTIVATE, FALSE, 0);
  SendMessageW(real_window(), WM_NCPAINT, 1, 0);
  EXPECT_EQ(shown(200, 0), skin::kLine);
  window.set_background("");
  EXPECT_TRUE(has_border());
  GetWindowRect(real_window(), &outer);
  EXPECT_EQ(outer.right - outer.left, px(500) + 2);
}

TEST_F(Background, a_window_with_a_title_keeps_its_frame) {
  window.set_borderless(false);
  show();
  window.set_background("fondo_acerca");
  EXPECT_EQ(GetWindowLongPtrW(real_window(), GWL_STYLE) & WS_CAPTION, WS_CAPTION);
  EXPECT_EQ(shown(200, 20), skin::kHeader);
}

TEST_F(Background, is_seen_through_the_pictures_that_stand_on_it) {
  ui::Image image(window, "Image1");
  image.set_bounds({100, 30, 20, 20});
  image.set_picture("minimizar");
  window.set_background("fondo_acerca");
  show();
  const HWND real_image = real(L"Ordelan.Image1");
  EXPECT_EQ(shown(real_image, 10, 5), skin::kHeader);
  EXPECT_EQ(shown(real_image, 10, 17), skin::kGround) << "the band ends inside of it";
  EXPECT_EQ(shown(real_image, 10, 13), skin::kText) << "its own line";
  window.set_background("fondo_principal");
  EXPECT_EQ(shown(real_image, 10, 17), skin::kHeader);
}

TEST_F(Background, is_not_seen_through_a_picture_with_a_back_colour_of_its_own) {
  ui::Image image(window, "Image1");
  image.set_bounds({100, 30, 20, 20});
  image.set_picture("minimizar");
  window.set_background("fondo_acerca");
  show();
  const HWND real_image = real(L"Ordelan.Image1");
  ASSERT_EQ(shown(real_image, 10, 5), skin::kHeader);
  image.set_back_color(ui::Color{skin::kSurface});
  EXPECT_EQ(shown(real_image, 10, 5), skin::kSurface);
  EXPECT_EQ(shown(real_image, 10, 13), skin::kText);
}

}  // namespace
}  // namespace ordelan::test
