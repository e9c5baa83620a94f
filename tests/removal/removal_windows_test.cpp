// The windows of removal: what they show, keep and store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/removal_bench.h"

namespace ordelan::test {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct RemovalWindows : ::testing::Test, RemovalBench {
  void press_delete(int row) {
    review().ListBorrar.chosen(row);
    ui::Key key{46};
    review().on_key_down(key);
    EXPECT_TRUE(key.swallowed);
  }
  std::string ini() { return bytes("Config.ini"); }
};

// --- the options

TEST_F(RemovalWindows, the_main_windows_button_shows_the_options_and_hides_them) {
  open_studio({"Mix\\a.wav"});
  EXPECT_TRUE(options().visible());
  form.CommandBorrado.on_click();
  EXPECT_FALSE(options().visible());
  form.CommandBorrado.on_click();
  work.Borrando = true;
  form.CommandBorrado.on_click();
  EXPECT_TRUE(options().visible()) << "nothing happens during a run";
  form.RecuperaBorrados.on_click();
  EXPECT_EQ(windows.find<removal::Recuperar>(), nullptr);
}

TEST_F(RemovalWindows, the_options_are_kept_under_their_captions) {
  open_studio({"Mix\\a.wav"});
  set(false, false, true);
  unchecked();
  options().set_position({7, 9});
  options().Salir_Click();
  EXPECT_EQ(windows.find<removal::BacUp>(), nullptr);
  EXPECT_THAT(ini(), AllOf(HasSubstr("Hacer copia de seguridad de archivos=0\r\n"),
                           HasSubstr("Borrar lista 4 \"Archivos no utilizados\"=0\r\n"),
                           HasSubstr("Borrar todos los asociados      ------>=1\r\n"),
                           HasSubstr("Comprobar los proyectos antes de borrar=0\r\n"),
                           HasSubstr("BacUp_Left=7\r\n"), HasSubstr("BacUp_Top=9\r\n")));
  EXPECT_FALSE(options().CheckBackup.checked());
  EXPECT_TRUE(options().CheckBorraAsociados.checked());
  EXPECT_FALSE(options().CheckComprobar.checked());
}

TEST_F(RemovalWindows, all_is_checked_and_copied_by_design_and_nothing_else_removed) {
  start();
  EXPECT_TRUE(options().CheckBackup.checked());
  EXPECT_TRUE(options().CheckBorrar.checked());
  EXPECT_FALSE(options().CheckBorraAsociados.checked());
  EXPECT_TRUE(options().CheckComprobar.checked());
  EXPECT_TRUE(review().CheckBorrarPapelera.checked());
  EXPECT_FALSE(review().CheckVaciarPapelera.checked());
}

TEST_F(RemovalWindows, the_stored_text_of_the_result_is_never_shown) {
  start();
  EXPECT_EQ(options().LabelInfo.caption(), " >> La operación se ha realixado con éxito << ");
  EXPECT_FALSE(options().LabelInfo.visible());
}

TEST_F(RemovalWindows, the_explanation_comes_to_its_place_and_goes_by_a_click) {
  start();
  options().ImageInfoVip.on_click();
  EXPECT_TRUE(options().AvisoAsociados.visible());
  EXPECT_EQ(options().AvisoAsociados.bounds().left, 27);
  EXPECT_EQ(options().AvisoAsociados.bounds().top, 57);
  EXPECT_THAT(options().AvisoAsociados.text(), HasSubstr("HF2; HFP\r\nQue corresponden a:"));
  options().AvisoAsociados.on_click();
  EXPECT_FALSE(options().AvisoAsociados.visible());
}

TEST_F(RemovalWindows, the_review_warns_where_only_side_files_would_go) {
  open_studio({"Mix\\a.wav"});
  options().cmdBorrar_Click();
  EXPECT_FALSE(review().visible()) << "pressed a second time";
  set(false, false, true);
  options().cmdBorrar_Click();
  EXPECT_TRUE(review().TextAviso.visible());
  review().TextAviso.on_click();
  EXPECT_FALSE(review().TextAviso.visible());
}

TEST_F(RemovalWindows, rows_that_were_thrown_out_are_back_when_the_review_is_opened_again) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  press_delete(0);
  press_delete(0);
  options().cmdBorrar_Click();
  EXPECT_THAT(review().ListBorrar.rows(), SizeIs(3));
  EXPECT_TRUE(options().LabelVueltas.visible());
  EXPECT_EQ(options().LabelVueltas.caption(), "2 filas han vuelto a la lista");
}

TEST_F(RemovalWindows, boxes_that_were_cleared_are_ticked_again_with_the_rows_and_it_is_said) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  press_delete(0);
  untick("Mix\\c.wav");
  options().cmdBorrar_Click();
  EXPECT_TRUE(review().ListStatus.ticked(2));
  EXPECT_TRUE(options().LabelVueltas.visible());
  EXPECT_EQ(options().LabelVueltas.caption(),
            "1 filas han vuelto a la lista, y todas quedan activadas");
}

TEST_F(RemovalWindows, boxes_that_a_shorter_list_ticks_again_are_told_too) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  untick("Mix\\c.wav");
  form.lists.ListBorrar.remove(0);
  options().cmdBorrar_Click();
  EXPECT_TRUE(options().LabelVueltas.visible());
  EXPECT_EQ(options().LabelVueltas.caption(),
            "La lista se ha llenado de nuevo, y todas quedan activadas");
}

// --- the review

TEST_F(RemovalWindows, both_lists_have_the_rows_of_list_4_all_ticked) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  EXPECT_THAT(review().ListBorrar.rows(),
              ElementsAre(disk.path("Mix\\a.wav"), disk.path("Mix\\b.wav")));
  EXPECT_EQ(review().ListStatus.rows(), review().ListBorrar.rows());
  EXPECT_TRUE(review().ListStatus.ticked(0));
  EXPECT_TRUE(review().ListStatus.ticked(1));
  EXPECT_EQ(review().LabelErase.caption(), "Archivos no utilizados: 2");
}

TEST_F(RemovalWindows, delete_takes_the_same_row_from_both_lists) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  review().ListStatus.set_ticked(2, false);
  press_delete(1);
  EXPECT_THAT(review().ListBorrar.rows(),
              ElementsAre(disk.path("Mix\\a.wav"), disk.path("Mix\\c.wav")));
  EXPECT_EQ(review().ListStatus.rows(), review().ListBorrar.rows());
  EXPECT_TRUE(review().ListStatus.ticked(0));
  EXPECT_FALSE(review().ListStatus.ticked(1));
  EXPECT_EQ(review().ListBorrar.current(), 1);
  EXPECT_EQ(review().LabelErase.caption(), "Archivos a borrar: 2");
}

TEST_F(RemovalWindows, delete_on_the_last_row_takes_the_same_row_from_both) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  press_delete(1);
  EXPECT_EQ(review().ListStatus.rows(), review().ListBorrar.rows());
  EXPECT_THAT(review().ListBorrar.rows(), ElementsAre(disk.path("Mix\\a.wav")));
  press_delete(0);
  EXPECT_THAT(review().ListBorrar.rows(), IsEmpty());
  EXPECT_THAT(review().ListStatus.rows(), IsEmpty());
  ui::Key key{46};
  review().on_key_down(key);
  EXPECT_FALSE(key.swallowed) << "there is nothing left to delete";
}

TEST_F(RemovalWindows, a_removed_row_says_so_and_what_is_no_audio_too) {
  open_studio({"Mix\\a.wav", "Mix\\b.ogg"});
  review().CheckAudio.set_checked(true);
  review().ListBorrar.chosen(1);
  review().ListBorrar.on_click();
  EXPECT_EQ(review().TextSound.caption(), "Este archivo no se puede reproducir");
  EXPECT_TRUE(review().TextSound.visible());
  remove();
  review().ListBorrar.chosen(0);
  review().ListBorrar.on_click();
  EXPECT_EQ(review().TextSound.caption(), "Este archivo ha sido borrado");
  review().CheckAudio.set_checked(false);
  review().ListBorrar.on_click();
  EXPECT_FALSE(review().TextSound.visible());
}

TEST_F(RemovalWindows, a_click_on_the_count_shows_the_bare_number) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  review().LabelErase.on_click();
  EXPECT_EQ(review().LabelErase.caption(), "2");
}

TEST_F(RemovalWindows, tips_of_the_review_go_and_come_back) {
  start();
  const auto tips = [this] {
    return std::vector<std::string>{
        review().CheckConfirmar.tip(), review().CheckBorrarPapelera.tip(),
        review().CheckVaciarPapelera.tip(), review().CheckAudio.tip(), review().ListBorrar.tip()};
  };
  const auto before = tips();
  EXPECT_EQ(before[0], "Pide confirmación antes de borrar cada archivo");
  review().ParaBorrarCheckToolTip.toggle();
  EXPECT_THAT(tips(), testing::Each(""));
  review().cmdSalir_Click();
  EXPECT_THAT(ini(), HasSubstr("ParaBorrar_No ToolTips=1\r\n"));
  EXPECT_THAT(tips(), testing::Each("")) << "as it was left";
  review().ParaBorrarCheckToolTip.toggle();
  EXPECT_EQ(tips(), before);
}

TEST_F(RemovalWindows, the_review_keeps_its_options_and_closes_the_options_window) {
  open_studio({"Mix\\a.wav"});
  review().CheckConfirmar.set_checked(true);
  review().CheckVaciarPapelera.set_checked(true);
  review().CheckAudio.set_checked(true);
  work.Borrando = true;
  review().cmdSalir_Click();
  EXPECT_FALSE(work.Borrando);
  EXPECT_EQ(windows.find<removal::BacUp>(), nullptr);
  EXPECT_EQ(windows.find<removal::ParaBorrar>(), nullptr);
  EXPECT_THAT(ini(),
              AllOf(HasSubstr("Reporducir audio de cada item ->=1\r\n"),
                    HasSubstr("Borrar enviando a Papelera Reciclaje=0\r\n"),
                    HasSubstr("Borrar antes la papelera reciclaje=1\r\n"),
                    HasSubstr("Confirmar antes de borrar=1\r\n"), HasSubstr("ParaBorrar_Left=")));
}

TEST_F(RemovalWindows, the_volume_mark_grows_from_its_foot) {
  start();
  review().VuMe(50);
  EXPECT_EQ(review().ImageVol.bounds().height, 150);
  EXPECT_EQ(review().ImageVol.bounds().top, 310);
}

TEST_F(RemovalWindows, a_run_closes_the_windows_that_show_the_files) {
  open_studio({"Mix\\a.wav"});
  recovery();
  form.Configurar_Click();
  remove();
  EXPECT_EQ(windows.find<removal::Recuperar>(), nullptr);
  EXPECT_FALSE(windows.visible("UnidadesBuscar"));
}

// --- the backup folder

TEST_F(RemovalWindows, without_a_folder_no_run_can_begin) {
  open_studio({"Mix\\a.wav"});
  set(true, true, false);
  review().cmdHecho_Click();  // the dialog is cancelled
  EXPECT_THAT(dialogs.folder_titles, ElementsAre("Elegir o crear carpeta"));
  EXPECT_TRUE(folder_window().visible());
  EXPECT_FALSE(folder_window().cmdCarpetaBorrar.visible());
  EXPECT_TRUE(folder_window().LabelAviso.visible());
  EXPECT_TRUE(folder_window().CarpetaNew.visible());
  EXPECT_FALSE(folder_window().AvisoBack.visible());
  EXPECT_FALSE(work.Borrando);
  EXPECT_FALSE(review().Cancela.visible());
  EXPECT_EQ(options().position().x, 100);
}

TEST_F(RemovalWindows, a_second_choice_replaces_the_folder) {
  open_studio({"Mix\\a.wav"});
  set(true, true, false);
  disk.make_folder("Una");
  disk.make_folder("Otra");
  dialogs.folders = {disk.path("Una"), disk.path("Otra")};
  review().cmdHecho_Click();
  EXPECT_EQ(folder_window().LabelRuta[1].caption(), disk.path("Una"));
  EXPECT_TRUE(folder_window().LabelOK.visible());
  folder_window().CarpetaNew.on_click();
  EXPECT_EQ(folder_window().LabelRuta[1].caption(), disk.path("Otra"));
  EXPECT_EQ(options().RutaBackup, disk.path("Otra"));
  folder_window().cmdCarpetaBorrar_Click();
  EXPECT_EQ(windows.find<removal::CarpetaBack>(), nullptr);
  EXPECT_FALSE(there("Una\\Archivos_Borrados.log"));
  EXPECT_TRUE(there("Otra\\Archivos_Borrados.log"));
}

TEST_F(RemovalWindows, leaving_the_folder_window_leaves_the_rest_as_it_was) {
  open_studio({"Mix\\a.wav"});
  set(true, true, false);
  review().cmdHecho_Click();
  folder_window().cmdSalir_Click();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_THAT(ini(), HasSubstr("CarpetaBack_Left="));
  EXPECT_NE(windows.find<removal::ParaBorrar>(), nullptr);
}

// --- the protected folders

TEST_F(RemovalWindows, an_empty_list_of_folders_stores_minus_one) {
  start();
  folders().Salir_Click();
  EXPECT_THAT(ini(), HasSubstr("TotalRutas=-1\r\n"));
  EXPECT_THAT(folders().List1.rows(), IsEmpty());
}

TEST_F(RemovalWindows, adding_is_stored_at_the_end_and_removing_at_once) {
  start();
  disk.make_folder("Mix\\Voces");
  folders().set_Dir1(disk.path("Mix\\Voces"));
  folders().CommandAgregar_Click();
  folders().CommandAgregar_Click();
  EXPECT_THAT(folders().List1.rows(),
              ElementsAre(disk.path("Mix\\Voces"), disk.path("Mix\\Voces")));
  EXPECT_THAT(ini(), testing::Not(HasSubstr("TotalRutas")));
  folders().List1.chosen(1);
  folders().CommandQuitar_Click();
  EXPECT_THAT(ini(), AllOf(HasSubstr("TotalRutas=0\r\n"),
                           HasSubstr("Ruta 0=" + disk.path("Mix\\Voces") + "\r\n")));
  folders().CommandQuitar_Click();
  folders().CommandQuitar_Click();
  EXPECT_THAT(ini(), HasSubstr("TotalRutas=")) << "without a current row nothing happens";
}

TEST_F(RemovalWindows, an_empty_folder_is_passed_over_and_the_next_save_closes_the_gap) {
  disk.write("Config.ini",
             "[Settings]\r\nUnidad: D:\\=1\r\nTotalRutas=2\r\nRuta 0=D:\\A\r\nRuta 2=D:\\C\r\n"
             "Ruta 3=D:\\never read\r\n");
  start();
  EXPECT_THAT(folders().List1.rows(), ElementsAre("D:\\A", "D:\\C"));
  folders().Salir_Click();
  EXPECT_THAT(ini(), AllOf(HasSubstr("TotalRutas=1\r\n"), HasSubstr("Ruta 1=D:\\C\r\n"),
                           HasSubstr("Ruta 3=D:\\never read\r\n")));
}

TEST_F(RemovalWindows, the_list_is_emptied_and_stored_when_the_window_is_left) {
  disk.write("Config.ini", "[Settings]\r\nTotalRutas=0\r\nRuta 0=D:\\A\r\n");
  start();
  folders().cmdBorrar.on_click();
  EXPECT_THAT(ini(), HasSubstr("TotalRutas=0\r\n"));
  folders().cmdSalir.on_click();
  EXPECT_THAT(ini(), HasSubstr("TotalRutas=-1\r\n"));
}

// Each of the two windows puts the other where it was closed last.
TEST_F(RemovalWindows, the_place_is_that_of_the_main_window) {
  start();
  folders().set_position({321, 123});
  folders().Salir_Click();
  EXPECT_THAT(ini(), AllOf(HasSubstr("Me_Left=321\r\n"), HasSubstr("Me_Top=123\r\n")));
}

TEST_F(RemovalWindows, the_notice_of_the_folders_is_shown_as_it_was_left) {
  start();
  EXPECT_TRUE(folders().AvisoNoBorrados.visible());
  folders().CheckAviso.toggle();
  EXPECT_FALSE(folders().AvisoNoBorrados.visible());
  folders().Salir_Click();
  EXPECT_THAT(ini(), HasSubstr("Ver el aviso al iniciar=0\r\n"));
  EXPECT_FALSE(folders().AvisoNoBorrados.visible());
  folders().CheckAviso.toggle();
  EXPECT_TRUE(folders().AvisoNoBorrados.visible());
  folders().List1.on_click();
  EXPECT_FALSE(folders().AvisoNoBorrados.visible());
}

TEST_F(RemovalWindows, folders_are_opened_by_a_double_click_and_by_the_drives) {
  start();
  disk.make_folder("Mix\\Voces");
  folders().Drive1.chosen(0);
  folders().Drive1.on_click();
  EXPECT_EQ(folders().Dir1_Path() + "\\", folders().Drive1.row(0).ends_with(":\\")
                                              ? folders().Dir1_Path() + "\\"
                                              : folders().Drive1.row(0));
  folders().set_Dir1(disk.folder());
  const auto open = [this](const std::string& name) {
    const auto& rows = folders().Dir1.rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (rows[i].ends_with("\\" + name)) folders().Dir1.chosen(static_cast<int>(i));
    }
    folders().Dir1.on_double_click();
  };
  open("Mix");
  open("Voces");
  EXPECT_EQ(folders().Dir1_Path(), disk.path("Mix\\Voces"));
  EXPECT_EQ(folders().LabelDir.caption(), disk.path("Mix\\Voces"));
  open("Mix");
  EXPECT_EQ(folders().Dir1_Path(), disk.path("Mix")) << "and back";
}

}  // namespace
}  // namespace ordelan::test
