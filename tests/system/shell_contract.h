// What the recycle bin of every Shell keeps to, as tests. Each implementation runs them over a
// place of its own:
//
//   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, ShellContract, PosixShellPlace);
//
// A place is made anew for each test. It has
//
//   system::Shell& shell();        what is tried
//   system::FileSystem& files();   the disk that it recycles from
//   std::string folder();          a fresh, empty folder on a drive with a bin, without a backslash
//                                  at its end
//   std::string missing_root();    the root of a letter that no drive has
//   std::string other_root();      the root of a drive whose files are not recycled, empty if this
//                                  machine has none
//   bool has_bin_of_its_own();     whether the bin may be emptied and looked into: it is no user's
//   std::size_t in_bin();          how many files are in it
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "system/file_system.h"
#include "system/shell.h"

namespace ordelan::test {

template <class Place>
class ShellContract : public testing::Test {
 protected:
  system::Shell& shell() { return place_.shell(); }
  system::FileSystem& files() { return place_.files(); }
  Place& place() { return place_; }
  std::string path(std::string_view name) { return place_.folder() + "\\" + std::string(name); }

  void write(const std::string& path, std::string_view bytes = "audio") {
    const auto file = files().create_new(path);
    ASSERT_TRUE(file) << path;
    EXPECT_TRUE(file->write(bytes));
    EXPECT_TRUE(file->close());
  }

 private:
  Place place_;
};

TYPED_TEST_SUITE_P(ShellContract);

TYPED_TEST_P(ShellContract, a_recycled_file_goes_to_the_bin_and_others_stay) {
  using system::Confirm;
  this->write(this->path("a.wav"));
  this->write(this->path("b.wav"));
  const bool own = this->place().has_bin_of_its_own();
  const std::size_t before = own ? this->place().in_bin() : 0;
  EXPECT_EQ(this->shell().recycle(this->path("a.wav"), Confirm::without_asking),
            system::Reason::ok);
  EXPECT_FALSE(this->files().info(this->path("a.wav")));
  EXPECT_TRUE(this->files().info(this->path("b.wav")));
  if (own) {
    EXPECT_EQ(this->place().in_bin(), before + 1);
  }
}

TYPED_TEST_P(ShellContract, files_of_one_name_and_read_only_files_are_recycled) {
  using system::Confirm;
  const bool own = this->place().has_bin_of_its_own();
  const std::size_t before = own ? this->place().in_bin() : 0;
  for (int turn = 0; turn < 3; ++turn) {
    this->write(this->path("Canci\xF3n 1.wav"));
    if (turn == 1) {
      ASSERT_TRUE(this->files().set_attributes(this->path("Canci\xF3n 1.wav"),
                                               system::attribute::kReadOnly));
    }
    EXPECT_EQ(this->shell().recycle(this->path("Canci\xF3n 1.wav"), Confirm::without_asking),
              system::Reason::ok);
    EXPECT_FALSE(this->files().info(this->path("Canci\xF3n 1.wav")));
  }
  if (own) {
    EXPECT_EQ(this->place().in_bin(), before + 3);
  }
}

TYPED_TEST_P(ShellContract, what_is_no_file_is_not_recycled) {
  using system::Confirm;
  using system::Reason;
  ASSERT_TRUE(this->files().make_folder(this->path("Mix")));
  this->write(this->path("Mix\\a.wav"));
  const auto recycle = [&](const std::string& path) {
    return this->shell().recycle(path, Confirm::without_asking);
  };
  EXPECT_EQ(recycle(this->path("nada.wav")), Reason::not_found);
  EXPECT_EQ(recycle(this->path("nada\\a.wav")), Reason::not_found);
  EXPECT_EQ(recycle(this->path("Mix")), Reason::not_a_file);
  EXPECT_EQ(recycle(this->path("Mix\\")), Reason::not_a_file);
  EXPECT_EQ(recycle(this->path("Mix\\*.wav")), Reason::bad_path);
  EXPECT_EQ(recycle(this->path("Mix\\a.wa?")), Reason::bad_path);
  EXPECT_EQ(recycle("a.wav"), Reason::bad_path);
  EXPECT_EQ(recycle(""), Reason::bad_path);
  EXPECT_TRUE(this->files().info(this->path("Mix\\a.wav")));
}

TYPED_TEST_P(ShellContract, a_file_is_recycled_or_stays_and_is_never_taken_for_another) {
  using system::Confirm;
  // What Windows would tidy up to the plain name.
  this->write(this->path("a.wav"));
  for (const char* name : {"a.wav.", "a.wav "}) {
    const auto made = this->files().create_new(this->path(name));
    if (!made) continue;
    EXPECT_TRUE(made->close());
    const auto status = this->shell().recycle(this->path(name), Confirm::without_asking);
    EXPECT_EQ(status.ok(), !this->files().info(this->path(name))) << name;
    EXPECT_TRUE(this->files().info(this->path("a.wav"))) << name;
  }
}

TYPED_TEST_P(ShellContract, a_file_below_a_path_of_any_length_is_recycled_or_stays) {
  using system::Confirm;
  std::string folder = this->place().folder();
  for (const char letter : {'a', 'b', 'c'}) {
    folder += "\\" + std::string(100, letter);
    ASSERT_TRUE(this->files().make_folder(folder));
  }
  const std::string path = folder + "\\voz.wav";
  this->write(path);
  const auto status = this->shell().recycle(path, Confirm::without_asking);
  EXPECT_EQ(status.ok(), !this->files().info(path));
  if (!status) {
    EXPECT_EQ(status, system::Reason::too_long);
  }
}

TYPED_TEST_P(ShellContract, drives_are_asked_whether_they_recycle) {
  using system::Reason;
  const std::string root = this->place().folder().substr(0, 3);
  EXPECT_EQ(this->shell().recycles(root), Reason::ok);
  EXPECT_EQ(this->shell().recycles(this->place().missing_root()), Reason::not_found);
  for (const std::string& path :
       {std::string(), root.substr(0, 2), root + "Mix", std::string("x")}) {
    EXPECT_EQ(this->shell().recycles(path), Reason::bad_path) << path;
  }
  if (const std::string other = this->place().other_root(); !other.empty()) {
    EXPECT_EQ(this->shell().recycles(other), Reason::not_supported);
  }
}

TYPED_TEST_P(ShellContract, files_of_a_drive_without_a_bin_stay) {
  const std::string root = this->place().other_root();
  if (root.empty()) GTEST_SKIP() << "every drive of this machine recycles";
  this->write(root + "a.wav");
  EXPECT_EQ(this->shell().recycle(root + "a.wav", system::Confirm::without_asking),
            system::Reason::not_supported);
  EXPECT_TRUE(this->files().info(root + "a.wav"));
  EXPECT_TRUE(this->files().remove(root + "a.wav"));
}

TYPED_TEST_P(ShellContract, the_bin_is_emptied_and_may_be_empty) {
  using system::Confirm;
  if (!this->place().has_bin_of_its_own()) GTEST_SKIP() << "this bin is a user's";
  this->write(this->path("a.wav"));
  ASSERT_TRUE(this->shell().recycle(this->path("a.wav"), Confirm::without_asking));
  EXPECT_GT(this->place().in_bin(), 0u);
  EXPECT_EQ(this->shell().empty_bin("", Confirm::without_asking), system::Reason::ok);
  EXPECT_EQ(this->place().in_bin(), 0u);
  EXPECT_EQ(this->shell().empty_bin("", Confirm::without_asking), system::Reason::ok);
  EXPECT_EQ(this->shell().empty_bin(this->place().missing_root(), Confirm::without_asking),
            system::Reason::not_found);
}

TYPED_TEST_P(ShellContract, a_file_is_copied_into_a_folder_under_its_own_name) {
  using system::Reason;
  ASSERT_TRUE(this->files().make_folder(this->path("Copias")));
  this->write(this->path("Canci\xF3n [1].wav"), "voz");
  EXPECT_TRUE(this->shell().copy_into(this->path("Canci\xF3n [1].wav"), this->path("Copias")));
  const auto copy = this->files().info(this->path("Copias\\Canci\xF3n [1].wav"));
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->size, 3u);
  EXPECT_TRUE(this->files().info(this->path("Canci\xF3n [1].wav")));
  EXPECT_EQ(this->shell().copy_into(this->path("nada.wav"), this->path("Copias")),
            Reason::not_found);
  EXPECT_EQ(this->shell().copy_into(this->path("Copias"), this->path("Copias")),
            Reason::not_a_file);
  EXPECT_EQ(this->shell().copy_into(this->path("Canci\xF3n [1].wav"), this->path("nada")),
            Reason::not_found);
  EXPECT_FALSE(this->files().info(this->path("nada"))) << "no file gets the folder's name";
}

REGISTER_TYPED_TEST_SUITE_P(ShellContract, a_file_is_copied_into_a_folder_under_its_own_name,
                            a_recycled_file_goes_to_the_bin_and_others_stay,
                            files_of_one_name_and_read_only_files_are_recycled,
                            what_is_no_file_is_not_recycled,
                            a_file_is_recycled_or_stays_and_is_never_taken_for_another,
                            a_file_below_a_path_of_any_length_is_recycled_or_stays,
                            drives_are_asked_whether_they_recycle,
                            files_of_a_drive_without_a_bin_stay,
                            the_bin_is_emptied_and_may_be_empty);

}  // namespace ordelan::test
