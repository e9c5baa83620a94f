// What the shell does with a file for the user.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "win32/ports/win32_shell.h"

namespace ordelan::test {
namespace {

std::wstring clipboard() {
  std::wstring text;
  if (!OpenClipboard(nullptr)) return L"<closed>";
  if (const HANDLE held = GetClipboardData(CF_UNICODETEXT)) {
    text = static_cast<const wchar_t*>(GlobalLock(held));
    GlobalUnlock(held);
  }
  CloseClipboard();
  return text;
}

TEST(ShellCommands, a_text_goes_to_the_clipboard_as_unicode) {
  win32::Win32Shell shell;
  EXPECT_TRUE(shell.copy_text("D:\\Canción\\a.wav\r\nD:\\b.wav"));
  EXPECT_EQ(clipboard(), L"D:\\Canci\u00F3n\\a.wav\r\nD:\\b.wav");
  EXPECT_TRUE(shell.copy_text(""));
  EXPECT_EQ(clipboard(), L"");
  const std::string row = "D:\\Sesiones\\Toma.wav\r\n";
  std::string rows;
  for (int i = 0; i < 200'000; ++i) rows += row;
  EXPECT_TRUE(shell.copy_text(rows));
  EXPECT_EQ(clipboard().size(), rows.size());
}

TEST(ShellCommands, what_is_no_path_opens_nothing) {
  win32::Win32Shell shell;
  EXPECT_FALSE(shell.show_in_folder(""));
  EXPECT_FALSE(shell.show_in_folder("a.wav"));
  EXPECT_FALSE(shell.show_in_folder("D:\\a\" /e,C:\\"));
  EXPECT_FALSE(shell.show_in_folder("Q:\\no\\a.wav"));
  EXPECT_FALSE(shell.show_properties(std::string("D:\\a\0b", 6)));
  EXPECT_FALSE(shell.show_properties("Q:\\no\\a.wav"));
}

}  // namespace
}  // namespace ordelan::test
