#include "skin/look.h"

#include <gmock/gmock.h>

#include "skin/look_sound.h"
#include "skin/palette.h"
#include "ui/property_bag.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(Look, colours_are_those_of_the_palette) {
  const auto bags = ui::PropertyBags::parse(
      skin::bags_of("[W.a]\nForeColor=$TextDim\nBackColor=$Header\n[W.b]\nForeColor=$Ground"));
  EXPECT_EQ(bags.bag("W", "a").read("ForeColor", ui::Color{1}), ui::Color{skin::kTextDim});
  EXPECT_EQ(bags.bag("W", "a").read("BackColor", ui::Color{1}), ui::Color{skin::kHeader});
  EXPECT_EQ(bags.bag("W", "b").read("ForeColor", ui::Color{1}), ui::Color{skin::kGround});
}

TEST(Look, a_colour_that_the_palette_does_not_have_is_none) {
  const auto bags = ui::PropertyBags::parse(skin::bags_of("[W.a]\nForeColor=$Purple\n"));
  EXPECT_EQ(bags.bag("W", "a").read("ForeColor", ui::Color{1}), ui::Color{1});
}

TEST(Look, an_icon_is_a_button_with_its_four_pictures) {
  const auto bags = ui::PropertyBags::parse(skin::bags_of("[W.a]\nPictureAlign=3\nIcon=abrir\n"));
  const ui::PropertyBag& bag = bags.bag("W", "a");
  EXPECT_EQ(bag.read("Style", std::int16_t{0}), 1);
  EXPECT_EQ(bag.read("PictureAlign", std::int16_t{0}), 3);
  EXPECT_EQ(bag.read("PictureNormal", std::string()), "abrir");
  EXPECT_EQ(bag.read("PictureOver", std::string()), "abrir_over");
  EXPECT_EQ(bag.read("PictureDown", std::string()), "abrir_down");
  EXPECT_EQ(bag.read("PictureDisabled", std::string()), "abrir_off");
}

TEST(Look, the_looks_of_the_program_name_only_colours_that_exist) {
  EXPECT_THAT(skin::all_looks(), Not(HasSubstr("$")));
  for (const std::string_view look : {skin::kLook, skin::kSoundLook}) {
    EXPECT_THAT(std::string(look), Not(HasSubstr("=0x"))) << "a colour without a name";
  }
}

}  // namespace
}  // namespace ordelan::test
