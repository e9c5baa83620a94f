// The engine over the system's real graphs, where the machine has something to play on.
#include "win32/ports/graph_media.h"

#include <cstdlib>
#include <utility>

#include "audio/media_facts.h"
#include "sound_files.h"
#include "system/media_contract.h"
#include "test_disk.h"
#include "win32/ports/filter_graph.h"
#include "win32/sound_device.h"

namespace ordelan::test {
namespace {

using system::Media;

class GraphMediaPlace {
 public:
  explicit GraphMediaPlace(win32::MakeGraph make_graph = {})
      : media_(audio::media_facts(disk_.files()), std::move(make_graph)) {}

  static bool sounds() { return has_sound_device(); }
  system::Media& media() { return media_; }
  std::string tone(double seconds) {
    const std::string name = "tono" + std::to_string(++files_) + ".wav";
    disk_.write(name, wav_of({.seconds = seconds}));
    return disk_.path(name);
  }
  std::string no_audio() {
    disk_.write("nada.txt", "esto no es audio\r\n");
    return disk_.path("nada.txt");
  }
  std::string missing() { return disk_.path("falta.wav"); }
  void pass(double seconds) { sleep_seconds(seconds); }
  double slack() { return 0.25; }  // the machine may have much else to do

 private:
  TestDisk disk_;
  win32::GraphMedia media_;
  int files_ = 0;
};

// On Windows the two are the same.
class ClockedGraphMediaPlace : public GraphMediaPlace {
 public:
  ClockedGraphMediaPlace() : GraphMediaPlace(win32::make_clocked_filter_graph) {}
};

INSTANTIATE_TYPED_TEST_SUITE_P(Graph, MediaContract, GraphMediaPlace);
INSTANTIATE_TYPED_TEST_SUITE_P(ClockedGraph, MediaContract, ClockedGraphMediaPlace);

struct GraphMediaTest : testing::Test {
  void SetUp() override {
    if (!has_sound_device()) GTEST_SKIP() << "this machine has no sound device";
  }
  bool opens(const std::string& path) {
    media.set_URL(path);
    return comes([&] { return media.playState() != Media::kOpening; }) &&
           media.playState() == Media::kPlaying;
  }
  // What is heard, when enough of it has come.
  system::Heard sound() {
    system::Heard heard;
    comes([&] {
      heard = media.heard(4096);
      return heard.samples.size() == 4096;
    });
    return heard;
  }

  TestDisk disk;
  win32::GraphMedia media{audio::media_facts(disk.files())};
};

TEST_F(GraphMediaTest, every_width_of_wav_is_played_and_heard) {
  const std::vector<Tone> tones = {{.hertz = 440, .seconds = 3, .bits = 8, .channels = 1},
                                   {.hertz = 1000, .seconds = 3, .bits = 16, .rate = 48'000},
                                   {.hertz = 440, .seconds = 3, .bits = 24},
                                   {.hertz = 1000, .seconds = 3, .bits = 32},
                                   {.hertz = 440, .seconds = 3, .bits = 32, .fraction = true},
                                   {.hertz = 1000, .seconds = 3, .bits = 16, .channels = 6}};
  for (const Tone& tone : tones) {
    SCOPED_TRACE(std::to_string(tone.bits) + " bits, " + std::to_string(tone.channels));
    disk.write("tono.wav", wav_of(tone));
    ASSERT_TRUE(opens(disk.path("tono.wav"))) << media.notice();
    EXPECT_NEAR(hertz_of(sound()), tone.hertz, tone.hertz / 100);
    const int kilobits = tone.rate * tone.channels * tone.bits / 1000;
    EXPECT_NEAR(std::stoi(media.status().substr(15)), kilobits, 1) << media.status();
    media.close();
  }
}

TEST_F(GraphMediaTest, every_other_kind_that_the_samples_hold_is_played_and_heard) {
  const std::string folder = sample_sounds();
  if (folder.empty()) GTEST_SKIP() << "ORDELAN_SOUNDS names no folder with sounds";
  for (const char* kind : {"mp3", "flac", "ogg", "m4a", "wma", "aif"}) {
    SCOPED_TRACE(kind);
    ASSERT_TRUE(opens(folder + "\\tono." + kind)) << media.notice();
    EXPECT_NEAR(media.duration(), 3, 0.1);
    // Encoders begin with a little of their own.
    EXPECT_TRUE(comes([&] { return media.currentPosition() > 0.4; }));
    EXPECT_NEAR(hertz_of(sound()), 1000, 10);
    EXPECT_GT(std::stoi(media.status().substr(15)), 0) << media.status();
    media.set_currentPosition(2.5);
    EXPECT_TRUE(comes([&] { return media.playState() == Media::kStopped; }));
  }
  ASSERT_TRUE(opens(folder + "\\tono.mp3"));
  EXPECT_EQ(media.status(), "Reproduciendo: 192 K bits/s");
  EXPECT_EQ(media.name(), "Canci\xF3n de prueba");
}

TEST_F(GraphMediaTest, what_is_heard_is_of_the_place_that_is_played) {
  // A second of each pitch.
  std::string low = wav_of({.hertz = 300, .seconds = 2});
  const std::string high = wav_of({.hertz = 1200, .seconds = 2}).substr(44);
  low += high;
  const auto length = static_cast<std::uint32_t>(low.size() - 44);
  std::memcpy(low.data() + 40, &length, 4);
  disk.write("dos.wav", low);
  ASSERT_TRUE(opens(disk.path("dos.wav")));
  EXPECT_NEAR(hertz_of(sound()), 300, 3);
  media.set_currentPosition(2.5);
  EXPECT_TRUE(comes([&] { return std::abs(hertz_of(media.heard(4096)) - 1200) < 12; }));
  media.set_currentPosition(0.5);
  EXPECT_TRUE(comes([&] { return std::abs(hertz_of(media.heard(4096)) - 300) < 3; }));
  media.pause();
  EXPECT_TRUE(media.heard(4096).samples.empty());
  media.play();
  EXPECT_NEAR(hertz_of(sound()), 300, 3);
  media.stop();
  EXPECT_TRUE(media.heard(4096).samples.empty());
  media.set_volume(0);
  media.play();
  EXPECT_NEAR(hertz_of(sound()), 300, 3) << "the volume is no matter for it";
}

TEST_F(GraphMediaTest, a_closed_file_can_be_removed_at_once) {
  for (int turn = 0; turn < 5; ++turn) {
    disk.write("tono.wav", wav_of({.seconds = 2}));
    ASSERT_TRUE(opens(disk.path("tono.wav")));
    media.set_URL("");
    EXPECT_TRUE(DeleteFileW(disk.native_path("tono.wav").c_str())) << GetLastError();
  }
}

TEST_F(GraphMediaTest, a_file_of_every_kind_is_free_after_every_way_out) {
  const std::string folder = sample_sounds();
  if (folder.empty()) GTEST_SKIP() << "ORDELAN_SOUNDS names no folder with sounds";
  disk.write("otro.wav", wav_of({.seconds = 2}));
  disk.write("nada.txt", "esto no es audio");
  const std::vector<std::function<void()>> ways = {
      [&] { media.close(); },
      [&] { media.end(); },
      [&] {
        media.pause();
        media.set_URL("");
      },
      [&] {
        media.set_currentPosition(99);
        media.close();
      },
      [&] { ASSERT_TRUE(opens(disk.path("otro.wav"))); },
      [&] { EXPECT_FALSE(opens(disk.path("nada.txt"))); },
  };
  // Dozens of graphs one after the other make Wine itself fail now and then while the machine is
  // busy: all kinds are tried where random actions are, see sound_test.cpp.
  std::vector<std::string> kinds = {"wav"};
  if (std::getenv("ORDELAN_SOUND_ACTIONS") != nullptr) {
    kinds.insert(kinds.end(), {"mp3", "flac", "ogg", "m4a", "wma", "aif"});
  }
  for (const std::string& kind : kinds) {
    for (std::size_t way = 0; way < ways.size(); ++way) {
      const std::string name = "tono" + std::to_string(way) + "." + kind;
      SCOPED_TRACE(name);
      ASSERT_TRUE(CopyFileW(win32::widen(folder + "\\tono." + kind).c_str(),
                            disk.native_path(name).c_str(), FALSE));
      ASSERT_TRUE(opens(disk.path(name))) << media.notice();
      ways[way]();
      EXPECT_TRUE(DeleteFileW(disk.native_path(name).c_str())) << GetLastError();
    }
  }
  EXPECT_TRUE(DeleteFileW(disk.native_path("nada.txt").c_str())) << "loaded, but not open";
}

TEST_F(GraphMediaTest, names_of_any_kind_are_played) {
  const std::string wav = wav_of({.seconds = 1});
  const std::string deep = std::string(120, 'a') + "\\" + std::string(120, 'b') + "\\";
  for (const std::string& name : {std::string("A\xF1o \x80 [1] #5%.wav"), deep + "voz.wav",
                                  std::string("sin extension"), std::string("dos..wav")}) {
    disk.write(name, wav);
    EXPECT_TRUE(opens(disk.path(name))) << name << ": " << media.notice();
  }
}

TEST_F(GraphMediaTest, a_folder_and_a_relative_path_are_no_files) {
  disk.make_folder("carpeta.wav");
  for (const std::string& path : {disk.path("carpeta.wav"), disk.path("carpeta.wav\\"),
                                  std::string("tono.wav"), std::string("D:\\a*.wav")}) {
    EXPECT_FALSE(opens(path)) << path;
    EXPECT_EQ(media.notice(), "No suena: el archivo no existe.") << path;
  }
}

TEST_F(GraphMediaTest, fast_changes_of_the_file_end_with_the_last) {
  disk.write("uno.wav", wav_of({.seconds = 1}));
  disk.write("dos.wav", wav_of({.seconds = 3}));
  for (int turn = 0; turn < 30; ++turn) {
    media.set_URL(disk.path("uno.wav"));
    sleep_seconds(turn % 5 * 0.01);
  }
  ASSERT_TRUE(opens(disk.path("dos.wav")));
  EXPECT_NEAR(media.duration(), 3, 0.01);
  EXPECT_TRUE(comes([&] { return media.abandoned() == 0; }));
  EXPECT_NEAR(hertz_of(sound()), 440, 5);
}

// Plays the file that $ORDELAN_HUGE names and then another, as a process of its own: some systems
// never finish opening it, and a process does not get rid of such a thread.
TEST(GraphMediaProcess, DISABLED_plays_a_huge_file_and_ends) {
  wchar_t huge[MAX_PATH + 1] = {};
  ASSERT_NE(GetEnvironmentVariableW(L"ORDELAN_HUGE", huge, MAX_PATH), 0u);
  TestDisk disk;
  disk.write("tono.wav", wav_of({.seconds = 2}));
  win32::GraphMedia media{{}};
  const auto takes = [](const std::function<void()>& call) {
    const ULONGLONG begin = GetTickCount64();
    call();
    return GetTickCount64() - begin;
  };
  EXPECT_LT(takes([&] { media.set_URL(win32::narrow(huge).value()); }), 100u);
  sleep_seconds(1);
  EXPECT_LT(takes([&] { media.set_URL(disk.path("tono.wav")); }), 100u);
  EXPECT_TRUE(comes([&] { return media.playState() == Media::kPlaying; }));
  EXPECT_TRUE(comes([&] { return std::abs(hertz_of(media.heard(4096)) - 440) < 5; }));
  EXPECT_LT(takes([&] { media.end(); }), 1000u);
  const int code = HasFailure() ? 3 : 42;
  win32::end_process_despite_workers(code);
  std::_Exit(code);
}

TEST_F(GraphMediaTest, a_file_of_three_gigabytes_blocks_neither_the_next_one_nor_the_end) {
  constexpr std::uint64_t kSize = 3'000'000'000;
  std::string head = wav_of({.seconds = 1}).substr(0, 44);
  for (const auto& [place, value] : {std::pair(4, kSize - 8), std::pair(40, kSize - 44)}) {
    const auto field = static_cast<std::uint32_t>(value);
    std::memcpy(head.data() + place, &field, 4);
  }
  disk.write("enorme.wav", head);
  lengthen(disk.native_path("enorme.wav"), kSize);
  SetEnvironmentVariableW(L"ORDELAN_HUGE", disk.native_path("enorme.wav").c_str());
  wchar_t program[MAX_PATH + 1] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring line = L"\"" + std::wstring(program) +
                      L"\" --gtest_filter=GraphMediaProcess.* --gtest_also_run_disabled_tests";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &start, &process));
  EXPECT_EQ(WaitForSingleObject(process.hProcess, 30'000), WAIT_OBJECT_0);
  DWORD code = 0;
  EXPECT_TRUE(GetExitCodeProcess(process.hProcess, &code));
  EXPECT_EQ(code, 42u);
  if (code == STILL_ACTIVE) TerminateProcess(process.hProcess, 1);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  SetEnvironmentVariableW(L"ORDELAN_HUGE", nullptr);
}

}  // namespace
}  // namespace ordelan::test
