#include "win32/ansi_text.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "win32/ports/extended_path.h"

namespace ordelan::win32 {
namespace {

TEST(AnsiText, every_byte_survives_the_way_there_and_back) {
  if (GetACP() != 1252) GTEST_SKIP() << "only where each byte is a character";
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text = {'a', static_cast<char>(byte), 'z'};
    const std::wstring wide = widen(text);
    EXPECT_EQ(wide.size(), 3u) << byte;
    EXPECT_EQ(narrow(wide), text) << byte;
  }
  EXPECT_EQ(widen("a\xF1o \x80"), L"a\u00F1o \u20AC");
}

TEST(AnsiText, empty_text_is_empty) {
  EXPECT_EQ(widen(""), L"");
  EXPECT_EQ(narrow(L""), "");
}

TEST(AnsiText, what_the_code_page_lacks_or_only_resembles_gives_nothing) {
  if (GetACP() != 1252) GTEST_SKIP() << "the examples are of the western code page";
  EXPECT_EQ(narrow(L"tema \u0416.wav"), std::nullopt);
  EXPECT_EQ(narrow(L"\u6F22"), std::nullopt);
  EXPECT_EQ(narrow(L"\u0101.wav"), std::nullopt);  // an a with a bar, which resembles an a
  EXPECT_EQ(narrow(L"\uFF21.wav"), std::nullopt);  // a wide A
  EXPECT_EQ(narrow(L"\xD800.wav"), std::nullopt);  // half a character
}

TEST(AnsiText, an_existing_text_is_replaced_by_the_narrow_one) {
  std::string ansi = "what stood there before";
  EXPECT_TRUE(narrow(L"a.wav", ansi));
  EXPECT_EQ(ansi, "a.wav");
  EXPECT_FALSE(narrow(L"\uFFFF.wav", ansi));
  EXPECT_TRUE(narrow(widen("a\xF1o"), ansi));
  EXPECT_EQ(ansi, "a\xF1o");
  EXPECT_TRUE(narrow(L"", ansi));
  EXPECT_EQ(ansi, "");
}

TEST(AnsiText, marks_stand_for_what_is_lacking_where_nothing_is_named) {
  if (GetACP() != 1252) GTEST_SKIP() << "the example is of the western code page";
  EXPECT_EQ(narrow_with_marks(L"a\u0416\u00F1"), "a?\xF1");
}

TEST(ExtendedPath, absolute_paths_are_taken_literally) {
  EXPECT_EQ(extended_path("D:\\Mix\\a.vip"), L"\\\\?\\D:\\Mix\\a.vip");
  EXPECT_EQ(extended_path("d:/Mix//a.vip"), L"\\\\?\\d:\\Mix\\a.vip");
  EXPECT_EQ(extended_path("\\\\nas\\audio\\a.vip"), L"\\\\?\\UNC\\nas\\audio\\a.vip");
  EXPECT_EQ(extended_path("D:\\"), L"\\\\?\\D:\\");
  EXPECT_EQ(extended_path("D:\\Mix\\"), L"\\\\?\\D:\\Mix\\");
  EXPECT_EQ(extended_path("\\\\nas\\audio"), L"\\\\?\\UNC\\nas\\audio");
}

TEST(ExtendedPath, blanks_and_dots_at_the_end_of_names_stay) {
  EXPECT_EQ(extended_path("D:\\Mix \\a.vip."), L"\\\\?\\D:\\Mix \\a.vip.");
  EXPECT_EQ(extended_path("D:\\...\\a"), L"\\\\?\\D:\\...\\a");
}

TEST(ExtendedPath, dots_between_backslashes_are_followed_but_never_above_the_root) {
  EXPECT_EQ(extended_path("D:\\Mix\\.\\..\\a.vip"), L"\\\\?\\D:\\a.vip");
  EXPECT_EQ(extended_path("D:\\..\\..\\a.vip"), L"\\\\?\\D:\\a.vip");
  EXPECT_EQ(extended_path("\\\\nas\\audio\\..\\..\\a.vip"), L"\\\\?\\UNC\\nas\\audio\\a.vip");
  EXPECT_EQ(extended_path("D:\\Mix\\.."), L"\\\\?\\D:\\");
}

TEST(ExtendedPath, everything_else_gives_nothing) {
  using namespace std::string_literals;
  for (const std::string& path : {""s,
                                  "a.vip"s,
                                  "Mix\\a.vip"s,
                                  "\\Mix\\a.vip"s,
                                  "D:"s,
                                  "D:a.vip"s,
                                  "1:\\a.vip"s,
                                  "D:\\a*.vip"s,
                                  "D:\\a?.vip"s,
                                  "D:\\a<b"s,
                                  "D:\\a|b"s,
                                  "D:\\a\"b"s,
                                  "D:\\a\0b"s,
                                  "D:\\a.vip:otro"s,
                                  "\\\\?\\D:\\a.vip"s,
                                  "\\\\.\\D:"s,
                                  "\\\\.\\PhysicalDrive0\\x"s,
                                  "\\\\"s,
                                  "\\\\nas"s,
                                  "\\\\\\nas\\audio"s}) {
    EXPECT_EQ(extended_path(path), std::nullopt) << path;
  }
}

TEST(ExtendedPath, roots_are_distinguished_from_folders) {
  EXPECT_TRUE(is_root(*extended_path("D:\\")));
  EXPECT_TRUE(is_root(*extended_path("\\\\nas\\audio")));
  EXPECT_TRUE(is_root(*extended_path("\\\\nas\\audio\\")));
  EXPECT_FALSE(is_root(*extended_path("D:\\Mix")));
  EXPECT_FALSE(is_root(*extended_path("\\\\nas\\audio\\Mix")));
}

}  // namespace
}  // namespace ordelan::win32
