// A tool window beside the main one, and controls that come and go while their window is up.
#include <windows.h>

#include <gmock/gmock.h>

#include <memory>
#include <vector>

#include "ui/button.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/text_box.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

constexpr wchar_t kTool[] = L"Ordelan.Window.Form2";

class SecondWindow : public BackendTest {
 protected:
  SecondWindow() {
    button.set_bounds({10, 10, 100, 26});
    make_tool();
  }

  void make_tool() {
    note.reset();
    tool = std::make_unique<ui::Window>(backend, "Form2");
    note = std::make_unique<ui::TextBox>(*tool, "Nota");
    note->set_read_only(false);
    note->set_bounds({10, 10, 80, 22});
    tool->set_position({60, 60});
    tool->set_size({200, 100});
    tool->set_topmost(true);
  }

  void show_both() {
    show();
    tool->load();
    tool->show();
    backend.pump();
  }

  // Which of the two covers the other.
  bool tool_is_above() const {
    for (HWND each = GetTopWindow(nullptr); each; each = GetWindow(each, GW_HWNDNEXT)) {
      if (each == top_level(kTool)) return true;
      if (each == real_window()) return false;
    }
    return false;
  }

  ui::Button button{window, "cmdAbrir"};
  std::unique_ptr<ui::Window> tool;
  std::unique_ptr<ui::TextBox> note;
};

TEST_F(SecondWindow, a_topmost_window_stays_above_the_one_that_is_worked_in) {
  show_both();
  EXPECT_TRUE(tool_is_above());
  window.bring_to_front();
  backend.pump();
  EXPECT_EQ(GetActiveWindow(), real_window());
  EXPECT_TRUE(tool_is_above());
  tool->set_topmost(false);
  window.bring_to_front();
  SetWindowPos(real_window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_FALSE(tool_is_above());
}

TEST_F(SecondWindow, a_window_that_is_shown_again_is_where_it_was_and_above) {
  show_both();
  tool->set_position({90, 80});
  note->set_text("queda");
  tool->hide();
  backend.pump();
  EXPECT_FALSE(IsWindowVisible(top_level(kTool)));
  EXPECT_TRUE(IsWindowVisible(real_window()));
  tool->show();
  backend.pump();
  EXPECT_TRUE(IsWindowVisible(top_level(kTool)));
  EXPECT_TRUE(tool_is_above());
  EXPECT_EQ(tool->position(), (ui::Point{90, 80}));
  EXPECT_EQ(text_of(GetWindow(top_level(kTool), GW_CHILD)), L"queda");
}

TEST_F(SecondWindow, hiding_the_active_window_gives_the_keyboard_to_the_other) {
  show_both();
  SetActiveWindow(top_level(kTool));
  tool->hide();
  backend.pump();
  EXPECT_EQ(GetActiveWindow(), real_window());
  EXPECT_EQ(GetFocus(), real(L"Ordelan.cmdAbrir"));
}

TEST_F(SecondWindow, a_window_that_is_unloaded_and_loaded_again_is_as_it_was) {
  show_both();
  tool->set_position({90, 80});
  note->set_text("queda");
  tool->unload();
  EXPECT_FALSE(top_level(kTool));
  EXPECT_TRUE(IsWindowVisible(real_window()));
  tool->load();
  ASSERT_TRUE(top_level(kTool));
  EXPECT_FALSE(IsWindowVisible(top_level(kTool)));
  tool->show();
  backend.pump();
  EXPECT_TRUE(tool_is_above());
  EXPECT_TRUE(GetWindowLongPtrW(top_level(kTool), GWL_EXSTYLE) & WS_EX_TOPMOST);
  RECT area{};
  GetWindowRect(top_level(kTool), &area);
  EXPECT_EQ(area.left, px(90));
  EXPECT_EQ(area.top, px(80));
  EXPECT_EQ(text_of(GetWindow(top_level(kTool), GW_CHILD)), L"queda");
}

TEST_F(SecondWindow, a_window_can_be_made_anew_under_its_old_name) {
  show_both();
  const HWND first = top_level(kTool);
  make_tool();
  EXPECT_FALSE(IsWindow(first));
  EXPECT_FALSE(top_level(kTool));
  tool->load();
  tool->show();
  backend.pump();
  EXPECT_TRUE(IsWindowVisible(top_level(kTool)));
  PostMessageW(GetWindow(top_level(kTool), GW_CHILD), WM_CHAR, L'x', 1);
  EXPECT_TRUE(pump_until([&] { return note->text() == "x"; }));
}

TEST_F(SecondWindow, a_key_is_shown_to_the_window_that_it_was_pressed_in) {
  std::vector<int> first;
  std::vector<int> second;
  window.on_key_down = [&](ui::Key& key) { first.push_back(key.code); };
  tool->on_key_down = [&](ui::Key& key) { second.push_back(key.code); };
  show_both();
  type(real(L"Ordelan.cmdAbrir"), VK_F5);
  type(GetWindow(top_level(kTool), GW_CHILD), VK_F6);
  EXPECT_THAT(first, testing::ElementsAre(VK_F5));
  EXPECT_THAT(second, testing::ElementsAre(VK_F6));
}

class GrowingWindow : public BackendTest {
 protected:
  GrowingWindow() {
    button.set_bounds({10, 10, 100, 26});
    options[0].set_bounds({10, 40, 100, 26});
  }

  RECT place_of(const wchar_t* property) const {
    RECT area{};
    GetWindowRect(real(property), &area);
    MapWindowPoints(nullptr, real_window(), reinterpret_cast<POINT*>(&area), 2);
    return area;
  }
  std::vector<HWND> tab_order() {
    std::vector<HWND> visited;
    SetFocus(real(L"Ordelan.cmdAbrir"));
    do {
      visited.push_back(GetFocus());
      type(GetFocus(), VK_TAB);
    } while (GetFocus() != visited.front() && visited.size() < 10);
    return visited;
  }

  ui::ControlArray<ui::Button> options{window, "Option1", 1};
  ui::Button button{window, "cmdAbrir"};
};

TEST_F(GrowingWindow, a_loaded_control_is_there_at_once_at_its_bounds) {
  show();
  ui::Button& added = options.load();
  added.set_bounds({10, 80, 120, 30});
  added.set_caption("otro");
  const HWND control = real(L"Ordelan.Option1(1)");
  ASSERT_TRUE(control);
  EXPECT_TRUE(IsWindowVisible(control));
  EXPECT_EQ(text_of(control), L"otro");
  const RECT area = place_of(L"Ordelan.Option1(1)");
  EXPECT_EQ(area.left, px(10));
  EXPECT_EQ(area.top, px(80));
  EXPECT_EQ(area.right, px(130));
  EXPECT_EQ(area.bottom, px(110));
  int clicks = 0;
  added.on_click = [&] { ++clicks; };
  press(control);
  EXPECT_EQ(clicks, 1);
}

TEST_F(GrowingWindow, a_loaded_control_comes_last_in_tab_order_and_goes_again) {
  show();
  options.load().set_bounds({10, 80, 120, 30});
  backend.pump();
  EXPECT_THAT(tab_order(),
              testing::ElementsAre(real(L"Ordelan.cmdAbrir"), real(L"Ordelan.Option1(1)"),
                                   real(L"Ordelan.Option1(0)")));
  options.unload();
  EXPECT_FALSE(real(L"Ordelan.Option1(1)"));
  EXPECT_THAT(tab_order(),
              testing::ElementsAre(real(L"Ordelan.cmdAbrir"), real(L"Ordelan.Option1(0)")));
}

TEST_F(GrowingWindow, a_loaded_control_keeps_its_place_when_the_window_is_loaded_again) {
  show();
  options.load().set_bounds({10, 80, 120, 30});
  window.unload();
  show();
  EXPECT_THAT(tab_order(),
              testing::ElementsAre(real(L"Ordelan.cmdAbrir"), real(L"Ordelan.Option1(1)"),
                                   real(L"Ordelan.Option1(0)")));
}

TEST_F(GrowingWindow, the_focus_goes_on_when_its_control_is_unloaded) {
  show();
  options.load().set_bounds({10, 80, 120, 30});
  backend.pump();
  SetFocus(real(L"Ordelan.Option1(1)"));
  options.unload();
  backend.pump();
  EXPECT_EQ(GetFocus(), real(L"Ordelan.Option1(0)"));
}

TEST_F(GrowingWindow, a_control_may_unload_a_member_of_its_array) {
  show();
  options.load().set_bounds({10, 80, 120, 30});
  button.on_click = [&] { options.unload(); };
  press(real(L"Ordelan.cmdAbrir"));
  EXPECT_FALSE(real(L"Ordelan.Option1(1)"));
  options[0].on_click = [&] { options.unload(); };
  press(real(L"Ordelan.Option1(0)"));
  EXPECT_FALSE(real(L"Ordelan.Option1(0)"));
  EXPECT_EQ(options.size(), 0);
}

}  // namespace
}  // namespace ordelan::test
