// The detail window: the playlist that the player opens, and its small transport.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/zoom.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ZoomWindow : testing::Test, SoundProgram {
  void pick(const std::vector<std::string>& files) {
    dialogs.files.push_back(files);
    player().OpenFile.on_click();
  }
  std::vector<std::string> two_songs() { return {song("a.wav", 100), song("b.mp3", 60)}; }
  // A file that is on the disk too.
  std::string stored_song(const std::string& name, double seconds) {
    disk.write(name, "tono");
    return song(name, seconds);
  }
  audio::Zoom& zoom() { return *program.windows.touch<audio::Zoom>(); }
  std::string strip() { return program.form.strip.TextDecode.text(); }
};

// --- the playlist

TEST_F(ZoomWindow, an_empty_playlist_shows_a_notice_that_any_click_puts_away) {
  start();
  player().show();
  player().PL.on_click();
  EXPECT_FALSE(zoom().visible());
  EXPECT_TRUE(player().AvisoPL.visible());
  EXPECT_EQ(player().AvisoPL.text(), "PlayList vacio\r\nClic ocultar");
  player().Control[audio::kStop].on_click();
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(ZoomWindow, the_playlist_is_shown_with_its_empty_last_row_and_hidden_again) {
  start();
  const auto files = two_songs();
  pick(files);
  media.orders.clear();
  player().PL.on_click();
  EXPECT_TRUE(zoom().visible());
  EXPECT_THAT(zoom().ListFilesZoom.rows(), ElementsAre(files[0], files[1], ""));
  EXPECT_EQ(zoom().Files.caption(), "Cargados: 2 archivos de audio");
  EXPECT_TRUE(zoom().Files.visible());
  EXPECT_EQ(zoom().LabelNvip.caption(), "");
  EXPECT_TRUE(zoom().LabelNvip.visible());
  EXPECT_THAT(media.orders, ElementsAre("volume 40"));
  EXPECT_EQ(zoom().LabelVol.caption(), "-50 dB");
  EXPECT_EQ(zoom().SliderVol.value(), 40);
  player().PL.on_click();
  EXPECT_FALSE(zoom().visible());
}

TEST_F(ZoomWindow, a_single_file_is_shown_as_an_empty_list) {
  start();
  pick({song("a.wav", 100)});
  EXPECT_THAT(zoom().ListFilesZoom.rows(), ElementsAre(disk.path("a.wav"))) << "until it is shown";
  EXPECT_FALSE(zoom().LabelNvip.visible());
  player().PL.on_click();
  EXPECT_TRUE(zoom().visible());
  EXPECT_THAT(zoom().ListFilesZoom.rows(), IsEmpty());
  EXPECT_EQ(zoom().Files.caption(), "Cargados: 1 archivos de audio");
}

TEST_F(ZoomWindow, its_button_brings_it_back_when_it_is_minimised) {
  start();
  pick(two_songs());
  player().PL.on_click();
  zoom().cmdMinimizar.on_click();
  zoom().ListFilesZoom.clear();
  player().PL.on_click();
  EXPECT_TRUE(zoom().visible());
  EXPECT_FALSE(zoom().minimized());
  EXPECT_THAT(zoom().ListFilesZoom.rows(), IsEmpty()) << "it is not filled anew";
}

TEST_F(ZoomWindow, opening_files_hides_it_and_loads_its_list) {
  start();
  pick(two_songs());
  player().PL.on_click();
  pick({song("c.wav", 5)});
  EXPECT_FALSE(zoom().visible());
  EXPECT_THAT(zoom().ListFilesZoom.rows(), ElementsAre(disk.path("c.wav")));
}

// --- one after the other

TEST_F(ZoomWindow, an_ended_file_is_the_last_one_unless_the_box_says_otherwise) {
  start();
  pick({song("a.wav", 2), song("b.wav", 2), song("c.wav", 2)});
  EXPECT_FALSE(player().CheckSeguir.checked());
  EXPECT_EQ(player().CheckSeguir.caption(), "Seguir con el siguiente");
  player().Control[audio::kPlay].on_click();
  pass(3);
  EXPECT_EQ(media.URL(), disk.path("a.wav"));
  EXPECT_EQ(shown(player().Control), "yny");
  player().CheckSeguir.set_checked(true);
  player().Control[audio::kPlay].on_click();
  pass(3);
  EXPECT_EQ(media.URL(), disk.path("b.wav"));
  EXPECT_EQ(shown(player().Control), "nyy");
  EXPECT_THAT(player().LabelDisplay.caption(), ::testing::HasSubstr("b.wav -- 00:02"));
  player().Control[audio::kStop].on_click();
  pass(3);
  EXPECT_EQ(media.URL(), disk.path("b.wav")) << "it was stopped by hand";
  player().Control[audio::kPlay].on_click();
  pass(6);
  EXPECT_EQ(media.URL(), disk.path("c.wav"));
  EXPECT_EQ(media.playState(), system::Media::kStopped) << "nothing comes after the last";
}

TEST_F(ZoomWindow, a_file_that_is_opened_waits_whatever_played_before) {
  start();
  player().CheckSeguir.set_checked(true);
  pick({song("a.wav", 2), song("b.wav", 2)});
  player().Control[audio::kPlay].on_click();
  pass(1.5);  // near its end
  pick({song("c.wav", 1), song("d.wav", 2), song("e.wav", 2)});
  pass(3);
  EXPECT_EQ(media.URL(), disk.path("c.wav"));
  EXPECT_EQ(media.playState(), system::Media::kStopped);
  // The same file once more, which was near its end.
  pick({song("a.wav", 2), song("b.wav", 2)});
  player().Control[audio::kPlay].on_click();
  pass(1.5);
  pick({song("a.wav", 2), song("b.wav", 2)});
  pass(3);
  EXPECT_EQ(media.URL(), disk.path("a.wav"));
}

TEST_F(ZoomWindow, nothing_follows_a_file_that_another_window_has_stopped) {
  start();
  player().CheckSeguir.set_checked(true);
  pick({song("a.wav", 20), song("b.wav", 2)});
  player().Control[audio::kPlay].on_click();
  pass(1);
  media.stop();
  pass(1);
  EXPECT_EQ(media.URL(), disk.path("a.wav"));
  EXPECT_EQ(media.playState(), system::Media::kStopped);
}

TEST_F(ZoomWindow, nothing_follows_a_file_that_is_not_in_the_playlist) {
  start();
  pick({song("a.wav", 2), song("b.wav", 2)});
  player().CheckSeguir.set_checked(true);
  sound().set_URL(song("x.wav", 2));
  sound().Control_Click(audio::kPlay);
  pass(3);
  EXPECT_EQ(media.URL(), disk.path("x.wav"));
  pick({song("solo.wav", 2)});
  player().Control[audio::kPlay].on_click();
  pass(3);
  EXPECT_EQ(media.URL(), disk.path("solo.wav"));
  EXPECT_EQ(media.playState(), system::Media::kStopped);
}

TEST_F(ZoomWindow, the_box_for_the_next_file_is_kept) {
  start("Seguir con el siguiente=1\r\n");
  EXPECT_TRUE(player().CheckSeguir.checked());
  player().CheckSeguir.toggle();
  player().CloseW.on_click();
  EXPECT_FALSE(player().CheckSeguir.checked());
}

// --- counts

TEST_F(ZoomWindow, counts_audio_files_and_projects) {
  start();
  zoom().fill({"->D:\\p.vip", "D:\\a.wav", "D:\\b.wav", "----------", "D:\\c.wav > D:\\p.vip"});
  zoom().ContarFiles();
  EXPECT_EQ(zoom().Files.caption(), "2 archivos de audio");
  EXPECT_EQ(zoom().LabelNvip.caption(), "1 Proyectos Vips");
}

TEST_F(ZoomWindow, a_count_of_none_shows_nothing) {
  start();
  zoom().Files.hide();
  zoom().LabelNvip.hide();
  zoom().fill({"->D:\\p.vip"});
  zoom().ContarFiles();
  EXPECT_FALSE(zoom().Files.visible());
  EXPECT_TRUE(zoom().LabelNvip.visible());
  zoom().LabelNvip.hide();
  zoom().fill({"D:\\a.wav"});
  zoom().ContarFiles();
  EXPECT_TRUE(zoom().Files.visible());
  EXPECT_FALSE(zoom().LabelNvip.visible());
}

// --- the transport

TEST_F(ZoomWindow, its_pictures_follow_the_transport_only_while_it_is_shown) {
  start();
  pick(two_songs());
  player().Control[audio::kPlay].on_click();
  EXPECT_TRUE(zoom().Play.visible());
  player().Control[audio::kStop].on_click();
  player().PL.on_click();
  player().Control[audio::kPlay].on_click();
  EXPECT_FALSE(zoom().Play.visible());
  EXPECT_TRUE(zoom().Pause.visible());
  player().Control[audio::kPause].on_click();
  EXPECT_TRUE(zoom().Play.visible());
  EXPECT_FALSE(zoom().Pause.visible());
}

TEST_F(ZoomWindow, plays_and_pauses_what_is_loaded) {
  start();
  pick(two_songs());
  player().PL.on_click();
  zoom().Play.on_click();
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_FALSE(zoom().Play.visible());
  EXPECT_TRUE(zoom().Pause.visible());
  zoom().Pause.on_click();
  EXPECT_EQ(media.playState(), system::Media::kPaused);
  EXPECT_TRUE(zoom().Play.visible());
  EXPECT_FALSE(zoom().Pause.visible());
}

TEST_F(ZoomWindow, without_a_file_the_strip_says_so_and_the_pictures_stay) {
  start();
  zoom().show();
  zoom().Play.on_click();
  EXPECT_EQ(strip(), "\r\n >>> AVISO <<<   Este archivo no existe en esta ruta");
  EXPECT_TRUE(zoom().Play.visible());
  program.form.strip.TextDecode.set_text("");
  zoom().Pause.on_click();
  EXPECT_EQ(strip(), "\r\n >>> AVISO <<<   Este archivo no existe en esta ruta");
  EXPECT_FALSE(zoom().Pause.visible());
}

TEST_F(ZoomWindow, its_sliders_show_and_set_place_and_volume) {
  start();
  pick(two_songs());
  player().PL.on_click();
  player().Control[audio::kPlay].on_click();
  pass(2);
  EXPECT_EQ(zoom().SliderTime.max(), 100);
  EXPECT_EQ(zoom().SliderTime.value(), 2);
  zoom().SliderTime.on_mouse_up({.at = {100, 5}, .button = ui::kLeftButton});
  EXPECT_DOUBLE_EQ(media.currentPosition(), 50);
  player().AvisoPL.show();
  zoom().SliderTime.on_change(30);
  EXPECT_DOUBLE_EQ(media.currentPosition(), 30);
  EXPECT_FALSE(player().AvisoPL.visible());
  player().AvisoPL.show();
  zoom().SliderVol.on_change(70);
  EXPECT_EQ(player().LabelVol.caption(), "-20 dB");
  EXPECT_EQ(zoom().LabelVol.caption(), "-20 dB");
  EXPECT_EQ(player().SliderVol.value(), 70) << "the keys and the settings go by it";
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(ZoomWindow, its_button_shows_the_player) {
  start("Player_Left=300\r\nPlayer_Top=400\r\n");
  pick(two_songs());
  player().hide();
  player().set_position({1, 2});
  media.set_balance(30);
  zoom().PlayerMaster.on_click();
  EXPECT_TRUE(player().visible());
  EXPECT_EQ(player().position(), (ui::Point{300, 400}));
  EXPECT_EQ(player().LabelDisplay.caption(), "  >>>> --------------- <<<< ");
  EXPECT_EQ(media.balance(), 0);
}

TEST_F(ZoomWindow, a_click_on_a_row_loads_it_and_plays_it_if_the_box_says_so) {
  start();
  const std::string a = stored_song("a.wav", 100);
  const std::string b = stored_song("b.m4a", 60);
  zoom().fill({a, b});
  zoom().show();
  zoom().CheckAutoPlay.set_checked(false);
  zoom().ListFilesZoom.set_current(1);
  zoom().ListFilesZoom.on_click();
  EXPECT_EQ(media.URL(), b);
  EXPECT_EQ(media.playState(), system::Media::kStopped);
  EXPECT_EQ(program.work.ArchivoActual, b);
  EXPECT_EQ(zoom().TextInfo.text(), sound().info.TextoToolTip);
  EXPECT_TRUE(program.form.play.ImagePlayPauSt[0].visible());
  zoom().CheckAutoPlay.set_checked(true);
  zoom().CheckAutoPlay.on_click();
  EXPECT_EQ(media.playState(), system::Media::kPlaying) << "the row in hand";
  zoom().ListFilesZoom.set_current(0);
  zoom().ListFilesZoom.on_click();
  EXPECT_EQ(media.URL(), a);
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_EQ(player().LabelDisplay.caption(), "  >>>> a -- 01:40 <<<< ");
  EXPECT_TRUE(zoom().Pause.visible());
  zoom().CheckAutoPlay.set_checked(false);
  zoom().CheckAutoPlay.on_click();
  EXPECT_EQ(media.playState(), system::Media::kStopped);
}

TEST_F(ZoomWindow, a_row_that_does_not_play_ends_the_sound_and_loads_nothing) {
  start();
  const std::string a = stored_song("a.wav", 100);
  disk.write("c.flac", "tono");
  zoom().fill({a, disk.path("tema.vip"), "----------", ""});
  sound().set_URL(a);
  for (const int row : {1, 2, 3}) {
    sound().Control_Click(audio::kPlay);
    zoom().ListFilesZoom.set_current(row);
    zoom().ListFilesZoom.on_click();
    EXPECT_EQ(media.URL(), a) << row;
    EXPECT_EQ(media.playState(), system::Media::kStopped) << row;
    EXPECT_EQ(player().LabelDisplay.caption(), "") << row;
  }
}

TEST_F(ZoomWindow, a_click_is_given_up_when_another_one_has_come_meanwhile) {
  start();
  const std::string a = stored_song("a.wav", 100);
  const std::string b = stored_song("b.wav", 60);
  zoom().fill({a, b});
  zoom().show();
  bool again = true;
  backend.on_pump = [&] {
    if (!std::exchange(again, false)) return;
    zoom().ListFilesZoom.set_current(1);
    zoom().ListFilesZoom.on_click();
  };
  zoom().ListFilesZoom.set_current(0);
  zoom().ListFilesZoom.on_click();
  EXPECT_EQ(media.URL(), b);
}

TEST_F(ZoomWindow, a_click_is_given_up_when_its_window_was_closed_meanwhile) {
  start();
  const std::string a = stored_song("a.wav", 100);
  zoom().fill({a});
  zoom().show();
  backend.on_pump = [&] { program.windows.close<audio::Zoom>(); };
  zoom().ListFilesZoom.set_current(0);
  zoom().ListFilesZoom.on_click();
  backend.on_pump = {};
  EXPECT_EQ(media.URL(), "");
}

TEST_F(ZoomWindow, it_has_the_keys_of_the_sound) {
  start();
  pick(two_songs());
  zoom().show();
  EXPECT_TRUE(press(zoom(), 32));
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_FALSE(press(zoom(), 40));
  EXPECT_FALSE(press(zoom(), 35)) << "the list goes to its end with it";
  EXPECT_EQ(media.playState(), system::Media::kStopped);
}

TEST_F(ZoomWindow, its_place_its_box_and_the_volume_are_kept) {
  start("Zoom_Left=70\r\nZoom_Top=80\r\nVolumen=33\r\nAuto Play=1\r\n");
  EXPECT_EQ(zoom().position(), (ui::Point{70, 80}));
  EXPECT_EQ(zoom().SliderVol.value(), 33);
  EXPECT_EQ(zoom().LabelVol.caption(), "-57 dB");
  EXPECT_TRUE(zoom().CheckAutoPlay.checked());
  EXPECT_TRUE(zoom().topmost());
  zoom().show();
  zoom().set_position({5, 6});
  zoom().CheckAutoPlay.set_checked(false);
  player().SliderVol.set_value(51);
  zoom().Close.on_click();
  const auto stored = [&](const std::string& key) {
    return settings.LeerIni(settings.RutaConfig, key, "none");
  };
  EXPECT_EQ(program.windows.find<audio::Zoom>(), nullptr);
  EXPECT_EQ(stored("Zoom_Left"), "5");
  EXPECT_EQ(stored("Zoom_Top"), "6");
  EXPECT_EQ(stored("Auto Play"), "0");
  EXPECT_EQ(stored("Volumen"), "51");
}

// --- what other windows ask of the player

TEST_F(ZoomWindow, hiding_the_player_loads_the_first_row_and_stops) {
  start();
  const auto files = two_songs();
  zoom().fill(files);
  player().show();
  sound().SituarPlayer(false);
  EXPECT_FALSE(player().visible());
  EXPECT_EQ(media.URL(), files[0]);
  EXPECT_EQ(media.playState(), system::Media::kStopped);
  EXPECT_EQ(player().LabelDisplay.caption(), "  >>>> a -- 01:40 <<<< ");
}

TEST_F(ZoomWindow, showing_a_player_that_is_shown_leaves_what_plays) {
  start("Player_Left=300\r\nPlayer_Top=400\r\n");
  const auto files = two_songs();
  zoom().fill(files);
  sound().SituarPlayer(true);
  EXPECT_TRUE(player().visible());
  EXPECT_EQ(media.URL(), files[0]) << "it was hidden";
  sound().set_URL(files[1]);
  sound().Control_Click(audio::kPlay);
  spectrum().show();
  sound().SituarPlayer(true);
  EXPECT_EQ(media.URL(), files[1]);
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_FALSE(spectrum().visible());
  EXPECT_EQ(spectrum().position(), (ui::Point{310, 60}));
}

TEST_F(ZoomWindow, a_file_is_found_at_the_same_path_of_another_drive) {
  start();
  disk.write("voz.wav", "tono");
  const std::string path = disk.path("voz.wav");
  drives.add(path.substr(0, 3));
  const std::string moved = "K:\\" + path.substr(3);
  ui::ListBox& list = program.form.lists.ListUtilizados;
  list.add(std::vector<std::string>{"->D:\\uno.vip", "D:\\x.wav", "->D:\\dos.vip", "D:\\y.wav"});
  std::string result = "antes";
  EXPECT_TRUE(player().BuscarAudio(moved, list, 3, true, false, result));
  EXPECT_EQ(result, path);
  EXPECT_EQ(program.work.ArchivoActual, path);
  EXPECT_EQ(strip(), "");
  EXPECT_TRUE(player().BuscarAudio(moved, list, 1, true, true, result));
  EXPECT_EQ(result, "");
  EXPECT_EQ(strip(), "El archivo de audio: " + moved + "\r\n del proyecto D:\\uno.vip\r\n" +
                         "Se encuentra en: \r\n" + path);
  EXPECT_FALSE(player().BuscarAudio("K:\\Audio\\no.wav", list, 3, true, false, result));
  EXPECT_EQ(result, "");
  EXPECT_EQ(strip(),
            "El archivo de audio: K:\\Audio\\no.wav\r\n del proyecto D:\\dos.vip\r\nNo existe");
  program.form.strip.TextDecode.set_text("");
  EXPECT_FALSE(player().BuscarAudio("K:\\Audio\\no.wav", list, 99, false, true, result));
  EXPECT_EQ(strip(), "");
}

}  // namespace
}  // namespace ordelan::test
