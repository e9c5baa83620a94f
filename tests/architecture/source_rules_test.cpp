// The rules themselves, on files that break them.
#include "architecture/source_rules.h"

#include <gmock/gmock.h>

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::string including(std::initializer_list<std::string> names) {
  std::string content = "// A file.\n";
  for (const std::string& name : names) content += "#include \"" + name + "\"\n";
  return content;
}

std::vector<std::string> names_in(std::string_view content) {
  std::vector<std::string> names;
  for (const Include& include : includes_of(content)) names.push_back(include.name);
  return names;
}

TEST(SourceRules, includes_of_both_kinds_are_found) {
  const auto includes =
      includes_of("#include \"text/a.h\"\n  #  include <vector>\n#include<c.h>\n");
  ASSERT_THAT(includes, SizeIs(3));
  EXPECT_EQ(includes[0].name, "text/a.h");
  EXPECT_FALSE(includes[0].system);
  EXPECT_EQ(includes[1].name, "vector");
  EXPECT_TRUE(includes[1].system);
  EXPECT_EQ(includes[2].name, "c.h");
}

TEST(SourceRules, an_include_in_a_comment_is_none) {
  EXPECT_THAT(
      names_in("// #include \"a/a.h\"\n/* \n#include \"a/b.h\"\n*/\n#include \"a/c.h\"  // x\n"),
      ElementsAre("a/c.h"));
}

TEST(SourceRules, texts_that_look_like_comments_hide_nothing) {
  EXPECT_THAT(names_in("auto a = \"/*\";\n#include \"a/a.h\"\n"), ElementsAre("a/a.h"));
  EXPECT_THAT(names_in("auto a = \"\\\"/*\"; auto b = '\"'; // \"\n#include \"a/a.h\"\n"),
              ElementsAre("a/a.h"));
  EXPECT_THAT(names_in("int a = 1'000; /* ' */\n#include \"a/a.h\"\n"), ElementsAre("a/a.h"));
}

TEST(SourceRules, an_include_that_goes_on_in_the_next_line_is_found) {
  EXPECT_THAT(names_in("#include \\\n  \"a/a.h\"\nint x;\n"), ElementsAre("a/a.h"));
}

TEST(SourceRules, a_file_may_use_its_own_room_and_those_below) {
  const Sources sources = {{"text/a.h", ""},
                           {"text/b.h", including({"text/a.h"})},
                           {"ui/a.h", including({"text/a.h"})},
                           {"work/a.h", including({"ui/a.h", "text/b.h"})},
                           {"posix/a.h", including({"ui/a.h"})},
                           {"app/a.cpp", including({"work/a.h", "posix/a.h"})}};
  EXPECT_THAT(upward_includes(sources), IsEmpty());
}

// Every include that would go up or sideways.
struct WrongArrow : ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(WrongArrow, is_complained_of) {
  const auto [from, to] = GetParam();
  const Sources sources = {{from, including({to})}, {to, ""}};
  EXPECT_THAT(upward_includes(sources), ElementsAre(HasSubstr(from)));
}

INSTANTIATE_TEST_SUITE_P(
    Rooms, WrongArrow,
    ::testing::Values(
        std::pair{"text/a.h", "skin/a.h"}, std::pair{"text/a.h", "system/a.h"},
        std::pair{"skin/a.h", "text/a.h"}, std::pair{"system/a.h", "ui/a.h"},
        std::pair{"ui/a.h", "system/a.h"}, std::pair{"ui/a.h", "skin/a.h"},
        std::pair{"settings/a.h", "ui/a.h"}, std::pair{"settings/a.h", "work/a.h"},
        std::pair{"work/a.h", "project/a.h"}, std::pair{"work/a.h", "posix/a.h"},
        std::pair{"project/a.h", "main_window/a.h"}, std::pair{"project/a.h", "location/a.h"},
        std::pair{"project/a.h", "headless/a.h"}, std::pair{"location/a.h", "relink/a.h"},
        std::pair{"removal/a.h", "relink/a.h"}, std::pair{"audio/a.h", "removal/a.h"},
        std::pair{"relink/a.h", "main_window/a.h"}, std::pair{"audio/a.h", "relink/a.h"},
        std::pair{"audio/a.h", "win32/a.h"}, std::pair{"headless/a.h", "work/a.h"},
        std::pair{"posix/a.h", "headless/a.h"}, std::pair{"win32/a.h", "posix/a.h"},
        std::pair{"win32/a.h", "skin/a.h"}, std::pair{"win32/a.h", "win32/ports/a.h"},
        std::pair{"win32/paint/a.h", "win32/peers/a.h"},
        std::pair{"win32/ports/a.h", "win32/paint/a.h"},
        std::pair{"win32/ports/a.h", "win32/peers/a.h"},
        std::pair{"win32/peers/a.h", "win32/ports/a.h"}, std::pair{"main_window/a.h", "win32/a.h"},
        std::pair{"location/a.h", "app/a.h"}, std::pair{"win32/a.h", "app/a.h"}));

TEST(SourceRules, an_include_that_names_no_room_or_no_file_is_complained_of) {
  EXPECT_THAT(upward_includes({{"text/a.h", including({"b.h"})}}), SizeIs(1));
  EXPECT_THAT(upward_includes({{"text/a.h", including({"../text/b.h"})}}), SizeIs(1));
  EXPECT_THAT(upward_includes({{"text/a.h", including({"cellar/b.h"})}}), SizeIs(1));
  EXPECT_THAT(upward_includes({{"text/a.h", including({"text/gone.h"})}}), SizeIs(1));
}

TEST(SourceRules, a_file_in_no_known_room_is_complained_of) {
  EXPECT_THAT(upward_includes({{"cellar/a.h", ""}}), SizeIs(1));
  EXPECT_THAT(upward_includes({{"a.h", ""}}), SizeIs(1));
}

TEST(SourceRules, a_circle_is_found_however_long_it_is) {
  EXPECT_THAT(circles({{"a/a.h", including({"a/a.h"})}}), ElementsAre("a/a.h -> a/a.h"));
  EXPECT_THAT(circles({{"a/a.h", including({"a/b.h"})},
                       {"a/b.h", including({"a/c.h"})},
                       {"a/c.h", including({"a/d.h", "a/a.h"})},
                       {"a/d.h", ""},
                       {"a/e.h", including({"a/a.h"})}}),
              ElementsAre("a/a.h -> a/b.h -> a/c.h -> a/a.h"));
}

TEST(SourceRules, two_ways_to_one_file_are_no_circle) {
  EXPECT_THAT(circles({{"a/a.h", including({"a/b.h", "a/c.h"})},
                       {"a/b.h", including({"a/d.h"})},
                       {"a/c.h", including({"a/d.h"})},
                       {"a/d.h", ""}}),
              IsEmpty());
}

TEST(SourceRules, windows_headers_stay_with_windows) {
  for (const char* header : {"windows.h", "Windows.h", "commctrl.h", "shlobj.h", "windowsx.h",
                             "winuser.h", "shellapi.h", "mfapi.h"}) {
    const std::string content = std::string("#include <") + header + ">\n";
    for (const char* place : {"win32/a.cpp", "win32/a.h", "app/windows_main.cpp"}) {
      EXPECT_THAT(misplaced_system_headers({{place, content}}), IsEmpty()) << place;
    }
    for (const char* place : {"ui/a.cpp", "posix/a.cpp", "app/console.cpp", "app/windows_x.h",
                              "app/posix_main.cpp", "text/win32/a.cpp"}) {
      EXPECT_THAT(misplaced_system_headers({{place, content}}), SizeIs(1)) << place << header;
    }
  }
}

TEST(SourceRules, the_headers_of_linux_stay_with_it) {
  const std::string content = "#include <sys/stat.h>\n#include <unistd.h>\n";
  EXPECT_THAT(misplaced_system_headers({{"posix/a.cpp", content}}), IsEmpty());
  EXPECT_THAT(misplaced_system_headers({{"app/posix_console_main.cpp", content}}), IsEmpty());
  EXPECT_THAT(misplaced_system_headers({{"system/a.cpp", content}}), SizeIs(2));
}

TEST(SourceRules, the_standard_library_and_the_processor_are_everywhere) {
  const std::string content = "#include <vector>\n#include <emmintrin.h>\n#include <CLI/CLI.hpp>\n";
  EXPECT_THAT(misplaced_system_headers({{"text/a.cpp", content}}), IsEmpty());
}

TEST(SourceRules, asking_which_system_it_is_is_complained_of) {
  for (const char* line :
       {"#ifdef _WIN32", "#ifndef _WIN32", "#if defined(_WIN32)", "  #  if !defined(__linux__)",
        "#elif defined(__linux__)", "#if defined(A) || \\\n    defined(_WIN64)", "#if __MINGW64__",
        "#ifdef __unix__"}) {
    EXPECT_THAT(questions_for_the_system({{"text/a.cpp", std::string(line) + "\n#endif\n"}}),
                SizeIs(1))
        << line;
  }
}

TEST(SourceRules, asking_for_what_the_processor_can_is_not) {
  for (const char* line : {"#if defined(__SSE2__) || defined(_M_X64)", "#ifdef ORDELAN_SSE2",
                           "// #ifdef _WIN32", "#if MY_WIN32_THING", "int _WIN32;"}) {
    EXPECT_THAT(questions_for_the_system({{"text/a.cpp", std::string(line) + "\n"}}), IsEmpty())
        << line;
  }
}

TEST(SourceRules, a_file_has_four_hundred_lines_at_most) {
  std::string content;
  for (int i = 0; i < 400; ++i) content += "x\n";
  EXPECT_THAT(files_that_are_too_long({{"text/a.cpp", content}}), IsEmpty());
  EXPECT_THAT(files_that_are_too_long({{"text/a.cpp", content + "x"}}), SizeIs(1));
  EXPECT_THAT(files_that_are_too_long({{"text/a.cpp", content + "\n"}}), SizeIs(1));
  EXPECT_THAT(files_that_are_too_long({{"text/a.cpp", ""}}), IsEmpty());
}

TEST(SourceRules, a_header_has_its_comment_and_its_guard) {
  const auto head = [](const std::string& content) {
    return headers_without_their_head({{"text/a.h", content}});
  };
  EXPECT_THAT(head("// What it is.\n#pragma once\n\n#include <vector>\n"), IsEmpty());
  EXPECT_THAT(head("#pragma once\n"), SizeIs(1));
  EXPECT_THAT(head("// What it is.\nint x;\n"), SizeIs(1));
  EXPECT_THAT(head("// What it is. #pragma once\nint x;\n"), SizeIs(1));
  EXPECT_THAT(head("// What it is.\n#include <vector>\n#pragma once\n"), SizeIs(1));
  EXPECT_THAT(head(""), SizeIs(2));
  EXPECT_THAT(headers_without_their_head({{"text/a.cpp", "int x;\n"}}), IsEmpty());
}

}  // namespace
}  // namespace ordelan::test
