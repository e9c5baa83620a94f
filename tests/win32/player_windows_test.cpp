// The windows of the player together on a real screen: which has the keys, and which comes back.
#include <windows.h>

#include <gmock/gmock.h>

#include "audio/player.h"
#include "audio/sa.h"
#include "audio/zoom.h"
#include "win32/program_fixture.h"

namespace ordelan::test {
namespace {

class RealPlayer : public ProgramTest {
 protected:
  RealPlayer() {
    start({disk.folder()});
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) {
      disk.write(name, std::string(400, 'x'));
      songs.push_back(disk.path(name));
      media.files[songs.back()] = {.duration = 100, .kilobits = 192};
    }
    player().set_position({100, 400});
    player().show();
    backend.pump();
  }
  audio::Player& player() { return *program->windows.touch<audio::Player>(); }
  audio::Zoom& zoom() { return *program->windows.touch<audio::Zoom>(); }
  audio::SA& spectrum() { return *program->windows.touch<audio::SA>(); }
  static std::wstring active() {
    const HWND now = GetActiveWindow();
    for (const wchar_t* name : {L"Player", L"SA", L"Zoom", L"Form1"}) {
      if (now && now == top_level(name)) return name;
    }
    return L"other";
  }
  void type(HWND target, WPARAM key) {
    PostMessageW(target, WM_KEYDOWN, key, 1);
    PostMessageW(target, WM_KEYUP, key, 1);
    backend.pump();
    backend.pump();
  }
  std::vector<std::string> songs;
};

TEST_F(RealPlayer, a_playlist_that_was_hidden_while_minimised_comes_back_open) {
  program->form.sound().ListaPlay = {songs[0], songs[1], ""};
  player().PL_Click();
  backend.pump();
  zoom().cmdMinimizar.on_click();
  ASSERT_TRUE(IsIconic(top_level(L"Zoom")));
  program->windows.hide<audio::Zoom>();  // as the choice of files does
  backend.pump();
  player().PL_Click();
  backend.pump();
  EXPECT_TRUE(IsWindowVisible(top_level(L"Zoom")));
  EXPECT_FALSE(IsIconic(top_level(L"Zoom")));
}

TEST_F(RealPlayer, that_comes_by_a_click_on_a_list_leaves_the_keys_there) {
  player().hide();
  SetActiveWindow(top_level(L"Form1"));
  backend.pump();
  program->form.sound().SituarPlayer(true);
  backend.pump();
  EXPECT_TRUE(IsWindowVisible(top_level(L"Player")));
  EXPECT_EQ(active(), L"Form1");
  player().hide();
  backend.pump();
  player().show();
  backend.pump();
  EXPECT_EQ(active(), L"Player");
}

TEST_F(RealPlayer, so_does_the_spectrum) {
  player().SAtoggle1_Click();
  spectrum().cmdMinimizar.on_click();
  spectrum().hide();  // as a file of 32 bits does
  player().SAtoggle1_Click();
  backend.pump();
  EXPECT_FALSE(IsIconic(top_level(L"SA")));
}

TEST_F(RealPlayer, the_arrows_walk_through_the_playlist) {
  zoom().fill(songs);
  zoom().show();
  backend.pump();
  SetFocus(control(L"Zoom", L"ListFilesZoom"));
  ASSERT_EQ(active(), L"Zoom");
  zoom().ListFilesZoom.set_current(0);
  backend.pump();
  type(GetFocus(), VK_DOWN);
  EXPECT_EQ(zoom().ListFilesZoom.current(), 1);
  EXPECT_EQ(active(), L"Zoom") << "after the first arrow";
  type(GetFocus(), VK_DOWN);
  EXPECT_EQ(zoom().ListFilesZoom.current(), 2);
}

TEST_F(RealPlayer, after_a_drag_it_still_has_the_keys) {
  player().SAtoggle1_Click();
  backend.pump();
  SetActiveWindow(top_level(L"Player"));
  player().on_drag_end();
  backend.pump();
  EXPECT_EQ(active(), L"Player") << "with the spectrum";
  zoom().show();
  SetActiveWindow(top_level(L"Player"));
  player().on_drag_end();
  backend.pump();
  EXPECT_EQ(active(), L"Player") << "with the playlist";
}

TEST_F(RealPlayer, a_minimised_spectrum_does_not_take_the_keys) {
  player().SAtoggle1_Click();
  spectrum().cmdMinimizar.on_click();
  SetActiveWindow(top_level(L"Player"));
  backend.pump();
  ASSERT_EQ(active(), L"Player");
  player().on_drag_end();
  backend.pump();
  EXPECT_EQ(active(), L"Player");
  EXPECT_TRUE(IsIconic(top_level(L"SA")));
}

TEST_F(RealPlayer, a_key_with_alt_is_marked_as_one) {
  std::vector<bool> alt;
  player().on_key_down = [&](ui::Key& key) {
    alt.push_back(key.alt);
    key.swallowed = true;  // or the menu of the system would come up
  };
  PostMessageW(control(L"Player", L"PL"), WM_SYSKEYDOWN, VK_SPACE, (1 << 29) | 1);
  PostMessageW(control(L"Player", L"PL"), WM_KEYDOWN, VK_SPACE, 1);
  backend.pump();
  EXPECT_THAT(alt, testing::ElementsAre(true, false));
}

}  // namespace
}  // namespace ordelan::test
