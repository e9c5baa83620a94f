#include <windows.h>

#include "system/drives_contract.h"
#include "win32/ports/win32_drives.h"

namespace ordelan::test {
namespace {

class Win32DrivesPlace {
 public:
  system::Drives& drives() { return drives_; }

  // The drive that Windows itself is on.
  std::string root() {
    wchar_t folder[MAX_PATH + 1] = {};
    GetWindowsDirectoryW(folder, MAX_PATH + 1);
    return std::string(1, static_cast<char>(folder[0])) + ":\\";
  }

  std::string missing_root() {
    char letter = 'Z';
    while (letter > 'A' && (GetLogicalDrives() >> (letter - 'A') & 1u) != 0) --letter;
    return std::string(1, letter) + ":\\";
  }

 private:
  win32::Win32Drives drives_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, DrivesContract, Win32DrivesPlace);

TEST(Win32Drives, the_drive_of_windows_is_a_fixed_one_with_a_file_system) {
  Win32DrivesPlace place;
  EXPECT_EQ(place.drives().type(place.root()), system::DriveType::fixed);
  const auto volume = place.drives().volume(place.root());
  ASSERT_TRUE(volume);
  EXPECT_NE(volume->system, "");
}

TEST(Win32Drives, a_drive_without_a_medium_is_no_matter_for_the_user) {
  SetErrorMode(0);
  win32::Win32Drives drives;
  EXPECT_NE(GetErrorMode() & SEM_FAILCRITICALERRORS, 0u);
}

}  // namespace
}  // namespace ordelan::test
