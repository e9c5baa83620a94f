// What every Drives keeps to, as tests. Each implementation runs them over a place of its own:
//
//   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, DrivesContract, PosixDrivesPlace);
//
// A place has
//
//   system::Drives& drives();     what is tried
//   std::string root();           the root of an existing drive, with a medium in it
//   std::string missing_root();   the root of a letter that no drive has
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "system/drives.h"

namespace ordelan::test {

template <class Place>
class DrivesContract : public testing::Test {
 protected:
  system::Drives& drives() { return place_.drives(); }
  Place& place() { return place_; }

 private:
  Place place_;
};

TYPED_TEST_SUITE_P(DrivesContract);

TYPED_TEST_P(DrivesContract, the_drives_come_as_roots_from_a_upwards) {
  const auto roots = this->drives().roots();
  EXPECT_THAT(roots, testing::Contains(this->place().root()));
  EXPECT_THAT(roots, testing::Not(testing::Contains(this->place().missing_root())));
  EXPECT_TRUE(std::is_sorted(roots.begin(), roots.end()));
  EXPECT_EQ(std::adjacent_find(roots.begin(), roots.end()), roots.end()) << "each one once";
  for (const std::string& root : roots) {
    ASSERT_EQ(root.size(), 3u);
    EXPECT_GE(root[0], 'A');
    EXPECT_LE(root[0], 'Z');
    EXPECT_EQ(root.substr(1), ":\\");
  }
}

TYPED_TEST_P(DrivesContract, every_drive_that_is_reported_has_a_root) {
  for (const std::string& root : this->drives().roots()) {
    EXPECT_NE(this->drives().type(root), system::DriveType::no_root_dir) << root;
  }
}

TYPED_TEST_P(DrivesContract, a_letter_without_a_drive_has_nothing) {
  const std::string root = this->place().missing_root();
  EXPECT_EQ(this->drives().type(root), system::DriveType::no_root_dir);
  EXPECT_FALSE(this->drives().volume(root));
  EXPECT_EQ(this->drives().space(root).status(), system::Reason::not_found);
}

TYPED_TEST_P(DrivesContract, a_drive_with_a_medium_has_a_volume_and_space) {
  const std::string root = this->place().root();
  const auto volume = this->drives().volume(root);
  ASSERT_TRUE(volume);
  EXPECT_EQ(this->drives().volume(root)->serial, volume->serial) << "the same every time";
  const auto space = this->drives().space(root);
  ASSERT_TRUE(space);
  EXPECT_GT(space->total, 0u);
  EXPECT_LE(space->free, space->total);
}

TYPED_TEST_P(DrivesContract, the_case_of_the_letter_makes_no_difference) {
  std::string small = this->place().root();
  small[0] = static_cast<char>(small[0] - 'A' + 'a');
  EXPECT_EQ(this->drives().type(small), this->drives().type(this->place().root()));
  EXPECT_TRUE(this->drives().volume(small));
  EXPECT_TRUE(this->drives().space(small));
}

TYPED_TEST_P(DrivesContract, what_is_no_root_has_nothing) {
  const std::string letter = this->place().root().substr(0, 1);
  for (const std::string& root :
       {std::string(), letter, letter + ":", letter + ":nada", letter + ":/", letter + ":\\nada",
        letter + ":\\" + '\0', std::string("1:\\"), std::string("\\"), std::string("\\\\")}) {
    EXPECT_EQ(this->drives().type(root), system::DriveType::no_root_dir) << root;
    EXPECT_FALSE(this->drives().volume(root)) << root;
    EXPECT_FALSE(this->drives().space(root)) << root;
    EXPECT_NE(this->drives().space(root).status(), system::Reason::ok) << root;
  }
}

REGISTER_TYPED_TEST_SUITE_P(DrivesContract, the_drives_come_as_roots_from_a_upwards,
                            every_drive_that_is_reported_has_a_root,
                            a_letter_without_a_drive_has_nothing,
                            a_drive_with_a_medium_has_a_volume_and_space,
                            the_case_of_the_letter_makes_no_difference,
                            what_is_no_root_has_nothing);

}  // namespace ordelan::test
