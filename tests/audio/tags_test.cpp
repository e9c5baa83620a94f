#include "audio/tags.h"

#include <gtest/gtest.h>

namespace ordelan::test {
namespace {

using audio::Etiquetas;

TEST(Tags, texts_lose_the_blanks_at_their_ends_and_what_follows_a_nul) {
  Etiquetas tags;
  audio::add_tag(tags, " Title ", std::string(" \t\r\n a \t b \r\n\t \0 c", 19));
  EXPECT_EQ(tags, (Etiquetas{{"title", "a \t b"}}));
}

TEST(Tags, empty_names_and_texts_are_left_out) {
  Etiquetas tags;
  audio::add_tag(tags, "", "text");
  audio::add_tag(tags, "title", " \r\n");
  audio::add_missing_tag(tags, "title", "");
  EXPECT_TRUE(tags.empty());
}

TEST(Tags, another_text_of_a_name_is_joined_once) {
  Etiquetas tags;
  audio::add_tag(tags, "artist", "uno");
  audio::add_tag(tags, "ARTIST", "uno");
  EXPECT_EQ(tags, (Etiquetas{{"artist", "uno"}}));
  audio::add_tag(tags, "artist", "dos");
  EXPECT_EQ(tags, (Etiquetas{{"artist", "uno; dos"}}));
  audio::add_missing_tag(tags, "artist", "tres");
  EXPECT_EQ(tags, (Etiquetas{{"artist", "uno; dos"}}));
  audio::add_missing_tag(tags, "album", "tres");
  EXPECT_EQ(tags.size(), 2u);
}

TEST(Tags, there_are_only_so_many_and_so_long_ones) {
  Etiquetas tags;
  audio::add_tag(tags, "long", std::string(2 * audio::kMostText, 'x'));
  EXPECT_EQ(tags[0].second.size(), audio::kMostText);
  audio::add_tag(tags, "long", "y");
  EXPECT_EQ(tags[0].second.size(), audio::kMostText);
  audio::add_tag(tags, "near", std::string(audio::kMostText - 3, 'x'));
  audio::add_tag(tags, "near", "y");
  EXPECT_EQ(tags[1].second.size(), audio::kMostText) << "the last one that fits";
  for (int i = 0; i < 300; ++i) audio::add_tag(tags, "n" + std::to_string(i), "x");
  EXPECT_EQ(tags.size(), audio::kMostTags);
}

TEST(Tags, bytes_are_utf8_where_they_can_be) {
  EXPECT_EQ(audio::text_of("Canci\xC3\xB3n"), "Canci\xF3n");
  EXPECT_EQ(audio::text_of("Canci\xF3n"), "Canci\xF3n");
  EXPECT_EQ(audio::text_of("\xEF\xBB\xBF"
                           "a\xC3\xB1o"),
            "a\xF1o");
  EXPECT_EQ(audio::text_of("\xE2\x82\xAC \xE6\x97\xA5"), "\x80 ?");
  EXPECT_EQ(audio::text_of(""), "");
}

TEST(Tags, a_character_that_was_cut_at_the_end_is_dropped) {
  EXPECT_EQ(audio::text_of("a\xC3\xB1o\xC3"), "a\xF1o");
  EXPECT_EQ(audio::text_of("a\xC3\xB1o\xE2\x82"), "a\xF1o");
  EXPECT_EQ(audio::text_of("a\xC3\xB1o\xF0\x9F\x98"), "a\xF1o");
  EXPECT_EQ(audio::text_of("a\xC3\xB1o\xF0\x9F\x98\x80"), "a\xF1o?");
  EXPECT_EQ(audio::text_of("a\xF1o \xD1"), "a\xF1o \xD1") << "the page's own letters stay";
}

TEST(Tags, utf16_comes_in_both_orders_and_in_pairs) {
  const auto wide = [](std::string_view bytes, bool big) {
    return audio::text_of_utf16(bytes, big);
  };
  EXPECT_EQ(wide(std::string_view("a\0\xF1\0", 4), false), "a\xF1");
  EXPECT_EQ(wide(std::string_view("\0a\0\xF1", 4), true), "a\xF1");
  EXPECT_EQ(wide(std::string_view("\xFE\xFF\0a", 4), false), "a");
  EXPECT_EQ(wide(std::string_view("\xFF\xFE"
                                  "a\0",
                                  4),
                 true),
            "a");
  EXPECT_EQ(wide(std::string_view("\x3D\xD8\x00\xDE"
                                  "a\0",
                                  6),
                 false),
            "?a")
      << "one character";
  EXPECT_EQ(wide(std::string_view("\x3D\xD8"
                                  "a\0",
                                  4),
                 false),
            "?a")
      << "half a character";
  EXPECT_EQ(wide(std::string_view("a\0b", 3), false), "a");
}

TEST(Tags, genres_have_numbers) {
  EXPECT_EQ(audio::genre_name(0), "Blues");
  EXPECT_EQ(audio::genre_name(17), "Rock");
  EXPECT_EQ(audio::genre_name(79), "Hard Rock");
  EXPECT_EQ(audio::genre_name(80), "Folk");
  EXPECT_EQ(audio::genre_name(125), "Dance Hall");
  EXPECT_EQ(audio::genre_name(126), "");
  EXPECT_EQ(audio::genre_name(255), "");
}

}  // namespace
}  // namespace ordelan::test
