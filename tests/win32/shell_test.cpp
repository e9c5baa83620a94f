#include <windows.h>

#include <gtest/gtest.h>
#include <shellapi.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>

#include "system/shell_contract.h"
#include "text/code_page.h"
#include "win32/ansi_text.h"
#include "win32/ports/win32_file_system.h"
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

  // Removes a file. False while a program holds it.
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

TEST_F(Win32ShellTest, what_is_missing_has_no_kind_no_program_and_no_icon) {
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

TEST_F(Win32ShellTest, what_is_missing_is_not_opened) {
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

class Win32ShellPlace {
 public:
  Win32ShellPlace() {
    if (has_bin_of_its_own()) make_writable();
  }
  system::Shell& shell() { return shell_; }
  system::FileSystem& files() { return files_; }
  std::string folder() { return win32::narrow(folder_.path()).value(); }
  std::string missing_root() {
    char letter = 'Z';
    while (letter > 'A' && (GetLogicalDrives() >> (letter - 'A') & 1u) != 0) --letter;
    return std::string(1, letter) + ":\\";
  }
  std::string other_root() { return ""; }
  bool has_bin_of_its_own() { return GetEnvironmentVariableW(L"ORDELAN_OWN_BIN", nullptr, 0) != 0; }
  std::size_t in_bin() {
    SHQUERYRBINFO found{};
    found.cbSize = sizeof found;
    EXPECT_EQ(SHQueryRecycleBinW(nullptr, &found), S_OK);
    return static_cast<std::size_t>(found.i64NumItems);
  }

 private:
  // Wine cannot empty a bin of the read-only files that another test has left in it.
  static void make_writable() {
    wchar_t data[MAX_PATH + 1] = {};
    GetEnvironmentVariableW(L"XDG_DATA_HOME", data, MAX_PATH + 1);
    const std::wstring bin = L"Z:" + std::wstring(data) + L"\\Trash\\files\\";
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((bin + L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
      SetFileAttributesW((bin + found.cFileName).c_str(), FILE_ATTRIBUTE_NORMAL);
    } while (FindNextFileW(search, &found));
    FindClose(search);
  }

  TemporaryFolder folder_;
  win32::Win32FileSystem files_;
  win32::Win32Shell shell_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, ShellContract, Win32ShellPlace);

// Gives every question of this process that answer until it is destroyed.
class Answerer {
 public:
  explicit Answerer(WORD answer) : thread_([this, answer] { run(answer); }) {}
  ~Answerer() {
    over_ = true;
    thread_.join();
  }
  Answerer(const Answerer&) = delete;
  Answerer& operator=(const Answerer&) = delete;

  int answered() const { return answered_; }

 private:
  void run(WORD answer) {
    while (!over_) {
      const HWND question = FindWindowW(L"#32770", nullptr);
      DWORD process = 0;
      if (question != nullptr) GetWindowThreadProcessId(question, &process);
      if (process == GetCurrentProcessId() && IsWindowVisible(question)) {
        ++answered_;
        PostMessageW(question, WM_COMMAND, answer, 0);
        for (int turn = 0; turn < 500 && !over_ && IsWindow(question); ++turn) Sleep(10);
      }
      Sleep(10);
    }
  }

  std::atomic<bool> over_ = false;
  std::atomic<int> answered_ = 0;
  std::thread thread_;
};

TEST_F(Win32ShellTest, a_question_is_asked_and_the_file_stays_where_the_user_says_no) {
  const std::string file = written("voz.wav", "voz");
  {
    const Answerer no(IDNO);
    EXPECT_EQ(shell.recycle(file, system::Confirm::ask), system::Reason::cancelled);
    EXPECT_GE(no.answered(), 1);
  }
  EXPECT_TRUE(is_there(file));
  {
    const Answerer yes(IDYES);
    EXPECT_EQ(shell.recycle(file, system::Confirm::ask), system::Reason::ok);
    EXPECT_GE(yes.answered(), 1);
  }
  EXPECT_FALSE(is_there(file));
}

TEST_F(Win32ShellTest, a_file_that_another_program_keeps_open_is_not_recycled) {
  const std::string file = written("voz.wav", "voz");
  const HANDLE lock =
      CreateFileW(win32::widen(file).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(lock, INVALID_HANDLE_VALUE);
  EXPECT_EQ(shell.recycle(file, system::Confirm::without_asking), system::Reason::in_use);
  CloseHandle(lock);
  EXPECT_TRUE(is_there(file));
}

TEST_F(Win32ShellTest, a_path_that_the_bin_cannot_take_stays_where_it_is) {
  const std::string deep = path(std::string(120, 'a') + "\\" + std::string(120, 'b'));
  make_folders(win32::widen(deep));
  const std::string file = deep + "\\voz.wav";
  ASSERT_GT(file.size(), std::size_t{MAX_PATH});
  write_file(win32::widen(file), "voz");
  win32::Win32FileSystem files;
  EXPECT_EQ(shell.recycle(file, system::Confirm::without_asking), system::Reason::too_long);
  EXPECT_TRUE(files.info(file));
}

}  // namespace
}  // namespace ordelan::test
