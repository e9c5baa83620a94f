// The real program, worked as a person works it: mouse, keys and the file dialog.
#include <windows.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "skin/palette.h"
#include "support/small_project.h"
#include "window/answers.h"
#include "window/ordelan_fixture.h"
#include "window/wait.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// Between the commands and the buttons of the window's corner: the window has no title to hold.
constexpr POINT kGroundOfHeader{1006, 26};

class Ordelan : public OrdelanTest {
 protected:
  // Waits for what is shown once a long project has been read, on a machine that has much else to
  // do: it is read twice before it is decoded.
  void wait_read(const std::string& shown) {
    wait_for([&] { return program->visible(shown); }, std::chrono::seconds(60));
    wait_shown(shown);
  }

  // `dropped`: a drop has put the window away, and the entries of every drop stand on it.
  void expect_empty_window(bool dropped = false) {
    EXPECT_TRUE(program->visible("ListProyectos"));
    EXPECT_THAT(program->rows("ListProyectos"), IsEmpty());
    for (int i = 0; i < 4; ++i) {
      EXPECT_TRUE(program->visible("TextNum1(" + std::to_string(i) + ")"));
    }
    for (const char* shown : {"CheckDragDrop", "CheckLogo", "AbrirFichero", "cmdReset"}) {
      EXPECT_TRUE(program->visible(shown)) << shown;
    }
    for (const char* hidden : {"ListVip", "ListUtilizados", "ListBorrar", "LabelCheck(0)",
                               "LabelCount(0)", "TextDecode", "LabelAviso", "XP_ProgressBar1",
                               "cmdCancelar", "cmdPerdidos", "CommandBorrado", "ListPath"}) {
      EXPECT_FALSE(program->visible(hidden)) << hidden;
    }
    for (const char* entry : {"SalvaListados", "ActualizarVip", "ZoomListas"}) {
      EXPECT_EQ(program->visible(entry), dropped) << entry;
    }
  }
};

TEST_F(Ordelan, starts_with_the_empty_window) {
  start();
  std::cout << "main window after " << program->start_time().count() << " ms\n";
  EXPECT_EQ(program->title(), "Ordelan");
  expect_empty_window();
  for (const char* box :
       {"CheckToolTips", "CheckPlayer", "CheckSubPath", "CheckBAK", "CheckDragDrop", "CheckLogo"}) {
    EXPECT_TRUE(program->checked(box)) << box;
  }
  EXPECT_TRUE(program->visible("ListProyectosInfo"));
  program->picture_of_screen("ordelan-empty");
}

TEST_F(Ordelan, is_painted_as_soon_as_it_is_there) {
  write_settings("DE");
  const auto begun = std::chrono::steady_clock::now();
  program = std::make_unique<Program>();
  program->wait_until("a painted button", [&] {
    RECT place{};
    GetWindowRect(program->control("AbrirFichero"), &place);
    return program->pixel("AbrirFichero", {4, (place.bottom - place.top) / 2}) == skin::kRaised;
  });
  const auto took = std::chrono::steady_clock::now() - begun;
  std::cout << "main window after " << program->start_time().count() << " ms, painted after "
            << std::chrono::duration_cast<std::chrono::milliseconds>(took).count() << " ms\n";
}

TEST_F(Ordelan, opens_a_project_through_the_file_dialog) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  EXPECT_THAT(program->rows("ListProyectos"),
              ElementsAre("1 --> D:\\Mix\\balada.vip", "2 --> D:\\Mix\\tema.vip",
                          "3 --> D:\\Mix\\tema_BAK.vip",
                          "4 --> D:\\Mix\\Canción del Año\\canción del año.vip"));
  const auto rows = program->rows("ListVip");
  ASSERT_THAT(rows, SizeIs(21));
  EXPECT_EQ(rows[0], "D:\\Mix\\Voces\\voz_principal.wav");
  EXPECT_EQ(rows[10], "D:\\Mix\\Canción del Año\\piñata.MP3");
  EXPECT_EQ(program->text("LabelCheck(0)"), "Encontrados 4 proyectos en:");
  EXPECT_EQ(program->text("LabelCount(0)"), "21 Archivos utilizados en: D:\\Mix\\tema.vip");
  EXPECT_EQ(program->text("LabelCount(1)"), "D:\\Mix\\");
  EXPECT_FALSE(program->visible("cmdCancelar"));
  EXPECT_FALSE(program->visible("TextNum1(0)"));
  EXPECT_EQ(program->text("LabelAdd(0)"), "41  archivos en: 4 proyectos, 10 duplicados; Total: 31");
  EXPECT_THAT(program->rows("ListUtilizados"), SizeIs(35));
  EXPECT_EQ(program->text("LabelErase(1)"),
            "Archivos no utilizados: 3     Duplicados: 0    Total: 3");
  EXPECT_THAT(program->rows("ListBorrar"),
              ElementsAre("D:\\Mix\\Canción del Año\\guitarra descartada.wav",
                          "D:\\Mix\\prueba de sonido.wma", "D:\\Mix\\Voces\\mensaje de móvil.m4a"));
  EXPECT_TRUE(program->visible("CommandBorrado"));
  program->picture_of_screen("ordelan-decoded");

  program->click("cmdReset");
  program->wait_until("the empty window", [&] { return program->visible("TextNum1(0)"); });
  expect_empty_window();
}

TEST_F(Ordelan, a_cancelled_dialog_changes_nothing) {
  start();
  program->click("AbrirFichero");
  program->cancel_file_dialog();
  expect_empty_window();
}

TEST_F(Ordelan, a_project_without_audio_is_refused_with_a_warning) {
  start();
  open("D:\\Mix\\solo_midi.vip");
  wait_shown("TextDecode");
  EXPECT_EQ(program->text("TextDecode"),
            " >>> AVISO <<<   Este proyecto no tiene archivos de audio");
  program->wait_until("the warning's colour", [&] {
    return program->pixel("TextDecode", {2, 2}) == COLORREF{0x8080EE};
  });
  EXPECT_FALSE(program->visible("ListVip"));
  EXPECT_FALSE(program->message_shown());
  program->picture_of_screen("ordelan-refused");
}

TEST_F(Ordelan, a_cancel_lands_in_the_middle_of_a_long_decode) {
  start();
  open(long_project());
  wait_read("XP_ProgressBar1");
  program->wait_until("some progress", [&] { return program->progress("XP_ProgressBar1") > 300; });
  EXPECT_TRUE(program->visible("LabelAviso"));
  EXPECT_TRUE(program->visible("TextDecode"));
  EXPECT_TRUE(program->visible("TextLapsoTotal"));
  EXPECT_FALSE(program->visible("CheckDragDrop"));
  EXPECT_FALSE(program->visible("SalvaListados"));
  program->picture_now("ordelan-decoding");  // this screen is never still

  const auto before = std::chrono::steady_clock::now();
  program->click("cmdCancelar");
  program->wait_until("the end of the job", [&] { return !program->visible("cmdCancelar"); });
  const auto took = std::chrono::steady_clock::now() - before;
  std::cout << "from the order to click until the job had ended: "
            << std::chrono::duration_cast<std::chrono::milliseconds>(took).count() << " ms\n";
  EXPECT_LT(program->progress("XP_ProgressBar1"), 9000) << "it was not read to its end";
  EXPECT_THAT(program->rows("ListProyectos"), SizeIs(1));
  EXPECT_THAT(program->rows("ListBorrar"), IsEmpty());
  EXPECT_FALSE(program->visible("LabelErase(0)")) << "the result is not known";
  EXPECT_TRUE(program->visible("cmdReset"));
  program->picture_of_screen("ordelan-cancelled");

  program->click("cmdReset");
  program->wait_until("the empty window", [&] { return program->visible("TextNum1(0)"); });
  open("D:\\Mix\\balada.vip");
  wait_decoded();
  EXPECT_FALSE(program->rows("ListVip").empty());
}

TEST_F(Ordelan, takes_a_folder_dropped_by_another_program) {
  start();
  program->drop("ListProyectos", {"D:\\Mix\\Canción del Año"});
  wait_decoded();
  EXPECT_THAT(program->rows("ListProyectos"),
              ElementsAre("1 --> D:\\Mix\\Canción del Año\\canción del año.vip"));
  EXPECT_EQ(program->text("LabelCheck(1)"), "D:\\Mix\\Canción del Año");
  EXPECT_FALSE(program->rows("ListVip").empty());
  EXPECT_TRUE(program->visible("cmdPerdidos"));
  program->picture_of_screen("ordelan-dropped");
}

TEST_F(Ordelan, takes_projects_dropped_by_another_program) {
  start();
  program->drop("ListProyectos",
                {"D:\\Mix\\solo_midi.vip", "D:\\Mix\\balada.vip", "D:\\Mix\\tema.vip"});
  wait_decoded();
  EXPECT_THAT(program->rows("ListProyectos"),
              ElementsAre("1 --> D:\\Mix\\balada.vip", "2 --> D:\\Mix\\tema.vip"));
  EXPECT_EQ(program->text("LabelCheck(1)"), "D:\\Mix\\balada.vip");
}

TEST_F(Ordelan, a_dropped_folder_is_cancelled_while_its_projects_are_still_gathered) {
  constexpr int kFolders = 40;
  constexpr int kProjects = 25;  // in each of them
  for (int i = 0; i < kFolders; ++i) {
    for (int j = 0; j < kProjects; ++j) {
      write("arbol\\" + std::to_string(i) + "\\" + std::to_string(j) + ".vip",
            project_of({"D:\\Mix\\a.wav"}));
    }
  }
  // The last to be looked at: it keeps the gathering going for as long as it takes to cancel it.
  long_project("arbol\\zz\\largo.vip");
  start();
  program->drop("ListProyectos", {path("arbol")});
  wait_shown("LabelAviso");
  program->wait_until("the gathering", [&] { return !program->visible("ListProyectos"); });
  const std::string time = program->text("TextLapsoTotal");
  program->wait_until("the clock goes", [&] { return program->text("TextLapsoTotal") != time; });
  EXPECT_FALSE(program->visible("ListProyectos")) << "nothing is decoded yet";
  EXPECT_FALSE(program->visible("TextNum1(0)"));
  program->picture_now("ordelan-gathering");
  const auto before = std::chrono::steady_clock::now();
  program->click("cmdCancelar");
  program->wait_until("the end of the job", [&] { return !program->visible("cmdCancelar"); });
  const auto took = std::chrono::steady_clock::now() - before;
  std::cout << "from the order to click until the gathering had ended: "
            << std::chrono::duration_cast<std::chrono::milliseconds>(took).count() << " ms\n";
  program->wait_until("the empty window", [&] {
    return program->visible("TextNum1(0)") && program->visible("ZoomListas");
  });
  expect_empty_window(true);
  EXPECT_FALSE(program->message_shown());

  program->drop("ListProyectos", {"D:\\Mix\\Canción del Año"});
  program->wait_until("the project", [&] { return program->visible("cmdPerdidos"); });
  EXPECT_THAT(program->rows("ListProyectos"), SizeIs(1));
}

TEST_F(Ordelan, a_double_click_decodes_one_project) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  program->double_click_row("ListProyectos", 0);
  program->wait_until("the other project", [&] {
    return program->text("LabelCount(0)") == "8 Archivos utilizados en: D:\\Mix\\balada.vip";
  });
  EXPECT_THAT(program->rows("ListVip"), SizeIs(8));
  EXPECT_THAT(program->rows("ListUtilizados"), SizeIs(35));
}

TEST_F(Ordelan, saves_its_reports_beside_the_projects) {
  const std::filesystem::path reports = L"D:\\Mix\\Listados";
  std::filesystem::remove_all(reports);
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  program->click("SalvaListados");
  program->wait_until("the last report",
                      [&] { return std::filesystem::exists(reports / L"Archivos a Borrar.log"); });
  EXPECT_TRUE(std::filesystem::exists(reports / L"Archivos de tema.vip.log"));
  EXPECT_TRUE(std::filesystem::exists(reports / L"Archivos Totales.log"));
  program->wait_until("the window as it stood", [&] {
    return program->text("LabelCount(0)") == "21 Archivos utilizados en: D:\\Mix\\tema.vip";
  });
  EXPECT_FALSE(program->message_shown());
  program->picture_of_screen("ordelan-reports");
  program.reset();
  std::filesystem::remove_all(reports);
}

TEST_F(Ordelan, a_place_that_no_screen_shows_brings_the_window_back) {
  write_settings("DE", "Me_Left=30000\r\nMe_Top=-5000\r\n");
  start();
  const RECT place = program->place();
  EXPECT_GE(place.left, 0);
  EXPECT_GE(place.top, 0);
  EXPECT_LE(place.right, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_LE(place.bottom, GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(Ordelan, a_heading_is_shown_in_full_by_a_click) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  program->click("LabelCount(0)");
  wait_shown("ListPath");
  EXPECT_THAT(program->rows("ListPath"),
              ElementsAre("21 Archivos utilizados en: D:\\Mix\\tema.vip"));
  program->picture_of_screen("ordelan-path");
  program->hover("ListPath");
  program->wait_until("the strip hides under the pointer",
                      [&] { return !program->visible("ListPath"); });
}

TEST_F(Ordelan, ends_and_finds_everything_as_it_was_left) {
  start();
  program->click("CheckBAK");
  program->wait_until("the tick", [&] { return !program->checked("CheckBAK"); });
  const RECT before = program->place();
  program->drag_window(kGroundOfHeader, {80, 60});
  program->wait_until("the end of the drag", [&] {
    return program->place().left == before.left + 80 && program->place().top == before.top + 60;
  });
  const RECT left = program->place();
  program->click("Salir");
  EXPECT_EQ(program->wait_for_end(), 0u);

  start();
  EXPECT_FALSE(program->checked("CheckBAK"));
  EXPECT_TRUE(program->checked("CheckLogo"));
  EXPECT_EQ(program->place().left, left.left);
  EXPECT_EQ(program->place().top, left.top);
}

TEST_F(Ordelan, ends_by_the_word_among_the_labels_too_and_keeps_its_settings) {
  start();
  program->click("CheckBAK");
  program->wait_until("the tick", [&] { return !program->checked("CheckBAK"); });
  EXPECT_EQ(program->text("cmdSalir"), "Salir");
  program->click("cmdSalir");
  EXPECT_EQ(program->wait_for_end(), 0u);

  start();
  EXPECT_FALSE(program->checked("CheckBAK"));
}

TEST_F(Ordelan, closes_by_alt_and_f4_in_the_middle_of_a_decode) {
  start();
  open(long_project());
  wait_read("XP_ProgressBar1");
  program->key(VK_F4, false, false, true);
  EXPECT_EQ(program->wait_for_end(), 0u);
}

void watch_sweep(Program& program) {
  watch_answers(program, "swept in", [&] { return program.visible("SalvaListados"); });
  std::cout << program.text("LabelCheck(0)") << " " << program.text("LabelAdd(0)") << "\n";
}

// Needs a studio that takes a while: ORDELAN_LARGE_PROJECT names one of its projects.
TEST_F(Ordelan, answers_all_through_the_sweep_of_a_large_studio) {
  const char* project = std::getenv("ORDELAN_LARGE_PROJECT");
  if (project == nullptr) GTEST_SKIP() << "no large studio was given";
  start();
  open(project);
  watch_sweep(*program);
  EXPECT_GT(program->row_count("ListUtilizados"), 1000u);
  program->picture_of_screen("ordelan-large");
}

// The same with a folder, which ORDELAN_LARGE_FOLDER names.
TEST_F(Ordelan, answers_all_through_the_drop_of_a_large_folder) {
  const char* folder = std::getenv("ORDELAN_LARGE_FOLDER");
  if (folder == nullptr) GTEST_SKIP() << "no large folder was given";
  start();
  program->drop("ListProyectos", {folder});
  program->wait_until("the sweep", [&] { return !program->visible("SalvaListados"); });
  watch_sweep(*program);
  EXPECT_GT(program->row_count("ListUtilizados"), 1000u);
}

}  // namespace
}  // namespace ordelan::test
