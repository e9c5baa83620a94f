// Drives, lost files and the about window of the real program.
#include <windows.h>

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "support/small_project.h"
#include "window/ordelan_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

std::string box_name(std::size_t index) {
  return "Check1(" + std::to_string(index) + ")";
}

// --- the drives

class LocationDrives : public OrdelanTest {
 protected:
  LocationDrives() {
    for (const std::string& root : boxed_drives()) captions.push_back(drive_caption(root));
  }

  // The boxes of the drive window, which is in use.
  std::vector<std::string> boxes() const {
    std::vector<std::string> shown;
    for (std::size_t i = 0; program->has(box_name(i)); ++i) {
      shown.push_back(program->text(box_name(i)));
    }
    return shown;
  }
  std::vector<std::string> ticked() const {
    std::vector<std::string> shown;
    for (std::size_t i = 0; program->has(box_name(i)); ++i) {
      if (program->checked(box_name(i))) shown.push_back(program->text(box_name(i)));
    }
    return shown;
  }
  // The name of a drive's box.
  std::string box_of(const std::string& root) const {
    const std::string caption = drive_caption(root);
    for (std::size_t i = 0; i < captions.size(); ++i) {
      if (captions[i] == caption) return box_name(i);
    }
    throw std::runtime_error("the drive " + root + " is not mapped");
  }
  void tick(const std::string& root) {
    const std::string box = box_of(root);
    const bool before = program->checked(box);
    program->click(box);
    program->wait_until("the tick", [&] { return program->checked(box) != before; });
  }
  void close_drives() {
    program->close_window();
    program->wait_until("the end of the drive window",
                        [&] { return !program->window_shown("UnidadesBuscar"); });
  }

  std::vector<std::string> captions;
};

TEST_F(LocationDrives, the_first_start_warns_and_shows_a_box_for_each_drive) {
  program = std::make_unique<Program>();
  const MessageShown warning = program->wait_for_message();
  EXPECT_EQ(warning.title, "Configuración");
  EXPECT_EQ(warning.text,
            "No hay ninguna unidad de disco seleccionada para la búsqueda de archivos.\r\n\r\n"
            "Esto anula la función de \"Actualizar Vip's\"\r\n"
            "Tampoco permite que al clicar un item de audio de las listas\r\n"
            "el programa busque audios desubicados.");
  EXPECT_FALSE(program->window_shown("UnidadesBuscar"));
  program->picture_of_screen("location-warning");
  program->answer_message(IDOK);

  program->use_window("UnidadesBuscar");
  EXPECT_EQ(program->title(), "Unidades en las que buscar");
  EXPECT_THAT(boxes(), ElementsAreArray(captions));
  EXPECT_THAT(ticked(), ElementsAre());
  EXPECT_EQ(program->text("Label2"), "No se buscará en ninguna unidad.");
  program->picture_of_screen("location-drives-first");
}

TEST_F(LocationDrives, what_is_ticked_is_kept_with_the_place_and_the_next_start_is_quiet) {
  program = std::make_unique<Program>();
  program->answer_message(IDOK);
  program->use_window("UnidadesBuscar");
  tick("D:\\");
  tick("F:\\");
  EXPECT_EQ(program->text("Label2"), "Se buscará en: D:\\, F:\\");
  const RECT before = program->place();
  program->drag_window({5, 5}, {70, 50});
  const RECT left = program->place();
  EXPECT_NE(left.left, before.left);
  EXPECT_NE(left.top, before.top);
  program->picture_of_screen("location-drives-ticked");
  close_drives();
  program->use_window("Form1");
  program->click("Salir");
  EXPECT_EQ(program->wait_for_end(), 0u);
  for (const std::string& caption : captions) {
    const bool chosen = caption == drive_caption("D:\\") || caption == drive_caption("F:\\");
    EXPECT_THAT(settings_lines(), Contains(caption + (chosen ? "=1" : "=0")));
  }
  EXPECT_THAT(settings_lines(), Contains("UnidadesBuscar_Left=" + std::to_string(left.left)));
  EXPECT_THAT(settings_lines(), Contains("UnidadesBuscar_Top=" + std::to_string(left.top)));

  start();
  program->click("Configurar");  // a warning would be before it
  EXPECT_FALSE(program->message_shown());
  program->use_window("UnidadesBuscar");
  EXPECT_THAT(boxes(), ElementsAreArray(captions));
  EXPECT_THAT(ticked(), ElementsAre(drive_caption("D:\\"), drive_caption("F:\\")));
  EXPECT_EQ(program->place().left, left.left);
  EXPECT_EQ(program->place().top, left.top);
  program->picture_of_screen("location-drives-again");
}

TEST_F(LocationDrives, the_drive_window_comes_again_as_it_was_closed) {
  start();
  program->click("Configurar");
  program->use_window("UnidadesBuscar");
  EXPECT_THAT(ticked(), ElementsAre(drive_caption("D:\\"), drive_caption("E:\\")));
  tick("E:\\");
  tick("G:\\");
  close_drives();
  program->use_window("Form1");
  program->click("Configurar");
  program->use_window("UnidadesBuscar");
  EXPECT_THAT(ticked(), ElementsAre(drive_caption("D:\\"), drive_caption("G:\\")));
  EXPECT_EQ(program->text("Label2"), "Se buscará en: D:\\, G:\\");
}

// --- the report of lost files

class LocationLostFiles : public OrdelanTest {
 protected:
  LocationLostFiles() {
    write("mezcla\\bombo.wav", "");
    write("mezcla\\dos.vip", project_of({path("mezcla\\bombo.wav"), path("mezcla\\caja.wav"),
                                         "D:\\No está\\Guitarra española.wav"}));
    write("mezcla\\tres.vip", project_of({path("mezcla\\bombo.wav")}));
    write("mezcla\\uno.vip", project_of({path("mezcla\\caja.wav"), path("mezcla\\bajo.wav")}));
    const std::string rule(100, '-');
    report = {"1 --> " + path("mezcla\\dos.vip"),   path("mezcla\\caja.wav"),
              "D:\\No está\\Guitarra española.wav", rule,
              "2 --> " + path("mezcla\\tres.vip"),  rule,
              "3 --> " + path("mezcla\\uno.vip"),   path("mezcla\\bajo.wav")};
  }

  void show_report() {
    start();
    open(path("mezcla\\dos.vip"));
    wait_shown("cmdPerdidos");
    wait_decoded();
    program->click("cmdPerdidos");
    program->use_window("Perdidos");
  }
  void wait_closed() {
    program->wait_until("the report is closed", [&] { return !program->window_shown("Perdidos"); });
  }
  void reopen() {
    program->use_window("Form1");
    program->click("cmdPerdidos");
    program->use_window("Perdidos");
  }
  static std::string contents(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::string report_as_text() const {
    std::string text;
    for (const std::string& row : report) text += row + "\r\n";
    return text;
  }

  std::vector<std::string> report;
};

TEST_F(LocationLostFiles, lost_files_are_shown_project_by_project) {
  show_report();
  EXPECT_EQ(program->title(), "Archivos perdidos");
  EXPECT_THAT(program->rows("ListPerdidos"), ElementsAreArray(report));
  EXPECT_EQ(program->text("TextEncontrados"), "Encontrados: 8 archivos perdidos o desubicados");
  program->picture_of_screen("location-lost");
  program->click("cmdSalir");
  wait_closed();
}

TEST_F(LocationLostFiles, the_report_is_resized_by_its_corner_and_comes_back_as_large) {
  show_report();
  const RECT was = program->place();
  const RECT list = program->place_of("ListPerdidos");
  const LONG width = was.right - was.left;
  const LONG height = was.bottom - was.top;
  program->drag_window({width - 2, height - 2}, {120, 90});
  const RECT now = program->place();
  EXPECT_EQ(now.right - now.left, width + 120);
  EXPECT_EQ(now.bottom - now.top, height + 90);
  const RECT larger = program->place_of("ListPerdidos");
  EXPECT_EQ(larger.right - larger.left, list.right - list.left + 120);
  EXPECT_EQ(larger.bottom - larger.top, list.bottom - list.top + 90);
  program->picture_of_screen("location-lost-large");
  program->click("Salir");  // it has moved with its corner
  wait_closed();
  reopen();
  const RECT again = program->place();
  EXPECT_EQ(again.right - again.left, width + 120);
  EXPECT_EQ(again.bottom - again.top, height + 90);
  // It becomes no smaller than what its controls need.
  program->drag_window({width + 118, height + 88}, {-700, -500});
  const RECT least = program->place();
  EXPECT_LT(least.right - least.left, width);
  EXPECT_GT(least.right - least.left, 300);
  program->picture_of_screen("location-lost-small");
  program->click("cmdSalir");
  wait_closed();
}

TEST_F(LocationLostFiles, the_report_is_saved_under_a_name_that_is_given_its_extension) {
  show_report();
  program->click("cmdLog");
  program->wait_until("the dialog", [&] { return program->file_dialog_shown(); });
  program->picture_of_screen("location-lost-save");
  program->pick_files({path("perdidos")});
  program->wait_until("the saved list",
                      [&] { return contents(path("perdidos.log")) == report_as_text(); });
  EXPECT_FALSE(std::filesystem::exists(path("perdidos")));
  EXPECT_TRUE(program->window_shown("Perdidos"));
}

TEST_F(LocationLostFiles, an_existing_file_is_asked_about_before_it_is_replaced) {
  write("perdidos.log", "viejo");
  show_report();
  program->click("cmdLog");
  program->name_file(path("perdidos"));
  program->wait_for_message();
  program->picture_of_screen("location-lost-replace");
  program->answer_message(IDNO);
  EXPECT_EQ(contents(path("perdidos.log")), "viejo");
  EXPECT_TRUE(program->file_dialog_shown());

  program->name_file(path("perdidos"));
  program->answer_message(IDYES);
  program->wait_until("the replaced list",
                      [&] { return contents(path("perdidos.log")) == report_as_text(); });
  EXPECT_FALSE(program->file_dialog_shown());
}

TEST_F(LocationLostFiles, a_cancelled_dialog_saves_nothing) {
  show_report();
  program->click("cmdLog");
  program->cancel_file_dialog();
  EXPECT_THAT(program->rows("ListPerdidos"), ElementsAreArray(report));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder()), {}), 1);
}

TEST_F(LocationLostFiles, the_report_closed_and_opened_again_keeps_its_place_and_its_rows) {
  show_report();
  const RECT before = program->place();
  program->drag_window({600, 20}, {90, -40});
  const RECT left = program->place();
  EXPECT_NE(left.left, before.left);
  EXPECT_NE(left.top, before.top);
  program->click("Salir");
  wait_closed();
  EXPECT_THAT(settings_lines(), Contains("Perdidos_Left=" + std::to_string(left.left)));
  EXPECT_THAT(settings_lines(), Contains("Perdidos_Top=" + std::to_string(left.top)));
  reopen();
  EXPECT_EQ(program->place().left, left.left);
  EXPECT_EQ(program->place().top, left.top);
  EXPECT_THAT(program->rows("ListPerdidos"), ElementsAreArray(report));
  EXPECT_EQ(program->text("TextEncontrados"), "Encontrados: 8 archivos perdidos o desubicados");
  program->picture_of_screen("location-lost-again");

  // The same button puts it away.
  program->use_window("Form1");
  program->click("cmdPerdidos");
  wait_closed();
}

TEST_F(LocationLostFiles, the_report_is_minimised_by_its_own_button_and_brought_back) {
  show_report();
  const RECT before = program->place();
  program->click("Button2");
  program->wait_until("the report is minimised", [&] { return program->minimized(); });
  program->picture_of_screen("location-lost-minimised");
  program->restore_window();
  program->wait_until("the report is back", [&] {
    return !program->minimized() && program->place().left == before.left;
  });
  EXPECT_EQ(program->place().top, before.top);
  EXPECT_EQ(program->place().right, before.right);
  EXPECT_THAT(program->rows("ListPerdidos"), ElementsAreArray(report));
  program->click("Salir");
  wait_closed();
  EXPECT_THAT(settings_lines(), Contains("Perdidos_Left=" + std::to_string(before.left)));
}

// --- the about window

class LocationAbout : public OrdelanTest {};

TEST_F(LocationAbout, the_label_opens_the_about_window_which_shows_the_version) {
  start();
  program->click("AcercaDe");
  program->use_window("Acerca");
  EXPECT_EQ(program->title(), "Acerca de Ordelan");
  EXPECT_EQ(program->text("LabelVersion"), "Versión " ORDELAN_VERSION);
  program->picture_of_screen("location-about");
  const auto closed = [&] { return !program->window_shown("Acerca"); };
  program->click("cmdSalir");
  program->wait_until("the end of the about window", closed);

  program->use_window("Form1");
  program->click("AcercaDe");
  program->use_window("Acerca");
  program->close_window();
  program->wait_until("the end of the about window", closed);
  EXPECT_TRUE(program->running());
}

}  // namespace
}  // namespace ordelan::test
