#include "text/code_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>

namespace ordelan::test {
namespace {

using text::from_utf8;
using text::lower;
using text::to_utf8;
using text::upper;

std::string every_byte() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

std::string byte(int value) {
  return std::string(1, static_cast<char>(value));
}

TEST(CodePage, every_byte_survives_the_way_to_utf8_and_back) {
  for (const char c : every_byte()) {
    const std::string one(1, c);
    EXPECT_EQ(from_utf8(to_utf8(one)), one) << static_cast<int>(static_cast<unsigned char>(c));
  }
  EXPECT_EQ(from_utf8(to_utf8(every_byte())), every_byte());
}

TEST(CodePage, no_two_bytes_share_a_character) {
  std::set<std::string> seen;
  for (const char c : every_byte()) EXPECT_TRUE(seen.insert(to_utf8(std::string(1, c))).second);
}

TEST(CodePage, plain_text_is_the_same_in_both) {
  std::string plain;
  for (int value = 0; value < 0x80; ++value) plain += static_cast<char>(value);
  EXPECT_EQ(to_utf8(plain), plain);
  EXPECT_EQ(from_utf8(plain), plain);
}

TEST(CodePage, letters_of_spanish_become_two_bytes_of_utf8) {
  EXPECT_EQ(to_utf8("\xF1"), "\xC3\xB1");
  EXPECT_EQ(to_utf8("Canci\xF3n"), "Canci\xC3\xB3n");
  EXPECT_EQ(from_utf8("\xC3\x91"), "\xD1");
}

TEST(CodePage, the_typographic_bytes_are_those_of_windows) {
  EXPECT_EQ(to_utf8("\x80"), "\xE2\x82\xAC") << "euro";
  EXPECT_EQ(to_utf8("\x92"), "\xE2\x80\x99") << "closing quotation mark";
  EXPECT_EQ(to_utf8("\x96"), "\xE2\x80\x93") << "dash";
  EXPECT_EQ(to_utf8("\x9F"), "\xC5\xB8") << "Y with two dots";
}

TEST(CodePage, the_five_open_bytes_stand_for_themselves) {
  for (const int open : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
    EXPECT_EQ(to_utf8(byte(open)), "\xC2" + byte(open));
    EXPECT_EQ(text::kCodePoints[static_cast<std::size_t>(open)], open);
  }
}

TEST(CodePage, a_control_character_whose_byte_means_something_else_is_not_in_the_page) {
  EXPECT_EQ(from_utf8("\xC2\x80"), std::nullopt);
  EXPECT_EQ(from_utf8("\xC2\x9F"), std::nullopt);
}

TEST(CodePage, characters_that_the_page_lacks_give_nothing) {
  EXPECT_EQ(from_utf8("\xE6\x9D\xB1.wav"), std::nullopt) << "east";
  EXPECT_EQ(from_utf8("\xD0\xB6"), std::nullopt) << "zhe";
  EXPECT_EQ(from_utf8("n\xCC\x83"), std::nullopt) << "n and a tilde of its own";
  EXPECT_EQ(from_utf8("\xF0\x9F\x8E\xB5"), std::nullopt) << "note";
  EXPECT_EQ(from_utf8("\xC4\x80"), std::nullopt) << "the first one after the bytes";
  EXPECT_EQ(from_utf8("\xF4\x8F\xBF\xBF"), std::nullopt) << "the last of all characters";
}

TEST(CodePage, overlong_forms_give_nothing) {
  EXPECT_EQ(from_utf8("\xC0\xAF"), std::nullopt);
  EXPECT_EQ(from_utf8("\xC1\xBF"), std::nullopt);
  EXPECT_EQ(from_utf8("\xE0\x80\xAF"), std::nullopt);
  EXPECT_EQ(from_utf8("\xE0\x83\xB1"), std::nullopt);
  EXPECT_EQ(from_utf8("\xF0\x80\x80\xAF"), std::nullopt);
  EXPECT_EQ(from_utf8("\xF0\x82\x82\xAC"), std::nullopt);
}

TEST(CodePage, surrogates_and_what_lies_after_the_last_character_give_nothing) {
  EXPECT_EQ(from_utf8("\xED\xA0\x80"), std::nullopt);
  EXPECT_EQ(from_utf8("\xED\xBF\xBF"), std::nullopt);
  EXPECT_EQ(from_utf8("\xF4\x90\x80\x80"), std::nullopt);
  EXPECT_EQ(from_utf8("\xF5\x80\x80\x80"), std::nullopt);
  EXPECT_EQ(from_utf8("\xFF"), std::nullopt);
}

TEST(CodePage, cut_sequences_give_nothing_wherever_they_are_cut) {
  EXPECT_EQ(from_utf8("\xC3"), std::nullopt);
  EXPECT_EQ(from_utf8("a\xC3"), std::nullopt);
  EXPECT_EQ(from_utf8("\xC3z"), std::nullopt);
  EXPECT_EQ(from_utf8("\xE2\x82"), std::nullopt);
  EXPECT_EQ(from_utf8("\xE2\x82z"), std::nullopt);
  EXPECT_EQ(from_utf8("\xF0\x9F\x8E"), std::nullopt);
  EXPECT_EQ(from_utf8("\xB1"), std::nullopt) << "a byte that only continues";
  EXPECT_EQ(from_utf8("\xC3\xB1\xB1"), std::nullopt);
}

TEST(CodePage, an_existing_text_is_replaced_by_what_comes_out_of_utf8) {
  std::string ansi = "what stood there before";
  EXPECT_TRUE(from_utf8("Canci\xC3\xB3n", ansi));
  EXPECT_EQ(ansi, "Canci\xF3n");
  EXPECT_TRUE(from_utf8("a.wav", ansi));
  EXPECT_EQ(ansi, "a.wav");
  EXPECT_FALSE(from_utf8("\xE6\x9D\xB1", ansi));
  EXPECT_TRUE(from_utf8("", ansi));
  EXPECT_EQ(ansi, "");
}

TEST(CodePage, plain_text_of_any_length_is_distinguished_from_other_text) {
  for (std::size_t length = 0; length < 40; ++length) {
    const std::string plain(length, 'a');
    EXPECT_EQ(from_utf8(plain), plain);
    for (std::size_t at = 0; at <= length; ++at) {
      const std::string after(length - at, 'a');
      EXPECT_EQ(from_utf8(plain.substr(0, at) + "\xC3\xB1" + after),
                plain.substr(0, at) + "\xF1" + after);
    }
  }
}

TEST(CodePage, a_NUL_is_a_character_like_others) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(to_utf8(text), text);
  EXPECT_EQ(from_utf8(text), text);
  EXPECT_EQ(from_utf8(""), "");
}

TEST(CodePage, capitals_fold_to_their_small_letters) {
  EXPECT_EQ(lower("ABCXYZ@[`{"), "abcxyz@[`{");
  for (int capital = 0xC0; capital <= 0xDE; ++capital) {
    if (capital == 0xD7) continue;
    EXPECT_EQ(lower(byte(capital)), byte(capital + 0x20)) << capital;
  }
  EXPECT_EQ(lower("\x8A\x8C\x8E\x9F"), "\x9A\x9C\x9E\xFF");
}

TEST(CodePage, signs_among_the_letters_do_not_fold) {
  EXPECT_EQ(lower("\xD7"), "\xD7") << "the multiplication sign is no capital of the division sign";
  EXPECT_EQ(lower("\xF7"), "\xF7");
  EXPECT_EQ(lower("\xDF"), "\xDF") << "sharp s";
  EXPECT_EQ(lower("\x80\x99\xA9"), "\x80\x99\xA9");
}

TEST(CodePage, small_letters_have_the_capitals_that_fold_to_them) {
  EXPECT_EQ(upper("wav2"), "WAV2");
  EXPECT_EQ(upper("canci\xF3n a\xF1o"), "CANCI\xD3N A\xD1O");
  EXPECT_EQ(upper("\xF7\xDF.-"), "\xF7\xDF.-") << "signs, and a letter without a capital";
  for (const char c : every_byte()) EXPECT_EQ(lower(upper(c)), lower(c));
}

TEST(CodePage, folding_twice_changes_nothing_more) {
  EXPECT_EQ(lower(lower(every_byte())), lower(every_byte()));
}

TEST(CodePage, names_are_equal_when_only_case_differs) {
  EXPECT_TRUE(text::equal_ignoring_case("CANCI\xD3N.Wav", "canci\xF3n.wAV"));
  EXPECT_FALSE(text::equal_ignoring_case("cancion.wav", "canci\xF3n.wav"));
  EXPECT_FALSE(text::equal_ignoring_case("a.wav", "a.wav "));
  EXPECT_FALSE(text::equal_ignoring_case("a", ""));
  EXPECT_TRUE(text::equal_ignoring_case("", ""));
}

TEST(CodePage, the_order_ignores_case) {
  EXPECT_TRUE(text::less_ignoring_case("a.wav", "B.wav"));
  EXPECT_TRUE(text::less_ignoring_case("A.wav", "b.wav"));
  EXPECT_FALSE(text::less_ignoring_case("B.wav", "a.wav"));
  EXPECT_FALSE(text::less_ignoring_case("tema", "TEMA"));
  EXPECT_FALSE(text::less_ignoring_case("TEMA", "tema"));
  EXPECT_TRUE(text::less_ignoring_case("tema", "TEMA2"));
}

TEST(CodePage, the_order_is_that_of_capital_letters_in_Unicode) {
  EXPECT_TRUE(text::less_ignoring_case("temaA", "tema_B")) << "A before _, as NTFS lists them";
  EXPECT_TRUE(text::less_ignoring_case("a", "_"));
  EXPECT_TRUE(text::less_ignoring_case("zeta", "\xE1rbol")) << "accents after all plain letters";
  EXPECT_TRUE(text::less_ignoring_case("z", "\xC1"));
  EXPECT_TRUE(text::less_ignoring_case("\xFE", "\x9A")) << "U+00DE before U+0160";
  EXPECT_TRUE(text::less_ignoring_case("\xE1", "\xFF")) << "U+00C1 before U+0178";
  EXPECT_TRUE(text::less_ignoring_case("\xFF", "\x80")) << "U+0178 before U+20AC";
}

TEST(CodePage, what_the_code_page_lacks_is_shown_by_marks) {
  EXPECT_EQ(text::from_utf8_with_marks("Canci\xC3\xB3n \xE2\x98\x83.vip"), "Canci\xF3n ?.vip");
  EXPECT_EQ(text::from_utf8_with_marks("a\xFF"
                                       "b\xE2\x98"),
            "a?b??");
}

TEST(CodePage, trimming_takes_blanks_and_nothing_else) {
  EXPECT_EQ(text::trim_left("  a b "), "a b ");
  EXPECT_EQ(text::trim("  a b "), "a b");
  EXPECT_EQ(text::trim("\t a"), "\t a");
  EXPECT_EQ(text::trim("   "), "");
  EXPECT_EQ(text::trim_left("   "), "");
  EXPECT_EQ(text::trim(""), "");
}

TEST(CodePage, long_texts_are_converted_like_their_letters_one_by_one) {
  std::mt19937 random(11);
  for (int i = 0; i < 20'000; ++i) {
    std::string ansi;
    std::string utf8 = "before ";
    std::string one_by_one = utf8;
    for (std::size_t size = random() % 40; size > 0; --size) {
      ansi += static_cast<char>(random() % 4 == 0 ? random() % 256 : 'a' + random() % 26);
      one_by_one += to_utf8(ansi.substr(ansi.size() - 1));
    }
    text::append_utf8(ansi, utf8);
    ASSERT_EQ(utf8, one_by_one);
    ASSERT_EQ(to_utf8(ansi), one_by_one.substr(7));
    ASSERT_EQ(from_utf8(to_utf8(ansi)), ansi);
  }
}

TEST(CodePage, the_order_of_long_names_is_that_of_their_first_different_letter) {
  std::mt19937 random(13);
  const std::string_view letters = "aAb_B\xF1\xD1\x9A.";
  const auto sign = [](int order) { return (order > 0) - (order < 0); };
  for (int i = 0; i < 50'000; ++i) {
    const std::string same(random() % 20, 'x');
    std::string a = same;
    std::string b = same;
    for (std::size_t size = random() % 4; size > 0; --size) a += letters[random() % letters.size()];
    for (std::size_t size = random() % 4; size > 0; --size) b += letters[random() % letters.size()];
    int expected = 0;
    for (std::size_t at = 0; expected == 0 && at < std::max(a.size(), b.size()); ++at) {
      const auto place = [&](const std::string& name) {
        if (at >= name.size()) return -1;
        return int{text::kCodePoints[static_cast<unsigned char>(text::upper(name[at]))]};
      };
      expected = sign(place(a) - place(b));
    }
    ASSERT_EQ(sign(text::compare_ignoring_case(a, b)), expected) << a << " " << b;
    ASSERT_EQ(text::less_ignoring_case(a, b), expected < 0);
    ASSERT_EQ(text::equal_ignoring_case(a, b), expected == 0);
  }
}

}  // namespace
}  // namespace ordelan::test
