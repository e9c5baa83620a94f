// What a screen reader is given of the real controls, and what it hears of them.
#include <windows.h>

#include <gmock/gmock.h>

#include <chrono>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "accessible_view.h"
#include "ui/bar_chart.h"
#include "ui/check_list_box.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/progress_bar.h"
#include "ui/slider.h"
#include "ui/text_box.h"
#include "ui/waveform.h"
#include "win32/backend_fixture.h"
#include "win32/ole_session.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AccessibleTest : public BackendTest {
 protected:
  // All that has been reported so far has come.
  void hear_all(EventLog& events) {
    events.send_last();
    ASSERT_TRUE(pump_until([&] { return events.last_has_come(); }));
  }

  const win32::OleSession ole;
};

class AccessibleRows : public AccessibleTest {
 protected:
  AccessibleRows() {
    list.set_bounds({40, 46, 300, 200});
    list.set_description("Archivos que utiliza el proyecto");
    list.on_click = [this] { clicked.push_back(list.current_row()); };
  }

  void fill(std::size_t count) {
    ui::ListBox::Rows rows;
    for (std::size_t i = 0; i < count; ++i) rows.push_back("canción " + std::to_string(i));
    list.add(std::move(rows));
    backend.pump();
  }
  HWND real_list() const { return real(L"Ordelan.ListVip"); }

  ui::ListBox list{window, "ListVip"};
  std::vector<std::string> clicked;
};

TEST_F(AccessibleRows, a_list_has_a_name_and_rows_with_their_texts) {
  show();
  fill(100);
  const AccessibleView view(real_list());
  ASSERT_TRUE(view);
  EXPECT_EQ(view.name(), "Archivos que utiliza el proyecto");
  EXPECT_EQ(view.role(), ROLE_SYSTEM_LIST);
  EXPECT_EQ(view.count(), 100);
  EXPECT_EQ(view.name(1), "canción 0");
  EXPECT_EQ(view.name(100), "canción 99");
  EXPECT_EQ(view.role(1), ROLE_SYSTEM_LISTITEM);
  EXPECT_TRUE(view.has_state(STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE, 1));
  list.replace(0, "otra");
  EXPECT_EQ(view.name(1), "otra") << "before anything of it is painted";
}

TEST_F(AccessibleRows, a_list_without_a_description_has_its_own_name) {
  list.set_description("");
  show();
  EXPECT_EQ(AccessibleView(real_list()).name(), "ListVip");
}

TEST_F(AccessibleRows, numbers_of_no_row_are_refused) {
  show();
  fill(3);
  const AccessibleView view(real_list());
  BSTR text = nullptr;
  EXPECT_EQ(view->get_accName(AccessibleView::part(4), &text), E_INVALIDARG);
  EXPECT_EQ(view->get_accName(AccessibleView::part(-1), &text), E_INVALIDARG);
  VARIANT none{};
  EXPECT_EQ(view->get_accName(none, &text), E_INVALIDARG);
  EXPECT_EQ(view.act(4), E_INVALIDARG);
  EXPECT_EQ(view.select(SELFLAG_TAKESELECTION, 4), E_INVALIDARG);
  list.clear();
  EXPECT_EQ(view->get_accName(AccessibleView::part(1), &text), E_INVALIDARG) << "they have gone";
}

TEST_F(AccessibleRows, the_current_row_is_selected_and_has_the_focus_of_the_list) {
  show();
  fill(10);
  const AccessibleView view(real_list());
  EXPECT_EQ(view.selection(), std::nullopt);
  list.set_current(4);
  EXPECT_EQ(view.selection(), 5);
  EXPECT_TRUE(view.has_state(STATE_SYSTEM_SELECTED, 5));
  EXPECT_FALSE(view.has_state(STATE_SYSTEM_SELECTED, 4));
  SetFocus(nullptr);
  EXPECT_EQ(view.focus(), std::nullopt);
  EXPECT_FALSE(view.has_state(STATE_SYSTEM_FOCUSED, 5));
  SetFocus(real_list());
  EXPECT_EQ(view.focus(), 5);
  EXPECT_TRUE(view.has_state(STATE_SYSTEM_FOCUSED, 5));
  EXPECT_FALSE(view.has_state(STATE_SYSTEM_FOCUSED)) << "the row has it, not the list";
  list.set_current(-1);
  EXPECT_EQ(view.focus(), 0);
  EXPECT_TRUE(view.has_state(STATE_SYSTEM_FOCUSED));
}

TEST_F(AccessibleRows, places_on_the_screen_and_rows_belong_together) {
  show();
  fill(100);
  const AccessibleView view(real_list());
  const RECT second = view.place(2);
  EXPECT_EQ(second.bottom - second.top, SendMessageW(real_list(), LB_GETITEMHEIGHT, 0, 0));
  EXPECT_EQ(second.top, view.place(1).bottom);
  EXPECT_EQ(view.at({second.left + 5, second.top + 3}), 2);
  EXPECT_FALSE(view.has_state(STATE_SYSTEM_OFFSCREEN, 2));
  EXPECT_TRUE(view.has_state(STATE_SYSTEM_OFFSCREEN, 100));
  list.set_top(50);
  backend.pump();
  EXPECT_EQ(view.at({second.left + 5, second.top + 3}), 52);
  EXPECT_TRUE(view.has_state(STATE_SYSTEM_OFFSCREEN, 2));
  const RECT whole = view.place();
  EXPECT_EQ(view.at({whole.left - 1, whole.top}), std::nullopt);
  list.clear();
  EXPECT_EQ(view.at({second.left + 5, second.top + 3}), 0) << "the list itself";
}

TEST_F(AccessibleRows, a_reader_goes_from_row_to_row) {
  show();
  fill(3);
  const AccessibleView view(real_list());
  EXPECT_EQ(view.next(NAVDIR_FIRSTCHILD, 0), 1);
  EXPECT_EQ(view.next(NAVDIR_LASTCHILD, 0), 3);
  EXPECT_EQ(view.next(NAVDIR_NEXT, 1), 2);
  EXPECT_EQ(view.next(NAVDIR_DOWN, 2), 3);
  EXPECT_EQ(view.next(NAVDIR_NEXT, 3), std::nullopt);
  EXPECT_EQ(view.next(NAVDIR_PREVIOUS, 3), 2);
  EXPECT_EQ(view.next(NAVDIR_UP, 1), std::nullopt);
  list.clear();
  EXPECT_EQ(view.next(NAVDIR_FIRSTCHILD, 0), std::nullopt);
}

TEST_F(AccessibleRows, choosing_a_row_is_no_click) {
  show();
  fill(100);
  SetFocus(nullptr);
  const AccessibleView view(real_list());
  EXPECT_EQ(view.select(SELFLAG_TAKESELECTION, 90), S_OK);
  EXPECT_EQ(list.current(), 89);
  EXPECT_EQ(SendMessageW(real_list(), LB_GETCURSEL, 0, 0), 89);
  EXPECT_FALSE(view.has_state(STATE_SYSTEM_OFFSCREEN, 90)) << "it comes into sight";
  EXPECT_NE(GetFocus(), real_list());
  EXPECT_EQ(view.select(SELFLAG_TAKEFOCUS, 3), S_OK);
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(GetFocus(), real_list());
  backend.pump();
  EXPECT_THAT(clicked, IsEmpty());
  EXPECT_EQ(view.select(SELFLAG_ADDSELECTION, 4), E_INVALIDARG) << "one row is chosen, never two";
  list.set_enabled(false);
  EXPECT_EQ(view.select(SELFLAG_TAKESELECTION, 4), E_FAIL);
  EXPECT_EQ(list.current(), 2);
}

TEST_F(AccessibleRows, the_action_of_a_row_is_a_click_that_comes_after_the_call) {
  show();
  fill(100);
  int presses = 0;
  window.on_mouse_down = [&] { ++presses; };
  const AccessibleView view(real_list());
  EXPECT_EQ(view.action(80), "Elegir");
  EXPECT_EQ(view.action(), "");
  EXPECT_EQ(view.act(0), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(view.act(80), S_OK);
  EXPECT_THAT(clicked, IsEmpty());
  backend.pump();
  EXPECT_THAT(clicked, ElementsAre("canción 79"));
  EXPECT_EQ(list.current(), 79);
  EXPECT_EQ(GetFocus(), real_list());
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(presses, 1);
}

TEST_F(AccessibleRows, an_action_does_not_meet_another_row_than_it_was_meant_for) {
  show();
  fill(10);
  const AccessibleView view(real_list());
  EXPECT_EQ(view.act(4), S_OK);
  list.remove(0);
  EXPECT_EQ(view.act(9), S_OK);
  list.remove(8);
  backend.pump();
  EXPECT_THAT(clicked, IsEmpty());
  EXPECT_EQ(view.act(1), S_OK);
  backend.pump();
  EXPECT_THAT(clicked, ElementsAre("canción 1")) << "actions that were dropped leave no trace";
}

TEST_F(AccessibleRows, what_the_mouse_cannot_reach_a_reader_cannot_act_on) {
  show();
  fill(10);
  const AccessibleView view(real_list());
  EXPECT_EQ(view.act(4), S_OK);
  EnableWindow(real_window(), FALSE);  // a dialog is up
  backend.pump();
  EXPECT_EQ(view.act(4), E_FAIL);
  EnableWindow(real_window(), TRUE);
  list.hide();
  EXPECT_EQ(view.act(4), E_FAIL);
  backend.pump();
  EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(AccessibleRows, rows_beyond_the_65535th_are_like_the_others) {
  show();
  fill(200000);
  const AccessibleView view(real_list());
  EXPECT_EQ(view.count(), 200000);
  EXPECT_EQ(view.name(200000), "canción 199999");
  EXPECT_EQ(view.select(SELFLAG_TAKESELECTION, 150000), S_OK);
  EXPECT_EQ(view.selection(), 150000);
  const RECT place = view.place(150000);
  EXPECT_EQ(view.at({place.left + 3, place.top + 3}), 150000);
  list.set_top(0);
  EXPECT_EQ(view.act(150001), S_OK);
  backend.pump();
  EXPECT_THAT(clicked, ElementsAre("canción 150000"));
}

TEST_F(AccessibleRows, are_answered_quickly_however_many_there_are) {
  show();
  fill(200000);
  const AccessibleView view(real_list());
  const auto begun = std::chrono::steady_clock::now();
  std::size_t letters = 0;
  for (LONG i = 0; i < 1000; ++i) letters += view.name(1 + i * 199).size();
  const auto took = std::chrono::steady_clock::now() - begun;
  std::cout << "1,000 names of 200,000 rows in "
            << std::chrono::duration_cast<std::chrono::microseconds>(took).count() << " us\n";
  EXPECT_GT(letters, 1000u);
  EXPECT_LT(took, std::chrono::milliseconds(500));
}

TEST_F(AccessibleRows, a_reader_may_hold_the_object_for_longer_than_the_list_lives) {
  show();
  fill(10);
  const AccessibleView view(real_list());
  EXPECT_EQ(view.act(2), S_OK);
  window.unload();
  BSTR text = nullptr;
  LONG count = 0;
  VARIANT value{};
  IDispatch* object = nullptr;
  EXPECT_EQ(view->get_accName(AccessibleView::part(1), &text), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(view->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(view->get_accFocus(&value), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(view->get_accParent(&object), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(view->accHitTest(50, 50, &value), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(view.select(SELFLAG_TAKEFOCUS, 1), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(view.act(1), CO_E_OBJNOTCONNECTED);
  backend.pump();
  EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(AccessibleRows, the_list_may_go_in_the_click_that_a_reader_has_asked_for) {
  show();
  fill(10);
  list.on_click = [this] { window.unload(); };
  const AccessibleView view(real_list());
  EXPECT_EQ(view.act(2), S_OK);
  EXPECT_EQ(view.act(3), S_OK);
  backend.pump();
  EXPECT_FALSE(window.loaded());
  EXPECT_EQ(view.act(3), CO_E_OBJNOTCONNECTED);
}

TEST_F(AccessibleRows, the_control_stands_in_its_window) {
  show();
  const AccessibleView view(real_list());
  IDispatch* parent = nullptr;
  ASSERT_EQ(view->get_accParent(&parent), S_OK);
  ASSERT_NE(parent, nullptr);
  parent->Release();
  IDispatch* self = nullptr;
  EXPECT_EQ(view->get_accChild(AccessibleView::part(0), &self), S_OK);
  ASSERT_NE(self, nullptr);
  self->Release();
}

TEST_F(AccessibleRows, another_row_is_reported) {
  show();
  fill(10);
  SetFocus(real_list());
  EventLog events(real_list());
  list.set_current(3);
  ASSERT_TRUE(pump_until([&] { return events.has(EVENT_OBJECT_SELECTION, 4); }));
  EXPECT_EQ(events.count(EVENT_OBJECT_FOCUS, 4), 1);
  type(real_list(), VK_DOWN);
  ASSERT_TRUE(pump_until([&] { return events.has(EVENT_OBJECT_SELECTION, 5); }));
  EXPECT_EQ(events.count(EVENT_OBJECT_FOCUS, 5), 1);
  press(real_list());
  hear_all(events);
  EXPECT_EQ(events.count(EVENT_OBJECT_FOCUS, 1), 1);
  EXPECT_EQ(events.count(EVENT_OBJECT_SELECTION, 1), 1) << "once";
}

TEST_F(AccessibleRows, the_focus_is_reported_with_the_row_that_has_it) {
  show();
  fill(10);
  SetFocus(nullptr);
  EventLog events(real_list());
  list.set_current(6);
  backend.pump();
  hear_all(events);
  EXPECT_TRUE(events.has(EVENT_OBJECT_SELECTION, 7));
  EXPECT_FALSE(events.has(EVENT_OBJECT_FOCUS, 7)) << "the list does not have it";
  events.clear();
  SetFocus(real_list());
  ASSERT_TRUE(pump_until([&] { return events.has(EVENT_OBJECT_SELECTION, 7); }));
  EXPECT_EQ(events.count(EVENT_OBJECT_FOCUS, 7), 1);
}

TEST_F(AccessibleRows, a_thousand_new_rows_are_one_report) {
  show();
  fill(1);
  EventLog events(real_list());
  for (int i = 0; i < 1000; ++i) list.add("otra fila");
  list.set_current(5);
  backend.pump();
  hear_all(events);
  EXPECT_EQ(events.count(EVENT_OBJECT_SELECTION, 6), 1);
  EXPECT_EQ(events.count(EVENT_OBJECT_REORDER), 1);
}

TEST_F(AccessibleRows, a_list_that_is_hidden_reports_nothing) {
  show();
  fill(5);
  list.hide();
  backend.pump();
  EventLog events(real_list());
  list.add("una más");
  list.set_current(2);
  backend.pump();
  list.show();
  list.set_current(3);
  ASSERT_TRUE(pump_until([&] { return events.has(EVENT_OBJECT_SELECTION, 4); }));
  EXPECT_FALSE(events.has(EVENT_OBJECT_SELECTION, 3));
  EXPECT_FALSE(events.has(EVENT_OBJECT_REORDER));
}

// Boxes beside a list.
class AccessibleBoxes : public AccessibleTest {
 protected:
  AccessibleBoxes() {
    boxes.set_bounds({40, 46, 19, 200});
    boxes.set_description("Archivos marcados para borrar");
    list.set_bounds({40, 46, 300, 200});
    boxes.stand_beside(list);
    list.on_scroll = [this] { boxes.set_top(list.top()); };
    boxes.on_tick = [this](std::size_t row) { ticked.push_back(row); };
    show();
    ui::ListBox::Rows rows;
    for (int i = 0; i < 100; ++i) rows.push_back("fila " + std::to_string(i));
    list.add(rows);
    boxes.fill(std::move(rows));
    backend.pump();
  }
  HWND real_boxes() const { return real(L"Ordelan.ListStatus"); }
  HWND real_list() const { return real(L"Ordelan.ListBorrar"); }

  ui::CheckListBox boxes{window, "ListStatus"};
  ui::ListBox list{window, "ListBorrar"};
  std::vector<std::size_t> ticked;
};

TEST_F(AccessibleBoxes, are_named_by_their_rows_and_say_whether_they_are_ticked) {
  const AccessibleView view(real_boxes());
  EXPECT_EQ(view.role(), ROLE_SYSTEM_LIST);
  EXPECT_EQ(view.name(), "Archivos marcados para borrar");
  EXPECT_EQ(view.role(3), ROLE_SYSTEM_CHECKBUTTON);
  EXPECT_EQ(view.name(3), "fila 2");
  EXPECT_FALSE(view.has_state(STATE_SYSTEM_CHECKED, 3));
  boxes.set_ticked(2, true);
  EXPECT_TRUE(view.has_state(STATE_SYSTEM_CHECKED, 3));
  EXPECT_FALSE(view.has_state(STATE_SYSTEM_CHECKED, 4));
  const AccessibleView beside(real_list());
  EXPECT_TRUE(beside.has_state(STATE_SYSTEM_CHECKED, 3)) << "the keys are in the list";
  EXPECT_FALSE(beside.has_state(STATE_SYSTEM_CHECKED, 4));
}

TEST_F(AccessibleBoxes, their_action_changes_the_tick_after_the_call) {
  const AccessibleView view(real_boxes());
  EXPECT_EQ(view.action(3), "Marcar");
  EXPECT_EQ(view.act(3), S_OK);
  EXPECT_THAT(ticked, IsEmpty());
  EventLog events(real_boxes());
  ASSERT_TRUE(pump_until([&] { return events.has(EVENT_OBJECT_STATECHANGE, 3); }));
  EXPECT_THAT(ticked, ElementsAre(2u));
  EXPECT_TRUE(boxes.ticked(2));
  EXPECT_EQ(view.action(3), "Desmarcar");
}

TEST_F(AccessibleBoxes, a_tick_by_the_keys_is_reported_where_the_keys_are) {
  list.set_current(6);
  SetFocus(real_list());
  backend.pump();
  EventLog events(real_list());
  boxes.toggle(6);
  EXPECT_TRUE(pump_until([&] { return events.has(EVENT_OBJECT_STATECHANGE, 7); }));
}

TEST_F(AccessibleBoxes, choosing_a_box_chooses_the_row_beside_it) {
  const AccessibleView view(real_boxes());
  EXPECT_EQ(view.select(SELFLAG_TAKEFOCUS, 9), S_OK);
  backend.pump();
  EXPECT_EQ(list.current(), 8);
  EXPECT_EQ(GetFocus(), real_list());
  EXPECT_EQ(AccessibleView(real_list()).focus(), 9);
}

TEST_F(AccessibleTest, labels_and_pictures_say_what_they_are) {
  ui::Label plain{window, "LabelD"};
  ui::Label link{window, "LabelCount"};
  ui::Image picture{window, "ImageLogo"};
  ui::Image button{window, "ImageInfo"};
  plain.set_bounds({10, 10, 100, 20});
  link.set_bounds({10, 40, 100, 20});
  picture.set_bounds({10, 70, 20, 20});
  button.set_bounds({10, 100, 20, 20});
  plain.set_caption("D:\\Bajo & Batería");
  plain.set_tip("Carpeta");
  link.set_caption("21 archivos");
  picture.set_description("Ordelan");
  button.set_tip("Explicaciones");
  std::vector<std::string> clicks;
  link.on_click = [&] { clicks.emplace_back("label"); };
  button.on_click = [&] { clicks.emplace_back("picture"); };
  show();

  const AccessibleView text(real(L"Ordelan.LabelD"));
  EXPECT_EQ(text.role(), ROLE_SYSTEM_STATICTEXT);
  EXPECT_EQ(text.name(), "D:\\Bajo & Batería") << "such a mark stands for no key here";
  EXPECT_EQ(text.description(), "Carpeta");
  EXPECT_EQ(text.action(), "");
  EXPECT_EQ(text.act(), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(text.count(), 0);
  const AccessibleView pressed(real(L"Ordelan.LabelCount"));
  EXPECT_EQ(pressed.role(), ROLE_SYSTEM_PUSHBUTTON);
  EXPECT_EQ(pressed.name(), "21 archivos");
  EXPECT_EQ(pressed.action(), "Pulsar");
  EXPECT_TRUE(pressed.has_state(STATE_SYSTEM_FOCUSABLE));
  const AccessibleView logo(real(L"Ordelan.ImageLogo"));
  EXPECT_EQ(logo.role(), ROLE_SYSTEM_GRAPHIC);
  EXPECT_EQ(logo.name(), "Ordelan");
  EXPECT_EQ(logo.action(), "");
  const AccessibleView info(real(L"Ordelan.ImageInfo"));
  EXPECT_EQ(info.role(), ROLE_SYSTEM_PUSHBUTTON);
  EXPECT_EQ(info.name(), "Explicaciones");
  EXPECT_EQ(info.description(), "") << "it is said once";

  EXPECT_EQ(pressed.act(), S_OK);
  EXPECT_EQ(info.act(), S_OK);
  EXPECT_THAT(clicks, IsEmpty());
  backend.pump();
  EXPECT_THAT(clicks, ElementsAre("label", "picture"));
  link.set_enabled(false);
  EXPECT_TRUE(pressed.has_state(STATE_SYSTEM_UNAVAILABLE));
  EXPECT_EQ(pressed.act(), E_FAIL);
  button.hide();
  EXPECT_TRUE(info.has_state(STATE_SYSTEM_INVISIBLE));
}

TEST_F(AccessibleTest, charts_are_pictures_with_their_descriptions) {
  ui::BarChart chart{window, "Chart"};
  ui::Waveform wave{window, "ImageOnda"};
  chart.set_description("Espectro de lo que suena");
  wave.set_description("Forma de onda");
  wave.on_press = [](ui::Point) {};
  show();
  EXPECT_EQ(AccessibleView(real(L"Ordelan.Chart")).role(), ROLE_SYSTEM_GRAPHIC);
  EXPECT_EQ(AccessibleView(real(L"Ordelan.Chart")).name(), "Espectro de lo que suena");
  EXPECT_EQ(AccessibleView(real(L"Ordelan.ImageOnda")).role(), ROLE_SYSTEM_GRAPHIC);
  EXPECT_EQ(AccessibleView(real(L"Ordelan.ImageOnda")).name(), "Forma de onda");
}

TEST_F(AccessibleTest, a_progress_bar_says_its_percentage_and_reports_each_once) {
  ui::ProgressBar bar{window, "XP_ProgressBar1"};
  bar.set_bounds({10, 10, 100, 20});
  bar.set_description("Progreso");
  bar.set_range(0, 100000);
  show();
  const HWND control = real(L"Ordelan.XP_ProgressBar1");
  const AccessibleView view(control);
  EXPECT_EQ(view.role(), ROLE_SYSTEM_PROGRESSBAR);
  EXPECT_EQ(view.name(), "Progreso");
  EXPECT_EQ(view.value(), "0%");
  EventLog events(control);
  bar.set_value(41900);
  EXPECT_EQ(view.value(), "41%");
  bar.set_value(41950);
  backend.pump();
  bar.set_value(42000);
  backend.pump();
  hear_all(events);
  EXPECT_EQ(events.count(EVENT_OBJECT_VALUECHANGE), 2);
  EXPECT_EQ(view.set_value(L"5"), E_INVALIDARG) << "it cannot be set";
}

TEST_F(AccessibleTest, a_slider_says_its_value_and_takes_one) {
  ui::Slider slider{window, "SliderVol"};
  slider.set_bounds({10, 10, 111, 20});
  slider.set_position(1);
  slider.set_description("Volumen");
  std::vector<std::int32_t> changes;
  slider.on_change = [&](std::int32_t value) { changes.push_back(value); };
  slider.set_value(30);
  show();
  const AccessibleView view(real(L"Ordelan.SliderVol"));
  EXPECT_EQ(view.role(), ROLE_SYSTEM_SLIDER);
  EXPECT_EQ(view.name(), "Volumen");
  EXPECT_EQ(view.value(), "30");
  EXPECT_EQ(view.set_value(L"45"), S_OK);
  EXPECT_THAT(changes, IsEmpty()) << "handlers do not run inside the call";
  backend.pump();
  EXPECT_THAT(changes, ElementsAre(45));
  EXPECT_EQ(view.value(), "45");
  EXPECT_EQ(view.set_value(L"mucho"), E_INVALIDARG);
  EXPECT_EQ(view.set_value(L""), E_INVALIDARG);
}

// Counts what the timers of a control send it.
class TimerTicks {
 public:
  explicit TimerTicks(HWND control) {
    control_ = control;
    count_ = 0;
    hook_ = SetWindowsHookExW(WH_GETMESSAGE, &taken, nullptr, GetCurrentThreadId());
  }
  ~TimerTicks() { UnhookWindowsHookEx(hook_); }
  TimerTicks(const TimerTicks&) = delete;
  TimerTicks& operator=(const TimerTicks&) = delete;

  static int count() { return count_; }

 private:
  static LRESULT CALLBACK taken(int code, WPARAM removed, LPARAM l) {
    const auto* message = reinterpret_cast<const MSG*>(l);
    if (code == HC_ACTION && removed == PM_REMOVE && message->message == WM_TIMER &&
        message->hwnd == control_) {
      ++count_;
    }
    return CallNextHookEx(nullptr, code, removed, l);
  }

  inline static HWND control_ = nullptr;
  inline static int count_ = 0;
  HHOOK hook_ = nullptr;
};

class AccessibleNews : public AccessibleTest {
 protected:
  AccessibleNews() {
    strip.set_bounds({10, 10, 300, 20});
    strip.set_multiline(true);
    strip.set_announced(true);
  }
  HWND real_strip() const { return real(L"Ordelan.TextDecode"); }

  ui::TextBox strip{window, "TextDecode"};
};

TEST_F(AccessibleNews, a_text_that_changes_is_its_own_name_and_is_read_out) {
  show();
  EventLog events(real_strip());
  strip.set_text("Buscando archivos");
  ASSERT_TRUE(pump_until([&] { return events.has(EventLog::kLiveRegionChanged); }));
  EXPECT_TRUE(events.has(EVENT_OBJECT_NAMECHANGE));
  const AccessibleView view(real_strip());
  EXPECT_EQ(view.name(), "Buscando archivos");
  EXPECT_EQ(view.role(), ROLE_SYSTEM_STATICTEXT);
  EXPECT_TRUE(view.has_state(STATE_SYSTEM_READONLY));
}

TEST_F(AccessibleNews, a_text_is_read_out_when_it_comes_to_be_shown_and_not_before) {
  strip.hide();
  show();
  EventLog events(real_strip());
  strip.set_text("Encontrados 4 proyectos");
  backend.pump();
  hear_all(events);
  EXPECT_FALSE(events.has(EventLog::kLiveRegionChanged));
  EXPECT_FALSE(events.has(EVENT_OBJECT_NAMECHANGE));
  strip.show();
  EXPECT_TRUE(pump_until([&] { return events.has(EventLog::kLiveRegionChanged); }));
}

TEST_F(AccessibleNews, a_flood_is_read_out_now_and_then_and_its_last_text_always) {
  show();
  EventLog events(real_strip());
  const auto begun = std::chrono::steady_clock::now();
  std::string heard;
  int last = 0;
  for (int i = 0; i < 200; ++i) {
    strip.set_text("Archivo " + std::to_string(i));
    backend.pump();
    last = events.count(EventLog::kLiveRegionChanged);
  }
  const auto flood = std::chrono::steady_clock::now() - begun;
  EXPECT_LE(last, 2 + std::chrono::duration_cast<std::chrono::seconds>(flood).count());
  ASSERT_TRUE(pump_until([&] { return events.count(EventLog::kLiveRegionChanged) > last; }));
  EXPECT_EQ(AccessibleView(real_strip()).name(), "Archivo 199");
  strip.set_text("Terminado");
  const int before = events.count(EventLog::kLiveRegionChanged);
  EXPECT_TRUE(pump_until([&] { return events.count(EventLog::kLiveRegionChanged) > before; }));
}

TEST_F(AccessibleNews, a_text_after_a_while_of_silence_is_read_out_at_once) {
  show();
  EventLog events(real_strip());
  const TimerTicks ticks(real_strip());
  strip.set_text("Buscando");
  ASSERT_TRUE(pump_until([&] { return events.has(EventLog::kLiveRegionChanged); }));
  ASSERT_TRUE(pump_until([&] { return TimerTicks::count() > 0; })) << "the end of the pause";
  strip.set_text("Terminado");
  EXPECT_TRUE(pump_until([&] { return events.count(EventLog::kLiveRegionChanged) == 2; }));
  EXPECT_EQ(TimerTicks::count(), 1);
}

TEST_F(AccessibleNews, a_text_that_waits_is_not_read_out_once_it_is_hidden) {
  show();
  EventLog events(real_strip());
  const TimerTicks ticks(real_strip());
  strip.set_text("Buscando");
  backend.pump();
  strip.set_text("Buscando más");
  backend.pump();
  strip.hide();
  ASSERT_TRUE(pump_until([&] { return TimerTicks::count() > 0; }));
  hear_all(events);
  EXPECT_EQ(events.count(EventLog::kLiveRegionChanged), 1);
}

TEST_F(AccessibleTest, a_label_with_news_is_read_out_too) {
  ui::Label notice{window, "LabelAviso"};
  notice.set_bounds({10, 10, 300, 20});
  notice.set_announced(true);
  show();
  EventLog events(real(L"Ordelan.LabelAviso"));
  notice.set_caption("No se puede reproducir");
  EXPECT_TRUE(pump_until([&] { return events.has(EventLog::kLiveRegionChanged); }));
  EXPECT_TRUE(events.has(EVENT_OBJECT_NAMECHANGE));
}

TEST_F(AccessibleTest, a_described_text_that_cannot_be_changed_is_named_by_its_description) {
  ui::TextBox info{window, "TextInfo"};
  info.set_bounds({10, 10, 300, 60});
  info.set_multiline(true);
  info.set_description("Información");
  info.set_text("44100 Hz");
  show();
  const AccessibleView view(real(L"Ordelan.TextInfo"));
  EXPECT_EQ(view.role(), ROLE_SYSTEM_TEXT);
  EXPECT_EQ(view.name(), "Información");
  EXPECT_EQ(view.value(), "44100 Hz");
}

}  // namespace
}  // namespace ordelan::test
