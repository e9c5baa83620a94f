// Which engine plays what.
#include "win32/ports/win32_media.h"

#include <gmock/gmock.h>

#include "support/fake_services.h"
#include "win32/fake_graph.h"
#include "win32/fake_player.h"
#include "win32/sound_device.h"

namespace ordelan::test {
namespace {

using system::Media;
using ::testing::Contains;
using ::testing::Not;
using win32::Motor;
using namespace std::chrono_literals;

struct Win32MediaTest : testing::Test {
  // Lets the engine's own timer tick.
  static void handle_messages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  bool graph_plays(const std::string& path) {
    return comes([&] { return graphs.count("open " + path) == 1 && graphs.count("run") > 0; });
  }

  FakePlayer player;
  FakeGraphs graphs;
  HandClock clock;
  win32::Win32Media media{clock, {}, Motor::automatic, maker_of(player), graphs.maker()};
};

TEST_F(Win32MediaTest, a_complete_player_plays) {
  media.set_volume(20);
  media.set_balance(5);
  EXPECT_EQ(media.balance(), 5);
  EXPECT_FALSE(media.shows_itself());
  media.set_URL("D:\\a.wav");
  EXPECT_EQ(player.texts[L"URL"], L"D:\\a.wav");
  EXPECT_EQ(player.settings.numbers[L"volume"], 20);
  EXPECT_EQ(player.settings.numbers[L"balance"], 5);
  EXPECT_TRUE(media.shows_itself());
  player.take_up(3, L"Reproduciendo");
  EXPECT_EQ(media.status(), "Reproduciendo");
  EXPECT_TRUE(graphs.calls().empty());
}

TEST_F(Win32MediaTest, without_a_complete_player_the_graphs_play) {
  player.not_implemented.insert(L"status");
  player.texts.erase(L"status");
  media.set_volume(10);
  media.set_URL("a");
  EXPECT_TRUE(graph_plays("a"));
  EXPECT_THAT(graphs.calls(), Contains("gain -4000"));
  EXPECT_FALSE(media.shows_itself());
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_EQ(media.URL(), "a");
}

TEST_F(Win32MediaTest, what_the_player_does_not_bring_to_playing_goes_to_the_graphs) {
  media.set_volume(10);
  media.set_URL("a");
  clock.time += 2900ms;
  media.look();
  EXPECT_TRUE(graphs.calls().empty());
  EXPECT_TRUE(media.shows_itself());
  clock.time += 200ms;
  media.look();
  EXPECT_TRUE(graph_plays("a"));
  EXPECT_THAT(graphs.calls(), Contains("gain -4000"));
  EXPECT_EQ(player.texts[L"URL"], L"");
  EXPECT_EQ(media.URL(), "a");
  EXPECT_FALSE(media.shows_itself());
  media.set_URL("D:\\b.wav");
  EXPECT_EQ(player.texts[L"URL"], L"D:\\b.wav") << "the next file is the player's again";
  EXPECT_TRUE(comes([&] { return graphs.living() == 0; }));
}

TEST_F(Win32MediaTest, its_own_timer_hands_the_file_over) {
  media.set_URL("a");
  clock.time += 3100ms;
  EXPECT_TRUE(comes([&] {
    handle_messages();
    return graphs.count("open a") == 1;
  }));
}

TEST_F(Win32MediaTest, what_plays_or_has_played_stays_with_the_player) {
  for (const double state : {3.0, 1.0, 2.0}) {
    media.set_URL("D:\\a.wav");
    player.take_up(state, L"");
    media.look();
    clock.time += 10s;
    player.take_up(10, L"");
    media.look();
    EXPECT_TRUE(graphs.calls().empty()) << state;
  }
}

TEST_F(Win32MediaTest, the_state_of_the_file_before_is_no_sound_of_this_one) {
  media.set_URL("D:\\a.wav");
  player.take_up(3, L"");
  media.look();
  media.set_URL("D:\\b.wav");
  media.look();
  clock.time += 3100ms;
  media.look();
  EXPECT_TRUE(graph_plays("D:\\b.wav"));
}

TEST_F(Win32MediaTest, a_file_that_was_paused_or_stopped_meanwhile_is_not_waited_for) {
  media.set_URL("D:\\a.wav");
  media.pause();
  clock.time += 10s;
  media.look();
  media.set_URL("D:\\a.wav");
  media.stop();
  clock.time += 10s;
  media.look();
  EXPECT_TRUE(graphs.calls().empty());
  media.play();
  clock.time += 3100ms;
  media.look();
  EXPECT_TRUE(graph_plays("D:\\a.wav"));
}

TEST_F(Win32MediaTest, the_configuration_names_an_engine) {
  EXPECT_EQ(win32::motor_named("WMP"), Motor::player);
  EXPECT_EQ(win32::motor_named("directshow"), Motor::graph);
  for (const char* const other : {"", "auto", "wmp ", "otro"}) {
    EXPECT_EQ(win32::motor_named(other), Motor::automatic) << other;
  }
}

TEST_F(Win32MediaTest, a_file_of_the_same_name_in_another_folder_is_another_file) {
  media.set_URL("D:\\uno\\01.wav");
  player.take_up(3, L"");
  media.look();
  media.set_URL("D:\\dos\\01.wav");
  media.look();
  clock.time += 3100ms;
  media.look();
  EXPECT_TRUE(graph_plays("D:\\dos\\01.wav"));
}

TEST_F(Win32MediaTest, a_file_that_may_still_sound_has_no_notice) {
  media.set_URL("a");
  ASSERT_EQ(media.playState(), Media::kReady) << "as the player has it until it opens the file";
  EXPECT_EQ(media.notice(), "");
  win32::Win32Media player_only(clock, {}, Motor::player, maker_of(player), graphs.maker());
  player_only.set_URL("b");
  EXPECT_EQ(player_only.notice(), "");
  clock.time += 3100ms;
  player_only.look();
  EXPECT_NE(player_only.notice(), "") << "nothing else will play it";
}

TEST_F(Win32MediaTest, orders_given_before_the_player_has_the_file_are_given_again_then) {
  media.set_URL("D:\\a.wav");
  media.set_currentPosition(2);
  media.pause();
  // The player ignores both, as it has no file yet, and then begins to play.
  player.controls.numbers[L"currentPosition"] = 0.1;
  player.controls.called.clear();
  player.take_up(3, L"");
  media.look();
  EXPECT_EQ(player.controls.numbers[L"currentPosition"], 2);
  EXPECT_THAT(player.controls.called, Contains(L"pause"));

  media.set_URL("D:\\b.wav");
  media.stop();
  player.controls.called.clear();
  media.look();
  EXPECT_THAT(player.controls.called, Not(Contains(L"stop"))) << "that is the file before";
  player.take_up(3, L"");
  media.look();
  EXPECT_THAT(player.controls.called, Contains(L"stop"));

  media.set_URL("D:\\c.wav");
  media.set_currentPosition(5);
  media.pause();
  media.play();
  player.controls.called.clear();
  player.controls.numbers[L"currentPosition"] = 5.2;
  player.take_up(3, L"");
  media.look();
  EXPECT_EQ(player.controls.numbers[L"currentPosition"], 5.2) << "it has gone there by itself";
  EXPECT_TRUE(player.controls.called.empty()) << "and the last word was to play";
}

TEST_F(Win32MediaTest, a_place_given_before_the_file_goes_to_the_graphs_is_kept) {
  media.set_URL("a");
  media.set_currentPosition(20);
  clock.time += 3100ms;
  media.look();
  EXPECT_TRUE(graph_plays("a"));
  EXPECT_TRUE(comes([&] { return graphs.count("seek 20") == 1; }));
  media.set_URL("b");
  clock.time += 3100ms;
  media.look();
  EXPECT_TRUE(graph_plays("b"));
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_LT(media.currentPosition(), 20) << "it was for the file before";
}

TEST_F(Win32MediaTest, either_engine_can_be_had_alone) {
  win32::Win32Media graphs_only(clock, {}, Motor::graph, maker_of(player), graphs.maker());
  graphs_only.set_URL("a");
  EXPECT_TRUE(graph_plays("a"));
  EXPECT_TRUE(player.called.empty());
  win32::Win32Media player_only(clock, {}, Motor::player, maker_of(player), graphs.maker());
  player_only.set_URL("b");
  clock.time += 10s;
  player_only.look();
  EXPECT_THAT(graphs.calls(), Not(Contains("open b")));
  EXPECT_TRUE(player_only.shows_itself());
}

TEST_F(Win32MediaTest, the_end_frees_both_engines_and_the_next_path_begins_anew) {
  media.set_volume(80);
  media.set_balance(9);
  media.set_URL("D:\\a.wav");
  media.end();
  EXPECT_EQ(player.references, 1u);
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(media.balance(), 0);
  EXPECT_EQ(media.status(), "");
  media.set_URL("D:\\b.wav");
  EXPECT_EQ(player.texts[L"URL"], L"D:\\b.wav");
  EXPECT_EQ(player.settings.numbers[L"volume"], 50);
  EXPECT_EQ(player.settings.numbers[L"balance"], 0);
}

TEST_F(Win32MediaTest, either_engine_may_hold_a_file) {
  media.set_URL("a");
  EXPECT_TRUE(media.holds("a"));
  clock.time += 3100ms;
  media.look();
  EXPECT_TRUE(graph_plays("a"));
  EXPECT_TRUE(media.holds("a"));
  EXPECT_FALSE(media.holds("b"));
  graphs.hold("open b");
  media.set_URL("b");
  EXPECT_FALSE(media.holds("a"));
  clock.time += 3100ms;
  media.look();
  ASSERT_TRUE(comes([&] { return graphs.count("open b") == 1; }));
  media.set_URL("c");
  EXPECT_TRUE(media.holds("b")) << "the graphs have not come to it";
  graphs.let_go("open b");
  EXPECT_TRUE(comes([&] { return !media.holds("b"); }));
}

TEST_F(Win32MediaTest, without_a_file_there_is_nothing) {
  media.play();
  media.pause();
  media.stop();
  media.set_currentPosition(3);
  media.close();
  EXPECT_EQ(media.status(), "");
  EXPECT_EQ(media.playState(), Media::kUndefined);
  EXPECT_EQ(media.currentPosition(), 0);
  EXPECT_EQ(media.name(), "");
  EXPECT_TRUE(player.called.empty());
  EXPECT_TRUE(graphs.calls().empty());
}

}  // namespace
}  // namespace ordelan::test
