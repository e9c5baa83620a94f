// What no run with backup and no recovery may do to the files of others.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "removal/reasons.h"
#include "removal/removal_log.h"
#include "support/removal_bench.h"

namespace ordelan::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

using Call = FaultyFiles::Call;
using system::Reason;

struct BackupSafety : ::testing::Test, RemovalBench {
  // A second name of a file. False where the system makes none.
  bool link_file(const std::string& below, const std::string& name) {
    std::error_code failed;
    fs::create_directories(disk.native_path(name).parent_path());
    fs::create_hard_link(disk.native_path(below), disk.native_path(name), failed);
    return !failed;
  }
  bool link_folder(const std::string& below, const std::string& name) {
    std::error_code failed;
    fs::create_directory_symlink(disk.native_path(below), disk.native_path(name), failed);
    return !failed;
  }
  // A log of one file, by hand.
  void write_log(const std::string& folder, const std::string& line) {
    disk.write(folder + "\\Archivos_Borrados.log", removal::log_heading(regional) + line + "\r\n");
  }
};

TEST_F(BackupSafety, the_other_name_of_an_old_log_and_index_keeps_its_bytes) {
  open_studio({"Mix\\a.wav"});
  disk.write("Copias\\Archivos_Borrados.log", "an old log");
  disk.write("Copias\\Archivos_Borrados.ind", "an old index");
  if (!link_file("Copias\\Archivos_Borrados.log", "Notas\\diario.txt") ||
      !link_file("Copias\\Archivos_Borrados.ind", "Notas\\otras.txt")) {
    GTEST_SKIP() << "this system makes no links";
  }
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_EQ(bytes("Notas\\diario.txt"), "an old log");
  EXPECT_EQ(bytes("Notas\\otras.txt"), "an old index");
  EXPECT_THAT(bytes("Copias\\Archivos_Borrados.log"), HasSubstr(disk.path("Mix\\a.wav")));
}

TEST_F(BackupSafety, a_row_whose_copy_fails_stays_without_a_line) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  shell.files = nullptr;  // the shell copies nothing, and the program's own copy fails once
  faulty.faults.fail({.call = Call::copy_new}, Reason::in_use, 1);
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_FALSE(there("Mix\\b.wav"));
  EXPECT_THAT(reason("Mix\\a.wav"), HasSubstr(removal::reason::kNoCopy));
  EXPECT_EQ(bytes("Copias\\Archivos_Borrados.log"),
            removal::log_heading(regional) + disk.path("Mix\\b.wav") + "\r\n");
  EXPECT_EQ(review().ListBorrar.row(0), disk.path("Mix\\a.wav")) << "no mark";
}

TEST_F(BackupSafety, a_file_of_its_name_is_no_copy_of_a_line_that_the_index_lacks) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  unchecked();
  shell.files = nullptr;  // the shell copies nothing, and the program's own copy fails once
  faulty.faults.fail({.call = Call::copy_new}, Reason::in_use, 1);
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\a.wav")) << "without the careful look it goes all the same";
  disk.write("Copias\\a.wav", "another recording");
  recover("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_THAT(recovery().ListNoRecuperados.rows(),
              ElementsAre(disk.path("Mix\\a.wav") + "   (no se encuentra su copia)"));
}

TEST_F(BackupSafety, lines_without_a_name_and_with_wildcards_are_skipped_and_told) {
  start();
  disk.write("Copias\\a.wav", "copy");
  write_log("Copias", disk.path("Mix\\") + "\r\n" + disk.path("Mix\\*.wav") + "\r\n" +
                          disk.path("Mix\\a?wav") + "\r\n" + disk.path("Mix\\a.wav"));
  recover("Copias");
  EXPECT_EQ(bytes("Mix\\a.wav"), "copy");
  EXPECT_THAT(recovery().ListNoRecuperados.rows(),
              ElementsAre(disk.path("Mix\\") + "   (la línea no tiene nombre de archivo)",
                          disk.path("Mix\\*.wav") + "   (la línea tiene un comodín)",
                          disk.path("Mix\\a?wav") + "   (la línea tiene un comodín)"));
}

TEST_F(BackupSafety, a_copy_behind_a_link_is_none) {
  start();
  disk.write("Ajeno\\a.wav", "somebody else's");
  disk.make_folder("Copias");
  std::error_code failed;
  fs::create_symlink(disk.native_path("Ajeno\\a.wav"), disk.native_path("Copias\\a.wav"), failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  write_log("Copias", disk.path("Mix\\a.wav") + std::string(80, ' '));
  write_log("Copias", disk.path("Mix\\a.wav"));
  disk.write("Copias\\Archivos_Borrados.log", bytes("Copias\\Archivos_Borrados.log") + "\r\n\r\n");
  recover("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
}

TEST_F(BackupSafety, a_numbered_folder_that_is_a_link_holds_no_copy_and_gets_none) {
  open_studio({"Mix\\a.wav"});
  disk.write("Copias\\a.wav", "older work");
  disk.make_folder("Ajeno");
  if (!link_folder("Ajeno", "Copias\\0001")) GTEST_SKIP() << "this system makes no links";
  shell.answers_yes = false;
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Ajeno\\a.wav"));
  EXPECT_EQ(bytes("Copias\\0002\\a.wav"), "bytes of Mix\\a.wav");
  // A link that takes the folder's place later leads to no copy either.
  disk.write("Ajeno\\a.wav", "bytes of Mix\\a.wav");
  disk.remove("Copias\\0002");
  ASSERT_TRUE(link_folder("Ajeno", "Copias\\0002"));
  recover("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
}

TEST_F(BackupSafety, a_log_reached_through_a_link_with_a_number_for_a_name_is_recovered_from) {
  open_studio({"Mix\\a.wav"});
  remove_with_backup("Copias");
  if (!link_folder("Copias", "2026")) GTEST_SKIP() << "this system makes no links";
  recover("2026");
  EXPECT_EQ(bytes("Mix\\a.wav"), "bytes of Mix\\a.wav");
}

TEST_F(BackupSafety, an_old_log_that_is_a_link_refuses_the_run) {
  open_studio({"Mix\\a.wav"});
  disk.write("Notas\\diario.txt", "somebody else's");
  disk.make_folder("Copias");
  std::error_code failed;
  fs::create_symlink(disk.native_path("Notas\\diario.txt"),
                     disk.native_path("Copias\\Archivos_Borrados.log"), failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(bytes("Notas\\diario.txt"), "somebody else's");
  EXPECT_THAT(options().LabelResultado.caption(), HasSubstr("No se ha borrado nada. "));
}

TEST_F(BackupSafety, the_place_of_a_lost_used_file_gets_no_copy) {
  project("Mix\\otro.vip", {"Mix\\perdido.wav", "Mix\\usado.wav"});
  disk.write("Mix\\Tomas\\perdido.wav", "the unused one");
  open_studio({"Mix\\a.wav"});
  // The analysis offers no file of a used name; rows that stay are copied all the same.
  form.lists.ListBorrar.add(disk.path("Mix\\Tomas\\perdido.wav"));
  form.CopiarListBorrados();
  remove_with_backup("Mix");
  EXPECT_FALSE(there("Mix\\perdido.wav")) << "it would pass for the lost recording";
  EXPECT_EQ(bytes("Mix\\0001\\perdido.wav"), "the unused one");
}

TEST_F(BackupSafety, a_second_recovery_during_one_is_refused) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  remove_with_backup("Copias");
  dialogs.files.push_back({disk.path("Copias\\Archivos_Borrados.log")});
  recovery().cmdOpen_Click();
  const int before = faulty.faults.count(Call::copy_new);
  in_the_middle([&] { return there("Mix\\a.wav"); }, [&] { recovery().RecuperarArchivos(); });
  recovery().RecuperarArchivos();
  EXPECT_TRUE(there("Mix\\c.wav"));
  EXPECT_EQ(recovery().recovered(), 3u);
  EXPECT_EQ(faulty.faults.count(Call::copy_new), before + 3) << "each is copied once";
}

TEST_F(BackupSafety, no_run_begins_after_a_double_click_that_was_cancelled) {
  disk.write("Mix\\otro.vip", project_of({disk.path("Mix\\usado.wav")}, 3'000'000));
  open_studio({"Mix\\a.wav"});
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] { form.cmdCancelar_Click(); });
  double_click(0);
  ASSERT_TRUE(work.Cancelar);
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(options().LabelResultado.caption(),
            "No se ha borrado nada. La última descodificación no llegó al final");
}

}  // namespace
}  // namespace ordelan::test
