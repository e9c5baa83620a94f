#include "ui/waveform.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <vector>

#include "app/look.h"
#include "win32/backend_fixture.h"
#include "win32/paint/drawing_tools.h"
#include "win32/paint/wave_picture.h"

namespace ordelan::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;
using win32::WaveColors;
using win32::WavePicture;

constexpr WaveColors kWaveColors{.ground = ui::rgb(10, 10, 10),
                                 .played = ui::rgb(0, 200, 0),
                                 .rest = ui::rgb(90, 90, 90),
                                 .cursor = ui::rgb(250, 250, 250)};
constexpr COLORREF kWaveGround = RGB(10, 10, 10);
constexpr COLORREF kPlayed = RGB(0, 200, 0);
constexpr COLORREF kRest = RGB(90, 90, 90);
constexpr COLORREF kCursor = RGB(250, 250, 250);

// Pictures of 40 by 60 pixels: four columns have ten lines each.
class Waves : public testing::Test {
 protected:
  Waves() : context_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO format{};
    format.bmiHeader = {sizeof format.bmiHeader, 100, -100, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    bitmap_ = CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, nullptr, nullptr, 0);
    old_ = SelectObject(context_, bitmap_);
  }
  ~Waves() override {
    SelectObject(context_, old_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  std::vector<RECT> draw(const std::vector<ui::WaveColumn>& columns, double cursor = -1) {
    return picture.draw(columns, cursor, {40, 60}, kWaveColors, 1);
  }
  COLORREF at(int x, int y) {
    picture.show(context_);
    GdiFlush();
    return GetPixel(context_, x, y);
  }
  WavePicture picture;

 private:
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ old_;
};

TEST_F(Waves, reach_from_their_lowest_to_their_highest) {
  draw({{-1, 1}, {-0.5, 0.5}, {0, 0}, {0, 1}});
  EXPECT_EQ(at(0, 0), kRest);
  EXPECT_EQ(at(9, 59), kRest);
  EXPECT_EQ(at(10, 14), kWaveGround);
  EXPECT_EQ(at(10, 15), kRest);
  EXPECT_EQ(at(19, 44), kRest);
  EXPECT_EQ(at(19, 45), kWaveGround);
  EXPECT_EQ(at(20, 29), kWaveGround) << "silence is a thin line";
  EXPECT_EQ(at(20, 30), kRest);
  EXPECT_EQ(at(20, 31), kWaveGround);
  EXPECT_EQ(at(39, 0), kRest);
  EXPECT_EQ(at(39, 29), kRest);
  EXPECT_EQ(at(39, 30), kWaveGround);
}

TEST_F(Waves, are_coloured_up_to_the_cursor) {
  const std::vector<ui::WaveColumn> full(4, {-1, 1});
  draw(full, 0.5);
  EXPECT_EQ(at(0, 30), kPlayed);
  EXPECT_EQ(at(19, 30), kPlayed);
  EXPECT_EQ(at(20, 30), kCursor);
  EXPECT_EQ(at(20, 0), kCursor);
  EXPECT_EQ(at(21, 30), kRest);
  draw(full, 0);
  EXPECT_EQ(at(0, 30), kCursor);
  EXPECT_EQ(at(1, 30), kRest);
  draw(full, 1);
  EXPECT_EQ(at(38, 30), kPlayed);
  EXPECT_EQ(at(39, 30), kCursor);
  draw(full, -1);
  for (int x = 0; x < 40; ++x) EXPECT_EQ(at(x, 30), kRest) << x;
}

TEST_F(Waves, that_look_the_same_are_not_painted_again) {
  const std::vector<ui::WaveColumn> waves{{-1, 1}, {-0.5, 0.5}, {0, 0}, {0, 1}};
  EXPECT_THAT(draw(waves, 0.5), SizeIs(1)) << "all of it";
  EXPECT_THAT(draw(waves, 0.5), IsEmpty());
  EXPECT_THAT(draw(waves, 0.501), IsEmpty()) << "less than half a pixel";
  const auto moved = draw(waves, 21.0 / 39);
  ASSERT_THAT(moved, SizeIs(1));
  EXPECT_EQ(moved[0].left, 20);
  EXPECT_EQ(moved[0].right, 22);
  auto other = waves;
  other[3] = {-1, 1};
  const auto changed = draw(other, 21.0 / 39);
  ASSERT_THAT(changed, SizeIs(1));
  EXPECT_EQ(changed[0].left, 30);
  EXPECT_EQ(changed[0].right, 40);
}

TEST_F(Waves, vanish_without_a_trace) {
  draw({{-1, 1}, {-1, 1}}, 0.5);
  draw({}, 0.5);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 40; ++x) ASSERT_EQ(at(x, y), kWaveGround) << x << ", " << y;
  }
}

TEST_F(Waves, of_more_columns_than_pixels_lose_no_peak) {
  std::vector<ui::WaveColumn> many(200);
  many[123] = {-1, 1};
  draw(many);
  EXPECT_EQ(at(123 / 5, 0), kRest);
  EXPECT_EQ(at(123 / 5 + 1, 0), kWaveGround);
  EXPECT_THAT(picture.draw(many, 0.5, {0, 60}, kWaveColors, 1), IsEmpty());
  EXPECT_THAT(picture.draw(many, 0.5, {40, 0}, kWaveColors, 1), IsEmpty());
  EXPECT_THAT(picture.draw(many, 0.5, {1, 1}, kWaveColors, 2), SizeIs(1));
}

TEST_F(Waves, in_another_size_or_colour_begin_anew_with_sharp_lines) {
  const std::vector<ui::WaveColumn> silence(4);
  draw(silence, 0.5);
  WaveColors colors = kWaveColors;
  colors.ground = ui::rgb(0, 0, 90);
  EXPECT_THAT(picture.draw(silence, 0.5, {40, 60}, colors, 1), SizeIs(1));
  EXPECT_EQ(at(30, 1), RGB(0, 0, 90));
  EXPECT_THAT(picture.draw(silence, 0.5, {80, 90}, kWaveColors, 2), SizeIs(1));
  EXPECT_EQ(at(70, 45), kRest);
  EXPECT_EQ(at(70, 46), kRest) << "a line of two pixels";
  EXPECT_EQ(at(70, 47), kWaveGround);
  EXPECT_EQ(at(38, 10), kWaveGround);
  EXPECT_EQ(at(39, 10), kCursor);
  EXPECT_EQ(at(40, 10), kCursor);
  EXPECT_EQ(at(41, 10), kWaveGround);
}

class RealWaveform : public BackendTest {
 protected:
  RealWaveform() : before_(win32::palette()) {
    win32::use_palette(app::skin_palette());
    wave.set_bounds({20, 30, 200, 36});
    wave.set_back_color(app::skin_palette().ground);
    wave.set_description("Forma de onda");
    wave.set_columns(std::vector<ui::WaveColumn>(200, {-1, 1}));
  }
  ~RealWaveform() override { win32::use_palette(before_); }

  HWND real_wave() const { return real(L"Ordelan.Onda"); }
  COLORREF shown(int x, int y) {
    backend.pump();
    UpdateWindow(real_wave());
    const HDC context = GetDC(real_wave());
    const COLORREF color = GetPixel(context, px(x), px(y));
    ReleaseDC(real_wave(), context);
    return color;
  }
  static COLORREF color(ui::Color named) { return win32::color_of(named); }
  const ui::Palette colors = app::skin_palette();
  ui::Waveform wave{window, "Onda"};

 private:
  ui::Palette before_;
};

TEST_F(RealWaveform, shows_its_wave_in_the_colours_of_the_skin) {
  show();
  wave.set_cursor(0.5);
  EXPECT_EQ(shown(50, 5), color(colors.accent));
  EXPECT_EQ(shown(150, 5), color(colors.text_off));
  wave.set_columns(std::vector<ui::WaveColumn>(200));
  EXPECT_EQ(shown(50, 5), color(colors.ground));
  wave.set_columns({});
  EXPECT_EQ(shown(50, 18), color(colors.ground));
}

TEST_F(RealWaveform, shows_what_was_set_while_it_was_out_of_sight) {
  show();
  wave.hide();
  backend.pump();
  wave.set_cursor(0.9);
  backend.pump();
  wave.show();
  EXPECT_EQ(shown(150, 5), color(colors.accent));
}

TEST_F(RealWaveform, is_painted_anew_where_it_changed_only) {
  show();
  wave.set_cursor(0.5);
  shown(0, 0);
  RECT area{};
  EXPECT_FALSE(GetUpdateRect(real_wave(), &area, FALSE));
  wave.set_cursor(0.52);
  // The message makes the control flush; what it has marked is not painted yet.
  SendMessageW(real_wave(), WM_NULL, 0, 0);
  ASSERT_TRUE(GetUpdateRect(real_wave(), &area, FALSE));
  EXPECT_GE(area.left, px(98));
  EXPECT_LE(area.right, px(106));
  shown(0, 0);
  wave.set_cursor(0.52001);
  SendMessageW(real_wave(), WM_NULL, 0, 0);
  EXPECT_FALSE(GetUpdateRect(real_wave(), &area, FALSE));
}

TEST_F(RealWaveform, follows_its_size) {
  show();
  wave.set_cursor(0.5);
  wave.set_bounds({20, 30, 400, 20});
  EXPECT_EQ(shown(190, 5), color(colors.accent));
  EXPECT_EQ(shown(210, 5), color(colors.text_off));
}

TEST_F(RealWaveform, says_in_words_what_it_is) {
  show();
  EXPECT_EQ(text_of(real_wave()), L"Forma de onda");
}

TEST_F(RealWaveform, reports_where_it_was_clicked_in_units_of_the_layout) {
  std::vector<int> clicks;
  wave.on_press = [&](ui::Point at) { clicks.push_back(at.x); };
  show();
  press(real_wave(), px(120), px(5));
  backend.pump();
  // A press that ends beside it is none.
  SendMessageW(real_wave(), WM_LBUTTONDOWN, MK_LBUTTON, at(px(10), 3));
  SendMessageW(real_wave(), WM_LBUTTONUP, 0, at(px(250), 3));
  backend.pump();
  EXPECT_THAT(clicks, testing::ElementsAre(120));
}

TEST_F(RealWaveform, may_be_destroyed_by_its_receiver) {
  auto other = std::make_unique<ui::Waveform>(window, "Otra");
  other->set_bounds({20, 100, 200, 36});
  other->on_press = [&](ui::Point) { other.reset(); };
  show();
  press(real(L"Ordelan.Otra"), px(20), px(5));
  backend.pump();
  EXPECT_EQ(other, nullptr);
}

}  // namespace
}  // namespace ordelan::test
