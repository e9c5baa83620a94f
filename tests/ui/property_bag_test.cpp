#include "ui/property_bag.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>

#include "support/hostile_bytes.h"
#include "ui/control_array.h"
#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ui::Color;
using ui::PropertyBag;
using ui::PropertyBags;

constexpr std::int16_t kShort = 7;
constexpr std::int32_t kLong = 70000;
constexpr Color kColor = Color::button_face;

TEST(PropertyBag, reads_each_type_from_its_line) {
  const PropertyBag bag = PropertyBag::parse(
      "Selected=true\nUseMaskColor=false\nStyle=1\nMax=2147483647\nMin=-2147483648\n"
      "MaskColor=0x00FF00FF\nButtonColor=0x80000005\nBackColor=255\nPictureNormal=abrir\n");
  EXPECT_TRUE(bag.read("Selected", false));
  EXPECT_FALSE(bag.read("UseMaskColor", true));
  EXPECT_EQ(bag.read("Style", kShort), 1);
  EXPECT_EQ(bag.read("Max", kLong), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(bag.read("Min", kLong), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(bag.read("MaskColor", kColor), ui::rgb(255, 0, 255));
  EXPECT_EQ(bag.read("ButtonColor", kColor), Color::window_background);
  EXPECT_EQ(bag.read("BackColor", kColor), ui::rgb(255, 0, 0));
  EXPECT_EQ(bag.read("PictureNormal", ""), "abrir");
}

TEST(PropertyBag, what_is_missing_has_its_default) {
  const PropertyBag bag;
  EXPECT_TRUE(bag.read("a", true));
  EXPECT_EQ(bag.read("a", kShort), kShort);
  EXPECT_EQ(bag.read("a", kLong), kLong);
  EXPECT_EQ(bag.read("a", kColor), kColor);
  EXPECT_EQ(bag.read("a", "none"), "none");
}

TEST(PropertyBag, comments_empty_lines_and_lines_without_a_value_mean_nothing) {
  const PropertyBag bag =
      PropertyBag::parse("# a=1\r\n\r\n   # b=2\n=3\n  =4\nnothing\n[c]=5\nd=6\r\n");
  EXPECT_EQ(bag.text(), "d=6\n");
}

TEST(PropertyBag, the_last_value_of_a_name_counts_and_names_count_by_their_case) {
  const PropertyBag bag = PropertyBag::parse("Min=1\nMin=2\nmin=3");
  EXPECT_EQ(bag.read("Min", kLong), 2);
  EXPECT_EQ(bag.read("min", kLong), 3);
}

TEST(PropertyBag, a_bad_value_gives_the_default) {
  for (const std::string bad :
       {"", " ", "x", "1x", "--1", "+1", "1.5", "0x", "99999999999999999999", "TRUE", "0x1000000",
        "0x80000100", "-1x", "=", "1 2"}) {
    const PropertyBag bag = PropertyBag::parse("v=" + bad);
    EXPECT_TRUE(bag.read("v", true)) << bad;
    EXPECT_FALSE(bag.read("v", false)) << bad;
    EXPECT_EQ(bag.read("v", kShort), kShort) << bad;
    EXPECT_EQ(bag.read("v", kLong), kLong) << bad;
    EXPECT_EQ(bag.read("v", kColor), kColor) << bad;
  }
  EXPECT_EQ(PropertyBag::parse("v=-1").read("v", kColor), kColor);
}

TEST(PropertyBag, a_number_too_large_for_its_type_gives_the_default) {
  const PropertyBag bag = PropertyBag::parse("a=32768\nb=-32769\nc=2147483648\nd=-2147483649");
  EXPECT_EQ(bag.read("a", kShort), kShort);
  EXPECT_EQ(bag.read("a", kLong), 32768);
  EXPECT_EQ(bag.read("b", kShort), kShort);
  EXPECT_EQ(bag.read("c", kLong), kLong);
  EXPECT_EQ(bag.read("d", kLong), kLong);
}

TEST(PropertyBag, a_value_equal_to_its_default_is_not_stored) {
  PropertyBag bag;
  bag.write("a", true, true);
  bag.write("b", kShort, kShort);
  bag.write("c", kLong, kLong);
  bag.write("d", kColor, kColor);
  bag.write("e", "x", "x");
  EXPECT_TRUE(bag.empty());
  bag.write("e", "y", "x");
  EXPECT_EQ(bag.text(), "e=y\n");
  bag.write("e", "x", "x");
  EXPECT_FALSE(bag.has("e")) << "nor does an older value stay";
}

TEST(PropertyBag, a_name_that_no_line_could_hold_is_not_stored) {
  PropertyBag bag;
  for (const std::string name : {"", " a", "a ", "a=b", "a\nb", "a\rb", "#a", "[a"}) {
    bag.write(name, true, false);
  }
  EXPECT_TRUE(bag.empty());
}

TEST(PropertyBag, a_text_keeps_its_breaks_blanks_and_backslashes) {
  for (const std::string text :
       {"a\nb", "\r\n", "\\", "\\n", "C:\\new\\r", " a ", "a=b", "# a", "[a]", "\\\\n", "\xF1"}) {
    PropertyBag bag;
    bag.write("v", text, std::string("default"));
    EXPECT_EQ(PropertyBag::parse(bag.text()).read("v", "none"), text);
  }
  EXPECT_EQ(PropertyBag::parse("v=a\\b\\").read("v", ""), "a\\b\\") << "written by hand";
}

std::string random_text(Dice& dice) {
  std::string text;
  for (auto left = dice.below(12); left > 0; --left) {
    static constexpr std::string_view kOdd("\\nr\n\r=#[] \t\0", 12);
    text += dice.below(2) == 0 ? kOdd[dice.below(kOdd.size())] : static_cast<char>(dice.below(256));
  }
  return text;
}

TEST(PropertyBag, random_values_survive_the_way_through_the_text) {
  Dice dice(1);
  for (int round = 0; round < 3000; ++round) {
    const bool flag = dice.below(2) == 0;
    const auto number = static_cast<std::int16_t>(dice.next());
    const auto large = static_cast<std::int32_t>(dice.next());
    const auto color = static_cast<Color>(dice.below(2) == 0 ? dice.below(0x1000000)
                                                             : 0x80000000 + dice.below(0x100));
    const std::string text = random_text(dice);
    PropertyBag bag;
    bag.write("flag", flag, !flag);
    bag.write("number", number, kShort);
    bag.write("large", large, kLong);
    bag.write("color", color, kColor);
    bag.write("text", text, std::string("default"));
    const PropertyBag again = PropertyBag::parse(bag.text());
    ASSERT_EQ(again, bag);
    ASSERT_EQ(again.read("flag", !flag), flag);
    ASSERT_EQ(again.read("number", kShort), number);
    ASSERT_EQ(again.read("large", kLong), large);
    ASSERT_EQ(again.read("color", kColor), color);
    ASSERT_EQ(again.read("text", "default"), text);
  }
}

TEST(PropertyBag, no_text_is_too_strange_to_be_read) {
  Dice dice(2);
  int values = 0;
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (auto lines = dice.below(6); lines > 0; --lines) {
      if (dice.below(3) == 0) text += "[w.c]\n";
      text += dice.below(2) == 0 ? "v=" + random_text(dice) : random_text(dice);
      text += '\n';
    }
    const PropertyBag bag = PropertyBag::parse(text);
    ASSERT_EQ(PropertyBag::parse(bag.text()), bag) << text;
    const PropertyBags bags = PropertyBags::parse(text);
    ASSERT_EQ(PropertyBags::parse(bags.text()).text(), bags.text()) << text;
    bag.read("v", true);
    bag.read("v", kShort);
    bag.read("v", kLong);
    bag.read("v", kColor);
    values += bag.read("v", "none") != "none" ? 1 : 0;
  }
  EXPECT_GT(values, 1000);
}

TEST(PropertyBags, a_bag_is_found_by_its_window_and_control) {
  const PropertyBags bags = PropertyBags::parse(
      "Style=9\n"
      "# the main window\n"
      "[Form1.AbrirFichero]\r\nStyle=1\r\nPictureNormal=abrir\r\n"
      "[Form1.Control(2)]\nStyle=2\n"
      "[ Form1.Control ]\nStyle=3\n"
      "[Player.AbrirFichero]\nStyle=4\n");
  EXPECT_EQ(bags.bag("Form1", "AbrirFichero").read("Style", kShort), 1);
  EXPECT_EQ(bags.bag("Form1", "AbrirFichero").read("PictureNormal", ""), "abrir");
  EXPECT_EQ(bags.bag("Form1", "Control", 2).read("Style", kShort), 2);
  EXPECT_EQ(bags.bag("Form1", "Control").read("Style", kShort), 3);
  EXPECT_EQ(bags.bag("Player", "AbrirFichero").read("Style", kShort), 4);
  EXPECT_TRUE(bags.bag("Form1", "Control", 1).empty());
  EXPECT_TRUE(bags.bag("Form1", "Salir").empty());
  EXPECT_TRUE(bags.bag("", "").empty());
}

TEST(PropertyBags, a_control_finds_its_own_bag) {
  RecordingBackend backend;
  ui::Window window(backend, "Form1");
  ui::Button alone(window, "Salir");
  ui::ControlArray<ui::Button> array(window, "Control", 2);
  const PropertyBags bags = PropertyBags::parse("[Form1.Salir]\na=1\n[Form1.Control(1)]\na=2\n");
  EXPECT_EQ(bags.bag(alone).read("a", kLong), 1);
  EXPECT_EQ(bags.bag(array[1]).read("a", kLong), 2);
  EXPECT_TRUE(bags.bag(array[0]).empty());
}

TEST(PropertyBags, what_stands_under_a_broken_section_belongs_to_no_control) {
  const PropertyBags bags = PropertyBags::parse("[a.b]\nx=1\n[a.b\nx=2\n[]\nx=3\n[a.b] c\nx=4\n[");
  EXPECT_EQ(bags.text(), "[a.b]\nx=1\n");
}

TEST(PropertyBags, sections_of_one_name_are_one) {
  const PropertyBags bags = PropertyBags::parse("[a.b]\nx=1\ny=1\n[c.d]\n[a.b]\nx=2\n");
  EXPECT_EQ(bags.bag("a", "b").text(), "x=2\ny=1\n");
}

TEST(PropertyBags, bags_that_are_set_are_read_again_from_the_text) {
  PropertyBags bags;
  bags.set("Form1", "Control", 2, PropertyBag::parse("Style=1"));
  bags.set("Form1", "Salir", -1, PropertyBag::parse("Selected=true"));
  EXPECT_EQ(bags.text(), "[Form1.Control(2)]\nStyle=1\n\n[Form1.Salir]\nSelected=true\n");
  const PropertyBags again = PropertyBags::parse(bags.text());
  EXPECT_EQ(again.bag("Form1", "Control", 2).read("Style", kShort), 1);
  EXPECT_TRUE(again.bag("Form1", "Salir").read("Selected", false));
}

}  // namespace
}  // namespace ordelan::test
