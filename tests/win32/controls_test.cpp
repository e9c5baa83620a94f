#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <new>
#include <string>
#include <vector>

#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/progress_bar.h"
#include "ui/text_box.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

class RealControls : public BackendTest {
 protected:
  RealControls() {
    label.set_bounds({10, 10, 200, 18});
    button.set_bounds({10, 40, 100, 26});
    box.set_bounds({10, 80, 100, 20});
    text.set_multiline(true);
    text.set_bounds({10, 110, 120, 100});
    edit.set_bounds({10, 220, 120, 22});
    edit.set_read_only(false);
    bar.set_bounds({10, 260, 200, 16});
  }

  ui::Label label{window, "lblEstado"};
  ui::Button button{window, "cmdAbrir"};
  ui::CheckBox box{window, "Check1"};
  ui::TextBox text{window, "Text1"};
  ui::TextBox edit{window, "Text2"};
  ui::ProgressBar bar{window, "ProgressBar1"};
};

TEST_F(RealControls, controls_stand_where_their_bounds_say) {
  show();
  RECT area{};
  GetWindowRect(real(L"Ordelan.cmdAbrir"), &area);
  MapWindowPoints(nullptr, real_window(), reinterpret_cast<POINT*>(&area), 2);
  EXPECT_EQ(area.left, px(10));
  EXPECT_EQ(area.top, px(40));
  EXPECT_EQ(area.right, px(110));
  EXPECT_EQ(area.bottom, px(66));
  button.set_bounds({20, 50, 30, 30});
  backend.pump();
  GetWindowRect(real(L"Ordelan.cmdAbrir"), &area);
  EXPECT_EQ(area.right - area.left, px(30));
}

TEST_F(RealControls, captions_visibility_and_state_follow_the_objects) {
  label.set_caption("a\xF1o && m\xE1s & m\xE1s");
  button.hide();
  box.set_enabled(false);
  show();
  EXPECT_EQ(text_of(real(L"Ordelan.lblEstado")), L"a\u00F1o && m\u00E1s & m\u00E1s");
  EXPECT_FALSE(IsWindowVisible(real(L"Ordelan.cmdAbrir")));
  EXPECT_FALSE(IsWindowEnabled(real(L"Ordelan.Check1")));
  label.set_caption("otro");
  button.show();
  box.set_enabled(true);
  EXPECT_EQ(text_of(real(L"Ordelan.lblEstado")), L"otro");  // a caller gets the newest text
  backend.pump();
  EXPECT_TRUE(IsWindowVisible(real(L"Ordelan.cmdAbrir")));
  EXPECT_TRUE(IsWindowEnabled(real(L"Ordelan.Check1")));
}

TEST_F(RealControls, a_button_reports_its_click) {
  int clicks = 0;
  button.on_click = [&] { ++clicks; };
  show();
  press(real(L"Ordelan.cmdAbrir"));
  EXPECT_EQ(clicks, 1);
  SendMessageW(real(L"Ordelan.cmdAbrir"), BM_CLICK, 0, 0);
  EXPECT_EQ(clicks, 2);
}

TEST_F(RealControls, a_button_that_has_the_focus_is_pressed_by_space_and_enter) {
  int clicks = 0;
  button.on_click = [&] { ++clicks; };
  show();
  SetFocus(real(L"Ordelan.cmdAbrir"));
  type(real(L"Ordelan.cmdAbrir"), VK_RETURN);
  EXPECT_EQ(clicks, 1);
  type(real(L"Ordelan.cmdAbrir"), VK_SPACE);
  PostMessageW(real(L"Ordelan.cmdAbrir"), WM_KEYUP, VK_SPACE, 1);
  backend.pump();
  EXPECT_EQ(clicks, 2);
}

TEST_F(RealControls, a_button_can_be_pressed_again_inside_its_own_long_job) {
  int depth = 0;
  int deepest = 0;
  button.on_click = [&] {
    deepest = std::max(deepest, ++depth);
    if (depth == 1) {
      PostMessageW(real(L"Ordelan.cmdAbrir"), WM_LBUTTONDOWN, MK_LBUTTON, at(3, 3));
      PostMessageW(real(L"Ordelan.cmdAbrir"), WM_LBUTTONUP, 0, at(3, 3));
      pump_until([&] { return deepest == 2; });
    }
    --depth;
  };
  show();
  press(real(L"Ordelan.cmdAbrir"));
  EXPECT_EQ(deepest, 2);
}

TEST_F(RealControls, an_exception_in_a_handler_stays_in_the_program) {
  button.on_click = [] { throw std::bad_alloc(); };
  show();
  press(real(L"Ordelan.cmdAbrir"));
  int clicks = 0;
  button.on_click = [&] { ++clicks; };
  press(real(L"Ordelan.cmdAbrir"));
  EXPECT_EQ(clicks, 1);
}

TEST_F(RealControls, a_check_box_shows_the_tick_of_its_object) {
  std::vector<bool> clicks;
  box.on_click = [&] { clicks.push_back(box.checked()); };
  show();
  const HWND real_box = real(L"Ordelan.Check1");
  press(real_box);
  EXPECT_TRUE(box.checked());
  EXPECT_EQ(SendMessageW(real_box, BM_GETCHECK, 0, 0), BST_CHECKED);
  press(real_box);
  EXPECT_FALSE(box.checked());
  EXPECT_EQ(SendMessageW(real_box, BM_GETCHECK, 0, 0), BST_UNCHECKED);
  EXPECT_THAT(clicks, testing::ElementsAre(true, false));
  box.set_checked(true);
  EXPECT_EQ(SendMessageW(real_box, BM_GETCHECK, 0, 0), BST_CHECKED);
  EXPECT_EQ(clicks.size(), 2u);
}

TEST_F(RealControls, a_label_is_clicked_where_the_button_is_let_go) {
  int clicks = 0;
  label.on_click = [&] { ++clicks; };
  show();
  const HWND real_label = real(L"Ordelan.lblEstado");
  press(real_label);
  EXPECT_EQ(clicks, 1);
  SendMessageW(real_label, WM_LBUTTONDOWN, MK_LBUTTON, at(3, 3));
  SendMessageW(real_label, WM_LBUTTONUP, 0, at(px(300), 3));  // let go beside it
  EXPECT_EQ(clicks, 1);
  SendMessageW(real_label, WM_LBUTTONUP, 0, at(3, 3));  // never pressed
  EXPECT_EQ(clicks, 1);
  SendMessageW(real_label, WM_LBUTTONDBLCLK, MK_LBUTTON, at(3, 3));
  SendMessageW(real_label, WM_LBUTTONUP, 0, at(3, 3));
  EXPECT_EQ(clicks, 2);
}

TEST_F(RealControls, a_label_paints_its_caption_in_its_colours) {
  label.set_caption("MMMMMM");
  label.set_fore_color(ui::rgb(255, 0, 0));
  label.set_back_color(ui::rgb(0, 0, 255));
  show();
  const HDC context = GetDC(real(L"Ordelan.lblEstado"));
  int red = 0;
  int blue = 0;
  for (int y = 0; y < 18; ++y) {
    for (int x = 0; x < 200; ++x) {
      const COLORREF pixel = GetPixel(context, x, y);
      red += pixel == RGB(255, 0, 0) ? 1 : 0;
      blue += pixel == RGB(0, 0, 255) ? 1 : 0;
    }
  }
  ReleaseDC(real(L"Ordelan.lblEstado"), context);
  EXPECT_GT(red, 20);
  EXPECT_GT(blue, 2000);
}

TEST_F(RealControls, a_text_box_counts_its_lines_as_they_break) {
  text.set_text("corto");
  EXPECT_EQ(text.line_count(), 1);  // not on the screen yet
  show();
  EXPECT_EQ(text.line_count(), 1);
  text.set_text("uno\r\ndos\r\ntres");
  EXPECT_EQ(text.line_count(), 3);
  text.set_text("");
  EXPECT_EQ(text.line_count(), 1);
  text.set_text("una frase que es mucho mas larga que el ancho que tiene la caja de texto");
  const int narrow = text.line_count();
  EXPECT_GT(narrow, 2);
  text.set_bounds({10, 110, 240, 100});
  EXPECT_LT(text.line_count(), narrow);
}

TEST_F(RealControls, text_that_the_program_sets_does_not_come_back_as_typed) {
  show();
  edit.set_text("a\x80");
  backend.pump();
  EXPECT_EQ(edit.text(), "a\x80");
  EXPECT_EQ(text_of(real(L"Ordelan.Text2")), L"a\u20AC");
}

TEST_F(RealControls, what_the_user_types_arrives_in_the_object) {
  show();
  SetFocus(real(L"Ordelan.Text2"));
  PostMessageW(real(L"Ordelan.Text2"), WM_CHAR, L'\u00F1', 1);
  PostMessageW(real(L"Ordelan.Text2"), WM_CHAR, L'o', 1);
  EXPECT_TRUE(pump_until([&] { return edit.text() == "\xF1o"; })) << edit.text();
}

TEST_F(RealControls, a_box_that_is_read_only_takes_no_keys) {
  text.set_text("fijo");
  show();
  SetFocus(real(L"Ordelan.Text1"));
  PostMessageW(real(L"Ordelan.Text1"), WM_CHAR, L'x', 1);
  backend.pump();
  EXPECT_EQ(text_of(real(L"Ordelan.Text1")), L"fijo");
  text.set_read_only(false);
  PostMessageW(real(L"Ordelan.Text1"), WM_CHAR, L'x', 1);
  EXPECT_TRUE(pump_until([&] { return text.text() == "xfijo"; })) << text.text();
}

TEST_F(RealControls, escape_in_a_box_of_many_lines_does_not_close_the_window) {
  int closed = 0;
  window.on_close = [&] { ++closed; };
  show();
  SetFocus(real(L"Ordelan.Text1"));
  type(real(L"Ordelan.Text1"), VK_ESCAPE);
  backend.pump();
  EXPECT_EQ(closed, 0);
}

TEST_F(RealControls, tab_goes_round_what_takes_keys) {
  show();
  SetFocus(real(L"Ordelan.cmdAbrir"));
  std::vector<HWND> visited;
  for (int i = 0; i < 4; ++i) {
    type(GetFocus(), VK_TAB);
    visited.push_back(GetFocus());
  }
  EXPECT_THAT(visited, testing::ElementsAre(real(L"Ordelan.Check1"), real(L"Ordelan.Text1"),
                                            real(L"Ordelan.Text2"), real(L"Ordelan.cmdAbrir")));
}

TEST_F(RealControls, the_focus_leaves_a_control_that_vanishes) {
  show();
  SetFocus(real(L"Ordelan.cmdAbrir"));
  button.hide();
  backend.pump();
  EXPECT_EQ(GetFocus(), real(L"Ordelan.Check1"));
  box.set_enabled(false);
  backend.pump();
  EXPECT_EQ(GetFocus(), real(L"Ordelan.Text1"));
}

TEST_F(RealControls, a_progress_bar_shows_64_bit_ranges) {
  show();
  const HWND real_bar = real(L"Ordelan.ProgressBar1");
  bar.set_range(0, 4'000'000'000'000);
  bar.set_value(1'000'000'000'000);
  EXPECT_EQ(SendMessageW(real_bar, PBM_GETPOS, 0, 0), 2500);
  bar.set_value(9'000'000'000'000);
  EXPECT_EQ(SendMessageW(real_bar, PBM_GETPOS, 0, 0), 10000);
  EXPECT_EQ(SendMessageW(real_bar, PBM_GETRANGE, FALSE, 0), 10000);
  bar.set_value(-5);
  EXPECT_EQ(SendMessageW(real_bar, PBM_GETPOS, 0, 0), 0);
}

TEST_F(RealControls, descriptions_are_read_out_where_there_is_no_caption) {
  bar.set_description("Progreso");
  show();
  EXPECT_EQ(text_of(real(L"Ordelan.ProgressBar1")), L"Progreso");
}

TEST_F(RealControls, members_of_an_array_have_their_number_and_may_come_and_go) {
  ui::ControlArray<ui::Button> buttons(window, "Option1", 2);
  show();
  EXPECT_TRUE(real(L"Ordelan.Option1(0)"));
  EXPECT_TRUE(real(L"Ordelan.Option1(1)"));
  EXPECT_FALSE(real(L"Ordelan.Option1(2)"));
  buttons.load().set_caption("tercero");
  EXPECT_EQ(text_of(real(L"Ordelan.Option1(2)")), L"tercero");
  buttons.unload();
  EXPECT_FALSE(real(L"Ordelan.Option1(2)"));
}

TEST_F(RealControls, a_label_that_can_be_clicked_is_a_button_to_other_programs) {
  int clicks = 0;
  label.on_click = [&] { ++clicks; };
  show();
  const HWND real_label = real(L"Ordelan.lblEstado");
  EXPECT_TRUE(has_class(real_label, L"Button"));
  PostMessageW(real_label, BM_CLICK, 0, 0);
  backend.pump();
  EXPECT_EQ(clicks, 1);
}

TEST_F(RealControls, an_ampersand_in_a_label_stands_for_no_key) {
  int clicks = 0;
  label.on_click = [&] { ++clicks; };
  label.set_caption("D:\\Ritmo &Blues");
  show();
  SetFocus(real(L"Ordelan.lblEstado"));
  PostMessageW(real(L"Ordelan.lblEstado"), WM_CHAR, L'b', 1);
  PostMessageW(real(L"Ordelan.lblEstado"), WM_SYSCHAR, L'b', 0x20000001);
  backend.pump();
  EXPECT_EQ(clicks, 0);
}

TEST_F(RealControls, a_tip_belongs_to_its_control) {
  label.set_tip("la ayuda");
  show();
  const HWND tips = tip_window();
  ASSERT_TRUE(tips);
  const auto tip_text = [&] {
    wchar_t buffer[100] = {};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = real_window();
    tool.uId = reinterpret_cast<UINT_PTR>(real(L"Ordelan.lblEstado"));
    tool.lpszText = buffer;
    SendMessageW(tips, TTM_GETTEXTW, 99, reinterpret_cast<LPARAM>(&tool));
    return std::wstring(buffer);
  };
  EXPECT_EQ(tip_text(), L"la ayuda");
  label.set_tip("otra");
  backend.pump();
  EXPECT_EQ(tip_text(), L"otra");
  label.set_tip("");
  backend.pump();
  EXPECT_EQ(tip_text(), L"");
}

TEST_F(RealControls, a_button_has_the_pointer_that_it_asks_for) {
  ui::Button hand(window, "cmdMano");
  hand.set_mouse_pointer(2);
  show();
  const HWND handle = real(L"Ordelan.cmdMano");
  const auto ask = [&] {
    SendMessageW(handle, WM_SETCURSOR, reinterpret_cast<WPARAM>(handle),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor();
  };
  EXPECT_EQ(ask(), LoadCursorW(nullptr, IDC_CROSS));
  hand.set_mouse_pointer(0);
  EXPECT_EQ(ask(), LoadCursorW(nullptr, IDC_ARROW));
}

}  // namespace
}  // namespace ordelan::test
