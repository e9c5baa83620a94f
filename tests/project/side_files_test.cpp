// Which side files of a folder may be removed, on a disk in memory.
#include "project/side_files.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "project/memory_folders.h"
#include "support/faulty_files.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct SideFilesTest : ::testing::Test {
  SideFilesTest() {
    disk.add_folder("D:\\Mix");
    disk.add_folder("D:\\Mix\\Viejo");
    disk.add_folder("D:\\Mix\\Viejo\\Sub");
    for (const char* name : {"a.wma", "b.m4a", "c.WMA", "x.cue", "y.h2"}) {
      disk.add_file(std::string("D:\\Mix\\Viejo\\") + name, "");
    }
  }

  project::SideFiles side_files(const std::vector<std::string>& projects = {}) {
    work::FolderTree tree(files);
    return project::side_files_of("D:\\Mix\\Viejo\\", projects, files, tree, go_on);
  }
  // That all audio stays, as this could not be searched, and the rest may go.
  void expect_all_audio_kept(const std::string& unreadable) {
    const auto side = side_files();
    EXPECT_EQ(side.unreadable, unreadable);
    EXPECT_THAT(side.kept, ElementsAre("a.wma", "c.WMA", "b.m4a"));
    EXPECT_THAT(side.removable, ElementsAre("y.h2", "x.cue"));
  }

  MemoryFolders disk{true};
  FaultyFiles files{disk};
  std::function<bool()> go_on = [] { return true; };
};

TEST_F(SideFilesTest, are_the_plain_files_of_fifteen_kinds_in_their_order) {
  MemoryFolders folder{true};
  folder.add_folder("D:\\a");
  for (const char* name :
       {"z.hs",    "y.m4a", "x.wma",  "w.hz",   "v.cue",  "u.hfp", "t.hf2", "s.hgp",
        "r.hg2",   "q.hap", "p.ha2",  "o.hmp",  "n.hm2",  "m.hdp", "l.H2",  "a.wav",
        "b.mp3",   "c.vip", "d.h2x",  "e.hs2",  "f.cues", "g.hz3", "h2",    "k.h2.x",
        "hs.flac", "j.h",   "i.wmav", "h.cue ", "cue.txt"}) {
    folder.add_file(std::string("D:\\a\\") + name, "");
  }
  folder.add_file("D:\\a\\hidden.cue", "", true);
  folder.add_folder("D:\\a\\folder.cue");
  folder.add_folder("D:\\a\\sub");
  folder.add_file("D:\\a\\sub\\below.cue", "");
  work::FolderTree tree(folder);
  const auto side = project::side_files_of("D:\\a\\", {}, folder, tree, go_on);
  EXPECT_THAT(side.removable,
              ElementsAre("l.H2", "m.hdp", "n.hm2", "o.hmp", "p.ha2", "q.hap", "r.hg2", "s.hgp",
                          "t.hf2", "u.hfp", "v.cue", "w.hz", "x.wma", "y.m4a", "z.hs"));
  EXPECT_THAT(side.kept, IsEmpty());
  EXPECT_EQ(side.unreadable, "");
}

TEST_F(SideFilesTest, audio_that_no_project_names_may_go) {
  disk.add_file("D:\\Mix\\tema.vip", "D:\\Mix\\Viejo\\otro.wma");
  disk.add_file("D:\\Mix\\Viejo\\notas.txt", "a.wma b.m4a c.wma");
  disk.add_file("D:\\a.vip", std::string(300'000, '\0'));
  const auto side = side_files();
  EXPECT_THAT(side.removable, ElementsAre("y.h2", "x.cue", "a.wma", "c.WMA", "b.m4a"));
  EXPECT_THAT(side.kept, IsEmpty());
  EXPECT_EQ(side.unreadable, "");
}

TEST_F(SideFilesTest, audio_that_a_project_around_below_or_given_names_stays) {
  disk.add_file("D:\\arriba.VIP", "a.wma");
  disk.add_file("D:\\Mix\\Viejo\\Sub\\copia.vip.old", "B.M4A");
  disk.add_folder("D:\\Otra");
  disk.add_file("D:\\Otra\\tema.vip", "c.wma");
  auto side = side_files();
  EXPECT_THAT(side.kept, ElementsAre("a.wma", "b.m4a"));
  EXPECT_THAT(side.removable, ElementsAre("y.h2", "x.cue", "c.WMA"));
  side = side_files({"D:\\Otra\\tema.vip"});
  EXPECT_THAT(side.kept, ElementsAre("a.wma", "c.WMA", "b.m4a"));
  EXPECT_EQ(side.unreadable, "");
}

TEST_F(SideFilesTest, names_are_found_wherever_they_stand_in_a_long_project) {
  // Across the edge of what is read at once, and at the very end.
  constexpr std::size_t kBlock = std::size_t{1} << 18;
  disk.add_file("D:\\Mix\\tema.vip",
                std::string(kBlock - 3, '\0') + "a.wma" + std::string(2 * kBlock, '\0') + "b.m4a");
  EXPECT_THAT(side_files().kept, ElementsAre("a.wma", "b.m4a"));
}

TEST_F(SideFilesTest, all_audio_stays_where_a_project_is_held_by_another_program) {
  disk.add_file("D:\\Mix\\Viejo\\Sub\\tema.vip", "nada", false, true);
  expect_all_audio_kept("D:\\Mix\\Viejo\\Sub\\tema.vip");
}

TEST_F(SideFilesTest, all_audio_stays_where_a_project_cannot_be_read_to_its_end) {
  constexpr std::uint64_t kSecondBlock = std::uint64_t{1} << 18;
  disk.add_file("D:\\Mix\\tema.vip", std::string(300'000, '\0'));
  using Came = std::optional<std::size_t>;
  for (const Came came : {Came(), Came(0)}) {  // the read fails; the file has become shorter
    for (const std::uint64_t from : {std::uint64_t{0}, kSecondBlock}) {
      files.on_read = [&](std::uint64_t offset) { return offset >= from ? came : Came(1 << 18); };
      expect_all_audio_kept("D:\\Mix\\tema.vip");
    }
  }
  // A read that gives less than was asked for is no failure.
  files.on_read = [](std::uint64_t) { return Came(100'000); };
  EXPECT_EQ(side_files().unreadable, "");
}

TEST_F(SideFilesTest, all_audio_stays_where_a_given_project_is_missing) {
  const auto side = side_files({"D:\\missing.vip"});
  EXPECT_EQ(side.unreadable, "D:\\missing.vip");
  EXPECT_THAT(side.kept, ElementsAre("a.wma", "c.WMA", "b.m4a"));
}

TEST_F(SideFilesTest, all_audio_stays_where_a_link_leads_to_folders_that_are_not_searched) {
  disk.add_folder("D:\\Mix\\Viejo\\Sub\\enlace", true);
  expect_all_audio_kept("D:\\Mix\\Viejo\\Sub\\enlace");
}

TEST_F(SideFilesTest, all_audio_stays_where_a_project_or_a_folder_below_cannot_be_named) {
  disk.add_unnamed("D:\\Mix\\Viejo\\Sub\\", {"dentro ?", true});
  expect_all_audio_kept("D:\\Mix\\Viejo\\Sub\\dentro ?");
  MemoryFolders other{true};
  other.add_folder("D:\\a");
  other.add_file("D:\\a\\a.wma", "");
  const auto unreadable = [&] {
    work::FolderTree tree(other);
    return project::side_files_of("D:\\a\\", {}, other, tree, go_on).unreadable;
  };
  // Around the folder only projects are asked for, and a file of another kind is none.
  other.add_unnamed("D:\\", {"al lado ?.vip", true});
  other.add_unnamed("D:\\a\\", {"notas ?.txt", false});
  EXPECT_EQ(unreadable(), "");
  other.add_unnamed("D:\\", {"tema ?.VIP.bak", false});
  EXPECT_EQ(unreadable(), "D:\\tema ?.VIP.bak");
}

TEST_F(SideFilesTest, all_audio_stays_where_a_folder_cannot_be_listed) {
  EXPECT_EQ(side_files().unreadable, "");
  disk.forbid("D:\\Mix\\Viejo\\Sub\\");
  expect_all_audio_kept("D:\\Mix\\Viejo\\Sub\\");
  disk.forbid("D:\\");
  disk.allow("D:\\Mix\\Viejo\\Sub\\");
  expect_all_audio_kept("D:\\");
}

TEST_F(SideFilesTest, a_link_beside_the_folder_is_no_hindrance) {
  disk.add_folder("D:\\Mix\\enlace", true);
  EXPECT_EQ(side_files().unreadable, "");
}

TEST_F(SideFilesTest, no_project_is_opened_where_there_is_no_audio) {
  disk.add_folder("D:\\Solo");
  disk.add_file("D:\\Solo\\x.cue", "");
  disk.add_file("D:\\Solo\\tema.vip", "x", false, true);
  work::FolderTree tree(files);
  int opened = 0;
  files.faults.on_call = [&](FaultyFiles::Call call, std::string_view) {
    opened += call == FaultyFiles::Call::open ? 1 : 0;
  };
  const auto side = project::side_files_of("D:\\Solo\\", {}, files, tree, go_on);
  EXPECT_THAT(side.removable, ElementsAre("x.cue"));
  EXPECT_EQ(side.unreadable, "");
  EXPECT_EQ(opened, 0);
}

TEST_F(SideFilesTest, the_search_ends_at_once_where_it_has_to) {
  disk.add_file("D:\\Mix\\tema.vip", std::string(600'000, '\0'));
  disk.add_file("D:\\Mix\\Viejo\\Sub\\otro.vip", "x");
  int turns = 0;
  int last = 0;
  go_on = [&] { return ++turns != last; };
  EXPECT_EQ(side_files().unreadable, "");
  const int all = turns;
  ASSERT_EQ(all, 3 + 1 + 2) << "a turn for each block and each of the two folders";
  for (last = 1; last <= all; ++last) {
    turns = 0;
    const auto side = side_files();
    EXPECT_EQ(turns, last);
    if (last <= 3) {
      EXPECT_THAT(side.kept, ElementsAre("a.wma", "c.WMA", "b.m4a")) << last;
    }
  }
}

}  // namespace
}  // namespace ordelan::test
