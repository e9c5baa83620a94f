#include "ui/type_ahead.h"

#include <gmock/gmock.h>

#include <chrono>
#include <iostream>

namespace ordelan::test {
namespace {

using ui::find_by_name;
using ui::TypeAhead;
using ui::typed_name;

TEST(TypedName, is_what_stands_after_the_last_backslash) {
  EXPECT_EQ(typed_name("D:\\Mix\\tema.wav"), "tema.wav");
  EXPECT_EQ(typed_name("12 --> D:\\Mix\\tema.vip"), "tema.vip");
  EXPECT_EQ(typed_name("D:\\Mix\\"), "");
}

TEST(TypedName, is_the_row_without_its_number_where_there_is_no_backslash) {
  EXPECT_EQ(typed_name("12 --> tema.vip"), "tema.vip");
  EXPECT_EQ(typed_name("tema.vip"), "tema.vip");
  EXPECT_EQ(typed_name(""), "");
}

TEST(FindByName, goes_from_the_start_to_the_end_and_then_from_the_first_row_on) {
  const std::vector<std::string> rows = {"D:\\ba", "D:\\a", "D:\\ba", "D:\\b"};
  EXPECT_EQ(find_by_name(rows, "b", 0), 0);
  EXPECT_EQ(find_by_name(rows, "b", 1), 2);
  EXPECT_EQ(find_by_name(rows, "a", 2), 1);
  EXPECT_EQ(find_by_name(rows, "ba", 3), 0);
  EXPECT_EQ(find_by_name(rows, "b", 3), 3);
}

TEST(FindByName, a_start_past_the_end_is_the_first_row) {
  const std::vector<std::string> rows = {"a1", "a2"};
  EXPECT_EQ(find_by_name(rows, "a", 2), 0);
  EXPECT_EQ(find_by_name(rows, "a", 99), 0);
}

TEST(FindByName, gives_none_where_no_name_begins_so) {
  EXPECT_EQ(find_by_name({}, "a", 0), -1);
  EXPECT_EQ(find_by_name({"D:\\a\\b", "ba"}, "a", 1), -1);
  EXPECT_EQ(find_by_name({"a"}, "aa", 0), -1) << "the name is shorter than the letters";
}

TEST(FindByName, ignores_case_in_the_code_page) {
  EXPECT_EQ(find_by_name({"D:\\x", "D:\\\xC1lamo.wav"}, "\xE1l", 0), 1);
  EXPECT_EQ(find_by_name({"D:\\ALAMO"}, "\xE1l", 0), -1) << "an accent is a letter of its own";
}

struct TypedLetters : ::testing::Test {
  // Types the letter `later` milliseconds after the last one, from the row that the last led to.
  int type(char letter, std::uint32_t later = 100) {
    now += later;
    if (const int row = letters.type(letter, now, rows, current); row >= 0) current = row;
    return current;
  }

  std::vector<std::string> rows = {"D:\\bajo", "D:\\bombo", "D:\\caja", "D:\\bomba", "D:\\coro"};
  TypeAhead letters;
  std::uint32_t now = 5000;
  int current = -1;
};

TEST_F(TypedLetters, the_first_letter_goes_to_the_first_name_when_no_row_is_current) {
  EXPECT_EQ(type('b'), 0);
}

TEST_F(TypedLetters, a_new_letter_goes_on_from_the_current_row) {
  current = 0;
  EXPECT_EQ(type('B'), 1) << "the current row begins with it too";
}

TEST_F(TypedLetters, the_same_letter_goes_to_the_next_name_each_time_and_round) {
  EXPECT_EQ(type('b'), 0);
  EXPECT_EQ(type('b'), 1);
  EXPECT_EQ(type('B'), 3);
  EXPECT_EQ(type('b'), 0);
  EXPECT_EQ(type('b', 5000), 1);
}

TEST_F(TypedLetters, letters_within_a_second_are_joined_and_stay_where_they_fit) {
  EXPECT_EQ(type('b'), 0);
  EXPECT_EQ(type('O', 1000), 1);
  EXPECT_EQ(type('m', 1000), 1);
  EXPECT_EQ(type('b'), 1);
  EXPECT_EQ(type('a'), 3);
}

TEST_F(TypedLetters, a_letter_after_more_than_a_second_begins_anew) {
  EXPECT_EQ(type('b'), 0);
  EXPECT_EQ(type('c', 1001), 2);
  EXPECT_EQ(type('o', 1001), 2) << "no name begins with an o";
}

TEST_F(TypedLetters, letters_that_lead_nowhere_still_begin_the_word) {
  EXPECT_EQ(type('c'), 2);
  EXPECT_EQ(type('x'), 2);
  EXPECT_EQ(type('b'), 2) << "no name begins with cxb";
  EXPECT_EQ(type('b', 1001), 3);
}

TEST_F(TypedLetters, a_letter_that_is_doubled_first_can_be_joined) {
  rows = {"D:\\al", "D:\\aab", "D:\\ac"};
  EXPECT_EQ(type('a'), 0);
  EXPECT_EQ(type('a'), 1);
  EXPECT_EQ(type('b'), 1);
}

TEST_F(TypedLetters, the_clock_may_begin_again) {
  now = 0xFFFFFF00u;
  EXPECT_EQ(type('b', 0), 0);
  EXPECT_EQ(type('o', 0x180), 1);
  EXPECT_EQ(type('c', 2000), 2);
}

TEST(TypeAheadTime, two_hundred_thousand_rows) {
  std::vector<std::string> rows;
  for (int i = 0; i < 200000; ++i) {
    rows.push_back("D:\\Estudio\\Proyectos de 2009\\Mezclas\\toma " + std::to_string(i) + ".wav");
  }
  rows.push_back("D:\\Estudio\\Proyectos de 2009\\zeta.wav");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(find_by_name(rows, "ze", 0), 200000);
  EXPECT_EQ(find_by_name(rows, "zz", 100), -1);
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begin;
  std::cout << "two searches of 200000 rows: " << taken.count() << " ms\n";
}

}  // namespace
}  // namespace ordelan::test
