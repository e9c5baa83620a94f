// Which files are kept because a project mentions them.
#include "project/project_mentions.h"

#include <gmock/gmock.h>

#include <chrono>
#include <map>
#include <memory>
#include <set>

#include "project/memory_folders.h"
#include "project/mention_agreement.h"
#include "support/faulty_files.h"
#include "test_disk.h"

namespace ordelan::test {
namespace {

using project::Mentioned;
using project::ProjectMentions;
using project::RowMention;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;

using Rows = std::vector<std::string>;

auto is(Mentioned mentioned, const std::string& project = "") {
  return AllOf(Field(&RowMention::mentioned, mentioned), Field(&RowMention::project, project));
}
auto free() {
  return is(Mentioned::no);
}

struct ProjectMentionsTest : ::testing::Test {
  ProjectMentionsTest() {
    for (const char* folder : {"D:\\Mix", "D:\\Mix\\Tomas", "D:\\Otra"}) disk.add_folder(folder);
    for (const char* file : {"D:\\Mix\\a.wav", "D:\\Mix\\Tomas\\b.wav", "D:\\Otra\\a.wav"}) {
      disk.add_file(file, "");
    }
  }

  std::vector<RowMention> look(const Rows& rows, const Rows& projects = {}) {
    auto found = mentions.look(rows, {"D:\\Mix\\"}, projects, go_on);
    EXPECT_TRUE(found.has_value());
    return found.value_or(std::vector<RowMention>());
  }
  RowMention look_at_a() { return look({"D:\\Mix\\a.wav"}).at(0); }
  void project(const std::string& bytes) { disk.add_file("D:\\Mix\\tema.vip", bytes); }
  // What becomes of a.wav with these bytes in a project.
  RowMention look_with(const std::string& bytes) {
    MemoryFolders one = disk;
    one.add_file("D:\\Mix\\tema.vip", bytes);
    return ProjectMentions(one).look({"D:\\Mix\\a.wav"}, {"D:\\Mix\\"}, {}, go_on)->at(0);
  }
  void expect_all_kept(const std::string& unread, const Rows& projects = {},
                       Mentioned why = Mentioned::unread) {
    EXPECT_THAT(look({"D:\\Mix\\a.wav", "D:\\Mix\\Tomas\\b.wav"}, projects), Each(is(why, unread)));
  }
  int reads() { return files.faults.count(FaultyFiles::Call::read); }

  MemoryFolders disk{true};
  FaultyFiles files{disk};
  ProjectMentions mentions{files};
  std::function<bool()> go_on = [] { return true; };
};

TEST_F(ProjectMentionsTest, what_no_project_names_is_free) {
  project("D:\\Mix\\vocala.wav D:\\Mix\\Tomas\\x.wav");
  disk.add_file("D:\\Mix\\notas.txt", "D:\\Mix\\a.wav");
  EXPECT_THAT(look({"D:\\Mix\\a.wav", "D:\\Mix\\Tomas\\b.wav"}), Each(free()));
}

TEST_F(ProjectMentionsTest, a_row_to_which_a_path_leads_is_kept_whatever_the_spelling) {
  for (const char* path : {"D:\\Mix\\a.wav", "d:\\mix\\A.WAV"}) {
    for (const auto& bytes : {std::string(path), utf16_of(path)}) {
      MemoryFolders own = disk;
      own.add_file("D:\\Mix\\tema.vip", bytes);
      const auto found =
          ProjectMentions(own).look({"D:\\Mix\\a.wav", "D:\\Otra\\a.wav"}, {"D:\\Mix"}, {}, go_on);
      ASSERT_TRUE(found);
      EXPECT_THAT(*found, ElementsAre(is(Mentioned::by_path, "D:\\Mix\\tema.vip"), free()));
    }
  }
}

TEST_F(ProjectMentionsTest, a_mention_without_a_path_keeps_every_row_of_that_name) {
  project("Tomas\\A.wav");
  EXPECT_THAT(look({"D:\\Mix\\a.wav", "D:\\Otra\\a.wav", "D:\\Mix\\Tomas\\b.wav"}),
              ElementsAre(is(Mentioned::without_path, "D:\\Mix\\tema.vip"),
                          is(Mentioned::without_path, "D:\\Mix\\tema.vip"), free()));
}

TEST_F(ProjectMentionsTest, a_path_that_leads_to_no_file_keeps_every_row_of_that_name) {
  project("E:\\Vieja\\a.wav");
  EXPECT_THAT(look_at_a(), is(Mentioned::path_missing, "D:\\Mix\\tema.vip"));
}

TEST_F(ProjectMentionsTest, a_path_that_leads_to_another_existing_file_keeps_nothing) {
  project("D:\\Otra\\a.wav");
  EXPECT_THAT(look_at_a(), free());
}

TEST_F(ProjectMentionsTest, a_path_that_leads_to_a_folder_leads_to_no_file) {
  disk.add_folder("D:\\Otra\\Sub");
  disk.add_folder("D:\\Otra\\Sub\\a.wav");
  project("D:\\Otra\\Sub\\a.wav");
  EXPECT_THAT(look_at_a(), is(Mentioned::path_missing, "D:\\Mix\\tema.vip"));
}

TEST_F(ProjectMentionsTest, of_two_readings_of_a_path_one_that_exists_is_enough) {
  disk.add_folder("D:\\M\xFAs");
  disk.add_file("D:\\M\xFAs\\a.wav", "");
  project(text::to_utf8("D:\\M\xFAs\\a.wav"));
  EXPECT_THAT(look({"D:\\M\xFAs\\a.wav", "D:\\Mix\\a.wav"}),
              ElementsAre(is(Mentioned::by_path, "D:\\Mix\\tema.vip"), free()));
}

TEST_F(ProjectMentionsTest, the_strongest_reason_is_given_with_the_first_project_that_has_it) {
  disk.add_file("D:\\Mix\\1.vip", "a.wav");
  disk.add_file("D:\\Mix\\2.vip", "E:\\a.wav");
  disk.add_file("D:\\Mix\\3.vip", "D:\\Mix\\a.wav");
  disk.add_file("D:\\Mix\\4.vip", "D:\\Mix\\a.wav");
  EXPECT_THAT(look({"D:\\Mix\\a.wav", "D:\\Otra\\a.wav"}),
              ElementsAre(is(Mentioned::by_path, "D:\\Mix\\3.vip"),
                          is(Mentioned::path_missing, "D:\\Mix\\2.vip")));
}

TEST_F(ProjectMentionsTest, every_file_with_vip_in_its_name_is_searched_in_and_below_the_folders) {
  int number = 0;
  for (const std::string name :
       {"tema.vip", "TEMA.VIP.bak", "tema_BAK.vip", "FreezeData\\x.vip", "Tomas\\tema.vip_old"}) {
    MemoryFolders own = disk;
    own.add_folder("D:\\Mix\\FreezeData");
    own.add_file("D:\\Mix\\" + name, "D:\\Mix\\a.wav", ++number % 2 == 0);
    ProjectMentions seen(own);
    const auto found = seen.look({"D:\\Mix\\a.wav"}, {"D:\\Mix\\"}, {}, go_on);
    ASSERT_TRUE(found);
    EXPECT_THAT(*found, ElementsAre(is(Mentioned::by_path, "D:\\Mix\\" + name)));
  }
}

TEST_F(ProjectMentionsTest, listed_projects_elsewhere_are_searched_and_others_are_not) {
  disk.add_file("D:\\Otra\\lista.vip", "D:\\Mix\\a.wav");
  disk.add_file("D:\\Otra\\otra.vip", "D:\\Mix\\Tomas\\b.wav");
  EXPECT_THAT(look({"D:\\Mix\\a.wav", "D:\\Mix\\Tomas\\b.wav"}, {"D:\\Otra\\lista.vip"}),
              ElementsAre(is(Mentioned::by_path, "D:\\Otra\\lista.vip"), free()));
}

TEST_F(ProjectMentionsTest, a_name_across_the_edge_of_what_is_read_at_once_is_found) {
  for (const std::size_t edge : {std::size_t{1} << 14, std::size_t{1} << 17}) {
    for (std::size_t before = edge - 14; before <= edge; ++before) {
      MemoryFolders own = disk;
      own.add_file("D:\\Mix\\tema.vip",
                   std::string(before, '\0') + "D:\\Mix\\a.wav" + std::string(200'000, '\0'));
      ProjectMentions seen(own);
      EXPECT_THAT(seen.look({"D:\\Mix\\a.wav"}, {"D:\\Mix\\"}, {}, go_on)->at(0),
                  is(Mentioned::by_path, "D:\\Mix\\tema.vip"))
          << before;
    }
  }
}

TEST_F(ProjectMentionsTest, all_rows_stay_where_a_project_is_held_by_another_program) {
  disk.add_file("D:\\Mix\\Tomas\\tema.vip", "nada", false, true);
  expect_all_kept("D:\\Mix\\Tomas\\tema.vip");
}

TEST_F(ProjectMentionsTest, all_rows_stay_where_a_listed_project_is_missing) {
  expect_all_kept("D:\\perdido.vip", {"D:\\perdido.vip"});
}

TEST_F(ProjectMentionsTest, all_rows_stay_where_a_project_fails_in_its_middle_or_shrinks) {
  project(std::string(400'000, '\0'));
  using Came = std::optional<std::size_t>;
  for (const Came came : {Came(), Came(0)}) {
    for (const std::uint64_t from : {std::uint64_t{0}, std::uint64_t{1} << 17}) {
      files.on_read = [=](std::uint64_t offset) { return offset >= from ? came : Came(1 << 20); };
      expect_all_kept("D:\\Mix\\tema.vip");
    }
  }
  files.on_read = [](std::uint64_t) { return Came(1'000); };
  EXPECT_THAT(look_at_a(), free()) << "a read that gives less than was asked for is no failure";
}

TEST_F(ProjectMentionsTest, all_rows_stay_where_a_folder_cannot_be_listed) {
  disk.forbid("D:\\Mix\\Tomas\\");
  expect_all_kept("D:\\Mix\\Tomas\\");
  disk.allow("D:\\Mix\\Tomas\\");
  EXPECT_THAT(look_at_a(), free());
  EXPECT_THAT(mentions.look({"D:\\Mix\\a.wav"}, {"D:\\nada"}, {}, go_on)->at(0),
              is(Mentioned::unread, "D:\\nada\\"));
}

TEST_F(ProjectMentionsTest, a_path_to_the_file_keeps_it_whatever_letters_follow) {
  for (const std::string after : {"D:\\Mix\\b.wav", "_1", "LIST", "2", "-x"}) {
    EXPECT_THAT(look_with("D:\\Mix\\a.wav" + after), is(Mentioned::by_path, "D:\\Mix\\tema.vip"))
        << after;
  }
  EXPECT_THAT(look_with("D:\\Otra\\a.wav_1"), free()) << "it leads to another file";
  EXPECT_THAT(look_with("D:\\Nada\\a.wave"), free()) << "it is no path of a lost a.wav";
  EXPECT_THAT(look_with("D:\\Mix\\a.wav.bak"), free());
}

TEST_F(ProjectMentionsTest, a_name_in_quotes_or_after_a_mark_of_the_encoding_is_one) {
  const std::string wide("a\0.\0w\0a\0v\0", 10);
  for (const std::string& bytes : {std::string("nota \x93") + "a.wav", std::string("nota `a.wav"),
                                   std::string("nota #a.wav"), std::string("nota \x91") + "a.wav",
                                   "\xFF\xFE" + wide, std::string("\xEF\xBB\xBF") + "a.wav"}) {
    EXPECT_THAT(look_with(bytes), is(Mentioned::without_path, "D:\\Mix\\tema.vip")) << bytes;
  }
}

TEST_F(ProjectMentionsTest, folders_of_the_system_in_the_root_of_a_drive_keep_nothing) {
  for (const char* folder : {"D:\\System Volume Information", "D:\\$RECYCLE.BIN",
                             "D:\\$RECYCLE.BIN\\S-1-5-18", "D:\\lost+found"}) {
    disk.add_folder(folder);
    disk.forbid(std::string(folder) + "\\");
  }
  disk.allow("D:\\$RECYCLE.BIN\\");
  const auto free_row = [&] {
    return mentions.look({"D:\\Mix\\a.wav"}, {"D:\\"}, {}, go_on)->at(0);
  };
  EXPECT_THAT(free_row(), free());
  // The same names elsewhere are folders like any other.
  disk.add_folder("D:\\Mix\\lost+found");
  disk.forbid("D:\\Mix\\lost+found\\");
  EXPECT_THAT(free_row(), is(Mentioned::unread, "D:\\Mix\\lost+found\\"));
}

TEST_F(ProjectMentionsTest, all_rows_stay_where_the_code_page_cannot_name_a_project_or_folder) {
  disk.add_unnamed("D:\\Mix\\", {"nota ?.txt", false});
  EXPECT_THAT(look_at_a(), free());
  MemoryFolders other = disk;
  disk.add_unnamed("D:\\Mix\\Tomas\\", {"tema ?.VIP.bak", false});
  expect_all_kept("D:\\Mix\\Tomas\\tema ?.VIP.bak", {}, Mentioned::unnamed);
  other.add_unnamed("D:\\Mix\\", {"dentro ?", true});
  EXPECT_THAT(ProjectMentions(other).look({"D:\\Mix\\a.wav"}, {"D:\\Mix\\"}, {}, go_on)->at(0),
              is(Mentioned::unnamed, "D:\\Mix\\dentro ?"));
}

TEST_F(ProjectMentionsTest, all_rows_stay_where_a_link_leads_to_a_folder_that_is_not_searched) {
  disk.add_folder("D:\\Mix\\Tomas\\enlace", true);
  expect_all_kept("D:\\Mix\\Tomas\\enlace", {}, Mentioned::linked);
}

TEST_F(ProjectMentionsTest, a_row_without_an_extension_cannot_be_searched_for_and_stays) {
  EXPECT_THAT(look({"D:\\Mix\\sin", "D:\\Mix\\a.wav"}),
              ElementsAre(is(Mentioned::unidentified), free()));
}

TEST_F(ProjectMentionsTest, a_row_that_the_disk_cannot_tell_from_the_mentioned_file_stays) {
  project("D:\\Otra\\a.wav");
  files.faults.fail({.call = FaultyFiles::Call::identity, .path = "D:\\Mix\\a.wav"},
                    system::Reason::other);
  EXPECT_THAT(look({"D:\\Mix\\a.wav", "D:\\Mix\\Tomas\\b.wav"}),
              ElementsAre(is(Mentioned::unidentified, "D:\\Mix\\tema.vip"), free()));
}

TEST_F(ProjectMentionsTest, the_disk_is_asked_once_for_each_path_and_for_each_missing_folder) {
  for (int i = 0; i < 10; ++i) {
    disk.add_file("D:\\Mix\\" + std::to_string(i) + ".vip",
                  "|D:\\Otra\\a.wav|E:\\a.wav|E:\\A.wav|");
  }
  look_at_a();
  std::map<std::string, int> asked;
  for (const auto& made : files.faults.made()) {
    if (made.call == FaultyFiles::Call::identity && !made.path.ends_with(".vip")) {
      ++asked[made.path];
    }
  }
  using ::testing::Pair;
  EXPECT_THAT(asked, ElementsAre(Pair("D:\\Mix\\a.wav", 1), Pair("D:\\Otra\\", 1),
                                 Pair("D:\\Otra\\a.wav", 1), Pair("E:\\", 1)));
}

TEST_F(ProjectMentionsTest, a_later_look_reads_only_what_is_new_or_has_changed) {
  project("nada");
  disk.add_file("D:\\Mix\\otro.vip", "nada");
  EXPECT_THAT(look({"D:\\Mix\\a.wav", "D:\\Mix\\Tomas\\b.wav"}), Each(free()));
  EXPECT_EQ(reads(), 2);
  EXPECT_THAT(look_at_a(), free());
  EXPECT_EQ(reads(), 2);
  disk.add_file("D:\\Mix\\nuevo.vip", "D:\\Mix\\a.wav");
  EXPECT_THAT(look_at_a(), is(Mentioned::by_path, "D:\\Mix\\nuevo.vip"));
  EXPECT_EQ(reads(), 3);
  EXPECT_THAT(look({"D:\\Mix\\nuevo.wav"}), Each(free())) << "another name";
  EXPECT_EQ(reads(), 6);
}

TEST_F(ProjectMentionsTest, a_later_look_asks_the_disk_again_about_all_paths) {
  disk.add_file("D:\\Mix\\tema.vip", "E:\\a.wav D:\\Otra\\Sub\\b.wav");
  const Rows rows = {"D:\\Mix\\a.wav", "D:\\Mix\\Tomas\\b.wav"};
  EXPECT_THAT(look(rows), Each(is(Mentioned::path_missing, "D:\\Mix\\tema.vip")));
  disk.add_folder("D:\\Otra\\Sub");
  disk.add_file("D:\\Otra\\Sub\\b.wav", "");
  EXPECT_THAT(look(rows), ElementsAre(is(Mentioned::path_missing, "D:\\Mix\\tema.vip"), free()));
  EXPECT_EQ(reads(), 1);
}

TEST_F(ProjectMentionsTest, nothing_is_known_where_it_is_ended_at_any_step) {
  project(std::string(100'000, '\0') + "a.wav");
  int calls = 0;
  const Rows rows = {"D:\\Mix\\a.wav"};
  ASSERT_TRUE(mentions.look(rows, {"D:\\Mix\\"}, {}, [&] { return ++calls > 0; }));
  EXPECT_GE(calls, 9) << "also within a project";
  for (int last = 0; last < calls; ++last) {
    ProjectMentions own(files);
    int left = last;
    EXPECT_FALSE(own.look(rows, {"D:\\Mix\\"}, {}, [&] { return left-- > 0; })) << last;
    EXPECT_THAT(own.look(rows, {"D:\\Mix\\"}, {}, go_on)->at(0),
                is(Mentioned::without_path, "D:\\Mix\\tema.vip"))
        << "after " << last;
  }
}

TEST_F(ProjectMentionsTest, a_handler_may_destroy_it_or_begin_another_look_at_any_step) {
  project(std::string(100'000, '\0') + "|a.wav|E:\\b.wav");
  int calls = 0;
  ASSERT_TRUE(ProjectMentions(files).look({"D:\\Mix\\a.wav"}, {"D:\\Mix\\"}, {},
                                          [&] { return ++calls > 0; }));
  EXPECT_GE(calls, 9);
  for (int at = 0; at < calls; ++at) {
    auto own = std::make_unique<ProjectMentions>(files);
    int left = at;
    EXPECT_FALSE(own->look({"D:\\Mix\\a.wav"}, {"D:\\Mix\\"}, {}, [&] {
      if (left-- == 0) {
        const auto inner = own->look({"D:\\Mix\\Tomas\\b.wav"}, {"D:\\Mix\\"}, {}, go_on);
        EXPECT_THAT(inner->at(0), is(Mentioned::path_missing, "D:\\Mix\\tema.vip"));
        if (at % 2 == 0) own.reset();
      }
      return true;
    })) << at;
  }
}

TEST_F(ProjectMentionsTest, the_caller_has_its_turn_every_few_milliseconds) {
  disk.add_folder("D:\\Mix\\Muchos");
  std::string bytes;
  Rows rows;
  for (int i = 0; i < 3'000; ++i) {
    rows.push_back("D:\\Mix\\toma " + std::to_string(i) + ".wav");
    bytes += rows.back() + '\0';
  }
  project(bytes + std::string(4'000'000, '.') + std::string(1'000'000, ' '));
  using Clock = std::chrono::steady_clock;
  auto last = Clock::now();
  int turns = 0;
  int late = 0;
  const auto found = mentions.look(rows, {"D:\\Mix"}, {}, [&] {
    late += Clock::now() - last > std::chrono::milliseconds(20) ? 1 : 0;
    last = Clock::now();
    ++turns;
    return true;
  });
  ASSERT_TRUE(found);
  EXPECT_THAT(*found, Each(is(Mentioned::path_missing, "D:\\Mix\\tema.vip")));
  EXPECT_GE(turns, 300);
  EXPECT_LE(late, 3) << "on a machine that is busy otherwise";
}

// On a real disk.
struct ProjectMentionsOnDisk : ::testing::Test {
  ProjectMentionsOnDisk() {
    disk.write("Mix\\a.wav", "1");
    disk.write("Mix\\Tomas\\b.wav", "2");
  }
  std::vector<RowMention> look(const Rows& below) {
    Rows rows;
    for (const std::string& row : below) rows.push_back(disk.path(row));
    const auto found = mentions.look(rows, {disk.path("Mix")}, {}, [] { return true; });
    EXPECT_TRUE(found);
    return found.value_or(std::vector<RowMention>());
  }

  TestDisk disk;
  ProjectMentions mentions{disk.files()};
};

TEST_F(ProjectMentionsOnDisk, doubled_backslashes_slashes_dots_and_case_lead_to_the_file) {
  std::string swapped = text::upper(disk.folder());
  std::string slashed = disk.path("Mix/a.wav");
  for (char& c : slashed) c = c == '\\' ? '/' : c;
  for (const std::string& path : {disk.path("Mix\\\\a.wav"), slashed,
                                  disk.path("Mix\\.\\Tomas\\..\\a.wav"), swapped + "MIX\\A.WAV"}) {
    disk.write("Mix\\tema.vip", "x" + path);
    EXPECT_THAT(look({"Mix\\a.wav"}),
                ElementsAre(is(Mentioned::by_path, disk.path("Mix\\tema.vip"))))
        << path;
    disk.write("Mix\\tema.vip", "x" + utf16_of("|" + path));
    EXPECT_THAT(look({"Mix\\a.wav"}),
                ElementsAre(is(Mentioned::by_path, disk.path("Mix\\tema.vip"))))
        << path;
  }
}

TEST_F(ProjectMentionsOnDisk, a_hard_link_leads_to_the_file) {
  disk.make_folder("Otra");
  std::error_code failed;
  std::filesystem::create_hard_link(disk.native_path("Mix\\a.wav"), disk.native_path("Otra\\a.wav"),
                                    failed);
  if (failed) GTEST_SKIP() << "no hard links here";
  disk.write("Mix\\tema.vip", disk.path("Otra\\a.wav"));
  EXPECT_THAT(look({"Mix\\a.wav"}),
              ElementsAre(is(Mentioned::by_path, disk.path("Mix\\tema.vip"))));
}

TEST_F(ProjectMentionsOnDisk, a_folder_that_is_a_link_leads_to_the_file) {
  std::error_code failed;
  std::filesystem::create_directory_symlink(disk.native_path("Mix"), disk.native_path("Enlace"),
                                            failed);
  if (failed) GTEST_SKIP() << "no links here";
  disk.write("Mix\\tema.vip", disk.path("Enlace\\Tomas\\b.wav"));
  EXPECT_THAT(look({"Mix\\a.wav", "Mix\\Tomas\\b.wav"}),
              ElementsAre(free(), is(Mentioned::by_path, disk.path("Mix\\tema.vip"))));
}

TEST_F(ProjectMentionsOnDisk, a_link_to_a_folder_that_is_searched_anyway_keeps_nothing) {
  std::error_code failed;
  std::filesystem::create_directory_symlink(disk.native_path("Mix\\Tomas"),
                                            disk.native_path("Mix\\Enlace"), failed);
  if (failed) GTEST_SKIP() << "no links here";
  EXPECT_THAT(look({"Mix\\a.wav"}), Each(free()));
  disk.make_folder("Fuera");
  std::filesystem::create_directory_symlink(disk.native_path("Fuera"),
                                            disk.native_path("Mix\\Otro"));
  EXPECT_THAT(look({"Mix\\a.wav"}), Each(is(Mentioned::linked, disk.path("Mix\\Otro"))));
}

TEST_F(ProjectMentionsOnDisk, a_project_that_is_saved_anew_is_read_anew) {
  disk.write("Mix\\tema.vip", "D:\\Mix\\x.wav");
  EXPECT_THAT(look({"Mix\\a.wav"}), Each(free()));
  disk.write("Mix\\nuevo", "a.wav, sin camino");
  std::filesystem::rename(disk.native_path("Mix\\nuevo"), disk.native_path("Mix\\tema.vip"));
  EXPECT_THAT(look({"Mix\\a.wav"}), Each(is(Mentioned::without_path, disk.path("Mix\\tema.vip"))));
}

}  // namespace
}  // namespace ordelan::test
