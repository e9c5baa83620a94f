// The real program without a mouse, and what it reports to a screen reader.
#include <windows.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <string>
#include <vector>

#include "screen_picture.h"
#include "skin/main_window_layout.h"
#include "skin/palette.h"
#include "window/ordelan_fixture.h"
#include "window/wait.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAreArray;

using Names = std::vector<std::string>;

// Without a project.
const Names kEmptyWindow = {"AbrirFichero",  "cmdReset",      "RecuperaBorrados", "Configurar",
                            "AcercaDe",      "cmdSalir",      "cmdMinimizar",     "Salir",
                            "cmdPlayer",     "ListProyectos", "CheckSubPath",     "CheckBAK",
                            "CheckToolTips", "CheckPlayer",   "CheckDragDrop",    "CheckLogo"};

// With one: headings can be pressed, and the clocks can be read. The fourth list has one of
// its two headings, by what was found.
const Names kDecodedWindow = {
    "AbrirFichero",  "cmdReset",      "CommandBorrado",   "cmdPerdidos",
    "SalvaListados", "ActualizarVip", "RecuperaBorrados", "Configurar",
    "AcercaDe",      "cmdSalir",      "cmdMinimizar",     "Salir",
    "cmdPlayer",     "TimeDeco",      "TextLapsoTotal",   "LabelCheck(0)",
    "LabelCheck(1)", "LabelFuera",    "cmdFilas(0)",      "ListProyectos",
    "LabelCount(0)", "LabelCount(1)", "cmdFilas(1)",      "ListVip",
    "LabelAdd(0)",   "LabelAdd(1)",   "cmdFilas(2)",      "ListUtilizados",
    "LabelErase(1)", "cmdFilas(3)",   "ListBorrar",       "CheckSubPath",
    "CheckBAK",      "CheckToolTips", "CheckPlayer",      "ZoomListas",
    "CheckDragDrop", "CheckLogo"};

Names all_names() {
  Names names;
  for (const skin::Place& place : skin::kMainWindow.places) {
    std::string name(place.name);
    if (place.index >= 0) name += "(" + std::to_string(place.index) + ")";
    names.push_back(name);
  }
  return names;
}

bool takes_keys(HWND control) {
  return (GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP) != 0;
}

std::string class_of(HWND control) {
  char name[64] = {};
  GetClassNameA(control, name, sizeof name);
  std::string lower = name;
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char each) { return static_cast<char>(std::tolower(each)); });
  return lower;
}

// The pixels of just the accent colour on the screen in and closely around a control.
int accent_pixels(HWND control) {
  constexpr int kAround = 4;
  RECT area{};
  GetWindowRect(control, &area);
  InflateRect(&area, kAround, kAround);
  constexpr std::uint32_t kWanted =
      (GetRValue(skin::kAccent) << 16) | (GetGValue(skin::kAccent) << 8) | GetBValue(skin::kAccent);
  const std::vector<std::uint32_t> pixels = screen_pixels(area);
  return static_cast<int>(std::count_if(pixels.begin(), pixels.end(), [](std::uint32_t each) {
    return (each & 0xFFFFFF) == kWanted;
  }));
}

class Keyboard : public OrdelanTest {
 protected:
  void wait_focus(const std::string& name) const {
    program->wait_until("the focus on " + name, [&] { return program->focused(name); });
  }
  void go_to(const std::string& name) const {
    for (std::size_t i = 0; i <= all_names().size() && settled_focus() != name; ++i) tab();
    ASSERT_EQ(program->focus(), name);
  }
  // A window that is shown, or that another gave way to, has its focus only after a while.
  std::string settled_focus(const std::string& other_than = "") const {
    std::string now;
    program->wait_until("the focus", [&] {
      now = program->focus();
      return !now.empty() && now != other_than;
    });
    return now;
  }
  // To the next control; which it is, is given.
  std::string tab(bool back = false) const {
    const std::string before = settled_focus();
    program->key(VK_TAB, false, back);
    return settled_focus(before);
  }

  Names round_by_tab(std::size_t steps, bool back = false) const {
    Names order = {settled_focus()};
    while (order.size() < steps) order.push_back(tab(back));
    return order;
  }
  // What can be pressed, ticked, chosen from or read by keys, as it stands.
  Names key_takers() const {
    Names names;
    for (const std::string& name : all_names()) {
      if (program->has(name) && program->visible(name) && program->enabled(name) &&
          takes_keys(program->control(name))) {
        names.push_back(name);
      }
    }
    return names;
  }

  void expect_round(const Names& wanted) const {
    wait_focus(wanted.front());
    wait_for([&] { return key_takers() == wanted; });
    EXPECT_THAT(key_takers(), ElementsAreArray(wanted));
    EXPECT_THAT(round_by_tab(wanted.size()), ElementsAreArray(wanted));
    EXPECT_EQ(tab(), wanted.front()) << "the way ends where it began";
    Names back = {wanted.front()};
    back.insert(back.end(), wanted.rbegin(), wanted.rend() - 1);
    EXPECT_THAT(round_by_tab(wanted.size(), true), ElementsAreArray(back));
  }

  // The focus adds pixels of the colour at the control.
  void expect_seen(const std::string& name) const {
    const HWND control = program->control(name);
    go_to(name);
    program->wait_until("the focus that is seen on " + name, [&] {
      with_focus_ = accent_pixels(control);
      return with_focus_ > 0;
    });
    tab();
    program->wait_until("the focus that is gone from " + name,
                        [&] { return accent_pixels(control) < with_focus_; });
  }

  void expect_names() const {
    EnumChildWindows(
        program->window(),
        [](HWND each, LPARAM) -> BOOL {
          // A box of text says its text.
          if (!IsWindowVisible(each) || !takes_keys(each) || class_of(each) == "edit") return TRUE;
          wchar_t text[256] = {};
          SendMessageTimeoutW(each, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text), SMTO_NORMAL,
                              5000, nullptr);
          RECT place{};
          GetWindowRect(each, &place);
          EXPECT_STRNE(text, L"") << class_of(each) << " at " << place.left << "," << place.top;
          return TRUE;
        },
        0);
  }
  void expect_role(const std::string& name, const std::string& role) const {
    EXPECT_EQ(class_of(program->control(name)), role) << name;
    EXPECT_TRUE(takes_keys(program->control(name))) << name;
    EXPECT_NE(program->text(name), "") << name;
  }

 private:
  mutable int with_focus_ = 0;
};

TEST_F(Keyboard, tab_goes_through_the_empty_window_in_the_order_of_its_layout) {
  start();
  expect_round(kEmptyWindow);
}

TEST_F(Keyboard, tab_goes_through_the_decoded_window_in_the_order_of_its_layout) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  go_to("AbrirFichero");
  program->wait_until("the report of lost files is offered",
                      [&] { return program->visible("cmdPerdidos"); });
  expect_round(kDecodedWindow);
}

TEST_F(Keyboard, space_and_enter_press_a_button) {
  start();
  for (const WORD key : {WORD{VK_SPACE}, WORD{VK_RETURN}}) {
    go_to("AbrirFichero");
    program->key(key);
    program->cancel_file_dialog();
    program->wait_until("the dialog's end", [&] { return !program->file_dialog_shown(); });
    wait_focus("AbrirFichero");
  }
}

TEST_F(Keyboard, space_and_enter_press_a_label_that_can_be_clicked) {
  start();
  for (const WORD key : {WORD{VK_SPACE}, WORD{VK_RETURN}}) {
    go_to("Configurar");
    program->key(key);
    program->use_window("UnidadesBuscar");
    program->close_window();
    program->wait_until("the end of the drive window",
                        [&] { return !program->window_shown("UnidadesBuscar"); });
    program->use_window("Form1");
    wait_focus("Configurar");  // as it was before
  }
}

TEST_F(Keyboard, space_ticks_a_box) {
  start();
  go_to("CheckBAK");
  program->key(VK_SPACE);
  program->wait_until("the tick to go", [&] { return !program->checked("CheckBAK"); });
}

TEST_F(Keyboard, the_focus_is_seen_in_the_accent_colour) {
  start();
  for (const std::string& name : kEmptyWindow) expect_seen(name);
}

TEST_F(Keyboard, every_control_has_its_role_and_a_name_to_be_read_out) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  expect_names();
  for (const char* button :
       {"AbrirFichero", "cmdReset", "cmdCancelar", "CommandBorrado", "cmdPerdidos", "cmdMinimizar",
        "Salir", "CheckSubPath", "CheckBAK", "CheckToolTips", "CheckPlayer", "ZoomListas",
        "CheckDragDrop", "CheckLogo"}) {
    expect_role(button, "button");
  }
  for (const char* list :
       {"ListProyectos", "ListVip", "ListUtilizados", "ListBorrar", "ListPath"}) {
    expect_role(list, "listbox");
  }
  for (const char* label :
       {"SalvaListados", "ActualizarVip", "RecuperaBorrados", "Configurar", "AcercaDe", "cmdSalir",
        "LabelCheck(0)", "LabelCount(0)", "LabelAdd(0)", "LabelErase(1)"}) {
    expect_role(label, "button");  // a click on it does something
  }
  EXPECT_EQ(class_of(program->control("LabelD")), "static");
  EXPECT_FALSE(takes_keys(program->control("LabelD")));
  EXPECT_EQ(program->text("cmdMinimizar"), "Minimizar");
  EXPECT_EQ(program->text("Salir"), "Salir");
  EXPECT_EQ(class_of(program->control("XP_ProgressBar1")), "msctls_progress32");
  EXPECT_EQ(program->text("XP_ProgressBar1"), "Progreso");

  program->click("cmdPerdidos");
  program->use_window("Perdidos");
  expect_names();
  for (const char* button : {"Button2", "Salir", "cmdSalir", "cmdLog"}) {
    expect_role(button, "button");
  }
  expect_role("ListPerdidos", "listbox");
  program->click("Salir");

  program->use_window("Form1");
  program->click("AcercaDe");
  program->use_window("Acerca");
  expect_names();
  expect_role("cmdSalir", "button");
  expect_role("LabelWeb", "button");
  program->click("cmdSalir");

  program->use_window("Form1");
  program->click("Configurar");
  program->use_window("UnidadesBuscar");
  expect_names();
  expect_role("Check1(0)", "button");
}

}  // namespace
}  // namespace ordelan::test
