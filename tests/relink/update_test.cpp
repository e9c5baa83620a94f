// The update of the listed projects, step by step, in the whole program without a screen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "location/lost_file_window.h"
#include "removal/backup_options_window.h"
#include "removal/recovery_window.h"
#include "removal/removal_review_window.h"
#include "support/update_bench.h"
#include "text/paths.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

struct Update : ::testing::Test, UpdateBench {
  // One project in Mix that names a file where it is not.
  void one_lost() {
    project_at("Mix\\tema.vip", {"D:\\Viejo\\a.wav"});
    audio("Nuevo\\a.wav");
  }
  void open_one() {
    start();
    open("Mix\\tema.vip");
  }
};

// --- the question and the ways out before anything is done

TEST_F(Update, asks_before_it_begins) {
  one_lost();
  open_one();
  form.ActualizarVip.on_click();
  EXPECT_EQ(last_box().title, "Leer con atención");
  EXPECT_EQ(last_box().icon, system::Icon::information);
  EXPECT_EQ(last_box().buttons, system::Buttons::yes_no);
  EXPECT_EQ(last_box().text,
            "Esta función actualiza los proyectos Vip de la forma siguiente:\r\n\r\n"
            "Sustituye la ruta de los archivos de audio que figuran en los Vip\r\n"
            "y que físicamente están en otra ruta diferente a la que figura en los Vip's.\r\n\r\n"
            "Samplitude al abrir un proyecto Vip, que no encuentra los archivos de audio. \r\n"
            "pide localizarlos uno por uno, y si no, los vuelve a bouncear.\r\n"
            "Esta operación lleva mucho tiempo, o repetir los archivos FreezeData");
}

TEST_F(Update, an_answer_of_no_changes_nothing_but_leaves_the_pointer_mode_off) {
  one_lost();
  open_one();
  const std::string before = bytes("Mix\\tema.vip");
  work.ModoPosiciones = true;
  windows.touch<removal::BacUp>();
  form.ActualizarVip.on_click();
  EXPECT_FALSE(work.ModoPosiciones);
  EXPECT_FALSE(there("Mix\\Originales"));
  EXPECT_EQ(bytes("Mix\\tema.vip"), before);
  EXPECT_NE(windows.find<removal::BacUp>(), nullptr);
  EXPECT_TRUE(form.ActualizarVip.visible());
}

TEST_F(Update, does_nothing_while_files_are_removed) {
  one_lost();
  open_one();
  dialogs.messages.clear();
  work.Borrando = true;
  form.ActualizarVip.on_click();
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(Update, closes_the_windows_that_could_hold_or_show_what_changes) {
  one_lost();
  open_one();
  windows.touch<removal::BacUp>();
  windows.touch<removal::ParaBorrar>();
  windows.touch<removal::Recuperar>();
  windows.touch<location::ElegirRuta>();
  ASSERT_NE(windows.find<location::Perdidos>(), nullptr);
  update();
  EXPECT_EQ(windows.find<removal::BacUp>(), nullptr);
  EXPECT_EQ(windows.find<removal::ParaBorrar>(), nullptr);
  EXPECT_EQ(windows.find<removal::Recuperar>(), nullptr);
  EXPECT_EQ(windows.find<location::ElegirRuta>(), nullptr);
  EXPECT_EQ(windows.find<location::Perdidos>(), nullptr);
}

struct UpdateWithoutDrives : Update {
  void refuse() {
    one_lost();
    open_one();
    boxes().Check1[0].set_checked(false);
    update();
  }
};

TEST_F(UpdateWithoutDrives, says_that_it_cannot_and_copies_nothing) {
  refuse();
  EXPECT_EQ(last_box().title, "Aviso");
  EXPECT_EQ(last_box().icon, system::Icon::critical);
  EXPECT_EQ(last_box().text,
            "Al no haber unidades de disco seleccionadas\r\npara buscar los archivos "
            "desubicados.\r\n\r\nNo se puede hacer la actualización.\r\nPulsar menú Configurar, y "
            "seleccionar unidades.\r\nVolver a pulsar menú ActualizarVip");
  EXPECT_FALSE(there("Mix\\Originales"));
  EXPECT_FALSE(form.cmdCancelar.visible());
}

// The mode stays on until something is opened or emptied.
TEST_F(UpdateWithoutDrives, leaves_the_pointer_mode_on_so_that_a_drop_is_refused) {
  refuse();
  EXPECT_TRUE(work.ModoPosiciones);
  drop({"Mix\\tema.vip"});
  EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty());
  const auto first = std::to_string(bytes("Mix\\tema.vip").find(":\\"));  // 1-based: one before
  EXPECT_EQ(bytes("Mix\\tema_vip.log"), first + "\r\n");
  EXPECT_FALSE(work.ModoPosiciones) << "the drop of nothing has emptied the window";
}

TEST_F(UpdateWithoutDrives, a_log_of_positions_never_empties_a_file_of_somebody_else) {
  disk.write("Mix\\tema_vip.log", "notes of the recording session");
  refuse();
  drop({"Mix\\tema.vip"});
  EXPECT_EQ(bytes("Mix\\tema_vip.log"), "notes of the recording session");
}

TEST_F(UpdateWithoutDrives, a_log_of_positions_replaces_an_older_one) {
  disk.write("Mix\\tema_vip.log", "12\r\n345\r\n6789\r\n");
  refuse();
  drop({"Mix\\tema.vip"});
  EXPECT_NE(bytes("Mix\\tema_vip.log"), "12\r\n345\r\n6789\r\n");
}

TEST_F(UpdateWithoutDrives, opening_a_project_ends_the_pointer_mode) {
  refuse();
  open("Mix\\tema.vip");
  EXPECT_FALSE(work.ModoPosiciones);
  EXPECT_THAT(form.lists.ListVip.rows(), SizeIs(1));
}

TEST_F(Update, where_nothing_is_lost_no_folder_is_made_and_the_box_is_empty) {
  audio("Mix\\a.wav");
  project("Mix\\tema.vip", {"Mix\\a.wav"});
  open_one();
  // A sweep counts the title of the project too, and so always as having lost something: the row
  // of list 2 with the same number is then past its end.
  form.lists.ListUtilizados.clear();
  update();
  EXPECT_EQ(last_box().text, "");
  EXPECT_EQ(last_box().title, "Estos proyectos Vip no tienen archivos desubicados");
  EXPECT_EQ(last_box().icon, system::Icon::exclamation);
  EXPECT_FALSE(there("Mix\\Originales"));
  EXPECT_FALSE(form.ActualizarVip.visible());
  EXPECT_FALSE(work.ModoPosiciones);
}

TEST_F(Update, without_a_listed_project_the_box_says_that_all_are_up_to_date) {
  one_lost();
  open_one();
  form.lists.ListProyectos.clear();
  update();
  EXPECT_EQ(last_box().title, "Proyectos Vip actualizados a ubicación actual");
  EXPECT_EQ(last_box().icon, system::Icon::information);
}

// --- a whole job

TEST_F(Update, a_project_leads_to_where_its_file_is_now) {
  one_lost();
  open_one();
  const std::string before = bytes("Mix\\tema.vip");
  update();
  EXPECT_THAT(paths_in("Mix\\tema.vip"), ElementsAre(disk.path("Nuevo\\a.wav")));
  EXPECT_EQ(bytes("Mix\\tema.vip").size(), before.size());
  EXPECT_EQ(bytes("Mix\\Originales\\tema.vip"), before);
  EXPECT_FALSE(there("Mix\\Originales\\tema_vip.ptr"));
  EXPECT_EQ(last_box().text,
            "Los Vip's actualizados estan en la carpeta: " + disk.path("Mix\\") +
                "\r\nLos Vip's originales estan en la carpeta: " + disk.path("Mix\\Originales\\") +
                "\r\n\r\nLista de Vip's actualizados: \r\n\r\n" +
                disk.path("Mix\\Originales\\tema.vip") + "\r\n");
  EXPECT_EQ(last_box().title, "Estos proyectos Vip no tienen archivos desubicados");
}

TEST_F(Update, the_job_ends_with_its_clocks_stopped_and_its_controls_put_back) {
  one_lost();
  open_one();
  update();
  EXPECT_EQ(form.clocks.LabelD.caption(), "Tiempo actualización");
  EXPECT_TRUE(form.clocks.LabelD.visible());
  EXPECT_TRUE(form.clocks.TimeDeco.visible());
  EXPECT_THAT(form.clocks.TimeDeco.text(), EndsWith(" seg"));
  EXPECT_EQ(form.clocks.TimeDeco.back_color(), ui::Color::window_background);
  EXPECT_EQ(form.clocks.TextLapsoTotal.back_color(), ui::Color::window_background);
  EXPECT_FALSE(form.clocks.TimerLap.running());
  EXPECT_FALSE(form.clocks.TimerActualizar.running());
  EXPECT_FALSE(form.strip.TextDecode.visible());
  EXPECT_FALSE(form.strip.XP_ProgressBar1.visible());
  EXPECT_FALSE(form.strip.LabelAviso.visible());
  EXPECT_TRUE(form.CheckDragDrop.visible());
  EXPECT_TRUE(form.CheckLogo.visible());
  EXPECT_FALSE(form.ActualizarVip.visible());
  EXPECT_FALSE(form.cmdCancelar.visible());
  EXPECT_FALSE(work.ModoPosiciones);
  EXPECT_FALSE(work.Actualizando);
}

TEST_F(Update, shows_that_pointers_are_written_and_that_it_can_be_cancelled) {
  project_at("Mix\\tema.vip", std::vector<std::string>(3000, "D:\\Viejo\\a.wav"));
  audio("Nuevo\\a.wav");
  open_one();
  bool seen = false;
  in_the_middle([&] { return form.strip.LabelAviso.visible() && work.ModoPosiciones; },
                [&] {
                  seen = true;
                  EXPECT_EQ(form.strip.LabelAviso.caption(),
                            "Grabando punteros para actualizar... esperar a que termine.");
                  EXPECT_EQ(form.strip.LabelAviso.font().points, 14);
                  EXPECT_TRUE(form.strip.LabelAviso.font().bold);
                  EXPECT_TRUE(form.strip.XP_ProgressBar1.visible());
                  EXPECT_FALSE(form.CheckDragDrop.visible());
                  EXPECT_FALSE(form.CheckLogo.visible());
                  EXPECT_TRUE(form.cmdCancelar.visible());
                  EXPECT_EQ(form.clocks.TimeDeco.back_color(), ui::Color{0xC0C0FF});
                });
  update();
  EXPECT_TRUE(seen);
}

TEST_F(Update, a_file_on_the_ticked_drives_wins_over_one_beside_the_project) {
  add_drive("Otro");  // not the disk itself: D: is unticked below
  audio("Mix\\a.wav");
  audio("Otro\\x\\a.wav");
  project_at("Mix\\tema.vip", {"D:\\Viejo\\muy lejos\\de aqui\\a.wav"});
  open_one();
  for (auto& box : boxes().Check1) box->set_checked(box->tag() != disk.folder());
  update();
  EXPECT_THAT(paths_in("Mix\\tema.vip"), ElementsAre(disk.path("Otro\\x\\a.wav")));
}

TEST_F(Update, frozen_tracks_beside_the_project_spare_the_search) {
  audio("Mix\\FreezeData\\a.wav");
  audio("Nuevo\\a.wav");
  project_at("Mix\\tema.vip", {"D:\\Viejo\\muy lejos\\a.wav"});
  open_one();
  update();
  EXPECT_THAT(paths_in("Mix\\tema.vip"), ElementsAre(disk.path("Mix\\FreezeData\\a.wav")));
}

TEST_F(Update, a_file_that_is_nowhere_is_expected_beside_the_project) {
  project_at("Mix\\tema.vip", {"D:\\Viejo\\a.wav"});
  open_one();
  update();
  EXPECT_THAT(paths_in("Mix\\tema.vip"), ElementsAre(disk.path("Mix\\a.wav")));
  EXPECT_FALSE(updated().front().rutas.front().hallada);
}

TEST_F(Update, paths_that_are_right_are_rewritten_too) {
  audio("Bien\\a.wav");
  audio("Nuevo\\b.wav");
  project_at("Mix\\tema.vip", {disk.path("Bien\\a.wav"), "D:\\Viejo\\b.wav"});
  open_one();
  update();
  EXPECT_THAT(paths_in("Mix\\tema.vip"),
              ElementsAre(disk.path("Bien\\a.wav"), disk.path("Nuevo\\b.wav")));
  EXPECT_EQ(updated().front().rutas[0].nueva, disk.path("Bien\\a.wav"));
}

TEST_F(Update, the_folder_of_a_drop_is_that_of_its_first_project) {
  one_lost();
  start();
  drop({"Mix\\tema.vip"});
  EXPECT_EQ(work.RutaProyectos, disk.path("Mix\\tema.vip"));
  update();
  EXPECT_EQ(work.RutaProyectos, disk.path("Mix\\"));
  EXPECT_TRUE(there("Mix\\Originales\\tema.vip"));
}

TEST_F(Update, all_other_projects_of_the_folder_follow) {
  one_lost();
  project_at("Mix\\otro.vip", {"D:\\Viejo\\b.wav", "D:\\Viejo\\c.mp3"});
  audio("Nuevo\\b.wav");
  audio("Nuevo\\Sub\\c.mp3");
  open_one();
  update();
  EXPECT_THAT(paths_in("Mix\\otro.vip"),
              ElementsAre(disk.path("Nuevo\\b.wav"), disk.path("Nuevo\\Sub\\c.mp3")));
  EXPECT_THAT(paths_in("Mix\\tema.vip"), ElementsAre(disk.path("Nuevo\\a.wav")));
}

// --- several hits

TEST_F(Update, several_hits_wait_for_the_choice_of_the_user) {
  one_lost();
  audio("Otro sitio\\a.wav");
  open_one();
  in_the_middle([&] { return choice() != nullptr; },
                [&] {
                  EXPECT_THAT(
                      choice()->ListElegirRuta.rows(),
                      ElementsAre(disk.path("Nuevo\\a.wav"), disk.path("Otro sitio\\a.wav")));
                  choice()->ListElegirRuta.chosen(1);
                  choice()->ListElegirRuta.on_click();
                });
  update();
  EXPECT_EQ(choice(), nullptr);
  EXPECT_THAT(paths_in("Mix\\tema.vip"), ElementsAre(disk.path("Otro sitio\\a.wav")));
}

TEST_F(Update, a_click_below_the_hits_writes_an_empty_path) {
  one_lost();
  audio("Otro sitio\\a.wav");
  open_one();
  const auto at = bytes("Mix\\tema.vip").find("D:\\Viejo");
  in_the_middle([&] { return choice() != nullptr; },
                [&] { choice()->ListElegirRuta.on_click_below(); });
  update();
  EXPECT_EQ(bytes("Mix\\tema.vip").substr(at, 14), std::string(14, '\0'));
  EXPECT_THAT(paths_in("Mix\\tema.vip"), IsEmpty());
}

TEST_F(Update, one_choice_can_stand_for_all_files_of_the_old_folder) {
  project_at("Mix\\tema.vip", {"D:\\Viejo\\a.wav", "D:\\Viejo\\b.wav"});
  for (const char* const file :
       {"Nuevo\\a.wav", "Nuevo\\b.wav", "Otro sitio\\a.wav", "Otro sitio\\b.wav"}) {
    audio(file);
  }
  open_one();
  int asked = 0;
  backend.on_pump = [&] {
    if (choice() == nullptr || choice()->Elegido) return;
    ++asked;
    choice()->CheckCarpeta.set_checked(true);
    choice()->ListElegirRuta.chosen(1);
    choice()->ListElegirRuta.on_click();
  };
  update();
  EXPECT_EQ(asked, 1);
  EXPECT_THAT(paths_in("Mix\\tema.vip"),
              ElementsAre(disk.path("Otro sitio\\a.wav"), disk.path("Otro sitio\\b.wav")));
}

// --- rows of other folders, and of one name

struct UpdateOfSubfolders : Update {
  void sweep() {
    start();
    open("Mix\\tema.vip");
  }
};

TEST_F(UpdateOfSubfolders, a_row_of_a_subfolder_is_patched_in_the_folder_of_the_projects) {
  one_lost();
  project_at("Mix\\Sub\\otro.vip", {"D:\\Viejo\\b.wav"});
  audio("Nuevo\\b.wav");
  sweep();
  ASSERT_THAT(form.lists.ListProyectos.rows(), SizeIs(2));
  const std::string before = bytes("Mix\\Sub\\otro.vip");
  update();
  EXPECT_EQ(bytes("Mix\\Sub\\otro.vip"), before);
  EXPECT_TRUE(there("Mix\\otro.vip")) << "the file of that name has been made there";
  EXPECT_TRUE(updated()[1].creado);
  EXPECT_THAT(bytes("Mix\\Originales\\Actualizacion.log"),
              HasSubstr("creado: " + disk.path("Mix\\otro.vip")));
}

TEST_F(UpdateOfSubfolders, the_way_back_removes_what_the_update_has_made) {
  one_lost();
  project_at("Mix\\Sub\\otro.vip", {"D:\\Viejo\\b.wav"});
  sweep();
  const std::string before = bytes("Mix\\tema.vip");
  update();
  ASSERT_TRUE(there("Mix\\otro.vip"));
  undo();
  EXPECT_FALSE(there("Mix\\otro.vip"));
  EXPECT_EQ(bytes("Mix\\tema.vip"), before);
}

TEST_F(UpdateOfSubfolders, a_file_that_is_patched_for_another_row_has_its_own_copy) {
  one_lost();
  project_at("Mix\\Sub\\otro.vip", {"D:\\Viejo\\b.wav"});
  disk.write("Mix\\otro.vip", "no project, but somebody's own");
  sweep();
  update();
  EXPECT_NE(bytes("Mix\\otro.vip"), "no project, but somebody's own");
  undo();
  EXPECT_EQ(bytes("Mix\\otro.vip"), "no project, but somebody's own");
}

// Both rows write one pointer file, the later for good; the first row uses it up.
TEST_F(UpdateOfSubfolders, a_second_row_of_the_same_name_ends_the_job) {
  project_at("Mix\\tema.vip", {"D:\\Viejo\\a.wav"});
  project_at("Mix\\Sub\\tema.vip", {"D:\\Viejo\\lejos\\b.wav", "D:\\Viejo\\c.wav"});
  audio("Nuevo\\a.wav");
  sweep();
  ASSERT_THAT(form.lists.ListProyectos.rows(), SizeIs(2));
  update();
  EXPECT_EQ(last_box().title, "No existen archivos de punteros");
  EXPECT_EQ(last_box().icon, system::Icon::critical);
  EXPECT_THAT(last_box().text, EndsWith(disk.path("Mix\\Originales\\tema.vip") + "\r\n" +
                                        disk.path("Mix\\Originales\\tema.vip") + "\r\n"));
  EXPECT_FALSE(form.ActualizarVip.visible());
  EXPECT_FALSE(work.ModoPosiciones);
  EXPECT_TRUE(form.cmdCancelar.visible()) << "nothing else is put back";
  EXPECT_TRUE(form.clocks.TimerActualizar.running());
  EXPECT_THAT(updated()[0].rutas, SizeIs(2)) << "the pointers are those of the later row";
}

TEST_F(UpdateOfSubfolders, projects_of_one_name_keep_copies_of_their_own) {
  project_at("Mix\\tema.vip", {"D:\\Viejo\\a.wav"});
  project_at("Mix\\Sub\\tema.vip", {"D:\\Viejo\\lejos\\b.wav"});
  sweep();
  const std::string first = bytes("Mix\\tema.vip");
  const std::string second = bytes("Mix\\Sub\\tema.vip");
  update();
  EXPECT_EQ(bytes("Mix\\Originales\\tema.vip"), second);
  EXPECT_EQ(bytes("Mix\\Originales\\0001\\tema.vip.orig"), first);
  undo();
  EXPECT_EQ(bytes("Mix\\tema.vip"), first);
  EXPECT_EQ(bytes("Mix\\Sub\\tema.vip"), second);
}

TEST_F(UpdateOfSubfolders, rows_below_a_folder_of_originals_are_left_alone) {
  one_lost();
  project_at("Mix\\Originales\\viejo.vip", {"D:\\Viejo\\b.wav"});
  sweep();
  ASSERT_THAT(form.lists.ListProyectos.rows(), SizeIs(2));
  const std::string before = bytes("Mix\\Originales\\viejo.vip");
  update();
  EXPECT_EQ(bytes("Mix\\Originales\\viejo.vip"), before);
  EXPECT_FALSE(there("Mix\\viejo.vip"));
  EXPECT_THAT(last_box().text, HasSubstr(disk.path("Mix\\Originales\\viejo.vip") + "\r\n"));
  EXPECT_THAT(bytes("Mix\\Originales\\Actualizacion.log"),
              HasSubstr("viejo.vip   (no se ha actualizado: está en una carpeta de originales)"));
  EXPECT_FALSE(form.strip.TextDecode.visible()) << "nothing has gone wrong";
}

}  // namespace
}  // namespace ordelan::test
