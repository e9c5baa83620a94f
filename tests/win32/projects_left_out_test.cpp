// The label of the projects that are left out, and its window, as real ones.
#include <windows.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "win32/program_fixture.h"

namespace ordelan::test {
namespace {

class RealProjectsLeftOut : public ProgramTest {
 protected:
  RealProjectsLeftOut() {
    start({disk.folder()});
    program->work.ProyectosFuera = {
        {"D:\\Mix\\a.vip", "no se puede leer"},
        {"D:\\Grabaciones del estudio grande\\Temporada de otoño con la orquesta entera\\"
         "Arreglos definitivos para la mezcla\\concierto de clausura.vip",
         "tiene más referencias de las que caben"}};
    program->form.show_ProyectosFuera();
    backend.pump();
    label = control(L"Form1", L"LabelFuera");
  }

  void click(HWND target) {
    PostMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    PostMessageW(target, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    backend.pump();
  }
  void type(HWND target, WPARAM key) {
    SetFocus(target);
    PostMessageW(target, WM_KEYDOWN, key, 1);
    PostMessageW(target, WM_KEYUP, key, 1);
    backend.pump();
  }
  static bool shown() {
    const HWND window = top_level(L"Fuera");
    return window && IsWindowVisible(window);
  }

  HWND label = nullptr;
};

TEST_F(RealProjectsLeftOut, the_label_is_a_button_to_keys_and_screen_readers) {
  ASSERT_TRUE(label);
  EXPECT_TRUE(IsWindowVisible(label));
  wchar_t text[64] = {};
  GetWindowTextW(label, text, 64);
  EXPECT_STREQ(text, L"2 proyectos no cuentan");
  EXPECT_TRUE(has_class(label, L"Button"));
  EXPECT_NE(GetWindowLongPtrW(label, GWL_STYLE) & WS_TABSTOP, 0);
}

TEST_F(RealProjectsLeftOut, a_click_shows_the_window_before_all_others_and_a_second_closes_it) {
  click(label);
  ASSERT_TRUE(shown());
  const HWND window = top_level(L"Fuera");
  EXPECT_NE(GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  EXPECT_EQ(GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME, 0);
  const HWND list = control(L"Fuera", L"ListFuera");
  EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 2);
  RECT room{};
  GetClientRect(list, &room);
  EXPECT_GT(SendMessageW(list, LB_GETHORIZONTALEXTENT, 0, 0), room.right)
      << "the longer row can be scrolled to its end";
  click(label);
  EXPECT_FALSE(shown());
}

TEST_F(RealProjectsLeftOut, space_and_enter_on_the_label_open_and_close_the_window) {
  type(label, VK_SPACE);
  EXPECT_TRUE(shown());
  type(label, VK_RETURN);
  EXPECT_FALSE(shown());
}

TEST_F(RealProjectsLeftOut, every_control_that_takes_keys_has_a_name) {
  click(label);
  ASSERT_TRUE(shown());
  std::vector<std::wstring> names;
  for (HWND each = GetWindow(top_level(L"Fuera"), GW_CHILD); each;
       each = GetWindow(each, GW_HWNDNEXT)) {
    if ((GetWindowLongPtrW(each, GWL_STYLE) & WS_TABSTOP) == 0) continue;
    wchar_t text[64] = {};
    GetWindowTextW(each, text, 64);
    names.emplace_back(text);
  }
  EXPECT_THAT(
      names, testing::ElementsAre(L"Proyectos que no cuentan", L"Cerrar", L"Minimizar", L"Cerrar"));
}

TEST_F(RealProjectsLeftOut, its_buttons_minimise_and_close_it) {
  click(label);
  click(control(L"Fuera", L"Button2"));
  EXPECT_TRUE(IsIconic(top_level(L"Fuera")));
  ShowWindow(top_level(L"Fuera"), SW_RESTORE);
  backend.pump();
  click(control(L"Fuera", L"cmdSalir"));
  EXPECT_FALSE(shown());
}

TEST_F(RealProjectsLeftOut, the_second_way_out_ends_the_program) {
  const HWND way_out = control(L"Form1", L"cmdSalir");
  ASSERT_TRUE(way_out);
  EXPECT_TRUE(IsWindowVisible(way_out));
  EXPECT_FALSE(backend.ended());
  click(way_out);
  EXPECT_TRUE(backend.ended());
}

}  // namespace
}  // namespace ordelan::test
