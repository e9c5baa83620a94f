#include "win32/peers/scroll_bar.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "ui/list_box.h"
#include "ui/list_width.h"
#include "ui/text_box.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

using win32::place_of;
using win32::Scroll;
using win32::Thumb;
using win32::thumb_of;

TEST(ScrollBarThumb, begins_and_ends_with_what_can_be_scrolled) {
  for (const int rows : {11, 12, 100, 70000, 200000, 2000000000}) {
    for (const int track : {40, 200, 1000}) {
      const int last = rows - 10;
      Scroll scroll{0, rows - 1, 10, 0};
      const Thumb first = thumb_of(scroll, track, 24);
      EXPECT_EQ(first.start, 0);
      EXPECT_GE(first.length, 24);
      EXPECT_LT(first.length, track);
      scroll.at = last;
      const Thumb end = thumb_of(scroll, track, 24);
      EXPECT_EQ(end.start + end.length, track) << rows;
      EXPECT_EQ(place_of(scroll, track, end, end.start), last) << rows;
      EXPECT_EQ(place_of(scroll, track, end, track * 2), last) << rows;
      EXPECT_EQ(place_of(scroll, track, end, -5), 0) << rows;
    }
  }
}

TEST(ScrollBarThumb, is_as_long_a_part_of_the_track_as_is_in_sight) {
  EXPECT_EQ(thumb_of({0, 99, 50, 0}, 200, 24).length, 100);
  EXPECT_EQ(thumb_of({0, 99, 50, 25}, 200, 24).start, 50);
}

TEST(ScrollBarThumb, fills_a_track_on_which_it_cannot_move) {
  for (const Scroll& scroll : {Scroll{0, 4, 10, 0}, Scroll{0, 9, 10, 0}, Scroll{0, 0, 0, 0}}) {
    const Thumb thumb = thumb_of(scroll, 200, 24);
    EXPECT_EQ(thumb.start, 0);
    EXPECT_EQ(thumb.length, 200);
    EXPECT_EQ(place_of(scroll, 200, thumb, 100), 0);
  }
  EXPECT_EQ(thumb_of({0, 99, 10, 5}, 10, 24).length, 10) << "the track is too short";
  EXPECT_EQ(thumb_of({0, 99, 10, 5}, 0, 24).length, 0);
}

class ListScrollBars : public BackendTest {
 protected:
  ListScrollBars() {
    list.set_bounds({10, 10, 300, 200});
    list.set_back_color(ui::Color::window_background);
    other.set_bounds({10, 230, 300, 80});
  }

  ~ListScrollBars() override { win32::use_palette(ui::Palette()); }

  HWND real_list() const { return real(L"Ordelan.ListVip"); }
  LRESULT ask(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return SendMessageW(real_list(), message, w, l);
  }
  RECT area_of(HWND control) const {
    RECT area{};
    GetWindowRect(control, &area);
    MapWindowPoints(nullptr, real_window(), reinterpret_cast<POINT*>(&area), 2);
    return area;
  }

  // The bar that is seen at the list's right or lower edge; null where it is the list, or another.
  HWND bar(bool vertical) const {
    const HWND control = real_list();
    RECT area{};
    GetWindowRect(control, &area);
    const int inward = px(win32::kScrollBarWidth) / 2 + 1;
    POINT place{vertical ? area.right - inward : area.left + inward,
                vertical ? area.top + inward : area.bottom - inward};
    const HWND found = WindowFromPoint(place);
    wchar_t name[64] = {};
    GetClassNameW(found, name, 64);
    return found != control && std::wstring(name) == win32::kScrollBarClass ? found : nullptr;
  }
  HWND vertical() const { return bar(true); }
  HWND horizontal() const { return bar(false); }

  int bars_in_sight() const {
    int count = 0;
    for (HWND each = GetWindow(real_window(), GW_CHILD); each;
         each = GetWindow(each, GW_HWNDNEXT)) {
      wchar_t name[64] = {};
      GetClassNameW(each, name, 64);
      if (std::wstring(name) == win32::kScrollBarClass && IsWindowVisible(each)) ++count;
    }
    return count;
  }

  static RECT room_of(HWND control) {
    RECT room{};
    GetClientRect(control, &room);
    return room;
  }
  int last_top() const {
    return static_cast<int>(ask(LB_GETCOUNT)) -
           static_cast<int>(room_of(real_list()).bottom / ask(LB_GETITEMHEIGHT));
  }

  void drag(HWND target, POINT from, POINT to) {
    SendMessageW(target, WM_MOUSEMOVE, 0, at(from.x, from.y));
    SendMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON, at(from.x, from.y));
    SendMessageW(target, WM_MOUSEMOVE, MK_LBUTTON, at((from.x + to.x) / 2, (from.y + to.y) / 2));
    SendMessageW(target, WM_MOUSEMOVE, MK_LBUTTON, at(to.x, to.y));
    SendMessageW(target, WM_LBUTTONUP, 0, at(to.x, to.y));
    backend.pump();
  }

  void fill(int rows) {
    std::vector<std::string> all;
    for (int i = 0; i < rows; ++i) all.push_back("fila " + std::to_string(i));
    list.add(std::move(all));
    backend.pump();
  }

  COLORREF pixel(HWND target, int x, int y) const {
    const HDC context = GetDC(target);
    const COLORREF color = GetPixel(context, x, y);
    ReleaseDC(target, context);
    return color;
  }
  // The line round a control as the screen has it: every pixel of its four edges, or of those as
  // far within.
  std::vector<COLORREF> lines_of(HWND control, int within = 0) {
    backend.pump();
    RECT area{};
    GetWindowRect(control, &area);
    InflateRect(&area, -within, -within);
    std::vector<COLORREF> colors;
    const HDC screen = GetDC(nullptr);
    for (LONG x = area.left; x < area.right; ++x) {
      colors.push_back(GetPixel(screen, x, area.top));
      colors.push_back(GetPixel(screen, x, area.bottom - 1));
    }
    for (LONG y = area.top; y < area.bottom; ++y) {
      colors.push_back(GetPixel(screen, area.left, y));
      colors.push_back(GetPixel(screen, area.right - 1, y));
    }
    ReleaseDC(nullptr, screen);
    return colors;
  }

  ui::ListBox list{window, "ListVip"};
  ui::TextBox other{window, "Text1"};
};

TEST_F(ListScrollBars, two_hundred_thousand_rows_are_dragged_to_their_end_and_back) {
  show();
  fill(200000);
  // The first window of these tests may come up while one of earlier tests is still going.
  ASSERT_TRUE(pump_until([&] { return vertical() != nullptr; }));
  drag(vertical(), {5, 5}, {5, 500});
  EXPECT_EQ(ask(LB_GETTOPINDEX), last_top());
  drag(vertical(), {5, room_of(vertical()).bottom - 5}, {5, -500});
  EXPECT_EQ(ask(LB_GETTOPINDEX), 0);
  drag(vertical(), {5, 5}, {5, room_of(vertical()).bottom / 2});
  EXPECT_GT(ask(LB_GETTOPINDEX), 65535);
  EXPECT_LT(ask(LB_GETTOPINDEX), 135000);
}

TEST_F(ListScrollBars, are_there_only_while_they_are_needed) {
  show();
  EXPECT_EQ(bars_in_sight(), 0);
  fill(3);
  EXPECT_EQ(bars_in_sight(), 0);
  EXPECT_EQ(room_of(real_list()).right, area_of(real_list()).right - area_of(real_list()).left - 2);
  fill(100);
  EXPECT_TRUE(vertical());
  EXPECT_FALSE(horizontal());
  list.set_horizontal_extent(1000);
  backend.pump();
  EXPECT_TRUE(vertical());
  EXPECT_TRUE(horizontal());
  list.clear();
  list.set_horizontal_extent(0);
  backend.pump();
  EXPECT_EQ(bars_in_sight(), 0);
  EXPECT_FALSE(vertical());
  EXPECT_FALSE(horizontal());
}

TEST_F(ListScrollBars, lie_between_the_rows_and_the_line_round_the_list) {
  show();
  fill(100);
  list.set_horizontal_extent(1000);
  backend.pump();
  const RECT whole = area_of(real_list());
  const RECT room = room_of(real_list());
  POINT end{room.right, room.bottom};
  MapWindowPoints(real_list(), real_window(), &end, 1);
  const int width = px(win32::kScrollBarWidth);
  const RECT right = area_of(vertical());
  EXPECT_EQ(right.left, end.x);
  EXPECT_EQ(right.right, whole.right) << "the line is part of it";
  EXPECT_EQ(right.right - right.left, width + 1);
  EXPECT_EQ(right.top, whole.top + 1);
  EXPECT_EQ(right.bottom, whole.bottom) << "the corner belongs to it";
  const RECT bottom = area_of(horizontal());
  EXPECT_EQ(bottom.top, end.y);
  EXPECT_EQ(bottom.bottom, whole.bottom);
  EXPECT_EQ(bottom.bottom - bottom.top, width + 1);
  EXPECT_EQ(bottom.left, whole.left + 1);
  EXPECT_EQ(bottom.right, end.x);
}

TEST_F(ListScrollBars, follow_their_list) {
  show();
  fill(100);
  const HWND found = vertical();
  ASSERT_TRUE(found);
  list.set_bounds({100, 50, 200, 100});
  backend.pump();
  EXPECT_EQ(vertical(), found);
  EXPECT_EQ(area_of(found).right, px(300));
  EXPECT_EQ(area_of(found).bottom, px(150) - 1);
  list.set_visible(false);
  backend.pump();
  EXPECT_EQ(bars_in_sight(), 0);
  list.set_visible(true);
  backend.pump();
  EXPECT_EQ(vertical(), found);
  list.set_enabled(false);
  backend.pump();
  EXPECT_FALSE(IsWindowEnabled(found));
  list.set_enabled(true);
  backend.pump();
  EXPECT_TRUE(IsWindowEnabled(found));
}

TEST_F(ListScrollBars, are_covered_by_what_covers_their_list) {
  other.set_bounds({250, 10, 100, 100});
  show();
  fill(100);
  SetWindowPos(real(L"Ordelan.Text1"), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_FALSE(vertical());
  EXPECT_EQ(bars_in_sight(), 1);
  SetWindowPos(real_list(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_TRUE(vertical());
}

TEST_F(ListScrollBars, scroll_sideways_to_the_end_and_back) {
  list.add(std::string(300, ' ') + "MMMM");
  show();
  SetFocus(nullptr);  // which is painted round the row
  ui::ListaAncho(list);
  backend.pump();
  ASSERT_TRUE(horizontal());
  const auto text_in_sight = [&] {
    const auto middle = static_cast<int>(ask(LB_GETITEMHEIGHT) / 2);
    for (int x = 0; x < room_of(real_list()).right; ++x) {
      if (pixel(real_list(), x, middle) != GetSysColor(COLOR_WINDOW)) return true;
    }
    return false;
  };
  EXPECT_FALSE(text_in_sight());
  drag(horizontal(), {5, 5}, {900, 5});
  EXPECT_EQ(GetScrollPos(real_list(), SB_HORZ),
            ask(LB_GETHORIZONTALEXTENT) - room_of(real_list()).right);
  EXPECT_TRUE(text_in_sight());
  drag(horizontal(), {room_of(horizontal()).right - 5, 5}, {-900, 5});
  EXPECT_EQ(GetScrollPos(real_list(), SB_HORZ), 0);
  EXPECT_FALSE(text_in_sight());
}

TEST_F(ListScrollBars, a_press_beside_the_thumb_goes_on_by_a_page) {
  show();
  fill(1000);
  const auto page = room_of(real_list()).bottom / ask(LB_GETITEMHEIGHT);
  const int end = room_of(vertical()).bottom - 2;
  press(vertical(), 5, end);
  EXPECT_EQ(ask(LB_GETTOPINDEX), page);
  press(vertical(), 5, end);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 2 * page);
  ask(LB_SETTOPINDEX, 900);
  press(vertical(), 5, 2);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 900 - page);
}

TEST_F(ListScrollBars, a_button_held_beside_the_thumb_pages_until_the_thumb_is_there) {
  show();
  fill(200);
  const int middle = room_of(vertical()).bottom / 2;
  SendMessageW(vertical(), WM_LBUTTONDOWN, MK_LBUTTON, at(5, middle));
  const auto thumb_is_there = [&] {
    const Scroll scroll{0, 199, static_cast<int>(200 - last_top()),
                        static_cast<int>(ask(LB_GETTOPINDEX))};
    const Thumb thumb = thumb_of(scroll, room_of(vertical()).bottom, 2 * px(12));
    return thumb.start + thumb.length > middle;
  };
  EXPECT_TRUE(pump_until(thumb_is_there));
  SendMessageW(vertical(), WM_LBUTTONUP, 0, at(5, middle));
  EXPECT_LT(ask(LB_GETTOPINDEX), last_top());
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ListScrollBars, the_wheel_scrolls_the_list_over_them_too) {
  show();
  fill(100);
  SendMessageW(real_list(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  const LRESULT once = ask(LB_GETTOPINDEX);
  EXPECT_GT(once, 0);
  SendMessageW(vertical(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  EXPECT_EQ(ask(LB_GETTOPINDEX), 2 * once);
}

TEST_F(ListScrollBars, show_where_the_list_is) {
  ui::Palette palette;
  palette.surface = ui::rgb(1, 2, 3);
  palette.line = ui::rgb(40, 50, 60);
  palette.text_off = ui::rgb(70, 80, 90);
  palette.accent = ui::rgb(0, 200, 100);
  win32::use_palette(palette);
  show();
  fill(1000);
  const HWND found = vertical();
  const int middle = room_of(found).right / 2;
  const int top = px(12);
  const int end = room_of(found).bottom - px(12);
  EXPECT_EQ(pixel(found, middle, top), RGB(40, 50, 60));
  EXPECT_EQ(pixel(found, middle, end), RGB(1, 2, 3));
  ask(WM_VSCROLL, SB_BOTTOM);
  backend.pump();
  EXPECT_EQ(pixel(found, middle, top), RGB(1, 2, 3));
  EXPECT_EQ(pixel(found, middle, end), RGB(40, 50, 60));
  SendMessageW(found, WM_LBUTTONDOWN, MK_LBUTTON, at(middle, end));
  backend.pump();
  EXPECT_EQ(pixel(found, middle, end), RGB(0, 200, 100));
  SendMessageW(found, WM_LBUTTONUP, 0, at(middle, end));
  SendMessageW(found, WM_MOUSELEAVE, 0, 0);
  backend.pump();
  EXPECT_EQ(pixel(found, middle, end), RGB(40, 50, 60));
  SendMessageW(found, WM_MOUSEMOVE, 0, at(middle, end));
  UpdateWindow(found);  // before the system finds that the pointer is elsewhere
  EXPECT_EQ(pixel(found, middle, end), RGB(70, 80, 90));
}

TEST_F(ListScrollBars, follow_keys_that_scroll_sideways) {
  ui::Palette palette;
  palette.surface = ui::rgb(1, 2, 3);
  palette.line = ui::rgb(40, 50, 60);
  win32::use_palette(palette);
  list.set_keys_move(true);
  show();
  list.add(std::string(500, 'W'));
  ui::ListaAncho(list);
  backend.pump();
  const HWND found = horizontal();
  const int middle = room_of(found).bottom / 2;
  const int begin = px(12);
  const int end = room_of(found).right - px(12);
  ASSERT_EQ(pixel(found, begin, middle), RGB(40, 50, 60));
  const auto go_on = [this](WPARAM key) {
    int place = -1;
    while (place != GetScrollPos(real_list(), SB_HORZ)) {
      place = GetScrollPos(real_list(), SB_HORZ);
      type(real_list(), key);
    }
  };
  go_on(VK_RIGHT);
  EXPECT_EQ(pixel(found, begin, middle), RGB(1, 2, 3));
  EXPECT_EQ(pixel(found, end, middle), RGB(40, 50, 60));
  go_on(VK_LEFT);
  EXPECT_EQ(pixel(found, begin, middle), RGB(40, 50, 60));
}

TEST_F(ListScrollBars, are_seen_in_the_systems_own_colours_too) {
  show();
  fill(1000);
  const HWND found = vertical();
  const int middle = room_of(found).right / 2;
  EXPECT_NE(pixel(found, middle, px(12)), pixel(found, middle, room_of(found).bottom - px(12)));
}

TEST_F(ListScrollBars, take_no_keys_and_leave_the_focus_where_it_is) {
  show();
  fill(100);
  SetFocus(real(L"Ordelan.Text1"));
  press(vertical(), 5, 150);
  EXPECT_EQ(GetFocus(), real(L"Ordelan.Text1"));
  type(GetFocus(), VK_TAB);
  EXPECT_EQ(GetFocus(), real_list());
  type(GetFocus(), VK_TAB);
  EXPECT_EQ(GetFocus(), real(L"Ordelan.Text1"));
}

TEST_F(ListScrollBars, go_with_their_list) {
  show();
  fill(100);
  const HWND found = vertical();
  ASSERT_TRUE(found);
  window.unload();
  EXPECT_FALSE(IsWindow(found));
}

TEST_F(ListScrollBars, the_line_round_lists_and_boxes_shows_the_focus) {
  show();
  const COLORREF line = win32::color_of(win32::palette().line);
  const COLORREF accent = win32::color_of(win32::palette().accent);
  ASSERT_NE(line, accent);
  const HWND box = real(L"Ordelan.Text1");
  SetFocus(real_list());
  EXPECT_THAT(lines_of(real_list()), testing::Each(accent));
  EXPECT_THAT(lines_of(box), testing::Each(line));
  SetFocus(box);
  EXPECT_THAT(lines_of(real_list()), testing::Each(line));
  EXPECT_THAT(lines_of(box), testing::Each(accent));
  SetFocus(nullptr);
  EXPECT_THAT(lines_of(box), testing::Each(line));
}

TEST_F(ListScrollBars, the_line_is_whole_whatever_the_bars_do) {
  show();
  const COLORREF line = win32::color_of(win32::palette().line);
  SetFocus(nullptr);
  fill(100);
  list.set_horizontal_extent(1000);
  EXPECT_THAT(lines_of(real_list()), testing::Each(line));
  drag(vertical(), {5, 5}, {5, 100});
  drag(horizontal(), {5, 5}, {100, 5});
  EXPECT_THAT(lines_of(real_list()), testing::Each(line));
  SetFocus(real_list());
  EXPECT_THAT(lines_of(real_list()), testing::Each(win32::color_of(win32::palette().accent)));
  ask(WM_VSCROLL, SB_BOTTOM);
  EXPECT_THAT(lines_of(real_list()), testing::Each(win32::color_of(win32::palette().accent)));
  list.clear();
  list.set_horizontal_extent(0);
  EXPECT_THAT(lines_of(real_list()), testing::Each(win32::color_of(win32::palette().accent)));
}

TEST_F(ListScrollBars, the_line_is_two_pixels_broad_on_a_screen_of_twice_the_density) {
  show();
  SetFocus(nullptr);
  fill(100);
  list.set_horizontal_extent(1000);
  come_to_screen_of(192);
  for (const HWND control : {real_list(), real(L"Ordelan.Text1")}) {
    for (const int within : {0, 1}) {
      EXPECT_THAT(lines_of(control, within), testing::Each(win32::color_of(win32::palette().line)));
    }
    EXPECT_THAT(lines_of(control, 2),
                testing::Contains(testing::Ne(win32::color_of(win32::palette().line))));
  }
  SetFocus(real_list());
  EXPECT_THAT(lines_of(real_list(), 1), testing::Each(win32::color_of(win32::palette().accent)));
}

TEST_F(ListScrollBars, the_current_row_of_the_focused_list_alone_has_a_frame) {
  show();
  const COLORREF accent = win32::color_of(win32::palette().accent);
  const COLORREF ground = win32::color_of(win32::palette().surface);
  const auto corner = [&] {
    backend.pump();
    return pixel(real_list(), 0, 0);
  };
  SetFocus(real_list());
  EXPECT_EQ(corner(), ground) << "an empty list has no row";
  fill(5);
  list.set_current(0);
  EXPECT_EQ(corner(), accent);
  SetFocus(real(L"Ordelan.Text1"));
  EXPECT_EQ(corner(), win32::color_of(win32::palette().raised));
  list.clear();
  EXPECT_EQ(corner(), ground);
}

TEST_F(ListScrollBars, a_chosen_row_is_dimmer_while_the_list_has_not_the_focus) {
  show();
  fill(5);
  list.set_current(1);
  SetFocus(real_list());
  backend.pump();
  const int x = room_of(real_list()).right - 5;
  const int y = static_cast<int>(ask(LB_GETITEMHEIGHT)) * 3 / 2;
  EXPECT_EQ(pixel(real_list(), x, y), win32::color_of(win32::palette().chosen));
  SetFocus(real(L"Ordelan.Text1"));
  backend.pump();
  EXPECT_EQ(pixel(real_list(), x, y), win32::color_of(win32::palette().raised));
}

}  // namespace
}  // namespace ordelan::test
