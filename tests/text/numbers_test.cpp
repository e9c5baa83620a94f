#include "text/numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ordelan::test {
namespace {

using text::elapsed;
using text::fixed;
using text::number;
using text::parse_number;

TEST(Numbers, two_decimals_stand_after_the_mark_of_the_system) {
  EXPECT_EQ(fixed(12.34, 2, ','), "12,34");
  EXPECT_EQ(fixed(12.34, 2, '.'), "12.34");
  EXPECT_EQ(fixed(12, 2, ','), "12,00");
  EXPECT_EQ(fixed(0, 2, ','), "0,00");
  EXPECT_EQ(fixed(-1.5, 2, ','), "-1,50");
  EXPECT_EQ(fixed(12.9, 0, ','), "13");
  EXPECT_EQ(fixed(1234567.891, 2, ','), "1234567,89") << "no mark between the thousands";
}

TEST(Numbers, a_number_has_no_more_digits_than_it_needs) {
  EXPECT_EQ(number(0, ','), "0");
  EXPECT_EQ(number(5, ','), "5");
  EXPECT_EQ(number(0.1, ','), "0,1");
  EXPECT_EQ(number(0.1, '.'), "0.1");
  EXPECT_EQ(number(59.5, ','), "59,5");
  EXPECT_EQ(number(100000, ','), "100000");
}

TEST(Numbers, a_number_has_fifteen_digits_at_most) {
  EXPECT_EQ(number(1.0 / 3, ','), "0,333333333333333");
  EXPECT_EQ(number(0.1 + 0.2, ','), "0,3") << "the sixteenth digit would show the sum";
  EXPECT_EQ(number(123456789012345.0, ','), "123456789012345");
}

TEST(Numbers, a_text_gives_the_number_that_it_begins_with) {
  EXPECT_EQ(parse_number("5", ','), 5);
  EXPECT_EQ(parse_number(" 0", ','), 0);
  EXPECT_EQ(parse_number("0,1", ','), 0.1);
  EXPECT_EQ(parse_number("0.1", '.'), 0.1);
  EXPECT_EQ(parse_number("   12,5 seg", ','), 12.5);
  EXPECT_EQ(parse_number("-3", ','), -3);
  EXPECT_EQ(parse_number(",5", ','), 0.5);
}

TEST(Numbers, a_text_that_begins_with_no_number_gives_zero) {
  for (const char* text : {"", "   ", "seg", "x5", "-", ",", "\xF1", "--5"}) {
    EXPECT_EQ(parse_number(text, ','), 0) << text;
  }
}

TEST(Numbers, words_that_spell_endlessness_are_no_numbers) {
  for (const char* text : {"inf", "info", "infinito", "nan", "NaN(1)", "-inf", "INFINITY"}) {
    EXPECT_EQ(parse_number(text, ','), 0) << text;
  }
}

TEST(Numbers, a_number_too_large_to_hold_gives_zero) {
  EXPECT_EQ(parse_number("1" + std::string(400, '0'), ','), 0);
}

TEST(Numbers, what_was_written_is_read_back_with_either_mark) {
  for (const char mark : {',', '.'}) {
    for (int tenths = 0; tenths < 1000; ++tenths) {
      const double value = tenths / 10.0;
      EXPECT_EQ(parse_number(number(value, mark), mark), value);
    }
  }
}

TEST(Numbers, an_elapsed_time_up_to_59_seconds_shows_hundredths) {
  EXPECT_EQ(elapsed(0, ','), "0,00 seg");
  EXPECT_EQ(elapsed(12.34, ','), "12,34 seg");
  EXPECT_EQ(elapsed(12.34, '.'), "12.34 seg");
  EXPECT_EQ(elapsed(59.0, ','), "59,00 seg");
}

TEST(Numbers, a_longer_time_shows_minutes_and_whole_seconds) {
  EXPECT_EQ(elapsed(59.1, ','), "0 min 59 seg");
  EXPECT_EQ(elapsed(59.6, ','), "1 min 0 seg");
  EXPECT_EQ(elapsed(60, ','), "1 min 0 seg");
  EXPECT_EQ(elapsed(187, ','), "3 min 7 seg");
  EXPECT_EQ(elapsed(3600, ','), "60 min 0 seg");
}

TEST(Numbers, half_a_second_goes_to_the_even_neighbour) {
  EXPECT_EQ(elapsed(60.5, ','), "1 min 0 seg");
  EXPECT_EQ(elapsed(61.5, ','), "1 min 2 seg");
  EXPECT_EQ(elapsed(119.5, ','), "2 min 0 seg");
}

TEST(FormatSize, has_the_largest_unit_that_leaves_a_whole) {
  EXPECT_EQ(text::format_size(0, ','), "0,00 bytes");
  EXPECT_EQ(text::format_size(1023, '.'), "1023.00 bytes");
  EXPECT_EQ(text::format_size(1024, '.'), "1.00 KB");
  EXPECT_EQ(text::format_size(1572864, ','), "1,50 MB");
  EXPECT_EQ(text::format_size(2147483648.0, ','), "2,00 GB");
  EXPECT_EQ(text::format_size(-5, ','), "-5,00 bytes");
}

}  // namespace
}  // namespace ordelan::test
