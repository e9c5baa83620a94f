#include "ui/slider_scale.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

struct Range {
  std::int32_t min;
  std::int32_t max;
};

const std::vector<Range> kRanges = {{0, 100},   {0, 1},    {0, 7},      {10, 100}, {-100, 100},
                                    {-60, 12},  {-100, 0}, {-100, -10}, {5, 6},    {0, 3},
                                    {0, 65536}, {100, 0},  {0, 7200},   {-1, 0}};

constexpr int kLongestTrack = 400;
constexpr int kThumbs[] = {1, 11, 40, 401};

// Whether `whole` is the rounding down of dividend / divisor, by what that means.
bool is_floor(std::int64_t whole, std::int64_t dividend, std::int64_t divisor) {
  if (divisor < 0) return is_floor(whole, -dividend, -divisor);
  return whole * divisor <= dividend && dividend < (whole + 1) * divisor;
}

TEST(SliderScale, the_ends_of_the_range_are_the_ends_of_the_track) {
  EXPECT_EQ(ui::thumb_offset(0, 0, 100, 90), 0);
  EXPECT_EQ(ui::thumb_offset(100, 0, 100, 90), 90);
  EXPECT_EQ(ui::thumb_offset(-20, -20, 20, 90), 0);
  EXPECT_EQ(ui::thumb_offset(20, -20, 20, 90), 90);
  EXPECT_EQ(ui::value_at(0, 90, 0, 100), 0);
  EXPECT_EQ(ui::value_at(90, 90, 0, 100), 100);
  EXPECT_EQ(ui::value_at(0, 90, -20, 20), -20);
  EXPECT_EQ(ui::value_at(90, 90, -20, 20), 20);
}

TEST(SliderScale, between_the_ends_it_is_rounded_down_also_below_zero) {
  EXPECT_EQ(ui::thumb_offset(50, 0, 100, 91), 45);
  EXPECT_EQ(ui::value_at(45, 91, 0, 100), 49);
  EXPECT_EQ(ui::value_at(1, 3, -10, 0), -7);
  EXPECT_EQ(ui::thumb_offset(1, 0, 2, -9), -5);
  EXPECT_EQ(ui::thumb_offset(1, 0, 49, 49), 1) << "not what a broken fraction makes of it";
}

TEST(SliderScale, a_range_or_track_without_extent_gives_nothing) {
  EXPECT_EQ(ui::thumb_offset(5, 5, 5, 90), std::nullopt);
  EXPECT_EQ(ui::value_at(10, 90, 5, 5), std::nullopt);
  EXPECT_EQ(ui::value_at(0, 0, 0, 100), std::nullopt);
  EXPECT_EQ(ui::thumb_offset(50, 0, 100, 0), 0);
}

TEST(SliderScale, a_vertical_value_is_turned_round) {
  EXPECT_EQ(ui::inverted(30, 0, 100), 70);
  EXPECT_EQ(ui::inverted(30, 10, 100), 70);
  EXPECT_EQ(ui::inverted(30, -100, 100), -30);
  EXPECT_EQ(ui::inverted(-100, -100, 100), 100);
  EXPECT_EQ(ui::inverted(-50, -50, 100), 50) << "negated, whatever the other end";
}

TEST(SliderScale, both_ways_agree_with_their_formulas_on_every_track) {
  for (int track = 1; track <= kLongestTrack; ++track) {
    for (const int thumb : kThumbs) {
      const int room = track - thumb;
      for (const Range range : kRanges) {
        const std::int64_t span = std::int64_t{range.max} - range.min;
        const int steps = span < 0 || span > 50 ? 50 : static_cast<int>(span);
        for (int step = 0; step <= steps; ++step) {
          const auto value = static_cast<std::int32_t>(range.min + span * step / steps);
          const auto offset = ui::thumb_offset(value, range.min, range.max, room);
          ASSERT_TRUE(offset);
          ASSERT_TRUE(is_floor(*offset, (std::int64_t{value} - range.min) * room, span))
              << value << " in " << range.min << ".." << range.max << " on " << room;
          const auto back = ui::value_at(*offset, room, range.min, range.max);
          ASSERT_EQ(back.has_value(), room != 0);
          if (!back) continue;
          ASSERT_TRUE(is_floor(std::int64_t{*back} - range.min, *offset * span, room))
              << *offset << " of " << room << " in " << range.min << ".." << range.max;
        }
      }
    }
  }
}

TEST(SliderScale, the_way_to_the_thumb_and_back_loses_less_than_a_pixel) {
  for (int room = 1; room <= kLongestTrack; ++room) {
    for (const Range range : kRanges) {
      const std::int64_t span = std::int64_t{range.max} - range.min;
      if (span < 0) continue;
      for (std::int64_t value = range.min; value <= range.max; value += 1 + span / 60) {
        const auto given = static_cast<std::int32_t>(value);
        const auto back = ui::value_at(*ui::thumb_offset(given, range.min, range.max, room), room,
                                       range.min, range.max);
        ASSERT_LE(*back, given);
        ASSERT_LE((std::int64_t{given} - *back - 1) * room, span);
      }
    }
  }
}

TEST(SliderScale, the_largest_numbers_overflow_nothing) {
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(ui::thumb_offset(kMax, kMin, kMax, kMax), kMax);
  EXPECT_EQ(ui::thumb_offset(kMin, kMin, kMax, kMax), 0);
  EXPECT_EQ(ui::thumb_offset(kMax, 0, 1, 400), kMax) << "a value far beyond its range";
  EXPECT_EQ(ui::value_at(kMax, kMax, kMin, kMax), kMax);
  EXPECT_EQ(ui::value_at(kMax, 1, kMin, kMax), kMax);
  EXPECT_EQ(ui::value_at(kMin, 1, kMin, kMax), kMin);
  EXPECT_EQ(ui::inverted(kMin, kMin, kMax), kMax);
  EXPECT_EQ(ui::inverted(kMin, 0, kMax), kMax);
}

}  // namespace
}  // namespace ordelan::test
