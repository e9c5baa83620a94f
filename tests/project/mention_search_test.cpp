// The search for mentions of file names in the bytes of projects.
#include "project/mention_search.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "project/mention_agreement.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

using Names = std::vector<std::string>;

std::set<LiteralMention> mentions(const Names& names, const std::string& file) {
  const auto found = found_mentions(names, file, file.size() + 1);
  for (std::size_t piece = 1; piece < 40; piece += 3) {
    EXPECT_EQ(found_mentions(names, file, piece), found) << "in pieces of " << piece;
  }
  EXPECT_EQ(literal_mentions(names, file), found) << "by the literal search";
  return found;
}

// The paths by which a name is mentioned, with its end, "" for one without.
std::vector<std::string> paths(const std::string& name, const std::string& file) {
  std::vector<std::string> found;
  for (const auto& [i, path, other, firm] : mentions({name}, file)) {
    if (!firm) continue;
    found.push_back(path);
    if (!other.empty()) found.push_back(other);
  }
  return found;
}

bool mentioned(const std::string& name, const std::string& file) {
  return !mentions({name}, file).empty();
}

std::string nul(std::size_t count = 1) {
  return std::string(count, '\0');
}

TEST(MentionSearch, finds_names_in_the_code_page_in_UTF_8_and_in_UTF_16_at_any_offset) {
  const std::string name = "Canci\xF3n \x80.wav";
  for (const std::string& before : {std::string(), nul(1), nul(2), nul(3)}) {
    EXPECT_THAT(paths(name, before + name), ElementsAre("")) << before.size();
    EXPECT_THAT(paths(name, before + text::to_utf8(name)), ElementsAre("")) << before.size();
    EXPECT_THAT(paths(name, before + utf16_of(name)), ElementsAre("")) << before.size();
  }
}

TEST(MentionSearch, ignores_letter_case_as_the_disk_does) {
  const std::string name = "\xD1u\x9A.wav";
  const std::string spelt = "\xF1U\x8A.WAV";
  EXPECT_TRUE(mentioned(name, spelt));
  EXPECT_TRUE(mentioned(name, text::to_utf8(spelt)));
  EXPECT_TRUE(mentioned(name, utf16_of(spelt)));
  EXPECT_FALSE(mentioned(name, "nu\x9A.wav"));
}

TEST(MentionSearch, a_name_does_not_begin_in_the_middle_of_another) {
  for (const std::string before :
       {"vocal", "take ", "x", "_", "-", ".", "7", "\xF3", ")", "!", "&", "x  "}) {
    EXPECT_FALSE(mentioned("a.wav", before + "a.wav")) << before;
    EXPECT_FALSE(mentioned("a.wav", text::to_utf8(before) + "a.wav")) << before;
    EXPECT_FALSE(mentioned("a.wav", utf16_of("|" + before + "a.wav"))) << before;
  }
}

TEST(MentionSearch, a_name_begins_after_what_no_name_holds_and_after_signs_and_their_blanks) {
  for (const char before : std::string("\\/:*?\"<>|\t\n\x01\x1F=,;'([{")) {
    for (const char* blanks : {"", " ", "   "}) {
      const std::string file = std::string("x") + before + blanks + "a.wav";
      EXPECT_THAT(paths("a.wav", file), ElementsAre("")) << file;
      EXPECT_THAT(paths("a.wav", utf16_of(file)), ElementsAre("")) << file;
    }
  }
  EXPECT_TRUE(mentioned("a.wav", "  a.wav")) << "at the start of the file";
  EXPECT_TRUE(mentioned("a.wav", "x" + nul() + "a.wav")) << "after another text's NUL";
  EXPECT_TRUE(mentioned("a.wav", "x" + std::string(300, ' ') + "a.wav")) << "in a table";
}

TEST(MentionSearch, UTF_16_may_follow_8_bit_text_and_its_single_NUL) {
  EXPECT_THAT(paths("a.wav", "D:\\x.wav" + nul() + utf16_of("a.wav")), ElementsAre(""));
  EXPECT_THAT(paths("a.wav", "D:\\x.wav" + nul() + utf16_of("E:\\a.wav")),
              ElementsAre("E:\\a.wav"));
}

TEST(MentionSearch, finds_names_whole_that_hold_signs_blanks_and_dots) {
  for (const std::string name : {"a (2).wav", "a=b.wav", "a.b.c.wav", "[x], {y}; 'z'.wav", " a.wav",
                                 "a .wav", ".wav", "a.wav.wav", "(a).wav"}) {
    EXPECT_THAT(paths(name, "D:\\Mix\\" + name), ElementsAre("D:\\Mix\\" + name));
    EXPECT_THAT(paths(name, utf16_of("D:\\Mix\\" + name + "\"")), ElementsAre("D:\\Mix\\" + name));
  }
}

TEST(MentionSearch, a_name_does_not_end_before_letters_digits_or_a_further_extension) {
  for (const std::string after : {"e", "E", "2", "_", "-", "\xE9", "\x8A", ".bak", ".7", ".\xF1"}) {
    EXPECT_FALSE(mentioned("a.wav", "a.wav" + after)) << after;
    EXPECT_FALSE(mentioned("a.wav", "a.wav" + text::to_utf8(after))) << after;
    EXPECT_FALSE(mentioned("a.wav", utf16_of("a.wav" + after))) << after;
  }
  for (const std::string after : {"", " ", ".", "..", ". ", ";", ")", "\"", "\x80", "\xD7", "~"}) {
    EXPECT_TRUE(mentioned("a.wav", "a.wav" + after)) << after;
    EXPECT_TRUE(mentioned("a.wav", "a.wav" + text::to_utf8(after))) << after;
    EXPECT_TRUE(mentioned("a.wav", utf16_of("a.wav" + after))) << after;
  }
}

TEST(MentionSearch, a_length_before_a_name_makes_it_one_whatever_is_next_to_it) {
  const std::string wide = utf16_of("a.wav");
  for (const std::string length : {"\x05", "\x06"}) {
    for (const std::size_t zeros : {0u, 1u, 3u}) {
      const std::string before = "xxx" + length + nul(zeros);
      EXPECT_TRUE(mentioned("a.wav", before + "a.wavxxx")) << zeros;
      EXPECT_TRUE(mentioned("a.wav", before + wide + utf16_of("xxx"))) << zeros;
    }
  }
  for (const std::string length : {"\x0A", "\x0C"}) {
    EXPECT_TRUE(mentioned("a.wav", "xxx" + length + nul(3) + wide + utf16_of("xxx")));
  }
  // A length that is a letter.
  const std::string name = std::string(61, 'n') + ".wav";
  EXPECT_TRUE(mentioned(name, "xA" + name + "x"));
  EXPECT_FALSE(mentioned(name, "xZ" + name + "x"));
  EXPECT_FALSE(mentioned("a.wav",
                         "\x07"
                         "a.wavxxx"));
  // The bytes of UTF-8, and its characters.
  for (const char* length : {"\x05", "\x06"}) {
    EXPECT_TRUE(mentioned("\xF3.wav", std::string(length) + "\xC3\xB3.wavxxx")) << length;
  }
}

TEST(MentionSearch, a_length_before_the_path_does_so_too) {
  const std::string path = "D:\\Mix\\a.wav";  // 12 characters
  for (const std::string length : {"\x0C", "\x0D"}) {
    EXPECT_THAT(paths("a.wav", "xx" + length + nul() + path + "xxx"), ElementsAre(path));
    EXPECT_THAT(paths("a.wav", "xx" + length + nul(3) + utf16_of(path + "xxx")), ElementsAre(path));
  }
  EXPECT_THAT(paths("a.wav", "\x18" + nul() + utf16_of(path + "xxx")), ElementsAre(path));
  EXPECT_THAT(paths("a.wav", "\x0B" + nul() + path + "xxx"), IsEmpty());
  EXPECT_THAT(paths("a.wav", nul() + "\x09"
                                     "Mix\\a.wavxxx"),
              ElementsAre(""))
      << "a relative one";
}

TEST(MentionSearch, the_path_begins_at_the_nearest_drive) {
  EXPECT_THAT(paths("a.wav", "xxD:\\Mix\\a.wav"), ElementsAre("D:\\Mix\\a.wav"));
  EXPECT_THAT(paths("a.wav", "D:\\x.wavE:/Mix/Sub\\\\..\\a.wav"),
              ElementsAre("E:/Mix/Sub\\\\..\\a.wav"));
  EXPECT_THAT(paths("a.wav", "D:\\Mix\\x" + nul() + "y\\A.WAV"), ElementsAre(""));
  EXPECT_THAT(paths("a.wav", "D:\\Mix?\\a.wav"), ElementsAre(""));
  EXPECT_THAT(paths("a.wav", "\\\\servidor\\Mix\\a.wav"), ElementsAre(""));
  EXPECT_THAT(paths("a.wav", "D:a.wav"), ElementsAre(""));
  EXPECT_THAT(paths("a.wav", "7:\\a.wav"), ElementsAre(""));
  EXPECT_THAT(paths("a.wav", utf16_of("|D:\\Mix\\A.wav|")), ElementsAre("D:\\Mix\\A.wav"));
}

TEST(MentionSearch, the_path_may_be_four_thousand_characters_long) {
  for (const char letter : {'y', '\xE9'}) {
    const std::string path = "D:\\" + std::string(4'090, letter) + "\\a.wav";
    EXPECT_EQ(found_mentions({"a.wav"}, path, 1000),
              (std::set<LiteralMention>{{0, path, "", true}}));
    EXPECT_EQ(found_mentions({"a.wav"}, utf16_of(path), 1000),
              (std::set<LiteralMention>{{0, path, "", true}}));
    const auto utf8 = found_mentions({"a.wav"}, text::to_utf8(path), 1000);
    ASSERT_EQ(utf8.size(), 1u);
    EXPECT_EQ(letter == 'y' ? std::get<1>(*utf8.begin()) : std::get<2>(*utf8.begin()), path);
  }
  const std::string path = "D:\\" + std::string(20'000, 'y') + "\\a.wav";
  EXPECT_EQ(found_mentions({"a.wav"}, path, 1000), (std::set<LiteralMention>{{0, "", "", true}}));
}

TEST(MentionSearch, a_path_with_accents_has_both_8_bit_readings) {
  const std::string path = "D:\\M\xFAsica\\a.wav";
  EXPECT_THAT(paths("a.wav", path), ElementsAre(path));
  EXPECT_THAT(paths("a.wav", text::to_utf8(path)), ElementsAre(text::to_utf8(path), path));
  EXPECT_THAT(paths("a.wav", utf16_of(path)), ElementsAre(path));
}

TEST(MentionSearch, a_path_that_the_code_page_cannot_hold_is_unreadable) {
  const std::string wide = utf16_of("D:\\Mix\\") + std::string("\x16\x04", 2) + utf16_of("\\a.wav");
  EXPECT_THAT(paths("a.wav", wide), ElementsAre(""));
}

TEST(MentionSearch, each_different_mention_is_reported_once_in_a_file) {
  const project::MentionNames names({"a.wav"});
  std::vector<std::string> found;
  project::MentionSearch search(names, [&](const project::MentionSearch::Mention& mention) {
    found.emplace_back(mention.path);
  });
  search.feed("|a.wav|D:\\a.wav|a.wav|D:\\a.wav|D:\\A.wav|a.wav");
  search.end_of_file();
  EXPECT_THAT(found, UnorderedElementsAre("", "D:\\a.wav", "D:\\A.wav"));
  search.feed("a.w");
  search.end_of_file();
  search.feed("av a.wav|D:\\a.wav");
  search.end_of_file();
  EXPECT_THAT(found, UnorderedElementsAre("", "D:\\a.wav", "D:\\A.wav", "D:\\a.wav"));
}

TEST(MentionSearch, equal_names_are_mentioned_together) {
  const auto found = mentions({"a.wav", "b.wav", "A.WAV"}, "a.wav");
  EXPECT_EQ(found, (std::set<LiteralMention>{{0, "", "", true}, {2, "", "", true}}));
}

TEST(MentionSearch, a_short_name_may_mean_every_name_of_that_form) {
  const Names names = {"vocal alto.wav",
                       "vocala.wav",
                       "Vocal+alto 2.wave",
                       "otra.wav",
                       "vocal alto.flac",
                       "v\xF3"
                       "calalta.wav"};
  const auto places = [&](const std::string& file) {
    std::set<std::size_t> found;
    for (const auto& mention : mentions(names, file)) found.insert(std::get<0>(mention));
    return found;
  };
  using Places = std::set<std::size_t>;
  EXPECT_EQ(places("D:\\VOCALA~1.WAV"), (Places{0, 1, 2, 5}));
  EXPECT_EQ(places("vocal_~2.wav"), (Places{0, 1, 2, 5}));
  EXPECT_EQ(places("VOCAL~10.WAV"), (Places{0, 1, 2, 5}));
  EXPECT_EQ(places("VO12AF~1.WAV"), (Places{0, 1, 2, 5})) << "the form with a number";
  EXPECT_EQ(places("V\xD3"
                   "CALA~1.WAV"),
            (Places{0, 1, 2, 5}));
  EXPECT_EQ(places("VOCALA~1.FLA"), (Places{4}));
  EXPECT_EQ(places(utf16_of("D:\\VOCALA~1.FLA")), (Places{4}));
  EXPECT_EQ(places("VOCALB~1.WAV"), (Places{5}));
  EXPECT_EQ(places("XVOCALA~1.WAV"), Places{}) << "too long";
  EXPECT_EQ(places("VOCALA~X.WAV"), Places{});
  EXPECT_EQ(places("VOCALA~1.FLAC"), Places{});
  EXPECT_EQ(places("otra~1.wav"), (Places{3}));
  EXPECT_EQ(std::get<1>(*mentions({"vocal alto.wav"}, "D:\\MIX~1\\VOCALA~1.WAV").begin()),
            "D:\\MIX~1\\VOCALA~1.WAV");
}

TEST(MentionSearch, what_cannot_be_searched_for_is_said) {
  const project::MentionNames names(
      {"a.wav", "sin", "punto.", ".wav", std::string(256, 'a') + ".wav", "a|b.wav"});
  std::vector<bool> searchable;
  for (std::size_t i = 0; i < 6; ++i) searchable.push_back(names.searchable(i));
  EXPECT_THAT(searchable, ElementsAre(true, false, false, true, false, false));
}

TEST(MentionSearch, a_hostile_file_does_not_fill_the_memory) {
  const project::MentionNames names({"a.wav"});
  std::size_t text = 0;
  std::size_t without = 0;
  project::MentionSearch search(names, [&](const project::MentionSearch::Mention& mention) {
    text += mention.path.size();
    without += mention.path.empty() ? 1 : 0;
  });
  const std::string folder(10'000, 'y');
  for (int i = 0; i < 3'000; ++i) {
    search.feed("D:\\" + folder + std::to_string(i) + "\\a.wav" + nul());
  }
  search.end_of_file();
  EXPECT_LE(text, project::MentionSearch::kMostText + 11'000);
  EXPECT_EQ(without, 1u);
}

// ORDELAN_MENTION_FILES says how many: a million take some minutes, and much longer with the
// sanitizers of scripts/fuzz.
TEST(MentionSearch, agrees_with_the_literal_search_on_random_files) {
  const char* const files = std::getenv("ORDELAN_MENTION_FILES");
  const std::uint64_t count = files == nullptr ? 4'000 : std::strtoull(files, nullptr, 10);
  for (std::uint64_t seed = 0; seed < count; ++seed) {
    Dice dice(seed);
    std::string recipe;
    for (auto length = 4 + dice.below(24); length > 0; --length) {
      recipe += static_cast<char>(dice.below(dice.below(8) == 0 ? 256 : 254));
    }
    ASSERT_EQ(check_mentions(recipe), "") << "seed " << seed;
  }
}

}  // namespace
}  // namespace ordelan::test
