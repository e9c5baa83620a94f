#include <windows.h>

#include <thread>

#include "system/file_change_contract.h"
#include "system/file_system_contract.h"
#include "win32/ansi_text.h"
#include "win32/ports/win32_file_system.h"
#include "win32/temporary_folder.h"

namespace ordelan::test {
namespace {

class Win32Place {
 public:
  system::FileSystem& files() { return files_; }
  std::string folder() { return win32::narrow(folder_.path()).value(); }
  void make_folder(std::string_view path) { make_folders(win32::widen(path)); }
  void write(std::string_view path, std::string_view bytes) {
    write_file(win32::widen(path), bytes);
  }
  void truncate(std::string_view path) { write_file(win32::widen(path), ""); }
  void make_read_only(std::string_view path) {
    ASSERT_TRUE(SetFileAttributesW(win32::widen(path).c_str(), FILE_ATTRIBUTE_READONLY));
  }
  bool link(std::string_view link, std::string_view to) {
    constexpr DWORD kUnprivileged = 2;  // allowed without rights in developer mode
    const BOOL made =
        CreateSymbolicLinkW(win32::widen(link).c_str(), win32::widen(to).c_str(), kUnprivileged);
    // Wine says that it made one, and makes none.
    return made && GetFileAttributesW(win32::widen(link).c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  bool add_name(std::string_view name, std::string_view to) {
    return CreateHardLinkW(win32::widen(name).c_str(), win32::widen(to).c_str(), nullptr) != 0;
  }
  void write_unnameable() { write_file(folder_.path() + L"\\\u0416\u6F22.wav", "1"); }

 private:
  TemporaryFolder folder_;
  win32::Win32FileSystem files_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, FileSystemContract, Win32Place);
INSTANTIATE_TYPED_TEST_SUITE_P(Win32, FileChangeContract, Win32Place);

class Win32Files : public testing::Test {
 protected:
  std::string path(std::string_view name) { return place_.folder() + "\\" + std::string(name); }
  void give(std::string_view name, DWORD attributes) {
    place_.write(path(name), "1");
    ASSERT_TRUE(SetFileAttributesW(win32::widen(path(name)).c_str(), attributes));
    if ((GetFileAttributesW(win32::widen(path(name)).c_str()) & attributes) != attributes) {
      GTEST_SKIP() << "this disk keeps no attributes";
    }
  }

  Win32Place place_;
  system::FileSystem& files_ = place_.files();
};

TEST_F(Win32Files, a_hidden_file_is_found_but_not_looked_up) {
  give("oculto.vip", FILE_ATTRIBUTE_HIDDEN);
  if (IsSkipped()) return;
  const auto info = files_.info(path("oculto.vip"));
  ASSERT_TRUE(info);
  EXPECT_TRUE(info->hidden);
  EXPECT_FALSE(files_.look_up(path("oculto.vip")));
  EXPECT_TRUE(files_.open(path("oculto.vip")));
}

HANDLE open_alone(const std::string& path) {
  return CreateFileW(win32::widen(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                     OPEN_EXISTING, 0, nullptr);
}

TEST_F(Win32Files, a_file_that_somebody_looks_at_for_a_moment_is_replaced_all_the_same) {
  place_.write(path("lista.log"), "viejo");
  place_.write(path("lista.log.new"), "nuevo!");
  const HANDLE looking = open_alone(path("lista.log"));
  ASSERT_NE(looking, INVALID_HANDLE_VALUE);
  std::thread other([&] {
    Sleep(15);
    CloseHandle(looking);
  });
  const system::Status replaced = files_.replace(path("lista.log.new"), path("lista.log"));
  other.join();
  EXPECT_TRUE(replaced);
  ASSERT_TRUE(files_.info(path("lista.log")));
  EXPECT_EQ(files_.info(path("lista.log"))->size, 6u);
  EXPECT_FALSE(files_.info(path("lista.log.new")));
}

TEST_F(Win32Files, a_file_that_stays_open_is_not_replaced_and_both_are_as_they_were) {
  place_.write(path("lista.log"), "viejo");
  place_.write(path("lista.log.new"), "nuevo!");
  const HANDLE looking = open_alone(path("lista.log"));
  ASSERT_NE(looking, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(files_.replace(path("lista.log.new"), path("lista.log")));
  CloseHandle(looking);
  EXPECT_EQ(files_.info(path("lista.log"))->size, 5u);
  EXPECT_EQ(files_.info(path("lista.log.new"))->size, 6u);
  EXPECT_EQ(files_.list(place_.folder())->size(), 2u) << "nothing else is left";
}

TEST_F(Win32Files, hidden_files_and_system_files_are_replaced_and_stay_so) {
  for (const DWORD kept : {DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM},
                           DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}}) {
    give("lista.log", kept);
    if (IsSkipped()) return;
    const DWORD before = GetFileAttributesW(win32::widen(path("lista.log")).c_str());
    place_.write(path("b.tmp"), "nuevo!");
    EXPECT_TRUE(files_.replace(path("b.tmp"), path("lista.log")));
    EXPECT_EQ(GetFileAttributesW(win32::widen(path("lista.log")).c_str()), before);
    EXPECT_EQ(files_.info(path("lista.log"))->size, 6u);
    EXPECT_EQ(files_.list(place_.folder())->size(), 1u);
    // Windows writes no hidden file anew as a plain one.
    ASSERT_TRUE(SetFileAttributesW(win32::widen(path("lista.log")).c_str(), FILE_ATTRIBUTE_NORMAL));
  }
}

TEST_F(Win32Files, a_file_that_cannot_be_replaced_leaves_the_new_one_its_attributes) {
  give("lista.log", FILE_ATTRIBUTE_HIDDEN);
  if (IsSkipped()) return;
  place_.write(path("b.tmp"), "nuevo!");
  const DWORD before = GetFileAttributesW(win32::widen(path("b.tmp")).c_str());
  const HANDLE looking = open_alone(path("lista.log"));
  ASSERT_NE(looking, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(files_.replace(path("b.tmp"), path("lista.log")));
  CloseHandle(looking);
  EXPECT_EQ(GetFileAttributesW(win32::widen(path("b.tmp")).c_str()), before);
  EXPECT_EQ(files_.list(place_.folder())->size(), 2u) << "nothing else is left";
}

TEST_F(Win32Files, a_system_file_is_found_but_not_looked_up) {
  give("sistema.vip", FILE_ATTRIBUTE_SYSTEM);
  if (IsSkipped()) return;
  const auto info = files_.info(path("sistema.vip"));
  ASSERT_TRUE(info);
  EXPECT_TRUE(info->system);
  EXPECT_FALSE(files_.look_up(path("sistema.vip")));
}

TEST_F(Win32Files, the_attribute_word_is_the_one_that_windows_keeps) {
  give("suelto.vip", FILE_ATTRIBUTE_READONLY);
  if (IsSkipped()) return;
  const DWORD kept = GetFileAttributesW(win32::widen(path("suelto.vip")).c_str());
  EXPECT_EQ(files_.info(path("suelto.vip"))->attributes, kept);
  const auto listed = files_.list(place_.folder());
  ASSERT_TRUE(listed);
  EXPECT_EQ(listed->at(0).attributes, kept);
}

TEST_F(Win32Files, times_are_those_of_the_users_own_clock) {
  place_.write(path("a.wav"), "1");
  // Noon of the 1st of January 2020 and half a second, by the clock on the wall.
  const SYSTEMTIME noon{2020, 1, 3, 1, 12, 0, 0, 500};
  FILETIME local{};
  FILETIME world{};
  ASSERT_TRUE(SystemTimeToFileTime(&noon, &local));
  ASSERT_TRUE(LocalFileTimeToFileTime(&local, &world));
  const HANDLE file = CreateFileW(win32::widen(path("a.wav")).c_str(), FILE_WRITE_ATTRIBUTES, 0,
                                  nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &world));
  CloseHandle(file);
  constexpr double kMillisecond = 1 / 86.4e6;
  EXPECT_NEAR(files_.info(path("a.wav"))->modified, 43831.5 + 500 * kMillisecond, kMillisecond);
}

TEST_F(Win32Files, a_drive_has_attributes_without_being_hidden) {
  const auto drive = files_.info(place_.folder().substr(0, 3));
  ASSERT_TRUE(drive);
  EXPECT_EQ(drive->attributes & (system::attribute::kFolder | system::attribute::kHidden |
                                 system::attribute::kSystem),
            system::attribute::kFolder);
  EXPECT_GT(drive->modified, 0);
}

TEST_F(Win32Files, a_file_that_another_program_keeps_to_itself_does_not_open) {
  place_.write(path("a.vip"), "1");
  const HANDLE lock = CreateFileW(win32::widen(path("a.vip")).c_str(), GENERIC_READ, 0, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(lock, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(files_.open(path("a.vip")));
  EXPECT_FALSE(files_.create(path("a.vip")));
  EXPECT_TRUE(files_.info(path("a.vip")));
  CloseHandle(lock);
  EXPECT_TRUE(files_.open(path("a.vip")));
}

TEST_F(Win32Files, an_open_file_may_be_written_renamed_and_removed_by_others) {
  place_.write(path("a.vip"), "1");
  const auto file = files_.open(path("a.vip"));
  ASSERT_TRUE(file);
  place_.write(path("a.vip"), "234");
  EXPECT_EQ(read_from(*file, 0, 10), "234");
  EXPECT_TRUE(MoveFileW(win32::widen(path("a.vip")).c_str(), win32::widen(path("b.vip")).c_str()));
  EXPECT_TRUE(DeleteFileW(win32::widen(path("b.vip")).c_str()));
}

TEST_F(Win32Files, a_file_that_another_program_keeps_to_itself_is_in_use) {
  place_.write(path("a.vip"), "1");
  const HANDLE lock = CreateFileW(win32::widen(path("a.vip")).c_str(), GENERIC_READ, 0, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(lock, INVALID_HANDLE_VALUE);
  using system::Reason;
  EXPECT_EQ(files_.open(path("a.vip")).status(), Reason::in_use);
  EXPECT_EQ(files_.create(path("a.vip")).status(), Reason::in_use);
  EXPECT_EQ(files_.remove(path("a.vip")), Reason::in_use);
  EXPECT_EQ(files_.copy_new(path("a.vip"), path("b.vip"), nullptr), Reason::in_use);
  EXPECT_FALSE(files_.info(path("b.vip"))) << "no empty copy is left";
  EXPECT_EQ(files_.move(path("a.vip"), path("b.vip")), Reason::in_use);
  place_.write(path("c.vip"), "2");
  EXPECT_EQ(files_.replace(path("c.vip"), path("a.vip")), Reason::in_use);
  CloseHandle(lock);
}

TEST_F(Win32Files, a_file_that_another_program_does_not_let_be_written_is_not_changed) {
  place_.write(path("a.vip"), "123");
  for (const DWORD shared : {DWORD{FILE_SHARE_READ}, DWORD{0}}) {
    const HANDLE other = CreateFileW(win32::widen(path("a.vip")).c_str(), GENERIC_READ, shared,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_EQ(files_.change(path("a.vip")).status(), system::Reason::in_use) << shared;
    CloseHandle(other);
  }
  EXPECT_TRUE(files_.change(path("a.vip")));
}

TEST_F(Win32Files, a_file_that_another_program_writes_to_is_not_changed) {
  place_.write(path("a.vip"), "123");
  constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE other = CreateFileW(win32::widen(path("a.vip")).c_str(), GENERIC_WRITE, kAll,
                                   nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  EXPECT_EQ(files_.change(path("a.vip")).status(), system::Reason::in_use);
  CloseHandle(other);
}

TEST_F(Win32Files, a_file_that_is_changed_may_be_read_by_others_and_nothing_else) {
  place_.write(path("a.vip"), "123");
  {
    const auto file = files_.change(path("a.vip"));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->write_at(1, "x"));
    EXPECT_TRUE(files_.open(path("a.vip")));
    EXPECT_EQ(files_.change(path("a.vip")).status(), system::Reason::in_use);
    EXPECT_EQ(files_.create(path("a.vip")).status(), system::Reason::in_use);
    EXPECT_EQ(files_.remove(path("a.vip")), system::Reason::in_use);
    EXPECT_EQ(files_.move(path("a.vip"), path("b.vip")), system::Reason::in_use);
  }
  EXPECT_TRUE(files_.remove(path("a.vip")));
}

// As virus scanners do with files that have just come.
TEST_F(Win32Files, another_program_may_read_a_copy_while_it_is_made) {
  place_.write(path("a.wav"), "1");
  HANDLE reader = INVALID_HANDLE_VALUE;
  EXPECT_TRUE(files_.copy_new(path("a.wav"), path("b.wav"), [&](std::uint64_t) {
    reader = CreateFileW(win32::widen(path("b.wav")).c_str(), GENERIC_READ,
                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                         OPEN_EXISTING, 0, nullptr);
    return true;
  }));
  EXPECT_NE(reader, INVALID_HANDLE_VALUE);
  CloseHandle(reader);
  EXPECT_EQ(files_.info(path("b.wav"))->size, 1u);
}

TEST_F(Win32Files, a_copy_keeps_hidden_and_system) {
  give("a.wav", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
  if (IsSkipped()) return;
  ASSERT_TRUE(files_.copy_new(path("a.wav"), path("b.wav"), nullptr));
  EXPECT_EQ(files_.info(path("b.wav"))->attributes, files_.info(path("a.wav"))->attributes);
}

TEST_F(Win32Files, slashes_and_dots_lead_where_they_lead_in_windows) {
  place_.make_folder(path("Mix"));
  place_.write(path("Mix\\a.wav"), "1");
  std::string slashes = path("Mix/a.wav");
  EXPECT_TRUE(files_.info(slashes));
  EXPECT_TRUE(files_.info(path("Mix\\.\\..\\Mix\\\\a.wav")));
}

TEST_F(Win32Files, a_link_to_a_folder_is_listed_as_one) {
  place_.make_folder(path("Mix"));
  constexpr DWORD kUnprivileged = 2;  // allowed without rights in developer mode
  const std::wstring link = win32::widen(path("enlace"));
  const BOOL made = CreateSymbolicLinkW(link.c_str(), win32::widen(path("Mix")).c_str(),
                                        SYMBOLIC_LINK_FLAG_DIRECTORY | kUnprivileged);
  // Wine says that it made one, and makes none.
  if (!made || GetFileAttributesW(link.c_str()) == INVALID_FILE_ATTRIBUTES) {
    GTEST_SKIP() << "no links can be made here";
  }
  const auto info = files_.info(path("enlace"));
  ASSERT_TRUE(info);
  EXPECT_TRUE(info->link);
}

}  // namespace
}  // namespace ordelan::test
