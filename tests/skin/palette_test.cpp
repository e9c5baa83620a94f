#include "skin/palette.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>

namespace ordelan::test {
namespace {

using namespace ordelan::skin;

// The light of one part of a colour, from 0 to 1, as the eye weighs it.
double light_of_part(std::uint32_t part) {
  const double share = part / 255.0;
  return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double light_of(std::uint32_t word) {
  return 0.2126 * light_of_part(word & 0xFF) + 0.7152 * light_of_part((word >> 8) & 0xFF) +
         0.0722 * light_of_part(word >> 16);
}

// From 1, the same, to 21, black on white.
double contrast(std::uint32_t a, std::uint32_t b) {
  const auto [dark, bright] = std::minmax({light_of(a), light_of(b)});
  return (bright + 0.05) / (dark + 0.05);
}

struct Pair {
  const char* name;
  std::uint32_t text;
  std::uint32_t ground;
  double least;
  friend void PrintTo(const Pair& pair, std::ostream* out) { *out << pair.name; }
};

constexpr double kReadable = 4.5;
constexpr double kReadableWhenOff = 3.0;

class Contrast : public testing::TestWithParam<Pair> {};

TEST_P(Contrast, is_enough_to_be_read) {
  EXPECT_GE(contrast(GetParam().text, GetParam().ground), GetParam().least);
}

INSTANTIATE_TEST_SUITE_P(
    Palette, Contrast,
    testing::Values(Pair{"text_on_ground", kText, kGround, kReadable},
                    Pair{"text_on_header", kText, kHeader, kReadable},
                    Pair{"text_on_surface", kText, kSurface, kReadable},
                    Pair{"text_on_button", kText, kRaised, kReadable},
                    Pair{"text_on_button_under_pointer", kTextOver, kRaisedOver, kReadable},
                    Pair{"text_on_pressed_button", kText, kRaisedDown, kReadable},
                    Pair{"text_on_selected_row", kText, kAccentDark, kReadable},
                    Pair{"dim_on_ground", kTextDim, kGround, kReadable},
                    Pair{"dim_on_header", kTextDim, kHeader, kReadable},
                    Pair{"dim_on_surface", kTextDim, kSurface, kReadable},
                    Pair{"dim_on_button", kTextDim, kRaised, kReadable},
                    Pair{"accent_on_ground", kAccent, kGround, kReadable},
                    Pair{"accent_on_header", kAccent, kHeader, kReadable},
                    Pair{"accent_on_surface", kAccent, kSurface, kReadable},
                    Pair{"accent_on_button", kAccent, kRaised, kReadable},
                    Pair{"accent_on_pressed_button", kAccent, kRaisedDown, kReadable},
                    Pair{"danger_on_ground", kDanger, kGround, kReadable},
                    Pair{"danger_on_surface", kDanger, kSurface, kReadable},
                    Pair{"danger_on_button", kDanger, kRaised, kReadable},
                    Pair{"step_1_on_ground", kStep1, kGround, kReadable},
                    Pair{"step_2_on_ground", kStep2, kGround, kReadable},
                    Pair{"step_3_on_ground", kStep3, kGround, kReadable},
                    Pair{"step_4_on_ground", kStep4, kGround, kReadable},
                    Pair{"off_on_ground", kTextOff, kGround, kReadableWhenOff},
                    Pair{"off_on_header", kTextOff, kHeader, kReadableWhenOff},
                    Pair{"off_on_surface", kTextOff, kSurface, kReadableWhenOff},
                    Pair{"off_on_button", kTextOff, kRaised, kReadableWhenOff}),
    [](const auto& pair) { return std::string(pair.param.name); });

TEST(Palette, the_measure_of_contrast_goes_from_1_to_21) {
  EXPECT_NEAR(contrast(0x000000, 0xFFFFFF), 21.0, 0.001);
  EXPECT_NEAR(contrast(0x777777, 0x777777), 1.0, 0.001);
  EXPECT_NEAR(contrast(word(0x767676), 0xFFFFFF), 4.54, 0.005);
}

TEST(Palette, a_colour_word_has_red_at_its_end) {
  EXPECT_EQ(word(0x123456), 0x563412u);
  EXPECT_EQ(kAccent, 0xA0C24Cu);
}

TEST(Palette, what_is_off_is_dimmer_than_what_is_on) {
  EXPECT_LT(contrast(kTextOff, kGround), contrast(kTextDim, kGround));
  EXPECT_LT(contrast(kTextDim, kGround), contrast(kText, kGround));
}

}  // namespace
}  // namespace ordelan::test
