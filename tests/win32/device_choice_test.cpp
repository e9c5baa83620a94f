// The choice of the device that sound comes out of.
#include <windows.h>

#include <dshow.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "audio/media_facts.h"
#include "sound_files.h"
#include "support/fake_services.h"
#include "test_disk.h"
#include "win32/fake_graph.h"
#include "win32/fake_player.h"
#include "win32/ole_session.h"
#include "win32/ports/filter_graph.h"
#include "win32/ports/graph_media.h"
#include "win32/ports/sample_tap.h"
#include "win32/ports/win32_media.h"
#include "win32/sound_device.h"

namespace ordelan::test {
namespace {

using system::Media;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using GraphOpening = win32::MediaGraph::Opening;

struct GraphDevice : testing::Test {
  void open(const std::string& path) {
    media.set_URL(path);
    ASSERT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  }
  // The calls of the second graph, once there are that many.
  std::vector<std::string> second_graph(std::size_t count) {
    const std::size_t before = graphs.calls().size();
    media.set_device("x");
    comes([&] { return graphs.calls().size() >= before + count; });
    const auto calls = graphs.calls();
    return {calls.begin() + static_cast<std::ptrdiff_t>(before), calls.end()};
  }

  FakeGraphs graphs;
  win32::GraphMedia media{{.duration_of = {},
                           .title_of = [](const std::string&) { return "Tema"; },
                           .kilobits_of = [](const std::string&, double) { return 192; }},
                          graphs.maker()};
};

TEST_F(GraphDevice, a_playing_file_goes_on_at_its_place) {
  open("a");
  media.set_volume(100);
  media.set_currentPosition(12);
  ASSERT_TRUE(comes([&] { return graphs.count("seek 12") == 1; }));
  EXPECT_THAT(second_graph(6),
              ElementsAre("device x", "open a", "gain 0", "balance 0", "seek 12", "run"));
  EXPECT_EQ(media.playState(), Media::kPlaying);
  EXPECT_GE(media.currentPosition(), 12);
  EXPECT_EQ(media.name(), "Tema");
  EXPECT_EQ(media.status(), "Reproduciendo: 192 K bits/s");
  EXPECT_EQ(graphs.living(), 1);
}

TEST_F(GraphDevice, a_paused_file_stays_paused_and_makes_no_sound) {
  open("a");
  media.set_currentPosition(12);
  media.pause();
  ASSERT_TRUE(comes([&] { return graphs.count("pause") == 1; }));
  EXPECT_THAT(second_graph(6),
              ElementsAre("device x", "open a", "gain -1204", "balance 0", "seek 12", "pause"));
  EXPECT_EQ(media.playState(), Media::kPaused);
  media.play();
  EXPECT_TRUE(comes([&] { return graphs.count("run") == 2; }));
}

TEST_F(GraphDevice, a_stopped_file_plays_there_when_it_is_asked_to) {
  open("a");
  media.stop();
  ASSERT_TRUE(comes([&] { return graphs.count("stop") == 1; }));
  EXPECT_THAT(second_graph(4), ElementsAre("device x", "open a", "gain -1204", "balance 0"));
  media.play();
  EXPECT_TRUE(comes([&] { return graphs.count("run") == 2; }));
  EXPECT_EQ(media.playState(), Media::kPlaying);
}

TEST_F(GraphDevice, the_same_device_once_more_is_tried_again) {
  open("a");
  second_graph(5);
  ASSERT_TRUE(comes([&] { return graphs.count("run") == 2; }));
  media.set_device("x");
  EXPECT_TRUE(comes([&] { return graphs.count("run") == 3; })) << "it may be back";
  EXPECT_EQ(media.device(), "x");
}

TEST_F(GraphDevice, the_default_one_once_more_changes_nothing) {
  open("a");
  const auto calls = graphs.calls();
  media.set_device("");
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(graphs.calls(), calls);
}

TEST_F(GraphDevice, what_was_chosen_before_holds_for_every_file) {
  media.set_device("x");
  open("a");
  open("b");
  EXPECT_EQ(graphs.count("device x"), 2);
  media.set_device("");
  EXPECT_TRUE(comes([&] { return graphs.count("run") == 3; }));
  EXPECT_EQ(graphs.count("device x"), 2);
}

TEST_F(GraphDevice, a_file_that_no_device_plays_says_so) {
  open("a");
  graphs.fail_opening("a", GraphOpening::no_device);
  media.set_device("x");
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kReady; }));
  EXPECT_EQ(media.notice(), win32::notice_of(GraphOpening::no_device));
  EXPECT_EQ(media.name(), "Tema");
}

TEST_F(GraphDevice, the_end_forgets_the_choice) {
  media.set_device("x");
  open("a");
  media.end();
  EXPECT_EQ(media.device(), "");
  open("a");
  EXPECT_EQ(graphs.count("device x"), 1);
}

// --- which engine

struct EngineOfDevice : testing::Test {
  FakePlayer player;
  FakeGraphs graphs;
  HandClock clock;
  win32::Win32Media media{clock, {}, win32::Motor::automatic, maker_of(player), graphs.maker()};
};

TEST_F(EngineOfDevice, a_chosen_one_belongs_to_the_graphs) {
  media.set_device("x");
  media.set_URL("a");
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_EQ(graphs.count("device x"), 1);
  EXPECT_THAT(player.called, IsEmpty());
  media.set_device("");
  EXPECT_TRUE(comes([&] { return graphs.count("open a") == 2; }));
  media.set_URL("b");
  EXPECT_EQ(player.texts[L"URL"], L"b") << "the default one is the player's again";
}

TEST_F(EngineOfDevice, what_the_player_plays_goes_on_there_at_its_place) {
  media.set_URL("a");
  player.take_up(3, L"Reproduciendo");
  media.look();
  player.controls.numbers[L"currentPosition"] = 20;
  media.set_volume(100);
  media.set_device("x");
  EXPECT_EQ(player.texts[L"URL"], L"");
  EXPECT_TRUE(comes([&] { return graphs.count("seek 20") == 1; }));
  EXPECT_THAT(graphs.calls(), Contains("gain 0"));
  EXPECT_EQ(graphs.count("pause") + graphs.count("stop"), 0);
  EXPECT_EQ(media.URL(), "a");
  EXPECT_EQ(media.device(), "x");
}

TEST_F(EngineOfDevice, what_the_player_has_paused_stays_paused) {
  media.set_URL("a");
  player.take_up(3, L"Reproduciendo");
  media.look();
  player.numbers[L"playState"] = 2;
  media.set_device("x");
  EXPECT_TRUE(comes([&] { return graphs.count("pause") == 1; }));
  EXPECT_EQ(media.playState(), Media::kPaused);
}

TEST_F(EngineOfDevice, what_was_ordered_before_the_player_had_the_file_holds_there) {
  media.set_URL("a");
  media.set_currentPosition(20);
  media.pause();
  media.set_device("x");
  EXPECT_TRUE(comes([&] { return graphs.count("seek 20") == 1 && graphs.count("pause") == 1; }));
  clock.time += std::chrono::seconds(10);
  media.look();
  EXPECT_EQ(graphs.count("open a"), 1) << "it is handed over once";
}

TEST_F(EngineOfDevice, where_the_configuration_wants_the_player_there_is_no_choice) {
  win32::Win32Media only(clock, {}, win32::Motor::player, maker_of(player), graphs.maker());
  EXPECT_THAT(only.devices(), IsEmpty());
  only.set_device("x");
  EXPECT_EQ(only.device(), "");
  only.set_URL("a");
  EXPECT_TRUE(only.shows_itself());
}

// --- the machine's own

struct RealDevices : testing::Test {
  void SetUp() override {
    if (!has_sound_device()) GTEST_SKIP() << "this machine has no sound device";
    disk.write("tono.wav", wav_of({.hertz = 440, .seconds = 30}));
  }
  const win32::OleSession ole;  // as the program's thread has it
  TestDisk disk;
  win32::GraphMedia media{audio::media_facts(disk.files())};
};

TEST_F(RealDevices, all_have_names_and_ids_of_their_own) {
  const auto devices = media.devices();
  if (devices.empty()) GTEST_SKIP() << "no device can be chosen here";
  for (const auto& device : devices) {
    EXPECT_NE(device.name, "");
    EXPECT_EQ(std::count_if(devices.begin(), devices.end(),
                            [&](const auto& other) { return other.id == device.id; }),
              1)
        << device.id;
  }
  EXPECT_THAT(media.devices(), testing::SizeIs(devices.size()));
}

TEST_F(RealDevices, a_missing_one_leaves_the_sound_to_the_default_one) {
  media.set_device("no such device");
  media.set_URL(disk.path("tono.wav"));
  ASSERT_TRUE(comes([&] { return media.playState() == Media::kPlaying; })) << media.notice();
  EXPECT_TRUE(comes([&] { return media.heard(64).samples.size() == 64; }));
}

// So the device of the one that was chosen is the one that plays.
TEST_F(RealDevices, what_renders_sound_and_is_in_the_graph_is_what_the_system_connects) {
  win32::ComPtr<IGraphBuilder> graph;
  win32::ComPtr<IBaseFilter> renderer;
  ASSERT_TRUE(SUCCEEDED(CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER,
                                         IID_IGraphBuilder, graph.out_void())));
  ASSERT_TRUE(SUCCEEDED(CoCreateInstance(CLSID_DSoundRender, nullptr, CLSCTX_INPROC_SERVER,
                                         IID_IBaseFilter, renderer.out_void())));
  ASSERT_TRUE(SUCCEEDED(graph->AddFilter(renderer.get(), L"Audio Renderer")));
  const auto name = win32::graph_path(disk.path("tono.wav"));
  ASSERT_TRUE(name);
  ASSERT_TRUE(SUCCEEDED(graph->RenderFile(name->c_str(), nullptr)));
  EXPECT_EQ(win32::audio_renderer_of(graph.get()).get(), renderer.get());
}

}  // namespace
}  // namespace ordelan::test
