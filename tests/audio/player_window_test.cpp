// The window of the player: what it opens and shows, where it stands, and what it keeps.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/zoom.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct PlayerWindow : testing::Test, SoundProgram {
  std::string stored(const std::string& key) {
    return settings.LeerIni(settings.RutaConfig, key, "none");
  }
  // Picks files in the dialog of the player.
  void pick(const std::vector<std::string>& files) {
    dialogs.files.push_back(files);
    player().OpenFile.on_click();
  }
  const ui::Label& title() { return player().LabelDisplay; }
};

// --- opening files

TEST_F(PlayerWindow, one_file_is_loaded_and_waits_for_play) {
  start();
  player().mp3Baud.show();
  pick({song("a.wav", 100)});
  EXPECT_EQ(media.URL(), disk.path("a.wav"));
  EXPECT_EQ(media.playState(), system::Media::kStopped);
  EXPECT_TRUE(player().visible());
  EXPECT_FALSE(player().mp3Baud.visible());
  EXPECT_THAT(sound().ListaPlay, ElementsAre(disk.path("a.wav")));
  EXPECT_EQ(sound().TextosZoom[1], "Cargados: 1 archivos de audio");
  EXPECT_EQ(title().caption(), "  >>>> a -- 01:40 <<<< ");
  EXPECT_TRUE(player().TimerDisplay.running());
  EXPECT_TRUE(program.form.play.ImagePlayPauSt[0].visible());
  EXPECT_EQ(shown(player().Control), "yny");
}

TEST_F(PlayerWindow, of_several_files_the_first_is_loaded_and_the_list_ends_in_an_empty_one) {
  start();
  const std::vector<std::string> files = {song("b.mp3", 60), song("a.wav", 100), song("c.wma", 3)};
  pick(files);
  EXPECT_EQ(media.URL(), disk.path("b.mp3"));
  EXPECT_THAT(sound().ListaPlay, ElementsAre(files[0], files[1], files[2], ""));
  EXPECT_EQ(sound().TextosZoom[1], "Cargados: 3 archivos de audio");
}

TEST_F(PlayerWindow, the_dialog_asks_for_several_audio_files) {
  start();
  pick({song("a.wav", 100)});
  ASSERT_EQ(dialogs.requests.size(), 1U);
  EXPECT_EQ(dialogs.requests[0].filter,
            "Archivos (*.wav, *.aif, *.mp3, *.wma, *.m4a)|*.wav;*.aif;*.mp3;*.wma;*.m4a");
  EXPECT_TRUE(dialogs.requests[0].several);
}

TEST_F(PlayerWindow, an_opened_file_begins_softly_whatever_the_volume_was) {
  start("Volumen=75\r\n");
  pick({song("a.wav", 100)});
  EXPECT_EQ(player().SliderVol.value(), 40);
  EXPECT_EQ(player().LabelVol.caption(), "-50 dB");
  EXPECT_EQ(media.volume(), 75);  // until the slider or a key sets it
  press(player(), 107);
  EXPECT_EQ(media.volume(), 41);
}

TEST_F(PlayerWindow, its_notices_are_read_out) {
  start();
  EXPECT_TRUE(player().AvisoPL.announced());
  EXPECT_TRUE(player().LabelAviso.announced());
  EXPECT_FALSE(player().LabelTime.announced());
}

TEST_F(PlayerWindow, while_files_are_picked_it_is_hidden_and_holds_no_file) {
  start();
  pick({song("a.wav", 100), song("b.wav", 100)});
  sound().Control_Click(audio::kPlay);
  player().AvisoPL.show();
  program.windows.touch<audio::Zoom>()->show();
  bool seen = false;
  dialogs.on_dialog = [&] {
    seen = true;
    EXPECT_FALSE(program.windows.visible(audio::Zoom::kName));
    EXPECT_FALSE(player().visible());
    EXPECT_FALSE(player().AvisoPL.visible());
    EXPECT_EQ(media.URL(), "");
    EXPECT_THAT(sound().ListaPlay, ElementsAre(""));
  };
  player().OpenFile.on_click();
  EXPECT_TRUE(seen);
}

TEST_F(PlayerWindow, after_a_cancel_it_stays_hidden) {
  start();
  player().show();
  player().OpenFile.on_click();
  EXPECT_FALSE(player().visible());
  EXPECT_EQ(media.URL(), "");
  EXPECT_THAT(sound().ListaPlay, ElementsAre(""));
  EXPECT_FALSE(player().TimerDisplay.running());
}

TEST_F(PlayerWindow, nothing_is_loaded_when_it_was_closed_while_files_were_picked) {
  start();
  player().show();
  dialogs.on_dialog = [&] { program.form.cmdReset_Click(); };
  pick({song("a.wav", 100)});
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(player().visible());
  EXPECT_THAT(sound().ListaPlay, ElementsAre(""));
}

TEST_F(PlayerWindow, nothing_is_loaded_when_a_new_one_stands_in_its_place_after_the_dialog) {
  start();
  dialogs.on_dialog = [&] {
    player().CloseW_Click();
    player();
  };
  pick({song("a.wav", 100)});
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(player().visible());
}

TEST_F(PlayerWindow, a_file_that_is_opened_while_another_plays_shows_play_in_place_of_pause) {
  start();
  pick({song("a.wav", 100)});
  sound().Control_Click(audio::kPlay);
  ASSERT_EQ(shown(player().Control), "nyy");
  pick({song("b.wav", 100)});
  EXPECT_EQ(shown(player().Control), "yny");
}

// --- the title

TEST_F(PlayerWindow, the_moving_title_names_the_kind_of_file) {
  start();
  pick({song("Take.WAV", 100)});
  pass(0.025);
  EXPECT_EQ(title().caption(), "  >>>> Take.wav -- 01:40 <<<< ");
}

TEST_F(PlayerWindow, the_title_moves_until_it_has_left_its_frame_and_begins_again) {
  start();
  sound().set_URL(song("a.wav", 100));
  sound().Control_Click(audio::kPlay);
  ASSERT_EQ(title().text_left(), 100);
  pass(0.025);
  EXPECT_EQ(title().text_left(), 90);
  const int width = title().text_width();
  ASSERT_GT(width, 0);
  player().place_title(-width - 10);
  pass(0.025);
  EXPECT_EQ(title().text_left(), -width - 20);  // its end is 20 before the frame
  pass(0.025);
  EXPECT_EQ(title().text_left(), 100);
}

TEST_F(PlayerWindow, without_a_file_the_title_stands) {
  start();
  sound().set_URL(song("a.wav", 100));
  sound().Control_Click(audio::kPlay);
  pass(0.025);
  const std::string caption = title().caption();
  sound().set_URL("");
  pass(0.1);
  EXPECT_EQ(title().text_left(), 90);
  EXPECT_EQ(title().caption(), caption);
}

// --- the spectrum beside it

TEST_F(PlayerWindow, its_button_shows_the_spectrum_beside_it_and_hides_it) {
  start("Volumen=30\r\n");
  player().show();
  player().set_position({200, 500});
  player().AvisoPL.show();
  player().SAtoggle1.on_click();
  EXPECT_FALSE(player().AvisoPL.visible());
  EXPECT_TRUE(spectrum().visible());
  EXPECT_EQ(spectrum().position(), (ui::Point{210, 160}));
  EXPECT_EQ(spectrum().ShapeVol.bounds().height, 90);  // the volume is set anew
  player().SAtoggle1.on_click();
  EXPECT_FALSE(spectrum().visible());
}

TEST_F(PlayerWindow, the_spectrum_stands_in_its_place_before_it_is_seen) {
  start();
  player().show();
  player().set_position({200, 500});
  spectrum().set_position({3, 4});
  ui::Point seen_at;
  spectrum().on_visible = [&] { seen_at = spectrum().position(); };
  player().SAtoggle1.on_click();
  EXPECT_EQ(seen_at, (ui::Point{210, 160}));
}

TEST_F(PlayerWindow, its_button_sets_the_volume_only_when_the_spectrum_comes) {
  start();
  spectrum().show();
  player().SAtoggle1.on_click();
  EXPECT_THAT(media.orders, IsEmpty());
  player().SAtoggle1.on_click();
  EXPECT_THAT(media.orders, ElementsAre("volume 80"));
}

TEST_F(PlayerWindow, its_button_brings_a_minimised_spectrum_back) {
  start();
  spectrum().show();
  spectrum().cmdMinimizar.on_click();
  ASSERT_TRUE(spectrum().minimized());
  player().SAtoggle1.on_click();
  EXPECT_FALSE(spectrum().minimized());
  EXPECT_TRUE(spectrum().visible());
  // A file of 32 bits may have hidden it since.
  spectrum().cmdMinimizar.on_click();
  spectrum().hide();
  player().SAtoggle1.on_click();
  EXPECT_FALSE(spectrum().minimized());
  EXPECT_TRUE(spectrum().visible());
}

TEST_F(PlayerWindow, the_spectrum_comes_beside_it_with_a_file_a_drag_and_a_double_click) {
  start("Player_Left=300\r\nPlayer_Top=600\r\n");
  spectrum().show();
  player().show();
  spectrum().set_position({0, 0});
  pick({song("a.wav", 100)});
  EXPECT_EQ(spectrum().position(), (ui::Point{310, 260}));
  player().set_position({40, 400});
  player().on_drag_end();
  EXPECT_EQ(spectrum().position(), (ui::Point{50, 60}));
  spectrum().set_position({0, 0});
  player().on_double_click();
  EXPECT_EQ(spectrum().position(), (ui::Point{50, 60}));
}

TEST_F(PlayerWindow, a_hidden_spectrum_stays_where_it_is) {
  start();
  spectrum().set_position({7, 7});
  player().set_position({40, 400});
  player().on_drag_end();
  EXPECT_EQ(spectrum().position(), (ui::Point{7, 7}));
}

// --- its place and what it keeps

TEST_F(PlayerWindow, a_drag_stores_the_place) {
  start();
  player().set_position({40, 400});
  player().on_drag_end();
  EXPECT_EQ(stored("Player_Left"), "40");
  EXPECT_EQ(stored("Player_Top"), "400");
}

TEST_F(PlayerWindow, its_close_button_stores_place_volume_and_box) {
  start();
  player().set_position({40, 400});
  player().SliderVol.set_value(61);
  player().CheckToolTip.set_checked(true);
  player().CloseW.on_click();
  EXPECT_EQ(stored("Player_Left"), "40");
  EXPECT_EQ(stored("Player_Top"), "400");
  EXPECT_EQ(stored("Volumen"), "61");
  EXPECT_EQ(stored("No ToolTips"), "1");
  EXPECT_FALSE(player().visible());
  EXPECT_TRUE(player().CheckToolTip.checked());
  EXPECT_EQ(player().position(), (ui::Point{40, 400}));
}

TEST_F(PlayerWindow, a_double_click_puts_it_where_it_was_stored_with_the_stored_volume) {
  start("Player_Left=300\r\nPlayer_Top=600\r\nVolumen=30\r\n");
  player().show();
  player().set_position({1, 2});
  player().SliderVol.set_value(61);
  player().AvisoPL.show();
  program.form.set_minimized(true);
  player().on_double_click();
  EXPECT_EQ(player().position(), (ui::Point{300, 600}));
  EXPECT_EQ(player().SliderVol.value(), 30);
  EXPECT_FALSE(player().AvisoPL.visible());
  EXPECT_FALSE(program.form.minimized());
}

TEST_F(PlayerWindow, a_double_click_leaves_a_volume_that_was_never_stored) {
  start();
  player().show();
  press(player(), 109);
  player().on_double_click();
  EXPECT_EQ(player().SliderVol.value(), 79);
  EXPECT_EQ(media.volume(), 79);
}

TEST_F(PlayerWindow, hidden_it_keeps_its_place_at_a_double_click) {
  start("Player_Left=300\r\nPlayer_Top=600\r\nVolumen=30\r\n");
  player().set_position({1, 2});
  player().SliderVol.set_value(61);
  player().Form_DblClick();
  EXPECT_EQ(player().position(), (ui::Point{1, 2}));
  EXPECT_EQ(player().SliderVol.value(), 61);
}

TEST_F(PlayerWindow, its_box_puts_the_tooltips_away_and_brings_them_back) {
  start();
  const auto tips = [this] {
    audio::Player& window = player();
    return std::vector<std::string>{
        window.mp3Baud.tip(),    window.LabelVol.tip(),   window.LabelDisplay.tip(),
        window.LabelTime.tip(),  window.PictureLD.tip(),  window.SliderTime.tip(),
        window.SliderVol.tip(),  window.PL.tip(),         window.OpenFile.tip(),
        window.SAtoggle1.tip(),  window.CloseW.tip(),     window.cmdMinimizar.tip(),
        window.Control[0].tip(), window.Control[1].tip(), window.Control[2].tip(),
    };
  };
  const auto all = tips();
  EXPECT_THAT(
      all,
      ElementsAre(
          "Velocidad en Kilobaudios", "Nivel volumen", "Titulo y duración", "Tiempo trancurrido",
          "Tiempo trancurrido", "Arrastrar para cambiar posición de audio.",
          "Clic en posición X , o arrastrar fader. Play/Pausa con espacio, Volumen teclas + -",
          "Abre/cierra PlayList", "Abrir archivo de audio", "Abre/cierra Spectrómetro",
          "Cerrar Player", "Minimizar a barra de tareas", "Play/Pausa", "Pausa/Play", "Stop"));
  player().CheckToolTip.toggle();
  EXPECT_THAT(tips(), testing::Each(""));
  player().CloseW_Click();
  EXPECT_THAT(tips(), testing::Each("")) << "as it was left";
  player().CheckToolTip.toggle();
  EXPECT_EQ(tips(), all);
}

// --- the button of the main window

TEST_F(PlayerWindow, the_main_window_shows_it_where_it_was_stored_and_hides_it) {
  start("Player_Left=300\r\nPlayer_Top=600\r\n");
  player().AvisoPL.show();
  player().set_position({1, 2});
  program.form.cmdPlayer.on_click();
  EXPECT_TRUE(player().visible());
  EXPECT_FALSE(player().AvisoPL.visible());
  EXPECT_EQ(player().position(), (ui::Point{300, 600}));
  player().set_position({1, 2});
  program.form.cmdPlayer.on_click();
  EXPECT_FALSE(player().visible());
  EXPECT_EQ(player().position(), (ui::Point{1, 2}));
}

TEST_F(PlayerWindow, hiding_it_leaves_the_sound_and_stores_the_volume) {
  start("Volumen=35\r\n");
  sound().set_URL(song("a.wav", 100));
  program.form.cmdPlayer.on_click();
  for (int i = 0; i < 10; ++i) press(player(), 107);
  program.form.cmdPlayer.on_click();
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_EQ(stored("Volumen"), "45");
  // The slider of one that comes back stands at what is heard.
  program.form.cmdPlayer.on_click();
  EXPECT_EQ(player().SliderVol.value(), 45);
  EXPECT_EQ(media.volume(), 45);
}

TEST_F(PlayerWindow, the_main_window_brings_a_minimised_one_back_as_it_is) {
  start("Player_Left=300\r\nPlayer_Top=600\r\n");
  player().show();
  player().set_position({1, 2});
  player().cmdMinimizar.on_click();
  ASSERT_TRUE(player().minimized());
  program.form.cmdPlayer.on_click();
  EXPECT_FALSE(player().minimized());
  EXPECT_TRUE(player().visible());
  EXPECT_EQ(player().position(), (ui::Point{1, 2}));
}

TEST_F(PlayerWindow, during_a_removal_the_button_of_the_main_window_does_nothing) {
  start();
  player().AvisoPL.show();
  program.work.Borrando = true;
  program.form.cmdPlayer.on_click();
  EXPECT_FALSE(player().visible());
  EXPECT_TRUE(player().AvisoPL.visible());
}

TEST_F(PlayerWindow, shown_by_the_main_window_it_begins_its_title_anew) {
  start();
  sound().set_URL(song("a.wav", 100));
  sound().Control_Click(audio::kPlay);
  pass(0.1);
  sound().Control_Click(audio::kPause);
  ASSERT_NE(title().text_left(), 100);
  program.form.cmdPlayer.on_click();
  EXPECT_EQ(title().text_left(), 100);
  EXPECT_EQ(title().caption(), "  >>>> a -- 01:40 <<<< ");
}

TEST_F(PlayerWindow, without_a_file_the_main_window_leaves_its_title) {
  start();
  player().place_title(-50);
  const std::string caption = title().caption();
  program.form.cmdPlayer.on_click();
  EXPECT_EQ(title().text_left(), -50);
  EXPECT_EQ(title().caption(), caption);
}

// --- its controls

TEST_F(PlayerWindow, its_three_buttons_order_the_transport) {
  start();
  pick({song("a.wav", 100)});
  media.orders.clear();
  for (const int i : {audio::kPlay, audio::kPause, audio::kStop}) player().Control[i].on_click();
  EXPECT_THAT(media.orders, ElementsAre("play", "pause", "stop"));
}

TEST_F(PlayerWindow, its_notice_is_not_there_at_first_and_goes_with_a_click_on_it) {
  start();
  EXPECT_FALSE(player().AvisoPL.visible());
  EXPECT_TRUE(player().AvisoPL.multiline());
  player().AvisoPL.show();
  player().AvisoPL.on_click();
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(PlayerWindow, its_notice_goes_with_a_click_on_the_ground_or_a_box) {
  start();
  const std::vector<std::function<void()>> clicks = {[&] { player().on_drag_end(); },
                                                     [&] { player().CheckToolTip.on_click(); },
                                                     [&] { player().CheckSeguir.on_click(); }};
  for (const auto& click : clicks) {
    player().AvisoPL.show();
    click();
    EXPECT_FALSE(player().AvisoPL.visible());
  }
}

TEST_F(PlayerWindow, a_cancel_empties_the_list_of_the_playlist) {
  start();
  pick({song("a.wav", 100), song("b.wav", 100)});
  player().OpenFile.on_click();
  EXPECT_THAT(program.windows.touch<audio::Zoom>()->ListFilesZoom.rows(), IsEmpty());
}

TEST_F(PlayerWindow, it_closes_by_its_button_and_as_the_system_closes_a_window) {
  start("Volumen=35\r\n");
  for (const bool by_system : {false, true}) {
    player().show();
    player().set_position({by_system ? 11 : 12, 6});
    player().SliderVol.set_value(by_system ? 61 : 62);
    by_system ? player().on_close() : player().CloseW.on_click();
    EXPECT_EQ(program.windows.find<audio::Player>(), nullptr);
    EXPECT_EQ(stored("Player_Left"), by_system ? "11" : "12");
    EXPECT_EQ(stored("Volumen"), by_system ? "61" : "62");
  }
}

TEST_F(PlayerWindow, a_new_one_shows_play_and_no_time_runs) {
  start();
  EXPECT_FALSE(player().TimerTime.running());
  EXPECT_EQ(shown(player().Control), "yny");
  EXPECT_EQ(player().LabelTime.caption(), "00:00");
}

TEST_F(PlayerWindow, the_spectrum_stands_above_it_as_long_as_there_is_room) {
  start();
  player().set_position({200, 340});
  EXPECT_EQ(player().place_of_SA(), (ui::Point{210, 0}));
  player().set_position({200, 339});
  EXPECT_EQ(player().place_of_SA(), (ui::Point{210, 541}));
}

TEST_F(PlayerWindow, its_controls_have_names_for_screen_readers) {
  start();
  const auto& window = player();
  const std::vector<std::string> names = {window.OpenFile.description(), window.PL.description(),
                                          window.SAtoggle1.description(),
                                          window.CloseW.description()};
  EXPECT_THAT(names, ElementsAre("Abrir archivo de audio", "PlayList", "Espectro", "Cerrar"));
}

}  // namespace
}  // namespace ordelan::test
