// The waveform in the player: when it is read, what it shows, and that it holds no file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "audio/details_bench.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct PlayerWave : testing::Test, SoundProgram {
  // A real wav of a square wave, 100 seconds long to the engine.
  std::string wave_file(const std::string& name, std::size_t samples = 2000, int high = 8192) {
    std::string bytes;
    for (std::size_t i = 0; i < samples; ++i) {
      bytes += little_endian(static_cast<std::uint64_t>(i % 2 == 0 ? -16384 : high), 2);
    }
    disk.write(name, wav_file(chunk("fmt ", format_chunk(1, 1, 44100, 16)) + chunk("data", bytes)));
    return song(name, 100);
  }
  const ui::Waveform& wave() { return player().ImageOnda; }
  bool reads() { return player().TimerOnda.running(); }
  // One tick of the timer that reads.
  void tick() { player().TimerOnda.on_tick(); }
  std::size_t opened(const std::string& path) {
    const auto& made = faulty.faults.made();
    return static_cast<std::size_t>(std::count(
        made.begin(), made.end(), Faults<FaultyFiles::Call>::Made{FaultyFiles::Call::open, path}));
  }
};

TEST_F(PlayerWave, is_read_when_a_file_is_loaded_and_the_reading_ends) {
  start();
  player().show();
  EXPECT_FALSE(reads());
  sound().set_URL(wave_file("a.wav"));
  EXPECT_TRUE(reads());
  EXPECT_FALSE(wave().visible()) << "nothing is read in the call itself";
  pass(0.1);
  EXPECT_FALSE(reads());
  EXPECT_TRUE(wave().visible());
  EXPECT_THAT(wave().columns(), SizeIs(200));
  EXPECT_THAT(wave().columns(), Each(ui::WaveColumn{-0.5, 0.25}));
  EXPECT_EQ(wave().description(), "Forma de onda");
}

TEST_F(PlayerWave, of_another_file_takes_the_place_of_the_first) {
  start();
  player().show();
  sound().set_URL(wave_file("a.wav"));
  pass(0.1);
  const std::string other = wave_file("b.wav", 2000, 16384);
  sound().set_URL(other);
  EXPECT_FALSE(wave().visible()) << "that of the file before is never shown beside this one";
  EXPECT_THAT(wave().columns(), IsEmpty());
  pass(0.1);
  EXPECT_THAT(wave().columns(), Contains(ui::WaveColumn{-0.5, 0.5}));
  // The same path once more may be another file by now.
  wave_file("b.wav", 2000, 0);
  sound().set_URL(other);
  pass(0.1);
  EXPECT_THAT(wave().columns(), Each(ui::WaveColumn{-0.5, 0}));
}

TEST_F(PlayerWave, is_forgotten_with_the_file) {
  start();
  player().show();
  sound().set_URL(wave_file("a.wav"));
  pass(0.1);
  sound().stop_and_empty();
  EXPECT_FALSE(wave().visible());
  EXPECT_THAT(wave().columns(), IsEmpty());
  EXPECT_EQ(wave().cursor(), -1);
  EXPECT_FALSE(reads());
  // In the middle of the reading.
  sound().set_URL(wave_file("a.wav"));
  ASSERT_TRUE(reads());
  sound().set_URL("");
  EXPECT_FALSE(reads());
  // By a call that goes to the engine itself.
  sound().set_URL(wave_file("a.wav"));
  media.close();
  pass(0.1);
  EXPECT_FALSE(reads());
  EXPECT_THAT(wave().columns(), IsEmpty());
  EXPECT_EQ(wave().cursor(), -1);
}

TEST_F(PlayerWave, is_forgotten_when_the_choice_of_a_file_is_cancelled) {
  start();
  player().show();
  sound().set_URL(wave_file("a.wav"));
  pass(0.1);
  dialogs.files.push_back({});
  player().OpenFile.on_click();
  player().show();
  EXPECT_THAT(wave().columns(), IsEmpty());
  EXPECT_FALSE(wave().visible());
}

TEST_F(PlayerWave, is_not_read_while_the_window_is_hidden) {
  start();
  const std::string path = wave_file("a.wav");
  sound().set_URL(path);
  pass(0.2);
  EXPECT_FALSE(reads());
  EXPECT_EQ(opened(path), 0u);
  player().show();
  EXPECT_TRUE(reads());
  pass(0.1);
  EXPECT_THAT(wave().columns(), SizeIs(200));
  const std::size_t read_once = opened(path);
  player().hide();
  player().show();
  pass(0.1);
  EXPECT_EQ(opened(path), read_once) << "it is kept";
}

TEST_F(PlayerWave, goes_on_where_it_was_when_the_window_was_hidden_meanwhile) {
  start();
  player().show();
  const std::string path = wave_file("a.wav", 1'000'000);
  sound().set_URL(path);
  faulty.on_read = [this](std::uint64_t) {
    clock.time += std::chrono::milliseconds(20);
    return std::optional<std::size_t>(std::size_t{1} << 30);
  };
  tick();
  tick();
  ASSERT_EQ(opened(path), 2u) << "the budget of a tick is used up by one slow step";
  player().hide();
  EXPECT_FALSE(reads());
  tick();  // one that was under way
  EXPECT_EQ(opened(path), 2u);
  player().show();
  EXPECT_TRUE(reads());
  for (int i = 0; i < 20 && reads(); ++i) tick();
  EXPECT_FALSE(reads());
  EXPECT_EQ(opened(path), 9u);
  EXPECT_THAT(wave().columns(), Each(ui::WaveColumn{-0.5, 0.25}));
}

TEST_F(PlayerWave, a_tick_ends_after_eight_milliseconds) {
  start();
  player().show();
  const std::string path = wave_file("a.wav", 1'000'000);
  sound().set_URL(path);
  tick();  // the clock stands still: all is read
  EXPECT_FALSE(reads());
  const std::size_t all = opened(path);
  sound().set_URL(path);
  faulty.on_read = [this](std::uint64_t) {
    clock.time += std::chrono::milliseconds(3);
    return std::optional<std::size_t>(std::size_t{1} << 30);
  };
  tick();
  EXPECT_EQ(opened(path) - all, 3u);
  EXPECT_TRUE(reads());
}

TEST_F(PlayerWave, its_file_can_go_away_in_the_middle_of_the_reading) {
  start();
  player().show();
  const std::string path = wave_file("a.wav", 1'000'000);
  sound().set_URL(path);
  faulty.on_read = [this](std::uint64_t) {
    clock.time += std::chrono::milliseconds(20);
    return std::optional<std::size_t>(std::size_t{1} << 30);
  };
  tick();
  tick();
  EXPECT_TRUE(disk.files().remove(path).ok());
  tick();
  EXPECT_FALSE(reads());
}

TEST_F(PlayerWave, files_of_other_kinds_have_none) {
  start();
  player().show();
  disk.write("a.mp3", std::string(5000, '\1'));
  sound().set_URL(song("a.mp3", 100));
  pass(0.1);
  EXPECT_FALSE(reads());
  EXPECT_FALSE(wave().visible());
  sound().set_URL(song("none.wav", 100));
  pass(0.1);
  EXPECT_FALSE(reads());
  EXPECT_FALSE(wave().visible());
}

TEST_F(PlayerWave, the_cursor_goes_with_the_time) {
  start();
  player().show();
  EXPECT_EQ(wave().cursor(), -1);
  sound().set_URL(wave_file("a.wav"));
  EXPECT_EQ(wave().cursor(), 0);
  sound().Control_Click(audio::kPlay);
  pass(25);
  EXPECT_NEAR(wave().cursor(), 0.25, 0.001);
  sound().Control_Click(audio::kPause);
  pass(5);
  EXPECT_NEAR(wave().cursor(), 0.25, 0.001);
  player().SliderTime.on_change(75);
  EXPECT_NEAR(wave().cursor(), 0.75, 0.001) << "also in a pause";
  player().SliderTime.on_mouse_up({.at = {20, 3}, .button = ui::kLeftButton});
  EXPECT_NEAR(wave().cursor(), 0.1, 0.001);
}

TEST_F(PlayerWave, a_click_seeks_as_one_on_the_slider_does) {
  start();
  player().show();
  sound().set_URL(wave_file("a.wav"));
  pass(1);
  sound().Control_Click(audio::kPlay);
  pass(1);
  sound().Control_Click(audio::kPause);
  player().AvisoPL.show();
  media.orders.clear();
  player().ImageOnda.on_press({80, 3});
  EXPECT_THAT(media.orders, ElementsAre("position 40"));
  EXPECT_FALSE(player().AvisoPL.visible());
  EXPECT_EQ(player().SliderTime.value(), 40);
  EXPECT_NEAR(wave().cursor(), 0.4, 0.001);
}

TEST_F(PlayerWave, a_stopped_file_cannot_be_clicked_to_a_place) {
  start();
  player().show();
  player().ImageOnda.on_press({80, 3});
  sound().set_URL(wave_file("a.wav"));
  sound().Control_Click(audio::kStop);
  media.orders.clear();
  player().ImageOnda.on_press({80, 3});
  EXPECT_THAT(media.orders, IsEmpty());
  EXPECT_EQ(wave().cursor(), 0);
}

}  // namespace
}  // namespace ordelan::test
