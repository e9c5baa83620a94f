#include "ui/bar_chart.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <set>
#include <stdexcept>
#include <vector>

#include "app/look.h"
#include "win32/backend_fixture.h"
#include "win32/paint/bar_picture.h"
#include "win32/paint/drawing_tools.h"

namespace ordelan::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using win32::BarColors;
using win32::BarPicture;

constexpr BarColors kColors{.ground = ui::rgb(10, 10, 10),
                            .grid = ui::rgb(50, 50, 50),
                            .low = ui::rgb(0, 100, 0),
                            .middle = ui::rgb(0, 200, 0),
                            .high = ui::rgb(200, 0, 0),
                            .peak = ui::rgb(250, 250, 250)};

// Pictures of 40 by 60 pixels: four bars have ten columns each.
class Bars : public testing::Test {
 protected:
  Bars() : context_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO format{};
    format.bmiHeader = {sizeof format.bmiHeader, 100, -100, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    bitmap_ = CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, nullptr, nullptr, 0);
    old_ = SelectObject(context_, bitmap_);
  }
  ~Bars() override {
    SelectObject(context_, old_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }

  std::vector<RECT> draw(const std::vector<ui::Bar>& bars) {
    return picture.draw(bars, {40, 60}, kColors, 1);
  }
  COLORREF at(int x, int y) {
    picture.show(context_);
    GdiFlush();
    return GetPixel(context_, x, y);
  }

  BarPicture picture;

 private:
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ old_;
};

constexpr COLORREF kGround = RGB(10, 10, 10);
constexpr COLORREF kPeak = RGB(250, 250, 250);
const std::vector<ui::Bar> kNothing(4);

TEST_F(Bars, of_no_height_leave_the_ground_and_its_lines_alone) {
  draw(kNothing);
  std::set<COLORREF> seen;
  std::vector<int> lines;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 40; ++x) seen.insert(at(x, y));
    if (at(0, y) != kGround) lines.push_back(y);
  }
  EXPECT_THAT(seen, ElementsAre(kGround, RGB(28, 28, 28)));
  EXPECT_THAT(lines, ElementsAre(10, 20, 30, 40, 50));
}

TEST_F(Bars, stand_on_the_foot_side_by_side_as_high_as_their_level) {
  draw({{0.5, 0}, {1, 0}, {0, 0}, {0.25, 0}});
  EXPECT_EQ(at(0, 59), at(10, 59));
  EXPECT_NE(at(0, 59), kGround);
  EXPECT_EQ(at(0, 29), kGround);
  EXPECT_NE(at(0, 31), kGround);
  EXPECT_NE(at(7, 31), kGround);
  EXPECT_EQ(at(8, 31), kGround) << "a gap";
  EXPECT_EQ(at(9, 31), kGround);
  EXPECT_NE(at(10, 0), kGround);
  EXPECT_EQ(at(20, 59), kGround);
  EXPECT_EQ(at(30, 44), kGround);
  EXPECT_NE(at(30, 46), kGround);
  EXPECT_NE(at(39, 59), kGround) << "up to the right edge";
}

TEST_F(Bars, change_their_colour_with_the_height_and_not_with_the_level) {
  draw({{1, 0}, {0.3, 0}, {0, 0}, {0, 0}});
  EXPECT_EQ(at(0, 0), RGB(200, 0, 0));
  EXPECT_EQ(at(0, 24), RGB(0, 200, 0));
  EXPECT_LT(GetGValue(at(0, 59)), 105);
  for (int y = 43; y < 60; ++y) EXPECT_EQ(at(0, y), at(10, y)) << y;
}

TEST_F(Bars, have_a_thin_mark_at_their_peak) {
  draw({{0.25, 0.5}, {0, 1}, {0.5, 0.5}, {0.5, 0}});
  EXPECT_EQ(at(0, 29), kGround);
  EXPECT_EQ(at(0, 30), kPeak);
  EXPECT_EQ(at(0, 31), kGround);
  EXPECT_EQ(at(10, 0), kPeak);
  EXPECT_EQ(at(10, 1), kGround);
  EXPECT_EQ(at(20, 30), kPeak);
  for (int y = 0; y < 60; ++y) EXPECT_NE(at(30, y), kPeak) << y;
}

TEST_F(Bars, fall_without_a_trace) {
  draw({{1, 1}, {1, 1}, {1, 1}, {1, 1}});
  draw(kNothing);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 40; ++x) ASSERT_EQ(at(x, y), at(8, y)) << x << ", " << y;
  }
}

TEST_F(Bars, that_look_the_same_are_not_painted_again) {
  EXPECT_THAT(draw({{0.5, 0.5}, {0.5, 0.5}, {0, 0}, {0, 0}}), SizeIs(1)) << "all of it";
  EXPECT_THAT(draw({{0.5, 0.5}, {0.5, 0.5}, {0, 0}, {0, 0}}), IsEmpty());
  EXPECT_THAT(draw({{0.501, 0.5}, {0.5, 0.499}, {0.001, 0}, {0, 0}}), IsEmpty())
      << "less than half a pixel";
  const auto changed = draw({{0.5, 0.5}, {0.5, 0.6}, {0, 0}, {0.1, 0}});
  ASSERT_THAT(changed, SizeIs(2));
  EXPECT_EQ(changed[0].left, 10);
  EXPECT_EQ(changed[0].right, 18);
  EXPECT_EQ(changed[0].top, 0);
  EXPECT_EQ(changed[0].bottom, 60);
  EXPECT_EQ(changed[1].left, 30);
  EXPECT_EQ(changed[1].right, 40);
}

TEST_F(Bars, another_size_number_or_colour_begins_the_picture_anew) {
  draw({{1, 1}, {1, 1}, {1, 1}, {1, 1}});
  EXPECT_THAT(draw({{1, 1}, {0, 0}}), SizeIs(1));
  EXPECT_NE(at(17, 30), kGround);
  EXPECT_EQ(at(20, 30), at(39, 30));
  BarColors colors = kColors;
  colors.ground = ui::rgb(0, 0, 90);
  EXPECT_THAT(picture.draw({{1, 1}, {0, 0}}, {40, 60}, colors, 1), SizeIs(1));
  EXPECT_EQ(at(30, 1), RGB(0, 0, 90));
  const auto all = picture.draw({{1, 1}, {0, 0}}, {80, 90}, colors, 2);
  ASSERT_THAT(all, SizeIs(1));
  EXPECT_EQ(all[0].right, 80);
  EXPECT_EQ(all[0].bottom, 90);
  EXPECT_EQ(at(35, 1), kPeak) << "a line of two pixels";
  EXPECT_NE(at(35, 2), kPeak);
}

TEST_F(Bars, without_room_for_gaps_touch_and_with_no_room_at_all_are_nothing) {
  picture.draw(std::vector<ui::Bar>(40, ui::Bar{1, 0}), {80, 60}, kColors, 1);
  for (int x = 0; x < 80; ++x) EXPECT_NE(at(x, 59), kGround) << x;
  // More bars than pixels.
  picture.draw(std::vector<ui::Bar>(100, ui::Bar{1, 1}), {40, 60}, kColors, 1);
  for (int x = 0; x < 40; ++x) EXPECT_NE(at(x, 59), kGround) << x;
  EXPECT_THAT(picture.draw({{1, 1}}, {0, 60}, kColors, 1), IsEmpty());
  EXPECT_THAT(picture.draw({{1, 1}}, {40, 0}, kColors, 1), IsEmpty());
  EXPECT_THAT(picture.draw({}, {40, 60}, kColors, 1), SizeIs(1));
  EXPECT_EQ(at(5, 59), kGround);
}

class RealBarChart : public BackendTest {
 protected:
  RealBarChart() : before_(win32::palette()) {
    win32::use_palette(app::skin_palette());
    chart.set_bounds({20, 30, 240, 120});
    chart.set_back_color(app::skin_palette().surface);
    chart.set_description("Espectro");
    backend.on_chart_window = [this](HWND host) { reported.push_back(host); };
  }
  ~RealBarChart() override {
    backend.on_chart_window = nullptr;
    win32::use_palette(before_);
  }

  HWND real_chart() const { return real(L"Ordelan.Espectro"); }
  COLORREF shown(int x, int y) {
    backend.pump();
    UpdateWindow(real_chart());
    const HDC context = GetDC(real_chart());
    const COLORREF color = GetPixel(context, px(x), px(y));
    ReleaseDC(real_chart(), context);
    return color;
  }
  COLORREF ground() const { return win32::color_of(chart.back_color()); }
  static std::vector<ui::Bar> bars(std::size_t loudest) {
    std::vector<ui::Bar> all(24, ui::Bar{0.2, 0.2});
    all.at(loudest) = {0.8, 0.9};
    return all;
  }
  ui::BarChart chart{window, "Espectro"};
  std::vector<HWND> reported;

 private:
  ui::Palette before_;
};

TEST_F(RealBarChart, shows_the_highest_bar_where_it_is) {
  show();
  chart.set_bars(bars(7));
  EXPECT_NE(shown(73, 35), ground());
  EXPECT_EQ(shown(63, 35), ground());
  EXPECT_EQ(shown(83, 35), ground());
  EXPECT_NE(shown(63, 110), ground());
  chart.set_bars(bars(20));
  EXPECT_EQ(shown(73, 35), ground());
  EXPECT_NE(shown(203, 35), ground());
}

TEST_F(RealBarChart, shows_what_was_set_while_it_was_out_of_sight) {
  show();
  chart.hide();
  chart.set_bars(bars(7));
  backend.pump();
  chart.set_bars(bars(20));
  backend.pump();
  chart.show();
  EXPECT_NE(shown(203, 35), ground());
  EXPECT_EQ(shown(73, 35), ground());
}

TEST_F(RealBarChart, is_painted_anew_where_it_changed_only) {
  show();
  chart.set_bars(bars(7));
  shown(0, 0);
  RECT area{};
  EXPECT_FALSE(GetUpdateRect(real_chart(), &area, FALSE));
  auto changed = bars(7);
  changed[10].level = 0.5;
  chart.set_bars(changed);
  // The message makes the control flush; what it has marked is not painted yet.
  SendMessageW(real_chart(), WM_NULL, 0, 0);
  ASSERT_TRUE(GetUpdateRect(real_chart(), &area, FALSE));
  EXPECT_EQ(area.left, px(100));
  EXPECT_LE(area.right, px(110));
  shown(0, 0);
  changed[10].level += 0.0001;
  chart.set_bars(changed);
  SendMessageW(real_chart(), WM_NULL, 0, 0);
  EXPECT_FALSE(GetUpdateRect(real_chart(), &area, FALSE));
}

TEST_F(RealBarChart, follows_its_size) {
  show();
  chart.set_bars(bars(7));
  chart.set_bounds({20, 30, 480, 60});
  EXPECT_NE(shown(146, 18), ground());
  EXPECT_EQ(shown(73, 18), ground());
}

TEST_F(RealBarChart, says_in_words_what_it_is) {
  show();
  EXPECT_EQ(text_of(real_chart()), L"Espectro");
}

TEST_F(RealBarChart, its_window_is_reported_when_it_comes_and_before_it_goes) {
  show();
  const HWND handle = real_chart();
  ASSERT_TRUE(handle);
  EXPECT_THAT(reported, ElementsAre(handle));
  bool there = false;
  backend.on_chart_window = [&](HWND host) {
    reported.push_back(host);
    there = IsWindow(handle) != FALSE;
  };
  window.unload();
  EXPECT_THAT(reported, ElementsAre(handle, nullptr));
  EXPECT_TRUE(there);
  EXPECT_FALSE(IsWindow(handle));
  show();
  EXPECT_THAT(reported, ElementsAre(handle, nullptr, real_chart()));
}

TEST_F(RealBarChart, its_window_is_reported_again_in_another_size_and_only_then) {
  show();
  reported.clear();
  chart.set_bars(bars(3));
  chart.set_bounds({25, 35, 240, 120});
  backend.pump();
  EXPECT_THAT(reported, IsEmpty());
  chart.set_bounds({25, 35, 200, 120});
  backend.pump();
  EXPECT_THAT(reported, ElementsAre(real_chart()));
  come_to_screen_of(win32::dpi_of(real_window()) == 96 ? 144 : 96);
  EXPECT_THAT(reported, ElementsAre(real_chart(), real_chart()));
}

TEST_F(RealBarChart, a_second_chart_is_no_host) {
  ui::BarChart other(window, "Otro");
  show();
  EXPECT_THAT(reported, ElementsAre(real_chart()));
  other.set_bounds({20, 200, 50, 50});
  backend.pump();
  EXPECT_THAT(reported, SizeIs(1));
  other.detach();
  EXPECT_THAT(reported, SizeIs(1));
  chart.detach();
  EXPECT_THAT(reported, SizeIs(2));
}

TEST_F(RealBarChart, nothing_thrown_by_its_receiver_gets_out) {
  backend.on_chart_window = [](HWND) { throw std::runtime_error("no"); };
  show();
  window.unload();
}

// The system's player stands in the chart.
TEST_F(RealBarChart, does_not_paint_over_a_window_in_it) {
  show();
  const HWND inside = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_WHITERECT, 0, 0,
                                      px(120), px(120), real_chart(), nullptr, nullptr, nullptr);
  ASSERT_TRUE(inside);
  UpdateWindow(inside);
  chart.set_bars(std::vector<ui::Bar>(24, ui::Bar{1, 1}));
  const COLORREF beside = shown(125, 60);
  EXPECT_NE(beside, ground());
  const HDC context = GetDC(real_window());
  EXPECT_EQ(GetPixel(context, px(20 + 60), px(30 + 60)), GetSysColor(COLOR_WINDOW));
  ReleaseDC(real_window(), context);
  DestroyWindow(inside);
}

}  // namespace
}  // namespace ordelan::test
