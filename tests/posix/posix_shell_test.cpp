#include "posix/posix_shell.h"

#include <gtest/gtest.h>

#include "posix/native_folder.h"

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

TEST_F(PosixShellTest, a_file_that_is_not_there_is_of_no_kind) {
  EXPECT_EQ(shell.file_type("D:\\nada.wav"), "");
  EXPECT_EQ(shell.file_type(""), "");
}

TEST_F(PosixShellTest, nothing_is_opened_and_nothing_has_a_program_or_an_icon) {
  disk.file("a.wav");
  EXPECT_FALSE(shell.open("D:\\a.wav"));
  EXPECT_EQ(shell.executable("D:\\a.wav"), "");
  EXPECT_FALSE(shell.icon("D:\\a.wav"));
}

}  // namespace
}  // namespace ordelan::test
