#include "ui/window.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <vector>

#include "ui/button.h"
#include "ui/list_box.h"
#include "ui/timer.h"
#include "win32/backend_fixture.h"
#include "win32/ports/win32_dialogs.h"

namespace ordelan::test {
namespace {

using std::chrono::milliseconds;

class RealWindow : public BackendTest {
 protected:
  RealWindow() {
    button.set_bounds({10, 10, 100, 26});
    list.set_bounds({10, 50, 100, 100});
  }

  ui::Button button{window, "cmdAbrir"};
  ui::ListBox list{window, "ListVip"};
};

TEST_F(RealWindow, the_room_for_controls_is_the_windows_size) {
  show();
  RECT client{};
  GetClientRect(real_window(), &client);
  EXPECT_EQ(client.right, px(500));
  EXPECT_EQ(client.bottom, px(400));
  RECT outer{};
  GetWindowRect(real_window(), &outer);
  EXPECT_EQ(outer.left, px(40));
  EXPECT_EQ(outer.top, px(40));
  window.set_size({300, 200});
  GetClientRect(real_window(), &client);
  EXPECT_EQ(client.right, px(300));
}

TEST_F(RealWindow, a_window_cannot_be_made_larger_but_small) {
  show();
  const LONG_PTR style = GetWindowLongPtrW(real_window(), GWL_STYLE);
  EXPECT_TRUE(style & WS_MINIMIZEBOX);
  EXPECT_FALSE(style & WS_MAXIMIZEBOX);
  EXPECT_FALSE(style & WS_THICKFRAME);
}

TEST_F(RealWindow, a_loaded_window_is_shown_only_on_request) {
  window.set_title("Ordel\xE1n");
  window.load();
  EXPECT_FALSE(IsWindowVisible(real_window()));
  window.show();
  EXPECT_TRUE(IsWindowVisible(real_window()));
  EXPECT_EQ(text_of(real_window()), L"Ordel\u00E1n");
  window.unload();
  EXPECT_FALSE(real_window());
  window.load();
  EXPECT_TRUE(real_window());
}

TEST_F(RealWindow, a_window_that_comes_to_a_denser_screen_grows_with_its_controls) {
  show();
  const LRESULT row_height = SendMessageW(real(L"Ordelan.ListVip"), LB_GETITEMHEIGHT, 0, 0);
  const int dpi = 2 * win32::dpi_of(real_window());
  come_to_screen_of(dpi);
  RECT area{};
  GetClientRect(real_window(), &area);
  EXPECT_EQ(area.right, win32::to_pixels(500, dpi));
  EXPECT_EQ(area.bottom, win32::to_pixels(400, dpi));
  GetWindowRect(real_window(), &area);
  EXPECT_EQ(area.left, 60);
  EXPECT_EQ(area.top, 50);
  GetWindowRect(real(L"Ordelan.cmdAbrir"), &area);
  EXPECT_EQ(area.right - area.left, win32::to_pixels(100, dpi));
  EXPECT_GT(SendMessageW(real(L"Ordelan.ListVip"), LB_GETITEMHEIGHT, 0, 0), row_height * 3 / 2);
}

// As wide, in the layout's units, as the screen holds at this density.
int widest_at(int dpi) {
  RECT room{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0);
  return MulDiv(room.right - room.left, 96, dpi) - 10;
}

TEST_F(RealWindow, what_the_screen_does_not_hold_is_shown_at_the_next_smaller_usual_scale) {
  window.set_size({widest_at(144), 300});
  show();
  come_to_screen_of(192);
  RECT area{};
  GetClientRect(real_window(), &area);
  EXPECT_EQ(area.right, win32::to_pixels(window.size().width, 144));
  EXPECT_EQ(area.bottom, win32::to_pixels(300, 144));
  GetWindowRect(real(L"Ordelan.cmdAbrir"), &area);
  EXPECT_EQ(area.right - area.left, win32::to_pixels(100, 144));
}

TEST_F(RealWindow, the_frame_has_to_find_room_on_the_screen_too) {
  RECT room{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0);
  window.set_size({500, MulDiv(room.bottom - room.top, 96, 192)});
  show();
  come_to_screen_of(192);
  RECT area{};
  GetClientRect(real_window(), &area);
  EXPECT_EQ(area.right, win32::to_pixels(500, 168)) << "the title would be out of sight";
}

TEST_F(RealWindow, a_window_that_grows_and_shrinks_changes_its_scale_with_its_size) {
  show();
  come_to_screen_of(192);
  window.set_size({widest_at(120), 300});
  backend.pump();
  RECT area{};
  GetClientRect(real_window(), &area);
  EXPECT_EQ(area.bottom, win32::to_pixels(300, 120));
  GetWindowRect(real(L"Ordelan.cmdAbrir"), &area);
  EXPECT_EQ(area.right - area.left, win32::to_pixels(100, 120));
  window.set_size({500, 300});
  backend.pump();
  GetClientRect(real_window(), &area);
  EXPECT_EQ(area.bottom, win32::to_pixels(300, 192));
  GetWindowRect(real(L"Ordelan.cmdAbrir"), &area);
  EXPECT_EQ(area.right - area.left, win32::to_pixels(100, 192));
}

TEST_F(RealWindow, nothing_is_shown_smaller_than_it_was_drawn_for) {
  window.set_size({2 * widest_at(96), 300});
  show();
  come_to_screen_of(192);
  RECT area{};
  GetClientRect(real_window(), &area);
  EXPECT_EQ(area.bottom, 300);
}

TEST_F(RealWindow, a_window_that_would_lie_beside_the_screen_in_part_comes_wholly_onto_it) {
  RECT room{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &room, 0);
  window.set_position({win32::to_units(room.right - 100, win32::system_dpi()), 40});
  show();
  RECT area{};
  GetWindowRect(real_window(), &area);
  EXPECT_EQ(area.right, room.right);
  EXPECT_EQ(area.top, px(40));
  EXPECT_EQ(window.position().x, win32::to_units(area.left, win32::system_dpi()));
}

TEST_F(RealWindow, a_window_that_the_user_drags_over_the_edge_stays_there) {
  show();
  SetWindowPos(real_window(), nullptr, -200, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  window.set_title("otro");
  window.set_size({400, 300});
  backend.pump();
  RECT area{};
  GetWindowRect(real_window(), &area);
  EXPECT_EQ(area.left, -200);
}

TEST_F(RealWindow, closing_is_asked_of_the_object_and_nothing_else_happens) {
  int asked = 0;
  window.on_close = [&] { ++asked; };
  show();
  SendMessageW(real_window(), WM_SYSCOMMAND, SC_CLOSE, 0);
  backend.pump();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(IsWindowVisible(real_window()));
}

TEST_F(RealWindow, a_window_may_unload_itself_when_it_is_closed) {
  window.on_close = [&] { window.unload(); };
  show();
  SendMessageW(real_window(), WM_CLOSE, 0, 0);
  EXPECT_FALSE(real_window());
}

TEST_F(RealWindow, a_button_may_unload_its_own_window) {
  button.on_click = [&] { window.unload(); };
  show();
  press(real(L"Ordelan.cmdAbrir"));
  EXPECT_FALSE(real_window());
  show();
  SetFocus(real(L"Ordelan.cmdAbrir"));
  type(real(L"Ordelan.cmdAbrir"), VK_RETURN);
  EXPECT_FALSE(real_window());
}

TEST_F(RealWindow, the_users_moving_arrives_in_the_object) {
  show();
  SetWindowPos(real_window(), nullptr, px(123), px(77), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  EXPECT_EQ(window.position(), (ui::Point{123, 77}));
  window.set_position({10, 20});
  RECT area{};
  GetWindowRect(real_window(), &area);
  EXPECT_EQ(area.left, px(10));
  EXPECT_EQ(area.top, px(20));
}

TEST_F(RealWindow, topmost_and_minimized_follow_the_object) {
  show();
  window.set_topmost(true);
  EXPECT_TRUE(GetWindowLongPtrW(real_window(), GWL_EXSTYLE) & WS_EX_TOPMOST);
  window.set_topmost(false);
  EXPECT_FALSE(GetWindowLongPtrW(real_window(), GWL_EXSTYLE) & WS_EX_TOPMOST);
  const ui::Point place = window.position();
  window.set_minimized(true);
  EXPECT_TRUE(IsIconic(real_window()));
  EXPECT_EQ(window.position(), place);
  window.set_minimized(false);
  EXPECT_FALSE(IsIconic(real_window()));
}

TEST_F(RealWindow, minimizing_by_the_user_arrives_in_the_object) {
  show();
  ShowWindow(real_window(), SW_MINIMIZE);
  backend.pump();
  EXPECT_TRUE(window.minimized());
  ShowWindow(real_window(), SW_RESTORE);
  backend.pump();
  EXPECT_FALSE(window.minimized());
}

TEST_F(RealWindow, every_key_is_shown_to_the_window_first_and_can_be_kept) {
  std::vector<int> previewed;
  std::vector<int> arrived;
  window.on_key_down = [&](ui::Key& key) {
    previewed.push_back(key.code);
    if (key.code == VK_DELETE) key.swallowed = true;
  };
  list.on_key = [&](int code) { arrived.push_back(code); };
  show();
  SetFocus(real(L"Ordelan.ListVip"));
  type(real(L"Ordelan.ListVip"), VK_DELETE);
  type(real(L"Ordelan.ListVip"), VK_INSERT);
  type(real(L"Ordelan.ListVip"), VK_TAB);
  EXPECT_THAT(previewed, testing::ElementsAre(VK_DELETE, VK_INSERT, VK_TAB));
  EXPECT_THAT(arrived, testing::ElementsAre(VK_INSERT));
}

TEST_F(RealWindow, escape_is_the_windows_own_where_its_keys_leave_it) {
  int escapes = 0;
  std::vector<int> arrived;
  window.on_escape = [&] { ++escapes; };
  list.on_key = [&](int code) { arrived.push_back(code); };
  show();
  SetFocus(real(L"Ordelan.ListVip"));
  type(real(L"Ordelan.ListVip"), VK_ESCAPE);
  EXPECT_EQ(escapes, 1);
  EXPECT_THAT(arrived, testing::IsEmpty());
  window.on_key_down = [](ui::Key& key) { key.swallowed = true; };
  type(real(L"Ordelan.ListVip"), VK_ESCAPE);
  EXPECT_EQ(escapes, 1);
  // One that takes the window away.
  window.on_key_down = [this](ui::Key&) { window.unload(); };
  type(real(L"Ordelan.ListVip"), VK_ESCAPE);
  EXPECT_EQ(escapes, 1);
}

TEST_F(RealWindow, another_program_in_front_is_reported) {
  int left = 0;
  window.on_deactivate = [&] { ++left; };
  show();
  SendMessageW(real_window(), WM_ACTIVATEAPP, TRUE, 0);
  EXPECT_EQ(left, 0);
  SendMessageW(real_window(), WM_ACTIVATEAPP, FALSE, 0);
  EXPECT_EQ(left, 1);
}

TEST_F(RealWindow, a_key_comes_with_what_has_the_focus) {
  std::vector<const ui::Control*> had;
  window.on_key_down = [&](ui::Key& key) { had.push_back(key.focus); };
  show();
  type(real(L"Ordelan.ListVip"), VK_INSERT);
  type(real_window(), VK_INSERT);
  EXPECT_THAT(had, testing::ElementsAre(&list, nullptr));
}

TEST_F(RealWindow, a_button_of_the_mouse_is_reported_before_what_is_there_handles_it) {
  std::string seen;
  window.on_mouse_down = [&] { seen += "w"; };
  list.on_click = [&] { seen += "l"; };
  list.add("row");
  show();
  const HWND real_list = real(L"Ordelan.ListVip");
  for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP}) {
    PostMessageW(real_list, message, 0, MAKELPARAM(3, 3));
  }
  backend.pump();
  EXPECT_EQ(seen, "wlw");
}

TEST_F(RealWindow, a_press_may_unload_the_window) {
  window.on_mouse_down = [&] { window.unload(); };
  show();
  PostMessageW(real(L"Ordelan.ListVip"), WM_LBUTTONDOWN, 0, MAKELPARAM(3, 3));
  backend.pump();
  EXPECT_FALSE(real_window());
}

TEST_F(RealWindow, a_key_may_unload_the_window) {
  window.on_key_down = [&](ui::Key&) { window.unload(); };
  show();
  type(real(L"Ordelan.ListVip"), VK_F5);
  EXPECT_FALSE(real_window());
}

TEST_F(RealWindow, the_pointer_is_an_hourglass_while_it_waits) {
  show();
  window.set_waiting(true);
  SendMessageW(real_window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(real_window()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
  window.set_waiting(false);
  SendMessageW(real_window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(real_window()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(RealWindow, timers_tick_in_the_pump_until_they_are_stopped) {
  ui::Timer timer(window, "Timer1", milliseconds(1));
  int ticks = 0;
  timer.on_tick = [&] {
    if (++ticks == 3) timer.stop();
  };
  show();
  backend.pump();
  EXPECT_EQ(ticks, 0);
  timer.start();
  EXPECT_EQ(ticks, 0);
  ASSERT_TRUE(pump_until([&] { return ticks == 3; }));
  const auto until = std::chrono::steady_clock::now() + milliseconds(60);
  while (std::chrono::steady_clock::now() < until) backend.pump();
  EXPECT_EQ(ticks, 3);
}

TEST_F(RealWindow, a_timer_may_unload_its_own_window) {
  ui::Timer timer(window, "Timer1", milliseconds(1));
  timer.on_tick = [&] { window.unload(); };
  show();
  timer.start();
  EXPECT_TRUE(pump_until([&] { return !window.loaded(); }));
}

TEST_F(RealWindow, a_flood_of_events_does_not_keep_the_pump) {
  int seen = 0;
  window.on_key_down = [&](ui::Key&) {
    ++seen;
    if (seen < 1'000'000) PostMessageW(real_window(), WM_KEYDOWN, VK_F5, 1);  // without an end
  };
  show();
  PostMessageW(real_window(), WM_KEYDOWN, VK_F5, 1);
  backend.pump();
  EXPECT_GT(seen, 0);
  EXPECT_LT(seen, 1'000'000);
}

TEST_F(RealWindow, ending_hides_every_window_and_leaves_the_main_loop) {
  ui::Window second(backend, "Form2");
  second.set_size({100, 100});
  button.on_click = [&] { backend.end(); };
  show();
  second.load();
  second.show();
  PostMessageW(real(L"Ordelan.cmdAbrir"), BM_CLICK, 0, 0);
  EXPECT_EQ(backend.run(), 0);
  EXPECT_TRUE(backend.ended());
  EXPECT_FALSE(IsWindowVisible(real_window()));
  EXPECT_FALSE(IsWindowVisible(top_level(L"Ordelan.Window.Form2")));
  second.set_title("sigue");
  second.hide();
  second.show();
  EXPECT_FALSE(IsWindowVisible(top_level(L"Ordelan.Window.Form2")));
}

TEST_F(RealWindow, ending_inside_a_job_that_pumps_leaves_the_main_loop) {
  ui::Button stop(window, "cmdFin");
  stop.set_bounds({200, 10, 50, 26});
  int turns = 0;
  int after_end = 0;
  bool ended_by_stop = false;
  button.on_click = [&] {
    PostMessageW(real(L"Ordelan.cmdFin"), BM_CLICK, 0, 0);
    while (!backend.ended() && turns < 10000) {
      backend.pump();
      ++turns;
    }
    ended_by_stop = backend.ended();
    backend.end();
    PostMessageW(real(L"Ordelan.cmdFin"), BM_CLICK, 0, 0);
    for (int i = 0; i < 10; ++i) backend.pump();  // no events any more
  };
  stop.on_click = [&] {
    if (backend.ended()) ++after_end;
    backend.end();
  };
  show();
  PostMessageW(real(L"Ordelan.cmdAbrir"), BM_CLICK, 0, 0);
  EXPECT_EQ(backend.run(), 0);
  EXPECT_TRUE(ended_by_stop);
  EXPECT_EQ(after_end, 0);
}

TEST_F(RealWindow, an_order_to_quit_met_by_the_pump_reaches_the_main_loop) {
  button.on_click = [&] {
    PostQuitMessage(7);
    for (int i = 0; i < 5; ++i) backend.pump();
  };
  show();
  PostMessageW(real(L"Ordelan.cmdAbrir"), BM_CLICK, 0, 0);
  EXPECT_EQ(backend.run(), 7);
}

TEST_F(RealWindow, an_order_to_quit_met_by_the_pump_is_the_end_for_the_job_too) {
  int waits = 0;
  button.on_click = [&] {
    PostQuitMessage(7);
    while (!backend.ended() && waits < 1000) {
      backend.wait();
      ++waits;
    }
  };
  show();
  PostMessageW(real(L"Ordelan.cmdAbrir"), BM_CLICK, 0, 0);
  EXPECT_EQ(backend.run(), 7);
  EXPECT_TRUE(backend.ended());
  EXPECT_LT(waits, 1000);
}

TEST_F(RealWindow, a_loop_that_waits_runs_events_and_gets_its_turn_without_any) {
  int ticks = 0;
  ui::Timer timer(window, "Timer1", milliseconds(20));
  timer.on_tick = [&] { ++ticks; };
  show();
  timer.start();
  for (int turn = 0; turn < 1000 && ticks == 0; ++turn) backend.wait();
  EXPECT_GT(ticks, 0);
  timer.stop();
  backend.wait();  // nothing will come: it would not return if it slept until then
  EXPECT_FALSE(backend.ended());
}

TEST_F(RealWindow, what_comes_between_events_waits_for_the_end_of_a_handler_that_pumps) {
  ui::Button stop(window, "cmdFin");
  stop.set_bounds({200, 10, 50, 26});
  int between = 0;
  int handlers = 0;
  int inner = 0;
  bool inside = false;
  backend.between_events = [&] {
    ++between;
    EXPECT_FALSE(inside);
  };
  button.on_click = [&] {
    inside = true;
    const int before = between;
    for (int i = 0; i < 3; ++i) {
      PostMessageW(real(L"Ordelan.cmdFin"), BM_CLICK, 0, 0);
      backend.pump();
    }
    backend.wait();
    EXPECT_EQ(inner, 3);
    EXPECT_EQ(between, before);
    ++handlers;
    // Met by the main loop, after this handler.
    PostMessageW(real(L"Ordelan.cmdFin"), BM_CLICK, 0, 0);
    inside = false;
  };
  int seen = -1;
  stop.on_click = [&] {
    if (inside) {
      ++inner;
    } else {
      seen = between;
      backend.end();
    }
  };
  show();
  backend.pump();
  EXPECT_EQ(between, 0);
  PostMessageW(real(L"Ordelan.cmdAbrir"), BM_CLICK, 0, 0);
  EXPECT_EQ(backend.run(), 0);
  EXPECT_EQ(handlers, 1);
  EXPECT_GT(seen, 0) << "it came between the two clicks";
}

// Answers the message box that is up, from inside its own loop.
class MessageBoxes : public RealWindow {
 protected:
  system::Answer answer(system::Buttons buttons, UINT message, WPARAM parameter) {
    ui::Timer timer(window, "Timer1", milliseconds(5));
    timer.on_tick = [&] {
      const HWND up = dialog_in_sight();
      if (!up) return;
      timer.stop();
      title = text_of(up);
      owner = GetWindow(up, GW_OWNER);
      PostMessageW(up, message, parameter, 0);
    };
    timer.attach(backend);
    timer.start();
    win32::Win32Dialogs dialogs([&] { return backend.owner(); });
    return dialogs.message({"T\xEDtulo", "\xBFSeguir?", system::Icon::question, buttons});
  }

  std::wstring title;
  HWND owner = nullptr;
};

TEST_F(MessageBoxes, the_button_that_ends_the_box_is_the_answer) {
  show();
  EXPECT_EQ(answer(system::Buttons::yes_no, WM_COMMAND, IDYES), system::Answer::yes);
  EXPECT_EQ(title, L"T\u00EDtulo");
  EXPECT_EQ(owner, real_window());
  EXPECT_EQ(answer(system::Buttons::yes_no, WM_COMMAND, IDNO), system::Answer::no);
  EXPECT_EQ(answer(system::Buttons::ok, WM_COMMAND, IDOK), system::Answer::ok);
  EXPECT_EQ(answer(system::Buttons::ok_cancel, WM_COMMAND, IDOK), system::Answer::ok);
}

TEST_F(MessageBoxes, closing_the_box_is_the_careful_answer) {
  show();
  EXPECT_EQ(answer(system::Buttons::ok_cancel, WM_CLOSE, 0), system::Answer::cancel);
  EXPECT_EQ(answer(system::Buttons::ok, WM_CLOSE, 0), system::Answer::ok);
}

TEST_F(MessageBoxes, keys_in_a_box_are_not_shown_to_the_window) {
  int previewed = 0;
  window.on_key_down = [&](ui::Key&) { ++previewed; };
  show();
  EXPECT_EQ(answer(system::Buttons::ok_cancel, WM_COMMAND, IDCANCEL), system::Answer::cancel);
  EXPECT_EQ(previewed, 0);
}

}  // namespace
}  // namespace ordelan::test
