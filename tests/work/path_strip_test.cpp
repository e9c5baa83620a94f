#include "work/path_strip.h"

#include <gmock/gmock.h>

#include "headless/headless_backend.h"
#include "support/fake_services.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;

struct PathStripTest : ::testing::Test {
  HandClock clock;
  headless::HeadlessBackend backend{clock};
  ui::Window window{backend, "window"};
  work::PathStrip strip{window};
  ui::ListBox& list = strip.ListPath;
  ui::Image& icon = strip.ImageIcon;
};

TEST_F(PathStripTest, nothing_is_shown_at_first) {
  EXPECT_FALSE(list.visible());
  EXPECT_FALSE(icon.visible());
}

TEST_F(PathStripTest, a_path_is_the_one_row_of_a_strip_thirty_pixels_high) {
  list.set_bounds({46, 84, 1042, 7});
  strip.MostrarPath("D:\\Mix\\a.wav");
  EXPECT_THAT(list.rows(), ElementsAre("D:\\Mix\\a.wav"));
  EXPECT_TRUE(list.visible());
  EXPECT_EQ(list.bounds(), (ui::Rect{46, 84, 1042, 30}));
  EXPECT_EQ(list.horizontal_extent(), 12 * 6);
  EXPECT_EQ(strip.UltimoPath, "D:\\Mix\\a.wav");
  strip.MostrarPath("D:\\b.wav");
  EXPECT_THAT(list.rows(), ElementsAre("D:\\b.wav"));
  EXPECT_EQ(list.horizontal_extent(), 8 * 6);
}

TEST_F(PathStripTest, the_same_text_again_puts_the_strip_away_and_brings_it_back) {
  strip.MostrarPath("D:\\a.wav");
  strip.MostrarPath("D:\\a.wav");
  EXPECT_FALSE(list.visible());
  strip.MostrarPath("D:\\a.wav");
  EXPECT_TRUE(list.visible());
}

TEST_F(PathStripTest, another_text_shows_the_strip_whether_it_was_there_or_not) {
  strip.MostrarPath("D:\\a.wav");
  strip.MostrarPath("D:\\b.wav");
  EXPECT_TRUE(list.visible());
  strip.MostrarPath("D:\\b.wav");
  strip.MostrarPath("D:\\c.wav");
  EXPECT_TRUE(list.visible());
}

TEST_F(PathStripTest, a_project_has_its_icon) {
  strip.MostrarPath("D:\\tema.vip");
  EXPECT_TRUE(icon.visible());
  strip.MostrarPath("D:\\a.wav");
  EXPECT_FALSE(icon.visible());
  strip.MostrarPath("D:\\TEMA.VIP");
  EXPECT_TRUE(icon.visible());
  strip.MostrarPath("D:\\Tema.Vip");
  EXPECT_FALSE(icon.visible()) << "mixed case is not looked for";
}

TEST_F(PathStripTest, the_icon_comes_and_goes_with_the_strip) {
  strip.MostrarPath("D:\\tema.vip");
  strip.MostrarPath("D:\\tema.vip");
  EXPECT_FALSE(list.visible());
  EXPECT_FALSE(icon.visible());
  strip.MostrarPath("D:\\tema.vip");
  EXPECT_TRUE(list.visible());
  EXPECT_TRUE(icon.visible());
}

TEST_F(PathStripTest, the_mouse_over_the_strip_hides_it_with_its_icon) {
  strip.MostrarPath("D:\\tema.vip");
  list.on_mouse_move({3, 4});
  EXPECT_FALSE(list.visible());
  EXPECT_FALSE(icon.visible());
  strip.MostrarPath("D:\\tema.vip");
  EXPECT_TRUE(list.visible()) << "the same text brings it back at the first click";
  EXPECT_TRUE(icon.visible());
}

}  // namespace
}  // namespace ordelan::test
