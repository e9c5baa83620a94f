// Windows without a title, and the dragging of windows by their background.
#include <windows.h>

#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "ui/button.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/timer.h"
#include "ui/window_shape.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

class BorderlessWindow : public BackendTest {
 protected:
  BorderlessWindow() {
    window.set_borderless(true);
    window.set_back_color(ui::rgb(200, 160, 80));
    button.set_bounds({10, 10, 100, 26});
  }

  bool has_style(LONG_PTR style) const {
    return (GetWindowLongPtrW(real_window(), GWL_STYLE) & style) == style;
  }
  bool has_extended_style(LONG_PTR style) const {
    return (GetWindowLongPtrW(real_window(), GWL_EXSTYLE) & style) == style;
  }
  // Whether the user finds the window among those to switch to.
  bool in_task_bar() const {
    return has_extended_style(WS_EX_APPWINDOW) && !has_extended_style(WS_EX_TOOLWINDOW);
  }
  bool is_tool() const {
    return has_extended_style(WS_EX_TOOLWINDOW) && !has_extended_style(WS_EX_APPWINDOW);
  }

  ui::Button button{window, "cmdAbrir"};
};

TEST_F(BorderlessWindow,
       one_that_can_be_resized_is_painted_anew_for_a_new_size_not_for_a_new_place) {
  window.set_resizable({100, 100});
  show();
  const auto waits_for_painting = [&] {
    return GetUpdateRect(real_window(), nullptr, FALSE) != FALSE;
  };
  ASSERT_TRUE(pump_until([&] { return !waits_for_painting(); }));
  window.set_position({90, 70});
  EXPECT_FALSE(waits_for_painting());
  window.set_size({520, 420});
  EXPECT_TRUE(waits_for_painting());
}

TEST_F(BorderlessWindow, it_has_the_shape_that_it_is_given_until_that_is_taken_away) {
  // The colour that is not shown; none where all of the window is.
  const auto hole = [&]() -> std::optional<COLORREF> {
    COLORREF color = 0;
    DWORD flags = 0;
    if (!has_extended_style(WS_EX_LAYERED)) return std::nullopt;
    if (!GetLayeredWindowAttributes(real_window(), &color, nullptr, &flags)) return std::nullopt;
    return flags == LWA_COLORKEY ? std::optional(color) : std::nullopt;
  };
  show();
  EXPECT_EQ(hole(), std::nullopt);
  ui::AplicarForma(window, "fondo_principal", static_cast<ui::Color>(0xFF00FF));
  EXPECT_EQ(hole(), RGB(255, 0, 255));
  ui::AplicarForma(window, "fondo_principal", static_cast<ui::Color>(0xFF0000));
  EXPECT_EQ(hole(), RGB(0, 0, 255));
  window.set_shape({});
  EXPECT_EQ(hole(), std::nullopt);
  EXPECT_TRUE(IsWindowVisible(real_window()));
  window.unload();
  ui::AplicarForma(window, "fondo_principal", ui::Color::button_face);
  show();
  EXPECT_EQ(hole(), GetSysColor(COLOR_BTNFACE));
}

TEST_F(BorderlessWindow, the_room_for_controls_is_the_windows_size_with_a_line_round_it) {
  show();
  EXPECT_FALSE(has_style(WS_CAPTION));
  EXPECT_FALSE(has_style(WS_THICKFRAME));
  RECT client{};
  GetClientRect(real_window(), &client);
  EXPECT_EQ(client.right, px(500));
  EXPECT_EQ(client.bottom, px(400));
  RECT outer{};
  GetWindowRect(real_window(), &outer);
  EXPECT_EQ(outer.left, px(40));
  EXPECT_EQ(outer.top, px(40));
  EXPECT_EQ(outer.right - outer.left, px(500) + 2);
  EXPECT_EQ(outer.bottom - outer.top, px(400) + 2);
  window.set_size({300, 200});
  GetClientRect(real_window(), &client);
  EXPECT_EQ(client.right, px(300));
  EXPECT_EQ(client.bottom, px(200));
}

TEST_F(BorderlessWindow, the_line_is_darker_than_the_ground_whether_active_or_not) {
  show();
  const auto line = [&] {
    backend.pump();
    RECT outer{};
    GetWindowRect(real_window(), &outer);
    const HDC context = GetWindowDC(real_window());
    const std::vector<COLORREF> colors{
        GetPixel(context, 0, 0), GetPixel(context, 100, 0), GetPixel(context, 0, 50),
        GetPixel(context, outer.right - outer.left - 1, outer.bottom - outer.top - 1)};
    EXPECT_NE(GetPixel(context, 1, 1), colors.front()) << "one pixel wide";
    ReleaseDC(real_window(), context);
    return colors;
  };
  EXPECT_THAT(line(), testing::Each(RGB(125, 100, 50)));
  SendMessageW(real_window(), WM_NCACTIVATE, FALSE, 0);
  EXPECT_THAT(line(), testing::Each(RGB(125, 100, 50)));
  window.set_back_color(ui::rgb(80, 160, 200));
  EXPECT_THAT(line(), testing::Each(RGB(50, 100, 125)));
}

TEST_F(BorderlessWindow, alt_and_f4_ask_the_object_to_close) {
  int asked = 0;
  window.on_close = [&] { ++asked; };
  show();
  SetFocus(real(L"Ordelan.cmdAbrir"));
  constexpr LPARAM kAltIsDown = 1 << 29;
  PostMessageW(real(L"Ordelan.cmdAbrir"), WM_SYSKEYDOWN, VK_F4, kAltIsDown | 1);
  EXPECT_TRUE(pump_until([&] { return asked > 0; }));
  backend.pump();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(IsWindowVisible(real_window()));
}

TEST_F(BorderlessWindow, an_ordinary_one_can_be_switched_to_and_minimized) {
  show();
  EXPECT_TRUE(in_task_bar());
  EXPECT_TRUE(has_style(WS_MINIMIZEBOX));
  window.set_minimized(true);
  EXPECT_TRUE(IsIconic(real_window()));
  ShowWindow(real_window(), SW_RESTORE);
  backend.pump();
  EXPECT_FALSE(window.minimized());
}

TEST_F(BorderlessWindow, one_that_stays_before_others_is_a_tool) {
  window.set_topmost(true);
  show();
  EXPECT_TRUE(is_tool());
  EXPECT_FALSE(has_style(WS_MINIMIZEBOX));
  EXPECT_TRUE(has_extended_style(WS_EX_TOPMOST));
  window.set_topmost(false);
  EXPECT_TRUE(in_task_bar());
  EXPECT_TRUE(IsWindowVisible(real_window()));
  window.set_topmost(true);
  EXPECT_TRUE(is_tool());
  EXPECT_TRUE(has_extended_style(WS_EX_TOPMOST));
  EXPECT_TRUE(IsWindowVisible(real_window()));
  EXPECT_EQ(GetActiveWindow(), real_window());
}

TEST_F(BorderlessWindow, a_tool_with_a_button_that_minimizes_it_can_be_switched_to) {
  window.set_topmost(true);
  window.set_minimizable(true);
  button.on_click = [&] { window.set_minimized(true); };
  show();
  EXPECT_TRUE(in_task_bar());
  EXPECT_TRUE(has_style(WS_MINIMIZEBOX));
  press(real(L"Ordelan.cmdAbrir"));
  EXPECT_TRUE(IsIconic(real_window()));
  EXPECT_TRUE(in_task_bar());
}

TEST_F(BorderlessWindow, a_tool_that_is_minimized_all_the_same_can_be_brought_back) {
  window.set_topmost(true);
  show();
  ASSERT_TRUE(is_tool());
  const ui::Point place = window.position();
  window.set_minimized(true);
  EXPECT_TRUE(IsIconic(real_window()));
  EXPECT_TRUE(in_task_bar());
  ShowWindow(real_window(), SW_RESTORE);
  backend.pump();
  EXPECT_FALSE(window.minimized());
  EXPECT_EQ(window.position(), place);
  EXPECT_TRUE(in_task_bar());
  EXPECT_TRUE(has_extended_style(WS_EX_TOPMOST));
  window.unload();
  show();
  EXPECT_TRUE(is_tool()) << "anew";
  SendMessageW(real_window(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
  EXPECT_TRUE(window.minimized());
  EXPECT_TRUE(in_task_bar());
}

TEST_F(BorderlessWindow, a_tool_that_appears_minimized_can_be_brought_back) {
  window.set_topmost(true);
  window.set_minimized(true);
  show();
  EXPECT_TRUE(IsIconic(real_window()));
  EXPECT_TRUE(in_task_bar());
}

TEST_F(BackendTest, a_window_with_a_title_is_no_tool_wherever_it_stays) {
  window.set_topmost(true);
  show();
  EXPECT_FALSE(GetWindowLongPtrW(real_window(), GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
}

// The mouse is held down by the messages that Windows sends; the system's own loop then drags the
// window until the button is let go.
class DraggedWindow : public BackendTest {
 protected:
  DraggedWindow() {
    window.set_drag_by_background(true);
    window.on_drag_end = [&] { ends.push_back(window.position()); };
    button.set_bounds({10, 10, 100, 26});
    list.set_bounds({10, 50, 100, 60});
    label.set_bounds({10, 120, 100, 20});
    image.set_bounds({10, 150, 40, 40});
  }

  // Presses the button by `message`, moves the mouse and lets go.
  void drag(HWND pressed, UINT message, WPARAM w = MK_LBUTTON, POINT place = {3, 3}) {
    POINT grip = place;
    ClientToScreen(pressed, &grip);
    SetCursorPos(grip.x, grip.y);
    int ticks = 0;
    ui::Timer timer(window, "Timer1", std::chrono::milliseconds(20));
    timer.on_tick = [&] {
      ++ticks;
      if (ticks < 4) SetCursorPos(grip.x + 10 * ticks, grip.y + 5 * ticks);
      if (ticks >= 5) PostMessageW(real_window(), WM_LBUTTONUP, 0, 0);
    };
    timer.attach(backend);
    timer.start();
    const LPARAM l = message == WM_NCLBUTTONDOWN ? at(grip.x, grip.y) : at(place.x, place.y);
    SendMessageW(pressed, message, w, l);
    timer.stop();
    SendMessageW(pressed, WM_LBUTTONUP, 0, l);
    backend.pump();
  }

  const ui::Point start{40, 40};
  std::vector<ui::Point> ends;
  ui::Button button{window, "cmdAbrir"};
  ui::ListBox list{window, "ListVip"};
  ui::Label label{window, "lblEstado"};
  ui::Image image{window, "Image1"};
};

TEST_F(DraggedWindow, a_drag_by_the_title_ends_once) {
  show();
  drag(real_window(), WM_NCLBUTTONDOWN, HTCAPTION, {100, -10});
  ASSERT_EQ(ends.size(), 1u);
  EXPECT_NE(ends[0], start);
  EXPECT_EQ(ends[0], window.position());
}

TEST_F(DraggedWindow, a_drag_by_the_background_ends_once) {
  show();
  drag(real_window(), WM_LBUTTONDOWN, MK_LBUTTON, {px(300), px(300)});
  ASSERT_EQ(ends.size(), 1u);
  EXPECT_NE(ends[0], start);
  EXPECT_EQ(ends[0], window.position());
}

TEST_F(DraggedWindow, a_borderless_window_is_dragged_by_its_background_too) {
  window.set_borderless(true);
  show();
  drag(real_window(), WM_LBUTTONDOWN, MK_LBUTTON, {px(300), px(300)});
  ASSERT_EQ(ends.size(), 1u);
  EXPECT_NE(ends[0], start);
}

TEST_F(DraggedWindow, a_title_drags_where_the_background_does_not) {
  window.set_drag_by_background(false);
  show();
  drag(real_window(), WM_LBUTTONDOWN, MK_LBUTTON, {px(300), px(300)});
  drag(real(L"Ordelan.lblEstado"), WM_LBUTTONDOWN);
  EXPECT_TRUE(ends.empty());
  EXPECT_EQ(window.position(), start);
  drag(real_window(), WM_NCLBUTTONDOWN, HTCAPTION, {100, -10});
  EXPECT_EQ(ends.size(), 1u);
}

TEST_F(DraggedWindow, labels_and_pictures_without_a_click_are_background) {
  label.on_mouse_move = [](ui::Point) {};
  show();
  drag(real(L"Ordelan.lblEstado"), WM_LBUTTONDOWN);
  ASSERT_EQ(ends.size(), 1u);
  EXPECT_NE(ends[0], start);
  drag(real(L"Ordelan.Image1"), WM_LBUTTONDOWN);
  ASSERT_EQ(ends.size(), 2u);
  EXPECT_NE(ends[1], ends[0]);
}

TEST_F(DraggedWindow, two_quick_presses_on_a_label_are_the_windows_too) {
  int clicks = 0;
  window.on_double_click = [&] { ++clicks; };
  show();
  SendMessageW(real(L"Ordelan.lblEstado"), WM_LBUTTONDBLCLK, MK_LBUTTON, at(3, 3));
  EXPECT_EQ(clicks, 1);
}

TEST_F(DraggedWindow, what_can_be_clicked_does_not_drag) {
  int clicks = 0;
  label.on_click = [&] { ++clicks; };
  image.on_double_click = [&] { ++clicks; };
  show();
  for (const wchar_t* const name :
       {L"Ordelan.cmdAbrir", L"Ordelan.ListVip", L"Ordelan.lblEstado", L"Ordelan.Image1"}) {
    press(real(name));
  }
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(ends.empty());
  EXPECT_EQ(window.position(), start);
}

TEST_F(DraggedWindow, what_is_disabled_is_no_background) {
  button.set_enabled(false);
  show();
  // Windows gives the press to the window behind a disabled control.
  drag(real_window(), WM_LBUTTONDOWN, MK_LBUTTON, {px(20), px(20)});
  EXPECT_TRUE(ends.empty());
  EXPECT_EQ(window.position(), start);
}

TEST_F(DraggedWindow, the_end_of_a_drag_may_unload_the_window) {
  window.on_drag_end = [&] { window.unload(); };
  show();
  drag(real_window(), WM_LBUTTONDOWN, MK_LBUTTON, {px(300), px(300)});
  EXPECT_FALSE(window.loaded());
  show();
  drag(real_window(), WM_NCLBUTTONDOWN, HTCAPTION, {100, -10});
  EXPECT_FALSE(window.loaded());
  show();
  drag(real(L"Ordelan.lblEstado"), WM_LBUTTONDOWN);
  EXPECT_FALSE(window.loaded());
}

}  // namespace
}  // namespace ordelan::test
