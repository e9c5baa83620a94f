// Removal and recovery in the real program, with files of the tests' own.
#include <windows.h>

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>

#include "support/disk_tools.h"
#include "support/small_project.h"
#include "wide_text.h"
#include "window/answers.h"
#include "window/ordelan_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kMark = "  --> Borrado";

class Removal : public OrdelanTest {
 protected:
  Removal() {
    write("mezcla\\usado.wav", "used");
    write("mezcla\\tema.vip", project_of({path("mezcla\\usado.wav")}));
  }

  // Files that no project uses.
  void make_unused(int count) {
    for (int i = 0; i < count; ++i) {
      const std::string name = "toma " + std::to_string(1000 + i) + ".wav";
      write("mezcla\\" + name, "sound of " + name);
    }
  }
  std::string unused(int number) const {
    return path("mezcla\\toma " + std::to_string(1000 + number) + ".wav");
  }
  static bool exists(const std::string& file) { return std::filesystem::exists(file); }
  static std::string contents(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  void use(const std::string& window) const { program->use_window(window); }

  // Opens the project and the window of the options.
  void show_options() {
    start();
    open(path("mezcla\\tema.vip"));
    wait_decoded();
    program->click("CommandBorrado");
    use("BacUp");
  }
  void show_review() {
    program->click("cmdBorrar");
    use("ParaBorrar");
  }
  void set_box(const std::string& box, bool on) const {
    if (program->checked(box) == on) return;
    program->click(box);
    program->wait_until("the tick of " + box, [&] { return program->checked(box) == on; });
  }
  bool is_reported() const {
    return program->visible("LabelResultado") && !program->visible("XP_Bar") &&
           !program->visible("cmdParar");
  }
  void wait_report() {
    use("BacUp");
    program->wait_until("the report of the run", [&] { return is_reported(); });
  }
  // From the review to the run's folder, which exists.
  void choose_folder(const std::string& folder) {
    program->click("cmdHecho");
    program->pick_folder(folder);
    use("CarpetaBack");
    program->wait_until("the button of the run",
                        [&] { return program->visible("cmdCarpetaBorrar"); });
  }

  // Begins a run that removes so many files for good, with copies.
  void begin_run_with_backup(int count) {
    make_unused(count);
    write("copias\\leeme.txt", "");
    show_options();
    set_box("CheckBackup", true);
    show_review();
    set_box("CheckBorrarPapelera", false);
    choose_folder(path("copias"));
    program->click("cmdCarpetaBorrar");
    use("BacUp");
  }

  // The names in the bin of the prefix.
  static std::set<std::string> bin() {
    wchar_t data[MAX_PATH + 1] = {};
    GetEnvironmentVariableW(L"XDG_DATA_HOME", data, MAX_PATH + 1);
    std::set<std::string> names;
    std::error_code ignored;
    for (const auto& each : std::filesystem::directory_iterator(
             L"Z:" + std::wstring(data) + L"\\Trash\\files", ignored)) {
      names.insert(bytes(each.path().filename().wstring()));
    }
    return names;
  }
};

TEST_F(Removal, the_options_explain_themselves) {
  make_unused(3);
  show_options();
  EXPECT_EQ(program->title(), "Opciones de copia de seguridad");
  EXPECT_FALSE(program->visible("LabelInfo"));
  EXPECT_TRUE(program->visible("LabelEspera"));
  program->picture_of_screen("removal-options");
  program->click("ImageInfoVip");
  program->wait_until("the explanation", [&] { return program->visible("AvisoAsociados"); });
  const RECT window = program->place();
  const RECT text = program->place_of("AvisoAsociados");
  EXPECT_EQ(text.left - window.left, 27);
  EXPECT_EQ(text.top - window.top, 57);
  program->picture_of_screen("removal-options-explained");
  program->click("AvisoAsociados");
  program->wait_until("its end", [&] { return !program->visible("AvisoAsociados"); });
  use("Form1");
  program->click("CommandBorrado");
  program->wait_until("the end of the options", [&] { return !program->window_shown("BacUp"); });
}

TEST_F(Removal, rows_are_unticked_by_their_boxes_and_taken_out_by_a_key) {
  make_unused(60);
  show_options();
  show_review();
  EXPECT_EQ(program->title(), "Archivos que se borraran");
  ASSERT_EQ(program->row_count("ListBorrar"), 60u);
  EXPECT_TRUE(program->ticked("ListStatus", 0));
  program->picture_of_screen("removal-review");

  program->click_row("ListStatus", 2);
  program->wait_until("the box", [&] { return !program->ticked("ListStatus", 2); });
  EXPECT_TRUE(program->ticked("ListStatus", 1));
  EXPECT_TRUE(program->ticked("ListStatus", 3));
  EXPECT_EQ(program->focus(), "ListBorrar");
  program->picture_of_screen("removal-review-unticked");

  // The row after it is another one afterwards, and its box comes with it.
  program->click_row("ListBorrar", 0);
  program->key(VK_DELETE);
  program->wait_until("the row's end", [&] { return program->row_count("ListBorrar") == 59; });
  EXPECT_EQ(program->row("ListBorrar", 0), unused(1));
  EXPECT_FALSE(program->ticked("ListStatus", 1));
  EXPECT_TRUE(program->ticked("ListStatus", 2));
  EXPECT_EQ(program->text("LabelErase"), "Archivos a borrar: 59");
  EXPECT_TRUE(exists(unused(0))) << "only the row has gone";

  program->key(VK_SPACE);
  program->wait_until("the box of the current row",
                      [&] { return !program->ticked("ListStatus", 0); });

  program->key(VK_END);
  program->wait_until("the boxes beside the last rows", [&] {
    return program->first_row("ListBorrar") > 0 &&
           program->first_row("ListStatus") == program->first_row("ListBorrar");
  });
  program->picture_of_screen("removal-review-scrolled");
  program->click_row("ListStatus", 58);
  program->wait_until("the last box", [&] { return !program->ticked("ListStatus", 58); });
}

TEST_F(Removal, a_run_puts_the_ticked_files_into_the_bin) {
  make_unused(4);
  show_options();
  set_box("CheckBackup", false);
  show_review();
  set_box("CheckBorrarPapelera", true);
  program->click_row("ListStatus", 1);
  program->wait_until("the box", [&] { return !program->ticked("ListStatus", 1); });
  const std::set<std::string> before = bin();
  program->click("cmdHecho");
  wait_report();
  EXPECT_EQ(program->text("LabelInfo"), " >> Se han efectuado todas las operaciones << ");
  EXPECT_EQ(program->text("LabelResultado"), "3 de 3 borrados");
  EXPECT_FALSE(program->visible("cmdBorrar"));
  EXPECT_FALSE(exists(unused(0)));
  EXPECT_TRUE(exists(unused(1)));
  EXPECT_FALSE(exists(unused(2)));
  EXPECT_FALSE(exists(unused(3)));
  EXPECT_TRUE(exists(path("mezcla\\usado.wav")));
  EXPECT_THAT(bin(), SizeIs(before.size() + 3));
  program->picture_of_screen("removal-bin");
  use("ParaBorrar");
  EXPECT_THAT(program->rows("ListBorrar"),
              ElementsAre(unused(0) + kMark, unused(1), unused(2) + kMark, unused(3) + kMark));
  EXPECT_FALSE(program->visible("cmdHecho"));
}

TEST_F(Removal, files_that_may_be_used_after_all_stay_and_are_listed_with_the_reason) {
  make_unused(4);
  show_options();
  set_box("CheckBackup", false);
  show_review();
  write("mezcla\\toma 1002.wav", "recorded anew meanwhile");
  program->click("cmdHecho");
  wait_report();
  EXPECT_TRUE(exists(unused(2)));
  EXPECT_FALSE(exists(unused(0)));
  ASSERT_TRUE(program->visible("ListNoBorrados"));
  EXPECT_THAT(program->rows("ListNoBorrados"), Contains(HasSubstr(unused(2))));
  program->picture_of_screen("removal-kept");
}

TEST_F(Removal, the_review_shows_what_projects_name_and_a_run_keeps_it) {
  make_unused(30);
  write("mezcla\\vieja\\ensayo_BAK.vip", unused(1));
  write("mezcla\\vieja\\otra.vip", path("antes\\toma 1004.wav"));
  show_options();
  set_box("CheckBackup", false);
  show_review();
  program->wait_until("what is kept", [&] { return program->visible("ListConservados"); });
  EXPECT_THAT(program->rows("ListConservados"),
              ElementsAre(unused(1) + "   (Se conserva: lo nombra " +
                              path("mezcla\\vieja\\ensayo_BAK.vip") + ")",
                          unused(4) + "   (Se conserva: puede ser el archivo perdido que nombra " +
                              path("mezcla\\vieja\\otra.vip") + ")"));
  EXPECT_EQ(program->text("LabelConservados"), "Se conservan: 2");
  program->key(VK_END);
  program->picture_of_screen("removal-review-kept");
  set_box("CheckBorrarPapelera", false);
  program->click("cmdHecho");
  wait_report();
  EXPECT_EQ(program->text("LabelResultado"), "28 de 30 borrados");
  EXPECT_TRUE(exists(unused(1)));
  EXPECT_TRUE(exists(unused(4)));
  EXPECT_FALSE(exists(unused(0)));
  EXPECT_EQ(program->row_count("ListNoBorrados"), 2u);
  program->picture_of_screen("removal-kept-named");
}

TEST_F(Removal, a_backup_that_does_not_fit_is_said_before_anything_is_touched) {
  make_unused(2);
  write("copias\\leeme.txt", "");
  constexpr std::uint64_t kMore = std::uint64_t{1} << 30;
  write("mezcla\\toma larga.wav", "");
  lengthen(folder() / L"mezcla" / L"toma larga.wav",
           std::filesystem::space(folder()).available + kMore);
  show_options();
  set_box("CheckBackup", true);
  show_review();
  set_box("CheckBorrarPapelera", true);
  choose_folder(path("copias"));
  EXPECT_THAT(program->text("LabelEspacio"), HasSubstr("     No cabe"));
  program->picture_of_screen("removal-room");
  program->click("cmdCarpetaBorrar");
  EXPECT_THAT(program->wait_for_message().text, HasSubstr("¿Empezar de todos modos?"));
  program->picture_of_screen("removal-room-question");
  program->answer_message(IDNO);
  use("BacUp");
  program->wait_until("the refusal", [&] { return !program->visible("cmdParar"); });
  EXPECT_EQ(program->text("LabelResultado"),
            "No se ha borrado nada. La copia no cabe en " + path("copias"));
  EXPECT_TRUE(exists(unused(0)));
  EXPECT_FALSE(exists(path("copias\\toma 1000.wav")));
  EXPECT_FALSE(exists(path("copias\\Archivos_Borrados.log")));
  program->picture_of_screen("removal-room-refused");
}

// On a removable drive, whose files Windows does not recycle.
class RemovalWithoutBin : public Removal {
 protected:
  RemovalWithoutBin() {
    std::filesystem::remove_all(kFolder);
    std::filesystem::create_directories(kFolder);
    put("usado.wav", "used");
    put("usado2.wav", "its neighbour");
    put("toma 1.wav", "first");
    put("toma 2.wav", "second");
    put("tema.vip", project_of({of("usado.wav")}));
  }
  ~RemovalWithoutBin() override {
    program.reset();
    std::error_code ignored;
    std::filesystem::remove_all(kFolder, ignored);
  }
  static std::string of(const std::string& name) { return std::string(kFolder) + "\\" + name; }
  static void put(const std::string& name, const std::string& bytes) {
    std::ofstream(of(name), std::ios::binary) << bytes;
  }
  // Up to the question.
  void begin_run() {
    start();
    open(of("tema.vip"));
    wait_decoded();
    program->click("CommandBorrado");
    use("BacUp");
    set_box("CheckBackup", false);
    show_review();
    set_box("CheckBorrarPapelera", true);
    EXPECT_EQ(program->text("LabelPapelera"),
              "En F: no hay papelera: 2 archivos se borrarían para siempre");
    program->picture_of_screen("removal-no-bin");
    program->click("cmdHecho");
    const MessageShown asked = program->wait_for_message();
    EXPECT_EQ(asked.title, "Papelera de reciclaje");
    EXPECT_THAT(asked.text, HasSubstr("En F: no hay papelera: 2 archivos"));
  }

 private:
  static constexpr const char* kFolder = "F:\\ordelan_sin_papelera";
};

TEST_F(RemovalWithoutBin, files_stay_after_enter_is_pressed) {
  begin_run();
  program->picture_of_screen("removal-no-bin-question");
  program->key(VK_RETURN);  // presses the careful button
  wait_report();
  EXPECT_EQ(program->text("LabelResultado"), "0 de 2 borrados");
  EXPECT_THAT(program->rows("ListNoBorrados"),
              ElementsAre(of("toma 1.wav") + "   (su unidad no tiene papelera)",
                          of("toma 2.wav") + "   (su unidad no tiene papelera)"));
  EXPECT_TRUE(exists(of("toma 1.wav")));
  EXPECT_TRUE(exists(of("toma 2.wav")));
  program->picture_of_screen("removal-no-bin-kept");
}

TEST_F(RemovalWithoutBin, files_go_for_good_after_a_yes) {
  const std::set<std::string> before = bin();
  begin_run();
  program->answer_message(IDYES);
  wait_report();
  EXPECT_EQ(program->text("LabelResultado"), "2 de 2 borrados");
  EXPECT_FALSE(exists(of("toma 1.wav")));
  EXPECT_FALSE(exists(of("toma 2.wav")));
  EXPECT_TRUE(exists(of("usado.wav")));
  EXPECT_EQ(bin(), before);
}

TEST_F(Removal, a_run_with_backup_copies_the_files_and_recovery_brings_them_back) {
  make_unused(3);
  write("copias\\leeme.txt", "");
  show_options();
  set_box("CheckBackup", true);
  show_review();
  set_box("CheckBorrarPapelera", false);
  program->click("cmdHecho");
  use("CarpetaBack");
  program->picture_of_screen("removal-folder-dialog");
  program->cancel_folder_dialog();
  program->wait_until("the hint", [&] { return program->visible("LabelAviso"); });
  EXPECT_FALSE(program->visible("cmdCarpetaBorrar"));
  program->picture_of_screen("removal-folder-none");
  program->click("CarpetaNew");
  program->pick_folder(path("copias"));
  program->wait_until("the button of the run",
                      [&] { return program->visible("cmdCarpetaBorrar"); });
  EXPECT_EQ(program->text("LabelRuta(1)"), path("copias"));
  EXPECT_FALSE(program->visible("LabelAviso"));
  program->picture_of_screen("removal-folder");
  program->click("cmdCarpetaBorrar");
  wait_report();
  EXPECT_EQ(program->text("LabelResultado"), "3 de 3 borrados");
  EXPECT_FALSE(exists(unused(0)));
  EXPECT_EQ(contents(path("copias\\toma 1000.wav")), "sound of toma 1000.wav");
  const std::string log = contents(path("copias\\Archivos_Borrados.log"));
  EXPECT_THAT(log, HasSubstr("Archivos borrados  "));
  EXPECT_THAT(log, HasSubstr(unused(2) + "\r\n"));
  program->picture_of_screen("removal-backup");
  program->click("Salir");
  program->wait_until("the end of the options", [&] { return !program->window_shown("BacUp"); });
  use("ParaBorrar");
  program->click("cmdSalir");
  program->wait_until("the end of the review",
                      [&] { return !program->window_shown("ParaBorrar"); });

  use("Form1");
  program->click("RecuperaBorrados");
  use("Recuperar");
  program->picture_of_screen("recovery");
  program->click("cmdOpen");
  program->pick_files({path("copias\\Archivos_Borrados.log")});
  program->wait_until("the log", [&] { return program->visible("cmdRecuperar"); });
  EXPECT_THAT(program->rows("ListRecuperar"), ElementsAre(unused(0), unused(1), unused(2)));
  EXPECT_THAT(program->text("Label1"), HasSubstr("Hay: 3 Archivos borrados  "));
  program->picture_of_screen("recovery-log");
  // One of the copies is lost.
  std::filesystem::remove(path("copias\\toma 1001.wav"));
  program->click("cmdRecuperar");
  program->wait_until("the end of the recovery", [&] { return program->visible("LabelCerrar"); });
  EXPECT_EQ(program->text("Label1"), "Operación terminada");
  EXPECT_EQ(contents(unused(0)), "sound of toma 1000.wav");
  EXPECT_FALSE(exists(unused(1)));
  EXPECT_EQ(contents(unused(2)), "sound of toma 1002.wav");
  ASSERT_TRUE(program->visible("ListNoRecuperados"));
  EXPECT_THAT(program->rows("ListNoRecuperados"), ElementsAre(HasSubstr(unused(1))));
  program->picture_of_screen("recovery-done");
  program->click("Salir");
  program->wait_until("the end of the window", [&] { return !program->window_shown("Recuperar"); });
}

// Takes a while: ORDELAN_LARGE_REMOVAL gives the number of files.
TEST_F(Removal, answers_all_through_a_run_with_backup) {
  const char* count = std::getenv("ORDELAN_LARGE_REMOVAL");
  if (count == nullptr) GTEST_SKIP() << "no number of files was given";
  begin_run_with_backup(std::atoi(count));
  program->wait_until("the run", [&] { return program->visible("cmdParar"); });
  watch_answers(*program, "removed in", [&] { return is_reported(); });
  EXPECT_EQ(program->text("LabelResultado"), std::string(count) + " de " + count + " borrados");
}

TEST_F(Removal, a_run_with_backup_is_stopped_in_its_middle) {
  constexpr int kFiles = 1500;
  begin_run_with_backup(kFiles);
  program->wait_until("some progress", [&] {
    return program->visible("XP_Bar") && program->progress("XP_Bar") > 0;
  });
  const RECT window = program->place();
  const RECT bar = program->place_of("XP_Bar");
  EXPECT_EQ(bar.left - window.left, 33);
  EXPECT_EQ(bar.top - window.top, 180);
  EXPECT_TRUE(program->visible("cmdParar"));
  program->picture_now("removal-running");
  program->click("cmdParar");
  wait_report();
  EXPECT_EQ(program->text("LabelInfo"), " >> Se han Cancelado todas las operaciones << ");
  EXPECT_FALSE(exists(unused(0)));
  EXPECT_TRUE(exists(unused(kFiles - 1)));
  program->picture_of_screen("removal-stopped");

  // What has gone is in the folder, and in the log.
  const std::string log = contents(path("copias\\Archivos_Borrados.log"));
  int gone = 0;
  for (int i = 0; i < kFiles; ++i) {
    if (exists(unused(i))) continue;
    ++gone;
    EXPECT_TRUE(exists(path("copias\\toma " + std::to_string(1000 + i) + ".wav"))) << i;
    EXPECT_THAT(log, HasSubstr(unused(i) + "\r\n"));
  }
  EXPECT_GT(gone, 0);
  EXPECT_THAT(program->text("LabelResultado"), HasSubstr(std::to_string(gone) + " de "));
}

TEST_F(Removal, each_window_comes_up_in_front_of_the_one_that_it_is_opened_from) {
  make_unused(3);
  show_options();
  show_review();
  program->click_row("ListStatus", 2);  // it stands where the options do
  program->click("CommandProtegidas");
  use("FormNoBorrar");
  program->click("cmdSalir");
  program->wait_until("the end of the window",
                      [&] { return !program->window_shown("FormNoBorrar"); });
}

TEST_F(Removal, protected_folders_are_chosen_stored_and_spared) {
  make_unused(3);
  std::filesystem::create_directories(folder() / L"mezcla" / L"Guardar");
  show_options();
  set_box("CheckBackup", false);
  program->click("CommandProtegidas");
  use("FormNoBorrar");
  EXPECT_EQ(program->title(), "Carpetas con archivos que no se borraran.");
  program->picture_of_screen("protected-explained");
  program->click("AvisoNoBorrados");
  program->wait_until("the end of the words", [&] { return !program->visible("AvisoNoBorrados"); });
  EXPECT_EQ(program->text("LabelDir"), path("mezcla"));
  program->click("CommandAgregar");
  program->wait_until("the row", [&] { return program->row_count("List1") == 1; });
  const std::vector<std::string> folders = program->rows("Dir1");
  ASSERT_THAT(folders.back(), HasSubstr("Guardar"));
  program->double_click_row("Dir1", static_cast<int>(folders.size()) - 1);
  program->wait_until("the folder",
                      [&] { return program->text("LabelDir") == path("mezcla\\Guardar"); });
  program->click("CommandAgregar");
  program->wait_until("the row", [&] { return program->row_count("List1") == 2; });
  EXPECT_THAT(program->rows("List1"), ElementsAre(path("mezcla"), path("mezcla\\Guardar")));
  program->picture_of_screen("protected-chosen");
  program->click("Salir");
  program->wait_until("the end of the window",
                      [&] { return !program->window_shown("FormNoBorrar"); });
  EXPECT_THAT(settings_lines(), Contains("TotalRutas=1"));
  EXPECT_THAT(settings_lines(), Contains("Ruta 1=" + path("mezcla\\Guardar")));

  use("BacUp");
  show_review();
  program->click("cmdHecho");
  wait_report();
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(exists(unused(i)));
  EXPECT_EQ(program->text("LabelInfo"), " >> No se ha efectuado ninguna operacion << ");
  EXPECT_EQ(program->row_count("ListNoBorrados"), 3u);
  program->picture_of_screen("protected-spared");
}

TEST_F(Removal, the_window_of_recovery_is_resized_with_everything_in_its_place) {
  start();
  program->click("RecuperaBorrados");
  use("Recuperar");
  const RECT was = program->place();
  const LONG width = was.right - was.left;
  const LONG height = was.bottom - was.top;
  program->drag_window({width - 2, height - 2}, {140, 100});
  const RECT now = program->place();
  EXPECT_EQ(now.right - now.left, width + 140);
  const RECT list = program->place_of("ListRecuperar");
  EXPECT_EQ(list.left - now.left, 15);
  EXPECT_EQ(list.top - now.top, 30);
  EXPECT_EQ(list.right - list.left, width + 140 - 30);
  EXPECT_EQ(list.bottom - list.top, height + 100 - 90);
  program->picture_of_screen("recovery-large");
  program->drag_window({width + 138, height + 98}, {-400, -300});
  const RECT least = program->place();
  EXPECT_EQ(least.right - least.left, 333);
  EXPECT_EQ(least.bottom - least.top, 200);
  program->picture_of_screen("recovery-small");
}

}  // namespace
}  // namespace ordelan::test
