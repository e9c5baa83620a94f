#include "posix/native_folder.h"
#include "posix/posix_drives.h"
#include "system/drives_contract.h"

namespace ordelan::test {
namespace {

using system::DriveType;

class PosixDrivesPlace {
 public:
  system::Drives& drives() { return drives_; }
  std::string root() { return "D:\\"; }
  std::string missing_root() { return "Q:\\"; }

 private:
  MappedFolder mapped_;
  posix::PosixDrives drives_{mapped_.drives};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Posix, DrivesContract, PosixDrivesPlace);

struct PosixDrivesTest : ::testing::Test, MappedFolder {
  posix::PosixDrives shown{drives};
};

TEST_F(PosixDrivesTest, a_mapped_letter_is_a_fixed_drive_without_a_label) {
  EXPECT_EQ(shown.type("D:\\"), DriveType::fixed);
  ASSERT_TRUE(shown.volume("D:\\"));
  EXPECT_EQ(shown.volume("D:\\")->label, "");
}

TEST_F(PosixDrivesTest, a_letter_passes_for_what_its_mapping_says) {
  ASSERT_TRUE(drives.map('e', disk.native(), {DriveType::cdrom, "M\xFAsica"}));
  EXPECT_THAT(shown.roots(), testing::ElementsAre("D:\\", "E:\\"));
  EXPECT_EQ(shown.type("E:\\"), DriveType::cdrom);
  ASSERT_TRUE(shown.volume("E:\\"));
  EXPECT_EQ(shown.volume("E:\\")->label, "M\xFAsica");
  EXPECT_EQ(shown.type("D:\\"), DriveType::fixed) << "the others stay as they are";
}

TEST_F(PosixDrivesTest, a_drive_without_a_medium_is_there_and_cannot_be_entered) {
  disk.file("a.wav");
  ASSERT_TRUE(drives.map('E', disk.native(), {DriveType::removable, "lejos", false}));
  EXPECT_THAT(shown.roots(), testing::ElementsAre("D:\\", "E:\\"));
  EXPECT_EQ(shown.type("E:\\"), DriveType::removable);
  EXPECT_FALSE(shown.volume("E:\\"));
  EXPECT_EQ(shown.space("E:\\").status(), system::Reason::not_ready);
  EXPECT_EQ(files.open("E:\\a.wav").status(), system::Reason::not_ready);
  EXPECT_FALSE(files.info("E:\\"));
  EXPECT_FALSE(files.info("E:\\a.wav"));
  EXPECT_FALSE(files.list("E:\\"));
  EXPECT_TRUE(files.info("D:\\a.wav"));
}

TEST_F(PosixDrivesTest, two_folders_of_one_disk_are_two_volumes) {
  disk.folder("Mix");
  ASSERT_TRUE(drives.map('E', disk / "Mix"));
  ASSERT_TRUE(drives.map('F', disk / "Mix"));
  EXPECT_NE(shown.volume("D:\\")->serial, shown.volume("E:\\")->serial);
  EXPECT_EQ(shown.volume("E:\\")->serial, shown.volume("F:\\")->serial);
}

TEST_F(PosixDrivesTest, a_drive_whose_folder_is_gone_has_no_volume) {
  disk.folder("Mix");
  ASSERT_TRUE(drives.map('E', disk / "Mix"));
  std::filesystem::remove(disk / "Mix");
  EXPECT_EQ(shown.type("E:\\"), DriveType::fixed);
  EXPECT_FALSE(shown.volume("E:\\"));
  EXPECT_FALSE(shown.space("E:\\"));
}

}  // namespace
}  // namespace ordelan::test
