#include "text/rows.h"

#include <gtest/gtest.h>

namespace ordelan::test {
namespace {

TEST(Rows, a_project_row_is_its_number_an_arrow_and_its_path) {
  EXPECT_EQ(text::project_row(1, "D:\\Mix\\tema.vip"), "1 --> D:\\Mix\\tema.vip");
  EXPECT_EQ(text::project_row(123456, ""), "123456 --> ");
}

TEST(Rows, after_the_arrow_stands_the_path) {
  EXPECT_EQ(text::after_arrow("7 --> E:\\a\\p.vip"), "E:\\a\\p.vip");
  EXPECT_EQ(text::after_arrow("7 -->    E:\\p.vip "), "E:\\p.vip ");
  EXPECT_EQ(text::after_arrow("7 --> "), "");
  EXPECT_EQ(text::after_arrow(">"), "");
}

TEST(Rows, only_the_first_arrow_counts) {
  EXPECT_EQ(text::after_arrow("7 --> a>b"), "a>b");
}

TEST(Rows, a_row_without_an_arrow_is_given_whole) {
  EXPECT_EQ(text::after_arrow("  D:\\a.wav"), "  D:\\a.wav");
  EXPECT_EQ(text::after_arrow(""), "");
}

TEST(Rows, what_a_project_row_is_made_of_comes_back_out_of_it) {
  EXPECT_EQ(text::after_arrow(text::project_row(12, "E:\\p.vip")), "E:\\p.vip");
}

TEST(Rows, titles_and_separators_are_no_files) {
  EXPECT_TRUE(text::is_file_row("D:\\a.wav"));
  EXPECT_TRUE(text::is_file_row("D:\\a---------.wav")) << "nine dashes are a name";
  EXPECT_FALSE(text::is_file_row("D:\\a----------.wav"));
  EXPECT_FALSE(text::is_file_row("1 --> D:\\tema.vip"));
  EXPECT_FALSE(text::is_file_row("--------------------"));
  EXPECT_TRUE(text::is_file_row(""));
}

}  // namespace
}  // namespace ordelan::test
