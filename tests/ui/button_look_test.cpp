#include "ui/button_look.h"

#include <gtest/gtest.h>

namespace ordelan::test {
namespace {

using ui::Point;

ui::ButtonProperties all_pictures() {
  ui::ButtonProperties properties;
  properties.picture_normal = "normal";
  properties.picture_disabled = "disabled";
  properties.picture_down = "down";
  properties.picture_over = "over";
  return properties;
}

TEST(ButtonLook, the_first_state_that_holds_chooses_the_picture) {
  ui::ButtonProperties properties = all_pictures();
  EXPECT_EQ(ui::chosen_picture(properties, false, false), "normal");
  EXPECT_EQ(ui::chosen_picture(properties, false, true), "over");
  EXPECT_EQ(ui::chosen_picture(properties, true, false), "down");
  EXPECT_EQ(ui::chosen_picture(properties, true, true), "down");
  properties.selected = true;
  EXPECT_EQ(ui::chosen_picture(properties, false, false), "disabled");
  EXPECT_EQ(ui::chosen_picture(properties, true, false), "down");
  EXPECT_EQ(ui::chosen_picture(properties, true, true), "down");
}

TEST(ButtonLook, a_selected_button_under_the_pointer_shows_the_disabled_picture) {
  ui::ButtonProperties properties = all_pictures();
  properties.selected = true;
  EXPECT_EQ(ui::chosen_picture(properties, false, true), "disabled");
}

TEST(ButtonLook, a_button_with_only_the_normal_picture_keeps_it_in_all_states) {
  ui::ButtonProperties properties;
  properties.picture_normal = "normal";
  for (const bool selected : {false, true}) {
    properties.selected = selected;
    for (const bool down : {false, true}) {
      for (const bool over : {false, true}) {
        EXPECT_EQ(ui::chosen_picture(properties, down, over), "normal");
      }
    }
  }
}

TEST(ButtonLook, without_the_normal_picture_a_state_without_its_own_shows_nothing) {
  ui::ButtonProperties properties;
  properties.picture_down = "down";
  EXPECT_EQ(ui::chosen_picture(properties, false, false), "");
  EXPECT_EQ(ui::chosen_picture(properties, false, true), "");
  EXPECT_EQ(ui::chosen_picture(properties, true, true), "down");
}

TEST(ButtonLook, a_picture_stands_by_the_number_of_its_alignment) {
  const ui::Size control{100, 51};
  const ui::Size picture{31, 20};
  EXPECT_EQ(ui::picture_place(0, control, picture), (Point{34, 15}));
  EXPECT_EQ(ui::picture_place(1, control, picture), (Point{34, 3}));
  EXPECT_EQ(ui::picture_place(2, control, picture), (Point{34, 27}));
  EXPECT_EQ(ui::picture_place(3, control, picture), (Point{3, 15}));
  EXPECT_EQ(ui::picture_place(4, control, picture), (Point{65, 15}));
  EXPECT_EQ(ui::picture_place(5, control, picture), (Point{34, 15}));
  EXPECT_EQ(ui::picture_place(-1, control, picture), (Point{34, 15}));
}

TEST(ButtonLook, a_picture_larger_than_the_button_is_cut_toward_zero) {
  const ui::Size control{10, 10};
  const ui::Size picture{15, 13};
  EXPECT_EQ(ui::picture_place(0, control, picture), (Point{-2, -1}));
  EXPECT_EQ(ui::picture_place(2, control, picture), (Point{-2, -7}));
  EXPECT_EQ(ui::picture_place(4, control, picture), (Point{-9, -1}));
}

}  // namespace
}  // namespace ordelan::test
