// The transport: what each order does, and what it leaves alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "removal/removal_review_window.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kSpaceKey = 32;
constexpr int kEndKey = 35;
constexpr int kPlusKey = 107;
constexpr int kMinusKey = 109;

struct Transport : testing::Test, SoundProgram {
  // What the pictures of the transport show, window by window.
  std::string buttons() { return shown(player().Control); }
  std::string form_marks() { return shown(program.form.play.ImagePlayPauSt); }
  removal::ParaBorrar& review() { return *program.windows.touch<removal::ParaBorrar>(); }
  std::string review_marks() { return shown(review().ImagePlayPauSt); }

  void play(const std::string& path) {
    sound().set_URL(path);
    sound().Control_Click(audio::kPlay);
  }
};

TEST_F(Transport, the_windows_exist_from_the_start_and_are_hidden) {
  start();
  ASSERT_NE(program.windows.find<audio::Player>(), nullptr);
  ASSERT_NE(program.windows.find<audio::SA>(), nullptr);
  EXPECT_FALSE(player().visible());
  EXPECT_FALSE(spectrum().visible());
  EXPECT_FALSE(player().TimerTime.running());
  EXPECT_EQ(buttons(), "yny");
  EXPECT_EQ(player().LabelTime.caption(), "00:00");
  EXPECT_TRUE(player().topmost());
  EXPECT_TRUE(spectrum().topmost());
}

TEST_F(Transport, without_a_file_no_order_changes_anything_not_even_the_pictures) {
  start();
  review().show();
  program.form.play.show();
  player().AvisoPL.show();
  const std::string form = form_marks();
  for (const int order : {audio::kPlay, audio::kPause, audio::kStop}) {
    sound().Control_Click(order);
    EXPECT_EQ(buttons(), "yny");
    EXPECT_EQ(form_marks(), form);
    EXPECT_EQ(review_marks(), "nnn");
  }
  EXPECT_FALSE(player().TimerTime.running());
  EXPECT_FALSE(player().TimerDisplay.running());
  EXPECT_FALSE(player().AvisoPL.visible());  // which comes before the look at the file
  EXPECT_THAT(media.orders, IsEmpty());
}

TEST_F(Transport, each_order_has_its_pictures_which_differ_from_window_to_window) {
  start();
  review().show();
  sound().set_URL(song("a.wav", 100));
  sound().Control_Click(audio::kPlay);
  EXPECT_EQ(buttons(), "nyy");
  EXPECT_EQ(form_marks(), "nyn");
  EXPECT_EQ(review_marks(), "ynn");
  EXPECT_EQ(player().EnReproduccion, -1);
  sound().Control_Click(audio::kPause);
  EXPECT_EQ(buttons(), "yny");
  EXPECT_EQ(form_marks(), "ynn");
  EXPECT_EQ(review_marks(), "nyn");
  EXPECT_EQ(player().EnReproduccion, 0);
  sound().Control_Click(audio::kPlay);
  sound().Control_Click(audio::kStop);
  EXPECT_EQ(buttons(), "yny");
  EXPECT_EQ(form_marks(), "nny");
  EXPECT_EQ(review_marks(), "nny");
  EXPECT_EQ(player().EnReproduccion, 0);
}

TEST_F(Transport, the_pictures_of_a_hidden_review_stay) {
  start();
  review().hide();
  play(song("a.wav", 100));
  EXPECT_EQ(review_marks(), "nnn");
  EXPECT_EQ(form_marks(), "nyn");
}

TEST_F(Transport, another_number_is_no_order) {
  start();
  play(song("a.wav", 100));
  media.orders.clear();
  sound().Control_Click(3);
  sound().Control_Click(-1);
  EXPECT_THAT(media.orders, IsEmpty());
  EXPECT_EQ(buttons(), "nyy");
  EXPECT_EQ(player().EnReproduccion, -1);
}

TEST_F(Transport, pause_keeps_the_title_moving_and_stops_the_elapsed_time) {
  start();
  play(song("a.wav", 100));
  pass(5);
  EXPECT_EQ(player().LabelTime.caption(), "00:05");
  sound().Control_Click(audio::kPause);
  EXPECT_FALSE(player().TimerTime.running());
  EXPECT_TRUE(player().TimerDisplay.running());
  const auto left = player().LabelDisplay.text_left();
  pass(1);
  EXPECT_NE(player().LabelDisplay.text_left(), left);
  EXPECT_EQ(player().LabelTime.caption(), "00:05");
}

TEST_F(Transport, play_after_a_pause_goes_on_where_it_was) {
  start();
  play(song("a.wav", 100));
  pass(5);
  sound().Control_Click(audio::kPause);
  pass(3);
  media.orders.clear();
  sound().Control_Click(audio::kPlay);
  EXPECT_THAT(media.orders, ElementsAre("play"));  // no position is written
  EXPECT_NEAR(media.currentPosition(), 5, 0.001);
}

TEST_F(Transport, stop_leaves_the_labels_and_sliders_of_the_position) {
  start();
  play(song("a.wav", 100));
  pass(5);
  sound().Control_Click(audio::kStop);
  EXPECT_FALSE(player().TimerTime.running());
  EXPECT_FALSE(player().TimerDisplay.running());
  EXPECT_EQ(player().LabelDisplay.text_left(), 100);
  EXPECT_EQ(player().LabelTime.caption(), "00:05");
  EXPECT_EQ(player().SliderTime.value(), 5);
}

TEST_F(Transport, the_title_begins_at_its_start_with_each_play) {
  start();
  play(song("a.wav", 100));
  pass(1);
  EXPECT_LT(*player().LabelDisplay.text_left(), 100);
  sound().Control_Click(audio::kPlay);
  EXPECT_EQ(player().LabelDisplay.text_left(), 100);
}

TEST_F(Transport, the_duration_becomes_the_end_of_the_slider) {
  start();
  play(song("a.wav", 240.5));
  pass(0.1);
  EXPECT_EQ(player().SliderTime.max(), 240);  // halves go to the even number
  sound().set_URL(song("b.wav", 30.2));
  pass(0.1);
  EXPECT_EQ(player().SliderTime.max(), 30);
}

TEST_F(Transport, a_duration_below_half_a_second_leaves_the_end_of_the_slider) {
  start();
  play(song("a.wav", 240));
  pass(0.1);
  sound().set_URL(song("b.wav", 0.4));
  pass(0.1);
  EXPECT_EQ(player().SliderTime.max(), 240);
}

TEST_F(Transport, fifty_nine_point_six_seconds_show_as_a_minute) {
  start();
  play(song("a.wav", 100));
  media.set_currentPosition(59.55);
  pass(0.025);
  EXPECT_EQ(player().LabelTime.caption(), "01:00");
}

TEST_F(Transport, minutes_do_not_stop_at_fifty_nine) {
  start();
  play(song("a.wav", 8000));
  media.set_currentPosition(7325);
  pass(0.025);
  EXPECT_EQ(player().LabelTime.caption(), "122:05");
}

TEST_F(Transport, the_elapsed_time_takes_the_place_of_the_duration_in_the_same_tick) {
  start();
  play(song("a.wav", 75));
  player().SongTime();
  EXPECT_EQ(player().LabelTime.caption(), "Duración; 01:15");
  pass(0.025);
  EXPECT_EQ(player().LabelTime.caption(), "00:00");
}

TEST_F(Transport, of_a_file_of_up_to_59_seconds_no_duration_is_written) {
  start();
  play(song("a.wav", 59.4));
  player().SongTime();
  EXPECT_EQ(player().LabelTime.caption(), "00:00");
}

TEST_F(Transport, while_nothing_plays_no_duration_is_written) {
  start();
  play(song("a.wav", 75));
  sound().Control_Click(audio::kPause);
  player().SongTime();
  EXPECT_EQ(player().LabelTime.caption(), "00:00");
}

TEST_F(Transport, the_label_of_the_spectrum_follows_while_that_is_shown) {
  start();
  play(song("a.wav", 75));
  pass(3);
  EXPECT_EQ(spectrum().LabelTime.caption(), "00:00");
  spectrum().show();
  pass(1);
  EXPECT_EQ(spectrum().LabelTime.caption(), "00:04");
  spectrum().hide();
  pass(3);
  EXPECT_EQ(spectrum().LabelTime.caption(), "00:04");
  EXPECT_EQ(player().LabelTime.caption(), "00:07");
}

TEST_F(Transport, a_file_that_ends_stops_by_itself) {
  start();
  play(song("a.wav", 2));
  pass(2.1);
  EXPECT_FALSE(player().TimerTime.running());
  EXPECT_EQ(buttons(), "yny");
  EXPECT_EQ(form_marks(), "nny");
}

TEST_F(Transport, an_english_engine_is_not_stopped_by_its_status) {
  start();
  play(song("a.wav", 2));
  media.said_status = "Stopped";
  pass(5);
  EXPECT_TRUE(player().TimerTime.running());
  EXPECT_EQ(buttons(), "nyy");
}

TEST_F(Transport, a_file_that_cannot_be_played_keeps_its_timer_and_says_why) {
  start();
  play(disk.path("nada.wav"));
  pass(1);
  EXPECT_EQ(media.URL(), disk.path("nada.wav"));
  EXPECT_TRUE(player().TimerTime.running());
  EXPECT_EQ(player().LabelTime.caption(), "00:00");
  EXPECT_EQ(player().LabelAviso.caption(), "No suena.");
}

TEST_F(Transport, a_tick_without_a_file_changes_no_label) {
  start();
  play(song("a.wav", 60));
  pass(3);
  sound().set_URL("");
  pass(1);
  EXPECT_TRUE(player().TimerTime.running());
  EXPECT_EQ(player().LabelTime.caption(), "00:03");
  EXPECT_EQ(player().SliderTime.value(), 0);
}

TEST_F(Transport, a_duration_beyond_16_bits_ends_the_tick_before_its_labels) {
  start();
  play(song("a.wav", 40000));
  pass(3);
  EXPECT_EQ(player().LabelTime.caption(), "00:00");
  EXPECT_EQ(player().SliderTime.value(), 3);
}

TEST_F(Transport, the_bit_rate_comes_from_the_status_of_an_mp3) {
  start();
  play(song("A.MP3", 60, 320));
  pass(0.1);
  EXPECT_TRUE(player().mp3Baud.visible());
  EXPECT_EQ(player().mp3Baud.caption(), " 320 Kbaud ");
  sound().set_URL(song("b.wav", 60, 1411));
  pass(0.1);
  EXPECT_FALSE(player().mp3Baud.visible());
  media.said_status = "Playing: 192 K bits/second";
  sound().set_URL(song("c.mp3", 60));
  pass(0.1);
  EXPECT_EQ(player().mp3Baud.caption(), " 192 Kbaud ");
}

TEST_F(Transport, of_other_files_no_bit_rate_is_shown) {
  start();
  play(song("a.wav", 60, 1411));
  pass(0.1);
  EXPECT_FALSE(player().mp3Baud.visible());
}

TEST_F(Transport, a_volume_is_shown_everywhere) {
  start();
  sound().Vol(50);
  EXPECT_EQ(media.volume(), 50);
  EXPECT_EQ(player().LabelVol.caption(), "-40 dB");
  EXPECT_EQ(program.form.play.LabelVol.caption(), "-40 dB");
  EXPECT_EQ(program.form.play.ShapeVol.bounds().height, 160);
  EXPECT_EQ(program.form.play.ShapeVol.bounds().top, 535);
  EXPECT_EQ(spectrum().ShapeVol.bounds().height, 150);
  EXPECT_EQ(spectrum().ShapeVol.bounds().top, 170);
  review().show();
  sound().Vol(100);
  EXPECT_EQ(review().ImageVol.bounds().height, 300);
  EXPECT_EQ(review().ImageVol.bounds().top, 160);
  EXPECT_EQ(player().LabelVol.caption(), "10 dB");
}

TEST_F(Transport, silence_is_minus_ninety) {
  start();
  sound().Vol(0);
  EXPECT_EQ(player().LabelVol.caption(), "-90 dB");
  sound().Vol(90);
  EXPECT_EQ(player().LabelVol.caption(), "0 dB");
}

TEST_F(Transport, the_slider_of_the_volume_sets_it_and_puts_the_notice_away) {
  start();
  player().AvisoPL.show();
  player().SliderVol.on_change(33);
  EXPECT_EQ(media.volume(), 33);
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(Transport, the_slider_of_the_position_writes_seconds) {
  start();
  play(song("a.wav", 100));
  player().AvisoPL.show();
  player().SliderTime.on_change(42);
  EXPECT_NEAR(media.currentPosition(), 42, 0.001);
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(Transport, a_click_on_the_slider_seeks_by_two_hundredths_of_the_duration) {
  start();
  play(song("a.wav", 100));
  pass(1);
  player().SliderTime.on_mouse_up({{50, 4}, ui::kLeftButton, 0});
  EXPECT_NEAR(media.currentPosition(), 25, 0.001);
}

TEST_F(Transport, a_stopped_file_cannot_be_clicked_to_a_place) {
  start();
  sound().set_URL(song("a.wav", 100));
  sound().Control_Click(audio::kStop);
  media.orders.clear();
  player().SliderTime.on_mouse_up({{50, 4}, ui::kLeftButton, 0});
  EXPECT_THAT(media.orders, IsEmpty());
}

TEST_F(Transport, space_plays_and_pauses_in_every_window) {
  start();
  sound().set_URL(song("a.wav", 100));
  sound().Control_Click(audio::kStop);
  for (ui::Window* window :
       {static_cast<ui::Window*>(&player()), static_cast<ui::Window*>(&spectrum()),
        static_cast<ui::Window*>(&review()), static_cast<ui::Window*>(&program.form)}) {
    EXPECT_TRUE(press(*window, kSpaceKey)) << window->name();
    EXPECT_EQ(media.playState(), system::Media::kPlaying) << window->name();
    EXPECT_TRUE(press(*window, kSpaceKey)) << window->name();
    EXPECT_EQ(media.playState(), system::Media::kPaused) << window->name();
  }
}

TEST_F(Transport, space_plays_from_ready_and_means_nothing_without_a_file) {
  start();
  EXPECT_FALSE(press(player(), kSpaceKey));
  sound().set_URL(disk.path("nada.wav"));
  ASSERT_EQ(media.playState(), system::Media::kReady);
  EXPECT_TRUE(press(player(), kSpaceKey));
  EXPECT_EQ(buttons(), "nyy");
}

TEST_F(Transport, space_means_nothing_while_a_file_is_being_opened) {
  start();
  media.files[disk.path("a.wav")] = {.duration = 10, .opening = 1};
  sound().set_URL(disk.path("a.wav"));
  EXPECT_FALSE(press(player(), kSpaceKey));
  EXPECT_EQ(buttons(), "yny");
}

TEST_F(Transport, the_key_end_stops) {
  start();
  play(song("a.wav", 100));
  EXPECT_TRUE(press(spectrum(), kEndKey));
  EXPECT_EQ(media.playState(), system::Media::kStopped);
  EXPECT_EQ(player().SliderVol.value(), 80);  // and does nothing else
  play(song("a.wav", 100));
  EXPECT_FALSE(press(program.form, kEndKey));  // its lists go to their ends by it as well
  EXPECT_EQ(media.playState(), system::Media::kStopped);
}

TEST_F(Transport, the_keypad_sets_the_volume_and_stops_at_the_ends_of_the_slider) {
  start("Volumen=1\r\n");
  EXPECT_TRUE(press(player(), kPlusKey));
  EXPECT_EQ(player().SliderVol.value(), 2);
  EXPECT_EQ(media.volume(), 2);
  for (int i = 0; i < 4; ++i) press(program.form, kMinusKey);
  EXPECT_EQ(player().SliderVol.value(), 0);
  EXPECT_TRUE(press(player(), kMinusKey));
  EXPECT_EQ(media.volume(), 0);
  EXPECT_EQ(player().LabelVol.caption(), "-90 dB");
}

TEST_F(Transport, the_plus_and_minus_of_the_main_keyboard_are_no_keys_of_the_sound) {
  start("Volumen=50\r\n");
  for (const int key : {187, 189}) press(player(), key);
  EXPECT_EQ(player().SliderVol.value(), 50);
}

TEST_F(Transport, an_end_key_with_nothing_loaded_touches_no_picture) {
  start();
  press(program.form, kEndKey);
  EXPECT_EQ(buttons(), "yny");
}

}  // namespace
}  // namespace ordelan::test
