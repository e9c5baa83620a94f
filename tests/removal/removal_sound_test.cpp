// What the windows of removal and recovery do with the sound.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/player.h"
#include "audio/sa.h"
#include "support/removal_bench.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;

struct RemovalSound : ::testing::Test, RemovalBench {
  // A studio whose unused files can be played, with the review in front and its box ticked.
  void listen_to(const std::vector<std::string>& unused) {
    open_studio(unused);
    for (const std::string& file : unused) media.files[disk.path(file)] = {.duration = 60};
    review().CheckAudio.set_checked(true);
  }
  void click(int row) {
    review().ListBorrar.chosen(row);
    review().ListBorrar.on_click();
  }
  bool press(int code) {
    ui::Key key{.code = code};
    review().on_key_down(key);
    return key.swallowed;
  }
  std::string marks() { return shown(review().ImagePlayPauSt); }
  audio::Player& player() { return *windows.touch<audio::Player>(); }
  // A wav of so many bits.
  static std::string wav(char bits) {
    std::string bytes(64, '\0');
    bytes.replace(0, 4, "RIFF");
    bytes.replace(8, 8, "WAVEfmt ");
    bytes[22] = 2;
    bytes[34] = bits;
    return bytes;
  }
};

// --- a click on a row

TEST_F(RemovalSound, a_click_plays_the_row_in_any_case_of_letters) {
  listen_to({"Mix\\a.WAV", "Mix\\b.mp3"});
  disk.write("Mix\\a.WAV", wav(16));
  review().TextSound.show();
  click(0);
  EXPECT_EQ(media.URL(), disk.path("Mix\\a.WAV"));
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_TRUE(player().TimerTime.running());
  EXPECT_EQ(marks(), "ynn");
  EXPECT_FALSE(review().TextSound.visible());
  EXPECT_EQ(work.ArchivoActual, disk.path("Mix\\a.WAV"));
  EXPECT_THAT(form.sound().info.TextoToolTip, HasSubstr(" Bits: 16"));
  click(1);
  EXPECT_EQ(media.URL(), disk.path("Mix\\b.mp3"));
  EXPECT_THAT(form.sound().info.TextoToolTip, HasSubstr("Artista: "));
}

TEST_F(RemovalSound, all_kinds_that_play_are_played_and_no_others) {
  const std::vector<std::string> kinds = {"aif", "m4a", "mp3", "wav", "wma", "flac", "ogg"};
  std::vector<std::string> files;
  for (const std::string& kind : kinds) files.push_back("Mix\\a." + kind);
  listen_to(files);
  for (std::size_t i = 0; i < review().ListBorrar.count(); ++i) {
    const std::string row = review().ListBorrar.row(i);
    click(static_cast<int>(i));
    const bool plays = !row.ends_with("flac") && !row.ends_with("ogg");
    EXPECT_EQ(media.URL(), plays ? row : "") << row;
    EXPECT_EQ(review().TextSound.visible(), !plays) << row;
  }
}

TEST_F(RemovalSound, without_the_box_a_click_only_ends_what_plays) {
  listen_to({"Mix\\a.wav"});
  review().CheckAudio.set_checked(false);
  form.sound().set_URL(disk.path("Mix\\a.wav"));
  review().TextSound.show();
  click(0);
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(review().TextSound.visible());
}

TEST_F(RemovalSound, the_right_button_only_ends_what_plays) {
  listen_to({"Mix\\a.wav"});
  click(0);
  review().ListBorrar.on_right_click();
  EXPECT_EQ(media.URL(), "");
}

TEST_F(RemovalSound, who_goes_through_the_rows_with_the_keys_hears_nothing) {
  listen_to({"Mix\\a.wav", "Mix\\b.wav"});
  click(0);
  review().ListBorrar.chosen(1, /*by_key=*/true);
  review().ListBorrar.on_click();
  EXPECT_EQ(media.URL(), disk.path("Mix\\a.wav"));
}

TEST_F(RemovalSound, a_file_that_has_gone_is_not_played_and_nothing_is_said) {
  listen_to({"Mix\\a.wav", "Mix\\b.wav"});
  click(1);
  ASSERT_TRUE(disk.files().remove(disk.path("Mix\\a.wav")));
  click(0);
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(review().TextSound.visible());
  EXPECT_EQ(work.ArchivoActual, disk.path("Mix\\b.wav"));
}

TEST_F(RemovalSound, while_projects_are_updated_the_search_keeps_its_file) {
  listen_to({"Mix\\a.wav"});
  work.ArchivoActual = "found";
  work.Actualizando = true;
  click(0);
  EXPECT_EQ(work.ArchivoActual, "found");
  EXPECT_EQ(media.URL(), disk.path("Mix\\a.wav"));
}

TEST_F(RemovalSound, a_review_that_is_closed_while_a_row_is_looked_at_leaves_no_file_open) {
  listen_to({"Mix\\a.wav"});
  disk.write("Mix\\a.wav", wav(16));
  in_the_middle([] { return true; }, [&] { review().cmdSalir_Click(); });
  click(0);
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(windows.find<removal::ParaBorrar>(), nullptr);
  EXPECT_FALSE(player().TimerTime.running());
}

// --- the box

TEST_F(RemovalSound, the_box_plays_the_row_that_is_chosen_and_shows_the_volume) {
  listen_to({"Mix\\a.wav"});
  player().SliderVol.set_value(20);
  review().ListBorrar.chosen(0);
  review().CheckAudio.on_click();
  EXPECT_EQ(media.URL(), disk.path("Mix\\a.wav"));
  EXPECT_EQ(marks(), "ynn");
  EXPECT_TRUE(review().ImageVol.visible());
  EXPECT_TRUE(review().LabelVol.visible());
  EXPECT_EQ(review().ImageVol.bounds().height, 60);
  review().CheckAudio.set_checked(false);
  media.orders.clear();
  review().CheckAudio.on_click();
  EXPECT_THAT(media.orders, testing::ElementsAre("stop", "URL "));
  EXPECT_EQ(marks(), "nnn");
  EXPECT_FALSE(review().ImageVol.visible());
  EXPECT_FALSE(review().LabelVol.visible());
}

TEST_F(RemovalSound, the_box_without_a_chosen_row_ends_what_plays) {
  listen_to({"Mix\\a.wav"});
  form.sound().set_URL(disk.path("Mix\\a.wav"));
  review().ListBorrar.set_current(-1);
  review().CheckAudio.on_click();
  EXPECT_EQ(media.URL(), "");
  EXPECT_TRUE(review().ImageVol.visible());
}

TEST_F(RemovalSound, a_box_that_was_left_ticked_shows_the_volume_at_once) {
  listen_to({"Mix\\a.wav"});
  review().cmdSalir_Click();
  player().SliderVol.set_value(20);
  EXPECT_TRUE(review().ImageVol.visible());
  EXPECT_TRUE(review().LabelVol.visible());
  EXPECT_EQ(review().ImageVol.bounds().height, 60);
  review().CheckAudio.set_checked(false);
  review().cmdSalir_Click();
  EXPECT_FALSE(review().ImageVol.visible());
}

// --- keys

TEST_F(RemovalSound, space_is_the_key_of_the_sound_and_ticks_rows_only_without_the_box) {
  listen_to({"Mix\\a.wav"});
  click(0);
  EXPECT_TRUE(press(32));
  EXPECT_EQ(media.playState(), system::Media::kPaused);
  review().ListBorrar.on_key(32);
  EXPECT_TRUE(review().ListStatus.ticked(0));
  review().CheckAudio.set_checked(false);
  review().ListBorrar.on_key(13);
  EXPECT_TRUE(review().ListStatus.ticked(0));
  review().ListBorrar.on_key(32);
  EXPECT_FALSE(review().ListStatus.ticked(0));
  review().ListBorrar.set_current(-1);
  review().ListBorrar.on_key(32);
  EXPECT_FALSE(review().ListStatus.ticked(0));
}

TEST_F(RemovalSound, the_other_keys_of_the_sound_go_on_to_the_list) {
  listen_to({"Mix\\a.wav"});
  click(0);
  for (const int key : {35, 107, 109}) EXPECT_FALSE(press(key)) << key;
  EXPECT_EQ(media.playState(), system::Media::kStopped);
}

TEST_F(RemovalSound, a_row_that_is_thrown_out_is_let_go) {
  listen_to({"Mix\\a.wav"});
  review().TextAviso.show();
  click(0);
  EXPECT_TRUE(press(46));
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(review().TextAviso.visible());
}

// --- the end of the windows

TEST_F(RemovalSound, leaving_the_review_stops_and_lets_the_file_go) {
  listen_to({"Mix\\a.wav"});
  click(0);
  media.orders.clear();
  review().cmdSalir_Click();
  EXPECT_THAT(media.orders, testing::ElementsAre("stop", "URL "));
  EXPECT_EQ(shown(form.play.ImagePlayPauSt), "nny");
}

TEST_F(RemovalSound, leaving_the_options_lets_the_file_go_and_leaves_the_pictures) {
  for (const bool other_button : {false, true}) {
    listen_to({"Mix\\a.wav"});
    click(0);
    media.orders.clear();
    other_button ? options().cmdSalir.on_click() : options().Salir.on_click();
    EXPECT_EQ(media.orders.front(), "URL ");
    EXPECT_EQ(media.URL(), "");
    EXPECT_EQ(shown(form.play.ImagePlayPauSt), "nyn");
    EXPECT_EQ(windows.find<removal::ParaBorrar>() == nullptr, other_button);
  }
}

TEST_F(RemovalSound, a_run_begins_with_the_sound_at_its_end) {
  listen_to({"Mix\\a.wav"});
  windows.touch<audio::SA>()->show();
  player().show();
  click(0);
  remove();
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_FALSE(windows.visible("Player"));
  EXPECT_FALSE(windows.visible("SA"));
}

TEST_F(RemovalSound, a_folder_for_the_copies_is_picked_in_silence) {
  listen_to({"Mix\\a.wav"});
  click(0);
  set(/*backup=*/true, true, false);
  review().cmdHecho_Click();
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(player().TimerTime.running());
}

TEST_F(RemovalSound, a_run_after_the_choice_of_its_folder_ends_what_was_played_since) {
  listen_to({"Mix\\a.wav"});
  set(/*backup=*/true, true, false);
  disk.make_folder("Copias");
  dialogs.folders.push_back(disk.path("Copias"));
  review().cmdHecho_Click();
  click(0);
  folder_window().cmdCarpetaBorrar_Click();
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(there("Mix\\a.wav"));
}

TEST_F(RemovalSound, the_button_of_the_main_window_puts_the_notice_of_the_player_away) {
  listen_to({"Mix\\a.wav"});
  player().AvisoPL.show();
  form.CommandBorrado.on_click();
  EXPECT_FALSE(player().AvisoPL.visible());
}

// --- recovery

TEST_F(RemovalSound,
       the_window_of_recovery_ends_the_sound_when_it_comes_and_when_it_asks_for_a_log) {
  listen_to({"Mix\\a.wav"});
  click(0);
  recovery();
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(windows.find<audio::Player>(), nullptr);
  EXPECT_EQ(windows.find<audio::SA>(), nullptr);
  click(0);
  dialogs.on_dialog = [&] {
    EXPECT_EQ(windows.find<audio::Player>(), nullptr);
    EXPECT_EQ(windows.find<audio::SA>(), nullptr);
  };
  recovery().cmdOpen_Click();
  EXPECT_EQ(media.URL(), "");
}

TEST_F(RemovalSound, files_that_are_brought_back_are_not_held_by_the_sound) {
  listen_to({"Mix\\a.wav"});
  remove_with_backup("Copias");
  disk.write("Mix\\a.wav", "another recording since then");
  dialogs.files.push_back({disk.path("Copias\\Archivos_Borrados.log")});
  recovery().cmdOpen_Click();
  form.sound().set_URL(disk.path("Mix\\a.wav"));
  form.sound().Control_Click(audio::kPlay);
  recovery().RecuperarArchivos();
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(player().TimerTime.running());
  EXPECT_EQ(bytes("Mix\\a.wav"), "bytes of Mix\\a.wav");
}

}  // namespace
}  // namespace ordelan::test
