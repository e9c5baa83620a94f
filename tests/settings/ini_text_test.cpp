#include "settings/ini_text.h"

#include <gtest/gtest.h>

#include "settings/wide_text.h"

namespace ordelan::test {
namespace {

using settings::ini_value;
using settings::with_ini_value;

TEST(IniText, finds_a_key_of_its_section_alone) {
  const std::string text = "[Other]\r\nA=1\r\n[Settings]\r\nA=2\r\n[Third]\r\nA=3\r\n";
  EXPECT_EQ(ini_value(text, "Settings", "A"), "2");
  EXPECT_EQ(ini_value(text, "Settings", "B"), std::nullopt);
  EXPECT_EQ(ini_value(text, "None", "A"), std::nullopt);
  EXPECT_EQ(ini_value("A=1\r\n", "Settings", "A"), std::nullopt);
}

TEST(IniText, ignores_case_and_blanks_around_names) {
  const std::string text = "  [ SETTINGS ]\n  Me_Left \t=  12  \n";
  EXPECT_EQ(ini_value(text, "Settings", "me_left"), "12");
  EXPECT_EQ(ini_value("[s]\nPLAYER AUTOM\xC1TICO=1", "s", "Player autom\xE1tico"), "1");
}

TEST(IniText, takes_enclosing_quotes_off_a_value_and_leaves_others) {
  EXPECT_EQ(ini_value("[s]\nk=\" a \"\n", "s", "k"), " a ");
  EXPECT_EQ(ini_value("[s]\nk='a'\n", "s", "k"), "a");
  EXPECT_EQ(ini_value("[s]\nk=\"a'\n", "s", "k"), "\"a'");
  EXPECT_EQ(ini_value("[s]\nk=\"\n", "s", "k"), "\"");
}

TEST(IniText, the_first_of_equal_keys_counts) {
  EXPECT_EQ(ini_value("[s]\nk=1\nk=2\n", "s", "k"), "1");
}

TEST(IniText, a_comment_is_no_key) {
  EXPECT_EQ(ini_value("[s]\n;k=1\n ; k=2\nk=3\n", "s", "k"), "3");
}

TEST(IniText, a_value_may_hold_equals_signs_and_a_key_quotes_and_runs_of_blanks) {
  EXPECT_EQ(ini_value("[s]\nk=a=b\n", "s", "k"), "a=b");
  const std::string key = "Borrar todos los asociados      ------>";
  EXPECT_EQ(ini_value(with_ini_value("", "s", key, "1"), "s", key), "1");
  const std::string quoted = "Borrar lista 4 \"Archivos no utilizados\"";
  EXPECT_EQ(with_ini_value("", "s", quoted, "0"), "[s]\r\n" + quoted + "=0\r\n");
}

TEST(IniText, an_empty_file_gets_section_and_key) {
  EXPECT_EQ(with_ini_value("", "Settings", "A", "1"), "[Settings]\r\nA=1\r\n");
}

TEST(IniText, a_changed_key_stays_in_its_line_with_its_spelling) {
  EXPECT_EQ(with_ini_value("; mine\r\n[Settings]\r\nFoo=1\r\nme_left = 5\r\nBar=2\r\n", "Settings",
                           "Me_Left", "7"),
            "; mine\r\n[Settings]\r\nFoo=1\r\nme_left=7\r\nBar=2\r\n");
}

TEST(IniText, a_new_key_goes_to_the_end_of_its_section) {
  EXPECT_EQ(with_ini_value("[Settings]\r\nA=1\r\n\r\n\r\n[B]\r\nC=1\r\n", "Settings", "D", "2"),
            "[Settings]\r\nA=1\r\nD=2\r\n\r\n\r\n[B]\r\nC=1\r\n");
}

TEST(IniText, a_last_line_without_its_end_is_ended_first) {
  EXPECT_EQ(with_ini_value("[Settings]\r\nA=1", "Settings", "D", "2"),
            "[Settings]\r\nA=1\r\nD=2\r\n");
  EXPECT_EQ(with_ini_value("[B]\r\nA=1", "Settings", "D", "2"),
            "[B]\r\nA=1\r\n[Settings]\r\nD=2\r\n");
}

TEST(IniText, lines_end_as_the_files_own_do) {
  EXPECT_EQ(with_ini_value("[Settings]\nA=1\n", "Settings", "D", "2"), "[Settings]\nA=1\nD=2\n");
}

TEST(IniText, writing_the_same_value_again_changes_nothing) {
  const std::string text = "; c\r\n[x]\r\n[Settings]\r\nA=1\r\nB=2\r\n";
  EXPECT_EQ(with_ini_value(text, "Settings", "B", "2"), text);
}

TEST(IniText, text_of_any_kind_is_survived) {
  for (const std::string text : {"[", "]", "[s", "=", "[s]\n=", "[s]\n=1\n", "\0\0", "[]\n", "\n\n",
                                 "[s]\r", "\r\n[s]k=1"}) {
    EXPECT_EQ(ini_value(with_ini_value(text, "s", "k", "v"), "s", "k"), "v") << text;
  }
}

TEST(WideText, comes_back_as_it_was) {
  using namespace std::string_literals;
  const std::string wide = "\xFF\xFE[\0s\0]\0\n\0\xF1\0=\0\x3D\xD8\x00\xDE\xAC\x20"s;
  ASSERT_TRUE(settings::is_wide(wide));
  EXPECT_EQ(settings::wide_of_utf8(settings::utf8_of_wide(wide)), wide);
  EXPECT_FALSE(settings::is_wide("[s]"));
}

TEST(WideText, half_a_pair_and_a_cut_unit_are_survived) {
  using namespace std::string_literals;
  EXPECT_EQ(settings::wide_of_utf8(settings::utf8_of_wide("\xFF\xFE\x00\xD8"s)),
            "\xFF\xFE\x00\xD8"s);
  EXPECT_EQ(settings::utf8_of_wide("\xFF\xFE"s + "a"), "");
}

}  // namespace
}  // namespace ordelan::test
