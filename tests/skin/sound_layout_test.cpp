// What the windows that play, and the marks of the volume, have to keep to.
#include <gmock/gmock.h>

#include <optional>
#include <set>
#include <string_view>

#include "skin/main_window_layout.h"
#include "skin/player_layout.h"
#include "skin/removal_review_layout.h"
#include "skin/sa_layout.h"
#include "skin/zoom_layout.h"

namespace ordelan::test {
namespace {

using skin::Layout;
using skin::Place;

const Place& place(const Layout& layout, std::string_view name, int index = -1) {
  for (const Place& each : layout.places) {
    if (each.name == name && each.index == index) return each;
  }
  ADD_FAILURE() << name << " has no place";
  return layout.places.front();
}

bool apart(const Place& a, const Place& b) {
  return a.left + a.width <= b.left || b.left + b.width <= a.left || a.top + a.height <= b.top ||
         b.top + b.height <= a.top;
}

// No two controls lie on each other, but those named first of the two.
void expect_room(const Layout& layout, const std::set<std::string_view>& over_others) {
  for (std::size_t i = 0; i < layout.places.size(); ++i) {
    const Place& one = layout.places[i];
    EXPECT_GE(one.left, 0) << one.name;
    EXPECT_GE(one.top, 0) << one.name;
    EXPECT_LE(one.left + one.width, layout.width) << one.name;
    EXPECT_LE(one.top + one.height, layout.height) << one.name;
    if (over_others.contains(one.name)) continue;
    for (const Place& other : layout.places.subspan(i + 1)) {
      const bool array = one.name == other.name;
      EXPECT_TRUE(array || apart(one, other)) << one.name << " and " << other.name;
    }
  }
}

TEST(SoundLayouts, leave_each_control_its_room) {
  // A notice, the title in its frame, and the chart in its own, stand on others.
  expect_room(skin::kPlayer, {"AvisoPL", "LabelDisplay"});
  expect_room(skin::kSA, {"WindowsMediaPlayer"});
  // Pause takes the place of play; a project's name stands in its frame.
  expect_room(skin::kZoom, {"Play", "LabelVip"});
}

TEST(SoundLayouts, play_and_pause_stand_in_one_place_and_stop_beside_it) {
  const Place& play = place(skin::kPlayer, "Control", 0);
  const Place& pause = place(skin::kPlayer, "Control", 1);
  EXPECT_EQ(play.left, pause.left);
  EXPECT_EQ(play.top, pause.top);
  EXPECT_EQ(play.width, pause.width);
  EXPECT_EQ(play.height, pause.height);
  EXPECT_TRUE(apart(play, place(skin::kPlayer, "Control", 2)));
}

// A click on it is taken for a part of 200.
TEST(SoundLayouts, the_slider_of_the_time_is_200_wide_and_the_waveform_exactly_above_it) {
  const Place& slider = place(skin::kPlayer, "SliderTime");
  const Place& wave = place(skin::kPlayer, "ImageOnda");
  EXPECT_EQ(slider.width, 200);
  EXPECT_EQ(place(skin::kZoom, "SliderTime").width, 200);
  EXPECT_EQ(wave.width, 200);
  EXPECT_EQ(wave.left, slider.left);
  EXPECT_LE(wave.top + wave.height, slider.top);
  EXPECT_LE(slider.top - wave.top - wave.height, 4);
}

TEST(SoundLayouts, the_title_stands_inside_its_frame_and_the_chart_in_its_own) {
  for (const auto& [inner, outer] :
       {std::pair(place(skin::kPlayer, "LabelDisplay"), place(skin::kPlayer, "PictureLD")),
        std::pair(place(skin::kSA, "WindowsMediaPlayer"), place(skin::kSA, "Picture1"))}) {
    EXPECT_GT(inner.left, outer.left);
    EXPECT_GT(inner.top, outer.top);
    EXPECT_LT(inner.left + inner.width, outer.left + outer.width);
    EXPECT_LT(inner.top + inner.height, outer.top + outer.height);
  }
}

TEST(SoundLayouts, the_spectrum_stands_on_the_middle_of_the_player) {
  EXPECT_EQ(skin::kSpectrumAbove, skin::kSA.height);
  EXPECT_EQ(skin::kSA.width, skin::kPlayer.width - 2 * skin::kSpectrumRight);
}

TEST(SoundLayouts, marks_of_the_volume_have_their_foot_and_their_height) {
  const Place& main = place(skin::kMainWindow, "ShapeVol");
  EXPECT_EQ(main.top + main.height, 695);
  EXPECT_EQ(main.height, 320);
  const Place& spectrum = place(skin::kSA, "ShapeVol");
  EXPECT_EQ(spectrum.top + spectrum.height, 320);
  EXPECT_EQ(spectrum.height, 300);
}

// What is shown of the player in the main window stands beside everything else, but for what covers
// or replaces others there.
TEST(SoundLayouts, the_main_window_has_room_for_the_player) {
  const std::set<std::string_view> sound = {"cmdPlayer", "ImagePlayPauSt", "LabelVol", "ShapeVol"};
  int found = 0;
  for (const Place& one : skin::kMainWindow.places) {
    if (!sound.contains(one.name)) continue;
    ++found;
    for (const Place& other : skin::kMainWindow.places) {
      if (other.name == one.name || other.name == "TextDecode") continue;
      EXPECT_TRUE(apart(one, other)) << one.name << " and " << other.name;
    }
  }
  EXPECT_EQ(found, 6);
}

TEST(SoundLayouts, the_main_window_fits_a_screen_of_768_lines_with_a_task_bar) {
  EXPECT_LE(skin::kMainWindow.height, 768 - 40);
}

}  // namespace
}  // namespace ordelan::test
