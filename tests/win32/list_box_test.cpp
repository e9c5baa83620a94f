#include "ui/list_box.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <shlobj.h>

#include <iostream>
#include <memory>

#include "ui/list_width.h"
#include "win32/ansi_text.h"
#include "win32/backend_fixture.h"
#include "win32/peers/list_box_peer.h"

namespace ordelan::test {
namespace {

// What a window shows of an area, as its pixels.
std::vector<COLORREF> pixels(HDC context, const RECT& area) {
  std::vector<COLORREF> result;
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) result.push_back(GetPixel(context, x, y));
  }
  return result;
}

class RealListBox : public BackendTest {
 protected:
  RealListBox() {
    list.set_bounds({10, 10, 300, 200});
    list.set_back_color(ui::Color::window_background);
    list.set_fore_color(ui::Color::window_text);
  }

  HWND real_list() const { return real(L"Ordelan.ListVip"); }
  LRESULT ask(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return SendMessageW(real_list(), message, w, l);
  }
  int row_height() const { return static_cast<int>(ask(LB_GETITEMHEIGHT)); }

  // Whether the row in the list's n-th place looks as this text does, painted by other means.
  bool shows(int place, const std::string& text) {
    const HWND control = real_list();
    SetFocus(nullptr);  // which is painted round its row
    UpdateWindow(control);
    RECT area{};
    GetClientRect(control, &area);
    area.top = place * row_height();
    area.bottom = area.top + row_height();
    const HDC shown = GetDC(control);
    const HDC memory = CreateCompatibleDC(shown);
    const HBITMAP bitmap = CreateCompatibleBitmap(shown, area.right, area.bottom);
    const HGDIOBJ old_bitmap = SelectObject(memory, bitmap);
    const HGDIOBJ old_font =
        SelectObject(memory, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    SetTextColor(memory, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(memory, GetSysColor(COLOR_WINDOW));
    FillRect(memory, &area, GetSysColorBrush(COLOR_WINDOW));
    const std::wstring wide = win32::widen(text);
    TextOutW(memory, px(4), area.top + px(4) / 2, wide.data(), static_cast<int>(wide.size()));
    const bool same = pixels(shown, area) == pixels(memory, area);
    SelectObject(memory, old_font);
    SelectObject(memory, old_bitmap);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(control, shown);
    return same;
  }

  // Moves the real list so that this row is its first, as the scroll bar would.
  void scroll_to(std::size_t row) {
    ask(LB_SETTOPINDEX, row);
    backend.pump();
  }

  void fill(int rows) {
    for (int i = 0; i < rows; ++i) list.add("fila " + std::to_string(i));
    backend.pump();
  }

  ui::ListBox list{window, "ListVip"};
};

TEST_F(RealListBox, two_hundred_thousand_rows_are_shown_and_scrolled_to_the_end) {
  show();
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 200000; ++i) {
    list.add(std::to_string(i + 1) + " --> D:\\Mix\\tema " + std::to_string(i) + ".vip");
  }
  const auto filled = std::chrono::steady_clock::now();
  backend.pump();
  const auto shown = std::chrono::steady_clock::now();
  EXPECT_EQ(ask(LB_GETCOUNT), 200000);
  EXPECT_TRUE(shows(0, "1 --> D:\\Mix\\tema 0.vip"));

  const auto scrolling = std::chrono::steady_clock::now();
  ask(WM_VSCROLL, SB_BOTTOM);
  backend.pump();
  const auto end = std::chrono::steady_clock::now();
  RECT client{};
  GetClientRect(real_list(), &client);
  const int fitting = client.bottom / row_height();
  const LRESULT top = ask(LB_GETTOPINDEX);
  EXPECT_EQ(top, 200000 - fitting);
  EXPECT_TRUE(shows(fitting - 1, "200000 --> D:\\Mix\\tema 199999.vip"));
  EXPECT_FALSE(shows(fitting - 1, "200000 --> D:\\Mix\\tema 199998.vip"));

  using Milliseconds = std::chrono::duration<double, std::milli>;
  std::cout << "200000 rows: added in " << Milliseconds(filled - start).count() << " ms, shown in "
            << Milliseconds(shown - filled).count() << " ms, scrolled to the end in "
            << Milliseconds(end - scrolling).count() << " ms\n";
}

TEST_F(RealListBox, rows_added_in_a_loop_are_shown_at_the_next_pump) {
  show();
  int counted = 0;  // how often the real list is given a count
  SetPropW(real_list(), L"test.count", reinterpret_cast<HANDLE>(&counted));
  static WNDPROC standard;
  standard = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
      real_list(), GWLP_WNDPROC,
      reinterpret_cast<LONG_PTR>(+[](HWND each, UINT message, WPARAM w, LPARAM l) -> LRESULT {
        if (message == LB_SETCOUNT) {
          ++*reinterpret_cast<int*>(GetPropW(each, L"test.count"));
        }
        return CallWindowProcW(standard, each, message, w, l);
      })));
  for (int i = 0; i < 1000; ++i) list.add("x");
  list.remove(0);
  EXPECT_EQ(counted, 0);
  backend.pump();
  EXPECT_EQ(counted, 1);
  EXPECT_EQ(ask(LB_GETCOUNT), 999);
  backend.pump();
  EXPECT_EQ(counted, 1);
  SetWindowLongPtrW(real_list(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(standard));
  RemovePropW(real_list(), L"test.count");
}

TEST_F(RealListBox, rows_are_shown_in_a_loop_that_is_not_ours_too) {
  show();
  list.add("una");
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  EXPECT_TRUE(shows(0, "una"));
}

TEST_F(RealListBox, a_replaced_row_is_painted_anew) {
  show();
  list.add("antes");
  backend.pump();
  ASSERT_TRUE(shows(0, "antes"));
  list.replace(0, "despu\xE9s");
  backend.pump();
  EXPECT_TRUE(shows(0, "despu\xE9s"));
}

TEST_F(RealListBox, what_lies_below_the_last_row_is_cleared) {
  show();
  fill(10);
  ASSERT_TRUE(shows(9, "fila 9"));
  list.remove_if([](std::size_t index) { return index >= 3; });
  backend.pump();
  EXPECT_TRUE(shows(2, "fila 2"));
  EXPECT_TRUE(shows(3, ""));
  EXPECT_TRUE(shows(9, ""));
  list.clear();
  backend.pump();
  EXPECT_EQ(ask(LB_GETCOUNT), 0);
}

TEST_F(RealListBox, the_place_stays_when_rows_come) {
  show();
  fill(1000);
  scroll_to(500);
  list.add("otra");
  backend.pump();
  EXPECT_EQ(ask(LB_GETTOPINDEX), 500);
  EXPECT_TRUE(shows(0, "fila 500"));
}

TEST_F(RealListBox, a_row_that_the_program_chooses_comes_into_sight) {
  show();
  fill(1000);
  list.set_current(700);
  backend.pump();
  EXPECT_EQ(ask(LB_GETCURSEL), 700);
  EXPECT_LE(ask(LB_GETTOPINDEX), 700);
  EXPECT_GT(ask(LB_GETTOPINDEX), 600);
  list.set_current(-1);
  backend.pump();
  EXPECT_EQ(ask(LB_GETCURSEL), LB_ERR);
}

TEST_F(RealListBox, a_click_chooses_the_row_and_reports_after_it_is_chosen) {
  std::vector<std::string> events;
  list.on_click = [&] { events.push_back(list.current_row()); };
  show();
  fill(20);
  press(real_list(), 5, 3 * row_height() + 2);
  EXPECT_THAT(events, testing::ElementsAre("fila 3"));
  EXPECT_EQ(list.current(), 3);
  press(real_list(), 5, 3 * row_height() + 2);
  EXPECT_THAT(events, testing::ElementsAre("fila 3", "fila 3"));
}

TEST_F(RealListBox, a_click_is_reported_once_the_mouse_is_free) {
  HWND captured = real_window();
  list.on_click = [&] { captured = GetCapture(); };
  show();
  fill(20);
  press(real_list());
  EXPECT_EQ(captured, nullptr);
}

TEST_F(RealListBox, a_row_beyond_65535_is_found_under_the_pointer) {
  int chosen = -1;
  list.on_click = [&] { chosen = list.current(); };
  list.on_right_click = [&] { chosen = list.current(); };
  show();
  fill(150000);
  scroll_to(140000);
  press(real_list(), 5, 4 * row_height() + 2);
  EXPECT_EQ(chosen, 140004);
  SendMessageW(real_list(), WM_RBUTTONDOWN, MK_RBUTTON, at(5, 6 * row_height() + 2));
  EXPECT_EQ(chosen, 140006);
  EXPECT_EQ(ask(LB_GETCURSEL), 140006);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 140000);
}

TEST_F(RealListBox, the_right_button_below_the_last_row_chooses_nothing) {
  int events = 0;
  list.on_right_click = [&] { ++events; };
  show();
  fill(2);
  SendMessageW(real_list(), WM_RBUTTONDOWN, MK_RBUTTON, at(5, 8 * row_height()));
  EXPECT_EQ(list.current(), -1);
  EXPECT_EQ(events, 1);
}

TEST_F(RealListBox, a_press_below_the_last_row_is_reported_and_the_current_row_stays) {
  std::string events;
  list.on_click = [&] { events += "c"; };
  list.on_double_click = [&] { events += "d"; };
  list.on_click_below = [&] { events += GetCapture() ? "?" : "b"; };
  show();
  fill(3);
  list.set_current(1);
  const HWND control = real_list();
  SetFocus(nullptr);
  SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, at(5, 3 * row_height() + 1));
  EXPECT_EQ(events, "b") << "as soon as the button is down";
  SendMessageW(control, WM_LBUTTONUP, 0, at(5, 3 * row_height() + 1));
  EXPECT_EQ(events, "b");
  EXPECT_EQ(GetFocus(), control);
  EXPECT_EQ(list.current(), 1);
  EXPECT_EQ(ask(LB_GETCURSEL), 1);
  SendMessageW(control, WM_LBUTTONDBLCLK, MK_LBUTTON, at(5, 8 * row_height()));
  SendMessageW(control, WM_LBUTTONUP, 0, at(5, 8 * row_height()));
  EXPECT_EQ(events, "bb") << "two quick presses are two";
  EXPECT_EQ(list.current(), 1);
  events.clear();
  press(control, 5, 3 * row_height() - 1);
  EXPECT_EQ(events, "c") << "the last row";
  EXPECT_EQ(list.current(), 2);
}

TEST_F(RealListBox, an_empty_list_is_nothing_but_room_below_its_rows) {
  int events = 0;
  list.on_click_below = [&] { ++events; };
  show();
  press(real_list());
  EXPECT_EQ(events, 1);
  fill(1);
  press(real_list());
  EXPECT_EQ(events, 1);
}

TEST_F(RealListBox, a_list_that_is_full_has_no_room_below_its_rows) {
  int events = 0;
  list.on_click_below = [&] { ++events; };
  show();
  fill(100);
  ask(WM_VSCROLL, SB_BOTTOM);
  RECT client{};
  GetClientRect(real_list(), &client);
  press(real_list(), 5, client.bottom / row_height() * row_height() - 1);
  EXPECT_EQ(events, 0);
  EXPECT_EQ(list.current(), 99);
}

TEST_F(RealListBox, two_quick_clicks_are_one_click_and_one_double_click) {
  std::string events;
  list.on_click = [&] { events += "c"; };
  list.on_double_click = [&] { events += "d"; };
  show();
  fill(5);
  press(real_list());
  SendMessageW(real_list(), WM_LBUTTONDBLCLK, MK_LBUTTON, at(3, 3));
  SendMessageW(real_list(), WM_LBUTTONUP, 0, at(3, 3));
  EXPECT_EQ(events, "cd");
}

TEST_F(RealListBox, keys_are_reported_and_arrows_choose) {
  std::vector<int> keys;
  int clicks = 0;
  list.on_key = [&](int code) { keys.push_back(code); };
  list.on_click = [&] { ++clicks; };
  show();
  fill(5);
  SetFocus(real_list());
  list.set_current(1);
  type(real_list(), VK_DOWN);
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(clicks, 1);
  type(real_list(), VK_DELETE);
  type(real_list(), VK_RETURN);
  EXPECT_THAT(keys, testing::ElementsAre(VK_DOWN, VK_DELETE, VK_RETURN));
}

TEST_F(RealListBox, the_horizontal_extent_covers_the_widest_row) {
  show();
  list.add(std::string(200, 'W'));
  const int extent = ui::ListaAncho(list);
  backend.pump();
  EXPECT_GT(extent, px(300));
  EXPECT_GE(ask(LB_GETHORIZONTALEXTENT), extent);
  list.clear();
  EXPECT_EQ(ui::ListaAncho(list), 0);
  EXPECT_EQ(ask(LB_GETHORIZONTALEXTENT), 0);
}

TEST_F(RealListBox, mouse_moves_are_reported_in_the_lists_own_units) {
  ui::Point events{-1, -1};
  list.on_mouse_move = [&](ui::Point point) { events = point; };
  show();
  SendMessageW(real_list(), WM_MOUSEMOVE, 0, at(px(17), px(23)));
  EXPECT_EQ(events, (ui::Point{17, 23}));
}

TEST_F(RealListBox, a_handler_may_unload_its_own_window) {
  auto closer = [&] { window.unload(); };
  list.on_click = closer;
  list.on_double_click = closer;
  list.on_right_click = closer;
  list.on_key = [&](int) { window.unload(); };
  list.on_mouse_move = [&](ui::Point) { window.unload(); };
  list.on_click_below = closer;
  show();
  press(real_list());
  EXPECT_FALSE(window.loaded());
  struct Event {
    UINT message;
    WPARAM w;
  };
  for (const Event event :
       {Event{WM_LBUTTONUP, 0}, Event{WM_LBUTTONDBLCLK, 0}, Event{WM_RBUTTONDOWN, 0},
        Event{WM_KEYDOWN, VK_DELETE}, Event{WM_MOUSEMOVE, 0}}) {
    show();
    fill(5);
    const HWND control = real_list();
    ASSERT_TRUE(control);
    if (event.message == WM_LBUTTONUP) SendMessageW(control, WM_LBUTTONDOWN, 0, at(3, 3));
    SendMessageW(control, event.message, event.w, at(3, 3));
    if (event.message == WM_LBUTTONDBLCLK && IsWindow(control)) {
      SendMessageW(control, WM_LBUTTONUP, 0, at(3, 3));
    }
    EXPECT_FALSE(IsWindow(control)) << event.message;
    EXPECT_FALSE(window.loaded());
    backend.pump();
  }
}

TEST_F(RealListBox, dropped_paths_arrive_and_unnameable_ones_are_left_out) {
  std::vector<std::string> dropped;
  list.on_drop = [&](std::vector<std::string> paths) { dropped = std::move(paths); };
  show();
  EXPECT_TRUE(GetWindowLongPtrW(real_list(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES);
  using namespace std::string_literals;
  const std::wstring names = L"D:\\Mix\\a\u00F1o.vip\0D:\\\u0416.vip\0D:\\Mix\0"s;
  const auto drop = [&](HWND target, POINT place) {
    const HGLOBAL memory =
        GlobalAlloc(GHND, sizeof(DROPFILES) + names.size() * sizeof(wchar_t) + 8);
    auto* head = static_cast<DROPFILES*>(GlobalLock(memory));
    head->pFiles = sizeof(DROPFILES);
    head->fWide = TRUE;
    head->pt = place;
    std::copy(names.begin(), names.end(), reinterpret_cast<wchar_t*>(head + 1));
    GlobalUnlock(memory);
    PostMessageW(target, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    backend.pump();
  };
  drop(real_list(), {5, 5});
  EXPECT_THAT(dropped, testing::ElementsAre("D:\\Mix\\a\xF1o.vip", "D:\\Mix"));
  dropped.clear();
  drop(real_window(), {px(20), px(20)});
  EXPECT_THAT(dropped, testing::ElementsAre("D:\\Mix\\a\xF1o.vip", "D:\\Mix"));
  dropped.clear();
  drop(real_window(), {px(450), px(350)});
  EXPECT_TRUE(dropped.empty());
}

TEST_F(RealListBox, other_programs_can_ask_for_rows) {
  struct Answer {
    std::size_t count = 0;
    std::wstring text;
  } answer;
  const HWND asker = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                     nullptr, nullptr);
  SetWindowLongPtrW(asker, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&answer));
  SetWindowLongPtrW(
      asker, GWLP_WNDPROC,
      reinterpret_cast<LONG_PTR>(+[](HWND each, UINT message, WPARAM w, LPARAM l) -> LRESULT {
        if (message != WM_COPYDATA) return DefWindowProcW(each, message, w, l);
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(l);
        auto* taken = reinterpret_cast<Answer*>(GetWindowLongPtrW(each, GWLP_USERDATA));
        taken->count = data->dwData;
        taken->text.append(static_cast<const wchar_t*>(data->lpData),
                           data->cbData / sizeof(wchar_t));
        return TRUE;
      }));
  show();
  fill(3);
  const UINT message = RegisterWindowMessageW(win32::kRowsMessage);
  EXPECT_EQ(ask(message, 1, reinterpret_cast<LPARAM>(asker)), 1);
  EXPECT_EQ(answer.count, 3u);
  EXPECT_EQ(answer.text, L"fila 1");
  answer = {};
  EXPECT_EQ(ask(message, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(asker)), 1);
  EXPECT_EQ(answer.text, L"fila 0\nfila 1\nfila 2");
  answer = {};
  EXPECT_EQ(ask(message, 99, reinterpret_cast<LPARAM>(asker)), 1);
  EXPECT_EQ(answer.count, 3u);
  EXPECT_EQ(answer.text, L"");
  fill(30000);  // more than one piece
  std::wstring all;
  for (const std::string& row : list.rows()) all += win32::widen(row) + L"\n";
  all.pop_back();
  answer = {};
  EXPECT_EQ(ask(message, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(asker)), 1);
  EXPECT_EQ(answer.count, 30003u);
  EXPECT_TRUE(answer.text == all);
  DestroyWindow(asker);
}

}  // namespace
}  // namespace ordelan::test
