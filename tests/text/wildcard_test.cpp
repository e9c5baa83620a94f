#include "text/wildcard.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>

namespace ordelan::test {
namespace {

using text::matches;

TEST(Wildcard, a_star_stands_for_any_bytes_and_for_none) {
  EXPECT_TRUE(matches("*.wav", "a.wav"));
  EXPECT_TRUE(matches("*.wav", ".wav"));
  EXPECT_TRUE(matches("a*c.wav", "abbbc.wav"));
  EXPECT_TRUE(matches("a*c.wav", "ac.wav"));
  EXPECT_TRUE(matches("*a*", "xxax"));
  EXPECT_FALSE(matches("*.wav", "a.mp3"));
  EXPECT_FALSE(matches("*.wav", "a.wav.bak"));
  EXPECT_FALSE(matches("*a*", "xxx"));
}

TEST(Wildcard, a_question_mark_stands_for_exactly_one_byte) {
  EXPECT_TRUE(matches("a?.wav", "ab.wav"));
  EXPECT_FALSE(matches("a?.wav", "a.wav"));
  EXPECT_FALSE(matches("a?.wav", "abc.wav"));
  EXPECT_TRUE(matches("tema.vi?", "tema.vip"));
}

TEST(Wildcard, a_pattern_without_wildcards_fits_its_own_name) {
  EXPECT_TRUE(matches("tema.vip", "tema.vip"));
  EXPECT_FALSE(matches("tema.vip", "tema2.vip"));
  EXPECT_FALSE(matches("tema", "tem"));
  EXPECT_FALSE(matches("", "tema"));
  EXPECT_TRUE(matches("", ""));
}

TEST(Wildcard, case_is_ignored_with_accents_too) {
  EXPECT_TRUE(matches("*.WAV", "a.wav"));
  EXPECT_TRUE(matches("*.wav", "A.WaV"));
  EXPECT_TRUE(matches("canci\xF3n*", "CANCI\xD3N.wav"));
}

TEST(Wildcard, star_dot_star_fits_names_without_a_dot) {
  EXPECT_TRUE(matches("*.*", "name"));
  EXPECT_TRUE(matches("*.*", "a.b.c"));
  EXPECT_TRUE(matches("*", "name"));
}

TEST(Wildcard, three_characters_of_extension_find_longer_ones_that_begin_with_them) {
  EXPECT_TRUE(matches("*.fla", "x.flac"));
  EXPECT_TRUE(matches("*.fla", "X.FLAC"));
  EXPECT_TRUE(matches("*.fla", "x.fla"));
  EXPECT_TRUE(matches("*.vip", "x.vip_old"));
  EXPECT_TRUE(matches("*.aif", "x.aiff"));
  EXPECT_FALSE(matches("*.fla", "x.fl"));
  EXPECT_FALSE(matches("*.fla", "x.flc"));
  EXPECT_FALSE(matches("*.vip", "x.vip.bak")) << "only the last extension counts";
}

TEST(Wildcard, the_rule_for_longer_extensions_is_only_for_patterns_with_wildcards) {
  EXPECT_FALSE(matches("x.fla", "x.flac"));
  EXPECT_FALSE(matches("tema.vip", "tema.vip_old"));
  EXPECT_TRUE(matches("?.fla", "x.flac"));
  EXPECT_TRUE(matches("x.fl?", "x.flac"));
  EXPECT_TRUE(matches("x.fla", "X.FLA"));
}

TEST(Wildcard, an_extension_of_another_length_finds_only_itself) {
  EXPECT_TRUE(matches("*.h2", "x.h2"));
  EXPECT_FALSE(matches("*.h2", "x.h2x"));
  EXPECT_FALSE(matches("*.flac", "x.flac2"));
  EXPECT_FALSE(matches("*.w", "x.wav"));
}

TEST(Wildcard, the_part_before_a_longer_extension_still_has_to_fit) {
  EXPECT_TRUE(matches("tema*.vip", "tema1.vip_old"));
  EXPECT_FALSE(matches("tema*.vip", "otro.vip_old"));
}

TEST(Wildcard, stars_that_could_be_tried_without_end_end_at_once) {
  // Trying each star against each place would take thousands of years.
  const std::string name(20'000, 'a');
  std::string pattern;
  for (int i = 0; i < 30; ++i) pattern += "*a";
  EXPECT_FALSE(matches("*a*a*a*b", name));
  EXPECT_FALSE(matches(pattern + "*b", name));
  EXPECT_TRUE(matches(pattern + "*", name));
}

// Says the same in the plainest way, without the rule for longer extensions.
bool fits_literally(std::string_view pattern, std::string_view name) {
  if (pattern.empty()) return name.empty();
  if (pattern[0] == '*') {
    return fits_literally(pattern.substr(1), name) ||
           (!name.empty() && fits_literally(pattern, name.substr(1)));
  }
  return !name.empty() && (pattern[0] == '?' || pattern[0] == name[0]) &&
         fits_literally(pattern.substr(1), name.substr(1));
}

// Every text of up to `length` characters out of `letters`.
void every_text(const std::string& letters, std::size_t length, const std::string& begun,
                const std::function<void(const std::string&)>& visit) {
  visit(begun);
  if (begun.size() == length) return;
  for (const char c : letters) every_text(letters, length, begun + c, visit);
}

TEST(Wildcard, agrees_with_the_plain_rule_on_every_short_pattern_and_name) {
  int fitting = 0;
  every_text("ab?*", 5, "", [&](const std::string& pattern) {
    every_text("ab", 5, "", [&](const std::string& name) {
      const bool fits = fits_literally(pattern, name);
      fitting += fits ? 1 : 0;
      ASSERT_EQ(matches(pattern, name), fits) << pattern << " and " << name;
    });
  });
  EXPECT_GT(fitting, 1000);
}

}  // namespace
}  // namespace ordelan::test
