#include "relink/pointer_file.h"

#include <gmock/gmock.h>

#include "relink/literal_pointers.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

using relink::Pointer;
using relink::Pointers;
using relink::read_pointers;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string name_of_row(const std::string& row) {
  const std::string written = relink::written_pointer_name(row);
  EXPECT_EQ(relink::read_pointer_name(row), written) << row;
  EXPECT_EQ(literal_written_name(row), written) << row;
  EXPECT_EQ(literal_read_name(row), written) << row;
  return written;
}

TEST(PointerFile, is_named_after_the_project_with_every_dot_an_underscore) {
  EXPECT_EQ(name_of_row("D:\\Mix\\tema.vip"), "tema_vip.ptr");
  EXPECT_EQ(name_of_row("D:\\Mix\\tema.v2.vip"), "tema_v2_vip.ptr");
  EXPECT_EQ(name_of_row("D:\\Mix\\a.b.vip"), "a_b_vip.ptr");
  EXPECT_EQ(name_of_row("D:\\tema"), "tema.ptr");
}

TEST(PointerFile, the_number_and_the_arrow_of_a_row_do_not_matter) {
  EXPECT_EQ(name_of_row("1 --> D:\\Mix\\tema.vip"), "tema_vip.ptr");
  EXPECT_EQ(name_of_row("12034 --> D:\\tema.vip"), "tema_vip.ptr");
  EXPECT_EQ(name_of_row("7 -->  D:\\Mix\\tema.vip"), "tema_vip.ptr");
}

TEST(PointerFile, folders_with_dots_do_not_matter) {
  EXPECT_EQ(name_of_row("1 --> D:\\M.i.x\\v1.0\\tema.vip"), "tema_vip.ptr");
  EXPECT_EQ(name_of_row("D:\\..\\tema.vip"), "tema_vip.ptr");
}

TEST(PointerFile, more_arrows_before_the_name_do_not_matter) {
  EXPECT_EQ(name_of_row("3 --> D:\\a>b\\c->d.e\\tema.vip"), "tema_vip.ptr");
  EXPECT_EQ(name_of_row("> > D:\\tema.vip"), "tema_vip.ptr");
}

TEST(PointerFile, a_name_that_holds_its_own_ending_keeps_it) {
  EXPECT_EQ(name_of_row("D:\\tema.log.vip"), "tema_log_vip.ptr");
  EXPECT_EQ(name_of_row("D:\\tema.ptr.vip"), "tema_ptr_vip.ptr");
  EXPECT_EQ(name_of_row("D:\\x.log\\.log"), "_log.ptr");
}

TEST(PointerFile, names_keep_their_blanks_brackets_and_case) {
  EXPECT_EQ(name_of_row("D:\\Mi Tema [2] \xF1.VIP"), "Mi Tema [2] \xF1_VIP.ptr");
}

TEST(PointerFile, two_projects_of_one_name_share_one) {
  EXPECT_EQ(name_of_row("1 --> D:\\a\\tema.vip"), name_of_row("2 --> D:\\b\\tema.vip"));
}

TEST(PointerFile, has_one_name_for_every_row_of_a_path_on_a_drive) {
  static constexpr std::string_view kFolder("ab.. \\\\>-[]:1");
  static constexpr std::string_view kName("ab..  []-_1vip");
  Dice dice(5);
  for (int i = 0; i < 20'000; ++i) {
    std::string row;
    if (dice.below(2) == 0) row = std::to_string(dice.below(100)) + " --> ";
    row += "D:\\";
    for (auto n = dice.below(12); n > 0; --n) row += kFolder[dice.below(kFolder.size())];
    row += '\\';
    std::string name;
    for (auto n = dice.below(12); n > 0; --n) name += kName[dice.below(kName.size())];
    std::string wanted;
    for (const char c : name) wanted += c == '.' ? '_' : c;
    ASSERT_EQ(name_of_row(row + name), wanted + ".ptr") << row << name;
  }
}

// A row of a list names a path on a drive. Of any other each road makes its own name.
TEST(PointerFile, rows_without_a_drive_lose_their_first_character_when_written) {
  EXPECT_EQ(relink::written_pointer_name("tema.vip"), "ema_vip.ptr");
  EXPECT_EQ(relink::read_pointer_name("tema.vip"), "tema_vip.ptr");
  EXPECT_EQ(relink::written_pointer_name(""), literal_written_name(""));
  EXPECT_EQ(relink::read_pointer_name(""), ".ptr");
}

// No file of Windows has such a name. The two roads part there.
TEST(PointerFile, an_arrow_in_the_name_itself_cuts_the_name_that_is_written) {
  EXPECT_EQ(relink::written_pointer_name("3 --> C:\\a>bc.vip"), "c_vip.ptr");
  EXPECT_EQ(relink::written_pointer_name("C:\\a>bc.vip"), "c_vip.ptr");
  EXPECT_EQ(relink::written_pointer_name("C:\\a>"), literal_written_name("C:\\a>"));
  EXPECT_EQ(relink::read_pointer_name("3 --> C:\\a>bc.vip"), "a>bc_vip.ptr");
}

TEST(PointerFile, a_line_has_a_blank_on_each_side_of_its_number) {
  EXPECT_EQ(relink::pointer_line(1234), " 1234 \r\n");
  EXPECT_EQ(relink::pointer_line(0), " 0 \r\n");
  EXPECT_EQ(relink::pointer_line(2'147'483'647), " 2147483647 \r\n");
}

TEST(PointerFile, a_sign_takes_the_place_of_the_first_blank) {
  EXPECT_EQ(relink::pointer_line(-5), "-5 \r\n");
}

void expect_pairs(const std::string& bytes, const std::vector<Pointer>& pairs) {
  const Pointers read = read_pointers(bytes);
  EXPECT_EQ(read.pairs, pairs) << bytes;
  EXPECT_FALSE(read.odd) << bytes;
  EXPECT_FALSE(read.damaged) << bytes;
}

TEST(PointerFile, is_read_back_as_it_was_printed) {
  std::string text;
  for (const int number : {97, 104, 0, 2'147'483'647, -1, 12}) text += relink::pointer_line(number);
  expect_pairs(text, {{97, 104}, {0, 2'147'483'647}, {-1, 12}});
}

TEST(PointerFile, an_empty_one_holds_no_pair) {
  expect_pairs("", {});
}

TEST(PointerFile, blanks_need_not_stand_around_a_number) {
  expect_pairs("97\r\n   104   \r\n", {{97, 104}});
}

TEST(PointerFile, any_line_ends_will_do) {
  expect_pairs(" 1 \n 2 \n", {{1, 2}});
  expect_pairs(" 1 \r 2 \r", {{1, 2}});
  expect_pairs(" 1 \r\n 2 \n", {{1, 2}});
}

TEST(PointerFile, the_last_line_need_have_no_end) {
  expect_pairs(" 1 \r\n 2 ", {{1, 2}});
  expect_pairs(" 1 \r\n 2", {{1, 2}});
}

TEST(PointerFile, a_start_may_stand_after_its_end) {
  expect_pairs(" 9 \r\n 5 \r\n", {{9, 5}});
}

TEST(PointerFile, an_odd_number_at_the_end_has_no_pair) {
  const Pointers read = read_pointers(" 1 \r\n 2 \r\n 3 \r\n");
  EXPECT_THAT(read.pairs, ElementsAre(Pointer{1, 2}));
  EXPECT_TRUE(read.odd);
  EXPECT_FALSE(read.damaged);
}

TEST(PointerFile, what_follows_a_line_that_is_no_number_is_not_read) {
  for (const std::string line : {"x", "", " ", "1 2", "3.0", "+3", "- 3", "3x", "--3", "-"}) {
    const Pointers read = read_pointers(" 1 \r\n 2 \r\n" + line + "\r\n 4 \r\n 5 \r\n");
    EXPECT_THAT(read.pairs, ElementsAre(Pointer{1, 2})) << line;
    EXPECT_TRUE(read.damaged) << line;
    EXPECT_FALSE(read.odd) << line;
  }
}

TEST(PointerFile, a_NUL_is_no_part_of_a_number) {
  EXPECT_TRUE(read_pointers(std::string("5\0\r\n6\r\n", 7)).damaged);
}

TEST(PointerFile, a_number_of_more_than_32_bits_is_damage) {
  const Pointers over = read_pointers(" 1 \r\n 2147483648 \r\n 3 \r\n");
  EXPECT_THAT(over.pairs, IsEmpty());
  EXPECT_TRUE(over.damaged);
  EXPECT_TRUE(over.odd);
  EXPECT_TRUE(read_pointers("-2147483649\r\n1\r\n").damaged);
  EXPECT_TRUE(read_pointers("99999999999999999999999999\r\n1\r\n").damaged);
  expect_pairs(" 1 \r\n-2147483648\r\n", {{1, -2'147'483'647 - 1}});
}

}  // namespace
}  // namespace ordelan::test
