#include "work/folder_tree.h"

#include <gmock/gmock.h>

#include "project/memory_folders.h"

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

}  // namespace
}  // namespace ordelan::test
