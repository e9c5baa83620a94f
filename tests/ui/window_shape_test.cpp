#include "ui/window_shape.h"

#include <gmock/gmock.h>

#include "support/hostile_bytes.h"
#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::PixelRun;
using ui::runs_without;

constexpr ui::Color kMask = ui::rgb(0, 0, 255);
constexpr std::uint32_t kHole = 0xFF0000FF;
constexpr std::uint32_t kInk = 0xFF123456;

ui::Pixels all(int width, int height, std::uint32_t pixel) {
  return {width, height,
          std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), pixel)};
}

TEST(WindowShape, a_picture_of_the_mask_colour_alone_gives_nothing) {
  EXPECT_THAT(runs_without(all(7, 5, kHole), kMask), IsEmpty());
}

TEST(WindowShape, a_picture_without_the_mask_colour_gives_whole_rows) {
  EXPECT_THAT(runs_without(all(3, 2, kInk), kMask),
              ElementsAre(PixelRun{0, 0, 3}, PixelRun{1, 0, 3}));
}

TEST(WindowShape, a_pixel_one_step_off_the_mask_colour_is_kept) {
  for (const std::uint32_t near : {0xFF0000FEu, 0xFF0001FFu, 0xFF0100FFu}) {
    ui::Pixels picture = all(3, 1, kHole);
    picture.argb[1] = near;
    EXPECT_THAT(runs_without(picture, kMask), ElementsAre(PixelRun{0, 1, 2})) << std::hex << near;
  }
}

TEST(WindowShape, red_and_blue_are_not_taken_for_each_other) {
  EXPECT_THAT(runs_without(all(1, 1, 0xFF0000FF), ui::rgb(255, 0, 0)),
              ElementsAre(PixelRun{0, 0, 1}));
  EXPECT_THAT(runs_without(all(1, 1, 0xFFFF0000), ui::rgb(255, 0, 0)), IsEmpty());
  EXPECT_THAT(runs_without(all(1, 1, 0xFF123456), ui::rgb(0x12, 0x34, 0x56)), IsEmpty());
}

TEST(WindowShape, opacity_is_ignored) {
  EXPECT_THAT(runs_without({3, 1, {0x000000FF, 0x800000FF, 0x00000000}}, kMask),
              ElementsAre(PixelRun{0, 2, 3}));
}

TEST(WindowShape, runs_end_at_holes_and_at_the_ends_of_rows) {
  const ui::Pixels picture{4,
                           3,
                           {kInk, kHole, kInk, kInk,   //
                            kInk, kInk, kHole, kHole,  //
                            kHole, kHole, kHole, kInk}};
  EXPECT_THAT(runs_without(picture, kMask), ElementsAre(PixelRun{0, 0, 1}, PixelRun{0, 2, 4},
                                                        PixelRun{1, 0, 2}, PixelRun{2, 3, 4}));
}

TEST(WindowShape, pixels_that_do_not_fill_their_size_give_nothing) {
  EXPECT_THAT(runs_without({2, 2, {kInk, kInk, kInk}}, kMask), IsEmpty());
  EXPECT_THAT(runs_without({-1, -1, {kInk}}, kMask), IsEmpty());
  EXPECT_THAT(runs_without({}, kMask), IsEmpty());
}

TEST(WindowShape, the_runs_are_just_the_pixels_that_are_kept) {
  Dice dice(3);
  for (int round = 0; round < 500; ++round) {
    ui::Pixels picture =
        all(1 + static_cast<int>(dice.below(20)), 1 + static_cast<int>(dice.below(6)), kHole);
    for (std::uint32_t& pixel : picture.argb) {
      if (dice.below(2) == 0) pixel = 0xFF0000F0 + static_cast<std::uint32_t>(dice.below(16));
    }
    const std::vector<PixelRun> runs = runs_without(picture, kMask);
    ui::Pixels drawn = all(picture.width, picture.height, 0);
    for (std::size_t i = 0; i < runs.size(); ++i) {
      const PixelRun& run = runs[i];
      ASSERT_LT(run.left, run.right);
      if (i > 0 && runs[i - 1].row == run.row) {
        ASSERT_LT(runs[i - 1].right, run.left) << "runs that touch are one";
      }
      for (int x = run.left; x < run.right; ++x) {
        ++drawn.argb[static_cast<std::size_t>(run.row * picture.width + x)];
      }
    }
    for (std::size_t i = 0; i < picture.argb.size(); ++i) {
      ASSERT_EQ(drawn.argb[i], picture.argb[i] == kHole ? 0u : 1u);
    }
  }
}

TEST(WindowShape, a_window_gets_its_outline) {
  RecordingBackend backend;
  ui::Window window(backend, "Player");
  EXPECT_EQ(window.shape().picture, "");
  window.load();
  ui::AplicarForma(window, "fondo", kMask);
  ui::AplicarForma(window, "fondo", kMask);
  EXPECT_EQ(window.shape(), (ui::Shape{"fondo", kMask}));
  EXPECT_THAT(backend.take(), ElementsAre(RecordingBackend::Change{"Player", ui::Aspect::shape}));
}

}  // namespace
}  // namespace ordelan::test
