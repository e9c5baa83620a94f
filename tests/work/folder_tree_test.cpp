#include "work/folder_tree.h"

#include <gmock/gmock.h>

#include "project/memory_folders.h"
#include "support/forwarding_files.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;

struct Folders : ::testing::Test {
  Folders() {
    files.add_folder("D:\\Mix");
    files.add_folder("D:\\Mix\\b");
    files.add_folder("D:\\Mix\\A");
    files.add_folder("D:\\Mix\\A\\Dentro");
    files.add_folder("D:\\Mix\\c");
    files.add_file("D:\\Mix\\z.wav", "");
    files.add_file("D:\\Mix\\Y.wav", "");
    files.add_file("D:\\Mix\\oculto.wav", "", true);
    files.add_file("D:\\Mix\\A\\a.wav", "");
  }

  std::vector<std::string> walked(const std::string& folder) {
    std::vector<std::string> visited;
    tree.walk(folder, [&](const std::string& here, const work::FolderTree::Listing&) {
      visited.push_back(here);
      return true;
    });
    return visited;
  }

  static std::vector<std::string> names(const std::vector<work::FolderTree::Entry>& entries) {
    std::vector<std::string> all;
    for (const auto& entry : entries) all.emplace_back(entry.name);
    return all;
  }

  MemoryFolders files;
  work::FolderTree tree{files};
};

TEST_F(Folders, each_is_visited_before_its_own_subfolders_in_the_order_of_the_disk) {
  EXPECT_THAT(walked("D:\\Mix\\"), ElementsAre("D:\\Mix\\", "D:\\Mix\\A\\", "D:\\Mix\\A\\Dentro\\",
                                               "D:\\Mix\\b\\", "D:\\Mix\\c\\"));
}

TEST_F(Folders, a_walk_gives_the_files_of_each) {
  std::vector<std::pair<std::string, std::vector<std::string>>> seen;
  EXPECT_TRUE(tree.walk("D:\\Mix\\", [&](const auto& here, const auto& listing) {
    if (!listing.files.empty()) seen.emplace_back(here, names(listing.files));
    return true;
  }));
  EXPECT_THAT(seen, ElementsAre(Pair("D:\\Mix\\", ElementsAre("oculto.wav", "Y.wav", "z.wav")),
                                Pair("D:\\Mix\\A\\", ElementsAre("a.wav"))));
}

TEST_F(Folders, a_walk_ends_where_its_visitor_stops_it) {
  std::vector<std::string> visited;
  EXPECT_FALSE(tree.walk("D:\\Mix\\", [&](const auto& here, const auto&) {
    visited.push_back(here);
    return visited.size() < 2;
  }));
  EXPECT_THAT(visited, ElementsAre("D:\\Mix\\", "D:\\Mix\\A\\"));
}

TEST_F(Folders, a_thousand_folders_one_inside_the_other_are_walked) {
  std::string path = "D:\\Hondo";
  for (int i = 0; i < 1000; ++i) {
    files.add_folder(path);
    path += "\\n";
  }
  EXPECT_THAT(walked("D:\\Hondo\\"), SizeIs(1000));
}

TEST_F(Folders, each_is_listed_once_however_often_it_is_asked_for) {
  walked("D:\\Mix\\");
  walked("D:\\Mix\\A\\");
  tree.listing("D:\\Mix\\");
  EXPECT_THAT(files.listings, ElementsAre(Pair("D:\\Mix\\", 1), Pair("D:\\Mix\\A\\", 1),
                                          Pair("D:\\Mix\\A\\Dentro\\", 1), Pair("D:\\Mix\\b\\", 1),
                                          Pair("D:\\Mix\\c\\", 1)));
}

TEST_F(Folders, what_was_forgotten_is_listed_again) {
  EXPECT_THAT(tree.listing("D:\\Mix\\b\\").files, IsEmpty());
  files.add_file("D:\\Mix\\b\\nuevo.wav", "");
  EXPECT_THAT(tree.listing("D:\\Mix\\b\\").files, IsEmpty());
  tree.forget();
  EXPECT_EQ(tree.known_file("D:\\Mix\\b\\nuevo.wav"), nullptr);
  EXPECT_THAT(names(tree.listing("D:\\Mix\\b\\").files), ElementsAre("nuevo.wav"));
  EXPECT_EQ(files.listings["D:\\Mix\\b\\"], 2);
}

TEST_F(Folders, links_to_folders_are_left_out) {
  files.add_folder("D:\\Mix\\Enlace", true);
  files.add_file("D:\\Mix\\Enlace\\fuera.wav", "");
  EXPECT_THAT(names(tree.listing("D:\\Mix\\").folders), ElementsAre("A", "b", "c"));
  EXPECT_THAT(names(tree.listing("D:\\Mix\\").files), ElementsAre("oculto.wav", "Y.wav", "z.wav"));
  EXPECT_THAT(walked("D:\\Mix\\"), SizeIs(5));
}

TEST_F(Folders, a_missing_one_is_visited_as_an_empty_one) {
  EXPECT_THAT(walked("D:\\Falta\\"), ElementsAre("D:\\Falta\\"));
  EXPECT_FALSE(tree.listing("D:\\Falta\\").readable);
  EXPECT_TRUE(tree.listing("D:\\Mix\\c\\").readable);
}

TEST_F(Folders, a_listing_stays_in_its_place_while_others_come) {
  const auto& listing = tree.listing("D:\\Mix\\");
  for (int i = 0; i < 1000; ++i) tree.listing("D:\\Falta" + std::to_string(i) + "\\");
  EXPECT_EQ(&tree.listing("D:\\Mix\\"), &listing);
  EXPECT_THAT(listing.files, SizeIs(3));
}

TEST_F(Folders, a_file_is_found_once_its_folder_has_been_listed) {
  EXPECT_EQ(tree.known_file("D:\\Mix\\z.wav"), nullptr);
  tree.listing("D:\\Mix\\");
  ASSERT_NE(tree.known_file("D:\\Mix\\z.wav"), nullptr);
  EXPECT_EQ(tree.known_file("D:\\Mix\\z.wav")->name, "z.wav");
  EXPECT_TRUE(tree.known_file("D:\\Mix\\z.wav")->plain);
  ASSERT_NE(tree.known_file("D:\\Mix\\oculto.wav"), nullptr);
  EXPECT_FALSE(tree.known_file("D:\\Mix\\oculto.wav")->plain);
}

TEST_F(Folders, a_file_is_found_only_under_its_own_spelling) {
  tree.listing("D:\\Mix\\");
  for (const char* path : {"D:\\Mix\\Z.wav", "D:\\mix\\z.wav", "D:\\Mix\\falta.wav", "D:\\Mix\\A",
                           "D:\\Mix\\A\\a.wav", "z.wav", "", "D:\\Mix\\"}) {
    EXPECT_EQ(tree.known_file(path), nullptr) << path;
  }
}

TEST_F(Folders, names_that_differ_only_by_case_are_distinguished) {
  files.add_file("D:\\Mix\\c\\T.wav", "", true);
  files.add_file("D:\\Mix\\c\\s.wav", "");
  files.add_file("D:\\Mix\\c\\t.wav", "");
  tree.listing("D:\\Mix\\c\\");
  ASSERT_NE(tree.known_file("D:\\Mix\\c\\t.wav"), nullptr);
  ASSERT_NE(tree.known_file("D:\\Mix\\c\\T.wav"), nullptr);
  EXPECT_TRUE(tree.known_file("D:\\Mix\\c\\t.wav")->plain);
  EXPECT_FALSE(tree.known_file("D:\\Mix\\c\\T.wav")->plain);
}

TEST_F(Folders, a_listing_reports_which_plain_files_are_there) {
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\z.wav"), true);
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\Z.WAV"), true);
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\falta.wav"), false);
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\oculto.wav"), false);
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\A"), false) << "a folder";
  EXPECT_EQ(files.listings["D:\\Mix\\"], 1);
}

TEST_F(Folders, a_listing_cannot_answer_for_names_that_the_system_reads_otherwise) {
  for (const char* path : {"D:\\Mix\\LARGO~1.WAV", "D:\\Mix\\z.wav.", "D:\\Mix\\z.wav ", "z.wav",
                           "", "D:\\Mix\\", "D:\\nada\\z.wav", "D:\\Mix\\z?.wav"}) {
    EXPECT_EQ(tree.holds_plain_file(path), std::nullopt) << path;
  }
}

TEST_F(Folders, a_listing_reports_what_is_not_walked_links_and_names_outside_the_code_page) {
  files.add_folder("D:\\Mix\\c\\Enlace", true);
  files.add_unnamed("D:\\Mix\\c\\", {"toma ?.wav", false});
  files.add_unnamed("D:\\Mix\\c\\", {"?", true});
  const auto& listing = tree.listing("D:\\Mix\\c\\");
  EXPECT_THAT(listing.links, ElementsAre("Enlace"));
  ASSERT_THAT(listing.unnamed, SizeIs(2));
  EXPECT_EQ(listing.unnamed[0].shown, "toma ?.wav");
  EXPECT_FALSE(listing.unnamed[0].folder);
  EXPECT_TRUE(listing.unnamed[1].folder);
  EXPECT_THAT(tree.listing("D:\\Mix\\").links, IsEmpty());
}

TEST_F(Folders, an_entry_carries_what_its_file_is) {
  system::FileInfo system_file, link;
  system_file.system = true;
  link.link = true;
  link.number = 77;
  files.add_file("D:\\Mix\\c\\sistema.wav", system_file);
  files.add_file("D:\\Mix\\c\\otra.wav", link);
  const auto& listing = tree.listing("D:\\Mix\\c\\");
  ASSERT_THAT(names(listing.files), ElementsAre("otra.wav", "sistema.wav"));
  EXPECT_TRUE(listing.files[0].plain);
  EXPECT_TRUE(listing.files[0].link) << "a link to a file is a file of the listing";
  EXPECT_EQ(listing.files[0].number, 77u);
  EXPECT_FALSE(listing.files[1].plain);
  EXPECT_FALSE(listing.files[1].link);
  EXPECT_EQ(listing.files[1].number, 0u);
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\c\\sistema.wav"), false);
}

TEST_F(Folders, of_names_that_differ_by_case_the_same_spelling_is_found_and_else_the_first) {
  for (const char* name : {"T.wav", "a.wav", "t.WAV", "t.wav", "z.wav"}) {
    files.add_file(std::string("D:\\Mix\\c\\") + name, "");
  }
  const auto& listing = tree.listing("D:\\Mix\\c\\");
  ASSERT_THAT(names(listing.files), ElementsAre("a.wav", "T.wav", "t.WAV", "t.wav", "z.wav"));
  const auto found = [&](const char* name) {
    const auto* const entry = work::FolderTree::find_file(listing, name);
    return entry == nullptr ? "" : entry->name;
  };
  for (const char* name : {"T.wav", "a.wav", "t.WAV", "t.wav", "z.wav"}) {
    EXPECT_EQ(found(name), name);
  }
  EXPECT_EQ(found("T.WAV"), "T.wav");
  EXPECT_EQ(found("A.wav"), "a.wav");
  for (const char* missing : {"", "0.wav", "b.wav", "t.wave", "zz.wav"}) {
    EXPECT_EQ(found(missing), "") << missing;
  }
}

TEST_F(Folders, a_plain_file_is_seen_past_a_hidden_one_of_the_same_letters) {
  files.add_file("D:\\Mix\\c\\T.wav", "", true);
  files.add_file("D:\\Mix\\c\\t.wav", "");
  files.add_file("D:\\Mix\\c\\U.wav", "");
  for (const char* path : {"D:\\Mix\\c\\T.wav", "D:\\Mix\\c\\t.wav", "D:\\Mix\\c\\u.WAV"}) {
    EXPECT_EQ(tree.holds_plain_file(path), true) << path;
  }
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\c\\s.wav"), false);
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\c\\v.wav"), false);
}

TEST_F(Folders, each_character_that_no_plain_name_holds_leaves_the_answer_open) {
  for (const char c : std::string("~*?/:<>|\"")) {
    EXPECT_EQ(tree.holds_plain_file(std::string("D:\\Mix\\a") + c + "b.wav"), std::nullopt) << c;
  }
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\a.b c.wav"), false);
  EXPECT_EQ(tree.holds_plain_file("D:\\Mix\\ .a"), false);
}

TEST_F(Folders, what_is_listed_while_the_old_listings_are_freed_is_new_and_stays) {
  tree.listing("D:\\Mix\\A\\");
  for (const char* folder : {"D:\\Mix\\b\\", "D:\\Mix\\c\\", "D:\\Mix\\"}) tree.listing(folder);
  tree.listing("D:\\Mix\\A\\");  // the last that was asked for
  files.add_file("D:\\Mix\\A\\b.wav", "");
  int turns = 0;
  tree.forget([&] {
    if (++turns > 1) return;
    EXPECT_FALSE(tree.knows("D:\\Mix\\A\\"));
    EXPECT_FALSE(tree.knows("D:\\Mix\\"));
    EXPECT_THAT(names(tree.listing("D:\\Mix\\A\\").files), ElementsAre("a.wav", "b.wav"));
  });
  EXPECT_EQ(turns, 4) << "one for each listing that was freed";
  EXPECT_TRUE(tree.knows("D:\\Mix\\A\\"));
  EXPECT_FALSE(tree.knows("D:\\Mix\\b\\"));
  EXPECT_EQ(files.listings["D:\\Mix\\A\\"], 2);
}

TEST(FoldersAround, are_those_up_to_the_root_the_nearest_first) {
  using work::folders_around;
  for (const char* folder : {"D:\\Mix\\a\\b\\", "D:\\Mix\\a\\b"}) {
    EXPECT_THAT(folders_around(folder), ElementsAre("D:\\Mix\\a\\", "D:\\Mix\\", "D:\\")) << folder;
  }
  EXPECT_THAT(folders_around("D:\\Mix"), ElementsAre("D:\\"));
  EXPECT_THAT(folders_around("\\\\nas\\audio\\Mix\\a\\"),
              ElementsAre("\\\\nas\\audio\\Mix\\", "\\\\nas\\audio\\"));
  EXPECT_THAT(folders_around("\\\\nas\\audio\\Mix"), ElementsAre("\\\\nas\\audio\\"));
}

TEST(FoldersAround, are_none_of_a_root_and_of_a_path_without_one) {
  for (const char* folder : {"D:\\", "D:", "\\\\nas\\audio\\", "\\\\nas\\audio", "", "\\", "Mix",
                             "D:Mix", "Mix\\a\\", "\\Mix\\a\\"}) {
    EXPECT_THAT(work::folders_around(folder), IsEmpty()) << folder;
  }
}

// As a listing on Windows has size and time for nothing.
struct TimedFolders : ForwardingFiles {
  using ForwardingFiles::ForwardingFiles;
  bool each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override {
    const auto timed = [&](system::FileInfo& entry) {
      entry.size = entry.name.size() * 100;
      entry.modified = static_cast<double>(entry.name.front());
      return visit(entry);
    };
    return ForwardingFiles::each_entry(folder, detail, timed, unnamed);
  }
};

TEST(FolderTree, keeps_sizes_and_times_that_come_with_the_names) {
  MemoryFolders disk;
  disk.add_folder("D:\\Mix");
  disk.add_file("D:\\Mix\\z.wav", "");
  disk.add_file("D:\\Mix\\larga.wav", "");
  TimedFolders files(disk);
  work::FolderTree tree(files);
  tree.listing("D:\\Mix\\");
  const auto* const listed = tree.known_file("D:\\Mix\\larga.wav");
  ASSERT_NE(listed, nullptr);
  EXPECT_EQ(listed->size, 900u);
  EXPECT_EQ(listed->modified, static_cast<double>('l'));
}

}  // namespace
}  // namespace ordelan::test
