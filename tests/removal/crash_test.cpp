// What crashes, full disks and strangers leave in a folder of copies, and the calls that keep
// each step of a run safe from the next.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "removal/backup_folder.h"
#include "removal/copy_index.h"
#include "removal/reasons.h"
#include "support/faulty_files.h"
#include "support/removal_bench.h"

namespace ordelan::test {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct BackupDamage : ::testing::Test, RemovalBench {
  std::string log_of(const std::vector<std::string>& below) {
    std::string log = "Archivos borrados  21/11/2026 a las 9:05:07\r\n" + std::string(61, '-');
    log += "\r\n";
    for (const std::string& file : below) log += disk.path(file) + "\r\n";
    return log;
  }
  // An index with one line, which is true of the file that it leads to.
  void write_index(const std::string& folder, const std::string& path, const std::string& place,
                   const std::string& file) {
    const auto content = removal::content_of(disk.files(), disk.path(file), [] { return true; });
    ASSERT_TRUE(content);
    disk.write(folder + "\\Archivos_Borrados.ind",
               removal::index_line({disk.path(path), place, content->size, content->hash}));
  }
};

TEST_F(BackupDamage, an_old_log_is_kept_where_a_file_has_the_first_number) {
  open_studio({"Mix\\a.wav"});
  disk.write("Copias\\0001", "no folder");
  disk.write("Copias\\Archivos_Borrados.log", "an old log");
  remove_with_backup("Copias");
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_EQ(bytes("Copias\\0002\\Archivos_Borrados.log"), "an old log");
  EXPECT_EQ(bytes("Copias\\0001"), "no folder");
}

TEST_F(BackupDamage, an_old_log_without_an_index_is_still_recovered_from_once_it_is_kept) {
  open_studio({"Mix\\Otra\\vieja.wav", "Mix\\Otra\\otra.wav"});
  disk.write("Copias\\Archivos_Borrados.log",
             log_of({"Mix\\vieja.wav", "Mix\\Sub\\vieja.wav", "Mix\\otra.wav", "Mix\\nada.wav"}));
  disk.write("Copias\\vieja.wav", "the old copy");
  disk.write("Copias\\otra.wav", "the other old copy");
  remove_with_backup("Copias");
  EXPECT_EQ(bytes("Copias\\vieja.wav"), "bytes of Mix\\Otra\\vieja.wav") << "the user has said yes";
  recover("Copias\\0001");
  EXPECT_EQ(bytes("Mix\\vieja.wav"), "the old copy");
  EXPECT_EQ(bytes("Mix\\Sub\\vieja.wav"), "the old copy") << "the one copy goes to both places";
  EXPECT_EQ(bytes("Mix\\otra.wav"), "the other old copy");
  EXPECT_THAT(recovery().not_recovered(), SizeIs(1));
}

TEST_F(BackupDamage, a_copy_that_is_written_over_has_a_line_for_its_new_place) {
  open_studio({"Mix\\A\\a.wav", "Mix\\B\\a.wav", "Mix\\C\\a.wav"});
  remove_with_backup("Copias");
  const auto records = removal::read_index(bytes("Copias\\Archivos_Borrados.ind"));
  std::map<std::string, std::string> places;
  for (const auto& record : records) places[record.path] = record.place;
  ASSERT_THAT(places, SizeIs(3));
  for (const auto& [path, place] : places) {
    EXPECT_EQ(bytes("Copias\\" + place), "bytes of " + path.substr(disk.folder().size())) << path;
  }
}

TEST_F(BackupDamage, an_index_leads_to_no_file_outside_of_its_folder) {
  start();
  disk.write("secreto.wav", "of somebody else");
  disk.write("Copias\\Archivos_Borrados.log", log_of({"Mix\\secreto.wav"}));
  for (const char* const place : {"..\\secreto.wav", "0001\\..\\..\\secreto.wav"}) {
    disk.make_folder("Copias\\0001");
    write_index("Copias", "Mix\\secreto.wav", place, "secreto.wav");
    recover("Copias");
    EXPECT_FALSE(there("Mix\\secreto.wav")) << place;
    recovery().Salir_Click();
  }
}

TEST_F(BackupDamage, an_index_gives_no_file_another_name) {
  start();
  disk.write("Copias\\otra.wav", "another recording");
  disk.write("Mix\\otra.wav", "work");
  disk.write("Mix\\a.wav", "work too");
  disk.write("Copias\\Archivos_Borrados.log", log_of({"Mix\\a.wav"}));
  write_index("Copias", "Mix\\a.wav", "otra.wav", "Copias\\otra.wav");
  recover("Copias");
  EXPECT_EQ(bytes("Mix\\otra.wav"), "work");
  EXPECT_EQ(bytes("Mix\\a.wav"), "work too");
}

TEST_F(BackupDamage, the_root_of_a_drive_is_a_folder_of_backups_too) {
  open_studio({"Mix\\a.wav"});
  disk.write("Archivos_Borrados.log", "");
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), removal::reason::kBackup);
}

TEST_F(BackupDamage, each_listed_file_is_noted_as_a_look_at_it_finds_it) {
  disk.write("Mix\\larga.wav", std::string(5000, 'a'));
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  ASSERT_TRUE(work.FilasVistas);
  ASSERT_EQ(work.FilasVistas->size(), 3u);
  ASSERT_EQ(work.VistosBorrar.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) {
    const auto info = disk.files().info((*work.FilasVistas)[i]);
    ASSERT_TRUE(info);
    EXPECT_EQ(work.VistosBorrar[i].size, info->size);
    EXPECT_EQ(work.VistosBorrar[i].modified, info->modified);
  }
}

TEST_F(BackupDamage, a_file_that_has_come_since_the_list_was_made_stays) {
  open_studio({"Mix\\a.wav"});
  form.lists.ListBorrar.add(disk.path("Mix\\nueva.wav"));
  form.CopiarListBorrados();
  disk.write("Mix\\nueva.wav", "recorded a moment ago");
  remove();
  EXPECT_TRUE(there("Mix\\nueva.wav"));
  EXPECT_EQ(reason("Mix\\nueva.wav"), removal::reason::kChanged);
  EXPECT_FALSE(there("Mix\\a.wav"));
}

TEST_F(BackupDamage, a_side_file_that_a_project_names_stays) {
  open_studio({"Mix\\a.wav", "Mix\\a.h2", "Mix\\b.h2"});
  form.lists.ListUtilizados.add(disk.path("Mix\\A.H2"));
  set(false, false, true);
  remove();
  EXPECT_TRUE(there("Mix\\a.h2"));
  EXPECT_EQ(reason("Mix\\a.h2"), removal::reason::kUsed);
  EXPECT_FALSE(there("Mix\\b.h2"));
}

// --- the order of the calls

struct BackupCalls : ::testing::Test {
  using Call = FaultyFiles::Call;

  std::string path(const std::string& name) { return disk.path("Copias\\" + name); }
  // The number of the first call of that kind with that path, from `from` on.
  int first(Call call, const std::string& of, int from = 0) {
    const auto& made = files.faults.made();
    for (int i = from; i < static_cast<int>(made.size()); ++i) {
      const auto& one = made[static_cast<std::size_t>(i)];
      if (one.call == call && one.path == of) return i;
    }
    return -1;
  }

  TestDisk disk;
  FaultyFiles files{disk.files()};
  FakeShell shell;
  removal::BackupFolder folder{files, shell, disk.path("Copias"), [] { return true; }};
};

TEST_F(BackupCalls, the_old_log_is_surely_empty_before_its_index_is) {
  disk.write("Copias\\Archivos_Borrados.log", "old");
  disk.write("Copias\\Archivos_Borrados.ind", "old");
  ASSERT_TRUE(folder.take());
  ASSERT_TRUE(folder.begin_log());
  const int emptied = first(Call::create, path("Archivos_Borrados.log"));
  const int flushed = first(Call::flush, path("Archivos_Borrados.log"));
  const int index = first(Call::create, path("Archivos_Borrados.ind"));
  EXPECT_TRUE(emptied >= 0 && emptied < flushed && flushed < index);
}

TEST_F(BackupCalls, the_folder_of_a_kept_log_is_surely_there_before_the_log_is_replaced) {
  disk.write("Copias\\Archivos_Borrados.log", "old");
  disk.make_folder("Copias\\0001");
  ASSERT_TRUE(folder.take());
  const int kept = first(Call::copy_new, "", 0);
  EXPECT_EQ(kept, -1);
  const int moved = first(Call::move, path("0001\\Archivos_Borrados.log"));
  ASSERT_GE(moved, 0);
  EXPECT_GT(first(Call::flush_folder, path(""), moved), moved);
}

TEST_F(BackupCalls, a_log_that_cannot_be_looked_at_refuses_the_run) {
  disk.write("Copias\\Archivos_Borrados.log", "old");
  files.faults.fail({.call = Call::info, .path = path("Archivos_Borrados.log")},
                    system::Reason::in_use);
  EXPECT_FALSE(folder.take());
  EXPECT_EQ(files.faults.count(Call::create), 0);
}

TEST_F(BackupCalls, a_name_that_cannot_be_looked_at_is_taken) {
  disk.write("Copias\\a.wav", "somebody's own");
  disk.write("Mix\\a.wav", "new");
  shell.files = &files;
  ASSERT_TRUE(folder.take());
  ASSERT_TRUE(folder.begin_log());
  files.faults.fail({.call = Call::info, .path = path("a.wav")}, system::Reason::in_use, 1);
  EXPECT_TRUE(folder.copy(disk.path("Mix\\a.wav")));
  const auto saved = files.open(path("0002\\a.wav"));
  const auto own = files.open(path("a.wav"));
  ASSERT_TRUE(own);
  EXPECT_TRUE(saved || own->size() == 14) << "what stood there is not written over unsaved";
}

}  // namespace
}  // namespace ordelan::test
