// Runs with backup, and recovery from their logs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "removal/backup_folder.h"
#include "removal/content_hash.h"
#include "removal/copy_index.h"
#include "removal/reasons.h"
#include "removal/removal_log.h"
#include "support/removal_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

struct Backup : ::testing::Test, RemovalBench {
  std::string heading() const {
    return "Archivos borrados  " + regional_.short_date() + " a las " + regional_.long_time() +
           "\r\n" + std::string(61, '-') + "\r\n";
  }
  mutable FixedRegional regional_;
};

TEST_F(Backup, each_file_is_copied_logged_and_removed) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_EQ(bytes("Copias\\a.wav"), "bytes of Mix\\a.wav");
  EXPECT_EQ(bytes("Copias\\Archivos_Borrados.log"),
            heading() + disk.path("Mix\\a.wav") + "\r\n" + disk.path("Mix\\b.wav") + "\r\n");
  EXPECT_FALSE(there("Copias\\Archivos_Borrados.lock"));
  EXPECT_EQ(options().LabelResultado.caption(), "2 de 2 borrados");
}

TEST_F(Backup, an_unticked_row_is_copied_and_neither_logged_nor_removed) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  untick("Mix\\a.wav");
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Copias\\a.wav"));
  EXPECT_EQ(bytes("Copias\\Archivos_Borrados.log"), heading() + disk.path("Mix\\b.wav") + "\r\n");
}

TEST_F(Backup, without_the_list_nothing_is_copied_and_an_empty_log_replaces_the_old_one) {
  open_studio({"Mix\\a.wav"});
  set(true, false, false);
  disk.write("Copias\\Archivos_Borrados.log", "an old log");
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_FALSE(there("Copias\\a.wav"));
  EXPECT_EQ(bytes("Copias\\Archivos_Borrados.log"), "");
  EXPECT_EQ(bytes("Copias\\0001\\Archivos_Borrados.log"), "an old log") << "it is kept";
}

TEST_F(Backup, the_root_of_a_drive_is_a_folder_too) {
  open_studio({"Mix\\a.wav"});
  dialogs.folders.push_back(disk.folder());
  set(true, true, false);
  review().cmdHecho_Click();
  folder_window().cmdCarpetaBorrar_Click();
  EXPECT_TRUE(there("Archivos_Borrados.log"));
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("a.wav"));
}

TEST_F(Backup, two_files_of_one_name_have_a_copy_each_and_come_back_each_to_its_place) {
  open_studio({"Mix\\A\\a.wav", "Mix\\B\\a.wav", "Mix\\C\\a.wav"});
  shell.answers_yes = false;
  remove_with_backup("Copias");
  EXPECT_THAT(shell.overwritten, SizeIs(2)) << "the shell asks each time";
  EXPECT_EQ(options().LabelResultado.caption(), "3 de 3 borrados");
  recover("Copias");
  for (const char* file : {"Mix\\A\\a.wav", "Mix\\B\\a.wav", "Mix\\C\\a.wav"}) {
    EXPECT_EQ(bytes(file), "bytes of " + std::string(file));
  }
  EXPECT_EQ(recovery().recovered(), 3u);
  EXPECT_EQ(recovery().Label1.caption(), "Operación terminada");
  EXPECT_TRUE(recovery().LabelCerrar.visible());
  EXPECT_FALSE(recovery().cmdRecuperar.visible());
  EXPECT_FALSE(recovery().cmdOpen.visible());
}

TEST_F(Backup, a_copy_that_the_user_has_written_over_has_another_one) {
  open_studio({"Mix\\A\\a.wav", "Mix\\B\\a.wav"});
  remove_with_backup("Copias");
  EXPECT_EQ(bytes("Copias\\a.wav"), "bytes of Mix\\B\\a.wav");
  recover("Copias");
  EXPECT_EQ(bytes("Mix\\A\\a.wav"), "bytes of Mix\\A\\a.wav");
  EXPECT_EQ(bytes("Mix\\B\\a.wav"), "bytes of Mix\\B\\a.wav");
}

TEST_F(Backup, what_stood_in_the_folder_is_kept) {
  open_studio({"Mix\\a.wav"});
  disk.write("Copias\\a.wav", "somebody's own");
  remove_with_backup("Copias");
  EXPECT_EQ(bytes("Copias\\a.wav"), "bytes of Mix\\a.wav") << "the user has said yes";
  EXPECT_EQ(bytes("Copias\\0002\\a.wav"), "somebody's own");
  recover("Copias");
  EXPECT_EQ(bytes("Mix\\a.wav"), "bytes of Mix\\a.wav");
}

TEST_F(Backup, a_log_of_an_earlier_run_can_still_be_recovered_from) {
  open_studio({"Mix\\a.wav"});
  remove_with_backup("Copias");
  disk.write("Mix\\a.wav", "another recording");
  options().Salir_Click();
  review().cmdSalir_Click();
  open("Mix\\tema.vip");
  form.CommandBorrado.on_click();
  options().cmdBorrar_Click();
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  disk.make_folder("Mix");
  recover("Copias\\0001");
  EXPECT_EQ(bytes("Mix\\a.wav"), "bytes of Mix\\a.wav");
  recovery().Salir_Click();
  disk.remove("Mix\\a.wav");
  recover("Copias");
  EXPECT_EQ(bytes("Mix\\a.wav"), "another recording");
}

TEST_F(Backup, the_folder_may_be_the_one_that_is_being_cleaned) {
  open_studio({"Mix\\a.wav", "Mix\\Otra\\a.wav"});
  remove_with_backup("Mix");
  EXPECT_EQ(options().LabelResultado.caption(), "2 de 2 borrados");
  EXPECT_TRUE(there("Mix\\usado.wav"));
  disk.make_folder("Mix");
  recover("Mix");
  EXPECT_EQ(bytes("Mix\\a.wav"), "bytes of Mix\\a.wav");
  EXPECT_EQ(bytes("Mix\\Otra\\a.wav"), "bytes of Mix\\Otra\\a.wav");
}

TEST_F(Backup, no_used_file_is_written_over_by_a_copy) {
  open_studio({"Mix\\Otra\\usado.wav"});
  shell.answers_yes = true;
  remove_with_backup("Mix");
  EXPECT_EQ(bytes("Mix\\usado.wav"), "used");
  EXPECT_FALSE(there("Mix\\Otra\\usado.wav"));
  recover("Mix");
  EXPECT_EQ(bytes("Mix\\Otra\\usado.wav"), "bytes of Mix\\Otra\\usado.wav");
}

TEST_F(Backup, a_row_without_its_copy_stays) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  disk.make_folder("Copias\\a.wav");
  disk.write("Copias\\0001", "no folder can be made here");
  disk.write("Copias\\0002", "nor here");
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\b.wav"));
  EXPECT_FALSE(there("Mix\\a.wav")) << "the third number is free";
  EXPECT_EQ(bytes("Copias\\0003\\a.wav"), "bytes of Mix\\a.wav");
}

TEST_F(Backup, a_folder_that_has_gone_refuses_the_run) {
  open_studio({"Mix\\a.wav"});
  set(true, true, false);
  disk.make_folder("Copias");
  dialogs.folders.push_back(disk.path("Copias"));
  review().cmdHecho_Click();
  disk.remove("Copias");
  folder_window().cmdCarpetaBorrar_Click();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_THAT(options().LabelResultado.caption(), StartsWith("No se ha borrado nada. "));
}

TEST_F(Backup, another_run_in_the_folder_refuses_the_run) {
  open_studio({"Mix\\a.wav"});
  disk.make_folder("Copias");
  const auto lock = disk.files().lock(disk.path("Copias\\Archivos_Borrados.lock"));
  ASSERT_TRUE(lock);
  disk.write("Copias\\Archivos_Borrados.log", "of the other run");
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(bytes("Copias\\Archivos_Borrados.log"), "of the other run");
  EXPECT_THAT(options().LabelResultado.caption(), HasSubstr("Otro borrado"));
}

TEST_F(Backup, a_file_with_the_name_of_the_lock_refuses_the_run) {
  open_studio({"Mix\\a.wav"});
  disk.write("Copias\\Archivos_Borrados.lock", "somebody's own");
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(bytes("Copias\\Archivos_Borrados.lock"), "somebody's own");
}

TEST_F(Backup, a_file_that_was_thrown_out_under_another_path_stays) {
  open_studio({"Mix\\a.wav"});
  form.lists.ListBorrar.add(disk.path("Mix\\.\\a.wav"));
  form.CopiarListBorrados();
  review().ListBorrar.chosen(1);
  ui::Key supr{46};
  review().on_key_down(supr);
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
}

TEST_F(Backup, a_row_that_goes_without_its_copy_is_not_listed_as_still_there) {
  open_studio({"Mix\\a.wav"});
  unchecked();
  disk.make_folder("Copias\\a.wav");
  for (const char* number : {"0001", "0002"}) disk.write(std::string("Copias\\") + number, "x");
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_THAT(outcome().kept, IsEmpty());
}

TEST_F(Backup, rows_in_a_folder_of_backups_stay) {
  open_studio({"Mix\\a.wav", "Mix\\Viejas\\b.wav"});
  disk.write("Mix\\Viejas\\Archivos_Borrados.log", "");
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\Viejas\\b.wav"));
  EXPECT_EQ(reason("Mix\\Viejas\\b.wav"), removal::reason::kBackup);
}

TEST_F(Backup, a_cancel_between_two_rows_leaves_the_others_and_the_log_whole) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  in_the_middle([this] { return !there("Mix\\a.wav"); }, [this] { options().cmdParar.on_click(); });
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_EQ(bytes("Copias\\Archivos_Borrados.log"), heading() + disk.path("Mix\\a.wav") + "\r\n");
  EXPECT_EQ(options().LabelInfo.caption(), " >> Se han Cancelado todas las operaciones << ");
}

// --- the careful look

TEST_F(Backup, a_row_that_changed_since_it_was_listed_stays) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  disk.write("Mix\\a.wav", "recorded anew meanwhile");
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), removal::reason::kChanged);
  EXPECT_FALSE(there("Mix\\b.wav"));
}

TEST_F(Backup, a_project_that_changed_since_it_was_read_refuses_the_run) {
  open_studio({"Mix\\a.wav"});
  project("Mix\\tema.vip", {"Mix\\usado.wav", "Mix\\a.wav"});
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_THAT(options().LabelResultado.caption(), HasSubstr("Ha cambiado"));
}

TEST_F(Backup, a_project_that_is_gone_refuses_the_run) {
  open_studio({"Mix\\a.wav"});
  disk.remove("Mix\\tema.vip");
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_THAT(options().LabelResultado.caption(), HasSubstr("Ya no existe"));
}

TEST_F(Backup, a_row_that_a_project_uses_stays) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  form.lists.ListUtilizados.add(disk.path("MIX\\.\\A.WAV"));
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), removal::reason::kUsed);
  EXPECT_FALSE(there("Mix\\b.wav"));
}

TEST_F(Backup, a_row_that_is_kept_names_the_project_that_uses_it) {
  open_studio({"Mix\\a.wav"});
  form.lists.ListUtilizados.add("2 --> " + disk.path("Mix\\otro.vip"));
  form.lists.ListUtilizados.add(disk.path("mix\\A.wav"));
  remove();
  ASSERT_THAT(outcome().kept, SizeIs(1));
  EXPECT_EQ(outcome().kept[0].proyecto, disk.path("Mix\\otro.vip"));
}

TEST_F(Backup, a_file_that_is_unticked_under_another_path_stays) {
  open_studio({"Mix\\a.wav"});
  form.lists.ListBorrar.add(disk.path("Mix\\.\\a.wav"));
  form.CopiarListBorrados();
  untick("Mix\\.\\a.wav");
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), removal::reason::kUntickedElsewhere);
}

TEST_F(Backup, a_row_outside_the_folders_of_the_projects_stays) {
  open_studio({"Mix\\a.wav"});
  disk.write("Fuera\\b.wav", "b");
  form.lists.ListBorrar.add(disk.path("Fuera\\b.wav"));
  form.CopiarListBorrados();
  remove();
  EXPECT_TRUE(there("Fuera\\b.wav"));
  EXPECT_EQ(reason("Fuera\\b.wav"), removal::reason::kOutside);
}

TEST_F(Backup, a_kept_row_is_copied_like_an_unticked_one) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  form.lists.ListUtilizados.add(disk.path("Mix\\A.WAV"));
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Copias\\a.wav"));
  EXPECT_EQ(review().ListBorrar.row(0), disk.path("Mix\\a.wav")) << "no mark";
  EXPECT_EQ(outcome().ArchivosBorrados, 1u);
}

// --- recovery

TEST_F(Backup, a_log_of_another_name_is_refused) {
  start();
  disk.write("archivos_borrados.log", std::string(200, 'x'));
  dialogs.files.push_back({disk.path("archivos_borrados.log")});
  auto& window = recovery();
  window.cmdOpen_Click();
  EXPECT_EQ(window.Label1.caption(), "Este archivo no es válido");
  EXPECT_FALSE(window.visible());
}

TEST_F(Backup, a_log_of_109_bytes_has_nothing_to_recover) {
  start();
  disk.write("Archivos_Borrados.log", std::string(109, '-'));
  dialogs.files.push_back({disk.path("Archivos_Borrados.log")});
  recovery().cmdOpen_Click();
  EXPECT_EQ(windows.find<removal::Recuperar>(), nullptr);
  EXPECT_THAT(form.path_strip.ListPath.rows(),
              ElementsAre(" >>> AVISO <<< ", "   Este archivo no tiene archivos para recuperar"));
  EXPECT_TRUE(form.path_strip.ListPath.visible());
}

TEST_F(Backup, a_log_of_110_bytes_has_a_path_of_one_character) {
  start();
  std::string log = "Archivos borrados  22/11/2026 a las 10:20:30\r\n" + std::string(61, '-');
  log += "\r\nx";
  ASSERT_THAT(log, SizeIs(110));
  disk.write("Archivos_Borrados.log", log);
  dialogs.files.push_back({disk.path("Archivos_Borrados.log")});
  recovery().cmdOpen_Click();
  EXPECT_THAT(recovery().ListRecuperar.rows(), ElementsAre("x"));
  EXPECT_EQ(recovery().Label1.caption(), "Hay: 1 Archivos borrados  22/11/2026 a las 10:20:30");
  EXPECT_TRUE(recovery().cmdRecuperar.visible());
  recovery().RecuperarArchivos();
  EXPECT_THAT(recovery().ListNoRecuperados.rows(), ElementsAre("x   (la línea no tiene unidad)"));
}

TEST_F(Backup, without_an_index_one_copy_goes_to_both_places) {
  start();
  disk.write("Copias\\a.wav", "copy");
  disk.write("Copias\\Archivos_Borrados.log",
             heading() + disk.path("Uno\\a.wav") + "\r\n" + disk.path("Dos\\a.wav") + "\r\n");
  recover("Copias");
  EXPECT_EQ(bytes("Uno\\a.wav"), "copy") << "a missing folder is made";
  EXPECT_EQ(bytes("Dos\\a.wav"), "copy");
}

TEST_F(Backup, a_file_in_the_place_is_written_over_only_when_the_user_says_so) {
  open_studio({"Mix\\a.wav"});
  remove_with_backup("Copias");
  disk.write("Mix\\a.wav", "new work");
  shell.answers_yes = false;
  recover("Copias");
  EXPECT_EQ(bytes("Mix\\a.wav"), "new work");
  EXPECT_THAT(recovery().not_recovered(), SizeIs(1));
  recovery().Salir_Click();
  shell.answers_yes = true;
  recover("Copias");
  EXPECT_EQ(bytes("Mix\\a.wav"), "bytes of Mix\\a.wav");
}

TEST_F(Backup, a_damaged_copy_is_not_brought_back) {
  open_studio({"Mix\\a.wav"});
  remove_with_backup("Copias");
  disk.write("Copias\\a.wav", "BYTES OF Mix\\a.wav");
  recover("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_THAT(recovery().ListNoRecuperados.rows(),
              ElementsAre(disk.path("Mix\\a.wav") + "   (no se encuentra su copia)"));
}

// --- the formats

TEST(RemovalLog, a_heading_is_passed_over_wherever_it_stands) {
  const std::string heading = "Archivos borrados  x\r\n-------\r\n";
  const auto listed =
      removal::read_log(heading + "D:\\a.wav\r\n" + heading + "D:\\b", [] { return true; });
  EXPECT_THAT(listed.paths, ElementsAre("D:\\a.wav", "D:\\b"));
  EXPECT_EQ(listed.heading, "Archivos borrados  x");
}

TEST(RemovalLog, a_heading_at_the_end_stands_for_a_line) {
  const auto go_on = [] { return true; };
  EXPECT_THAT(removal::read_log("Archivos borrados  x", go_on).paths,
              ElementsAre("Archivos borrados  x"));
  EXPECT_THAT(removal::read_log("Archivos borrados  x\r\n-------\r\n", go_on).paths,
              ElementsAre("-------"));
  EXPECT_THAT(removal::read_log("", go_on).paths, IsEmpty());
}

TEST(CopyIndex, a_record_is_read_as_it_was_written) {
  const removal::CopyRecord record{"D:\\Canción\\a [1].wav", "0001\\a [1].wav", 12345678901234u,
                                   0x00F0u};
  EXPECT_EQ(removal::index_line(record),
            "12345678901234\t00000000000000f0\t0001\\a [1].wav\tD:\\Canción\\a [1].wav\r\n");
  EXPECT_THAT(removal::read_index(removal::index_line(record)), ElementsAre(record));
}

TEST(CopyIndex, what_is_no_line_is_passed_over) {
  const std::string good = removal::index_line({"D:\\a", "a", 1, 2});
  EXPECT_THAT(removal::read_index("junk\r\n" + good + "1\t2\tx\ty\r\n" + good.substr(0, 20)),
              SizeIs(1));
}

TEST(ContentHash, it_does_not_matter_how_the_bytes_are_cut) {
  std::vector<std::uint8_t> bytes(1000);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7);
  removal::ContentHash whole;
  whole.add(bytes);
  for (const std::size_t step : {1u, 3u, 31u, 32u, 33u, 500u}) {
    removal::ContentHash parts;
    for (std::size_t at = 0; at < bytes.size(); at += step) {
      parts.add(std::span(bytes).subspan(at, std::min(step, bytes.size() - at)));
    }
    EXPECT_EQ(parts.value(), whole.value()) << step;
  }
  removal::ContentHash other;
  bytes[999] ^= 1;
  other.add(bytes);
  EXPECT_NE(other.value(), whole.value());
  EXPECT_NE(removal::ContentHash().value(), other.value());
}

// Indexes on users' disks hold it.
TEST(ContentHash, the_fingerprint_never_changes) {
  removal::ContentHash hash;
  const std::string text = "Archivos_Borrados, thirty-three bytes";
  hash.add({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  EXPECT_EQ(hash.value(), 14287447894551633302u);
}

}  // namespace
}  // namespace ordelan::test
