// The player control, as far as a stand-in and Wine's own can show it.
#include "win32/ports/player_media.h"

#include <gmock/gmock.h>

#include <thread>

#include "test_disk.h"
#include "win32/fake_player.h"
#include "win32/handle.h"
#include "win32/ole_session.h"

namespace ordelan::test {
namespace {

using system::Media;
using ::testing::Contains;
using ::testing::ElementsAre;

struct PlayerMediaTest : testing::Test {
  FakePlayer player;
  win32::PlayerMedia media{maker_of(player)};
};

TEST_F(PlayerMediaTest, the_first_path_brings_the_player_to_life_with_its_settings) {
  media.set_volume(30);
  media.set_balance(-20);
  EXPECT_TRUE(player.called.empty());
  media.set_URL("D:\\Canci\xF3n.mp3");
  EXPECT_EQ(media.URL(), "D:\\Canci\xF3n.mp3");
  EXPECT_EQ(player.texts[L"URL"], L"D:\\Canci\xF3n.mp3");
  EXPECT_EQ(player.texts[L"uiMode"], L"none");
  EXPECT_EQ(player.numbers[L"enableContextMenu"], 0);
  EXPECT_EQ(player.settings.numbers[L"autoStart"], 1);
  EXPECT_EQ(player.settings.numbers[L"enableErrorDialogs"], 0);
  EXPECT_EQ(player.settings.numbers[L"playCount"], 1);
  EXPECT_EQ(player.settings.numbers[L"rate"], 1);
  EXPECT_EQ(player.settings.numbers[L"volume"], 30);
  EXPECT_EQ(player.settings.numbers[L"balance"], -20);
  media.set_volume(200);
  EXPECT_EQ(player.settings.numbers[L"volume"], 100);
}

TEST_F(PlayerMediaTest, a_player_that_nobody_has_set_has_half_its_volume) {
  media.set_URL("D:\\a.wav");
  EXPECT_EQ(player.settings.numbers[L"volume"], 50);
}

TEST_F(PlayerMediaTest, orders_and_answers_pass_as_they_are) {
  media.set_URL("D:\\a.wav");
  player.controls.called.clear();
  player.take_up(3, L"Playing: 192 K bits/s");
  player.controls.numbers[L"currentPosition"] = 1.25;
  EXPECT_EQ(media.playState(), Media::kPlaying);
  EXPECT_EQ(media.status(), "Playing: 192 K bits/s");
  EXPECT_EQ(media.currentPosition(), 1.25);
  EXPECT_EQ(media.duration(), 3);
  EXPECT_EQ(media.durationString(), "00:03");
  EXPECT_EQ(media.name(), "Canci\xF3n");
  EXPECT_EQ(media.notice(), "");
  media.set_currentPosition(2.5);
  EXPECT_EQ(player.controls.numbers[L"currentPosition"], 2.5);
  media.pause();
  media.play();
  media.stop();
  EXPECT_THAT(player.controls.called, ElementsAre(L"pause", L"play", L"stop"));
  player.settings.numbers[L"balance"] = 17;
  EXPECT_EQ(media.balance(), 17);
  EXPECT_TRUE(media.shows_itself());
  EXPECT_TRUE(media.heard(9).samples.empty());
}

TEST_F(PlayerMediaTest, a_position_written_while_stopped_is_dropped) {
  media.set_URL("D:\\a.wav");
  player.take_up(1, L"Detenido");
  media.set_currentPosition(2);
  EXPECT_EQ(player.controls.numbers[L"currentPosition"], 0);
}

TEST_F(PlayerMediaTest, without_a_file_nothing_is_ordered) {
  ASSERT_TRUE(media.begin());
  player.controls.called.clear();
  media.play();
  media.pause();
  media.stop();
  media.set_currentPosition(2);
  EXPECT_TRUE(player.controls.called.empty());
  EXPECT_EQ(media.duration(), 0);
  EXPECT_EQ(media.name(), "");
}

TEST_F(PlayerMediaTest, closing_stops_and_empties_the_player) {
  media.set_URL("D:\\a.wav");
  media.set_URL("");
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(player.texts[L"URL"], L"");
  EXPECT_THAT(player.called, Contains(L"close"));
  EXPECT_THAT(player.controls.called, Contains(L"stop"));
}

// The player lets a file go when it comes to it.
struct HeldFileTest : PlayerMediaTest {
  HeldFileTest() {
    disk.write("tono.wav", "RIFF");
    open();
  }
  ~HeldFileTest() override {
    if (release.joinable()) release.join();
  }

  void open() {
    held = win32::FileHandle(CreateFileW(disk.native_path("tono.wav").c_str(), GENERIC_READ,
                                         FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  }
  bool can_be_removed() { return DeleteFileW(disk.native_path("tono.wav").c_str()); }

  TestDisk disk;
  win32::FileHandle held;
  std::thread release;
};

TEST_F(HeldFileTest, closing_waits_until_the_player_has_let_the_file_go) {
  for (const int way : {0, 1, 2}) {
    media.set_URL(disk.path("tono.wav"));
    player.on_call = [this](const std::wstring& name) {
      if (name != L"close" || release.joinable()) return;
      release = std::thread([this] {
        Sleep(80);
        held.close();
      });
    };
    if (way == 0) media.close();
    if (way == 1) media.set_URL("");
    if (way == 2) media.end();
    EXPECT_TRUE(can_be_removed()) << way;
    release.join();
    disk.write("tono.wav", "RIFF");
    open();
  }
}

TEST_F(HeldFileTest, closing_does_not_wait_for_ever) {
  media.set_URL(disk.path("tono.wav"));
  const ULONGLONG begin = GetTickCount64();
  media.close();
  EXPECT_LT(GetTickCount64() - begin, 1000u);
  EXPECT_FALSE(can_be_removed());
  EXPECT_TRUE(media.holds(disk.path("TONO.wav")));
  EXPECT_FALSE(media.holds(disk.path("otro.wav")));
  held.close();
  EXPECT_FALSE(media.holds(disk.path("tono.wav")));
}

TEST_F(HeldFileTest, a_file_that_another_one_has_followed_may_still_be_held) {
  media.set_URL(disk.path("tono.wav"));
  disk.write("otro.wav", "RIFF");
  media.set_URL(disk.path("otro.wav"));
  EXPECT_TRUE(media.holds(disk.path("tono.wav")));
  EXPECT_TRUE(media.holds(disk.path("otro.wav")));
  held.close();
  EXPECT_FALSE(media.holds(disk.path("tono.wav")));
}

TEST_F(HeldFileTest, of_many_files_the_newest_are_remembered) {
  media.set_URL(disk.path("tono.wav"));
  for (int file = 0; file < 10; ++file) media.set_URL(disk.path(std::to_string(file)));
  EXPECT_TRUE(media.holds(disk.path("tono.wav")));
  for (int turn = 0; turn < 100; ++turn) {
    media.set_URL(disk.path("uno"));
    media.set_URL(disk.path("dos"));
  }
  EXPECT_TRUE(media.holds(disk.path("tono.wav"))) << "each once";
}

TEST_F(PlayerMediaTest, a_window_is_forgotten_at_the_end_and_may_go) {
  const HWND window =
      CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 120, 80, nullptr, nullptr, nullptr, nullptr);
  media.set_host(window);
  ASSERT_TRUE(media.begin());
  media.end();
  DestroyWindow(window);
  player.window = nullptr;
  ASSERT_TRUE(media.begin());
  EXPECT_FALSE(player.site);
  EXPECT_EQ(player.window, nullptr);
}

TEST_F(PlayerMediaTest, each_missing_answer_makes_the_player_useless) {
  for (const wchar_t* name : {L"status", L"playState", L"uiMode"}) {
    FakePlayer poor;
    poor.texts.erase(name);
    poor.numbers.erase(name);
    poor.not_implemented.insert(name);
    win32::PlayerMedia engine(maker_of(poor));
    EXPECT_FALSE(engine.begin());
    engine.set_URL("D:\\a.wav");
    EXPECT_EQ(engine.URL(), "");
  }
  FakePlayer mute;
  mute.controls.methods.erase(L"pause");
  mute.controls.not_implemented.insert(L"pause");
  EXPECT_FALSE(win32::PlayerMedia(maker_of(mute)).begin());
  win32::PlayerMedia none([] { return win32::ComPtr<IDispatch>(); });
  EXPECT_FALSE(none.begin());
}

TEST_F(PlayerMediaTest, a_pause_that_fails_for_want_of_a_file_is_an_answer) {
  player.controls.failures[L"pause"] = HRESULT(0xC00D1001);
  EXPECT_TRUE(media.begin());
}

TEST_F(PlayerMediaTest, what_is_said_of_the_file_before_is_not_of_this_one) {
  media.set_URL("D:\\a.wav");
  EXPECT_FALSE(media.has_taken_up());
  player.take_up(3, L"");
  EXPECT_TRUE(media.has_taken_up());
  media.set_URL("D:\\b.wav");
  EXPECT_FALSE(media.has_taken_up());
  player.take_up(3, L"");
  EXPECT_TRUE(media.has_taken_up());
}

TEST_F(PlayerMediaTest, it_is_shown_in_its_window_and_leaves_it) {
  const HWND window =
      CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 120, 80, nullptr, nullptr, nullptr, nullptr);
  media.set_host(window);
  ASSERT_TRUE(media.begin());
  EXPECT_EQ(player.window, window);
  EXPECT_EQ(player.place.right, 120);
  EXPECT_EQ(player.place.bottom, 80);
  media.set_host(nullptr);
  EXPECT_FALSE(player.site);
  media.set_host(window);
  EXPECT_TRUE(player.site);
  media.end();
  EXPECT_FALSE(player.site);
  EXPECT_EQ(player.closed, 1);
  EXPECT_EQ(media.balance(), 0);
  DestroyWindow(window);
}

TEST_F(PlayerMediaTest, nothing_of_the_player_is_kept_after_the_end) {
  media.set_URL("D:\\a.wav");
  player.take_up(3, L"");
  EXPECT_EQ(media.name(), "Canci\xF3n");
  media.end();
  EXPECT_EQ(player.references, 1u);
  EXPECT_EQ(player.controls.references, 1u);
  EXPECT_EQ(player.settings.references, 1u);
  EXPECT_EQ(player.media.references, 1u);
}

// The system's browser stands for all controls that are shown in windows: Wine has that one too.
TEST(ControlSite, a_control_of_the_system_fills_its_window_until_it_is_taken_out) {
  constexpr CLSID kBrowser = {
      0x8856F961, 0x340A, 0x11D0, {0xA9, 0x6B, 0x00, 0xC0, 0x4F, 0xD7, 0x05, 0xA2}};
  const win32::OleSession ole;
  win32::ComPtr<IOleObject> control;
  ASSERT_EQ(
      CoCreateInstance(kBrowser, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject, control.out_void()),
      S_OK);
  const HWND window = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 120, 80, nullptr,
                                    nullptr, nullptr, nullptr);
  const auto width = [window] {
    RECT place{};
    GetWindowRect(GetWindow(window, GW_CHILD), &place);
    return place.right - place.left;
  };
  {
    win32::ControlSite site(control, window);
    EXPECT_TRUE(site.shown());
    EXPECT_EQ(width(), 120);
    SetWindowPos(window, nullptr, 0, 0, 200, 150, SWP_NOZORDER);
    site.fit();
    EXPECT_EQ(width(), 200);
  }
  control->Close(OLECLOSE_NOSAVE);
  EXPECT_EQ(GetWindow(window, GW_CHILD), nullptr);
  DestroyWindow(window);
}

// Wine has a player of that name, which answers no call by name.
TEST(SystemPlayer, is_used_if_it_is_complete_and_left_alone_otherwise) {
  const win32::OleSession ole;
  win32::PlayerMedia media;
  const bool complete = media.begin();
  if (complete) {
    EXPECT_NE(media.playState(), Media::kPlaying);
    media.end();
  }
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(media.playState(), Media::kUndefined);
  RecordProperty("complete", complete ? "yes" : "no");
}

}  // namespace
}  // namespace ordelan::test
