#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "text/code_page.h"
#include "win32/ansi_text.h"
#include "win32/ports/win32_shell.h"
#include "win32/temporary_folder.h"

namespace ordelan::test {
namespace {

class Win32ShellTest : public testing::Test {
 protected:
  // The program that runs this test.
  static std::string own_program() {
    wchar_t path[MAX_PATH + 1] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH + 1);
    return win32::narrow(path).value();
  }

  std::string path(const std::string& name) const {
    return win32::narrow(folder.path()).value() + "\\" + name;
  }
  std::string written(const std::string& name, std::string_view bytes = "") const {
    write_file(win32::widen(path(name)), bytes);
    return path(name);
  }

  static bool is_there(const std::string& path) {
    return GetFileAttributesW(win32::widen(path).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  // Removes a file. False while somebody holds it.
  static bool is_gone(const std::string& path) {
    return DeleteFileW(win32::widen(path).c_str()) || !is_there(path);
  }

  TemporaryFolder folder;
  win32::Win32Shell shell;
};

TEST_F(Win32ShellTest, files_and_folders_have_a_kind) {
  EXPECT_NE(shell.file_type(own_program()), "");
  EXPECT_NE(shell.file_type(written("voz.wav")), "");
  EXPECT_NE(shell.file_type(win32::narrow(folder.path()).value()), "");
  EXPECT_NE(shell.file_type(written("voz.wav")), shell.file_type(own_program()));
}

TEST_F(Win32ShellTest, what_is_not_there_has_no_kind_no_program_and_no_icon) {
  for (const std::string& missing : {path("nada.wav"), std::string(), std::string("nada.wav")}) {
    EXPECT_EQ(shell.file_type(missing), "") << missing;
    EXPECT_EQ(shell.executable(missing), "") << missing;
    EXPECT_FALSE(shell.icon(missing)) << missing;
  }
}

TEST_F(Win32ShellTest, a_program_opens_itself) {
  EXPECT_TRUE(text::equal_ignoring_case(shell.executable(own_program()), own_program()))
      << shell.executable(own_program());
}

TEST_F(Win32ShellTest, a_file_that_no_program_opens_has_none) {
  EXPECT_EQ(shell.executable(written("a.extension_de_nadie")), "");
}

TEST_F(Win32ShellTest, a_program_has_an_icon_with_opaque_pixels) {
  const auto icon = shell.icon(own_program());
  ASSERT_TRUE(icon);
  EXPECT_GT(icon->width, 0);
  EXPECT_GT(icon->height, 0);
  EXPECT_EQ(icon->argb.size(), static_cast<std::size_t>(icon->width * icon->height));
  EXPECT_TRUE(std::any_of(icon->argb.begin(), icon->argb.end(),
                          [](std::uint32_t pixel) { return pixel >> 24 == 0xFF; }));
}

TEST_F(Win32ShellTest, a_file_below_a_path_of_any_length_has_a_kind_and_an_icon) {
  const std::string deep = path(std::string(120, 'a') + "\\" + std::string(120, 'b'));
  make_folders(win32::widen(deep));
  const std::string file = deep + "\\voz.wav";
  write_file(win32::widen(file), "");
  EXPECT_NE(shell.file_type(file), "");
  EXPECT_TRUE(shell.icon(file));
}

TEST_F(Win32ShellTest, what_is_not_there_is_not_opened) {
  EXPECT_FALSE(shell.open(path("nada.wav")));
  EXPECT_FALSE(shell.open(""));
  EXPECT_FALSE(shell.open(std::string("C:\\\0", 4)));
}

TEST_F(Win32ShellTest, a_file_is_opened_by_its_own_program) {
  // A script is opened by running it.
  const std::string script = written("abre.bat", "@echo si> \"%~dp0hecho.txt\"\r\n");
  const std::string mark = path("hecho.txt");
  ASSERT_TRUE(shell.open(script));
  constexpr int kLongEnough = 1000;
  int turn = 0;
  while (turn < kLongEnough && !is_there(mark)) {
    Sleep(10);
    ++turn;
  }
  EXPECT_TRUE(is_there(mark));
  // The script runs in its folder, which can only go when it has come to its end.
  while (turn < kLongEnough &&
         !(is_gone(mark) && is_gone(script) && RemoveDirectoryW(folder.path().c_str()))) {
    Sleep(10);
    ++turn;
  }
  EXPECT_LT(turn, kLongEnough);
}

}  // namespace
}  // namespace ordelan::test
