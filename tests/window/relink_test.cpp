// The update of projects and the way back in the real program, with files of the tests' own. All of
// them lie on a drive that holds nothing else, so that searches find nothing but them.
#include <windows.h>

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>

#include "support/disk_tools.h"
#include "support/small_project.h"
#include "wide_text.h"
#include "window/answers.h"
#include "window/ordelan_fixture.h"
#include "window/wait.h"

namespace ordelan::test {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kOld = "D:\\Discos viejos\\Sesión de marzo\\";

class Relinking : public OrdelanTest {
 protected:
  Relinking() {
    remove_tree(kFolder);
    write_settings("F");
  }
  ~Relinking() override {
    program.reset();
    remove_tree(kFolder);
  }

  static std::string at(const std::string& below) { return std::string(kFolder) + "\\" + below; }
  static void put(const std::string& below, const std::string& bytes) {
    const std::filesystem::path file = at(below);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
  }
  static std::string contents(const std::string& below) {
    std::ifstream in(at(below), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static bool exists(const std::string& below) { return std::filesystem::exists(at(below)); }
  static std::string log() { return contents("Mezcla\\Originales\\Actualizacion.log"); }

  void use(const std::string& window) const { program->use_window(window); }

  void decode(const std::string& below = "Mezcla\\tema.vip") {
    open(at(below));
    wait_decoded();
    wait_shown("ActualizarVip");
  }
  void begin() {
    program->click("ActualizarVip");
    program->answer_message(IDYES);
  }
  // The box at the end says which folder holds what. Closes it.
  void read_result() {
    const MessageShown result = program->wait_for_message();
    EXPECT_EQ(result.title, "Estos proyectos Vip no tienen archivos desubicados");
    EXPECT_THAT(result.text, HasSubstr("Lista de Vip's actualizados: "));
    program->answer_message(IDOK);
    wait_ended();
  }
  // Each name is asked about in a window of its own; the one in use is that of the last.
  void wait_next_choice() {
    const HWND last = program->window();
    program->wait_until("the next choice", [&] {
      if (!program->window_shown("ElegirRuta")) return false;
      use("ElegirRuta");
      return program->window() != last;
    });
  }
  void wait_ended() const {
    program->wait_until("the end of the job", [&] {
      return !program->visible("ActualizarVip") && !program->visible("cmdCancelar");
    });
  }
  void wait_strip(const std::string& words) const {
    program->wait_until("the strip's " + words, [&] {
      return program->visible("TextDecode") &&
             program->text("TextDecode").find(words) != std::string::npos;
    });
  }

 private:
  static constexpr const char* kFolder = "F:\\Estudio";
};

TEST_F(Relinking, asks_first_and_then_writes_where_the_audio_is_now) {
  const std::string lost = project_of({std::string(kOld) + "voz.wav", at("Mezcla\\caja.wav")});
  put("Mezcla\\caja.wav", "caja");
  put("Mezcla\\tema.vip", lost);
  put("Mezcla\\otra.vip", project_of({std::string(kOld) + "bajo.wav"}));
  put("Audio\\voz.wav", "voz");
  start();
  decode();
  EXPECT_FALSE(program->visible("DeshacerActualizacion"));

  program->click("ActualizarVip");
  const MessageShown question = program->wait_for_message();
  EXPECT_EQ(question.title, "Leer con atención");
  EXPECT_THAT(question.text,
              AllOf(HasSubstr("Esta función actualiza los proyectos Vip de la forma siguiente:"),
                    HasSubstr("Esta operación lleva mucho tiempo")));
  program->picture_of_screen("relink-question");
  program->answer_message(IDNO);
  EXPECT_EQ(contents("Mezcla\\tema.vip"), lost);
  EXPECT_FALSE(exists("Mezcla\\Originales"));

  begin();
  const MessageShown result = program->wait_for_message();
  EXPECT_EQ(result.title, "Estos proyectos Vip no tienen archivos desubicados");
  EXPECT_EQ(result.text,
            "Los Vip's actualizados estan en la carpeta: " + at("Mezcla\\") +
                "\r\nLos Vip's originales estan en la carpeta: " + at("Mezcla\\Originales\\") +
                "\r\n\r\nLista de Vip's actualizados: \r\n\r\n" +
                at("Mezcla\\Originales\\otra.vip") + "\r\n" + at("Mezcla\\Originales\\tema.vip") +
                "\r\n");
  program->picture_of_screen("relink-result");
  program->answer_message(IDOK);
  wait_ended();
  wait_shown("DeshacerActualizacion");
  program->picture_of_screen("relink-done");

  EXPECT_THAT(contents("Mezcla\\tema.vip"),
              AllOf(HasSubstr(at("Audio\\voz.wav")), HasSubstr(at("Mezcla\\caja.wav")),
                    Not(HasSubstr("Sesión de marzo"))));
  EXPECT_THAT(contents("Mezcla\\otra.vip"), HasSubstr(at("Mezcla\\bajo.wav")));
  EXPECT_EQ(contents("Mezcla\\Originales\\tema.vip"), lost);
  EXPECT_FALSE(exists("Mezcla\\Originales\\tema_vip.ptr"));
  EXPECT_THAT(log(), HasSubstr(std::string(kOld) + "voz.wav -> " + at("Audio\\voz.wav")));

  // What the program reads in it now is where the audio is.
  decode();
  EXPECT_THAT(program->rows("ListVip"), ElementsAre(at("Audio\\voz.wav"), at("Mezcla\\caja.wav")));
}

TEST_F(Relinking, has_one_of_several_files_chosen_by_the_mouse) {
  put("Mezcla\\tema.vip",
      project_of({std::string(kOld) + "voz.wav", std::string(kOld) + "coro.wav"}));
  for (const char* const room : {"Sala grande", "Sala pequeña"}) {
    put(std::string(room) + "\\voz.wav", room);
    put(std::string(room) + "\\coro.wav", room);
  }
  start();
  decode();
  begin();
  use("ElegirRuta");
  EXPECT_EQ(program->title(), "Elegir la ruta");
  EXPECT_THAT(program->rows("ListElegirRuta"),
              ElementsAre(at("Sala grande\\voz.wav"), at("Sala pequeña\\voz.wav")));
  EXPECT_TRUE(program->visible("CheckCarpeta"));
  EXPECT_FALSE(program->checked("CheckCarpeta"));
  program->picture_of_screen("relink-choice");
  program->click_row("ListElegirRuta", 1);
  // The other name is asked about as well.
  wait_next_choice();
  EXPECT_EQ(program->row("ListElegirRuta", 0), at("Sala grande\\coro.wav"));
  program->click_row("ListElegirRuta", 0);
  use("Form1");
  read_result();
  EXPECT_FALSE(program->window_shown("ElegirRuta"));
  EXPECT_THAT(contents("Mezcla\\tema.vip"), AllOf(HasSubstr(at("Sala pequeña\\voz.wav")),
                                                  HasSubstr(at("Sala grande\\coro.wav"))));
}

TEST_F(Relinking, takes_the_chosen_folder_for_the_rest_of_the_old_one) {
  std::vector<std::string> names;
  for (int i = 0; i < 6; ++i) names.push_back("toma " + std::to_string(i) + ".wav");
  std::vector<std::string> paths;
  for (const std::string& name : names) {
    paths.push_back(kOld + name);
    put("Sala grande\\" + name, "a");
    put("Sala pequeña\\" + name, "b");
  }
  // The next folder is asked about anew, with the box as it always comes.
  paths.push_back("D:\\Otra carpeta\\final.wav");
  put("Sala grande\\final.wav", "a");
  put("Sala pequeña\\final.wav", "b");
  put("Mezcla\\tema.vip", project_of(paths));
  start();
  decode();
  begin();
  use("ElegirRuta");
  program->click("CheckCarpeta");
  program->wait_until("the tick", [&] { return program->checked("CheckCarpeta"); });
  program->picture_of_screen("relink-choice-folder");
  program->click_row("ListElegirRuta", 1);
  wait_next_choice();
  EXPECT_EQ(program->row("ListElegirRuta", 0), at("Sala grande\\final.wav"));
  EXPECT_FALSE(program->checked("CheckCarpeta"));
  program->click_row("ListElegirRuta", 0);
  use("Form1");
  read_result();
  const std::string project = contents("Mezcla\\tema.vip");
  for (const std::string& name : names) {
    EXPECT_THAT(project, HasSubstr(at("Sala pequeña\\") + name));
  }
  EXPECT_THAT(project, HasSubstr(at("Sala grande\\final.wav")));
}

TEST_F(Relinking, a_cancel_leaves_each_project_old_or_new_and_an_empty_window) {
  constexpr int kProjects = 400;
  constexpr int kPaths = 25;
  std::vector<std::string> lost;
  std::vector<std::string> found;
  for (int i = 0; i < kPaths; ++i) {
    const std::string name = "toma " + std::to_string(100 + i) + ".wav";
    put("Audio\\" + name, "");
    lost.push_back(kOld + name);
    found.push_back(at("Audio\\") + name);
  }
  const auto project = [](int number) {
    return "Mezcla\\tema " + std::to_string(1000 + number) + ".vip";
  };
  const std::string before = project_of(lost);
  for (int i = 0; i < kProjects; ++i) put(project(i), before);
  start();
  decode(project(0));
  ASSERT_EQ(program->row_count("ListProyectos"), static_cast<std::size_t>(kProjects));
  begin();
  program->wait_until("the first projects", [&] { return contents(project(20)) != before; });
  program->picture_now("relink-running");
  const auto asked = std::chrono::steady_clock::now();
  program->click("cmdCancelar");
  program->wait_until("the empty window", [&] {
    return !program->visible("cmdCancelar") && program->visible("TextNum1(0)");
  });
  std::cout << "From the order to click until the window was empty: "
            << std::chrono::duration_cast<std::chrono::milliseconds>(
                   std::chrono::steady_clock::now() - asked)
                   .count()
            << " ms\n";
  EXPECT_FALSE(program->message_shown());
  EXPECT_EQ(program->row_count("ListProyectos"), 0u);
  EXPECT_FALSE(program->visible("ActualizarVip"));
  program->picture_of_screen("relink-cancelled");

  // The new bytes are those of the first project, in which each path leads to the audio.
  const std::string after = contents(project(0));
  for (const std::string& path : found) EXPECT_THAT(after, HasSubstr(path));
  int updated = 0;
  for (int i = 0; i < kProjects; ++i) {
    const std::string now = contents(project(i));
    EXPECT_TRUE(now == before || now == after) << project(i);
    updated += now == after ? 1 : 0;
    EXPECT_EQ(contents("Mezcla\\Originales\\" + project(i).substr(7)), before) << project(i);
  }
  EXPECT_GE(updated, 21);
  EXPECT_LT(updated, kProjects);
  EXPECT_THAT(log(), HasSubstr("se ha cancelado"));

  // The projects that were done have a way back.
  decode(project(0));
  program->click("DeshacerActualizacion");
  program->answer_message(IDYES);
  wait_strip("Proyectos restaurados: " + std::to_string(updated));
  for (int i = 0; i < kProjects; ++i) EXPECT_EQ(contents(project(i)), before) << project(i);
}

TEST_F(Relinking, a_second_run_asks_about_the_copy_and_both_runs_are_undone) {
  const std::string first = project_of({std::string(kOld) + "voz.wav", "D:\\No está\\coro.wav"});
  put("Mezcla\\tema.vip", first);
  put("Audio\\voz.wav", "voz");
  start();
  decode();
  begin();
  read_result();
  const std::string second = contents("Mezcla\\tema.vip");
  EXPECT_THAT(second, HasSubstr(at("Audio\\voz.wav")));

  std::filesystem::rename(at("Audio"), at("Grabaciones"));
  decode();
  begin();
  const MessageShown question = program->wait_for_message();
  constexpr int kYesToAll = 12807;  // only the shell's questions have that button
  EXPECT_NE(GetDlgItem(question.handle, kYesToAll), nullptr) << question.title;
  EXPECT_EQ(contents("Mezcla\\Originales\\0001\\tema.vip.orig"), first)
      << "what is asked about has its copy before";
  program->picture_of_screen("relink-copy-question");
  program->answer_message(IDYES);
  read_result();
  const std::string third = contents("Mezcla\\tema.vip");
  EXPECT_THAT(third, HasSubstr(at("Grabaciones\\voz.wav")));
  EXPECT_EQ(contents("Mezcla\\Originales\\tema.vip"), second);
  EXPECT_EQ(contents("Mezcla\\Originales\\0001\\tema.vip.orig"), first);

  program->click("DeshacerActualizacion");
  const MessageShown undo = program->wait_for_message();
  EXPECT_EQ(undo.title, "Deshacer actualización");
  EXPECT_THAT(undo.text, AllOf(HasSubstr("¿Deshacer la actualización?"),
                               HasSubstr(at("Mezcla\\Originales\\"))));
  program->picture_of_screen("relink-undo-question");
  program->answer_message(IDNO);
  EXPECT_EQ(contents("Mezcla\\tema.vip"), third);

  program->click("DeshacerActualizacion");
  program->answer_message(IDYES);
  wait_strip("Proyectos restaurados: 1");
  EXPECT_EQ(contents("Mezcla\\tema.vip"), second);
  program->picture_of_screen("relink-undone");

  program->click("DeshacerActualizacion");
  program->answer_message(IDYES);
  program->wait_until("the end of the way back",
                      [&] { return !program->visible("DeshacerActualizacion"); });
  EXPECT_EQ(contents("Mezcla\\tema.vip"), first);
}

TEST_F(Relinking, a_project_that_another_program_has_open_is_named_on_the_strip) {
  const std::string before = project_of({std::string(kOld) + "voz.wav"});
  put("Mezcla\\otra.vip", before);
  put("Mezcla\\tema.vip", before);
  put("Audio\\voz.wav", "voz");
  start();
  decode();
  const HANDLE other = CreateFileW(wide(at("Mezcla\\otra.vip")).c_str(), GENERIC_READ,
                                   FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  begin();
  read_result();
  wait_strip("Proyectos que no se han actualizado");
  EXPECT_THAT(program->text("TextDecode"), HasSubstr(at("Mezcla\\otra.vip")));
  program->picture_of_screen("relink-left");
  CloseHandle(other);
  EXPECT_EQ(contents("Mezcla\\otra.vip"), before);
  EXPECT_THAT(contents("Mezcla\\tema.vip"), HasSubstr(at("Audio\\voz.wav")));
}

TEST_F(Relinking, without_a_ticked_drive_there_is_a_warning_and_nothing_is_copied) {
  const std::string before = project_of({std::string(kOld) + "voz.wav"});
  put("Mezcla\\tema.vip", before);
  write_settings("");
  start();
  EXPECT_EQ(program->wait_for_message().title, "Configuración");
  program->answer_message(IDOK);
  use("UnidadesBuscar");
  program->close_window();
  program->wait_until("the end of the drives",
                      [&] { return !program->window_shown("UnidadesBuscar"); });
  use("Form1");
  decode();
  begin();
  const MessageShown warning = program->wait_for_message();
  EXPECT_EQ(warning.title, "Aviso");
  EXPECT_EQ(warning.text,
            "Al no haber unidades de disco seleccionadas\r\n"
            "para buscar los archivos desubicados.\r\n\r\n"
            "No se puede hacer la actualización.\r\n"
            "Pulsar menú Configurar, y seleccionar unidades.\r\n"
            "Volver a pulsar menú ActualizarVip");
  program->picture_of_screen("relink-no-drives");
  program->answer_message(IDOK);
  EXPECT_EQ(contents("Mezcla\\tema.vip"), before);
  EXPECT_FALSE(exists("Mezcla\\Originales"));
}

// Takes minutes: ORDELAN_LARGE_UPDATE names a project of a studio on D: that may be changed. With
// ORDELAN_CANCEL_UPDATE it is cancelled after so many seconds.
TEST_F(Relinking, answers_all_through_the_update_of_a_large_studio) {
  const char* const project = std::getenv("ORDELAN_LARGE_UPDATE");
  if (project == nullptr) GTEST_SKIP() << "no project was given";
  const char* const seconds = std::getenv("ORDELAN_CANCEL_UPDATE");
  write_settings("D");
  start();
  open(project);
  wait_for([&] { return program->visible("ZoomListas"); }, std::chrono::minutes(3));
  wait_decoded();
  begin();
  const auto begun = std::chrono::steady_clock::now();
  watch_answers(*program, "updated in", [&] {
    if (seconds &&
        std::chrono::steady_clock::now() - begun > std::chrono::seconds(std::atoi(seconds))) {
      return true;
    }
    if (program->window_shown("ElegirRuta")) {
      use("ElegirRuta");
      const HWND choice = program->window();
      program->click_row("ListElegirRuta", 0);
      program->wait_until("the end of the choice", [&] { return !IsWindow(choice); });
      use("Form1");
    }
    if (!program->message_shown()) return false;
    const MessageShown box = program->wait_for_message();
    if (box.title.find("proyectos Vip") != std::string::npos) return true;
    program->answer_message(IDYES);
    return false;
  });
  if (!seconds) {
    program->picture_of_screen("relink-large-result");
    program->answer_message(IDOK);
    wait_ended();
    program->picture_of_screen("relink-large-done");
    return;
  }
  program->click("cmdCancelar");
  watch_answers(*program, "cancelled in", [&] {
    return !program->visible("cmdCancelar") && program->visible("TextNum1(0)");
  });
}

}  // namespace
}  // namespace ordelan::test
