// The search for file names in the bytes of projects.
#include "project/name_search.h"

#include <gtest/gtest.h>

namespace ordelan::test {
namespace {

using project::NameSearch;

bool finds(const std::string& name, const std::string& bytes) {
  NameSearch search({name});
  search.feed(bytes);
  return search.found(0);
}

std::string utf16(const std::string& text) {
  std::string wide;
  for (const char c : text) wide += std::string{c, '\0'};
  return wide;
}

TEST(NameSearch, finds_names_in_the_code_page_in_UTF_8_and_in_UTF_16) {
  EXPECT_TRUE(finds("a.wma", "xx D:\\a.wma yy"));
  EXPECT_TRUE(finds("Canci\xF3n.wma", "CANCI\xD3N.WMA"));
  EXPECT_TRUE(finds("Canci\xF3n.wma", "canci\xC3\xB3n.wma"));
  EXPECT_TRUE(finds("Canci\xF3n.wma", "CANCI\xC3\x93N.wma"));
  EXPECT_TRUE(finds("a.wma", utf16("D:\\A.WMA")));
  EXPECT_TRUE(finds("a.wma", "x" + utf16("a.wma"))) << "at an odd offset";
  EXPECT_TRUE(finds("\x8Aota.wma", std::string("\x61\x01o\0t\0a\0.\0w\0m\0a\0", 16)))
      << "U+0161 is the small letter of U+0160";
}

TEST(NameSearch, finds_nothing_else) {
  EXPECT_FALSE(finds("a.wma", "b.wma a.wm a.m4a a wma"));
  EXPECT_FALSE(finds("ab.wma", "b.wma"));
  EXPECT_FALSE(finds("a.wma", ""));
  EXPECT_FALSE(finds("a.wma", utf16("b.wma")));
}

TEST(NameSearch, finds_a_name_across_two_pieces_but_not_across_two_files) {
  const std::string bytes = "D:\\Mix\\una toma larga.wma";
  for (std::size_t cut = 1; cut < bytes.size(); ++cut) {
    NameSearch search({"una toma larga.wma"});
    search.feed(bytes.substr(0, cut));
    search.feed(bytes.substr(cut));
    EXPECT_TRUE(search.found(0)) << cut;
  }
  NameSearch search({"ab.wma"});
  search.feed("a");
  search.end_of_file();
  search.feed("b.wma");
  EXPECT_FALSE(search.found(0));
}

TEST(NameSearch, reports_which_of_many_names_stand_there) {
  NameSearch search({"a.wma", "b.m4a", "c.wma", "A.WMA"});
  search.feed("a.wma, c.WMA");
  EXPECT_TRUE(search.found(0));
  EXPECT_FALSE(search.found(1));
  EXPECT_TRUE(search.found(2));
  EXPECT_TRUE(search.found(3));
}

TEST(NameSearch, finds_the_longest_names_in_UTF_16_across_two_pieces) {
  const std::string name = std::string(251, 'n') + ".wma";
  const std::string bytes = std::string(2000, '\0') + utf16(name);
  for (const std::size_t from_end : {1, 2, 255, 509, 510}) {
    NameSearch search({name});
    search.feed(bytes.substr(0, bytes.size() - from_end));
    EXPECT_FALSE(search.found(0)) << from_end;
    search.feed(bytes.substr(bytes.size() - from_end));
    EXPECT_TRUE(search.found(0)) << from_end;
  }
}

TEST(NameSearch, finds_a_name_in_pieces_of_one_byte_each) {
  NameSearch search({"a toma.wma", "b.m4a"});
  for (const char c : std::string("D:\\Mix\\A TOMA.WMA")) search.feed({&c, 1});
  EXPECT_TRUE(search.found(0));
  EXPECT_FALSE(search.found(1));
}

TEST(NameSearch, finds_a_name_that_begins_the_file_or_follows_another_at_once) {
  NameSearch search({"a.wma", "bb.wma", "long name.wma", "a.m4a"});
  NameSearch longest_first({"long name.wma", "a.wma"});
  longest_first.feed("a.wma");
  EXPECT_TRUE(longest_first.found(1)) << "the file has no room for the longer one before it";
  EXPECT_FALSE(longest_first.found(0));
  search.feed("a.wmabb.wma");
  EXPECT_TRUE(search.found(0));
  EXPECT_TRUE(search.found(1));
  EXPECT_FALSE(search.found(2));
  EXPECT_FALSE(search.found(3));
}

TEST(NameSearch, nothing_is_searched_for_where_there_are_no_names) {
  NameSearch search({});
  search.feed("a.wma");
  NameSearch one({"a.wma"});
  EXPECT_FALSE(one.found(0));
}

TEST(NameSearch, a_short_name_has_its_mark_among_the_eight_letters_before_the_extension) {
  EXPECT_TRUE(finds("una toma larga.wma", "A~1.WMA")) << "at the very beginning";
  EXPECT_TRUE(finds("una toma larga.wma", "~1.wma"));
  EXPECT_TRUE(finds("una toma larga.wma", "D:\\~1234567.wma"));
  EXPECT_FALSE(finds("una toma larga.wma", "D:\\~12345678.wma")) << "nine letters";
  EXPECT_FALSE(finds("una toma larga.wma", "D:\\~.m4a"));
  EXPECT_FALSE(finds("una toma larga.wma", "D:\\a.wma~1")) << "after the extension";
  EXPECT_FALSE(finds("una toma larga.wma", "D:\\a.wma ~1.m4a"));
}

TEST(NameSearch, a_short_name_may_mean_any_file_of_its_extension) {
  NameSearch search({"una toma larga.wma", "b.m4a", "c.wma"});
  search.feed("D:\\UNATOM~1.WMA");
  EXPECT_TRUE(search.found(0));
  EXPECT_FALSE(search.found(1));
  EXPECT_TRUE(search.found(2));
}

}  // namespace
}  // namespace ordelan::test
