// Message boxes whose text is taller than the screen.
#include "win32/ports/message_room.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "system/dialogs.h"
#include "ui/timer.h"
#include "win32/backend_fixture.h"
#include "win32/ports/win32_dialogs.h"

namespace ordelan::test {
namespace {

// Room for so many lines, as a box whose lines are never broken has it.
auto room_for(std::ptrdiff_t lines) {
  return [lines](const std::wstring& text) {
    return std::count(text.begin(), text.end(), L'\n') < lines;
  };
}

TEST(MessageRoom, a_text_that_fits_stays_as_it_is) {
  EXPECT_EQ(win32::fitting_text(L"uno\r\ndos\r\ntres", room_for(3)), L"uno\r\ndos\r\ntres");
  EXPECT_EQ(win32::fitting_text(L"", room_for(1)), L"");
}

TEST(MessageRoom, a_text_that_is_too_tall_says_how_many_lines_it_leaves_out) {
  EXPECT_EQ(win32::fitting_text(L"1\r\n2\r\n3\r\n4\r\n5\r\n6", room_for(5)),
            L"1\r\n2\r\n3\r\n\r\n... y 3 líneas más");
  EXPECT_EQ(win32::fitting_text(L"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n", room_for(5)),
            L"1\r\n2\r\n3\r\n\r\n... y 3 líneas más")
      << "the end of the last line begins no other";
}

TEST(MessageRoom, as_many_lines_are_shown_as_there_is_room_for) {
  std::wstring text;
  for (std::size_t all = 1; all <= 40; ++all) {
    text += (all > 1 ? L"\r\n" : L"") + std::to_wstring(all);
    for (std::size_t room = 3; room <= 42; ++room) {
      const std::wstring shown = win32::fitting_text(text, room_for(static_cast<int>(room)));
      const auto lines =
          static_cast<std::size_t>(std::count(shown.begin(), shown.end(), L'\n')) + 1;
      EXPECT_EQ(lines, std::min(all, room)) << all << " lines in room for " << room;
      EXPECT_EQ(shown == text, all <= room) << all << " lines in room for " << room;
    }
  }
}

TEST(MessageRoom, a_long_text_is_not_measured_as_a_whole) {
  std::wstring text;
  for (int i = 0; i < 2000; ++i) text += L"tema\r\n";
  std::size_t longest = 0;
  win32::fitting_text(text, [&](const std::wstring& part) {
    longest = std::max(longest, part.size());
    return room_for(50)(part);
  });
  EXPECT_LT(longest, text.size() / 10);
}

TEST(MessageRoom, one_line_is_shown_where_nothing_fits) {
  EXPECT_EQ(win32::fitting_text(L"1\r\n2\r\n3", room_for(0)), L"1\r\n\r\n... y 2 líneas más");
  EXPECT_EQ(win32::fitting_text(L"uno", room_for(0)), L"uno");
}

class TallMessageBoxes : public BackendTest {
 protected:
  struct Shown {
    RECT box{};
    RECT button{};
    std::wstring text;
  };

  // What a box with this text looks like; it is closed by its button.
  Shown shown(const std::string& text) {
    show();
    Shown seen;
    ui::Timer timer(window, "Timer1", std::chrono::milliseconds(300));
    timer.on_tick = [&] {
      const HWND up = dialog_in_sight();
      if (!up) return;
      constexpr int kText = 0xFFFF;
      GetWindowRect(up, &seen.box);
      GetWindowRect(GetDlgItem(up, IDOK) ? GetDlgItem(up, IDOK) : GetDlgItem(up, IDCANCEL),
                    &seen.button);
      const HWND words = GetDlgItem(up, kText);
      seen.text.resize(static_cast<std::size_t>(GetWindowTextLengthW(words)) + 1);
      seen.text.resize(static_cast<std::size_t>(
          GetWindowTextW(words, seen.text.data(), static_cast<int>(seen.text.size()))));
      timer.stop();
      PostMessageW(up, WM_COMMAND, IDOK, 0);
    };
    timer.attach(backend);
    timer.start();
    win32::Win32Dialogs dialogs([this] { return backend.owner(); });
    dialogs.message({.title = "Lista", .text = text, .icon = system::Icon::exclamation});
    return seen;
  }
  static bool is_on_screen(const RECT& place) {
    RECT room{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0);
    RECT inside{};
    IntersectRect(&inside, &place, &room);
    return EqualRect(&inside, &place) != FALSE;
  }
};

TEST_F(TallMessageBoxes, with_two_thousand_lines_stay_on_the_screen_with_their_button) {
  std::string text;
  for (int i = 1; i <= 2000; ++i) {
    text += "D:\\Proyectos de la temporada\\Originales\\tema " + std::to_string(i) + ".vip\r\n";
  }
  const Shown seen = shown(text);
  EXPECT_TRUE(is_on_screen(seen.box)) << seen.box.top << " to " << seen.box.bottom;
  EXPECT_TRUE(is_on_screen(seen.button)) << seen.button.top << " to " << seen.button.bottom;
  const auto lines = std::count(seen.text.begin(), seen.text.end(), L'\n') - 1;
  EXPECT_GT(lines, 10);
  EXPECT_TRUE(seen.text.ends_with(L"... y " + std::to_wstring(2000 - lines) + L" líneas más"))
      << lines;
}

TEST_F(TallMessageBoxes, with_few_lines_show_them_all) {
  EXPECT_EQ(shown("uno\r\ndos & tres").text, L"uno\r\ndos & tres");
}

}  // namespace
}  // namespace ordelan::test
