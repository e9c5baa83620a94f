#include "work/status_strip.h"

#include <gtest/gtest.h>

#include "headless/headless_backend.h"
#include "support/fake_services.h"

namespace ordelan::test {
namespace {

struct StatusStripTest : ::testing::Test {
  std::uint32_t color_after(int code) {
    strip.Alerta(code, "x", true);
    return static_cast<std::uint32_t>(strip.TextDecode.back_color());
  }

  HandClock clock;
  headless::HeadlessBackend backend{clock};
  ui::Window window{backend, "window"};
  work::StatusStrip strip{window};
};

TEST_F(StatusStripTest, nothing_is_shown_at_first) {
  EXPECT_FALSE(strip.TextDecode.visible());
  EXPECT_FALSE(strip.LabelAviso.visible());
  EXPECT_FALSE(strip.XP_ProgressBar1.visible());
}

TEST_F(StatusStripTest, what_it_says_is_read_out_to_those_who_do_not_see_it) {
  EXPECT_TRUE(strip.TextDecode.announced());
  EXPECT_TRUE(strip.LabelAviso.announced());
}

TEST_F(StatusStripTest, each_code_has_its_colour) {
  EXPECT_EQ(color_after(1), 0xC0E0FFu);
  EXPECT_EQ(color_after(2), 0xFFFFC0u);
  EXPECT_EQ(color_after(3), 0x8080EEu);
  EXPECT_EQ(color_after(4), 0xC0C0FFu);
}

TEST_F(StatusStripTest, another_code_leaves_the_colour_alone) {
  color_after(3);
  for (const int code : {0, 5, -1, 100}) EXPECT_EQ(color_after(code), 0x8080EEu) << code;
}

TEST_F(StatusStripTest, the_strip_shows_its_text_as_high_as_its_lines) {
  strip.TextDecode.set_bounds({12, 136, 1076, 16});
  strip.Alerta(1, "Descodificando: D:\\Mix\\tema.vip", true);
  EXPECT_EQ(strip.TextDecode.text(), "Descodificando: D:\\Mix\\tema.vip");
  EXPECT_EQ(strip.TextDecode.bounds(), (ui::Rect{12, 136, 1076, 16}));
  strip.Alerta(1, "one\r\ntwo\r\nthree", true);
  EXPECT_EQ(strip.TextDecode.bounds(), (ui::Rect{12, 104, 1076, 48}));
  strip.Alerta(1, "one", true);
  EXPECT_EQ(strip.TextDecode.bounds(), (ui::Rect{12, 136, 1076, 16}));
}

TEST_F(StatusStripTest, more_lines_than_there_is_room_for_grow_downwards_from_below_the_clocks) {
  strip.TextDecode.set_bounds({12, 136, 1076, 16});
  std::string many = "one";
  for (int i = 0; i < 9; ++i) many += "\r\nmore";
  strip.Alerta(2, many, true);
  EXPECT_EQ(strip.TextDecode.bounds(), (ui::Rect{12, 88, 1076, 160}));
  strip.Alerta(2, "one", true);
  EXPECT_EQ(strip.TextDecode.bounds(), (ui::Rect{12, 136, 1076, 16}));
}

TEST_F(StatusStripTest, the_strip_is_shown_and_put_away) {
  strip.Alerta(2, "text", true);
  EXPECT_TRUE(strip.TextDecode.visible());
  strip.Alerta(1, ": ", false);
  EXPECT_FALSE(strip.TextDecode.visible());
  EXPECT_EQ(strip.TextDecode.text(), ": ");
}

TEST_F(StatusStripTest, the_notice_of_a_decode_is_large) {
  strip.notice_decoding();
  EXPECT_TRUE(strip.LabelAviso.visible());
  EXPECT_EQ(strip.LabelAviso.font(), (ui::Font{.points = 18, .bold = true}));
  EXPECT_NE(strip.LabelAviso.caption(), "");
}

}  // namespace
}  // namespace ordelan::test
