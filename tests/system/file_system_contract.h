// What every FileSystem keeps to, as tests. Each implementation runs them over a place of its
// own on the real disk:
//
//   INSTANTIATE_TYPED_TEST_SUITE_P(Posix, FileSystemContract, PosixPlace);
//
// A place is made anew for each test and removes its files when it is destroyed. It has
//
//   system::FileSystem& files();            what is tried
//   std::string folder();                   a fresh, empty folder, as a Windows path without a
//                                           backslash at its end
//   void make_folder(std::string_view);     makes a folder and those on the way, without `files`
//   void write(std::string_view path, std::string_view bytes);   writes a file, without `files`
//   void truncate(std::string_view path);   makes a file empty while others have it open
//   void make_read_only(std::string_view);  makes a file one that may not be written
//   void write_unnameable();                makes a file in `folder` whose name the code page lacks
//   bool link(std::string_view link, std::string_view to);       makes a link to a file
//   bool add_name(std::string_view name, std::string_view to);   makes a hard link to a file
//
// The last two give false where the system makes none.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "system/file_system.h"

namespace ordelan::test {

// Up to `size` bytes from `offset` on; "failed" where the reading did.
inline std::string read_from(system::InputFile& file, std::uint64_t offset, std::size_t size) {
  std::vector<std::uint8_t> buffer(size);
  const auto came = file.read(offset, buffer);
  if (!came) return "failed";
  return std::string(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(*came));
}

inline std::vector<std::string> names_of(const std::vector<system::FileInfo>& entries) {
  std::vector<std::string> names;
  for (const auto& entry : entries) names.push_back(entry.name);
  return names;
}

// This moment by the world's clock, as days since the 30th of December 1899.
inline double days_now() {
  const std::chrono::duration<double, std::ratio<86'400>> since_1970 =
      std::chrono::system_clock::now().time_since_epoch();
  return 25'569 + since_1970.count();
}

// Whether it is today somewhere in the world: local times are up to 14 hours off.
inline bool is_about_now(double days) {
  return std::abs(days - days_now()) < 0.7;
}

template <class Place>
class FileSystemContract : public testing::Test {
 protected:
  system::FileSystem& files() { return place_.files(); }
  std::string path(std::string_view name) { return place_.folder() + "\\" + std::string(name); }
  Place& place() { return place_; }

  std::string whole(std::string_view name) {
    const auto file = files().open(path(name));
    return file ? read_from(*file, 0, 1 << 20) : "not opened";
  }

 private:
  Place place_;
};

TYPED_TEST_SUITE_P(FileSystemContract);

TYPED_TEST_P(FileSystemContract, a_file_is_found_with_its_size) {
  this->place().write(this->path("tema.vip"), "12345");
  const auto info = this->files().info(this->path("tema.vip"));
  ASSERT_TRUE(info);
  EXPECT_EQ(info->name, "tema.vip");
  EXPECT_EQ(info->size, 5u);
  EXPECT_FALSE(info->folder);
  EXPECT_FALSE(info->hidden);
  EXPECT_FALSE(info->system);
  EXPECT_FALSE(info->link);
}

TYPED_TEST_P(FileSystemContract, a_path_in_another_case_finds_the_name_as_the_disk_has_it) {
  this->place().make_folder(this->path("Mix"));
  this->place().write(this->path("Mix\\Tema.VIP"), "1");
  const auto info = this->files().info(this->path("mIX\\tEMA.vip"));
  ASSERT_TRUE(info);
  EXPECT_EQ(info->name, "Tema.VIP");
  EXPECT_TRUE(this->files().open(this->path("MIX\\TEMA.VIP")));
  EXPECT_TRUE(this->files().list(this->path("MIX")));
}

TYPED_TEST_P(FileSystemContract, a_folder_is_listed_as_one_and_has_no_size) {
  this->place().make_folder(this->path("Mix"));
  for (const char* name : {"Mix", "Mix\\"}) {
    const auto info = this->files().info(this->path(name));
    ASSERT_TRUE(info) << name;
    EXPECT_EQ(info->name, "Mix");
    EXPECT_TRUE(info->folder);
    EXPECT_EQ(info->size, 0u);
  }
}

TYPED_TEST_P(FileSystemContract, what_is_missing_gives_nothing) {
  EXPECT_FALSE(this->files().info(this->path("nada.vip")));
  EXPECT_FALSE(this->files().info(this->path("nada\\nada.vip")));
  EXPECT_FALSE(this->files().list(this->path("nada")));
  EXPECT_FALSE(this->files().open(this->path("nada.vip")));
}

TYPED_TEST_P(FileSystemContract, paths_that_are_not_plain_and_absolute_give_nothing) {
  using namespace std::string_literals;
  this->place().write(this->path("tema.vip"), "1");
  for (const std::string& path : {""s, "tema.vip"s, "\\tema.vip"s, "..\\tema.vip"s,
                                  this->path("tema.vi?"), this->path("tema.*"), this->path("*"),
                                  this->path("tema.vip\0"s), this->path("tema.vip\0.wav"s)}) {
    EXPECT_FALSE(this->files().info(path)) << path;
    EXPECT_FALSE(this->files().look_up(path)) << path;
    EXPECT_FALSE(this->files().open(path)) << path;
    EXPECT_FALSE(this->files().list(path)) << path;
  }
}

TYPED_TEST_P(FileSystemContract, a_folder_with_the_name_of_a_project_is_no_file) {
  this->place().make_folder(this->path("x.vip"));
  EXPECT_TRUE(this->files().info(this->path("x.vip")));
  EXPECT_FALSE(this->files().look_up(this->path("x.vip")));
  EXPECT_FALSE(this->files().open(this->path("x.vip")));
  EXPECT_FALSE(this->files().create(this->path("x.vip")));
}

TYPED_TEST_P(FileSystemContract, a_path_that_ends_in_a_backslash_is_no_file) {
  this->place().write(this->path("x.vip"), "1");
  EXPECT_FALSE(this->files().info(this->path("x.vip\\")));
  EXPECT_FALSE(this->files().open(this->path("x.vip\\")));
  EXPECT_FALSE(this->files().list(this->path("x.vip\\")));
  EXPECT_FALSE(this->files().list(this->path("x.vip")));
}

TYPED_TEST_P(FileSystemContract, a_blank_or_a_dot_at_the_end_makes_it_another_name) {
  this->place().write(this->path("x.vip"), "1");
  for (const char* name : {"x.vip ", "x.vip.", "x.vip. ", "x.vip  "}) {
    EXPECT_FALSE(this->files().info(this->path(name))) << name;
    EXPECT_FALSE(this->files().open(this->path(name))) << name;
  }
}

TYPED_TEST_P(FileSystemContract, names_of_the_code_page_are_bytes_of_it) {
  const std::string name = "Canci\xF3n a\xF1o \x80.wav";
  this->place().write(this->path(name), "la");
  const auto entries = this->files().list(this->place().folder());
  ASSERT_TRUE(entries);
  EXPECT_THAT(names_of(*entries), testing::ElementsAre(name));
  EXPECT_EQ(this->whole(name), "la");
  const auto info = this->files().info(this->path("CANCI\xD3N A\xD1O \x80.WAV"));
  ASSERT_TRUE(info);
  EXPECT_EQ(info->name, name);
}

TYPED_TEST_P(FileSystemContract, entries_that_cannot_be_named_are_reported_beside_the_others) {
  this->place().write_unnameable();
  this->place().write(this->path("a.wav"), "x");
  std::vector<std::string> named;
  std::vector<system::UnnamedEntry> unnamed;
  ASSERT_TRUE(this->files().each(
      this->place().folder(), system::Detail::names,
      [&](system::FileInfo& entry) {
        named.push_back(entry.name);
        return true;
      },
      [&](const system::UnnamedEntry& entry) { unnamed.push_back(entry); }));
  EXPECT_THAT(named, testing::ElementsAre("a.wav"));
  ASSERT_EQ(unnamed.size(), 1u);
  EXPECT_FALSE(unnamed[0].folder);
  EXPECT_NE(unnamed[0].shown.find('?'), std::string::npos) << unnamed[0].shown;
}

TYPED_TEST_P(FileSystemContract, a_file_has_one_identity_whatever_the_spelling_of_its_path) {
  this->place().make_folder(this->path("Tomas"));
  this->place().write(this->path("Tomas\\a.wav"), "x");
  this->place().write(this->path("Tomas\\b.wav"), "x");
  const auto identity = this->files().identity(this->path("Tomas\\a.wav"));
  ASSERT_TRUE(identity);
  for (const char* spelling : {"TOMAS\\A.WAV", "Tomas/a.wav", "Tomas\\\\a.wav", ".\\Tomas\\a.wav",
                               "Otro\\..\\Tomas\\a.wav"}) {
    EXPECT_EQ(this->files().identity(this->path(spelling)), identity) << spelling;
  }
  EXPECT_NE(this->files().identity(this->path("Tomas\\b.wav")), identity) << "an equal copy";
  EXPECT_NE(this->files().identity(this->path("Tomas")), identity);
  EXPECT_EQ(this->files().identity(this->path("Tomas")),
            this->files().identity(this->path("tomas\\")));
  EXPECT_EQ(this->files().identity(this->path("Tomas\\c.wav")), std::nullopt);
  EXPECT_EQ(this->files().identity(this->path("Tomas\\a.wav\\")), std::nullopt);
  EXPECT_EQ(this->files().identity(this->path("Tomas\\*.wav")), std::nullopt);
}

TYPED_TEST_P(FileSystemContract, names_that_the_code_page_lacks_are_left_out) {
  this->place().write(this->path("tema.wav"), "1");
  this->place().write_unnameable();
  const auto entries = this->files().list(this->place().folder());
  ASSERT_TRUE(entries);
  EXPECT_THAT(names_of(*entries), testing::ElementsAre("tema.wav"));
}

TYPED_TEST_P(FileSystemContract, a_folder_lists_its_entries_in_alphabetical_order_without_case) {
  for (const char* name : {"b.wav", "C.wav", "a.wav", "D.wav", "a b.wav", "10.wav", "9.wav"}) {
    this->place().write(this->path(name), "1");
  }
  this->place().make_folder(this->path("Baile"));
  const auto entries = this->files().list(this->place().folder());
  ASSERT_TRUE(entries);
  EXPECT_THAT(names_of(*entries), testing::ElementsAre("10.wav", "9.wav", "a b.wav", "a.wav",
                                                       "b.wav", "Baile", "C.wav", "D.wav"));
  EXPECT_TRUE((*entries)[5].folder);
  EXPECT_EQ((*entries)[2].size, 1u);
}

TYPED_TEST_P(FileSystemContract, a_folder_may_be_given_with_its_backslash) {
  this->place().write(this->path("a.wav"), "1");
  const auto entries = this->files().list(this->place().folder() + "\\");
  ASSERT_TRUE(entries);
  EXPECT_THAT(names_of(*entries), testing::ElementsAre("a.wav"));
}

TYPED_TEST_P(FileSystemContract, an_empty_folder_has_no_entries) {
  const auto entries = this->files().list(this->place().folder());
  ASSERT_TRUE(entries);
  EXPECT_TRUE(entries->empty());
}

TYPED_TEST_P(FileSystemContract, a_drive_is_a_folder) {
  const std::string drive = this->place().folder().substr(0, 3);
  const auto info = this->files().info(drive);
  ASSERT_TRUE(info);
  EXPECT_TRUE(info->folder);
  EXPECT_FALSE(this->files().look_up(drive));
  EXPECT_TRUE(this->files().list(drive));
}

TYPED_TEST_P(FileSystemContract, a_file_is_read_at_any_place) {
  this->place().write(this->path("a.bin"), "0123456789");
  const auto file = this->files().open(this->path("a.bin"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->size(), 10u);
  EXPECT_EQ(read_from(*file, 4, 3), "456");
  EXPECT_EQ(read_from(*file, 0, 2), "01");
  EXPECT_EQ(read_from(*file, 8, 5), "89");
  EXPECT_EQ(read_from(*file, 10, 5), "");
  EXPECT_EQ(read_from(*file, std::uint64_t{1} << 40, 5), "");
  EXPECT_EQ(read_from(*file, 3, 0), "");
}

TYPED_TEST_P(FileSystemContract, a_large_file_comes_whole) {
  std::string bytes(3 * 1024 * 1024 + 7, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * i >> 3);
  this->place().write(this->path("a.bin"), bytes);
  const auto file = this->files().open(this->path("a.bin"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->size(), bytes.size());
  EXPECT_TRUE(read_from(*file, 0, bytes.size() + 100) == bytes);
}

TYPED_TEST_P(FileSystemContract, a_file_cut_short_after_opening_gives_what_is_left) {
  this->place().write(this->path("a.bin"), "0123456789");
  const auto file = this->files().open(this->path("a.bin"));
  ASSERT_TRUE(file);
  this->place().truncate(this->path("a.bin"));
  EXPECT_EQ(file->size(), 10u);
  EXPECT_EQ(read_from(*file, 0, 10), "");
}

TYPED_TEST_P(FileSystemContract, a_created_file_holds_what_was_written) {
  const auto file = this->files().create(this->path("nuevo.txt"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write("uno\r\n"));
  EXPECT_TRUE(file->write(""));
  EXPECT_TRUE(file->write(std::string_view("\0\xFF", 2)));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("nuevo.txt"), std::string("uno\r\n\0\xFF", 7));
}

TYPED_TEST_P(FileSystemContract, creating_empties_an_existing_file) {
  this->place().write(this->path("viejo.txt"), "mucho texto");
  const auto file = this->files().create(this->path("viejo.txt"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write("a"));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("viejo.txt"), "a");
}

TYPED_TEST_P(FileSystemContract, a_file_that_is_dropped_unclosed_is_there_all_the_same) {
  {
    const auto file = this->files().create(this->path("a.txt"));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->write("abc"));
  }
  EXPECT_EQ(this->whole("a.txt"), "abc");
}

TYPED_TEST_P(FileSystemContract, nothing_is_created_in_a_folder_that_is_not_there) {
  EXPECT_FALSE(this->files().create(this->path("nada\\a.txt")));
  EXPECT_FALSE(this->files().create("a.txt"));
  EXPECT_FALSE(this->files().info(this->path("nada")));
}

TYPED_TEST_P(FileSystemContract, paths_longer_than_260_characters_work) {
  const std::string folder = this->path(std::string(120, 'a') + "\\" + std::string(120, 'b'));
  this->place().make_folder(folder);
  const std::string long_path = folder + "\\" + std::string(60, 'c') + ".wav";
  ASSERT_GT(long_path.size(), 300u);
  const auto made = this->files().create(long_path);
  ASSERT_TRUE(made);
  EXPECT_TRUE(made->write("largo"));
  EXPECT_TRUE(made->close());
  const auto info = this->files().look_up(long_path);
  ASSERT_TRUE(info);
  EXPECT_EQ(info->size, 5u);
  const auto file = this->files().open(long_path);
  ASSERT_TRUE(file);
  EXPECT_EQ(read_from(*file, 0, 10), "largo");
  const auto entries = this->files().list(folder);
  ASSERT_TRUE(entries);
  EXPECT_EQ(entries->size(), 1u);
}

TYPED_TEST_P(FileSystemContract, a_new_file_is_created_where_nothing_has_its_name) {
  const auto file = this->files().create_new(this->path("nuevo.txt"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write("uno"));
  EXPECT_TRUE(file->write("dos"));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("nuevo.txt"), "unodos");
  EXPECT_FALSE(this->files().create_new(this->path("nada\\a.txt")));
  EXPECT_FALSE(this->files().create_new(this->path("a.txt\\")));
  EXPECT_FALSE(this->files().create_new("a.txt"));
  EXPECT_FALSE(this->files().create_new(""));
}

TYPED_TEST_P(FileSystemContract, a_new_file_is_not_created_over_anything) {
  this->place().write(this->path("a.txt"), "old");
  this->place().write(this->path("vacio.txt"), "");
  this->place().make_folder(this->path("Mix"));
  for (const char* name : {"a.txt", "A.TXT", "vacio.txt", "Mix", "mix"}) {
    EXPECT_FALSE(this->files().create_new(this->path(name))) << name;
  }
  EXPECT_EQ(this->whole("a.txt"), "old");
  EXPECT_EQ(this->files().list(this->place().folder())->size(), 3u);
}

TYPED_TEST_P(FileSystemContract, a_file_takes_the_place_of_another_in_one_step) {
  this->place().write(this->path("a.ini"), "old");
  this->place().write(this->path("b.tmp"), "new");
  EXPECT_TRUE(this->files().replace(this->path("b.tmp"), this->path("a.ini")));
  EXPECT_EQ(this->whole("a.ini"), "new");
  EXPECT_EQ(this->files().list(this->place().folder())->size(), 1u);
  EXPECT_FALSE(this->files().replace(this->path("nada"), this->path("a.ini")));
  EXPECT_EQ(this->whole("a.ini"), "new");
}

TYPED_TEST_P(FileSystemContract, others_find_the_old_file_or_the_new_one_and_never_none) {
  this->place().write(this->path("a.ini"), "0");
  std::atomic<bool> over = false;
  int looks = 0;
  int missing = 0;
  std::thread other([&] {
    while (!over) {
      ++looks;
      if (!this->files().info(this->path("a.ini"))) ++missing;
    }
  });
  int replaced = 0;
  for (int i = 0; i < 200; ++i) {
    this->place().write(this->path("b.tmp"), "1");
    if (this->files().replace(this->path("b.tmp"), this->path("a.ini"))) ++replaced;
  }
  over = true;
  other.join();
  EXPECT_EQ(replaced, 200);
  EXPECT_GT(looks, 0);
  EXPECT_EQ(missing, 0) << "of " << looks;
}

TYPED_TEST_P(FileSystemContract, a_file_takes_a_place_where_none_is) {
  this->place().write(this->path("b.tmp"), "new");
  EXPECT_TRUE(this->files().replace(this->path("b.tmp"), this->path("A.ini")));
  EXPECT_EQ(this->whole("a.ini"), "new");
  const auto entries = this->files().list(this->place().folder());
  ASSERT_TRUE(entries);
  EXPECT_THAT(names_of(*entries), testing::ElementsAre("A.ini"));
}

TYPED_TEST_P(FileSystemContract, a_replaced_file_keeps_the_spelling_of_its_name) {
  this->place().write(this->path("Tema.INI"), "old");
  this->place().write(this->path("b.tmp"), "new");
  EXPECT_TRUE(this->files().replace(this->path("b.tmp"), this->path("TEMA.ini")));
  const auto entries = this->files().list(this->place().folder());
  ASSERT_TRUE(entries);
  EXPECT_THAT(names_of(*entries), testing::ElementsAre("Tema.INI"));
  EXPECT_EQ(this->whole("tema.ini"), "new");
}

TYPED_TEST_P(FileSystemContract, a_file_may_be_empty_before_or_after_it_is_replaced) {
  this->place().write(this->path("a.ini"), "");
  this->place().write(this->path("b.tmp"), "new");
  EXPECT_TRUE(this->files().replace(this->path("b.tmp"), this->path("a.ini")));
  EXPECT_EQ(this->whole("a.ini"), "new");
  this->place().write(this->path("b.tmp"), "");
  EXPECT_TRUE(this->files().replace(this->path("b.tmp"), this->path("a.ini")));
  EXPECT_EQ(this->whole("a.ini"), "");
  EXPECT_EQ(this->files().list(this->place().folder())->size(), 1u);
}

TYPED_TEST_P(FileSystemContract, names_of_the_greatest_length_are_replaced) {
  const std::string name = std::string(251, 'x') + ".log";
  this->place().write(this->path("b.tmp"), "old");
  EXPECT_TRUE(this->files().replace(this->path("b.tmp"), this->path(name)));
  this->place().write(this->path("b.tmp"), "new");
  EXPECT_TRUE(this->files().replace(this->path("b.tmp"), this->path(name)));
  EXPECT_EQ(this->whole(name), "new");
  EXPECT_EQ(this->files().list(this->place().folder())->size(), 1u);
}

TYPED_TEST_P(FileSystemContract, what_may_not_be_replaced_stays_and_so_does_the_other) {
  this->place().write(this->path("a.ini"), "old");
  this->place().make_read_only(this->path("a.ini"));
  this->place().make_folder(this->path("Mix"));
  this->place().write(this->path("b.tmp"), "new");
  for (const char* name : {"a.ini", "Mix", "mix", "Mix\\", "nada\\a.ini", "c.ini\\", "c*.ini"}) {
    EXPECT_FALSE(this->files().replace(this->path("b.tmp"), this->path(name))) << name;
  }
  EXPECT_FALSE(this->files().replace(this->path("b.tmp"), "a.ini"));
  EXPECT_FALSE(this->files().replace(this->path("b.tmp"), ""));
  EXPECT_FALSE(this->files().replace(this->path("Mix"), this->path("c.ini")));
  EXPECT_EQ(this->whole("a.ini"), "old");
  EXPECT_EQ(this->whole("b.tmp"), "new");
  using system::attribute::kReadOnly;
  EXPECT_TRUE(this->files().info(this->path("a.ini"))->attributes & kReadOnly);
  EXPECT_FALSE(this->files().info(this->path("b.tmp"))->attributes & kReadOnly);
  EXPECT_EQ(this->files().list(this->place().folder())->size(), 3u);
}

TYPED_TEST_P(FileSystemContract, a_file_is_removed_and_a_folder_is_not) {
  this->place().write(this->path("a.wav"), "1");
  this->place().make_folder(this->path("Mix"));
  EXPECT_TRUE(this->files().remove(this->path("a.wav")));
  EXPECT_FALSE(this->files().info(this->path("a.wav")));
  EXPECT_FALSE(this->files().remove(this->path("a.wav")));
  EXPECT_FALSE(this->files().remove(this->path("Mix")));
  EXPECT_TRUE(this->files().info(this->path("Mix")));
}

TYPED_TEST_P(FileSystemContract, each_entry_is_visited_once_and_is_the_one_that_is_listed) {
  for (const char* name : {"b.wav", "C.wav", "a.wav", "un nombre bastante largo para uno.wav"}) {
    this->place().write(this->path(name), std::string(name));
  }
  this->place().make_folder(this->path("Mix"));
  using system::Detail;
  for (const Detail detail : {Detail::names, Detail::sizes, Detail::times}) {
    std::vector<system::FileInfo> visited;
    EXPECT_TRUE(this->files().each(this->place().folder(), detail, [&](system::FileInfo& entry) {
      visited.push_back(entry);
      return true;
    }));
    std::sort(visited.begin(), visited.end(), system::in_listing_order);
    const auto listed = this->files().list(this->place().folder(), detail);
    ASSERT_TRUE(listed);
    ASSERT_EQ(names_of(visited), names_of(*listed));
    ASSERT_EQ(visited.size(), 5u);
    for (std::size_t i = 0; i < visited.size(); ++i) {
      EXPECT_EQ(visited[i].folder, listed->at(i).folder);
      EXPECT_EQ(visited[i].size, listed->at(i).size);
      EXPECT_EQ(visited[i].attributes, listed->at(i).attributes);
      EXPECT_EQ(visited[i].modified, listed->at(i).modified);
    }
  }
}

TYPED_TEST_P(FileSystemContract,
             a_time_that_a_listing_of_names_gives_is_the_files_and_has_its_size) {
  this->place().write(this->path("larga.wav"), std::string(300, 'a'));
  this->place().write(this->path("tomas.wav"), std::string("a"));
  this->place().make_folder(this->path("Mix"));
  const auto listed = this->files().list(this->place().folder(), system::Detail::names);
  ASSERT_TRUE(listed);
  ASSERT_EQ(listed->size(), 3u);
  for (const system::FileInfo& entry : *listed) {
    const auto info = this->files().info(this->path(entry.name));
    ASSERT_TRUE(info);
    EXPECT_EQ(entry.modified, entry.modified == 0 ? 0 : info->modified) << entry.name;
    EXPECT_EQ(entry.size, entry.modified == 0 ? 0 : info->size) << entry.name;
  }
}

TYPED_TEST_P(FileSystemContract, a_visitor_that_has_heard_enough_hears_of_no_more) {
  for (const char* name : {"a.wav", "b.wav", "c.wav"}) this->place().write(this->path(name), "1");
  int visits = 0;
  EXPECT_TRUE(this->files().each(this->place().folder(), system::Detail::names,
                                 [&](system::FileInfo&) { return ++visits < 2; }));
  EXPECT_EQ(visits, 2);
}

TYPED_TEST_P(FileSystemContract, what_is_no_folder_is_not_visited) {
  this->place().write(this->path("a.wav"), "1");
  int visits = 0;
  const auto count = [&](system::FileInfo&) { return ++visits > 0; };
  for (const std::string& folder : {this->path("nada"), this->path("a.wav"), this->path("*"),
                                    std::string("nada"), std::string()}) {
    EXPECT_FALSE(this->files().each(folder, system::Detail::names, count)) << folder;
  }
  EXPECT_EQ(visits, 0);
  this->place().make_folder(this->path("vacia"));
  EXPECT_TRUE(this->files().each(this->path("vacia"), system::Detail::names, count));
  EXPECT_EQ(visits, 0);
}

TYPED_TEST_P(FileSystemContract, a_name_may_be_moved_away) {
  std::vector<std::string> wanted;
  for (int i = 0; i < 20; ++i) {
    wanted.push_back("una pista de nombre largo " + std::to_string(100 + i) + ".wav");
    this->place().write(this->path(wanted.back()), "1");
  }
  std::vector<std::string> taken;
  EXPECT_TRUE(this->files().each(this->place().folder(), system::Detail::sizes,
                                 [&](system::FileInfo& entry) {
                                   taken.push_back(std::move(entry.name));
                                   return true;
                                 }));
  EXPECT_THAT(taken, testing::UnorderedElementsAreArray(wanted));
}

TYPED_TEST_P(FileSystemContract, folders_may_be_visited_from_inside_a_visit) {
  for (const char* name : {"A", "B"}) {
    this->place().make_folder(this->path(name));
    this->place().write(this->path(std::string(name) + "\\voz.wav"), "1");
    this->place().write(this->path(std::string(name) + "\\bajo.wav"), "1");
  }
  std::vector<std::string> found;
  this->files().each(this->place().folder(), system::Detail::names, [&](system::FileInfo& folder) {
    return this->files().each(this->path(folder.name), system::Detail::names,
                              [&](system::FileInfo& file) {
                                found.push_back(folder.name + "\\" + file.name);
                                return true;
                              });
  });
  EXPECT_THAT(found, testing::UnorderedElementsAre("A\\voz.wav", "A\\bajo.wav", "B\\voz.wav",
                                                   "B\\bajo.wav"));
}

TYPED_TEST_P(FileSystemContract, the_attribute_word_distinguishes_folders_from_files) {
  this->place().write(this->path("a.wav"), "1");
  this->place().make_folder(this->path("Mix"));
  using namespace system::attribute;
  constexpr std::uint32_t kTried = kReadOnly | kHidden | kSystem | kFolder | kArchive;
  using system::Detail;
  for (const Detail detail : {Detail::names, Detail::sizes, Detail::times}) {
    const auto listed = this->files().list(this->place().folder(), detail);
    ASSERT_TRUE(listed);
    ASSERT_EQ(listed->size(), 2u);
    EXPECT_EQ(listed->at(0).attributes & kTried, kArchive);
    EXPECT_EQ(listed->at(1).attributes & kTried, kFolder);
  }
  EXPECT_EQ(this->files().info(this->path("a.wav"))->attributes & kTried, kArchive);
  EXPECT_EQ(this->files().info(this->path("Mix"))->attributes & kTried, kFolder);
}

TYPED_TEST_P(FileSystemContract, times_are_local_days) {
  this->place().write(this->path("a.wav"), "1");
  const auto without = this->files().list(this->place().folder(), system::Detail::sizes);
  ASSERT_TRUE(without);
  EXPECT_EQ(without->at(0).created, 0);
  EXPECT_EQ(without->at(0).accessed, 0);
  const auto with = this->files().list(this->place().folder(), system::Detail::times);
  ASSERT_TRUE(with);
  const auto info = this->files().info(this->path("a.wav"));
  ASSERT_TRUE(info);
  for (const system::FileInfo& entry : {with->at(0), *info}) {
    EXPECT_TRUE(is_about_now(entry.created)) << entry.created;
    EXPECT_TRUE(is_about_now(entry.modified)) << entry.modified;
    EXPECT_TRUE(is_about_now(entry.accessed)) << entry.accessed;
  }
  EXPECT_EQ(info->modified, with->at(0).modified);
}

TYPED_TEST_P(FileSystemContract, thousands_of_entries_all_come) {
  constexpr int kFiles = 5000;
  for (int i = 0; i < kFiles; ++i) {
    this->place().write(this->path("pista " + std::to_string(i) + ".wav"), "");
  }
  std::vector<bool> seen(kFiles);
  int visits = 0;
  EXPECT_TRUE(this->files().each(
      this->place().folder(), system::Detail::names, [&](system::FileInfo& entry) {
        ++visits;
        seen.at(static_cast<std::size_t>(std::stoi(entry.name.substr(6)))) = true;
        return true;
      }));
  EXPECT_EQ(visits, kFiles);
  EXPECT_EQ(std::count(seen.begin(), seen.end(), true), kFiles);
}

TYPED_TEST_P(FileSystemContract, a_failure_says_why) {
  using system::Reason;
  this->place().write(this->path("a.wav"), "1");
  this->place().write(this->path("suelto.wav"), "1");
  this->place().make_read_only(this->path("suelto.wav"));
  this->place().make_folder(this->path("Mix"));
  auto& files = this->files();
  const std::string file = this->path("a.wav");
  EXPECT_EQ(files.open(file).status(), Reason::ok);
  EXPECT_EQ(files.open(this->path("nada.wav")).status(), Reason::not_found);
  EXPECT_EQ(files.open(this->path("nada\\a.wav")).status(), Reason::not_found);
  EXPECT_EQ(files.open(this->path("Mix")).status(), Reason::not_a_file);
  EXPECT_EQ(files.open(this->path("Mix\\")).status(), Reason::not_a_file);
  EXPECT_EQ(files.open(this->path("*.wav")).status(), Reason::bad_path);
  EXPECT_EQ(files.open("a.wav").status(), Reason::bad_path);
  EXPECT_EQ(files.open("").status(), Reason::bad_path);
  EXPECT_EQ(files.create(this->path("nada\\a.wav")).status(), Reason::not_found);
  EXPECT_EQ(files.create(this->path("Mix")).status(), Reason::not_a_file);
  EXPECT_EQ(files.create(this->path("suelto.wav")).status(), Reason::read_only);
  EXPECT_EQ(files.create(this->path(std::string(256, 'x'))).status(), Reason::too_long);
  EXPECT_EQ(files.create_new(file).status(), Reason::exists);
  EXPECT_EQ(files.create_new(this->path("mix")).status(), Reason::exists);
  EXPECT_EQ(files.create_new(this->path("nada\\a.wav")).status(), Reason::not_found);
  EXPECT_EQ(files.make_folder(this->path("mix")), Reason::exists);
  EXPECT_EQ(files.make_folder(this->path("nada\\nada")), Reason::not_found);
  EXPECT_EQ(files.make_folder("nada"), Reason::bad_path);
  EXPECT_EQ(files.remove(this->path("nada.wav")), Reason::not_found);
  EXPECT_EQ(files.remove(this->path("Mix")), Reason::not_a_file);
  EXPECT_EQ(files.remove(this->path("*.wav")), Reason::bad_path);
  EXPECT_EQ(files.replace(this->path("nada"), file), Reason::not_found);
  EXPECT_EQ(files.replace(file, this->path("nada\\a.wav")), Reason::not_found);
  EXPECT_EQ(files.replace(file, this->path("Mix")), Reason::not_a_file);
  EXPECT_EQ(files.replace(file, this->path("suelto.wav")), Reason::read_only);
  EXPECT_EQ(this->whole("a.wav"), "1");
  EXPECT_EQ(this->whole("suelto.wav"), "1");
}

TYPED_TEST_P(FileSystemContract, a_read_only_file_is_removed_only_when_it_is_one_no_more) {
  using namespace system::attribute;
  this->place().write(this->path("a.wav"), "1");
  this->place().make_read_only(this->path("a.wav"));
  EXPECT_EQ(this->files().remove(this->path("a.wav")), system::Reason::read_only);
  EXPECT_EQ(this->whole("a.wav"), "1");
  EXPECT_TRUE(this->files().set_attributes(this->path("a.wav"), kArchive));
  EXPECT_TRUE(this->files().remove(this->path("a.wav")));
  EXPECT_FALSE(this->files().info(this->path("a.wav")));
}

TYPED_TEST_P(FileSystemContract, attributes_are_set_and_taken_away) {
  using namespace system::attribute;
  constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;
  this->place().write(this->path("a.wav"), "1");
  const auto attributes = [&] { return this->files().info(this->path("a.wav"))->attributes; };
  for (const std::uint32_t wanted :
       {kReadOnly | kArchive, kArchive, kHidden | kArchive, kSystem | kArchive,
        kReadOnly | kHidden | kSystem | kArchive, kArchive}) {
    const std::uint32_t before = attributes();
    const auto set = this->files().set_attributes(this->path("A.WAV"), wanted);
    if (set == system::Reason::not_supported) {
      EXPECT_TRUE(wanted & (kHidden | kSystem)) << "every disk has read-only files";
      EXPECT_EQ(attributes(), before);
    } else {
      EXPECT_EQ(set, system::Reason::ok);
      EXPECT_EQ(attributes() & kSettable, wanted);
    }
  }
  EXPECT_TRUE(this->files().set_attributes(this->path("a.wav"), kFolder | kArchive));
  EXPECT_FALSE(attributes() & kFolder) << "a file stays one";
  EXPECT_EQ(this->whole("a.wav"), "1");
  this->place().make_folder(this->path("Mix"));
  EXPECT_TRUE(this->files().set_attributes(this->path("Mix"), 0));
  EXPECT_TRUE(this->files().info(this->path("Mix"))->folder);
  EXPECT_EQ(this->files().set_attributes(this->path("nada"), 0), system::Reason::not_found);
  EXPECT_EQ(this->files().set_attributes(this->path("*"), 0), system::Reason::bad_path);
}

TYPED_TEST_P(FileSystemContract, a_file_is_flushed_and_written_on) {
  const auto file = this->files().create_new(this->path("a.txt"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write("uno"));
  EXPECT_TRUE(file->flush());
  EXPECT_EQ(this->whole("a.txt"), "uno");
  EXPECT_TRUE(file->write("dos"));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(this->whole("a.txt"), "unodos");
  EXPECT_TRUE(this->files().flush_folder(this->place().folder()));
  EXPECT_TRUE(this->files().flush_folder(this->place().folder() + "\\"));
  EXPECT_EQ(this->files().flush_folder(this->path("nada")), system::Reason::not_found);
  EXPECT_FALSE(this->files().flush_folder(this->path("a.txt")));
}

TYPED_TEST_P(FileSystemContract, a_file_is_moved_and_never_over_another) {
  using system::Reason;
  this->place().make_folder(this->path("Mix"));
  this->place().write(this->path("a.wav"), "a");
  this->place().write(this->path("b.wav"), "b");
  const auto identity = this->files().identity(this->path("a.wav"));
  for (const char* taken : {"b.wav", "B.WAV", "Mix", "mix"}) {
    EXPECT_EQ(this->files().move(this->path("a.wav"), this->path(taken)), Reason::exists) << taken;
  }
  EXPECT_EQ(this->files().move(this->path("nada"), this->path("c.wav")), Reason::not_found);
  EXPECT_EQ(this->files().move(this->path("a.wav"), this->path("nada\\a.wav")), Reason::not_found);
  EXPECT_EQ(this->files().move(this->path("Mix"), this->path("Otro")), Reason::not_a_file);
  EXPECT_EQ(this->files().move(this->path("a.wav"), this->path("c*.wav")), Reason::bad_path);
  EXPECT_EQ(this->whole("a.wav"), "a");
  EXPECT_EQ(this->whole("b.wav"), "b");
  EXPECT_TRUE(this->files().move(this->path("a.wav"), this->path("Mix\\c.wav")));
  EXPECT_FALSE(this->files().info(this->path("a.wav")));
  EXPECT_EQ(this->whole("Mix\\c.wav"), "a");
  EXPECT_EQ(this->files().identity(this->path("Mix\\c.wav")), identity) << "moved, not copied";
}

TYPED_TEST_P(FileSystemContract, a_copy_has_the_bytes_the_time_and_the_attributes) {
  using namespace system::attribute;
  std::string bytes(3 * 1024 * 1024 + 7, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * i >> 5);
  this->place().write(this->path("a.wav"), bytes);
  this->place().make_read_only(this->path("a.wav"));
  const auto original = this->files().info(this->path("a.wav"));
  ASSERT_TRUE(original);
  // A copy made in the same tick of the clock would have the same time by itself.
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  std::vector<std::uint64_t> heard;
  EXPECT_TRUE(
      this->files().copy_new(this->path("a.wav"), this->path("b.wav"), [&](std::uint64_t copied) {
        heard.push_back(copied);
        return true;
      }));
  const auto copy = this->files().info(this->path("b.wav"));
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->modified, original->modified);
  EXPECT_EQ(copy->attributes, original->attributes);
  EXPECT_TRUE(copy->attributes & kReadOnly);
  const auto file = this->files().open(this->path("b.wav"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(read_from(*file, 0, bytes.size() + 1) == bytes);
  ASSERT_FALSE(heard.empty());
  EXPECT_TRUE(std::is_sorted(heard.begin(), heard.end()));
  EXPECT_EQ(heard.back(), bytes.size());
}

TYPED_TEST_P(FileSystemContract, a_copy_is_never_made_over_anything) {
  using system::Reason;
  this->place().write(this->path("a.wav"), "a");
  this->place().write(this->path("b.wav"), "b");
  this->place().make_folder(this->path("Mix"));
  for (const char* taken : {"b.wav", "B.WAV", "Mix", "a.wav", "A.wav"}) {
    EXPECT_EQ(this->files().copy_new(this->path("a.wav"), this->path(taken)), Reason::exists)
        << taken;
  }
  EXPECT_EQ(this->files().copy_new(this->path("nada"), this->path("c.wav")), Reason::not_found);
  EXPECT_EQ(this->files().copy_new(this->path("Mix"), this->path("c.wav")), Reason::not_a_file);
  EXPECT_EQ(this->files().copy_new(this->path("a.wav"), this->path("nada\\c.wav")),
            Reason::not_found);
  EXPECT_EQ(this->files().copy_new(this->path("a.wav"), "c.wav"), Reason::bad_path);
  EXPECT_EQ(this->whole("a.wav"), "a");
  EXPECT_EQ(this->whole("b.wav"), "b");
  EXPECT_EQ(this->files().list(this->place().folder())->size(), 3u);
}

TYPED_TEST_P(FileSystemContract, an_empty_file_is_copied_and_a_stopped_copy_leaves_nothing) {
  this->place().write(this->path("vacio.wav"), "");
  EXPECT_TRUE(this->files().copy_new(this->path("vacio.wav"), this->path("b.wav")));
  EXPECT_EQ(this->whole("b.wav"), "");
  this->place().write(this->path("a.wav"), std::string(5'000'000, 'a'));
  int heard = 0;
  EXPECT_EQ(this->files().copy_new(this->path("a.wav"), this->path("c.wav"),
                                   [&](std::uint64_t) { return ++heard < 2; }),
            system::Reason::cancelled);
  EXPECT_EQ(heard, 2);
  EXPECT_FALSE(this->files().info(this->path("c.wav")));
  EXPECT_THROW(this->files()
                   .copy_new(this->path("a.wav"), this->path("c.wav"),
                             [](std::uint64_t) -> bool { throw 1; })
                   .ignore(),
               int);
  EXPECT_FALSE(this->files().info(this->path("c.wav")));
}

TYPED_TEST_P(FileSystemContract, the_bytes_of_a_file_that_another_wrote_are_flushed) {
  using system::Reason;
  this->place().write(this->path("a.wav"), "1");
  EXPECT_TRUE(this->files().flush_file(this->path("a.wav")));
  ASSERT_TRUE(this->files().set_attributes(this->path("a.wav"), system::attribute::kReadOnly));
  EXPECT_TRUE(this->files().flush_file(this->path("a.wav")));
  EXPECT_NE(this->files().info(this->path("a.wav"))->attributes & system::attribute::kReadOnly, 0u)
      << "it is read-only as before";
  ASSERT_TRUE(this->files().set_attributes(this->path("a.wav"), system::attribute::kArchive));
  EXPECT_EQ(this->files().flush_file(this->path("nada.wav")), Reason::not_found);
  this->place().make_folder(this->path("Mix"));
  EXPECT_EQ(this->files().flush_file(this->path("Mix")), Reason::not_a_file);
}

TYPED_TEST_P(FileSystemContract, a_lock_has_one_holder_and_leaves_nothing) {
  using system::Reason;
  {
    const auto held = this->files().lock(this->path("uno.lock"));
    ASSERT_TRUE(held);
    EXPECT_EQ(this->files().lock(this->path("uno.lock")).status(), Reason::in_use);
    EXPECT_EQ(this->files().lock(this->path("UNO.LOCK")).status(), Reason::in_use);
    EXPECT_TRUE(this->files().lock(this->path("dos.lock"))) << "another name is another lock";
  }
  EXPECT_FALSE(this->files().info(this->path("uno.lock")));
  EXPECT_TRUE(this->files().lock(this->path("uno.lock")));
  EXPECT_EQ(this->files().lock(this->path("nada\\uno.lock")).status(), Reason::not_found);
}

// A killed program leaves the name and not the lock.
TYPED_TEST_P(FileSystemContract, a_name_that_nobody_holds_is_locked) {
  this->place().write(this->path("uno.lock"), "");
  EXPECT_TRUE(this->files().lock(this->path("uno.lock")));
}

REGISTER_TYPED_TEST_SUITE_P(
    FileSystemContract, the_bytes_of_a_file_that_another_wrote_are_flushed,
    a_lock_has_one_holder_and_leaves_nothing, a_name_that_nobody_holds_is_locked,
    a_failure_says_why, a_read_only_file_is_removed_only_when_it_is_one_no_more,
    attributes_are_set_and_taken_away, a_file_is_flushed_and_written_on,
    a_file_is_moved_and_never_over_another, a_copy_has_the_bytes_the_time_and_the_attributes,
    a_copy_is_never_made_over_anything, an_empty_file_is_copied_and_a_stopped_copy_leaves_nothing,
    a_file_takes_the_place_of_another_in_one_step,
    others_find_the_old_file_or_the_new_one_and_never_none,
    a_new_file_is_created_where_nothing_has_its_name, a_new_file_is_not_created_over_anything,
    a_file_takes_a_place_where_none_is, a_replaced_file_keeps_the_spelling_of_its_name,
    a_file_may_be_empty_before_or_after_it_is_replaced, names_of_the_greatest_length_are_replaced,
    what_may_not_be_replaced_stays_and_so_does_the_other, a_file_is_removed_and_a_folder_is_not,
    a_file_is_found_with_its_size, a_path_in_another_case_finds_the_name_as_the_disk_has_it,
    a_folder_is_listed_as_one_and_has_no_size, what_is_missing_gives_nothing,
    paths_that_are_not_plain_and_absolute_give_nothing,
    a_folder_with_the_name_of_a_project_is_no_file, a_path_that_ends_in_a_backslash_is_no_file,
    a_blank_or_a_dot_at_the_end_makes_it_another_name, names_of_the_code_page_are_bytes_of_it,
    entries_that_cannot_be_named_are_reported_beside_the_others,
    a_file_has_one_identity_whatever_the_spelling_of_its_path,
    names_that_the_code_page_lacks_are_left_out,
    a_folder_lists_its_entries_in_alphabetical_order_without_case,
    a_folder_may_be_given_with_its_backslash, an_empty_folder_has_no_entries, a_drive_is_a_folder,
    a_file_is_read_at_any_place, a_large_file_comes_whole,
    a_file_cut_short_after_opening_gives_what_is_left, a_created_file_holds_what_was_written,
    creating_empties_an_existing_file, a_file_that_is_dropped_unclosed_is_there_all_the_same,
    nothing_is_created_in_a_folder_that_is_not_there, paths_longer_than_260_characters_work,
    each_entry_is_visited_once_and_is_the_one_that_is_listed,
    a_time_that_a_listing_of_names_gives_is_the_files_and_has_its_size,
    a_visitor_that_has_heard_enough_hears_of_no_more, what_is_no_folder_is_not_visited,
    a_name_may_be_moved_away, folders_may_be_visited_from_inside_a_visit,
    the_attribute_word_distinguishes_folders_from_files, times_are_local_days,
    thousands_of_entries_all_come);

}  // namespace ordelan::test
