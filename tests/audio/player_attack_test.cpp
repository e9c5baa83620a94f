// Ways in which the player once lost what the user had set, or stopped where it should go on.
#include <gmock/gmock.h>

#include "audio/zoom.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

struct PlayerAttack : testing::Test, SoundProgram {
  void pick(const std::vector<std::string>& files) {
    dialogs.files.push_back(files);
    player().OpenFile.on_click();
  }
  // Picks them, and plays them one after the other.
  void play_all(const std::vector<std::string>& files) {
    player().CheckSeguir.set_checked(true);
    pick(files);
    player().Control[audio::kPlay].on_click();
  }
  audio::Zoom& zoom() { return *program.windows.touch<audio::Zoom>(); }
  std::string stored(const std::string& key) {
    return settings.LeerIni(settings.RutaConfig, key, "none");
  }
};

TEST_F(PlayerAttack, the_next_mp3_shows_its_own_bit_rate) {
  start();
  play_all({song("a.mp3", 2, 128), song("b.mp3", 2, 320)});
  pass(1);
  EXPECT_EQ(player().mp3Baud.caption(), " 128 Kbaud ");
  pass(2);
  EXPECT_EQ(media.URL(), disk.path("b.mp3"));
  EXPECT_EQ(player().mp3Baud.caption(), " 320 Kbaud ");
}

TEST_F(PlayerAttack, a_file_that_cannot_be_played_is_passed_over) {
  start();
  play_all({song("a.wav", 2), song("b.wav", 0), song("c.wav", 200)});
  pass(8);
  EXPECT_EQ(media.URL(), disk.path("c.wav"));
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_EQ(player().LabelAviso.caption(), "");
}

TEST_F(PlayerAttack, without_the_box_it_stays_and_says_so) {
  start();
  pick({song("b.wav", 0), song("c.wav", 200)});
  player().Control[audio::kPlay].on_click();
  pass(2);
  EXPECT_EQ(media.URL(), disk.path("b.wav"));
  EXPECT_NE(player().LabelAviso.caption(), "");
}

TEST_F(PlayerAttack, so_is_the_last_one_though_nothing_follows) {
  start();
  play_all({song("a.wav", 2), song("b.wav", 0)});
  pass(8);
  EXPECT_EQ(media.URL(), disk.path("b.wav"));
}

TEST_F(PlayerAttack, a_very_short_file_is_followed_by_the_next) {
  start();
  play_all({song("a.wav", 2), song("b.wav", 0.02), song("c.wav", 200)});
  pass(8);
  EXPECT_EQ(media.URL(), disk.path("c.wav"));
}

TEST_F(PlayerAttack, the_box_for_the_next_file_is_stored_as_it_is_clicked) {
  start();
  player().AvisoPL.show();
  player().CheckSeguir.toggle();
  EXPECT_EQ(stored("Seguir con el siguiente"), "1");
  EXPECT_FALSE(player().AvisoPL.visible());
  program.form.cmdReset_Click();
  EXPECT_TRUE(player().CheckSeguir.checked());
}

TEST_F(PlayerAttack, the_reason_of_a_bad_file_goes_with_it) {
  start();
  pick({song("malo.wav", 0)});
  player().Control[audio::kPlay].on_click();
  pass(0.1);
  EXPECT_NE(player().LabelAviso.caption(), "");
  player().Control[audio::kStop].on_click();
  pick({song("bueno.wav", 100)});
  EXPECT_EQ(player().LabelAviso.caption(), "");
}

TEST_F(PlayerAttack, the_end_of_the_engine_takes_the_waveform_along) {
  start();
  player().show();
  std::string wav(
      "RIFF\0\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x44\xAC\0\0\x88\x58\x01\0\x02\0\x10\0", 36);
  wav += std::string("data\0\x10\0\0", 8) + std::string(4096, '\x40');
  disk.write("a.wav", wav);
  pick({song("a.wav", 100)});
  player().Control[audio::kPlay].on_click();
  pass(0.3);
  ASSERT_TRUE(player().ImageOnda.visible());
  player().Control[audio::kPause].on_click();
  spectrum().Close_Click();
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(player().ImageOnda.visible());
}

TEST_F(PlayerAttack, a_place_that_keys_go_to_is_shown_everywhere_in_a_pause_too) {
  start();
  pick({song("a.wav", 100)});
  zoom().show();
  player().Control[audio::kPlay].on_click();
  pass(10);
  player().Control[audio::kPause].on_click();
  press(player(), 39);
  EXPECT_EQ(player().SliderTime.value(), 15);
  EXPECT_EQ(zoom().SliderTime.value(), 15);
  EXPECT_EQ(player().LabelTime.caption(), "00:15");
}

TEST_F(PlayerAttack, only_the_left_button_seeks) {
  start();
  pick({song("a.wav", 100)});
  player().Control[audio::kPlay].on_click();
  pass(10);
  for (ui::Slider* const slider : {&player().SliderTime, &zoom().SliderTime}) {
    slider->on_mouse_up({.at = {180, 9}, .button = ui::kRightButton});
    EXPECT_NEAR(media.currentPosition(), 10, 1);
  }
}

TEST_F(PlayerAttack, keys_with_alt_are_the_systems) {
  start();
  pick({song("a.wav", 100)});
  player().Control[audio::kPlay].on_click();
  pass(10);
  for (const int code : {32, 35, 36, 37, 39, 107}) {
    ui::Key key{.code = code, .alt = true};
    player().on_key_down(key);
    EXPECT_FALSE(key.swallowed) << code;
  }
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_NEAR(media.currentPosition(), 10, 1);
}

TEST_F(PlayerAttack, the_choice_of_files_comes_up_once_at_a_time) {
  start();
  dialogs.on_dialog = [&] {
    dialogs.on_dialog = {};
    player().show();
    player().OpenFile.on_click();
  };
  pick({song("a.wav", 100)});
  EXPECT_EQ(dialogs.requests.size(), 1u);
  EXPECT_EQ(media.URL(), disk.path("a.wav"));
  pick({song("b.wav", 100)});
  EXPECT_EQ(media.URL(), disk.path("b.wav"));
}

TEST_F(PlayerAttack, the_playlist_has_its_captions_whatever_stood_there) {
  start();
  pick({song("a.wav", 2), song("b.wav", 2)});
  sound().TextosZoom[0] = "Mis tomas";
  zoom().LabelNvip.set_caption("x");
  zoom().LabelNvip.hide();
  zoom().Files.set_caption("y");
  zoom().Files.hide();
  player().PL.on_click();
  EXPECT_EQ(zoom().LabelNvip.caption(), "Mis tomas");
  EXPECT_TRUE(zoom().LabelNvip.visible());
  EXPECT_EQ(zoom().Files.caption(), "Cargados: 2 archivos de audio");
  EXPECT_TRUE(zoom().Files.visible());
}

TEST_F(PlayerAttack, the_balloon_of_a_row_goes_with_a_press_a_key_or_the_window) {
  start();
  disk.write("a.wav", "x");
  const std::vector<std::function<void()>> ends = {
      [&] { zoom().on_mouse_down(); }, [&] { press(zoom(), 40); }, [&] { zoom().hide(); }};
  for (const auto& end : ends) {
    zoom().show();
    player().MostrarInfoArchivo(zoom().ListFilesZoom, disk.path("a.wav"), "");
    ASSERT_TRUE(player().Bal.exists());
    end();
    EXPECT_FALSE(player().Bal.exists());
  }
}

TEST_F(PlayerAttack, names_of_less_than_three_characters_are_names) {
  start();
  for (const char* const name : {"", "a", "ab"}) {
    player().MostrarInfoArchivo(player().PictureLD, name, "");
    EXPECT_FALSE(player().Bal.exists());
  }
  std::string found;
  EXPECT_FALSE(player().BuscarAudio("ab", zoom().ListFilesZoom, 5, false, true, found));
}

TEST_F(PlayerAttack, a_device_that_is_missing_leaves_the_mark_to_the_default_one) {
  media.plugged_in = {{"id-a", "Altavoces"}};
  start("Salida=id-b\r\n");
  player().on_context_menu(true);
  EXPECT_TRUE(dialogs.menus.back()[2].ticked);
  EXPECT_FALSE(dialogs.menus.back()[3].ticked);
}

}  // namespace
}  // namespace ordelan::test
