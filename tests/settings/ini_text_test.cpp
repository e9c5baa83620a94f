#include "settings/ini_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "settings/ini_encoding.h"

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

TEST(IniText, a_key_with_an_equals_sign_has_a_line_of_its_own_that_is_found_again) {
  const std::string key = "Unidad: D:\\a=b";
  const std::string once = with_ini_value("[s]\r\nx=1\r\n", "s", key, "1");
  EXPECT_EQ(once, "[s]\r\nx=1\r\nUnidad: D:\\a=b=1\r\n");
  EXPECT_EQ(ini_value(once, "s", key), "1");
  EXPECT_EQ(ini_value(once, "s", "Unidad: D:\\A=B"), "1");
  EXPECT_EQ(with_ini_value(once, "s", key, "0"), "[s]\r\nx=1\r\nUnidad: D:\\a=b=0\r\n");
  EXPECT_EQ(ini_value("[s]\na=b = 3\n", "s", "a=b"), "3") << "blanks before the value's sign";
  EXPECT_EQ(ini_value("[s]\na=bc=3\na=b=4\n", "s", "a=b"), "4");
  EXPECT_EQ(ini_value("[s]\na=b\n", "s", "a=b"), std::nullopt);
  EXPECT_EQ(ini_value(with_ini_value("", "s", "a=", "1"), "s", "a="), "1");
  EXPECT_EQ(ini_value(with_ini_value("", "s", "=", "1"), "s", "="), "1");
}

TEST(IniText, blanks_at_the_end_of_a_key_are_written_and_stay) {
  const std::string once = with_ini_value("", "s", "Unidad: ", "1");
  EXPECT_EQ(once, "[s]\r\nUnidad: =1\r\n");
  EXPECT_EQ(with_ini_value(once, "s", "Unidad: ", "0"), "[s]\r\nUnidad: =0\r\n");
  EXPECT_EQ(ini_value(once, "s", "Unidad: "), "1");
  EXPECT_EQ(ini_value(once, "s", "Unidad:"), "1");
  EXPECT_EQ(with_ini_value("[s]\r\nunidad:=1\r\n", "s", "Unidad: ", "0"), "[s]\r\nunidad: =0\r\n");
  EXPECT_EQ(with_ini_value("", "s", "a   ", "1"), "[s]\r\na   =1\r\n");
}

TEST(IniText, what_could_not_be_read_back_changes_nothing) {
  const std::string text = "[s]\r\n;k=1\r\na=1\r\n";
  for (const std::string& key : {std::string(";k"), std::string("[x]"), std::string(" ; k"),
                                 std::string("a\nb"), std::string("a\r"), std::string("a\0b", 3)}) {
    EXPECT_EQ(with_ini_value(text, "s", key, "2"), text) << key;
  }
  for (const std::string& value : {std::string("2\r\nb=3"), std::string("2\0", 2)}) {
    EXPECT_EQ(with_ini_value(text, "s", "a", value), text);
    EXPECT_EQ(with_ini_value(text, "s", "new", value), text);
  }
  EXPECT_EQ(with_ini_value("", "s", ";k", "2"), "");
}

TEST(IniText, letters_of_utf8_are_compared_and_not_their_bytes) {
  using settings::TextCode;
  const std::string text = "[s]\n\xC3\x8A=1\n\xD0\x96=2\n";  // an E with a roof; a Russian letter
  EXPECT_EQ(ini_value(text, "s", "\xC3\xAA", TextCode::utf8), "1") << "its small letter";
  EXPECT_EQ(ini_value(text, "s", "\xC3\x9A", TextCode::utf8), std::nullopt) << "another letter";
  EXPECT_EQ(ini_value(text, "s", "\xD0\x96", TextCode::utf8), "2");
  EXPECT_EQ(ini_value(text, "s", "\xD0\xB6", TextCode::utf8), std::nullopt);
}

using settings::encoding_of;
using settings::ini_bytes;
using settings::ini_text;
using settings::IniEncoding;

TEST(IniEncoding, is_recognised_by_the_mark) {
  EXPECT_EQ(encoding_of(""), IniEncoding::code_page);
  EXPECT_EQ(encoding_of("[s]"), IniEncoding::code_page);
  EXPECT_EQ(encoding_of("\xEF\xBB"), IniEncoding::code_page);
  EXPECT_EQ(encoding_of("\xEF\xBB\xBF"), IniEncoding::utf8);
  EXPECT_EQ(encoding_of("\xFF\xFE"), IniEncoding::utf16_low_first);
  EXPECT_EQ(encoding_of("\xFE\xFF"), IniEncoding::utf16_high_first);
}

TEST(IniEncoding, every_text_comes_back_as_it_was) {
  using namespace std::string_literals;
  const std::string low = "\xFF\xFE[\0s\0]\0\n\0\xF1\0=\0\x3D\xD8\x00\xDE\xAC\x20"s;
  std::string high = low;
  for (std::size_t i = 0; i + 1 < high.size(); i += 2) std::swap(high[i], high[i + 1]);
  EXPECT_EQ(ini_text(low, IniEncoding::utf16_low_first),
            "[s]\n\xC3\xB1=\xF0\x9F\x98\x80\xE2\x82\xAC");
  EXPECT_EQ(ini_text(high, IniEncoding::utf16_high_first),
            ini_text(low, IniEncoding::utf16_low_first));
  for (const std::string& bytes :
       {low, high, "\xEF\xBB\xBF\xC3\xB1 \xFF no text"s, "\xF1=\x80"s, ""s}) {
    const IniEncoding encoding = encoding_of(bytes);
    EXPECT_EQ(ini_bytes(ini_text(bytes, encoding), encoding), bytes);
  }
}

TEST(IniEncoding, half_a_pair_and_a_cut_unit_are_survived) {
  using namespace std::string_literals;
  for (const std::string& bytes :
       {"\xFF\xFE\x00\xD8"s, "\xFE\xFF\xD8\x00"s, "\xFF\xFE\x00\xDC\x00\xD8"s}) {
    const IniEncoding encoding = encoding_of(bytes);
    EXPECT_EQ(ini_bytes(ini_text(bytes, encoding), encoding), bytes);
  }
  EXPECT_EQ(ini_text("\xFF\xFE"s + "a", IniEncoding::utf16_low_first), "");
}

TEST(IniEncoding, the_first_and_the_last_character_of_each_length_come_out_right_and_back) {
  struct Character {
    std::string utf16;  // high byte first
    std::string utf8;
  };
  using namespace std::string_literals;
  for (const auto& [utf16, utf8] : {Character{"\x00\x7F"s, "\x7F"},
                                    {"\x00\x80"s, "\xC2\x80"},
                                    {"\x07\xFF"s, "\xDF\xBF"},
                                    {"\x08\x00"s, "\xE0\xA0\x80"},
                                    {"\xD7\xFF"s, "\xED\x9F\xBF"},
                                    {"\xE0\x00"s, "\xEE\x80\x80"},
                                    {"\xFF\xFD"s, "\xEF\xBF\xBD"},
                                    {"\xD8\x00\xDC\x00"s, "\xF0\x90\x80\x80"},
                                    {"\xD8\x00\xDF\xFF"s, "\xF0\x90\x8F\xBF"},
                                    {"\xD8\x01\xDC\x00"s, "\xF0\x90\x90\x80"},
                                    {"\xDB\xFF\xDC\x00"s, "\xF4\x8F\xB0\x80"},
                                    {"\xDB\xFF\xDF\xFF"s, "\xF4\x8F\xBF\xBF"}}) {
    SCOPED_TRACE(::testing::PrintToString(utf16));
    const std::string high = "\xFE\xFF"s + utf16 + "\0x"s;
    std::string low = high;
    for (std::size_t i = 0; i + 1 < low.size(); i += 2) std::swap(low[i], low[i + 1]);
    EXPECT_EQ(ini_text(high, IniEncoding::utf16_high_first), utf8 + "x");
    EXPECT_EQ(ini_text(low, IniEncoding::utf16_low_first), utf8 + "x");
    EXPECT_EQ(ini_bytes(utf8 + "x", IniEncoding::utf16_high_first), high);
    EXPECT_EQ(ini_bytes(utf8 + "x", IniEncoding::utf16_low_first), low);
  }
}

TEST(IniEncoding, half_a_pair_takes_nothing_of_the_character_after_it) {
  using namespace std::string_literals;
  const auto text_of = [](const std::string& utf16) {
    const std::string bytes = "\xFE\xFF"s + utf16;
    const std::string text = ini_text(bytes, IniEncoding::utf16_high_first);
    EXPECT_EQ(ini_bytes(text, IniEncoding::utf16_high_first), bytes);
    return text;
  };
  EXPECT_EQ(text_of("\xD8\x00\x00k\x00="s), "\xED\xA0\x80k=");
  EXPECT_EQ(text_of("\xDB\xFF\xE0\x00"s), "\xED\xAF\xBF\xEE\x80\x80");
  EXPECT_EQ(text_of("\xDC\x00\xDC\x00"s), "\xED\xB0\x80\xED\xB0\x80");
  EXPECT_EQ(text_of("\xD8\x00\xD8\x00\xDC\x00"s), "\xED\xA0\x80\xF0\x90\x80\x80");
  EXPECT_EQ(text_of("\x00k\xD8\x00"s), "k\xED\xA0\x80");
}

// A mark of UTF-8 before nothing but a cut character: the bytes stay, and none after them is read.
TEST(IniEncoding, a_cut_character_of_utf8_is_survived) {
  using namespace std::string_literals;
  EXPECT_EQ(ini_bytes("k\xC3", IniEncoding::utf16_high_first), "\xFE\xFF\x00k\x00\x03"s);
  EXPECT_EQ(ini_bytes("\xE2\x82", IniEncoding::utf16_high_first), "\xFE\xFF\x00\x82"s);
}

TEST(IniText, tabs_and_carriage_returns_around_names_and_values_are_blanks) {
  EXPECT_EQ(ini_value("\t[\ts\t]\t\r\n\tk\t=\t1\t\r\n", "s", "k"), "1");
  EXPECT_EQ(ini_value("[s]\nk=\"\"\nl=''\nm=\"\n", "s", "k"), "");
  EXPECT_EQ(ini_value("[s]\nk=\"\"\nl=''\nm='\n", "s", "l"), "");
  EXPECT_EQ(ini_value("[s]\nk=\"\"\nl=''\nm='\n", "s", "m"), "'");
  EXPECT_EQ(with_ini_value("[s]\nk=1\n", "s", "\tk\t", "2"), "[s]\nk\t=2\n");
}

TEST(IniText, a_bracket_that_is_not_closed_opens_no_section) {
  EXPECT_EQ(ini_value("[s]\n[k=1\n", "s", "[k"), "1");
  EXPECT_EQ(ini_value("[s\nk=1\n", "s", "k"), std::nullopt);
  EXPECT_EQ(ini_value("[s]\nx]=1\n", "s", "x]"), "1");
  EXPECT_EQ(ini_value("[a]b]\nk=1\n", "a]b", "k"), "1") << "the last bracket closes";
  EXPECT_EQ(ini_value("[s]=1\n", "s", "[s]"), std::nullopt) << "the line of a section holds no key";
}

TEST(IniText, of_sections_of_one_name_the_first_counts) {
  const std::string text = "[s]\r\na=1\r\n[b]\r\n[s]\r\nk=2\r\n";
  EXPECT_EQ(ini_value(text, "s", "k"), std::nullopt);
  EXPECT_EQ(with_ini_value(text, "s", "k", "3"), "[s]\r\na=1\r\nk=3\r\n[b]\r\n[s]\r\nk=2\r\n");
}

TEST(IniText, a_new_key_stands_below_comments_of_its_section_and_of_an_empty_one_first) {
  EXPECT_EQ(with_ini_value("[s]\n;k=1\n; more\n\n[b]\n", "s", "k", "2"),
            "[s]\n;k=1\n; more\nk=2\n\n[b]\n");
  EXPECT_EQ(with_ini_value("[s]\n\n[b]\n", "s", "k", "2"), "[s]\nk=2\n\n[b]\n");
}

TEST(IniText, the_line_ends_of_a_file_are_those_of_its_first_line) {
  EXPECT_EQ(with_ini_value("\n[s]\r\nk=1\r\n", "s", "l", "2"), "\n[s]\r\nk=1\r\nl=2\n");
  EXPECT_EQ(with_ini_value("[s]\r\nk=1\n", "s", "l", "2"), "[s]\r\nk=1\nl=2\r\n");
  EXPECT_EQ(with_ini_value("[s]", "s", "l", "2"), "[s]\r\nl=2\r\n");
}

}  // namespace
}  // namespace ordelan::test
