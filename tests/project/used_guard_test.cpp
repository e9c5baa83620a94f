// The last look before files are offered, on a disk in memory that counts what it is asked.
#include "project/used_guard.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

#include "project/candidates_of.h"
#include "project/memory_folders.h"
#include "support/faulty_files.h"
#include "support/hostile_bytes.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::test {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

using Rows = std::vector<std::string>;

// On this disk, as on Windows', case is ignored.
struct UsedGuard : ::testing::Test {
  UsedGuard() {
    files.faults.on_call = [this](FaultyFiles::Call call, std::string_view path) {
      if (call == FaultyFiles::Call::info) infos.emplace_back(path);
      if (call == FaultyFiles::Call::identity) ++identities[std::string(path)];
    };
  }

  std::vector<bool> same_as_any(const Rows& offered, const std::vector<const Rows*>& used) {
    const auto candidates = candidates_of(offered, tree);
    return project::same_as_used(candidates, all_of(candidates), used, files, tree,
                                 [] { return true; });
  }
  std::vector<bool> same(const Rows& offered, const Rows& used) {
    return same_as_any(offered, {&used});
  }

  // `count` files in a folder that is made for them. Gives their paths.
  Rows fill(const std::string& folder, int count, const std::string& name = "n") {
    disk.add_folder(folder);
    Rows paths;
    for (int i = 0; i < count; ++i) {
      paths.push_back(folder + "\\" + name + std::to_string(i) + ".wav");
      disk.add_file(paths.back(), "");
    }
    return paths;
  }

  MemoryFolders disk{true};
  FaultyFiles files{disk};
  work::FolderTree tree{files};
  Rows infos;                             // the paths that were asked for, in order
  std::map<std::string, int> identities;  // how often each was asked for
};

TEST_F(UsedGuard, thousands_of_used_files_are_all_seen_and_no_other_is) {
  const Rows used = fill("D:\\usados", 3000);
  const Rows free = fill("D:\\libres", 3000);
  Rows shouted;
  for (const std::string& row : used) shouted.push_back(text::upper(row));
  EXPECT_THAT(same(used, shouted), Each(true)) << "by their paths";
  EXPECT_THAT(same(free, shouted), Each(false));
}

TEST_F(UsedGuard, thousands_of_used_files_are_seen_through_numbers_that_the_listings_give) {
  disk.add_folder("D:\\a");
  disk.add_folder("D:\\b");
  Rows used, offered;
  for (int i = 0; i < 3000; ++i) {
    system::FileInfo file;
    file.number = static_cast<std::uint64_t>(i) + 1;
    used.push_back("D:\\a\\n" + std::to_string(i) + ".wav");
    disk.add_file(used.back(), file);
    if (i % 2 == 1) file.number += 10'000;  // another file
    offered.push_back("D:\\b\\m" + std::to_string(i) + ".wav");
    disk.add_file(offered.back(), file);
  }
  tree.listing("D:\\b\\");
  const auto found = same(offered, used);
  for (std::size_t i = 0; i < found.size(); ++i) ASSERT_EQ(found[i], i % 2 == 0) << offered[i];
}

TEST_F(UsedGuard, asks_nothing_where_nothing_is_offered) {
  const Rows used = fill("D:\\a", 20);
  EXPECT_THAT(same({}, used), IsEmpty());
  EXPECT_THAT(infos, IsEmpty());
  EXPECT_THAT(identities, IsEmpty());
  EXPECT_THAT(disk.listings, IsEmpty());
}

TEST_F(UsedGuard, lists_a_folder_from_sixteen_used_files_on_and_asks_for_fewer_one_by_one) {
  const Rows few = fill("D:\\pocos", 15);
  const Rows many = fill("D:\\muchos", 16);
  // One after the other, in two lists and with titles between.
  Rows first, second;
  for (int i = 0; i < 16; ++i) {
    Rows& rows = i % 2 == 0 ? first : second;
    const auto at = static_cast<std::size_t>(i);
    rows.push_back("1 --> D:\\p.vip");
    if (at < few.size()) rows.push_back(few[at]);
    rows.push_back(many[at]);
  }
  const std::string offered = fill("D:\\libres", 1).front();
  EXPECT_THAT(same_as_any({offered}, {&first, &second}), ElementsAre(false));
  EXPECT_THAT(disk.listings, ElementsAre(Pair("D:\\muchos\\", 1)));
  EXPECT_THAT(infos, ::testing::UnorderedElementsAreArray(few));
}

TEST_F(UsedGuard, asks_no_more_for_a_lost_file_of_a_listed_folder_but_for_a_short_name) {
  const Rows there = fill("D:\\a", 3);
  const std::string offered = fill("D:\\libres", 1).front();
  tree.listing("D:\\a\\");
  EXPECT_THAT(same({offered}, Rows{there[0], "D:\\a\\lost.wav", "D:\\a\\LOST~1.WAV"}),
              ElementsAre(false));
  EXPECT_THAT(infos, ElementsAre("D:\\a\\LOST~1.WAV"));
}

TEST_F(UsedGuard, asks_once_for_each_folder_and_for_no_single_file_where_no_link_is_met) {
  Rows used = fill("D:\\a", 20);
  Rows offered = fill("D:\\b", 20);
  for (const std::string& row : fill("D:\\c", 3)) used.push_back(row);
  for (const std::string& row : fill("D:\\d", 3)) offered.push_back(row);
  tree.listing("D:\\b\\");
  // Now of one folder and now of another.
  std::swap(used[1], used[21]);
  std::swap(offered[1], offered[21]);
  EXPECT_THAT(same(offered, used), Each(false));
  EXPECT_THAT(identities, UnorderedElementsAre(Pair("D:\\a\\", 1), Pair("D:\\b\\", 1),
                                               Pair("D:\\c\\", 1), Pair("D:\\d\\", 1)));
}

TEST_F(UsedGuard, asks_what_links_lead_to_only_where_one_is_met) {
  const Rows used = fill("D:\\a", 2);
  const Rows offered = fill("D:\\b", 2);
  system::FileInfo link;
  link.link = true;
  disk.add_file("D:\\a\\link.wav", link);
  EXPECT_THAT(same(offered, Rows{used[0], used[1], "D:\\a\\link.wav"}), Each(false));
  EXPECT_EQ(identities.count("D:\\a\\link.wav"), 1u);
  EXPECT_EQ(identities.count(used[0]), 0u) << "it is no link";
  EXPECT_EQ(identities.count(offered[0]), 1u) << "the link might lead to it";
}

TEST_F(UsedGuard, an_offered_row_in_a_folder_that_has_gone_is_compared_by_its_path_alone) {
  const Rows used = fill("D:\\a", 2);
  EXPECT_THAT(same({"D:\\gone\\n0.wav", "D:\\A\\N0.WAV"}, used), ElementsAre(false, true));
}

TEST_F(UsedGuard, takes_two_paths_for_one_exactly_if_their_comparable_forms_are_equal) {
  constexpr std::string_view kPieces[] = {"a", "A",  "b.wav", ".", "..",
                                          " ", "\\", "/",     ":", "D:\\"};
  int equal = 0;
  for (std::uint64_t seed = 0; seed < 50'000; ++seed) {
    Dice dice(seed);
    const auto path = [&] {
      std::string text;
      for (auto count = dice.below(6); count > 0; --count) {
        text += kPieces[dice.below(std::size(kPieces))];
      }
      return text;
    };
    // Mostly paths that differ little.
    const std::string used = "D:\\" + path();
    std::string offered = dice.below(2) == 0 ? text::upper(used) + path() : path();
    if (dice.below(3) == 0) offered.insert(dice.below(offered.size() + 1), "\\");
    const bool one = text::same_file_key(used) == text::same_file_key(offered);
    ASSERT_THAT(same({offered}, {used}), ElementsAre(one)) << used << "   " << offered;
    equal += one ? 1 : 0;
  }
  EXPECT_GT(equal, 1000);
}

TEST_F(UsedGuard, asks_no_more_at_all_once_it_has_to_stop) {
  const Rows used = fill("D:\\a", 3);
  Rows offered = fill("D:\\b", 2);
  system::FileInfo link;
  link.link = true;
  disk.add_file("D:\\b\\link.wav", link);
  offered.push_back("D:\\b\\link.wav");
  int turns = 0;
  const auto run = [&](int last) {
    work::FolderTree fresh(files);
    fresh.listing("D:\\b\\");
    turns = 0;
    const auto candidates = candidates_of(offered, fresh);
    return project::same_as_used(candidates, all_of(candidates), {&used}, files, fresh,
                                 [&] { return ++turns != last; });
  };
  EXPECT_THAT(run(0), SizeIs(3));
  const int all = turns;
  ASSERT_EQ(all, 3 + 3 + 3 + 3 + 3) << "two passes over the used rows, one over the offered, and "
                                       "one more over each as a link is offered";
  for (int last = 1; last <= all; ++last) {
    run(last);
    EXPECT_EQ(turns, last);
  }
}

}  // namespace
}  // namespace ordelan::test
