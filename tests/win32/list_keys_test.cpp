// Keys, letters, marks and the pointer on a real list.
#include <windows.h>

#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <vector>

#include "app/look.h"
#include "ui/check_list_box.h"
#include "ui/list_box.h"
#include "ui/list_width.h"
#include "win32/backend_fixture.h"
#include "win32/paint/drawing_tools.h"

namespace ordelan::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Keys that are held down while it lives, as the system reports them to this thread.
class HeldKeys {
 public:
  explicit HeldKeys(std::vector<int> keys) {
    GetKeyboardState(before_);
    BYTE now[256];
    std::copy(std::begin(before_), std::end(before_), std::begin(now));
    for (const int key : keys) now[key] = 0x80;
    SetKeyboardState(now);
  }
  ~HeldKeys() { SetKeyboardState(before_); }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;

 private:
  BYTE before_[256] = {};
};

class RealListKeys : public BackendTest {
 protected:
  RealListKeys() {
    list.set_bounds({10, 10, 300, 200});
    list.set_back_color(ui::Color::window_background);
    list.set_fore_color(ui::Color::window_text);
    list.set_keys_move(true);
    list.set_markable(true);
    list.on_moved = [this] { events += "v"; };
    list.on_marked = [this] { events += "m"; };
    list.on_click = [this] { events += "c"; };
    list.on_double_click = [this] { events += "d"; };
  }
  ~RealListKeys() override { win32::use_palette(ui::Palette()); }

  HWND real_list() const { return real(L"Ordelan.ListVip"); }
  LRESULT ask(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return SendMessageW(real_list(), message, w, l);
  }
  int row_height() const { return static_cast<int>(ask(LB_GETITEMHEIGHT)); }
  int in_sight() const {
    RECT client{};
    GetClientRect(real_list(), &client);
    return client.bottom / row_height();
  }

  void show_rows(int rows) {
    show();
    fill(rows);
    SetFocus(real_list());
  }
  void fill(int rows) {
    ui::ListBox::Rows added;
    for (int i = 0; i < rows; ++i) added.push_back("D:\\Mix\\" + std::to_string(i));
    list.add(std::move(added));
    backend.pump();
  }

  // A letter as it comes after the system has translated its key.
  void letter(wchar_t unit, WPARAM key = 0) {
    SendMessageW(real_list(), WM_KEYDOWN, key ? key : static_cast<WPARAM>('A'), 1);
    SendMessageW(real_list(), WM_CHAR, unit, 1);
  }
  void key(WPARAM code) { type(real_list(), code); }
  void press_row(int row, WPARAM held = 0, UINT message = WM_LBUTTONDOWN) {
    const int y = (row - static_cast<int>(ask(LB_GETTOPINDEX))) * row_height() + 2;
    SendMessageW(real_list(), message, MK_LBUTTON | held, at(9, y));
    SendMessageW(real_list(), WM_LBUTTONUP, held, at(9, y));
  }

  std::vector<int> marked() const {
    std::vector<int> rows;
    for (std::size_t i = 0; i < list.count(); ++i) {
      if (list.marked(i)) rows.push_back(static_cast<int>(i));
    }
    return rows;
  }
  int side_place() const { return GetScrollPos(real_list(), SB_HORZ); }
  std::string taken_events() { return std::exchange(events, {}); }

  ui::ListBox list{window, "ListVip"};
  std::string events;
};

TEST_F(RealListKeys, keys_move_and_are_no_click) {
  show_rows(200);
  key(VK_DOWN);
  key(VK_DOWN);
  EXPECT_EQ(list.current(), 1);
  EXPECT_EQ(ask(LB_GETCURSEL), 1);
  key(VK_UP);
  EXPECT_EQ(list.current(), 0);
  key(VK_END);
  EXPECT_EQ(list.current(), 199);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 200 - in_sight());
  key(VK_HOME);
  EXPECT_EQ(list.current(), 0);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 0);
  EXPECT_EQ(taken_events(), "vvvvv");
  key(VK_NEXT);
  EXPECT_EQ(list.current(), in_sight() - 1);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 0);
  key(VK_NEXT);
  EXPECT_EQ(list.current(), 2 * (in_sight() - 1));
  EXPECT_EQ(ask(LB_GETCURSEL), list.current());
  key(VK_PRIOR);
  EXPECT_EQ(list.current(), in_sight() - 1);
  EXPECT_EQ(taken_events(), "vvv");
}

TEST_F(RealListKeys, no_other_key_is_a_click_either) {
  show_rows(20);
  list.set_current(3);
  for (const WPARAM code :
       {VK_SPACE, VK_LEFT, VK_RIGHT, VK_F8, VK_DELETE, VK_RETURN, VK_ESCAPE, VK_MULTIPLY}) {
    key(code);
  }
  EXPECT_EQ(list.current(), 3);
  EXPECT_EQ(taken_events(), "");
}

TEST_F(RealListKeys, a_list_that_is_not_set_so_takes_a_key_for_a_choice) {
  list.set_keys_move(false);
  list.set_markable(false);
  show_rows(20);
  list.set_current(3);
  key(VK_DOWN);
  EXPECT_EQ(list.current(), 4);
  EXPECT_TRUE(list.chosen_by_key());
  letter('7');
  EXPECT_EQ(list.current(), 4);
  {
    const HeldKeys held({VK_SHIFT});
    key(VK_DOWN);
  }
  EXPECT_EQ(list.current(), 5);
  EXPECT_EQ(taken_events(), "cc");
}

TEST_F(RealListKeys, a_key_that_the_window_has_used_moves_too_unless_it_is_swallowed) {
  int used = 0;
  bool swallows = false;
  window.on_key_down = [&](ui::Key& pressed) {
    ++used;
    pressed.swallowed = swallows;
  };
  show_rows(50);
  key(VK_END);
  EXPECT_EQ(list.current(), 49);
  swallows = true;
  key(VK_HOME);
  key(VK_LEFT);
  EXPECT_EQ(list.current(), 49);
  EXPECT_EQ(used, 3);
  EXPECT_EQ(taken_events(), "v");
}

TEST_F(RealListKeys, every_key_is_reported_before_it_moves) {
  std::vector<int> rows;
  list.on_key = [&](int) { rows.push_back(list.current()); };
  show_rows(5);
  key(VK_DOWN);
  key(VK_DOWN);
  EXPECT_THAT(rows, ElementsAre(-1, 0));
}

TEST_F(RealListKeys, a_row_that_was_scrolled_away_comes_back_with_the_key) {
  show_rows(200);
  list.set_current(0);
  backend.pump();
  ask(LB_SETTOPINDEX, 100);
  key(VK_HOME);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 0) << "though it was the current row before";
  list.set_current(199);
  backend.pump();
  ask(LB_SETTOPINDEX, 10);
  key(VK_DOWN);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 200 - in_sight());
  ask(LB_SETTOPINDEX, 10);
  {
    const HeldKeys held({VK_CONTROL});
    key('A');
  }
  EXPECT_EQ(list.marked_count(), 200u);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 10) << "marking all moves nothing";
}

TEST_F(RealListKeys, the_list_that_follows_is_in_step_after_a_key) {
  std::size_t top = 0;
  list.on_scroll = [&] { top = list.top(); };
  show_rows(200);
  key(VK_END);
  ASSERT_TRUE(pump_until([&] { return top != 0; }));
  EXPECT_EQ(top, static_cast<std::size_t>(200 - in_sight()));
}

TEST_F(RealListKeys, letters_go_to_file_names) {
  show();
  list.add(std::vector<std::string>{"1 --> D:\\Caja\\bajo.vip", "D:\\Bajo\\caja.wav",
                                    "D:\\coro.wav", "D:\\\xE1rea.wav", "D:\\\x80uro.wav"});
  backend.pump();
  letter('c');
  EXPECT_EQ(list.current(), 1);
  letter('O');
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(ask(LB_GETCURSEL), 2);
  EXPECT_EQ(taken_events(), "vv");
  list.set_current(-1);
  letter(0x0416);  // not in the code page
  EXPECT_EQ(list.current(), -1);
}

TEST_F(RealListKeys, letters_are_read_in_the_code_page) {
  show();
  list.add(std::vector<std::string>{"D:\\a", "D:\\\xC1rea.wav"});
  backend.pump();
  letter(0x00E1);
  EXPECT_EQ(list.current(), 1);
}

TEST_F(RealListKeys, letters_outside_Latin_1_are_read_in_the_code_page_too) {
  show();
  list.add(std::vector<std::string>{"D:\\a", "D:\\\x80uro.wav"});
  backend.pump();
  letter(0x20AC);
  EXPECT_EQ(list.current(), 1);
}

TEST_F(RealListKeys, letters_come_from_the_keyboard_and_scroll) {
  show();
  for (int i = 0; i < 100; ++i) list.add("D:\\a" + std::to_string(i));
  list.add("D:\\zeta");
  backend.pump();
  SetFocus(real_list());
  PostMessageW(real_list(), WM_KEYDOWN, 'Z', 1);
  ASSERT_TRUE(pump_until([&] { return list.current() >= 0; }));
  EXPECT_EQ(list.current(), 100);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 101 - in_sight());
}

TEST_F(RealListKeys, the_keypads_signs_and_Space_are_no_letters) {
  show();
  list.add(std::vector<std::string>{"D:\\+", "D:\\-", "D:\\ x"});
  backend.pump();
  letter('+', VK_ADD);
  letter('-', VK_SUBTRACT);
  letter(' ', VK_SPACE);
  EXPECT_EQ(list.current(), -1);
  letter('-', VK_OEM_MINUS);
  EXPECT_EQ(list.current(), 1);
  list.set_current(-1);
  list.clear();
  list.add(std::vector<std::string>{"D:\\a", "D:\\+"});
  key(VK_ADD);
  // What the system makes of the key comes after it in the queue, and before this.
  bool last = false;
  list.on_key = [&](int code) { last = code == VK_F7; };
  PostMessageW(real_list(), WM_KEYDOWN, VK_F7, 1);
  ASSERT_TRUE(pump_until([&] { return last; }));
  EXPECT_EQ(list.current(), -1);
}

TEST_F(RealListKeys, letters_with_Ctrl_or_Alt_are_no_letters) {
  show_rows(20);
  for (const int modifier : {VK_CONTROL, VK_MENU}) {
    const HeldKeys held({modifier});
    letter('7');
  }
  EXPECT_EQ(list.current(), -1);
  letter('7');
  EXPECT_EQ(list.current(), 7);
}

TEST_F(RealListKeys, Shift_marks_and_Ctrl_A_marks_all) {
  show_rows(20);
  list.set_current(4);
  {
    const HeldKeys held({VK_SHIFT});
    key(VK_DOWN);
    key(VK_DOWN);
  }
  EXPECT_THAT(marked(), ElementsAre(4, 5, 6));
  EXPECT_EQ(ask(LB_GETCURSEL), 6);
  EXPECT_EQ(taken_events(), "mvmv");
  {
    const HeldKeys held({VK_CONTROL, VK_MENU});
    SendMessageW(real_list(), WM_KEYDOWN, 'A', 1);
  }
  EXPECT_THAT(marked(), ElementsAre(4, 5, 6)) << "AltGr";
  {
    const HeldKeys held({VK_CONTROL});
    key('A');
  }
  EXPECT_EQ(list.marked_count(), 20u);
  EXPECT_EQ(taken_events(), "m");
  key(VK_UP);
  EXPECT_EQ(list.current(), 5);
  EXPECT_THAT(marked(), IsEmpty());
  EXPECT_EQ(taken_events(), "mv");
}

TEST_F(RealListKeys, clicks_with_Ctrl_and_Shift_mark_and_choose_nothing) {
  show_rows(20);
  list.set_current(2);
  SetFocus(nullptr);
  press_row(4, MK_CONTROL);
  EXPECT_THAT(marked(), ElementsAre(2, 4));
  EXPECT_EQ(GetFocus(), real_list());
  EXPECT_EQ(GetCapture(), nullptr);
  press_row(6, MK_SHIFT | MK_CONTROL);
  EXPECT_THAT(marked(), ElementsAre(2, 4, 5, 6));
  press_row(1, MK_SHIFT);
  EXPECT_THAT(marked(), ElementsAre(1, 2, 3, 4));
  press_row(3, MK_CONTROL);
  press_row(3, MK_CONTROL, WM_LBUTTONDBLCLK);
  EXPECT_THAT(marked(), ElementsAre(1, 2, 3, 4)) << "two quick clicks are two";
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(ask(LB_GETCURSEL), 2);
  EXPECT_EQ(taken_events(), "mmmmm");
}

TEST_F(RealListKeys, a_plain_click_takes_the_marks_away_before_it_is_reported) {
  show_rows(20);
  list.mark_all();
  press_row(3);
  EXPECT_EQ(list.current(), 3);
  EXPECT_THAT(marked(), IsEmpty());
  EXPECT_EQ(taken_events(), "mc");
  press_row(3);
  EXPECT_EQ(taken_events(), "c");
}

TEST_F(RealListKeys, clicks_with_Ctrl_or_Shift_are_plain_ones_where_nothing_can_be_marked) {
  list.set_markable(false);
  show_rows(20);
  press_row(4, MK_CONTROL);
  EXPECT_EQ(list.current(), 4);
  press_row(6, MK_SHIFT);
  EXPECT_EQ(list.current(), 6);
  EXPECT_EQ(taken_events(), "cc");
}

TEST_F(RealListKeys, a_click_below_the_rows_is_that_with_Ctrl_too) {
  int below = 0;
  list.on_click_below = [&] { ++below; };
  show_rows(2);
  list.mark_all();
  press_row(3, MK_CONTROL);
  EXPECT_EQ(below, 1);
  EXPECT_EQ(list.marked_count(), 2u);
  EXPECT_EQ(taken_events(), "");
}

TEST_F(RealListKeys, a_marked_row_beyond_65535_is_the_one_under_the_pointer) {
  show_rows(150000);
  ask(LB_SETTOPINDEX, 140000);
  backend.pump();
  press_row(140004, MK_CONTROL);
  EXPECT_TRUE(list.marked(140004));
  EXPECT_EQ(list.marked_count(), 1u);
}

TEST_F(RealListKeys, assistive_tools_are_answered_which_rows_are_selected) {
  show_rows(20);
  list.set_current(2);
  press_row(4, MK_CONTROL);
  press_row(2, MK_CONTROL);
  EXPECT_EQ(ask(LB_GETSEL, 4), 1);
  EXPECT_EQ(ask(LB_GETSEL, 5), 0);
  EXPECT_EQ(ask(LB_GETSEL, 2), 1) << "the current row is, as before";
}

// The pixels of a row without its text.
class RealListMarks : public RealListKeys {
 protected:
  std::vector<COLORREF> look(int row) {
    UpdateWindow(real_list());
    std::vector<COLORREF> result;
    const HDC context = GetDC(real_list());
    for (int y = row * row_height(); y < (row + 1) * row_height(); ++y) {
      for (int x = 0; x < px(60); ++x) result.push_back(GetPixel(context, x, y));
    }
    ReleaseDC(real_list(), context);
    return result;
  }
  // Where no text is.
  COLORREF ground(int row) {
    UpdateWindow(real_list());
    const HDC context = GetDC(real_list());
    const COLORREF color = GetPixel(context, px(200), row * row_height() + row_height() / 2);
    ReleaseDC(real_list(), context);
    return color;
  }
};

TEST_F(RealListMarks, marked_rows_look_like_no_others_with_the_focus_and_without) {
  for (const ui::Palette& palette : {ui::Palette(), app::skin_palette()}) {
    win32::use_palette(palette);
    show();
    list.clear();
    for (int i = 0; i < 8; ++i) list.add("fila");
    SetFocus(real_list());
    list.set_current(1);
    press_row(3, MK_CONTROL);  // 1 and 3
    backend.pump();
    ASSERT_THAT(marked(), ElementsAre(1, 3));
    for (const bool focused : {true, false}) {
      SetFocus(focused ? real_list() : nullptr);
      backend.pump();
      const auto plain = look(2);
      const auto current_and_marked = look(1);
      const auto only_marked = look(3);
      EXPECT_EQ(plain, look(5)) << focused;
      EXPECT_NE(ground(2), ground(3)) << focused;
      EXPECT_NE(ground(1), ground(3)) << focused;
      press_row(1, MK_CONTROL);
      SetFocus(focused ? real_list() : nullptr);
      backend.pump();
      ASSERT_THAT(marked(), ElementsAre(3));
      EXPECT_NE(look(1), current_and_marked) << "the current row with its mark and without";
      EXPECT_NE(look(1), only_marked) << focused;
      EXPECT_EQ(look(3), only_marked) << focused;
      press_row(1, MK_CONTROL);
    }
    list.set_current(5);
    list.clear_marks();
    backend.pump();
    EXPECT_EQ(look(3), look(2)) << "no mark is left on the screen";
    window.unload();
  }
}

TEST_F(RealListMarks, marks_of_a_list_that_is_off_are_quiet) {
  show_rows(8);
  list.mark_all();
  list.set_current(-1);
  list.set_enabled(false);
  backend.pump();
  const COLORREF marked_ground = ground(3);
  list.clear_marks();
  backend.pump();
  EXPECT_EQ(ground(3), marked_ground);
}

TEST_F(RealListKeys, Enter_is_an_event_once_a_press) {
  int enters = 0;
  std::vector<int> keys;
  list.on_enter = [&] { ++enters; };
  list.on_key = [&](int code) { keys.push_back(code); };
  show_rows(5);
  key(VK_RETURN);
  EXPECT_EQ(enters, 0) << "there is no current row";
  list.set_current(2);
  key(VK_RETURN);
  EXPECT_EQ(enters, 1);
  PostMessageW(real_list(), WM_KEYDOWN, VK_RETURN, 1 | (1 << 30));
  backend.pump();
  EXPECT_EQ(enters, 1) << "the key is only held";
  EXPECT_THAT(keys, ElementsAre(VK_RETURN, VK_RETURN, VK_RETURN));
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(taken_events(), "");
}

TEST_F(RealListKeys, Enter_is_an_event_in_a_list_where_keys_choose_too) {
  int enters = 0;
  list.set_keys_move(false);
  list.set_markable(false);
  list.on_enter = [&] { ++enters; };
  show_rows(5);
  list.set_current(2);
  key(VK_RETURN);
  EXPECT_EQ(enters, 1);
  key(VK_DOWN);
  EXPECT_EQ(taken_events(), "c");
}

TEST_F(RealListKeys, Left_and_Right_scroll_sideways_as_far_as_rows_go) {
  show();
  list.add("D:\\" + std::string(300, 'W'));
  list.add("D:\\a");
  ui::ListaAncho(list);
  backend.pump();
  list.set_current(0);
  RECT client{};
  GetClientRect(real_list(), &client);
  const int farthest = static_cast<int>(ask(LB_GETHORIZONTALEXTENT)) - client.right;
  key(VK_LEFT);
  EXPECT_EQ(side_place(), 0);
  key(VK_RIGHT);
  const int step = side_place();
  EXPECT_EQ(step, px(40));
  key(VK_RIGHT);
  EXPECT_EQ(side_place(), 2 * step);
  key(VK_LEFT);
  EXPECT_EQ(side_place(), step);
  for (int i = 0; i < 3 + farthest / step; ++i) key(VK_RIGHT);
  EXPECT_EQ(side_place(), farthest);
  EXPECT_EQ(list.current(), 0);
  EXPECT_EQ(taken_events(), "");
}

TEST_F(RealListKeys, the_wheel_with_Shift_scrolls_sideways) {
  show();
  for (int i = 0; i < 100; ++i) list.add("D:\\" + std::string(300, 'W'));
  ui::ListaAncho(list);
  backend.pump();
  const auto turn = [&](int delta, WORD held) {
    SendMessageW(real_list(), WM_MOUSEWHEEL,
                 MAKEWPARAM(held, static_cast<WORD>(static_cast<short>(delta))), 0);
  };
  turn(-WHEEL_DELTA, MK_SHIFT);
  EXPECT_EQ(side_place(), px(40));
  EXPECT_EQ(ask(LB_GETTOPINDEX), 0);
  turn(-WHEEL_DELTA / 2, MK_SHIFT);
  EXPECT_EQ(side_place(), px(40) + px(20));
  turn(3 * WHEEL_DELTA, MK_SHIFT);
  EXPECT_EQ(side_place(), 0);
  turn(-WHEEL_DELTA, 0);
  EXPECT_EQ(side_place(), 0);
  EXPECT_GT(ask(LB_GETTOPINDEX), 0);
  list.set_keys_move(false);
  const LRESULT top = ask(LB_GETTOPINDEX);
  turn(-WHEEL_DELTA, MK_SHIFT);
  EXPECT_EQ(side_place(), 0);
  EXPECT_GE(ask(LB_GETTOPINDEX), top);
}

TEST_F(RealListKeys, rows_that_fit_are_not_scrolled_sideways) {
  show_rows(3);
  key(VK_RIGHT);
  EXPECT_EQ(side_place(), 0);
}

TEST_F(RealListKeys, the_right_button_leaves_the_current_row_where_that_is_asked_for) {
  std::vector<int> rows;
  list.on_right_click = [&] { rows.push_back(list.right_clicked()); };
  list.set_right_click_moves(false);
  show_rows(20);
  list.set_current(2);
  press_row(4, MK_CONTROL);
  events.clear();
  SetFocus(nullptr);
  SendMessageW(real_list(), WM_RBUTTONDOWN, MK_RBUTTON, at(5, 6 * row_height() + 2));
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(ask(LB_GETCURSEL), 2);
  EXPECT_THAT(marked(), ElementsAre(2, 4));
  EXPECT_EQ(GetFocus(), real_list());
  list.remove_if([](std::size_t row) { return row > 3; });
  SendMessageW(real_list(), WM_RBUTTONDOWN, MK_RBUTTON, at(5, 6 * row_height() + 2));
  EXPECT_THAT(rows, ElementsAre(6, -1));
  EXPECT_EQ(taken_events(), "");
}

TEST_F(RealListKeys, the_right_button_chooses_otherwise) {
  int row = -1;
  list.on_right_click = [&] { row = list.current(); };
  show_rows(20);
  SendMessageW(real_list(), WM_RBUTTONDOWN, MK_RBUTTON, at(5, 6 * row_height() + 2));
  EXPECT_EQ(row, 6);
  EXPECT_EQ(list.right_clicked(), 6);
}

TEST_F(RealListKeys, the_row_under_the_pointer_can_be_asked_for_in_its_event) {
  int row = -2;
  list.on_mouse_move = [&](ui::Point place) { row = list.row_at(place); };
  show_rows(150000);
  const auto point_at = [&](int y) {
    SendMessageW(real_list(), WM_MOUSEMOVE, 0, at(5, y));
    return row;
  };
  EXPECT_EQ(point_at(row_height() - 1), 0);
  EXPECT_EQ(point_at(row_height()), 1);
  ask(LB_SETTOPINDEX, 140000);
  EXPECT_EQ(point_at(3 * row_height() + 1), 140003);
  EXPECT_EQ(list.row_at({5, -1}), -1);
  list.remove_if([](std::size_t each) { return each > 1; });
  EXPECT_EQ(point_at(2 * row_height() - 1), 1);
  EXPECT_EQ(point_at(2 * row_height() + 1), -1);
}

TEST_F(RealListKeys, the_row_at_a_place_is_right_on_a_denser_screen) {
  show_rows(50);
  come_to_screen_of(192);
  int row = -2;
  list.on_mouse_move = [&](ui::Point place) { row = list.row_at(place); };
  SendMessageW(real_list(), WM_MOUSEMOVE, 0, at(5, 3 * row_height() + row_height() / 2));
  EXPECT_EQ(row, 3);
}

TEST_F(RealListKeys, boxes_beside_a_list_give_the_row_and_hand_keys_on) {
  ui::CheckListBox boxes{window, "ListStatus"};
  boxes.set_bounds({10, 10, 20, 200});
  boxes.stand_beside(list);
  boxes.fill(list);
  show_rows(20);
  ui::ListBox::Rows rows = list.rows();
  boxes.fill(std::move(rows));
  backend.pump();
  int row = -2;
  boxes.on_mouse_move = [&](ui::Point place) { row = boxes.row_at(place); };
  const HWND real_boxes = real(L"Ordelan.ListStatus");
  SendMessageW(real_boxes, WM_MOUSEMOVE, 0, at(3, 2 * row_height() + 2));
  EXPECT_EQ(row, 2);
  SendMessageW(real_boxes, WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(list.current(), 0);
  SendMessageW(real_boxes, WM_KEYDOWN, VK_DOWN, 1);
  SendMessageW(real_boxes, WM_CHAR, '7', 1);
  EXPECT_EQ(list.current(), 7);
  EXPECT_EQ(taken_events(), "vvv");
}

TEST_F(RealListKeys, a_handler_may_unload_the_window) {
  const auto closer = [this] { window.unload(); };
  list.on_moved = closer;
  list.on_enter = closer;
  list.on_marked = nullptr;
  const std::vector<std::function<void()>> acts = {
      [&] { SendMessageW(real_list(), WM_KEYDOWN, VK_END, 1); },
      [&] { SendMessageW(real_list(), WM_CHAR, '7', 1); },
      [&] { SendMessageW(real_list(), WM_KEYDOWN, VK_RETURN, 1); },
  };
  const auto each_closes = [&](const std::vector<std::function<void()>>& all) {
    for (std::size_t i = 0; i < all.size(); ++i) {
      show();
      list.clear();
      fill(200);
      list.set_current(3);
      all[i]();
      EXPECT_FALSE(window.loaded()) << i;
      backend.pump();
    }
  };
  each_closes(acts);
  int clicks = 0;
  list.on_moved = nullptr;
  list.on_marked = closer;
  list.on_click = [&] { ++clicks; };
  each_closes({
      [&] {
        const HeldKeys held({VK_SHIFT});
        SendMessageW(real_list(), WM_KEYDOWN, VK_DOWN, 1);
      },
      [&] { press_row(4, MK_CONTROL); },
      [&] {
        list.mark_all();
        press_row(4);
      },
  });
  EXPECT_EQ(clicks, 0);
  list.on_marked = nullptr;
  list.on_scroll = closer;
  show();
  list.clear();
  fill(200);
  SendMessageW(real_list(), WM_KEYDOWN, VK_END, 1);
  ASSERT_TRUE(pump_until([&] { return !window.loaded(); }));
}

TEST_F(RealListKeys, two_hundred_thousand_rows_leave_no_wait) {
  show_rows(200000);
  const auto timed = [this](const char* what, const std::function<void()>& act) {
    const auto begin = std::chrono::steady_clock::now();
    act();
    backend.pump();
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - begin;
    std::cout << what << ": " << taken.count() << " ms\n";
  };
  const auto send_key = [this](WPARAM code) { SendMessageW(real_list(), WM_KEYDOWN, code, 1); };
  timed("End", [&] { send_key(VK_END); });
  EXPECT_EQ(list.current(), 199999);
  {
    const HeldKeys held({VK_SHIFT});
    timed("Shift+Home", [&] { send_key(VK_HOME); });
  }
  EXPECT_EQ(list.marked_count(), 200000u);
  timed("Down", [&] { send_key(VK_DOWN); });
  {
    const HeldKeys held({VK_CONTROL});
    timed("Ctrl+A", [&] { send_key('A'); });
  }
  EXPECT_EQ(list.marked_count(), 200000u);
  timed("a letter that no name has", [&] { letter('z'); });
  timed("Ctrl+click", [&] { press_row(3, MK_CONTROL); });
  EXPECT_EQ(list.marked_count(), 199999u);
  timed("click", [&] { press_row(2); });
  EXPECT_EQ(list.marked_count(), 0u);
}

}  // namespace
}  // namespace ordelan::test
