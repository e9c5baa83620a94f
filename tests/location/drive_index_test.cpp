#include "location/drive_index.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "location/file_finder.h"
#include "project/memory_folders.h"
#include "support/fake_media.h"
#include "support/fake_services.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

using Paths = std::vector<std::string>;

struct IndexBench {
  IndexBench() {
    disk.add_root("E:\\");
    for (const char* root : {"D:\\", "E:\\"}) drives.add(root);
  }

  std::optional<Paths> find(const std::string& root, const std::string& name) {
    return index.find(root, name, [] { return true; });
  }
  Paths own_search(const std::string& root, const std::string& name) {
    location::cFindFiles finder(platform);
    finder.Find(root, name, "", 1);
    return finder.ColFiles();
  }
  // How often that folder has been listed since the last call.
  int listings(const std::string& folder) { return std::exchange(disk.listings[folder], 0); }

  MemoryFolders disk;
  HandClock clock;
  FixedRegional regional;
  FakeDrives drives;
  FakeShell shell;
  FakeMedia media;
  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend{clock};
  system::Platform platform{disk, dialogs, backend, clock, regional, drives, shell, media};
  location::DriveIndex index{platform};
};

struct Index : ::testing::Test, IndexBench {
  // toma.wav in two folders of D and one of E, otra.wav on D.
  Index() {
    for (const char* folder : {"D:\\a", "D:\\b", "E:\\c"}) disk.add_folder(folder);
    for (const char* file : {"D:\\b\\toma.wav", "D:\\a\\Toma.WAV", "E:\\c\\toma.wav",
                             "D:\\b\\otra.wav", "D:\\b\\nadie.wav"}) {
      disk.add_file(file, "");
    }
  }
};

TEST_F(Index, gives_the_files_of_a_name_in_the_order_of_a_search) {
  index.expect("TOMA.wav");
  EXPECT_THAT(find("D:\\", "toma.wav"),
              Optional(ElementsAre("D:\\a\\Toma.WAV", "D:\\b\\toma.wav")));
  EXPECT_THAT(find("E:\\", "toma.wav"), Optional(ElementsAre("E:\\c\\toma.wav")));
}

TEST_F(Index, walks_a_drive_once_for_all_expected_names) {
  for (const char* name : {"toma.wav", "otra.wav", "ninguna.wav"}) index.expect(name);
  for (int i = 0; i < 3; ++i) {
    EXPECT_THAT(find("D:\\", "toma.wav")->size(), 2u);
    EXPECT_THAT(find("D:\\", "otra.wav"), Optional(ElementsAre("D:\\b\\otra.wav")));
    EXPECT_THAT(find("D:\\", "ninguna.wav"), Optional(IsEmpty()));
  }
  EXPECT_EQ(listings("D:\\"), 1);
  EXPECT_EQ(listings("D:\\b\\"), 1);
  EXPECT_EQ(listings("E:\\"), 0) << "it was not asked for";
}

TEST_F(Index, names_expected_later_cost_one_walk_for_all_of_them) {
  find("D:\\", "toma.wav");
  for (const char* name : {"otra.wav", "nadie.wav", "ninguna.wav"}) index.expect(name);
  EXPECT_EQ(find("D:\\", "toma.wav")->size(), 2u);
  EXPECT_EQ(listings("D:\\"), 1);
  EXPECT_EQ(find("D:\\", "otra.wav")->size(), 1u);
  EXPECT_EQ(find("D:\\", "nadie.wav")->size(), 1u);
  EXPECT_EQ(find("D:\\", "toma.wav")->size(), 2u) << "not twice what the first walk has found";
  EXPECT_EQ(listings("D:\\"), 1);
  EXPECT_EQ(find("D:\\", "nueva.wav")->size(), 0u) << "expected by the question itself";
  EXPECT_EQ(listings("D:\\"), 1);
}

TEST_F(Index, a_file_that_has_gone_is_not_given_and_the_drive_is_walked_anew) {
  for (const char* name : {"toma.wav", "otra.wav"}) index.expect(name);
  find("D:\\", "toma.wav");
  disk.take_away("D:\\a\\Toma.WAV");
  disk.add_folder("D:\\z");
  disk.add_file("D:\\z\\toma.wav", "");
  listings("D:\\");
  EXPECT_THAT(find("D:\\", "otra.wav")->size(), 1u);
  EXPECT_EQ(listings("D:\\"), 0) << "its file is where it was";
  EXPECT_THAT(find("D:\\", "toma.wav"),
              Optional(ElementsAre("D:\\b\\toma.wav", "D:\\z\\toma.wav")));
  EXPECT_EQ(listings("D:\\"), 1);
  find("D:\\", "toma.wav");
  find("D:\\", "otra.wav");
  EXPECT_EQ(listings("D:\\"), 0);
}

TEST_F(Index, a_folder_or_another_spelling_in_the_place_of_a_file_is_not_the_file) {
  index.expect("otra.wav");
  find("D:\\", "otra.wav");
  disk.take_away("D:\\b\\otra.wav");
  disk.add_folder("D:\\b\\otra.wav");
  EXPECT_THAT(find("D:\\", "otra.wav"), Optional(IsEmpty()));
  disk.add_file("D:\\a\\OTRA.wav", "");
  index.expect("mas.wav");
  find("D:\\", "mas.wav");
  EXPECT_THAT(find("D:\\", "otra.wav"), Optional(IsEmpty())) << "it came after the walk";
}

TEST_F(Index, names_that_are_no_plain_names_are_searched_as_they_are) {
  disk.add_file("D:\\a\\x;y.wav", "");
  disk.add_file("D:\\a\\cola.", "");
  for (const char* name : {"", "*", "*.wav", "to?a.wav", "wav;mp3", "x;y.wav", "cola.", "cola. ",
                           "a\\toma.wav", "D:\\a\\Toma.WAV", "a/b", ":"}) {
    index.expect(name);
    EXPECT_EQ(find("D:\\", name), own_search("D:\\", name)) << name;
  }
  EXPECT_EQ(find("", "toma.wav"), own_search("", "toma.wav")) << "on all drives";
  EXPECT_EQ(find("", "toma.wav")->size(), 3u);
}

TEST_F(Index, a_stop_ends_the_walk_within_a_turn_and_leaves_nothing_of_it) {
  clock.step = std::chrono::milliseconds(20);
  for (int i = 0; i < 50; ++i) disk.add_folder("D:\\m" + std::to_string(i));
  index.expect("toma.wav");
  int turns = 0;
  // When the folders a and b have been listed.
  EXPECT_EQ(index.find("D:\\", "toma.wav", [&] { return ++turns < 6; }), std::nullopt);
  EXPECT_EQ(turns, 6);
  EXPECT_EQ(listings("D:\\m40\\"), 0);
  EXPECT_THAT(find("D:\\", "toma.wav"),
              Optional(ElementsAre("D:\\a\\Toma.WAV", "D:\\b\\toma.wav")));
}

TEST_F(Index, a_stop_ends_a_search_without_the_index_too) {
  clock.step = std::chrono::milliseconds(20);
  for (int i = 0; i < 50; ++i) disk.add_folder("D:\\m" + std::to_string(i));
  int turns = 0;
  EXPECT_EQ(index.find("D:\\", "to?a.wav", [&] { return ++turns < 3; }), std::nullopt);
  EXPECT_EQ(listings("D:\\m40\\"), 0);
}

TEST_F(Index, gives_turns_also_where_no_drive_is_walked) {
  find("D:\\", "toma.wav");
  listings("D:\\");
  clock.step = std::chrono::milliseconds(20);
  int pumps = 0;
  backend.on_pump = [&] { ++pumps; };
  EXPECT_EQ(index.find("D:\\", "toma.wav", [] { return false; }), std::nullopt);
  EXPECT_EQ(pumps, 1);
  EXPECT_TRUE(find("D:\\", "toma.wav"));
  EXPECT_GT(pumps, 2);
  EXPECT_EQ(listings("D:\\"), 0);
}

TEST_F(Index, a_question_from_inside_a_walk_is_a_search_of_its_own) {
  clock.step = std::chrono::milliseconds(20);
  index.expect("toma.wav");
  std::optional<Paths> inner;
  int pumps = 0;
  backend.on_pump = [&] {
    if (++pumps != 3) return;
    inner = find("D:\\", "otra.wav");
    index.expect("nueva.wav");
  };
  EXPECT_EQ(find("D:\\", "toma.wav")->size(), 2u);
  EXPECT_THAT(inner, Optional(ElementsAre("D:\\b\\otra.wav")));
  disk.add_file("D:\\nueva.wav", "");
  EXPECT_EQ(find("D:\\", "nueva.wav")->size(), 1u) << "expected after the walk had begun";
}

// --- over random little disks

std::uint64_t index_worlds() {
  const char* asked = std::getenv("ORDELAN_WORLDS");
  return asked == nullptr ? 2'000 : std::strtoull(asked, nullptr, 10);
}

template <class Table>
auto pick(Dice& dice, const Table& table) {
  return table[dice.below(std::size(table))];
}

constexpr const char* kIndexNames[] = {
    "a",        "b",       "take.wav", "TAKE.WAV",     "Take.wav",     "x.fla",
    "x.flac",   "[x].wav", ".wav",     "a;b.wav",      "mix 1 .wav",   "RECICLER",
    "[x].WAV",  "temaA",   "tema_B",   "\xC1rbol.wav", "\xE1rbol.wav", "sin extension",
    "take.wav "};
constexpr const char* kAsked[] = {
    "take.wav",   "TAKE.wav", "x.fla",    "[X].wav", "\xE1RBOL.WAV", "temaa", "sin Extension",
    "mix 1 .wav", ".wav",     "nada.wav", "a",       "t*.wav",       "x.fl?", "a;b.wav",
    "take.wav ",  ""};
constexpr const char* kIndexRoots[] = {"D:\\", "E:\\", "F:\\"};

struct IndexWorld : IndexBench {
  explicit IndexWorld(std::uint64_t seed) : dice(seed) {
    folders = {"D:\\", "E:\\"};
    for (std::size_t i = 10 + dice.below(60); i > 0; --i) add();
    if (dice.below(3) == 0) disk.forbid(pick(dice, folders));
    disk.backwards = dice.below(2) == 0;
    if (dice.below(2) == 0) clock.step = std::chrono::milliseconds(20);
    since_the_start = all;
  }
  void add() {
    const std::string path = pick(dice, folders) + pick(dice, kIndexNames);
    if (dice.below(3) == 0) {
      const bool link = dice.below(8) == 0;
      if (disk.add_folder(path, link) && !link) folders.push_back(path + "\\");
      return;
    }
    system::FileInfo file;
    file.hidden = dice.below(4) == 0;
    file.link = dice.below(8) == 0;
    if (disk.add_file(path, file)) all.insert(path);
  }
  void take_one_away() {
    if (all.empty()) return;
    const auto path = std::next(all.begin(), static_cast<std::ptrdiff_t>(dice.below(all.size())));
    disk.take_away(*path);
    since_the_start.erase(*path);
    all.erase(path);
  }

  Dice dice;
  Paths folders;
  std::set<std::string> all;
  std::set<std::string> since_the_start;
};

// A file that came meanwhile may be missing; all others are there, and in the order of a search.
TEST(IndexWorlds, gives_what_a_search_of_its_own_gives_but_for_new_files) {
  std::uint64_t hits = 0;
  std::uint64_t whole = 0;
  for (std::uint64_t seed = 0; seed < index_worlds(); ++seed) {
    IndexWorld world(seed);
    const bool grows = world.dice.below(3) == 0;
    for (int step = 0; step < 30; ++step) {
      switch (world.dice.below(6)) {
        case 0:
          world.index.expect(pick(world.dice, kAsked));
          break;
        case 1:
          if (world.dice.below(2) == 0) world.take_one_away();
          break;
        case 2:
          if (grows) world.add();
          break;
        default: {
          const std::string root = pick(world.dice, kIndexRoots);
          const std::string name = pick(world.dice, kAsked);
          const auto found = world.find(root, name);
          const Paths own = world.own_search(root, name);
          ASSERT_TRUE(found);
          ASSERT_TRUE(grows || *found == own) << "seed " << seed << ", " << root << name;
          auto at = found->begin();
          for (const std::string& path : own) {
            const bool given = at != found->end() && *at == path;
            if (given) ++at;
            ASSERT_TRUE(given || !world.since_the_start.contains(path))
                << "seed " << seed << ", " << path;
          }
          ASSERT_EQ(at, found->end()) << "seed " << seed << ", " << root << name;
          hits += found->size();
          whole += *found == own ? 1 : 0;
        }
      }
    }
  }
  EXPECT_GT(hits, index_worlds() * 5);
  EXPECT_GT(whole, index_worlds() * 10);
}

}  // namespace
}  // namespace ordelan::test
