#include "posix/posix_shell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

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

class PosixShellPlace {
 public:
  PosixShellPlace() {
    mapped_.disk.folder("lugar");
    // Another volume, if this machine has one for such things.
    std::string other = "/dev/shm/ordelan-XXXXXX";
    if (::mkdtemp(other.data()) == nullptr) return;
    other_ = other;
    if (volume(other_) == volume(mapped_.disk.native())) return;
    has_other_ = mapped_.drives.map('E', other_);
  }
  ~PosixShellPlace() {
    std::error_code ignored;
    if (!other_.empty()) std::filesystem::remove_all(other_, ignored);
  }
  PosixShellPlace(const PosixShellPlace&) = delete;
  PosixShellPlace& operator=(const PosixShellPlace&) = delete;

  system::Shell& shell() { return shell_; }
  system::FileSystem& files() { return mapped_.files; }
  std::string folder() { return "D:\\lugar"; }
  std::string missing_root() { return "Q:\\"; }
  std::string other_root() { return has_other_ ? "E:\\" : ""; }
  bool has_bin_of_its_own() { return true; }
  std::size_t in_bin() {
    const auto files = mapped_.files.list("D:\\trash\\files");
    return files ? files->size() : 0;
  }

 private:
  static dev_t volume(const std::string& path) {
    struct stat found {};
    EXPECT_EQ(::stat(path.c_str(), &found), 0);
    return found.st_dev;
  }

  MappedFolder mapped_;
  posix::PosixShell shell_{mapped_.files, mapped_.drives, mapped_.disk / "trash"};
  std::string other_;
  bool has_other_ = false;
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

}  // namespace
}  // namespace ordelan::test
