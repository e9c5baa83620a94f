#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "removal/protected_folders.h"
#include "removal/reasons.h"
#include "support/removal_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr auto kGreen = static_cast<ui::Color>(0x00FF00);
constexpr auto kPaleRed = static_cast<ui::Color>(0x8080FF);
constexpr auto kPaleGreen = static_cast<ui::Color>(0x80FF80);

struct Removal : ::testing::Test, RemovalBench {
  void expect_said(const std::string& text, ui::Color color) {
    EXPECT_TRUE(options().LabelInfo.visible());
    EXPECT_EQ(options().LabelInfo.caption(), text);
    EXPECT_EQ(options().LabelInfo.fore_color(), color);
  }
  void hide_file(const std::string& below) {
    if (!disk.files().set_attributes(disk.path(below), system::attribute::kHidden)) {
      GTEST_SKIP() << "nothing can be hidden here";
    }
  }
};

TEST_F(Removal, ticked_rows_go_and_are_marked_and_others_stay) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  untick("Mix\\b.wav");
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_FALSE(there("Mix\\c.wav"));
  EXPECT_TRUE(there("Mix\\usado.wav"));
  EXPECT_THAT(review().ListBorrar.rows(),
              ElementsAre(disk.path("Mix\\a.wav") + "  --> Borrado", disk.path("Mix\\b.wav"),
                          disk.path("Mix\\c.wav") + "  --> Borrado"));
  expect_said(" >> Se han efectuado todas las operaciones << ", kGreen);
  EXPECT_EQ(options().LabelResultado.caption(), "2 de 2 borrados");
  EXPECT_FALSE(options().cmdBorrar.visible());
  EXPECT_FALSE(options().XP_Bar.visible());
  EXPECT_FALSE(review().cmdHecho.visible());
  EXPECT_FALSE(review().Cancela.visible());
  EXPECT_TRUE(review().Salir.visible());
  EXPECT_FALSE(work.Borrando);
  EXPECT_THAT(offered(), testing::SizeIs(3)) << "the lists of the main window stay as they were";
}

TEST_F(Removal, rows_go_to_the_bin_with_or_without_a_question) {
  open_studio({"Mix\\a.wav"});
  review().CheckBorrarPapelera.set_checked(true);
  remove();
  EXPECT_TRUE(shell.bin.contains(disk.path("Mix\\a.wav")));
  EXPECT_THAT(shell.questions, IsEmpty());
}

TEST_F(Removal, a_question_that_is_answered_with_no_still_gives_the_mark) {
  open_studio({"Mix\\a.wav"});
  review().CheckBorrarPapelera.set_checked(true);
  review().CheckConfirmar.set_checked(true);
  shell.answers_yes = false;
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_THAT(shell.questions, ElementsAre(disk.path("Mix\\a.wav")));
  EXPECT_THAT(review().ListBorrar.row(0), HasSubstr("  --> Borrado"));
  expect_said(" >> Se han efectuado todas las operaciones << ", kGreen);
  EXPECT_EQ(options().LabelResultado.caption(), "0 de 1 borrados");
  EXPECT_EQ(reason("Mix\\a.wav"), "la respuesta ha sido no");
}

TEST_F(Removal, a_read_only_file_stays_and_is_marked_and_counted) {
  open_studio({"Mix\\a.wav"});
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Mix\\a.wav"), system::attribute::kReadOnly));
  unchecked();
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_THAT(review().ListBorrar.row(0), HasSubstr("  --> Borrado"));
  EXPECT_EQ(outcome().ArchivosBorrados, 1u);
  EXPECT_EQ(options().LabelResultado.caption(), "0 de 1 borrados");
  EXPECT_THAT(options().ListNoBorrados.rows(),
              ElementsAre(disk.path("Mix\\a.wav") + "   (es de solo lectura)"));
}

TEST_F(Removal, with_all_rows_unticked_nothing_is_removed) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  untick("Mix\\a.wav");
  untick("Mix\\b.wav");
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  expect_said(" >> No se ha efectuado ninguna operacion << ", kGreen);
}

TEST_F(Removal, a_row_that_was_removed_before_is_passed_over) {
  open_studio({"Mix\\a.wav"});
  remove();
  review().cmdHecho_Click();
  EXPECT_EQ(review().ListBorrar.row(0), disk.path("Mix\\a.wav") + "  --> Borrado");
  expect_said(" >> No se ha efectuado ninguna operacion << ", kGreen);
}

TEST_F(Removal, nothing_to_do_is_said) {
  open_studio({"Mix\\a.wav"});
  set(false, false, false);
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  expect_said(" >> No hay archivos para borrar << ", kGreen);
}

TEST_F(Removal, the_bin_is_emptied_with_a_question_and_twice_without_backup) {
  open_studio({"Mix\\a.wav"});
  review().CheckVaciarPapelera.set_checked(true);
  remove();
  EXPECT_EQ(shell.emptied, 2);
}

TEST_F(Removal, the_bin_is_emptied_once_with_backup) {
  open_studio({"Mix\\a.wav"});
  review().CheckVaciarPapelera.set_checked(true);
  remove_with_backup("Copias");
  EXPECT_EQ(shell.emptied, 1);
}

// --- protected folders

TEST_F(Removal, a_protected_folder_protects_neighbours_and_other_drives) {
  const std::vector<std::string> protects = {"D:\\Audio\\Keep"};
  using removal::is_protected;
  EXPECT_TRUE(is_protected("E:\\Audio\\Keeper\\a.wav", protects));
  EXPECT_FALSE(is_protected("D:\\audio\\keep\\a.wav", protects));
  EXPECT_TRUE(is_protected("D:\\x\\Audio\\Kee.wav", {"D:\\Audio\\Keep", "E:\\nada"}) ==
              is_protected("D:\\x\\Audio\\Kee.wav", protects));
  EXPECT_TRUE(is_protected("anything", {"D:\\"}));
  EXPECT_FALSE(is_protected("anything", {}));
}

TEST_F(Removal, protected_rows_stay) {
  open_studio({"Mix\\a.wav", "Mix\\Voces\\b.wav"});
  folders().List1.add(disk.path("Mix\\Voces"));
  folders().Salir_Click();
  unchecked();
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\Voces\\b.wav"));
  EXPECT_THAT(reason("Mix\\Voces\\b.wav"), StartsWith("está protegido"));
}

TEST_F(Removal, the_root_of_a_drive_protects_every_row) {
  open_studio({"Mix\\a.wav"});
  folders().List1.add("Q:\\");
  folders().Salir_Click();
  unchecked();
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  expect_said(" >> No se ha efectuado ninguna operacion << ", kGreen);
}

// Without a backup the list is read anew when the run begins.
TEST_F(Removal, what_was_added_and_not_saved_protects_by_the_careful_look_alone) {
  open_studio({"Mix\\a.wav", "Mix\\Voces\\b.wav"});
  folders().List1.add(disk.path("mix\\VOCES"));
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\Voces\\b.wav")) << "letter case ignored, saved or not";
}

TEST_F(Removal, what_was_added_and_not_saved_is_forgotten_where_nothing_is_checked) {
  open_studio({"Mix\\Voces\\b.wav"});
  folders().List1.add(disk.path("Mix\\Voces"));
  unchecked();
  remove();
  EXPECT_FALSE(there("Mix\\Voces\\b.wav"));
}

// --- hidden files and side files

TEST_F(Removal, a_hidden_row_stays_without_a_mark) {
  open_studio({"Mix\\a.wav"});
  hide_file("Mix\\a.wav");
  if (IsSkipped()) return;
  unchecked();
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(review().ListBorrar.row(0), disk.path("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), removal::reason::kHidden);
}

TEST_F(Removal, side_files_go_before_the_rows_and_are_counted) {
  open_studio({"Mix\\a.wav", "Mix\\a.h2", "Mix\\a.hdp", "Mix\\b.cue"});
  set(false, true, true);
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Mix\\a.hdp"), system::attribute::kReadOnly));
  remove();
  for (const char* gone : {"Mix\\a.wav", "Mix\\a.h2", "Mix\\a.hdp", "Mix\\b.cue"}) {
    EXPECT_FALSE(there(gone)) << gone;
  }
  EXPECT_EQ(review().LabelErase.caption(), "Se han borrado: 3 archivos asociados de 3");
  expect_said(" >> Se han efectuado todas las operaciones << ", kGreen);
  EXPECT_EQ(options().LabelResultado.caption(), "1 de 1 borrados, y 3 asociados");
}

TEST_F(Removal, side_files_alone_leave_their_own_message) {
  open_studio({"Mix\\a.wav", "Mix\\a.h2"});
  set(false, false, true);
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_FALSE(there("Mix\\a.h2"));
  expect_said(" > Se han borrado: 1 archivos asociados < ", kPaleGreen);
}

TEST_F(Removal, side_files_go_although_no_row_is_ticked) {
  open_studio({"Mix\\a.wav", "Mix\\a.h2"});
  untick("Mix\\a.wav");
  set(false, true, true);
  remove();
  EXPECT_FALSE(there("Mix\\a.h2"));
  expect_said(" >> Se han borrado todos los asociados << ", kGreen);
}

// The last four letters of "x.aiff" are none of the audio's: it stands among the side files.
TEST_F(Removal, audio_among_the_side_files_stays_by_the_careful_look_alone) {
  open_studio({"Mix\\a.aiff", "Mix\\b.wav"});
  form.lists.List1.add(disk.path("Mix\\a.aiff"));
  set(false, false, true);
  remove();
  EXPECT_TRUE(there("Mix\\a.aiff"));
  EXPECT_EQ(reason("Mix\\a.aiff"), removal::reason::kOtherKind);
}

TEST_F(Removal, audio_among_the_side_files_goes_where_nothing_is_checked) {
  open_studio({"Mix\\a.aiff", "Mix\\b.wav"});
  form.lists.List1.add(disk.path("Mix\\a.aiff"));
  set(false, false, true);
  unchecked();
  remove();
  EXPECT_FALSE(there("Mix\\a.aiff"));
}

TEST_F(Removal, no_project_is_ever_removed) {
  open_studio({"Mix\\a.wav"});
  project("Mix\\otro.vip", {"Mix\\usado.wav"});
  form.lists.List1.add(disk.path("Mix\\otro.vip"));
  form.lists.ListBorrar.add(disk.path("Mix\\otro.vip"));
  form.CopiarListBorrados();
  set(false, true, true);
  unchecked();
  remove();
  EXPECT_TRUE(there("Mix\\otro.vip"));
  EXPECT_EQ(reason("Mix\\otro.vip"), removal::reason::kProject);
}

TEST_F(Removal, an_empty_list_of_side_files_is_no_work) {
  open_studio({"Mix\\a.wav"});
  form.lists.List1.clear();
  set(false, false, true);
  remove();
  EXPECT_EQ(options().XP_Bar.maximum(), 0) << "of the one row";
  expect_said(" >> No hay archivos para borrar << ", kGreen);
}

// --- cancel, and what comes between

TEST_F(Removal, a_cancel_that_waits_ends_the_next_run_after_its_first_row) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  review().Cancela_Click();
  EXPECT_TRUE(options().CancelarBorrado);
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  expect_said(" >> Se han Cancelado todas las operaciones << ", kPaleRed);
  EXPECT_FALSE(options().CancelarBorrado) << "it is used up";
}

TEST_F(Removal, a_cancel_among_the_side_files_ends_the_rows_too) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\a.h2", "Mix\\b.h2"});
  set(false, true, true);
  in_the_middle([this] { return !there("Mix\\a.h2"); }, [this] { review().Cancela_Click(); });
  remove();
  EXPECT_TRUE(there("Mix\\b.h2"));
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  expect_said(" >> Se han Cancelado todas las operaciones << ", kPaleRed);
}

TEST_F(Removal, a_window_that_is_closed_ends_the_run) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  in_the_middle([this] { return !there("Mix\\a.wav"); }, [this] { review().cmdSalir_Click(); });
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_FALSE(outcome().running);
  EXPECT_FALSE(outcome().CancelarBorrado);
}

TEST_F(Removal, a_project_opened_during_a_run_with_backup_ends_it) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  in_the_middle([this] { return !there("Mix\\a.wav"); }, [this] { open("Mix\\tema.vip"); });
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
}

TEST_F(Removal, the_main_window_does_nothing_during_a_run_without_backup) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  in_the_middle([this] { return !there("Mix\\a.wav"); },
                [this] {
                  EXPECT_TRUE(work.Borrando);
                  open("Mix\\tema.vip");
                  form.CommandBorrado.on_click();
                });
  remove();
  EXPECT_FALSE(there("Mix\\b.wav"));
  EXPECT_TRUE(options().visible());
}

TEST_F(Removal, a_second_run_during_one_is_refused) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  untick("Mix\\c.wav");
  in_the_middle([this] { return !there("Mix\\a.wav"); },
                [this] {
                  review().ListStatus.set_ticked(2, true);
                  review().cmdHecho_Click();
                  EXPECT_TRUE(work.Borrando) << "the first run goes on";
                });
  remove();
  EXPECT_FALSE(there("Mix\\b.wav"));
  EXPECT_TRUE(there("Mix\\c.wav")) << "ticked too late";
}

TEST_F(Removal, a_row_unticked_during_the_run_stays) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  in_the_middle([this] { return !there("Mix\\a.wav"); }, [this] { untick("Mix\\b.wav"); });
  remove();
  EXPECT_TRUE(there("Mix\\b.wav"));
}

TEST_F(Removal, a_row_deleted_during_the_run_stays) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  in_the_middle([this] { return !there("Mix\\a.wav"); },
                [this] {
                  review().ListBorrar.chosen(1);
                  ui::Key supr{46};
                  review().on_key_down(supr);
                });
  remove();
  EXPECT_TRUE(there("Mix\\b.wav"));
}

TEST_F(Removal, no_run_begins_after_a_sweep_that_was_cancelled) {
  open_studio({"Mix\\a.wav"});
  in_the_middle([this] { return work.Descodificando; }, [this] { form.cmdCancelar_Click(); });
  double_click(0);
  EXPECT_TRUE(there("Mix\\a.wav"));
  // A row that was decoded alone does not touch list 4.
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
}

TEST_F(Removal, no_run_begins_in_a_program_that_only_prints_lists) {
  disk.write("Mix\\usado.wav", "used");
  disk.write("Mix\\usado2.wav", "its neighbour");
  disk.write("Mix\\a.wav", "a");
  project("Mix\\tema.vip", {"Mix\\usado.wav"});
  start();
  form.may_remove = false;
  open("Mix\\tema.vip");
  set(false, true, false);
  unchecked();
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
}

TEST_F(Removal, no_run_begins_with_the_list_of_a_sweep_that_was_cancelled) {
  open_studio({"Mix\\a.wav"});
  auto& before = review();
  in_the_middle([this] { return work.Descodificando; }, [this] { form.cmdCancelar_Click(); });
  drop({"Mix"});
  ASSERT_EQ(&review(), &before);
  unchecked();
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_THAT(options().LabelResultado.caption(), StartsWith("No se ha borrado nada. "));
  EXPECT_TRUE(options().cmdBorrar.visible()) << "nothing has begun";
}

}  // namespace
}  // namespace ordelan::test
