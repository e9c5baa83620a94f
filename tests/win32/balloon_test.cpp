#include "ui/balloon.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "ui/label.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

// The corner of what is in the balloon is where it was told; its own edge may stand outside.
constexpr int kBorder = 1;

class RealBalloon : public BackendTest {
 protected:
  RealBalloon() {
    label.set_bounds({100, 200, 50, 20});
    balloon.set_title("T\xEDtulo");
    balloon.set_icon(1);
    balloon.set_tip_text("uno\r\ndos");
    balloon.set_fore_color(ui::rgb(1, 2, 3));
    balloon.set_back_color(static_cast<ui::Color>(0xC0E0FF));
    balloon.set_visible_time(5000);
    balloon.set_delay_time(10);
  }

  LRESULT ask(UINT message, WPARAM w = 0) const {
    return SendMessageW(tip_window(), message, w, 0);
  }
  std::wstring text() const {
    wchar_t buffer[100] = {};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = real_window();
    tool.uId = reinterpret_cast<UINT_PTR>(real_window());
    tool.lpszText = buffer;
    SendMessageW(tip_window(), TTM_GETTEXTW, 99, reinterpret_cast<LPARAM>(&tool));
    return buffer;
  }

  ui::Label label{window, "lblEstado"};
  ui::Class1 balloon;
};

TEST_F(RealBalloon, it_is_made_of_what_was_set_and_not_shown_yet) {
  show();
  balloon.set_style(1);
  balloon.Create(window);
  ASSERT_TRUE(tip_window());
  EXPECT_FALSE(IsWindowVisible(tip_window()));
  EXPECT_EQ(text(), L"uno\r\ndos");
  EXPECT_EQ(ask(TTM_GETTIPTEXTCOLOR), RGB(1, 2, 3));
  EXPECT_EQ(ask(TTM_GETTIPBKCOLOR), 0xC0E0FF);
  EXPECT_EQ(ask(TTM_GETDELAYTIME, TTDT_AUTOPOP), 5000);
  EXPECT_EQ(ask(TTM_GETDELAYTIME, TTDT_INITIAL), 10);
  EXPECT_NE(GetWindowLongPtrW(tip_window(), GWL_STYLE) & TTS_BALLOON, 0);
  balloon.set_style(0);
  balloon.Create(window);
  EXPECT_EQ(GetWindowLongPtrW(tip_window(), GWL_STYLE) & TTS_BALLOON, 0);
}

TEST_F(RealBalloon, it_is_shown_where_it_is_told) {
  show();
  balloon.Create(window);
  balloon.Show(3, 4, label);
  backend.pump();
  ASSERT_TRUE(IsWindowVisible(tip_window()));
  POINT wanted{px(103), px(204)};
  ClientToScreen(real_window(), &wanted);
  RECT area{};
  GetWindowRect(tip_window(), &area);
  EXPECT_NEAR(area.left, wanted.x, kBorder);
  EXPECT_NEAR(area.top, wanted.y, kBorder);
  balloon.Show(50, 60, window);
  wanted = {px(50), px(60)};
  ClientToScreen(real_window(), &wanted);
  GetWindowRect(tip_window(), &area);
  EXPECT_NEAR(area.left, wanted.x, kBorder);
  EXPECT_NEAR(area.top, wanted.y, kBorder);
}

TEST_F(RealBalloon, showing_before_creating_shows_nothing) {
  show();
  balloon.Show(3, 4, label);
  EXPECT_FALSE(tip_window());
}

TEST_F(RealBalloon, one_that_is_up_takes_changes_over) {
  show();
  balloon.Create(window);
  balloon.Show(3, 4, label);
  balloon.set_tip_text("tres");
  balloon.set_fore_color(std::nullopt);
  balloon.set_back_color(ui::rgb(9, 9, 9));
  balloon.set_visible_time(7000);
  EXPECT_EQ(text(), L"tres");
  EXPECT_EQ(static_cast<DWORD>(ask(TTM_GETTIPTEXTCOLOR)), GetSysColor(COLOR_INFOTEXT));
  EXPECT_EQ(ask(TTM_GETTIPBKCOLOR), RGB(9, 9, 9));
  EXPECT_EQ(ask(TTM_GETDELAYTIME, TTDT_AUTOPOP), 7000);
  EXPECT_TRUE(IsWindowVisible(tip_window()));
}

TEST_F(RealBalloon, destroying_takes_it_off_the_screen) {
  show();
  balloon.Create(window);
  balloon.Show(3, 4, label);
  balloon.Destroy();
  EXPECT_FALSE(tip_window());
}

TEST_F(RealBalloon, it_goes_with_its_window) {
  show();
  balloon.Create(window);
  balloon.Show(3, 4, label);
  window.unload();
  EXPECT_FALSE(tip_window());
  balloon.set_tip_text("nada");
  balloon.Show(1, 1, window);
  EXPECT_FALSE(tip_window());
  show();
  balloon.Create(window);
  EXPECT_TRUE(tip_window());
}

}  // namespace
}  // namespace ordelan::test
