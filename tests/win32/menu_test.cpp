// The menu that a window asks for, answered from inside its own loop.
#include <windows.h>

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

#include "ui/timer.h"
#include "win32/backend_fixture.h"
#include "win32/ports/win32_dialogs.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;

class Menu : public BackendTest {
 protected:
  // Presses these keys in the menu once it is up, and gives what was chosen.
  std::optional<std::size_t> choose(const std::vector<system::MenuItem>& shown,
                                    const std::vector<int>& keys) {
    show();
    ui::Timer timer(window, "Timer1", std::chrono::milliseconds(100));
    timer.on_tick = [&] {
      const HWND up = FindWindowW(L"#32768", nullptr);
      if (!up || !IsWindowVisible(up)) return;
      timer.stop();
      texts = texts_of(reinterpret_cast<HMENU>(SendMessageW(up, MN_GETHMENU, 0, 0)));
      for (const int key : keys)
        PostMessageW(real_window(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    };
    timer.attach(backend);
    timer.start();
    win32::Win32Dialogs dialogs([&] { return backend.owner(); });
    return dialogs.menu(shown, system::MenuPlace::focus);
  }

  // As the system has them, "*" before a tick and "-" before what cannot be chosen.
  static std::vector<std::wstring> texts_of(HMENU menu) {
    std::vector<std::wstring> all;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      wchar_t text[128] = {};
      GetMenuStringW(menu, static_cast<UINT>(i), text, 128, MF_BYPOSITION);
      const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
      std::wstring marks;
      if ((state & MF_CHECKED) != 0) marks += L"*";
      if ((state & MF_GRAYED) != 0) marks += L"-";
      all.push_back(marks + text);
    }
    return all;
  }

  const std::vector<system::MenuItem> items = {{.text = "Uno & dos", .enabled = false},
                                               {},
                                               {.text = "Tres", .ticked = true},
                                               {.text = "Canción"}};
  std::vector<std::wstring> texts;
};

TEST_F(Menu, shows_its_items_with_their_marks) {
  EXPECT_EQ(choose(items, {VK_ESCAPE}), std::nullopt);
  EXPECT_THAT(texts, ElementsAre(L"-Uno && dos", L"-", L"*Tres", L"Canci\xF3n"));
}

TEST_F(Menu, gives_the_item_that_was_chosen) {
  EXPECT_EQ(choose(items, {VK_UP, VK_RETURN}), 3u);
  EXPECT_EQ(choose(items, {VK_UP, VK_UP, VK_RETURN}), 2u);
}

TEST_F(Menu, is_asked_for_by_key_or_by_mouse) {
  std::vector<bool> by_key;
  window.on_context_menu = [&](bool key) { by_key.push_back(key); };
  show();
  SendMessageW(real_window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(real_window()), -1);
  SendMessageW(real_window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(real_window()),
               MAKELPARAM(5, 5));
  EXPECT_THAT(by_key, ElementsAre(true, false));
}

}  // namespace
}  // namespace ordelan::test
