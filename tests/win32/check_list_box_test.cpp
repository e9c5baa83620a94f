// Boxes beside the rows of a list.
#include "ui/check_list_box.h"

#include <windows.h>

#include <gmock/gmock.h>

#include "ui/list_width.h"
#include "win32/backend_fixture.h"
#include "win32/peers/scroll_bar.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Like the review of a removal: the list shows the rows, the boxes follow it.
class RealCheckListBox : public BackendTest {
 protected:
  RealCheckListBox() {
    boxes.set_bounds({40, 46, 19, 200});
    list.set_bounds({40, 46, 300, 200});
    for (ui::ListBox* each : {static_cast<ui::ListBox*>(&boxes), &list}) {
      each->set_back_color(ui::Color::window_background);
      each->set_fore_color(ui::Color::window_text);
    }
    boxes.stand_beside(list);
    list.on_scroll = [this] {
      ++scrolls;
      boxes.set_top(list.top());
    };
    boxes.on_tick = [this](std::size_t row) { ticked.push_back(row); };
  }

  void fill(std::size_t rows) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < rows; ++i) texts.push_back("fila " + std::to_string(i));
    list.add(texts);
    boxes.fill(std::move(texts));
    boxes.tick_all();
    backend.pump();
  }

  HWND real_list() const { return real(L"Ordelan.ListBorrar"); }
  HWND real_boxes() const { return real(L"Ordelan.ListStatus"); }
  static LRESULT ask(HWND control, UINT message, WPARAM w = 0, LPARAM l = 0) {
    return SendMessageW(control, message, w, l);
  }
  int row_height() const { return static_cast<int>(ask(real_list(), LB_GETITEMHEIGHT)); }
  static RECT inside(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
  }
  // Presses the box in the n-th place of those in sight.
  void press_box(int place) const { press(real_boxes(), 5, place * row_height() + 3); }

  // The pixels that the box in the n-th place shows.
  std::vector<COLORREF> seen(int place) const {
    const HWND control = real_boxes();
    UpdateWindow(control);
    RECT area{};
    GetClientRect(control, &area);
    std::vector<COLORREF> pixels;
    const HDC context = GetDC(control);
    for (int y = place * row_height(); y < (place + 1) * row_height(); ++y) {
      for (int x = 0; x < area.right; ++x) pixels.push_back(GetPixel(context, x, y));
    }
    ReleaseDC(control, context);
    return pixels;
  }

  // Earlier controls lie over later ones.
  ui::CheckListBox boxes{window, "ListStatus"};
  ui::ListBox list{window, "ListBorrar"};
  std::vector<std::size_t> ticked;
  int scrolls = 0;
};

TEST_F(RealCheckListBox, boxes_stand_in_the_list_to_the_left_of_its_rows) {
  show();
  fill(100);
  const RECT rows = inside(real_list());
  const RECT beside = inside(real_boxes());
  EXPECT_EQ(beside.left, rows.left);
  EXPECT_EQ(beside.top, rows.top);
  EXPECT_EQ(beside.bottom, rows.bottom);
  EXPECT_EQ(beside.right, rows.left + px(19));
  EXPECT_EQ(ask(real_boxes(), LB_GETITEMHEIGHT), row_height());
  const POINT place{beside.left + 3, beside.top + 3};
  EXPECT_EQ(WindowFromPoint(place), real_boxes()) << "they lie over the list";
}

TEST_F(RealCheckListBox, boxes_end_above_the_bar_of_a_list_that_can_be_scrolled_sideways) {
  show();
  fill(100);
  const LONG before = inside(real_boxes()).bottom;
  list.add("una fila que es mucho más ancha que la lista, de modo que hay que moverla a un lado");
  ui::ListaAncho(list);
  backend.pump();
  const RECT rows = inside(real_list());
  EXPECT_EQ(inside(real_boxes()).bottom, rows.bottom);
  EXPECT_LT(rows.bottom, before);
  // No row can be so wide that the boxes hide its end.
  EXPECT_GE(ask(real_list(), LB_GETHORIZONTALEXTENT), list.horizontal_extent() + px(19));
  list.set_bounds({40, 46, 300, 260});
  backend.pump();
  EXPECT_EQ(inside(real_boxes()).bottom, inside(real_list()).bottom) << "they grow with the list";
}

TEST_F(RealCheckListBox, boxes_have_no_bars) {
  show();
  fill(100000);
  const auto style = GetWindowLongPtrW(real_boxes(), GWL_STYLE);
  EXPECT_EQ(style & (WS_VSCROLL | WS_HSCROLL), 0);
  int bars = 0;
  EnumChildWindows(
      real_window(),
      [](HWND each, LPARAM l) -> BOOL {
        wchar_t name[32] = {};
        GetClassNameW(each, name, 32);
        if (std::wstring(name) == win32::kScrollBarClass && IsWindowVisible(each)) {
          ++*reinterpret_cast<int*>(l);
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&bars));
  EXPECT_EQ(bars, 1) << "that of the list";
}

TEST_F(RealCheckListBox, a_click_ticks_the_box_and_leaves_the_choice_of_the_list) {
  show();
  fill(20);
  list.set_current(7);
  backend.pump();
  press_box(3);
  EXPECT_FALSE(boxes.ticked(3));
  EXPECT_TRUE(boxes.ticked(2));
  EXPECT_EQ(list.current(), 7);
  EXPECT_EQ(GetFocus(), real_list()) << "the next key is the list's";
  press_box(3);
  EXPECT_TRUE(boxes.ticked(3));
  SendMessageW(real_boxes(), WM_LBUTTONDBLCLK, MK_LBUTTON, at(5, 4 * row_height() + 3));
  EXPECT_FALSE(boxes.ticked(4)) << "the second of two quick clicks is one too";
  EXPECT_THAT(ticked, ElementsAre(3u, 3u, 4u));
}

TEST_F(RealCheckListBox, below_the_last_row_there_is_no_box) {
  show();
  fill(3);
  press_box(3);
  press_box(5);
  EXPECT_THAT(ticked, IsEmpty());
}

TEST_F(RealCheckListBox, ticks_are_seen) {
  show();
  fill(20);
  const auto on = seen(2);
  EXPECT_EQ(seen(3), on);
  boxes.set_ticked(2, false);
  backend.pump();
  EXPECT_NE(seen(2), on);
  EXPECT_EQ(seen(3), on);
  boxes.set_ticked(2, true);
  backend.pump();
  EXPECT_EQ(seen(2), on);
}

TEST_F(RealCheckListBox, boxes_follow_the_list_to_its_last_row) {
  show();
  fill(100000);
  list.add(std::string(200, 'W'));  // with a bar below, the last page is shorter
  boxes.fill(list.rows());
  ui::ListaAncho(list);
  backend.pump();
  boxes.set_ticked(100000, true);
  ask(real_list(), WM_VSCROLL, SB_BOTTOM);
  backend.pump();
  const LRESULT top = ask(real_list(), LB_GETTOPINDEX);
  EXPECT_GT(top, 99900);
  EXPECT_EQ(list.top(), static_cast<std::size_t>(top));
  EXPECT_EQ(boxes.top(), static_cast<std::size_t>(top));
  EXPECT_EQ(ask(real_boxes(), LB_GETTOPINDEX), top);
  const int last = static_cast<int>(100000 - top);
  EXPECT_NE(seen(last), seen(last - 1)) << "it is the last row that is ticked";
  press_box(last);
  EXPECT_FALSE(boxes.ticked(100000));
}

TEST_F(RealCheckListBox, the_boxes_do_not_move_the_list) {
  show();
  fill(1000);
  boxes.set_top(500);
  backend.pump();
  EXPECT_EQ(ask(real_list(), LB_GETTOPINDEX), 0);
  ask(real_boxes(), LB_SETTOPINDEX, 300);
  EXPECT_EQ(boxes.top(), 300u);
  EXPECT_EQ(ask(real_list(), LB_GETTOPINDEX), 0);
  EXPECT_EQ(scrolls, 0);
  press_box(1);
  EXPECT_THAT(ticked, ElementsAre(301u));
}

TEST_F(RealCheckListBox, the_wheel_and_the_keys_over_the_boxes_are_the_lists) {
  std::vector<int> keys;
  list.on_key = [&](int code) { keys.push_back(code); };
  show();
  fill(1000);
  SendMessageW(real_boxes(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
  backend.pump();
  EXPECT_GT(list.top(), 0u);
  EXPECT_EQ(boxes.top(), list.top());
  SetFocus(real_boxes());
  EXPECT_EQ(GetFocus(), real_list());
  SendMessageW(real_boxes(), WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_THAT(keys, ElementsAre(VK_DOWN));
  EXPECT_GE(list.current(), 0);
}

TEST_F(RealCheckListBox, screen_readers_find_a_named_list_with_its_ticks) {
  boxes.set_description("Archivos marcados para borrar");
  show();
  fill(3);
  boxes.set_ticked(1, false);
  backend.pump();
  EXPECT_EQ(text_of(real_boxes()), L"Archivos marcados para borrar");
  EXPECT_EQ(ask(real_boxes(), LB_GETCOUNT), 3);
  EXPECT_EQ(ask(real_boxes(), LB_GETSEL, 0), 1);
  EXPECT_EQ(ask(real_boxes(), LB_GETSEL, 1), 0);
  EXPECT_EQ(ask(real_boxes(), LB_GETSEL, 3), LB_ERR);
  EXPECT_EQ(GetWindowLongPtrW(real_boxes(), GWL_STYLE) & WS_TABSTOP, 0) << "keys are the list's";
}

TEST_F(RealCheckListBox, boxes_keep_to_the_list_on_a_screen_of_another_density) {
  show();
  fill(100);
  come_to_screen_of(192);
  const RECT rows = inside(real_list());
  const RECT beside = inside(real_boxes());
  EXPECT_EQ(beside.left, rows.left);
  EXPECT_EQ(beside.bottom, rows.bottom);
  EXPECT_EQ(beside.right - beside.left, 38);
  EXPECT_EQ(ask(real_boxes(), LB_GETITEMHEIGHT), row_height());
}

// --- the list itself

TEST_F(RealCheckListBox, scrolling_is_reported_with_the_first_row_in_sight) {
  show();
  fill(1000);
  EXPECT_EQ(scrolls, 0) << "rows that come do not scroll";
  ask(real_list(), LB_SETTOPINDEX, 500);
  EXPECT_EQ(scrolls, 1);
  EXPECT_EQ(list.top(), 500u);
  ask(real_list(), LB_SETTOPINDEX, 500);
  EXPECT_EQ(scrolls, 1);
  list.set_current(900);  // brings it into sight
  ASSERT_TRUE(pump_until([&] { return scrolls == 2; }));
  EXPECT_EQ(ask(real_list(), LB_GETTOPINDEX), static_cast<LRESULT>(list.top()));
  EXPECT_GT(list.top(), 800u);
}

TEST_F(RealCheckListBox, rows_that_go_scroll_the_list_and_that_is_reported) {
  show();
  fill(1000);
  ask(real_list(), WM_VSCROLL, SB_BOTTOM);
  scrolls = 0;
  list.remove_if([](std::size_t row) { return row >= 900; });
  ASSERT_TRUE(pump_until([&] { return scrolls > 0; }));
  EXPECT_LT(list.top(), 900u);
  EXPECT_EQ(ask(real_list(), LB_GETTOPINDEX), static_cast<LRESULT>(list.top()));
  EXPECT_EQ(boxes.top(), list.top());
}

TEST_F(RealCheckListBox, the_program_scrolls_the_list_as_far_as_it_can_be_scrolled) {
  show();
  fill(1000);
  list.set_top(300);
  backend.pump();
  EXPECT_EQ(ask(real_list(), LB_GETTOPINDEX), 300);
  EXPECT_EQ(scrolls, 0) << "that was not the user";
  list.set_top(999);
  ASSERT_TRUE(pump_until([&] { return scrolls == 1; }));
  EXPECT_LT(list.top(), 999u);
  EXPECT_EQ(ask(real_list(), LB_GETTOPINDEX), static_cast<LRESULT>(list.top()));
}

TEST_F(RealCheckListBox, a_handler_of_the_scrolling_may_take_the_list_away) {
  show();
  fill(1000);
  list.on_scroll = [&] { window.unload(); };
  ask(real_list(), LB_SETTOPINDEX, 500);
  EXPECT_EQ(real_window(), nullptr);
}

TEST_F(RealCheckListBox, a_handler_of_a_tick_may_take_the_boxes_away) {
  show();
  fill(10);
  boxes.on_tick = [&](std::size_t) { window.unload(); };
  press_box(1);
  EXPECT_EQ(real_window(), nullptr);
}

}  // namespace
}  // namespace ordelan::test
