// How the engine's thread and the program's get on, with graphs that a test holds up.
#include <gmock/gmock.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "win32/fake_graph.h"
#include "win32/ports/graph_media.h"

namespace ordelan::test {
namespace {

using system::Media;
using GraphOpening = win32::MediaGraph::Opening;
using GraphEvent = win32::MediaGraph::Event;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using namespace std::chrono_literals;

struct GraphWorkerTest : testing::Test {
  static bool comes(const std::function<bool()>& awaited) {
    for (int turn = 0; turn < 1000 && !awaited(); ++turn) std::this_thread::sleep_for(10ms);
    return awaited();
  }
  void open(const std::string& path) {
    media.set_URL(path);
    ASSERT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  }

  FakeGraphs graphs;
  win32::GraphMedia media{{.duration_of = {},
                           .title_of = [](const std::string&) { return "Tema"; },
                           .kilobits_of = [](const std::string&, double) { return 192; }},
                          graphs.maker()};
};

TEST_F(GraphWorkerTest, a_file_that_does_not_open_holds_up_nothing) {
  graphs.hold("open a");
  media.set_URL("a");
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 1; }));
  EXPECT_EQ(media.status(), "Abriendo");
  EXPECT_EQ(media.notice(), "");
  media.play();
  media.set_currentPosition(5);
  open("b");
  EXPECT_EQ(media.status(), "Reproduciendo: 192 K bits/s");
  EXPECT_EQ(media.name(), "Tema");
  EXPECT_EQ(media.abandoned(), 1u);
  EXPECT_EQ(graphs.count("run"), 1);
  graphs.let_go("open a");
  EXPECT_TRUE(comes([&] { return media.abandoned() == 0; }));
  EXPECT_EQ(graphs.count("run"), 1) << "it came too late to sound";
  EXPECT_EQ(graphs.living(), 1);
  EXPECT_EQ(media.playState(), Media::kPlaying);
}

TEST_F(GraphWorkerTest, no_two_threads_open_files_at_a_time_while_there_is_hope) {
  graphs.hold("open a");
  media.set_URL("a");
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 1; }));
  for (int turn = 0; turn < 10; ++turn) media.set_URL("b");
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(graphs.count("open b"), 0);
  graphs.let_go("open a");
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_EQ(graphs.count("open b"), 1);
  EXPECT_EQ(media.abandoned(), 0u);
}

TEST_F(GraphWorkerTest, a_file_that_never_opens_says_so_and_is_not_tried_again) {
  media.slow = 50ms;
  media.hopeless = 1500ms;  // more than the next file waits for its turn
  graphs.hold("open a");
  media.set_URL("a");
  ASSERT_TRUE(comes([&] { return media.notice() != ""; }));
  EXPECT_THAT(media.notice(), HasSubstr("tarda"));
  EXPECT_EQ(media.playState(), Media::kOpening);
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kReady; }));
  EXPECT_EQ(media.status(), "Listo");
  EXPECT_THAT(media.notice(), HasSubstr("no termina de abrir"));
  EXPECT_EQ(media.URL(), "a");
  EXPECT_EQ(media.abandoned(), 1u);
  media.play();
  media.set_URL("a");
  EXPECT_EQ(media.playState(), Media::kReady);
  EXPECT_THAT(media.notice(), HasSubstr("no termina de abrir"));
  open("b");
  media.set_URL("a");
  EXPECT_EQ(media.playState(), Media::kReady);
  EXPECT_TRUE(comes([&] { return graphs.living() == 1; })) << "the sound of b has ended";
  EXPECT_EQ(graphs.count("open a"), 1);
  graphs.let_go("open a");
  ASSERT_TRUE(comes([&] { return media.abandoned() == 0; }));
  open("a");
}

TEST_F(GraphWorkerTest, an_opening_that_hangs_is_tried_once_more_by_another_thread) {
  media.again = 1000ms;
  graphs.hold_next("open a");
  media.set_URL("a");
  media.set_currentPosition(7);
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_EQ(graphs.count("open a"), 2);
  EXPECT_EQ(media.URL(), "a");
  EXPECT_EQ(media.abandoned(), 1u);
  graphs.let_go("open a");
  EXPECT_TRUE(comes([&] { return media.abandoned() == 0; }));
  EXPECT_EQ(graphs.count("run"), 1) << "the first came too late to sound";
  EXPECT_EQ(graphs.living(), 1);
}

TEST_F(GraphWorkerTest, an_opening_that_hangs_twice_is_given_up) {
  media.again = 1000ms;
  media.hopeless = 3000ms;
  graphs.hold("open a");
  media.set_URL("a");
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kReady; }));
  EXPECT_THAT(media.notice(), HasSubstr("no termina de abrir"));
  EXPECT_EQ(graphs.count("open a"), 2);
  EXPECT_EQ(media.abandoned(), 2u);
  open("b");
}

TEST_F(GraphWorkerTest, a_file_that_is_slow_has_its_whole_time_again_at_the_second_try) {
  media.again = 1000ms;
  media.hopeless = 2000ms;
  graphs.hold("open a");
  media.set_URL("a");
  ASSERT_TRUE(comes([&] {
    media.playState();
    return graphs.count("open a") == 2;
  }));
  std::this_thread::sleep_for(1300ms);
  EXPECT_EQ(media.playState(), Media::kOpening);
  graphs.let_go("open a");
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
}

TEST_F(GraphWorkerTest, a_file_whose_stop_hangs_after_its_opening_is_opened_anew_and_stopped) {
  graphs.hold_next("stop");
  graphs.hold("open a");
  media.set_URL("a");
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 1; }));
  media.stop();
  graphs.let_go("open a");
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kStopped; }));
  EXPECT_EQ(graphs.count("open a"), 2);
  EXPECT_EQ(media.notice(), "");
  graphs.let_go("stop");
  EXPECT_TRUE(comes([&] { return media.abandoned() == 0; }));
}

TEST_F(GraphWorkerTest, the_program_ends_while_a_file_does_not_open) {
  graphs.hold("open a");
  media.set_URL("a");
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 1; }));
  const auto begin = std::chrono::steady_clock::now();
  media.end();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
  EXPECT_EQ(media.abandoned(), 1u);
  EXPECT_TRUE(media.holds("a"));
}

TEST_F(GraphWorkerTest, a_call_that_does_not_come_back_costs_only_its_own_file) {
  open("a");
  graphs.hold("pause");
  media.pause();
  EXPECT_EQ(media.status(), "En pausa") << "at once";
  ASSERT_TRUE(comes([&] { return graphs.count("pause") == 1; }));
  std::this_thread::sleep_for(1100ms);
  open("b");
  EXPECT_EQ(media.abandoned(), 1u);
}

TEST_F(GraphWorkerTest, what_orders_come_to_is_read_at_once_and_never_what_is_on_the_way) {
  open("a");
  graphs.hold("pause");
  graphs.hold("run");
  graphs.hold("stop");
  media.pause();
  EXPECT_EQ(media.playState(), Media::kPaused);
  media.set_currentPosition(12);
  EXPECT_EQ(media.currentPosition(), 12);
  media.play();
  EXPECT_EQ(media.playState(), Media::kPlaying);
  ASSERT_TRUE(comes([&] { return graphs.count("pause") == 1; }));
  graphs.let_go("pause");
  ASSERT_TRUE(comes([&] { return graphs.count("run") == 2; }));
  EXPECT_EQ(media.playState(), Media::kPlaying) << "the thread has only come to the pause";
  media.stop();
  EXPECT_EQ(media.status(), "Detenido");
  EXPECT_EQ(media.currentPosition(), 0);
  graphs.let_go("run");
  ASSERT_TRUE(comes([&] { return graphs.count("stop") == 1; }));
  EXPECT_EQ(media.status(), "Detenido");
  graphs.let_go("stop");
  std::this_thread::sleep_for(50ms);
  EXPECT_EQ(media.status(), "Detenido");
}

TEST_F(GraphWorkerTest, closing_waits_for_the_file_to_be_let_go_but_not_for_ever) {
  open("a");
  media.close();
  EXPECT_EQ(graphs.living(), 0);
  graphs.hold("open b");
  media.set_URL("b");
  ASSERT_TRUE(comes([&] { return graphs.count("open b") == 1; }));
  const auto begin = std::chrono::steady_clock::now();
  media.set_URL("");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
  EXPECT_EQ(media.playState(), Media::kUndefined);
  EXPECT_TRUE(media.holds("B")) << "it cannot be removed yet";
  open("c");
  EXPECT_TRUE(media.holds("b"));
  EXPECT_FALSE(media.holds("a"));
  graphs.let_go("open b");
  EXPECT_TRUE(comes([&] { return !media.holds("b"); }));
  EXPECT_TRUE(media.holds("c"));
}

TEST_F(GraphWorkerTest, of_many_places_and_volumes_in_a_row_only_the_last_is_gone_to) {
  graphs.hold("open a");
  media.set_URL("a");
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 1; }));
  for (int second = 1; second <= 20; ++second) media.set_currentPosition(second);
  graphs.let_go("open a");
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_EQ(graphs.count("seek 20"), 1);
  EXPECT_EQ(graphs.count("seek 19"), 0);
}

TEST_F(GraphWorkerTest, volume_and_balance_hold_for_every_file_from_its_first_sound) {
  media.set_volume(10);
  media.set_balance(-50);
  open("a");
  EXPECT_THAT(graphs.calls(), ElementsAre("open a", "gain -4000", "balance -1204", "run"));
  media.set_volume(100);
  EXPECT_TRUE(comes([&] { return graphs.count("gain 0") == 1; }));
  open("b");
  EXPECT_EQ(graphs.count("gain 0"), 2);
}

TEST_F(GraphWorkerTest, the_file_before_is_silent_before_the_next_one_opens) {
  open("a");
  open("b");
  EXPECT_THAT(graphs.calls(), ElementsAre("open a", "gain -1204", "balance 0", "run", "stop",
                                          "open b", "gain -1204", "balance 0", "run"));
}

TEST_F(GraphWorkerTest, the_file_before_is_let_go_even_if_the_next_one_never_opens) {
  open("a");
  graphs.hold("open b");
  media.set_URL("b");
  ASSERT_TRUE(comes([&] { return graphs.count("open b") == 1; }));
  EXPECT_EQ(graphs.living(), 1) << "only the graph of b";
  graphs.let_go("open b");
}

TEST_F(GraphWorkerTest, a_file_given_while_a_call_is_stuck_gets_another_thread) {
  open("a");
  media.set_volume(100);
  ASSERT_TRUE(comes([&] { return graphs.count("gain 0") == 1; }));
  graphs.hold("pause");
  media.pause();
  ASSERT_TRUE(comes([&] { return graphs.count("pause") == 1; }));
  media.set_URL("b");
  media.set_currentPosition(7);
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
  EXPECT_EQ(graphs.count("open b"), 1);
  EXPECT_EQ(graphs.count("gain 0"), 2) << "with the volume that was set";
  EXPECT_GE(media.currentPosition(), 7) << "with the orders that came since";
  EXPECT_EQ(media.abandoned(), 1u);
  EXPECT_EQ(media.name(), "Tema");
}

TEST_F(GraphWorkerTest, a_file_whose_pause_is_stuck_can_be_opened_again) {
  media.hopeless = 1500ms;
  open("a");
  graphs.hold("pause");
  media.pause();
  ASSERT_TRUE(comes([&] { return graphs.count("pause") == 1; }));
  std::this_thread::sleep_for(1600ms);
  open("b");
  open("a");
  EXPECT_EQ(graphs.count("open a"), 2);
}

TEST_F(GraphWorkerTest, a_second_try_that_does_not_open_is_given_up_too) {
  media.hopeless = 1500ms;
  graphs.fail_opening("a", GraphOpening::no_device);
  media.set_URL("a");
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kReady; }));
  graphs.hold("open a");
  media.play();
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 2; }));
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kReady; }));
  EXPECT_THAT(media.notice(), HasSubstr("no termina de abrir"));
  EXPECT_EQ(graphs.count("open a"), 2) << "it is not tried on another thread";
}

TEST_F(GraphWorkerTest, a_place_beyond_the_end_is_no_place_to_be_left_out) {
  open("a");
  graphs.hold("gain 0");
  media.set_volume(100);
  ASSERT_TRUE(comes([&] { return graphs.count("gain 0") == 1; }));
  media.set_currentPosition(30);
  media.set_currentPosition(99);
  EXPECT_EQ(media.playState(), Media::kStopped);
  media.set_currentPosition(3);
  EXPECT_EQ(media.playState(), Media::kStopped);
  graphs.let_go("gain 0");
  ASSERT_TRUE(comes([&] { return graphs.count("stop") == 1; }));
  std::this_thread::sleep_for(50ms);
  EXPECT_EQ(media.playState(), Media::kStopped);
  EXPECT_EQ(graphs.count("seek 3"), 0);
}

TEST_F(GraphWorkerTest, a_place_that_no_file_has_is_cut_to_one_that_can_be_counted) {
  graphs.duration = 0;  // as of files that do not say it
  open("a");
  media.set_currentPosition(1e300);
  EXPECT_TRUE(comes([&] { return graphs.count("seek 1000000000") == 1; }));
}

// Facts that are asked of a slow disk.
struct SlowFacts {
  std::mutex mutex;
  std::condition_variable changed;
  bool held = true;
  int asked = 0;

  std::string title(const std::string& path) {
    std::unique_lock lock(mutex);
    ++asked;
    changed.notify_all();
    if (path == "slow") changed.wait(lock, [this] { return !held; });
    return "Tema";
  }
  void wait_until_asked(int times) {
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return asked >= times; });
  }
  void let_go() {
    const std::scoped_lock lock(mutex);
    held = false;
    changed.notify_all();
  }
};

TEST_F(GraphWorkerTest, a_file_whose_facts_are_slow_never_sounds_after_another_was_chosen) {
  SlowFacts facts;
  win32::GraphMedia slow({.duration_of = {},
                          .title_of = [&](const std::string& path) { return facts.title(path); },
                          .kilobits_of = {}},
                         graphs.maker());
  slow.set_URL("slow");
  facts.wait_until_asked(1);
  EXPECT_EQ(graphs.count("run"), 0) << "what is on its way still can be left";
  slow.set_URL("b");
  ASSERT_TRUE(comes([&] { return slow.playState() == Media::kPlaying; }));
  EXPECT_EQ(graphs.count("run"), 1);
  facts.let_go();
  EXPECT_TRUE(comes([&] { return slow.abandoned() == 0; }));
  EXPECT_EQ(graphs.count("run"), 1);
  EXPECT_EQ(graphs.living(), 1);
}

TEST_F(GraphWorkerTest, a_lost_device_is_replaced_once_at_the_same_place) {
  open("a");
  media.set_currentPosition(30);
  ASSERT_TRUE(comes([&] { return graphs.count("seek 30") == 1; }));
  graphs.report(GraphEvent::device_lost);
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 2; }));
  ASSERT_TRUE(comes([&] { return graphs.count("seek 30") == 2; }));
  EXPECT_EQ(media.playState(), Media::kPlaying);
  EXPECT_EQ(media.name(), "Tema");
  EXPECT_EQ(media.status(), "Reproduciendo: 192 K bits/s");
  std::this_thread::sleep_for(50ms);
  EXPECT_GE(media.currentPosition(), 30);
  graphs.report(GraphEvent::device_lost);
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kReady; }));
  EXPECT_THAT(media.notice(), HasSubstr("dispositivo"));
  EXPECT_EQ(media.name(), "Tema");
  EXPECT_EQ(graphs.count("open a"), 2);
}

TEST_F(GraphWorkerTest, play_tries_once_more_what_could_not_be_played) {
  graphs.fail_opening("a", GraphOpening::no_device);
  graphs.hold("open a");
  media.set_URL("a");
  media.play();
  graphs.let_go("open a");
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kReady; }));
  EXPECT_THAT(media.notice(), HasSubstr("dispositivo"));
  EXPECT_EQ(graphs.count("open a"), 1) << "the order came before it was tried";
  graphs.hold("open a");
  media.play();
  EXPECT_EQ(media.status(), "Abriendo") << "at once";
  graphs.let_go("open a");
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 2; }));
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kReady; }));
  graphs.fail_opening("a", GraphOpening::ok);
  media.play();
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_EQ(media.notice(), "");
}

TEST_F(GraphWorkerTest, each_reason_has_words_of_its_own) {
  std::vector<std::string> notices;
  for (const GraphOpening opening : {GraphOpening::missing, GraphOpening::unplayable,
                                     GraphOpening::no_device, GraphOpening::no_engine}) {
    EXPECT_THAT(notices, testing::Not(Contains(win32::notice_of(opening))));
    notices.push_back(win32::notice_of(opening));
    EXPECT_THAT(notices.back(), HasSubstr("No suena: "));
  }
  EXPECT_EQ(win32::notice_of(GraphOpening::ok), "");
}

TEST_F(GraphWorkerTest, a_system_without_graphs_says_so) {
  win32::GraphMedia none({}, [](std::shared_ptr<win32::SampleRing>) { return nullptr; });
  none.set_URL("a");
  ASSERT_TRUE(comes([&] { return none.playState() == Media::kReady; }));
  EXPECT_EQ(none.notice(), win32::notice_of(GraphOpening::no_engine));
}

TEST_F(GraphWorkerTest, the_end_of_a_track_stops_it) {
  open("a");
  graphs.report(GraphEvent::ended);
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kStopped; }));
  EXPECT_EQ(graphs.count("stop"), 1);
  EXPECT_EQ(media.status(), "Detenido");
}

TEST_F(GraphWorkerTest, an_end_that_comes_in_a_pause_is_over_with_a_seek) {
  open("a");
  media.pause();
  ASSERT_TRUE(comes([&] { return graphs.count("pause") == 1; }));
  std::this_thread::sleep_for(50ms);
  graphs.report(GraphEvent::ended);
  media.set_currentPosition(5);
  media.play();
  ASSERT_TRUE(comes([&] { return graphs.count("run") == 2; }));
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(media.playState(), Media::kPlaying);
  EXPECT_EQ(graphs.count("stop"), 0);
}

TEST_F(GraphWorkerTest, a_device_that_is_lost_in_a_pause_is_replaced_after_a_seek) {
  open("a");
  media.pause();
  ASSERT_TRUE(comes([&] { return graphs.count("pause") == 1; }));
  std::this_thread::sleep_for(50ms);
  graphs.report(GraphEvent::device_lost);
  media.set_currentPosition(5);
  ASSERT_TRUE(comes([&] { return graphs.count("seek 5") == 1; }));
  EXPECT_EQ(media.playState(), Media::kPaused);
  media.play();
  ASSERT_TRUE(comes([&] { return graphs.count("open a") == 2; }));
  EXPECT_TRUE(comes([&] { return graphs.count("seek 5") == 2; }));
  EXPECT_EQ(media.playState(), Media::kPlaying);
}

TEST_F(GraphWorkerTest, two_hundred_random_orders_end_in_order) {
  std::srand(3);
  for (int turn = 0; turn < 200; ++turn) {
    switch (std::rand() % 8) {
      case 0:
        media.set_URL(std::string(1, static_cast<char>('a' + std::rand() % 4)));
        break;
      case 1:
        media.play();
        break;
      case 2:
        media.pause();
        break;
      case 3:
        media.stop();
        break;
      case 4:
        media.set_currentPosition(std::rand() % 70);
        break;
      case 5:
        media.set_volume(std::rand() % 101);
        break;
      case 6:
        media.close();
        break;
      default:
        graphs.report(std::rand() % 2 == 0 ? GraphEvent::ended : GraphEvent::device_lost);
        std::this_thread::sleep_for(3ms);
    }
  }
  graphs.report(GraphEvent::none);
  open("z");
  media.close();
  EXPECT_TRUE(comes([&] { return graphs.living() == 0 && media.abandoned() == 0; }));
}

}  // namespace
}  // namespace ordelan::test
