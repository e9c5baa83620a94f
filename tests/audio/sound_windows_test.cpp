// The windows of the sound: when they live, what they keep, and what other windows do to them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "removal/backup_options_window.h"
#include "removal/removal_review_window.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

using ::testing::IsEmpty;

struct SoundWindows : testing::Test, SoundProgram {
  std::string stored() { return settings.LeerIni(settings.RutaConfig, "Volumen", "none"); }
};

TEST_F(SoundWindows, a_first_start_is_not_silent) {
  start();
  EXPECT_EQ(player().SliderVol.value(), 80);
  EXPECT_EQ(media.volume(), 80);
  EXPECT_EQ(player().LabelVol.caption(), "-10 dB");
}

TEST_F(SoundWindows, the_stored_volume_is_that_of_the_engine) {
  start("Volumen=35\r\n");
  EXPECT_EQ(player().SliderVol.value(), 35);
  EXPECT_EQ(media.volume(), 35);
  EXPECT_EQ(program.form.play.LabelVol.caption(), "-55 dB");
}

TEST_F(SoundWindows, a_stored_volume_beyond_the_slider_leaves_that_of_a_first_start) {
  start("Volumen=300\r\n");
  EXPECT_EQ(player().SliderVol.value(), 80);
  EXPECT_EQ(media.volume(), 80);
}

TEST_F(SoundWindows, the_end_of_the_program_stores_the_volume) {
  start("Volumen=35\r\n");
  player().SliderVol.set_value(61);
  program.form.Salir_Click();
  EXPECT_EQ(stored(), "61");
}

TEST_F(SoundWindows, a_start_without_a_stored_volume_stores_that_of_the_slider) {
  start();
  program.form.Salir_Click();
  EXPECT_EQ(stored(), "80");
}

TEST_F(SoundWindows, closing_either_window_stores_the_volume) {
  start("Volumen=35\r\n");
  player().SliderVol.set_value(61);
  spectrum().Close_Click();
  EXPECT_EQ(stored(), "61");
  player().SliderVol.set_value(62);
  player().CloseW_Click();
  EXPECT_EQ(stored(), "62");
  EXPECT_EQ(player().SliderVol.value(), 62);  // of the new one
}

TEST_F(SoundWindows, closing_the_spectrum_ends_the_sound_and_a_new_engine_has_the_last_volume) {
  start();
  sound().Vol(44);
  sound().set_URL(song("a.wav", 10));
  spectrum().Close_Click();
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(program.windows.find<audio::SA>(), nullptr);
  sound().set_URL(song("a.wav", 10));
  EXPECT_NE(program.windows.find<audio::SA>(), nullptr);
  EXPECT_EQ(media.volume(), 44);
  EXPECT_FALSE(spectrum().visible());
}

TEST_F(SoundWindows, hiding_the_spectrum_does_not_touch_the_sound) {
  start();
  spectrum().show();
  sound().set_URL(song("a.wav", 10));
  media.orders.clear();
  spectrum().hide();
  EXPECT_THAT(media.orders, IsEmpty());
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
}

TEST_F(SoundWindows, closing_the_player_leaves_the_sound) {
  start();
  sound().set_URL(song("a.wav", 10));
  sound().Control_Click(audio::kPlay);
  player().CloseW_Click();
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_FALSE(player().TimerTime.running());  // of the new one
}

TEST_F(SoundWindows, a_double_click_on_the_spectrum_centres_the_balance) {
  start();
  media.set_balance(30);
  spectrum().set_position({500, 500});
  spectrum().on_double_click();
  EXPECT_EQ(media.balance(), 0);
  EXPECT_EQ(spectrum().position().x, 500);
}

TEST_F(SoundWindows, a_double_click_on_the_spectrum_puts_it_beside_a_player_that_is_shown) {
  start();
  player().show();
  player().set_position({100, 400});
  spectrum().on_double_click();
  EXPECT_EQ(spectrum().position().x, 110);
  EXPECT_EQ(spectrum().position().y, 60);
  player().set_position({100, 0});  // there would be nothing to be seen of it
  spectrum().on_double_click();
  EXPECT_EQ(spectrum().position().y, player().size().height);
}

TEST_F(SoundWindows, the_bars_of_the_spectrum_show_the_tone_that_is_heard) {
  start();
  spectrum().show();
  sound().set_URL(song("a.wav", 10));
  media.sound.rate = 44100;
  constexpr double kTurn = 6.283185307179586;
  for (int i = 0; i < 8192; ++i) {
    media.sound.samples.push_back(static_cast<float>(std::sin(kTurn * 1000 * i / 44100)));
  }
  pass(0.1);
  const auto& bars = spectrum().WindowsMediaPlayer.bars();
  const auto highest = std::max_element(
      bars.begin(), bars.end(), [](const auto& a, const auto& b) { return a.level < b.level; });
  EXPECT_NEAR(audio::Spectrum::frequency(static_cast<std::size_t>(highest - bars.begin())), 1000,
              100);
  EXPECT_GT(highest->level, 0.9);
  sound().Control_Click(audio::kStop);
  pass(5);
  for (const auto& bar : spectrum().WindowsMediaPlayer.bars()) EXPECT_EQ(bar.level, 0);
}

TEST_F(SoundWindows, an_engine_with_a_picture_of_its_own_gets_no_bars) {
  start();
  media.own_picture = true;
  sound().set_URL(song("a.wav", 100));
  spectrum().show();
  sound().Control_Click(audio::kPlay);
  pass(0.5);
  EXPECT_THAT(spectrum().WindowsMediaPlayer.bars(), IsEmpty());
}

TEST_F(SoundWindows, both_windows_can_be_minimised_and_say_what_they_are) {
  start();
  EXPECT_TRUE(player().minimizable());
  EXPECT_TRUE(spectrum().minimizable());
  EXPECT_EQ(spectrum().Label1.caption(), "Spectral VU");
  EXPECT_EQ(spectrum().WindowsMediaPlayer.description(), "Espectro de lo que suena");
  const std::string tip = "Tecla <Espacio> Play/Pausa,teclas <+> <-> Volumen";
  EXPECT_EQ(spectrum().WindowsMediaPlayer.tip(), tip);
  EXPECT_EQ(spectrum().Label1.tip(), tip);
  EXPECT_EQ(spectrum().LabelTime.tip(), tip);
  EXPECT_EQ(spectrum().Close.tip(), "Cerrar esta ventana");
  EXPECT_EQ(player().Control[audio::kPlay].description(), "Play");
  EXPECT_EQ(player().Control[audio::kPause].description(), "Pausa");
  EXPECT_EQ(player().Control[audio::kStop].description(), "Stop");
  EXPECT_EQ(player().SliderTime.description(), "Posición");
  EXPECT_EQ(player().SliderVol.description(), "Volumen");
}

TEST_F(SoundWindows, a_hidden_spectrum_takes_no_time) {
  start();
  EXPECT_FALSE(spectrum().TimerEspectro.running());
  spectrum().show();
  EXPECT_TRUE(spectrum().TimerEspectro.running());
  spectrum().hide();
  EXPECT_FALSE(spectrum().TimerEspectro.running());
}

TEST_F(SoundWindows, a_wav_of_32_bits_hides_a_spectrum_that_is_shown) {
  start();
  std::string wav(256, '\0');
  wav.replace(0, 4, "RIFF");
  wav.replace(8, 8, "WAVEfmt ");
  wav[16] = 16;
  wav[34] = 32;
  disk.write("a.wav", wav);
  spectrum().show();
  sound().info.InfoAudio("wav", disk.path("a.wav"));
  EXPECT_FALSE(spectrum().visible());
  sound().info.InfoAudio("wav", disk.path("a.wav"));
  EXPECT_FALSE(spectrum().visible());
}

TEST_F(SoundWindows, an_empty_window_and_a_cancel_close_them_and_end_the_sound) {
  start();
  for (const bool reset : {true, false}) {
    sound().set_URL(song("a.wav", 10));
    player().show();
    if (reset) {
      program.form.cmdReset_Click();
    } else {
      program.form.cmdCancelar_Click();
    }
    EXPECT_EQ(program.windows.find<audio::Player>(), nullptr);
    EXPECT_EQ(program.windows.find<audio::SA>(), nullptr);
    EXPECT_EQ(media.URL(), "");
  }
}

TEST_F(SoundWindows, the_buttons_of_the_spectrum_minimise_and_close_it) {
  start();
  spectrum().show();
  spectrum().cmdMinimizar.on_click();
  EXPECT_TRUE(spectrum().minimized());
  player().SliderVol.set_value(61);
  spectrum().Close.on_click();
  EXPECT_EQ(program.windows.find<audio::SA>(), nullptr);
  EXPECT_EQ(stored(), "61");
  spectrum().show();
  spectrum().on_close();
  EXPECT_EQ(program.windows.find<audio::SA>(), nullptr);
}

TEST_F(SoundWindows, a_new_spectrum_has_the_balance_of_the_engine_and_an_empty_bar) {
  start();
  sound().Vol(50);
  spectrum().Close_Click();
  media.set_balance(-30);
  EXPECT_EQ(spectrum().BalanceInicial, -30);
  EXPECT_EQ(spectrum().ShapeVol.bounds().height, 0);
  EXPECT_EQ(spectrum().ShapeVol.bounds().top, 320);
}

TEST_F(SoundWindows, a_key_of_the_sound_lets_events_run_in_the_spectrum) {
  start();
  int pumps = 0;
  backend.on_pump = [&] { ++pumps; };
  press(spectrum(), 65);
  EXPECT_EQ(pumps, 0);
  EXPECT_TRUE(press(spectrum(), 107));
  EXPECT_EQ(pumps, 1);
}

TEST_F(SoundWindows, the_spectrum_may_be_closed_while_its_key_lets_events_run) {
  start();
  sound().set_URL(song("a.wav", 10));
  spectrum().show();
  backend.on_pump = [&] { spectrum().Close_Click(); };
  EXPECT_TRUE(press(spectrum(), 32));
  EXPECT_EQ(media.URL(), "");
}

TEST_F(SoundWindows, a_file_is_let_go_without_a_new_home_for_the_engine) {
  start();
  spectrum().Close_Click();
  sound().set_URL("");
  sound().stop_and_empty();
  EXPECT_EQ(program.windows.find<audio::SA>(), nullptr);
}

TEST_F(SoundWindows, the_volume_of_a_closed_player_is_the_stored_one) {
  start("Volumen=35\r\n");
  player().SliderVol.set_value(61);
  program.windows.close<audio::Player>();
  EXPECT_EQ(stored(), "61");
  spectrum().Close_Click();
  EXPECT_EQ(stored(), "61");
}

TEST_F(SoundWindows, a_volume_that_was_never_changed_is_not_stored_with_the_player) {
  start();
  program.windows.close<audio::Player>();
  EXPECT_EQ(stored(), "none");
}

TEST_F(SoundWindows, while_the_time_runs_a_closed_engine_has_a_home_again_and_no_file) {
  start();
  sound().set_URL(song("a.wav", 10));
  sound().Control_Click(audio::kPlay);
  spectrum().Close_Click();
  pass(0.1);
  EXPECT_NE(program.windows.find<audio::SA>(), nullptr);
  EXPECT_EQ(media.URL(), "");
}

TEST_F(SoundWindows, what_has_shown_the_transport_is_not_called_once_it_has_gone) {
  struct Counter final : audio::Mirror {
    Counter(audio::Sound& sound, int& called) : Mirror(sound), calls(called) {}
    void show_action(int) override { ++calls; }
    void show_volume(std::int32_t, const std::string&) override { ++calls; }
    int& calls;
  };
  start();
  int calls = 0;
  auto counter = std::make_unique<Counter>(sound(), calls);
  sound().Vol(50);
  EXPECT_EQ(calls, 1);
  counter.reset();
  sound().Vol(51);
  EXPECT_EQ(calls, 1);
}

TEST_F(SoundWindows, both_windows_say_why_nothing_is_heard) {
  start();
  spectrum().show();
  sound().set_URL(disk.path("nada.wav"));
  pass(0.1);
  EXPECT_EQ(spectrum().LabelAviso.caption(), "No suena.");
  sound().set_URL(song("a.wav", 10));
  pass(0.1);
  EXPECT_EQ(spectrum().LabelAviso.caption(), "");
}

TEST_F(SoundWindows, a_removal_has_no_file_open) {
  start();
  sound().set_URL(song("a.wav", 10));
  program.windows.touch<removal::BacUp>()->BorrarSeleccionados();
  EXPECT_EQ(media.URL(), "");
}

}  // namespace
}  // namespace ordelan::test
