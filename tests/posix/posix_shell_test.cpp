#include "posix/posix_shell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "posix/native_folder.h"
#include "system/shell_contract.h"

namespace ordelan::test {
namespace {

struct PosixShellTest : ::testing::Test, MappedFolder {
  posix::PosixShell shell{files};
};

TEST_F(PosixShellTest, kinds_of_files_go_by_their_extension_in_capitals) {
  disk.file("Voz.wav");
  disk.file("b.a\xC3\xB1o");
  disk.file("LEEME");
  disk.file("fin.");
  disk.folder("Mix.wav");
  EXPECT_EQ(shell.file_type("D:\\voz.wav"), "Archivo WAV");
  EXPECT_EQ(shell.file_type("D:\\b.a\xF1o"), "Archivo A\xD1O");
  EXPECT_EQ(shell.file_type("D:\\LEEME"), "Archivo");
  EXPECT_EQ(shell.file_type("D:\\fin."), "Archivo");
  EXPECT_EQ(shell.file_type("D:\\Mix.wav"), "Carpeta");
}

TEST_F(PosixShellTest, a_missing_file_is_of_no_kind) {
  EXPECT_EQ(shell.file_type("D:\\nada.wav"), "");
  EXPECT_EQ(shell.file_type(""), "");
}

TEST_F(PosixShellTest, nothing_is_opened_and_nothing_has_a_program_or_an_icon) {
  disk.file("a.wav");
  EXPECT_FALSE(shell.open("D:\\a.wav"));
  EXPECT_EQ(shell.executable("D:\\a.wav"), "");
  EXPECT_FALSE(shell.icon("D:\\a.wav"));
}

// Volumes of their own for the tests: the folders of the disk whose names begin with "vol".
posix::PosixShell::TopOf volumes_below(const std::string& disk) {
  return [disk](const std::string& path) {
    if (!path.starts_with(disk + "/vol")) return std::string("/");
    return path.substr(0, path.find('/', disk.size() + 1));
  };
}

std::string user() {
  return std::to_string(::geteuid());
}

class PosixShellPlace {
 public:
  PosixShellPlace() {
    mapped_.disk.folder("lugar");
    // What stands in the way of this volume's trash is no folder.
    mapped_.disk.file("volumen/.Trash-" + user());
    EXPECT_TRUE(mapped_.drives.map('E', mapped_.disk / "volumen"));
  }

  system::Shell& shell() { return shell_; }
  system::FileSystem& files() { return mapped_.files; }
  std::string folder() { return "D:\\lugar"; }
  std::string missing_root() { return "Q:\\"; }
  std::string other_root() { return "E:\\"; }
  bool has_bin_of_its_own() { return true; }
  std::size_t in_bin() {
    const auto files = mapped_.files.list("D:\\trash\\files");
    return files ? files->size() : 0;
  }

 private:
  MappedFolder mapped_;
  posix::PosixShell shell_{mapped_.files, mapped_.drives, mapped_.disk / "trash",
                           volumes_below(mapped_.disk.native())};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ShellContract, PosixShellPlace);

struct PosixTrash : ::testing::Test, MappedFolder {
  posix::PosixShell shell{files, drives, disk / "trash"};
  system::Status recycle(const std::string& path) {
    return shell.recycle(path, system::Confirm::without_asking);
  }
};

TEST_F(PosixTrash, a_file_and_its_note_stand_in_the_trash_as_desktops_look_for_them) {
  disk.file("Mix/la voz 100%.wav", "voz");
  ASSERT_TRUE(recycle("D:\\mix\\LA VOZ 100%.wav"));
  EXPECT_EQ(disk.content("trash/files/la voz 100%.wav"), "voz");
  const std::string note = disk.content("trash/info/la voz 100%.wav.trashinfo");
  EXPECT_TRUE(note.starts_with("[Trash Info]\nPath=" + disk.native() +
                               "/Mix/la%20voz%20100%25.wav\nDeletionDate=2"))
      << note;
  EXPECT_EQ(note.back(), '\n');
}

TEST_F(PosixTrash, what_is_in_the_trash_is_not_written_over) {
  for (const char* bytes : {"uno", "dos", "tres"}) {
    disk.file("a.wav", bytes);
    ASSERT_TRUE(recycle("D:\\a.wav"));
  }
  EXPECT_EQ(disk.content("trash/files/a.wav"), "uno");
  EXPECT_EQ(disk.content("trash/files/2 a.wav"), "dos");
  EXPECT_EQ(disk.content("trash/files/3 a.wav"), "tres");
  // A file without a note keeps its name too.
  disk.file("trash/files/b.wav", "old");
  disk.file("b.wav", "new");
  ASSERT_TRUE(recycle("D:\\b.wav"));
  EXPECT_EQ(disk.content("trash/files/b.wav"), "old");
  EXPECT_EQ(disk.content("trash/files/2 b.wav"), "new");
  EXPECT_FALSE(std::filesystem::exists(disk / "trash/info/b.wav.trashinfo"));
}

TEST_F(PosixTrash, a_link_is_recycled_and_not_what_it_leads_to) {
  disk.file("real.wav", "voz");
  disk.link("enlace.wav", disk / "real.wav");
  ASSERT_TRUE(recycle("D:\\enlace.wav"));
  EXPECT_EQ(disk.content("real.wav"), "voz");
  EXPECT_TRUE(std::filesystem::is_symlink(disk / "trash/files/enlace.wav"));
  EXPECT_TRUE(shell.empty_bin("D:\\", system::Confirm::without_asking));
  EXPECT_EQ(disk.content("real.wav"), "voz");
}

TEST_F(PosixTrash, where_nobody_can_be_asked_no_copy_is_made_over_a_file) {
  disk.file("a.wav", "new");
  disk.file("Copias/a.wav", "old");
  EXPECT_EQ(shell.copy_into("D:\\a.wav", "D:\\Copias"), system::Reason::cancelled);
  EXPECT_EQ(disk.content("Copias/a.wav"), "old");
}

TEST_F(PosixTrash, without_a_trash_or_a_way_to_ask_nothing_is_recycled) {
  disk.file("a.wav");
  posix::PosixShell none(files);
  using system::Confirm;
  using system::Reason;
  EXPECT_EQ(none.recycle("D:\\a.wav", Confirm::without_asking), Reason::not_supported);
  EXPECT_EQ(none.recycles("D:\\"), Reason::not_supported);
  EXPECT_EQ(none.empty_bin("", Confirm::without_asking), Reason::not_supported);
  EXPECT_EQ(shell.recycle("D:\\a.wav", Confirm::ask), Reason::not_supported);
  EXPECT_EQ(shell.empty_bin("", Confirm::ask), Reason::not_supported);
  EXPECT_TRUE(files.info("D:\\a.wav"));
}

// --- the trashes of other volumes

struct VolumeTrash : ::testing::Test, MappedFolder {
  VolumeTrash() {
    disk.folder("volumen/Mix");
    EXPECT_TRUE(drives.map('E', disk / "volumen"));
    disk.file("volumen/Mix/a 1.wav", "voz");
  }
  posix::PosixShell shell{files, drives, disk / "trash", volumes_below(disk.native())};
  const std::string own = "volumen/.Trash-" + user();
  const std::string shared = "volumen/.Trash/" + user();

  system::Status recycle(const std::string& path) {
    return shell.recycle(path, system::Confirm::without_asking);
  }
  system::Status empty(const std::string& root) {
    return shell.empty_bin(root, system::Confirm::without_asking);
  }
  bool there(const std::string& name) {
    return std::filesystem::exists(std::filesystem::symlink_status(disk / name));
  }
  // The folder that all users of a volume share for their trashes.
  void share(bool sticky) {
    disk.folder("volumen/.Trash");
    using std::filesystem::perms;
    std::filesystem::permissions(disk / "volumen/.Trash",
                                 perms::all | (sticky ? perms::sticky_bit : perms::none));
  }
};

TEST_F(VolumeTrash, a_file_goes_to_the_users_trash_at_the_top_of_its_volume) {
  EXPECT_EQ(shell.recycles("E:\\"), system::Reason::ok);
  EXPECT_FALSE(there(own)) << "a question makes no folder";
  ASSERT_TRUE(recycle("E:\\Mix\\a 1.wav"));
  EXPECT_EQ(disk.content(own + "/files/a 1.wav"), "voz");
  const std::string note = disk.content(own + "/info/a 1.wav.trashinfo");
  EXPECT_TRUE(note.starts_with("[Trash Info]\nPath=Mix/a%201.wav\nDeletionDate=2")) << note;
  EXPECT_FALSE(there("trash"));
  EXPECT_EQ(std::filesystem::status(disk / own).permissions(), std::filesystem::perms::owner_all);
}

TEST_F(VolumeTrash, the_folder_that_users_share_comes_first_if_it_is_sticky) {
  share(true);
  EXPECT_EQ(shell.recycles("E:\\"), system::Reason::ok);
  ASSERT_TRUE(recycle("E:\\Mix\\a 1.wav"));
  EXPECT_EQ(disk.content(shared + "/files/a 1.wav"), "voz");
  EXPECT_FALSE(there(own));
}

TEST_F(VolumeTrash, a_shared_folder_that_is_not_sticky_is_not_used) {
  share(false);
  ASSERT_TRUE(recycle("E:\\Mix\\a 1.wav"));
  EXPECT_FALSE(there(shared));
  EXPECT_EQ(disk.content(own + "/files/a 1.wav"), "voz");
}

TEST_F(VolumeTrash, a_shared_folder_that_is_a_link_is_not_used) {
  disk.folder("otra");
  std::filesystem::permissions(disk / "otra",
                               std::filesystem::perms::all | std::filesystem::perms::sticky_bit);
  disk.link("volumen/.Trash", disk / "otra");
  ASSERT_TRUE(recycle("E:\\Mix\\a 1.wav"));
  EXPECT_TRUE(std::filesystem::is_empty(disk / "otra"));
  EXPECT_EQ(disk.content(own + "/files/a 1.wav"), "voz");
}

TEST_F(VolumeTrash, a_trash_that_is_a_link_is_not_used_and_the_file_stays) {
  disk.folder("otra");
  disk.link(own, disk / "otra");
  EXPECT_EQ(shell.recycles("E:\\"), system::Reason::not_supported);
  EXPECT_EQ(recycle("E:\\Mix\\a 1.wav"), system::Reason::not_supported);
  EXPECT_EQ(disk.content("volumen/Mix/a 1.wav"), "voz");
  EXPECT_TRUE(std::filesystem::is_empty(disk / "otra"));
}

TEST_F(VolumeTrash, a_folder_of_the_trash_that_is_a_link_is_not_used_and_not_emptied) {
  disk.file("otra/files/tesoro.wav");
  disk.file("otra/info/tesoro.wav.trashinfo", "[Trash Info]\nPath=Mix/tesoro.wav\n");
  disk.folder(own);
  disk.link(own + "/files", disk / "otra/files");
  disk.link(own + "/info", disk / "otra/info");
  EXPECT_FALSE(recycle("E:\\Mix\\a 1.wav"));
  EXPECT_EQ(disk.content("volumen/Mix/a 1.wav"), "voz");
  empty("E:\\").ignore();
  empty("").ignore();
  EXPECT_TRUE(there("otra/files/tesoro.wav"));
  EXPECT_TRUE(there("otra/info/tesoro.wav.trashinfo"));
}

TEST_F(VolumeTrash, somebody_elses_trash_is_not_used) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives folders away";
  disk.folder(own);
  ASSERT_EQ(::chown((disk / own).c_str(), 12345, 12345), 0);
  EXPECT_EQ(shell.recycles("E:\\"), system::Reason::not_supported);
  EXPECT_EQ(recycle("E:\\Mix\\a 1.wav"), system::Reason::not_supported);
  EXPECT_EQ(disk.content("volumen/Mix/a 1.wav"), "voz");
}

TEST_F(VolumeTrash, a_drive_below_the_top_of_its_volume_has_the_trash_of_the_volume) {
  ASSERT_TRUE(drives.map('F', disk / "volumen/Mix"));
  ASSERT_TRUE(recycle("F:\\a 1.wav"));
  EXPECT_TRUE(disk.content(own + "/info/a 1.wav.trashinfo").find("Path=Mix/a%201.wav\n") !=
              std::string::npos);
}

TEST_F(VolumeTrash, a_folder_behind_a_link_counts_where_it_really_is) {
  disk.link("atajo", disk / "volumen/Mix");
  ASSERT_TRUE(recycle("D:\\atajo\\a 1.wav"));
  EXPECT_EQ(disk.content(own + "/files/a 1.wav"), "voz");
  EXPECT_TRUE(disk.content(own + "/info/a 1.wav.trashinfo").find("Path=Mix/a%201.wav\n") !=
              std::string::npos);
}

TEST_F(VolumeTrash, emptying_one_drive_takes_only_what_came_from_its_folder) {
  disk.file("volumen/Otra/b.wav");
  disk.file("volumen/Mixto.wav");
  disk.file("Casa/c.wav");
  ASSERT_TRUE(drives.map('F', disk / "volumen/Mix"));
  for (const char* path : {"E:\\Otra\\b.wav", "E:\\Mixto.wav", "F:\\a 1.wav", "D:\\Casa\\c.wav"}) {
    ASSERT_TRUE(recycle(path)) << path;
  }
  disk.file(own + "/files/sin nota.wav");
  disk.file(own + "/files/rara.wav");
  disk.file(own + "/info/rara.wav.trashinfo", "[Trash Info]\nPath=Mix/../Otra/rara.wav\n");
  ASSERT_TRUE(empty("F:\\"));
  EXPECT_FALSE(there(own + "/files/a 1.wav"));
  EXPECT_FALSE(there(own + "/info/a 1.wav.trashinfo"));
  for (const char* name : {"b.wav", "Mixto.wav", "sin nota.wav", "rara.wav"}) {
    EXPECT_TRUE(there(own + "/files/" + name)) << name;
  }
  EXPECT_TRUE(there("trash/files/c.wav"));
  ASSERT_TRUE(empty("D:\\"));
  EXPECT_FALSE(there("trash/files/c.wav"));
  EXPECT_TRUE(there(own + "/files/b.wav"));
}

TEST_F(VolumeTrash, emptying_a_drive_of_the_home_volume_spares_what_others_put_there) {
  disk.file("trash/files/carta.txt");
  disk.file("trash/info/carta.txt.trashinfo", "[Trash Info]\nPath=/home/otra/carta.txt\n");
  disk.file("Casa/c.wav");
  ASSERT_TRUE(recycle("D:\\Casa\\c.wav"));
  ASSERT_TRUE(empty("D:\\"));
  EXPECT_FALSE(there("trash/files/c.wav"));
  EXPECT_TRUE(there("trash/files/carta.txt"));
  EXPECT_TRUE(there("trash/info/carta.txt.trashinfo"));
}

TEST_F(VolumeTrash, emptying_all_drives_empties_their_trashes_and_no_other) {
  disk.file("volumen2/.Trash-" + user() + "/files/otro.wav");
  share(true);
  disk.file(shared + "/files/compartido.wav");
  disk.file(own + "/files/carpeta/dentro.wav");
  disk.file(own + "/info/carpeta.trashinfo", "[Trash Info]\nPath=carpeta\n");
  disk.file("trash/files/carta.txt");
  disk.file("trash/info/suelta.trashinfo", "[Trash Info]\nPath=/nada\n");
  ASSERT_TRUE(empty(""));
  EXPECT_FALSE(there(shared + "/files/compartido.wav"));
  EXPECT_FALSE(there(own + "/files/carpeta"));
  EXPECT_FALSE(there(own + "/info/carpeta.trashinfo"));
  EXPECT_FALSE(there("trash/files/carta.txt"));
  EXPECT_FALSE(there("trash/info/suelta.trashinfo"));
  EXPECT_TRUE(there("volumen2/.Trash-" + user() + "/files/otro.wav"));
  EXPECT_EQ(disk.content("volumen/Mix/a 1.wav"), "voz");
}

TEST_F(VolumeTrash, a_link_in_the_trash_goes_and_what_it_leads_to_stays) {
  disk.file("tesoro/a.wav");
  disk.folder(own + "/files/carpeta");
  disk.folder(own + "/info");
  disk.link(own + "/files/carpeta/enlace", disk / "tesoro");
  disk.link(own + "/files/otro", disk / "tesoro");
  ASSERT_TRUE(empty(""));
  EXPECT_FALSE(there(own + "/files/otro"));
  EXPECT_TRUE(there("tesoro/a.wav"));
}

// A volume of this machine that is really another one than that of temporary files.
TEST_F(VolumeTrash, a_real_other_volume_has_its_own_trash) {
  std::string other = "/dev/shm/ordelan-XXXXXX";
  if (::mkdtemp(other.data()) == nullptr) GTEST_SKIP() << "no such volume";
  const std::string top = posix::top_of_volume(other);
  if (top == posix::top_of_volume(disk.native())) {
    std::filesystem::remove(other);
    GTEST_SKIP() << "it is the same volume";
  }
  EXPECT_EQ(top, "/dev/shm");
  EXPECT_EQ(posix::top_of_volume(other + "/nada/tampoco"), "/dev/shm");
  ASSERT_TRUE(drives.map('S', other));
  posix::PosixShell real(files, drives, disk / "trash");
  std::ofstream(other + "/a.wav") << "voz";
  EXPECT_EQ(real.recycles("S:\\"), system::Reason::ok);
  EXPECT_TRUE(real.recycle("S:\\a.wav", system::Confirm::without_asking));
  EXPECT_FALSE(std::filesystem::exists(other + "/a.wav"));
  EXPECT_FALSE(there("trash/files/a.wav"));
  EXPECT_TRUE(real.empty_bin("S:\\", system::Confirm::without_asking));
  std::filesystem::remove_all(other);
  // Its trash goes too where nothing else is in it.
  for (const char* part : {"/files", "/info", ""}) {
    ::rmdir((top + "/.Trash-" + user() + part).c_str());
  }
}

}  // namespace
}  // namespace ordelan::test
