#include "ui/nine_slice.h"

#include <gmock/gmock.h>

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ui::nine_sliced;
using ui::Pixels;

constexpr std::uint32_t kMaskPixel = 0xFFFF00FF;

// A ground of 5 by 5: masked corners, an edge, a header row and a middle.
Pixels ground() {
  Pixels picture{5, 5, {}};
  for (int y = 0; y < 5; ++y) {
    for (int x = 0; x < 5; ++x) {
      const bool side = x == 0 || x == 4;
      const bool end = y == 0 || y == 4;
      picture.argb.push_back(side && end ? kMaskPixel : side || end ? 2u : y == 1 ? 3u : 4u);
    }
  }
  return picture;
}

std::vector<std::uint32_t> row(const Pixels& picture, int y) {
  const auto begin = picture.argb.begin() + std::ptrdiff_t{y} * picture.width;
  return {begin, begin + picture.width};
}

TEST(NineSlice, the_same_size_is_the_same_picture) {
  EXPECT_EQ(nine_sliced(ground(), {5, 5}).argb, ground().argb);
}

TEST(NineSlice, a_larger_one_has_the_same_corners_edges_and_header) {
  const Pixels large = nine_sliced(ground(), {8, 7});
  ASSERT_EQ(large.width, 8);
  ASSERT_EQ(large.height, 7);
  EXPECT_THAT(row(large, 0), ElementsAre(kMaskPixel, 2, 2, 2, 2, 2, 2, kMaskPixel));
  EXPECT_THAT(row(large, 1), ElementsAre(2, 3, 3, 3, 3, 3, 3, 2));
  for (int y = 2; y < 6; ++y) EXPECT_THAT(row(large, y), ElementsAre(2, 4, 4, 4, 4, 4, 4, 2));
  EXPECT_THAT(row(large, 6), ElementsAre(kMaskPixel, 2, 2, 2, 2, 2, 2, kMaskPixel));
}

TEST(NineSlice, a_smaller_one_too) {
  const Pixels small = nine_sliced(ground(), {4, 3});
  EXPECT_THAT(row(small, 0), ElementsAre(kMaskPixel, 2, 2, kMaskPixel));
  EXPECT_THAT(row(small, 1), ElementsAre(2, 4, 4, 2));
  EXPECT_THAT(row(small, 2), ElementsAre(kMaskPixel, 2, 2, kMaskPixel));
}

TEST(NineSlice, no_colour_is_mixed_from_others) {
  for (int size = 1; size < 40; ++size) {
    for (const std::uint32_t pixel : nine_sliced(ground(), {size, 41 - size}).argb) {
      EXPECT_THAT(pixel, ::testing::AnyOf(kMaskPixel, 2u, 3u, 4u));
    }
  }
}

TEST(NineSlice, of_nothing_is_nothing) {
  EXPECT_THAT(nine_sliced({}, {4, 4}).argb, IsEmpty());
  EXPECT_THAT(nine_sliced(ground(), {0, 4}).argb, IsEmpty());
  EXPECT_THAT(nine_sliced(ground(), {4, -1}).argb, IsEmpty());
}

}  // namespace
}  // namespace ordelan::test
