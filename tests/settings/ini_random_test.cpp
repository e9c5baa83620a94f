// Random INI files and keys: what is written is read, and nothing else changes.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "settings/ini_encoding.h"
#include "settings/ini_text.h"
#include "text/code_page.h"

namespace ordelan::test {
namespace {

using settings::IniEncoding;
using settings::TextCode;

class RandomIni {
 public:
  explicit RandomIni(unsigned seed) : random_(seed) {}

  int up_to(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }

  // A name of few letters, so that the same comes again; now and then with all that is odd.
  std::string name() {
    static const std::vector<std::string> kParts = {"a", "A", "b", "\xF1", "\xD1", " ", "  ",  "\"",
                                                    "=", ";", "[", "]",    "'",    "x", "--->"};
    std::string made;
    for (int parts = up_to(4); parts >= 0; --parts) {
      made += kParts[static_cast<std::size_t>(up_to(static_cast<int>(kParts.size()) - 1))];
    }
    return made;
  }

  std::string line() {
    switch (up_to(9)) {
      case 0:
        return "[Settings]";
      case 1:
        return " [ SETTINGS ] ";
      case 2:
        return "[" + name() + "]";
      case 3:
        return ";" + name() + "=" + name();
      case 4:
        return "";
      case 5:
        return name();
      case 6:
        return " " + name() + " = " + name() + " ";
      default:
        return name() + "=" + name();
    }
  }

  std::string text() {
    const char* const end = up_to(2) == 0 ? "\n" : "\r\n";
    std::string made;
    for (int lines = up_to(12); lines > 0; --lines) made += line() + end;
    if (up_to(3) == 0) made += line();
    return made;
  }

 private:
  std::mt19937 random_;
};

std::string_view without_blanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// A value as it is read back: without the blanks around it and without enclosing quotes.
std::string as_read(std::string_view value) {
  value = without_blanks(value);
  if (value.size() >= 2 && value.front() == value.back() &&
      (value.front() == '"' || value.front() == '\'')) {
    value = value.substr(1, value.size() - 2);
  }
  return std::string(value);
}

std::vector<std::string> lines_of(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string line(text.substr(0, end));
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// Whether `after` is `before` with one line changed, or with one or two more at one place.
bool differs_in_one_place(const std::vector<std::string>& before,
                          const std::vector<std::string>& after) {
  std::size_t same = 0;
  while (same < before.size() && same < after.size() && before[same] == after[same]) ++same;
  std::size_t same_after = 0;
  while (same_after < before.size() - same && same_after < after.size() - same &&
         before[before.size() - 1 - same_after] == after[after.size() - 1 - same_after]) {
    ++same_after;
  }
  const std::size_t gone = before.size() - same - same_after;
  const std::size_t come = after.size() - same - same_after;
  return (gone <= 1 && come == gone) || (gone == 0 && come <= 2);
}

// Keys that read as a section or a comment are the only ones that are not written.
bool can_be_written(std::string_view key, std::string_view value) {
  const std::string line = std::string(without_blanks(key)) + "=" + std::string(value);
  return line.front() != ';' && !(line.front() == '[' && line.find(']') != std::string::npos);
}

TEST(IniRandom, what_is_written_is_read_and_all_other_lines_stay) {
  int written = 0;
  int refused = 0;
  for (unsigned seed = 0; seed < 6'000; ++seed) {
    RandomIni random(seed);
    const std::string text = random.text();
    const std::string key = random.name();
    const std::string value = random.name();
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + text + "\nkey [" + key + "]");
    for (const TextCode code : {TextCode::code_page, TextCode::utf8}) {
      const auto coded = [&](const std::string& page) {
        return code == TextCode::utf8 ? text::to_utf8(page) : page;
      };
      const std::string before = coded(text);
      const std::string after =
          settings::with_ini_value(before, "Settings", coded(key), coded(value), code);
      if (!can_be_written(key, value)) {
        ASSERT_EQ(after, before);
        ++refused;
        continue;
      }
      ++written;
      ASSERT_EQ(settings::ini_value(after, "Settings", coded(key), code), coded(as_read(value)));
      ASSERT_TRUE(differs_in_one_place(lines_of(before), lines_of(after))) << after;
      ASSERT_EQ(settings::with_ini_value(after, "Settings", coded(key), coded(value), code), after)
          << "the same value again";
      const std::string other =
          settings::with_ini_value(after, "Settings", coded(key), "other", code);
      ASSERT_EQ(lines_of(other).size(), lines_of(after).size()) << "another value, the same line";
    }
  }
  EXPECT_GT(written, 6'000);
  EXPECT_GT(refused, 300);
}

TEST(IniRandom, a_file_in_any_encoding_holds_the_same_text_after_the_same_writes) {
  for (unsigned seed = 0; seed < 2'000; ++seed) {
    RandomIni random(seed);
    const std::string page = random.text();
    const std::string key = random.name();
    const std::string value = random.name();
    SCOPED_TRACE(seed);
    const std::string expected =
        text::to_utf8(settings::with_ini_value(page, "Settings", key, value));
    for (const IniEncoding encoding :
         {IniEncoding::utf8, IniEncoding::utf16_low_first, IniEncoding::utf16_high_first}) {
      const std::string file = settings::ini_bytes(text::to_utf8(page), encoding);
      ASSERT_EQ(settings::encoding_of(file), encoding);
      const std::string changed =
          settings::with_ini_value(settings::ini_text(file, encoding), "Settings",
                                   text::to_utf8(key), text::to_utf8(value), TextCode::utf8);
      ASSERT_EQ(changed, expected);
      ASSERT_EQ(settings::ini_text(settings::ini_bytes(changed, encoding), encoding), expected);
    }
  }
}

}  // namespace
}  // namespace ordelan::test
