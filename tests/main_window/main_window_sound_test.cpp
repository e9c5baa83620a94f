// What the main window and its jobs do with the sound.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/player.h"
#include "audio/sa.h"
#include "support/sound_program.h"
#include "support/update_bench.h"

namespace ordelan::test {
namespace {

struct MainWindowSound : ::testing::Test, UpdateBench {
  // A project is open, and one of its files plays.
  void listen() {
    disk.write("Mix\\a.wav", "audio");
    project("Mix\\tema.vip", {"Mix\\a.wav"});
    start();
    open("Mix\\tema.vip");
    media.files[disk.path("Mix\\a.wav")] = {.duration = 60};
    player().show();
    spectrum().show();
    form.sound().set_URL(disk.path("Mix\\a.wav"));
    form.sound().Control_Click(audio::kPlay);
    player().AvisoPL.show();
  }
  void click_project() {
    form.lists.ListProyectos.chosen(0);
    form.lists.ListProyectos.on_click();
  }
  audio::Player& player() { return *windows.touch<audio::Player>(); }
  audio::SA& spectrum() { return *windows.touch<audio::SA>(); }
  bool plays() { return media.playState() == system::Media::kPlaying; }
  std::string marks() { return shown(form.play.ImagePlayPauSt); }
};

TEST_F(MainWindowSound, a_click_on_a_project_stops_the_sound_and_puts_the_notice_away) {
  listen();
  click_project();
  EXPECT_EQ(media.playState(), system::Media::kStopped);
  EXPECT_EQ(media.URL(), disk.path("Mix\\a.wav"));
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(MainWindowSound, while_projects_are_read_a_click_on_one_only_puts_the_notice_away) {
  listen();
  work.Descodificando = true;
  click_project();
  EXPECT_TRUE(plays());
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(MainWindowSound, during_a_removal_a_click_on_a_project_leaves_the_notice_too) {
  listen();
  work.Borrando = true;
  click_project();
  EXPECT_TRUE(plays());
  EXPECT_TRUE(player().AvisoPL.visible());
}

TEST_F(MainWindowSound, a_project_that_is_read_again_ends_the_sound_and_closes_the_player) {
  listen();
  spectrum().hide();
  player().SliderVol.set_value(61);
  double_click(0);
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(windows.find<audio::Player>(), nullptr);
  EXPECT_NE(windows.find<audio::SA>(), nullptr);
  EXPECT_EQ(settings.LeerIni(settings.RutaConfig, "Volumen", ""), "61");
  EXPECT_FALSE(player().TimerTime.running());
  EXPECT_EQ(player().LabelTime.caption(), "00:00");
}

TEST_F(MainWindowSound, the_button_that_opens_puts_the_notice_away_and_ends_the_sound) {
  listen();
  dialogs.on_dialog = [&] {
    EXPECT_EQ(media.URL(), "");
    EXPECT_EQ(windows.find<audio::Player>(), nullptr);
    EXPECT_EQ(windows.find<audio::SA>(), nullptr);
  };
  form.AbrirFichero_Click();
  EXPECT_EQ(media.URL(), "");
}

TEST_F(MainWindowSound, while_projects_are_read_the_button_only_puts_the_notice_away) {
  listen();
  work.Descodificando = true;
  form.AbrirFichero_Click();
  EXPECT_TRUE(plays());
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(MainWindowSound, a_drop_ends_the_sound) {
  listen();
  drop({"Mix\\tema.vip"});
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(windows.find<audio::Player>(), nullptr);
  EXPECT_EQ(windows.find<audio::SA>(), nullptr);
}

TEST_F(MainWindowSound, an_update_ends_the_sound_once_it_is_wanted) {
  listen();
  dialogs.answers.push_back(system::Answer::no);
  form.ActualizarVip.on_click();
  EXPECT_TRUE(plays());
  update();
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(windows.find<audio::Player>(), nullptr);
  EXPECT_EQ(windows.find<audio::SA>(), nullptr);
}

TEST_F(MainWindowSound, the_play_controls_come_with_a_project_and_go_with_it) {
  disk.write("Mix\\a.wav", "audio");
  project("Mix\\tema.vip", {"Mix\\a.wav"});
  start();
  EXPECT_EQ(marks(), "nnn");
  EXPECT_FALSE(form.play.LabelVol.visible());
  EXPECT_FALSE(form.play.ShapeVol.visible());
  open("Mix\\tema.vip");
  EXPECT_EQ(marks(), "ynn");
  EXPECT_TRUE(form.play.LabelVol.visible());
  EXPECT_TRUE(form.play.ShapeVol.visible());
  form.cmdReset_Click();
  EXPECT_EQ(marks(), "nnn");
  EXPECT_FALSE(form.play.LabelVol.visible());
  EXPECT_FALSE(form.play.ShapeVol.visible());
}

TEST_F(MainWindowSound, the_picture_of_the_last_order_stays_when_the_play_controls_come) {
  listen();
  ASSERT_EQ(marks(), "nyn");
  form.play.show();
  EXPECT_EQ(marks(), "nyn");
}

}  // namespace
}  // namespace ordelan::test
