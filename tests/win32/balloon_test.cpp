#include "ui/balloon.h"

#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include <chrono>
#include <string>

#include "ui/label.h"
#include "win32/backend_fixture.h"
#include "win32/tip_messages.h"

namespace ordelan::test {
namespace {

// The corner of what is in the balloon is at the given place; its own edge may stand outside.
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
  static TTTOOLINFOW tool_of(HWND parent) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = parent;
    tool.uId = reinterpret_cast<UINT_PTR>(parent);
    return tool;
  }
  std::wstring text() const {
    wchar_t buffer[100] = {};
    TTTOOLINFOW tool = tool_of(real_window());
    tool.lpszText = buffer;
    SendMessageW(tip_window(), TTM_GETTEXTW, 99, reinterpret_cast<LPARAM>(&tool));
    return buffer;
  }
  // The flags of the tool that a parent has in the tooltip window; 0 without one.
  static UINT flags(HWND parent) {
    wchar_t buffer[100] = {};
    TTTOOLINFOW tool = tool_of(parent);
    tool.lpszText = buffer;
    const bool found =
        SendMessageW(tip_window(), TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
    return found ? tool.uFlags : 0;
  }
  static bool visible() { return tip_window() && IsWindowVisible(tip_window()); }
  static RECT area() {
    RECT area{};
    GetWindowRect(tip_window(), &area);
    return area;
  }
  void pump_for(std::chrono::milliseconds time) {
    const auto until = Clock::now() + time;
    while (Clock::now() < until) backend.pump();
  }
  // The pointer comes to a place of a window from elsewhere in it, and rests there.
  void point_at(HWND over, int x, int y) {
    for (const int step : {9, 0}) {
      POINT place{px(x + step), px(y + step)};
      ClientToScreen(over, &place);
      SetCursorPos(place.x, place.y);
      backend.pump();
    }
  }
  using Clock = std::chrono::steady_clock;

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

TEST_F(RealBalloon, it_is_shown_at_the_given_place) {
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

TEST_F(RealBalloon, title_and_icon_arrive_as_they_were_set) {
  using Title = TipMessages::Title;
  show();
  const TipMessages messages;
  balloon.Create(window);
  balloon.set_title("otro");
  balloon.set_icon(3);
  EXPECT_THAT(messages.titles,
              testing::ElementsAre(Title{1, L"T\u00EDtulo"}, Title{1, L"otro"}, Title{3, L"otro"}));
}

TEST_F(RealBalloon, an_icon_or_a_title_alone_is_shown_and_neither_is_not) {
  using Title = TipMessages::Title;
  show();
  const TipMessages messages;
  ui::Class1 other;
  other.Create(window);
  EXPECT_THAT(messages.titles, testing::IsEmpty());
  other.set_icon(2);
  other.Create(window);
  EXPECT_EQ(messages.titles.back(), (Title{2, L""}));
  other.set_icon(0);
  other.set_title("solo");
  other.Create(window);
  EXPECT_EQ(messages.titles.back(), (Title{0, L"solo"}));
}

TEST_F(RealBalloon, a_centred_one_is_shown_with_its_middle_at_the_place) {
  show();
  balloon.set_centered(true);
  balloon.Create(window);
  balloon.Show(100, 60, window);
  backend.pump();
  POINT wanted{px(100), px(60)};
  ClientToScreen(real_window(), &wanted);
  EXPECT_NEAR((area().left + area().right) / 2, wanted.x, kBorder);
}

// A theme has colours of its own, and a tooltip window that has one shows no others.
TEST_F(RealBalloon, colours_of_its_own_turn_the_theme_off) {
  show();
  const TipMessages messages;
  ui::Class1 plain;
  plain.Create(window);
  EXPECT_EQ(messages.themes, 0) << "without colours it looks as tooltips do everywhere";
  plain.set_back_color(ui::rgb(1, 2, 3));
  EXPECT_EQ(messages.themes, 1);
  plain.set_fore_color(ui::rgb(1, 2, 3));
  EXPECT_EQ(messages.themes, 1) << "it is off already";
  plain.set_back_color(std::nullopt);
  EXPECT_EQ(messages.themes, 1) << "one of the colours is still its own";
  plain.set_fore_color(std::nullopt);
  EXPECT_EQ(messages.themes, 2);
  plain.Destroy();
  balloon.Create(window);
  EXPECT_EQ(messages.themes, 3);
}

TEST_F(RealBalloon, its_colours_are_seen) {
  balloon.set_tip_text("MMMMMMMM\r\nMMMMMMMM");
  show();
  balloon.Create(window);
  balloon.Show(100, 60, window);
  backend.pump();
  UpdateWindow(tip_window());
  RECT room{};
  GetClientRect(tip_window(), &room);
  const HDC context = GetDC(tip_window());
  int ground = 0;
  int text = 0;
  for (LONG y = 0; y < room.bottom; ++y) {
    for (LONG x = 0; x < room.right; ++x) {
      const COLORREF pixel = GetPixel(context, x, y);
      ground += pixel == 0xC0E0FF ? 1 : 0;
      text += pixel == RGB(1, 2, 3) ? 1 : 0;
    }
  }
  ReleaseDC(tip_window(), context);
  EXPECT_GT(ground, room.right * room.bottom / 3);
  EXPECT_GT(text, 20);
}

TEST_F(RealBalloon, until_it_is_shown_it_is_the_tip_of_its_parent) {
  show();
  balloon.Create(window);
  EXPECT_EQ(flags(real_window()), 17u);
  balloon.set_centered(true);
  balloon.Create(window);
  EXPECT_EQ(flags(real_window()), 19u);
}

TEST_F(RealBalloon, a_pointer_that_rests_brings_it_after_its_delay_for_its_time) {
  balloon.set_delay_time(300);
  balloon.set_visible_time(400);
  show();
  balloon.Create(window);
  point_at(real_window(), 400, 300);
  const auto rested = Clock::now();
  ASSERT_TRUE(pump_until([] { return visible(); }));
  const auto came = Clock::now();
  EXPECT_GE(came - rested, std::chrono::milliseconds(200));
  ASSERT_TRUE(pump_until([] { return !visible(); }));
  EXPECT_GE(Clock::now() - came, std::chrono::milliseconds(300));
}

TEST_F(RealBalloon, one_that_was_shown_stays_at_its_place_whatever_the_pointer_does) {
  balloon.set_delay_time(10);
  balloon.set_visible_time(100);
  show();
  balloon.Create(window);
  balloon.Show(100, 60, window);
  backend.pump();
  const RECT before = area();
  point_at(real_window(), 400, 300);
  pump_for(std::chrono::milliseconds(500));
  ASSERT_TRUE(visible());
  const RECT after = area();
  EXPECT_TRUE(EqualRect(&before, &after));
  point_at(real_window(), 300, 200);
  pump_for(std::chrono::milliseconds(300));
  EXPECT_TRUE(visible());
}

TEST_F(RealBalloon, it_may_belong_to_a_control) {
  label.on_click = [] {};
  balloon.set_visible_time(20000);
  show();
  balloon.Create(label);
  const HWND real_label = real(L"Ordelan.lblEstado");
  EXPECT_EQ(flags(real_label), 17u);
  EXPECT_EQ(flags(real_window()), 0u);
  point_at(real_window(), 400, 300);
  pump_for(std::chrono::milliseconds(200));
  EXPECT_FALSE(visible());
  point_at(real_label, 5, 5);
  EXPECT_TRUE(pump_until([] { return visible(); }));
  int clicks = 0;
  label.on_click = [&] { ++clicks; };
  press(real_label);
  EXPECT_EQ(clicks, 1) << "the control's own messages still arrive";
  balloon.Show(3, 4, label);
  backend.pump();
  POINT wanted{px(103), px(204)};
  ClientToScreen(real_window(), &wanted);
  EXPECT_NEAR(area().left, wanted.x, kBorder);
}

TEST_F(RealBalloon, one_of_a_control_goes_with_it) {
  auto other = std::make_unique<ui::Label>(window, "lblOtro");
  show();
  balloon.Create(*other);
  balloon.Show(3, 4, window);
  EXPECT_TRUE(visible());
  other.reset();
  EXPECT_FALSE(tip_window());
  balloon.set_tip_text("nada");
  balloon.Show(1, 1, window);
  EXPECT_FALSE(tip_window());
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
