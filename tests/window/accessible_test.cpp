// The real program as a screen reader finds it: by another process, through the system's interface
// for such programs.
#include <windows.h>

#include <gmock/gmock.h>
#include <ole2.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "accessible_view.h"
#include "window/ordelan_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class ScreenReader : public OrdelanTest {
 protected:
  ScreenReader() { OleInitialize(nullptr); }
  ~ScreenReader() override { OleUninitialize(); }

  AccessibleView view(const std::string& control) const {
    return AccessibleView(program->control(control));
  }
  // Waits for what the program reports to this process.
  void hear(const std::string& what, const std::function<bool()>& heard) const {
    program->wait_until(what, [&] {
      EventLog::pump();
      return heard();
    });
  }
  void expect(const std::string& control, LONG role, const std::string& name) const {
    const AccessibleView seen = view(control);
    ASSERT_TRUE(seen) << control;
    EXPECT_EQ(seen.role(), role) << control;
    EXPECT_EQ(seen.name(), name) << control;
  }

  // What is shown in the window in use and has no name or, where the system does not say it, no
  // role. Pictures may be without a name: some only adorn.
  std::vector<std::string> unnamed() const {
    struct Found {
      std::vector<std::string> names;
      int seen = 0;
    } found;
    EnumChildWindows(
        program->window(),
        [](HWND each, LPARAM l) -> BOOL {
          auto& all = *reinterpret_cast<Found*>(l);
          wchar_t kind[32] = {};
          GetClassNameW(each, kind, 32);
          const std::wstring_view name = kind;
          // Bars lie on their lists, which say where they stand.
          if (!IsWindowVisible(each) || name == L"Ordelan.ScrollBar") return TRUE;
          ++all.seen;
          const AccessibleView shown(each);
          const LONG role = shown ? shown.role() : -1;
          const bool ours = name == L"Static" || name == L"ListBox" || name == L"msctls_trackbar32";
          const bool adorns = role == ROLE_SYSTEM_GRAPHIC;
          const bool text = role == ROLE_SYSTEM_STATICTEXT;  // may be empty
          if ((shown.name().empty() && !adorns && !text && name != L"Edit") ||
              (ours && role == ROLE_SYSTEM_CLIENT)) {
            all.names.push_back(bytes(name) + " with role " + std::to_string(role));
          }
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    EXPECT_GT(found.seen, 5);
    return found.names;
  }
};

TEST_F(ScreenReader, reads_the_rows_of_a_list) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  const AccessibleView list = view("ListVip");
  ASSERT_TRUE(list);
  EXPECT_EQ(list.role(), ROLE_SYSTEM_LIST);
  EXPECT_EQ(list.name(), "Archivos que utiliza el proyecto");
  ASSERT_EQ(list.count(), 21);
  std::vector<std::string> names;
  for (LONG i = 1; i <= 21; ++i) names.push_back(list.name(i));
  EXPECT_THAT(names, ElementsAreArray(program->rows("ListVip")));
  EXPECT_EQ(list.role(1), ROLE_SYSTEM_LISTITEM);

  const auto begun = std::chrono::steady_clock::now();
  std::size_t letters = 0;
  for (LONG i = 0; i < 1000; ++i) letters += list.name(1 + i % 21).size();
  const auto took = std::chrono::steady_clock::now() - begun;
  EXPECT_GT(letters, 1000u);
  std::cout << "1,000 names by another process in "
            << std::chrono::duration_cast<std::chrono::milliseconds>(took).count() << " ms\n";
}

TEST_F(ScreenReader, hears_of_the_row_that_is_chosen) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  const AccessibleView list = view("ListVip");
  EventLog events(program->control("ListVip"));
  program->click_row("ListVip", 3);
  hear("the choice of the fourth row", [&] { return events.has(EVENT_OBJECT_SELECTION, 4); });
  EXPECT_TRUE(events.has(EVENT_OBJECT_FOCUS, 4));
  EXPECT_EQ(list.selection(), 4);
  EXPECT_EQ(list.focus(), 4);
  EXPECT_TRUE(list.has_state(STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED, 4));
  program->key(VK_DOWN);
  hear("the next row", [&] { return events.has(EVENT_OBJECT_FOCUS, 5); });
  const RECT third = list.place(3);
  EXPECT_EQ(list.at({third.left + 5, third.top + 5}), 3);
}

TEST_F(ScreenReader, chooses_and_clicks_rows) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  const AccessibleView list = view("ListVip");
  EXPECT_EQ(list.select(SELFLAG_TAKESELECTION | SELFLAG_TAKEFOCUS, 7), S_OK);
  EXPECT_EQ(program->selected("ListVip"), 6);
  EXPECT_FALSE(program->visible("ListPath")) << "no click";
  EXPECT_EQ(list.act(2), S_OK);
  program->wait_until("the click", [&] { return program->selected("ListVip") == 1; });
}

TEST_F(ScreenReader, hears_of_new_rows) {
  start();
  EventLog events(program->control("ListProyectos"));
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  hear("the projects", [&] { return events.has(EVENT_OBJECT_REORDER); });
  EXPECT_EQ(view("ListProyectos").count(), 4);
}

TEST_F(ScreenReader, hears_what_the_strip_says) {
  start();
  EventLog events(program->control("TextDecode"));
  program->click("AbrirFichero");
  program->pick_files({long_project()});
  hear("the strip", [&] { return events.has(EventLog::kLiveRegionChanged); });
  EXPECT_TRUE(events.has(EVENT_OBJECT_NAMECHANGE));
  const AccessibleView strip = view("TextDecode");
  EXPECT_EQ(strip.role(), ROLE_SYSTEM_STATICTEXT);
  EXPECT_NE(strip.name(), "");
}

TEST_F(ScreenReader, finds_roles_and_names_in_the_main_window) {
  start();
  EXPECT_THAT(unnamed(), IsEmpty());
  expect("ImagePaso(0)", ROLE_SYSTEM_GRAPHIC, "Paso 1");
  expect("Configurar", ROLE_SYSTEM_PUSHBUTTON, "Configurar");
  EXPECT_EQ(view("Configurar").action(), "Pulsar");
  EXPECT_EQ(view("AbrirFichero").name(), "Abrir proyecto...");
  EXPECT_EQ(view("CheckLogo").name(), "Ver Logo al inicio");
  expect("XP_ProgressBar1", ROLE_SYSTEM_PROGRESSBAR, "Progreso");
  EXPECT_TRUE(view("XP_ProgressBar1").has_state(STATE_SYSTEM_INVISIBLE));
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  EXPECT_THAT(unnamed(), IsEmpty());
  expect("LabelCheck(0)", ROLE_SYSTEM_PUSHBUTTON, "Encontrados 4 proyectos en:");
  expect("ListBorrar", ROLE_SYSTEM_LIST, "Archivos que no utiliza ningún proyecto");

  EXPECT_EQ(view("Configurar").act(), S_OK);
  program->use_window("UnidadesBuscar");
  EXPECT_THAT(unnamed(), IsEmpty());
}

TEST_F(ScreenReader, finds_roles_and_names_in_the_player_and_hears_its_notices) {
  start();
  program->click("cmdPlayer");
  program->use_window("Player");
  EXPECT_THAT(unnamed(), IsEmpty());
  expect("SliderTime", ROLE_SYSTEM_SLIDER, "Posición");
  expect("SliderVol", ROLE_SYSTEM_SLIDER, "Volumen");
  expect("LabelTime", ROLE_SYSTEM_STATICTEXT, "00:00");
  expect("ImageOnda", ROLE_SYSTEM_GRAPHIC, "Forma de onda");
  EXPECT_EQ(view("Control(0)").name(), "Play");

  const AccessibleView volume = view("SliderVol");
  EXPECT_EQ(volume.set_value(L"37"), S_OK);
  program->wait_until("the volume", [&] { return volume.value() == "37"; });

  EventLog events(program->control("AvisoPL"));
  program->click("PL");  // there is no playlist
  hear("the notice", [&] { return events.has(EventLog::kLiveRegionChanged); });
  EXPECT_THAT(view("AvisoPL").name(), StartsWith("PlayList vacio"));
}

}  // namespace
}  // namespace ordelan::test
