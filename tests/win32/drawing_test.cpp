#include <windows.h>

#include <gtest/gtest.h>

#include <random>

#include "win32/ansi_text.h"
#include "win32/backend_fixture.h"
#include "win32/paint/canvas.h"
#include "win32/paint/drawing_tools.h"
#include "win32/paint/screen_scale.h"
#include "win32/paint/shapes.h"
#include "win32/peers/progress_bar_peer.h"

namespace ordelan::win32 {
namespace {

TEST(ScreenScale, units_and_pixels_are_the_same_at_96_dots_per_inch) {
  for (const int value : {-100, -1, 0, 1, 7, 12345}) {
    EXPECT_EQ(to_pixels(value, 96), value);
    EXPECT_EQ(to_units(value, 96), value);
  }
}

TEST(ScreenScale, units_survive_the_way_there_and_back_on_denser_screens) {
  for (const int dpi : {96, 120, 144, 168, 192, 288}) {
    for (int value = -50; value < 2000; ++value) {
      EXPECT_EQ(to_units(to_pixels(value, dpi), dpi), value) << dpi;
    }
  }
  EXPECT_EQ(to_pixels(10, 144), 15);
  EXPECT_EQ(to_pixels(-10, 144), -15);
  EXPECT_EQ(to_units(30, 192), 15);
}

TEST(ScreenScale, what_touches_in_the_layout_touches_on_the_screen) {
  for (const int dpi : {96, 120, 144, 168, 192}) {
    for (int left = 0; left < 40; ++left) {
      const RECT first = to_pixels(ui::Rect{left, 0, 13, 7}, dpi);
      const RECT second = to_pixels(ui::Rect{left + 13, 7, 5, 5}, dpi);
      EXPECT_EQ(first.right, second.left);
      EXPECT_EQ(first.bottom, second.top);
    }
  }
}

TEST(ScreenScale, lines_are_whole_pixels_broad) {
  EXPECT_EQ(line_width(72), 1);
  EXPECT_EQ(line_width(96), 1);
  EXPECT_EQ(line_width(144), 1);
  EXPECT_EQ(line_width(191), 1);
  EXPECT_EQ(line_width(192), 2);
  EXPECT_EQ(line_width(288), 3);
}

TEST(Shapes, the_edge_of_a_box_is_sharp_and_inside_of_it) {
  constexpr COLORREF kGround = RGB(0, 0, 0);
  constexpr COLORREF kFill = RGB(10, 20, 200);
  constexpr COLORREF kEdge = RGB(250, 240, 30);
  const RECT all{0, 0, 60, 50};
  const RECT box{5, 6, 55, 44};
  DrawingTools tools;
  const HDC screen = GetDC(nullptr);
  for (const int width : {1, 2, 3}) {
    const Canvas canvas(screen, all);
    const HDC context = canvas.context();
    FillRect(context, &all, tools.brush(ui::rgb(0, 0, 0)));
    rounded_box(context, box, 5, ui::rgb(10, 20, 200), {ui::rgb(250, 240, 30), width});
    const int x = (box.left + box.right) / 2;
    const int y = (box.top + box.bottom) / 2;
    EXPECT_EQ(GetPixel(context, box.left - 1, y), kGround);
    EXPECT_EQ(GetPixel(context, box.right, y), kGround);
    EXPECT_EQ(GetPixel(context, x, box.top - 1), kGround);
    EXPECT_EQ(GetPixel(context, x, box.bottom), kGround);
    for (int i = 0; i < width; ++i) {
      EXPECT_EQ(GetPixel(context, box.left + i, y), kEdge) << width << ' ' << i;
      EXPECT_EQ(GetPixel(context, box.right - 1 - i, y), kEdge) << width << ' ' << i;
      EXPECT_EQ(GetPixel(context, x, box.top + i), kEdge) << width << ' ' << i;
      EXPECT_EQ(GetPixel(context, x, box.bottom - 1 - i), kEdge) << width << ' ' << i;
    }
    EXPECT_EQ(GetPixel(context, box.left + width, y), kFill);
    EXPECT_EQ(GetPixel(context, box.right - 1 - width, y), kFill);
    EXPECT_EQ(GetPixel(context, x, box.top + width), kFill);
    EXPECT_EQ(GetPixel(context, x, box.bottom - 1 - width), kFill);
    EXPECT_EQ(GetPixel(context, box.left, box.top), kGround) << "its corners are round";
    bool smooth = false;
    for (int i = 0; i < 8; ++i) {
      for (int j = 0; j < 8; ++j) {
        const COLORREF pixel = GetPixel(context, box.left + i, box.top + j);
        EXPECT_EQ(GetPixel(context, box.right - 1 - i, box.top + j), pixel);
        EXPECT_EQ(GetPixel(context, box.left + i, box.bottom - 1 - j), pixel);
        EXPECT_EQ(GetPixel(context, box.right - 1 - i, box.bottom - 1 - j), pixel);
        smooth = smooth || (pixel != kGround && pixel != kFill && pixel != kEdge);
      }
    }
    EXPECT_TRUE(smooth);
  }
  ReleaseDC(nullptr, screen);
}

TEST(Shapes, a_stroke_goes_through_its_points_and_is_as_broad_as_it_should_be) {
  const RECT all{0, 0, 60, 50};
  DrawingTools tools;
  const HDC screen = GetDC(nullptr);
  const Canvas canvas(screen, all);
  const HDC context = canvas.context();
  FillRect(context, &all, tools.brush(ui::rgb(0, 0, 0)));
  const POINT way[] = {{10, 10}, {30, 10}, {30, 40}};
  stroke(context, way, {ui::rgb(250, 240, 30), 4});
  for (const POINT on : {POINT{20, 8}, POINT{20, 11}, POINT{28, 30}, POINT{31, 30}}) {
    EXPECT_EQ(GetPixel(context, on.x, on.y), RGB(250, 240, 30)) << on.x << ' ' << on.y;
  }
  for (const POINT off : {POINT{20, 7}, POINT{20, 12}, POINT{27, 30}, POINT{32, 30}}) {
    EXPECT_EQ(GetPixel(context, off.x, off.y), RGB(0, 0, 0)) << off.x << ' ' << off.y;
  }
  ReleaseDC(nullptr, screen);
}

TEST(Shapes, the_corners_of_a_dashed_box_are_whole_and_its_sides_are_alike) {
  const RECT all{0, 0, 120, 90};
  const RECT box{4, 5, 116, 85};
  DrawingTools tools;
  const HDC screen = GetDC(nullptr);
  const Canvas canvas(screen, all);
  const HDC context = canvas.context();
  FillRect(context, &all, tools.brush(ui::rgb(0, 0, 0)));
  dashed_box(context, box, 8, {ui::rgb(250, 240, 30), 2});
  int drawn = 0;
  int left_out = 0;
  for (LONG x = box.left + 8; x < box.right - 8; ++x) {
    const COLORREF pixel = GetPixel(context, x, box.top);
    EXPECT_EQ(GetPixel(context, x, box.bottom - 1), pixel);
    EXPECT_EQ(GetPixel(context, box.left + box.right - 1 - x, box.top), pixel);
    drawn += pixel == RGB(250, 240, 30) ? 1 : 0;
    left_out += pixel == RGB(0, 0, 0) ? 1 : 0;
  }
  EXPECT_GT(drawn, left_out);
  EXPECT_GT(left_out, 20);
  EXPECT_GT(GetRValue(GetPixel(context, box.left + 7, box.top)), 200);
  EXPECT_GT(GetRValue(GetPixel(context, box.left, box.bottom - 8)), 200);
  EXPECT_EQ(GetPixel(context, 60, 45), RGB(0, 0, 0)) << "nothing within";
  ReleaseDC(nullptr, screen);
}

TEST(ColorWords, system_colours_are_the_systems_and_others_their_own) {
  EXPECT_EQ(color_of(ui::Color::window_background), GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(color_of(ui::Color::button_face), GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(color_of(ui::rgb(1, 2, 3)), RGB(1, 2, 3));
}

TEST(ProgressSteps, any_64_bit_range_has_its_ends_and_its_middle) {
  constexpr auto kLeast = INT64_MIN;
  constexpr auto kMost = INT64_MAX;
  EXPECT_EQ(progress_steps(0, 100, 0), 0);
  EXPECT_EQ(progress_steps(0, 100, 37), 3700);
  EXPECT_EQ(progress_steps(0, 100, 100), kProgressSteps);
  EXPECT_EQ(progress_steps(0, 100, 101), kProgressSteps);
  EXPECT_EQ(progress_steps(0, 100, -1), 0);
  EXPECT_EQ(progress_steps(50, 150, 100), 5000);
  EXPECT_EQ(progress_steps(kLeast, kMost, 0), 5000);
  EXPECT_EQ(progress_steps(0, kMost, kMost), kProgressSteps);
  EXPECT_EQ(progress_steps(0, 0, 0), 0);
  EXPECT_EQ(progress_steps(0, 0, 5), 0);
  EXPECT_EQ(progress_steps(10, 0, 5), 0);
}

TEST(CharacterWidths, a_text_is_as_wide_as_its_characters_together) {
  Win32Backend backend(GetModuleHandleW(nullptr));
  DrawingTools tools;
  std::mt19937 random(1);
  std::uniform_int_distribution<int> length(1, 200);
  std::uniform_int_distribution<int> byte(32, 255);
  const HDC screen = GetDC(nullptr);
  for (const ui::Font font : {ui::Font{9, false}, ui::Font{9, true}, ui::Font{14, false}}) {
    const ui::CharacterWidths widths = backend.character_widths(font);
    EXPECT_GT(widths['W'], widths['i']);
    const HGDIOBJ old = SelectObject(screen, tools.font(font, system_dpi()));
    int different = 0;
    for (int i = 0; i < 1000; ++i) {
      std::string text;
      int sum = 0;
      for (int left = length(random); left > 0; --left) {
        text += static_cast<char>(byte(random));
        sum += widths[static_cast<unsigned char>(text.back())];
      }
      const std::wstring wide = widen(text);
      SIZE size{};
      GetTextExtentPoint32W(screen, wide.data(), static_cast<int>(wide.size()), &size);
      if (size.cx != sum) ++different;
    }
    EXPECT_EQ(different, 0) << font.points << (font.bold ? " bold" : "");
    SelectObject(screen, old);
  }
  ReleaseDC(nullptr, screen);
}

}  // namespace
}  // namespace ordelan::win32
