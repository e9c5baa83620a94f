// What every FileSystem keeps to where a file is changed in place and where many are flushed at
// once, as tests over the places of file_system_contract.h.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "system/file_system_contract.h"

namespace ordelan::test {

template <class Place>
class FileChangeContract : public FileSystemContract<Place> {};

TYPED_TEST_SUITE_P(FileChangeContract);

TYPED_TEST_P(FileChangeContract, bytes_are_written_where_they_belong_and_the_rest_stays) {
  this->place().write(this->path("a.vip"), "0123456789");
  const auto file = this->files().change(this->path("A.VIP"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write_at(4, "abc"));
  EXPECT_TRUE(file->write_at(0, "X"));
  EXPECT_TRUE(file->write_at(5, std::string_view("\0\xFF", 2)));
  EXPECT_TRUE(file->write_at(9, ""));
  EXPECT_TRUE(file->flush());
  EXPECT_EQ(this->whole("a.vip"), std::string("X123a\0\xFF"
                                              "789",
                                              10));
  EXPECT_TRUE(file->write_at(1, "-"));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("a.vip"), std::string("X-23a\0\xFF"
                                              "789",
                                              10));
}

TYPED_TEST_P(FileChangeContract, a_changed_file_stays_the_same_file) {
  this->place().write(this->path("a.vip"), "0123456789");
  const auto identity = this->files().identity(this->path("a.vip"));
  const auto before = this->files().info(this->path("a.vip"));
  ASSERT_TRUE(before);
  {
    const auto file = this->files().change(this->path("a.vip"));
    ASSERT_TRUE(file);
    EXPECT_EQ(this->whole("a.vip"), "0123456789") << "opening empties nothing";
    EXPECT_TRUE(file->write_at(0, "x"));
  }
  EXPECT_EQ(this->files().identity(this->path("a.vip")), identity);
  EXPECT_EQ(this->whole("a.vip"), "x123456789") << "also when it was not closed";
  const auto after = this->files().info(this->path("a.vip"));
  ASSERT_TRUE(after);
  EXPECT_EQ(after->attributes, before->attributes);
  EXPECT_EQ(after->size, before->size);
  EXPECT_EQ(this->files().list(this->place().folder())->size(), 1u);
}

TYPED_TEST_P(FileChangeContract, a_file_that_is_only_opened_to_be_changed_is_as_it_was) {
  this->place().write(this->path("a.vip"), "0123456789");
  const auto before = this->files().info(this->path("a.vip"));
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  {
    const auto file = this->files().change(this->path("a.vip"));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->write_at(0, ""));
    EXPECT_TRUE(file->write_at(50, ""));
    EXPECT_TRUE(file->flush());
    EXPECT_TRUE(file->close());
  }
  const auto after = this->files().info(this->path("a.vip"));
  ASSERT_TRUE(before && after);
  EXPECT_EQ(after->modified, before->modified);
  EXPECT_EQ(after->size, 10u);
}

TYPED_TEST_P(FileChangeContract, bytes_past_the_end_make_the_file_longer) {
  this->place().write(this->path("a.vip"), "012");
  const auto file = this->files().change(this->path("a.vip"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write_at(2, "ab"));
  EXPECT_EQ(this->whole("a.vip"), "01ab") << "over the end";
  EXPECT_TRUE(file->write_at(4, "c"));
  EXPECT_EQ(this->whole("a.vip"), "01abc") << "at the end";
  EXPECT_TRUE(file->write_at(8, "d"));
  EXPECT_EQ(this->whole("a.vip"), std::string("01abc\0\0\0d", 9)) << "after it";
  EXPECT_TRUE(file->write_at(6, "e"));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("a.vip"), std::string("01abc\0e\0d", 9));
}

TYPED_TEST_P(FileChangeContract, a_file_is_cut_or_made_longer_with_zeros) {
  this->place().write(this->path("a.vip"), "0123456789");
  const auto file = this->files().change(this->path("a.vip"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->set_size(4));
  EXPECT_EQ(this->whole("a.vip"), "0123");
  EXPECT_TRUE(file->set_size(6));
  EXPECT_EQ(this->whole("a.vip"), std::string("0123\0\0", 6));
  EXPECT_TRUE(file->write_at(1, "x"));
  EXPECT_TRUE(file->set_size(6));
  EXPECT_TRUE(file->flush());
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("a.vip"), std::string("0x23\0\0", 6));
}

TYPED_TEST_P(FileChangeContract, an_empty_file_is_changed_and_much_is_written_at_once) {
  this->place().write(this->path("a.vip"), "");
  std::string bytes(3 * 1024 * 1024 + 7, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * i >> 3);
  const auto file = this->files().change(this->path("a.vip"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write_at(5, bytes));
  EXPECT_TRUE(file->close());
  const auto written = this->files().open(this->path("a.vip"));
  ASSERT_TRUE(written);
  EXPECT_EQ(written->size(), bytes.size() + 5);
  EXPECT_TRUE(read_from(*written, 5, bytes.size()) == bytes);
}

TYPED_TEST_P(FileChangeContract, after_a_failure_every_call_fails) {
  this->place().write(this->path("a.vip"), "012");
  const auto file = this->files().change(this->path("a.vip"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write_at(0, "x"));
  EXPECT_FALSE(file->write_at(std::uint64_t{1} << 63, "y")) << "no file is that long";
  EXPECT_FALSE(file->write_at(1, "z"));
  EXPECT_FALSE(file->flush());
  EXPECT_FALSE(file->close());
  EXPECT_EQ(this->whole("a.vip"), "x12");
}

TYPED_TEST_P(FileChangeContract, what_is_no_file_to_be_written_is_not_opened_to_be_changed) {
  using system::Reason;
  this->place().write(this->path("a.vip"), "1");
  this->place().write(this->path("suelto.vip"), "1");
  this->place().make_read_only(this->path("suelto.vip"));
  this->place().make_folder(this->path("Mix"));
  auto& files = this->files();
  EXPECT_EQ(files.change(this->path("a.vip")).status(), Reason::ok);
  EXPECT_EQ(files.change(this->path("nada.vip")).status(), Reason::not_found);
  EXPECT_EQ(files.change(this->path("nada\\a.vip")).status(), Reason::not_found);
  EXPECT_EQ(files.change(this->path("Mix")).status(), Reason::not_a_file);
  EXPECT_EQ(files.change(this->path("Mix\\")).status(), Reason::not_a_file);
  EXPECT_EQ(files.change(this->path("a.vip\\")).status(), Reason::not_a_file);
  EXPECT_EQ(files.change(this->path("suelto.vip")).status(), Reason::read_only);
  EXPECT_EQ(files.change(this->path("*.vip")).status(), Reason::bad_path);
  EXPECT_EQ(files.change("a.vip").status(), Reason::bad_path);
  EXPECT_EQ(files.change("").status(), Reason::bad_path);
  EXPECT_FALSE(files.info(this->path("nada.vip"))) << "none is created";
  EXPECT_EQ(this->whole("suelto.vip"), "1");
  EXPECT_TRUE(files.info(this->path("suelto.vip"))->attributes & system::attribute::kReadOnly);
}

TYPED_TEST_P(FileChangeContract, a_reader_sees_what_has_been_changed) {
  this->place().write(this->path("a.vip"), "0123456789");
  const auto reader = this->files().open(this->path("a.vip"));
  const auto file = this->files().change(this->path("a.vip"));
  ASSERT_TRUE(reader && file);
  EXPECT_TRUE(file->write_at(2, "xy"));
  EXPECT_EQ(read_from(*reader, 0, 20), "01xy456789");
}

TYPED_TEST_P(FileChangeContract, all_names_of_a_file_show_the_change) {
  this->place().write(this->path("a.vip"), "0123456789");
  const auto alone = this->files().change(this->path("a.vip"));
  ASSERT_TRUE(alone);
  EXPECT_EQ(alone->names(), 1u);
  EXPECT_TRUE(alone->close());
  if (!this->place().add_name(this->path("b.vip"), this->path("a.vip"))) {
    GTEST_SKIP() << "this system gives a file no second name";
  }
  const auto file = this->files().change(this->path("b.vip"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->names(), 2u);
  EXPECT_TRUE(file->write_at(3, "x"));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("a.vip"), "012x456789");
  EXPECT_EQ(this->files().identity(this->path("a.vip")),
            this->files().identity(this->path("b.vip")));
}

TYPED_TEST_P(FileChangeContract, what_a_link_leads_to_is_changed_and_the_link_stays) {
  this->place().make_folder(this->path("Mix"));
  this->place().write(this->path("Mix\\a.vip"), "0123");
  this->place().write(this->path("Mix\\suelto.vip"), "0123");
  this->place().make_read_only(this->path("Mix\\suelto.vip"));
  if (!this->place().link(this->path("enlace.vip"), this->path("Mix\\a.vip"))) {
    GTEST_SKIP() << "this system makes no links";
  }
  const auto file = this->files().change(this->path("enlace.vip"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->names(), 1u);
  EXPECT_TRUE(file->write_at(1, "x"));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("Mix\\a.vip"), "0x23");
  EXPECT_TRUE(this->files().info(this->path("enlace.vip"))->link);
  ASSERT_TRUE(this->place().link(this->path("otro.vip"), this->path("Mix\\suelto.vip")));
  EXPECT_FALSE(this->files().change(this->path("otro.vip")));
  EXPECT_EQ(this->whole("Mix\\suelto.vip"), "0123");
}

// A few files take another way than many.
TYPED_TEST_P(FileChangeContract, files_are_flushed_together_few_or_many) {
  using system::Reason;
  auto& files = this->files();
  EXPECT_TRUE(files.flush_files({}));
  for (const int count : {1, 3, 40}) {
    std::vector<std::string> paths;
    for (int i = 0; i < count; ++i) {
      const std::string folder = "Mix " + std::to_string(count) + " " + std::to_string(i % 4);
      this->place().make_folder(this->path(folder));
      paths.push_back(this->path(folder + "\\" + std::to_string(i) + ".vip"));
      this->place().write(paths.back(), "1");
    }
    EXPECT_TRUE(files.flush_files(paths)) << count;
    this->place().make_read_only(paths[0]);
    EXPECT_TRUE(files.flush_files(paths)) << count;
    EXPECT_TRUE(files.info(paths[0])->attributes & system::attribute::kReadOnly);
    for (const auto& [path, reason] : std::vector<std::pair<std::string, Reason>>{
             {this->path("nada.vip"), Reason::not_found},
             {this->path("nada\\a.vip"), Reason::not_found},
             {this->path("*.vip"), Reason::bad_path},
             {this->path("Mix " + std::to_string(count) + " 0"), Reason::not_a_file}}) {
      paths.push_back(path);
      EXPECT_EQ(files.flush_files(paths), reason) << path << " after " << count;
      paths.pop_back();
      paths.insert(paths.begin(), path);
      EXPECT_EQ(files.flush_files(paths), reason) << path << " before " << count;
      paths.erase(paths.begin());
    }
    paths.insert(paths.begin(), this->path("*.vip"));
    paths.push_back(this->path("nada.vip"));
    EXPECT_EQ(files.flush_files(paths), Reason::bad_path) << "the first failure";
  }
}

REGISTER_TYPED_TEST_SUITE_P(
    FileChangeContract, files_are_flushed_together_few_or_many,
    bytes_are_written_where_they_belong_and_the_rest_stays, a_changed_file_stays_the_same_file,
    a_file_that_is_only_opened_to_be_changed_is_as_it_was, a_file_is_cut_or_made_longer_with_zeros,
    bytes_past_the_end_make_the_file_longer, an_empty_file_is_changed_and_much_is_written_at_once,
    after_a_failure_every_call_fails, what_is_no_file_to_be_written_is_not_opened_to_be_changed,
    a_reader_sees_what_has_been_changed, all_names_of_a_file_show_the_change,
    what_a_link_leads_to_is_changed_and_the_link_stays);

}  // namespace ordelan::test
