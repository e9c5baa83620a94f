#include "posix/mapped_drives.h"

#include <gtest/gtest.h>

#include "posix/native_folder.h"

namespace ordelan::test {
namespace {

struct MappedDrivesTest : ::testing::Test, MappedFolder {
  // The native path below the folder, nothing when the drives give none.
  std::optional<std::string> below(std::string_view path) {
    auto native = drives.native(path);
    if (!native) return std::nullopt;
    if (native->compare(0, disk.native().size(), disk.native()) != 0) return "outside: " + *native;
    return native->substr(disk.native().size());
  }
};

TEST_F(MappedDrivesTest, a_letter_in_either_case_stands_for_the_folder) {
  disk.file("a.wav");
  EXPECT_EQ(below("D:\\a.wav"), "/a.wav");
  EXPECT_EQ(below("d:\\a.wav"), "/a.wav");
  EXPECT_TRUE(drives.map('e', disk.native()));
  EXPECT_EQ(below("E:\\a.wav"), "/a.wav");
}

TEST_F(MappedDrivesTest, only_letters_and_existing_folders_can_be_mapped) {
  disk.file("a.wav");
  EXPECT_FALSE(drives.map('1', disk.native()));
  EXPECT_FALSE(drives.map('\xF1', disk.native()));
  EXPECT_FALSE(drives.map('F', disk / "gone"));
  EXPECT_FALSE(drives.map('F', disk / "a.wav"));
  EXPECT_FALSE(drives.map('F', ""));
  EXPECT_EQ(drives.native("F:\\a.wav"), std::nullopt);
}

TEST_F(MappedDrivesTest, a_letter_can_be_mapped_anew) {
  disk.file("other/b.wav");
  EXPECT_TRUE(drives.map('D', disk / "other"));
  EXPECT_EQ(below("D:\\b.wav"), "/other/b.wav");
}

TEST_F(MappedDrivesTest, letters_are_listed_from_a_upwards_with_their_drives) {
  ASSERT_TRUE(drives.map('c', disk.native(), {system::DriveType::remote, "red"}));
  EXPECT_EQ(drives.letters(), (std::vector<char>{'C', 'D'}));
  ASSERT_NE(drives.drive('C'), nullptr);
  EXPECT_EQ(drives.drive('c')->label, "red");
  EXPECT_EQ(drives.drive('c')->type, system::DriveType::remote);
  EXPECT_EQ(drives.drive('Q'), nullptr);
  EXPECT_FALSE(drives.map('c', disk / "gone"));
  EXPECT_EQ(drives.drive('C')->label, "red") << "a mapping that fails changes nothing";
}

TEST_F(MappedDrivesTest, a_path_as_it_is_spelt_needs_no_look_at_the_disk) {
  disk.file("Mix/a.wav");
  EXPECT_EQ(drives.spelt("D:\\MIX\\nada.wav"), disk / "MIX/nada.wav");
  EXPECT_EQ(drives.spelt("D:\\"), disk.native());
  EXPECT_EQ(drives.spelt("Q:\\a.wav"), std::nullopt);
  EXPECT_EQ(drives.spelt("D:\\Mix\\..\\a.wav"), disk / "a.wav");
}

TEST_F(MappedDrivesTest, the_whole_disk_can_be_mapped) {
  disk.file("a.wav");
  EXPECT_TRUE(drives.map('Z', "/"));
  EXPECT_EQ(drives.native("Z:\\"), "/");
  std::string path = "Z:" + (disk / "a.wav");
  for (char& c : path) c = c == '/' ? '\\' : c;
  EXPECT_EQ(drives.native(path), disk / "a.wav");
  EXPECT_EQ(drives.windows("/"), "Z:\\");
  EXPECT_EQ(drives.windows(""), std::nullopt);
}

TEST_F(MappedDrivesTest, the_drive_itself_is_the_folder) {
  EXPECT_EQ(below("D:\\"), "");
  EXPECT_EQ(below("D:"), std::nullopt) << "not absolute";
}

TEST_F(MappedDrivesTest, case_is_ignored_in_every_component) {
  disk.file("Mix/Tomas/Voz.WAV");
  EXPECT_EQ(below("D:\\MIX\\tomas\\voz.wav"), "/Mix/Tomas/Voz.WAV");
  EXPECT_EQ(below("D:\\mix\\TOMAS"), "/Mix/Tomas");
}

TEST_F(MappedDrivesTest, the_exact_case_is_preferred) {
  disk.file("Voz.wav");
  disk.file("voz.wav");
  disk.file("VOZ.wav");
  EXPECT_EQ(below("D:\\voz.wav"), "/voz.wav");
  EXPECT_EQ(below("D:\\Voz.wav"), "/Voz.wav");
  EXPECT_EQ(below("D:\\vOZ.wav"), "/VOZ.wav") << "without one, the same every time";
}

TEST_F(MappedDrivesTest, accents_are_found_in_the_disks_own_spelling_and_in_any_case) {
  disk.file("A\xC3\xB1o/Canci\xC3\xB3n.wav");
  EXPECT_EQ(below("D:\\A\xF1o\\Canci\xF3n.wav"), "/A\xC3\xB1o/Canci\xC3\xB3n.wav");
  EXPECT_EQ(below("D:\\A\xD1O\\CANCI\xD3N.WAV"), "/A\xC3\xB1o/Canci\xC3\xB3n.wav");
}

TEST_F(MappedDrivesTest, a_missing_last_name_is_given_as_it_would_be_created) {
  disk.folder("Mix");
  EXPECT_EQ(below("D:\\mix\\Nuevo \xF1.log"), "/Mix/Nuevo \xC3\xB1.log");
  EXPECT_EQ(below("D:\\gone\\new.log"), std::nullopt);
  EXPECT_EQ(below("D:\\gone\\"), "/gone");
}

TEST_F(MappedDrivesTest, no_path_leads_out_of_the_drive) {
  disk.folder("Mix");
  EXPECT_EQ(below("D:\\.."), "");
  EXPECT_EQ(below("D:\\..\\x"), "/x");
  EXPECT_EQ(below("D:\\Mix\\..\\..\\x"), "/x");
  EXPECT_EQ(below("D:\\Mix\\.."), "");
}

TEST_F(MappedDrivesTest, what_is_no_absolute_path_on_a_mapped_drive_gives_nothing) {
  disk.file("a.wav");
  for (const char* path : {"", "a.wav", "\\a.wav", "D:a.wav", "D", "\\\\server\\a.wav", "E:\\a.wav",
                           "DD:\\a.wav", "7 --> D:\\a.wav"}) {
    EXPECT_EQ(below(path), std::nullopt) << path;
  }
}

TEST_F(MappedDrivesTest, characters_that_no_name_has_give_nothing) {
  disk.file("a.wav");
  for (const char* path : {"D:\\*.wav", "D:\\a?wav", "D:\\a\"", "D:\\<a", "D:\\a>", "D:\\a|b",
                           "D:\\a:b", "D:\\a\nb", "D:\\a\x1F"}) {
    EXPECT_EQ(below(path), std::nullopt) << path;
  }
  EXPECT_EQ(below(std::string_view("D:\\a.wav\0x", 10)), std::nullopt);
}

TEST_F(MappedDrivesTest, doubled_backslashes_and_single_dots_add_nothing) {
  disk.file("Mix/a.wav");
  EXPECT_EQ(below("D:\\Mix\\\\a.wav"), "/Mix/a.wav");
  EXPECT_EQ(below("D:\\.\\Mix\\.\\a.wav"), "/Mix/a.wav");
}

TEST_F(MappedDrivesTest, slashes_and_double_dots_are_read_as_windows_reads_them) {
  disk.file("Mix/a.wav");
  EXPECT_EQ(below("D:/Mix/a.wav"), "/Mix/a.wav");
  EXPECT_EQ(below("D:\\Otro\\..\\Mix/a.wav"), "/Mix/a.wav") << "also past a folder that is gone";
}

TEST_F(MappedDrivesTest, native_paths_become_windows_paths) {
  disk.file("A\xC3\xB1o/Canci\xC3\xB3n.wav");
  EXPECT_EQ(drives.windows(disk / "A\xC3\xB1o/Canci\xC3\xB3n.wav"), "D:\\A\xF1o\\Canci\xF3n.wav");
  EXPECT_EQ(drives.windows(disk / "A\xC3\xB1o/../A\xC3\xB1o"), "D:\\A\xF1o");
  EXPECT_EQ(drives.windows(disk / "not there.wav"), "D:\\not there.wav");
}

TEST_F(MappedDrivesTest, the_mapped_folder_itself_is_the_root_of_its_drive) {
  EXPECT_EQ(drives.windows(disk.native()), "D:\\");
  EXPECT_EQ(drives.windows(disk.native() + "/"), "D:\\");
}

TEST_F(MappedDrivesTest, a_native_path_outside_the_drives_has_no_windows_path) {
  EXPECT_EQ(drives.windows("/"), std::nullopt);
  EXPECT_EQ(drives.windows(disk.native() + "x/a.wav"), std::nullopt)
      << "another folder whose name only begins alike";
  EXPECT_EQ(drives.windows("not/there"), std::nullopt);
  EXPECT_EQ(drives.windows(""), std::nullopt);
}

TEST_F(MappedDrivesTest, the_nearest_mapped_folder_gives_the_drive) {
  disk.file("Mix/a.wav");
  ASSERT_TRUE(drives.map('E', disk / "Mix"));
  EXPECT_EQ(drives.windows(disk / "Mix/a.wav"), "E:\\a.wav");
  EXPECT_EQ(drives.windows(disk / "Mix"), "E:\\");
  EXPECT_EQ(drives.windows(disk / "b.wav"), "D:\\b.wav");
}

TEST_F(MappedDrivesTest, a_native_name_that_windows_cannot_hold_has_no_windows_path) {
  disk.file("\xE6\x9D\xB1.wav");
  disk.file("a\\b.wav");
  disk.file("a:b.wav");
  EXPECT_EQ(drives.windows(disk / "\xE6\x9D\xB1.wav"), std::nullopt);
  EXPECT_EQ(drives.windows(disk / "a\\b.wav"), std::nullopt) << "it would name b.wav in a folder a";
  EXPECT_EQ(drives.windows(disk / "a:b.wav"), std::nullopt);
}

TEST_F(MappedDrivesTest, what_lies_below_a_drive_is_given_whatever_its_name) {
  EXPECT_EQ(drives.below_drive(disk / "\xE6\x9D\xB1.wav"), "/\xE6\x9D\xB1.wav");
  EXPECT_EQ(drives.below_drive(disk / "a:b.wav"), "/a:b.wav");
  EXPECT_EQ(drives.below_drive(disk.native() + "/"), "");
  EXPECT_EQ(drives.below_drive(disk.native() + "x/a.wav"), std::nullopt);
  EXPECT_EQ(drives.below_drive(""), std::nullopt);
}

TEST_F(MappedDrivesTest, a_path_there_and_back_is_the_same) {
  disk.file("Mix/Canci\xC3\xB3n 1.wav");
  const auto path = drives.windows(disk / "Mix/Canci\xC3\xB3n 1.wav");
  ASSERT_TRUE(path);
  EXPECT_EQ(drives.native(*path), disk / "Mix/Canci\xC3\xB3n 1.wav");
}

}  // namespace
}  // namespace ordelan::test
