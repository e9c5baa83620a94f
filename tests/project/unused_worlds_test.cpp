// The fast search for unused files against the literal one, over thousands of random little worlds.
#include <gmock/gmock.h>

#include <cstdlib>
#include <set>
#include <sstream>

#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "project/candidates_of.h"
#include "project/literal_analysis.h"
#include "project/memory_folders.h"
#include "project/repeated_rows.h"
#include "project/unused_analysis.h"
#include "project/used_strike.h"
#include "support/fake_media.h"
#include "support/fake_services.h"
#include "support/hostile_bytes.h"
#include "text/rows.h"

namespace ordelan::test {
namespace {

using Rows = std::vector<std::string>;

std::uint64_t worlds_to_run() {
  const char* asked = std::getenv("ORDELAN_WORLDS");
  return asked == nullptr ? 20'000 : std::strtoull(asked, nullptr, 10);
}

template <class Table>
std::string one_of(Dice& dice, const Table& table) {
  return std::string(table[dice.below(std::size(table))]);
}

std::string shown(const Rows& rows) {
  std::string text;
  for (const std::string& row : rows) text += "\n    " + row;
  return text;
}

// Whether the fast strike leaves the very rows that the literal one leaves.
::testing::AssertionResult strikes_agree(const Rows& used, const Rows& candidates,
                                         const project::DiskQuestions& disk) {
  std::vector<Candidate> left = numbered(candidates);
  literal_strike(used, left, disk);
  std::vector<bool> wanted(candidates.size(), true);
  for (const Candidate& candidate : left) wanted[candidate.place] = false;
  const auto found = candidates_of(candidates, [&](const std::string& path) {
    return work::FolderTree::Entry{"", disk.exists(path), false, 0, 0, 0};
  });
  const auto struck = project::strike_used(used, found, disk, [](std::size_t) { return true; });
  if (struck == wanted) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "used:" << shown(used) << "\ncandidates:" << shown(candidates);
}

TEST(UnusedWorlds, the_strike_alone_leaves_what_the_double_loop_leaves) {
  constexpr const char* kFolders[] = {"D:\\", "D:\\b\\", "D:\\FreezeData\\"};
  constexpr const char* kNames[] = {"a.wav", "A.wav", "b.wav", "[a].wav", "x?.wav", ""};
  const std::uint64_t worlds = worlds_to_run() * 10;
  std::uint64_t with_removals = 0;
  for (std::uint64_t seed = 0; seed < worlds; ++seed) {
    Dice dice(seed);
    // Few names and folders make many meetings.
    const auto names = 1 + dice.below(std::size(kNames));
    const auto path = [&] {
      return one_of(dice, kFolders) + std::string(kNames[dice.below(names)]);
    };
    Rows used(1 + dice.below(5));
    for (std::string& row : used) {
      row = path();
      if (dice.below(12) == 0) row = "1 --> " + row;
    }
    Rows candidates(dice.below(9));
    for (std::string& row : candidates) row = path();
    const std::uint64_t salt = dice.next();
    const auto exists = [salt](const std::string& row) {
      return !row.empty() && (std::hash<std::string>()(row) ^ salt) % 4 != 0;
    };
    const auto equal = [salt](const std::string& a, const std::string& b) {
      return (std::hash<std::string>()(a + "|" + b) ^ salt) % 2 != 0;
    };
    ASSERT_TRUE(strikes_agree(used, candidates, {exists, equal})) << "world " << seed;
    std::vector<Candidate> left = numbered(candidates);
    literal_strike(used, left, {exists, equal});
    if (left.size() < candidates.size()) ++with_removals;
  }
  EXPECT_GT(with_removals, worlds / 4) << "worlds in which nothing happens show nothing";
}

TEST(UnusedWorlds, repeats_go_as_the_double_loop_takes_them) {
  constexpr const char* kRows[] = {"D:\\a.wav",  "D:\\A.wav",       "D:\\b.wav", "1 --> D:\\a.vip",
                                   "----------", "2 --> D:\\a.vip", ""};
  const std::uint64_t worlds = worlds_to_run();
  for (std::uint64_t seed = 0; seed < worlds; ++seed) {
    Dice dice(seed);
    Rows rows(dice.below(12));
    for (std::string& row : rows) row = one_of(dice, kRows);
    Rows wanted = rows;
    literal_file_repeats(wanted);
    const auto repeated = project::repeated_rows(
        rows, [](const std::string& row) { return !text::is_file_row(row); });
    Rows left;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (!repeated[i]) left.push_back(rows[i]);
    }
    ASSERT_EQ(left, wanted) << "world " << seed << shown(rows);
  }
}

// Folders with files, projects in some of them, and what those use.
class World {
 public:
  explicit World(std::uint64_t seed) : dice_(seed), files(dice_.below(3) == 0) {
    add_folders();
    add_files();
    add_projects();
    add_used();
  }

 private:
  Dice dice_;
  Rows folders_ = {"D:\\"};
  Rows paths_;

 public:
  MemoryFolders files;
  Rows projects;
  Rows used;
  std::string seen_before;  // a folder that has been listed before the search

 private:
  void add_folders() {
    constexpr const char* kNames[] = {"Mix",   "Copia", "FreezeData", "mix",
                                      "p.vip", "Uno",   "Uno.wav"};
    for (auto count = dice_.below(7); count > 0; --count) {
      const std::string path = one_of(dice_, folders_) + one_of(dice_, kNames);
      const bool link = dice_.below(12) == 0;
      if (files.add_folder(path, link)) folders_.push_back(path + "\\");
    }
    if (dice_.below(2) == 0) seen_before = one_of(dice_, folders_);
  }

  std::string some_name() {
    constexpr const char* kNames[] = {
        "a.wav",  "a.wav",   "b.wav",   "A.wav", "a.WAV", "c.wav",   "a.mp3",
        "x.flac", "x.fla",   "x.aiff",  "c.aif", "o.ogg", "a.h2",    "a.hdp",
        "x.cue",  "[a].wav", "[b].wav", "m.m4a", "w.wma", "n.txt",   "FreezeData.wav",
        "a.wavx", "a.hs",    "a.hsx",   "sin",   "d.hz",  "e.h2.wav"};
    return one_of(dice_, kNames);
  }

  void add_files() {
    constexpr const char* kContents[] = {"", "1", "2", "11", "12"};
    for (auto count = dice_.below(16); count > 0; --count) {
      const std::string path = one_of(dice_, folders_) + some_name();
      const bool hidden = dice_.below(12) == 0;
      const bool locked = dice_.below(12) == 0;
      if (files.add_file(path, one_of(dice_, kContents), hidden, locked)) paths_.push_back(path);
    }
  }

  void add_projects() {
    constexpr const char* kNames[] = {"p.vip", "q.vip", "r_BAK.vip"};
    for (auto count = dice_.below(5); count > 0; --count) {
      const std::string path = one_of(dice_, folders_) + one_of(dice_, kNames);
      if (dice_.below(5) != 0) files.add_file(path, "project", dice_.below(12) == 0);
      projects.push_back(text::project_row(projects.size() + 1, path));
    }
  }

  void add_used() {
    for (auto count = dice_.below(8); count > 0; --count) used.push_back(some_used_row());
  }

  std::string some_used_row() {
    switch (dice_.below(10)) {
      case 0:
        return "1 --> " + one_of(dice_, folders_) + "p.vip";
      case 1:
        return one_of(dice_, folders_) + some_name();
      case 2:
        return "E:\\Otro\\" + some_name();
      case 3:
        return used.empty() ? "----------" : one_of(dice_, used);
      case 4:
        return paths_.empty() ? "" : text::lower(one_of(dice_, paths_));
      default:
        return paths_.empty() ? "D:\\a.wav" : one_of(dice_, paths_);
    }
  }
};

// Everything that the search works on.
struct Bench {
  explicit Bench(system::FileSystem& files)
      : platform{files, dialogs, backend, clock, regional, drives, shell, media} {}

  HandClock clock;
  FixedRegional regional;
  FakeDrives drives;
  FakeShell shell;
  FakeMedia media;
  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend{clock};
  system::Platform platform;
  ui::Window window{backend, "window"};
  work::WorkLists lists{window};
  work::StatusStrip strip{window};
  work::WorkInHand work;
};

std::string described(const World& world) {
  return "projects:" + shown(world.projects) + "\nused:" + shown(world.used);
}

TEST(UnusedWorlds, the_whole_search_gives_what_the_literal_one_gives_and_offers_nothing_used) {
  const std::uint64_t worlds = worlds_to_run();
  std::uint64_t with_offers = 0;
  std::uint64_t with_repeats = 0;
  std::uint64_t with_strikes = 0;
  for (std::uint64_t seed = 0; seed < worlds; ++seed) {
    World world(seed);
    Bench bench(world.files);
    LiteralAnalysis literal(world.files);
    literal.ListProyectos = world.projects;
    literal.ListUtilizados = world.used;
    literal.LabelErase = {"antes 0", "antes 1"};
    bench.lists.ListProyectos.add(world.projects);
    bench.lists.ListUtilizados.add(world.used);
    for (int i = 0; i < 2; ++i) {
      bench.lists.LabelErase[i].set_caption(literal.LabelErase[static_cast<std::size_t>(i)]);
      bench.lists.LabelErase[i].set_visible(false);
    }

    auto job = work::Job::join(bench.work, bench.platform);
    if (!world.seen_before.empty()) job.folders().listing(world.seen_before);
    project::LeftOut left_out(bench.work);
    project::UnusedAnalysis fast(bench.platform, bench.lists, bench.strip, left_out);
    const auto found = fast.ListarArchivosCarpetas(job);
    literal.ListarArchivosCarpetas();
    ASSERT_EQ(paths_of(found), literal.List1) << "world " << seed << described(world);
    const Rows candidates = literal.List1;
    fast.BuscarNoUtilizados(job, found);
    literal.BuscarNoUtilizados();
    ASSERT_EQ(bench.lists.List1.rows(), literal.List1)
        << "world " << seed << described(world) << "\ncandidates:" << shown(candidates);
    ASSERT_EQ(bench.lists.ListBorrar.rows(), literal.ListBorrar)
        << "world " << seed << described(world) << "\ncandidates:" << shown(candidates);
    for (int i = 0; i < 2; ++i) {
      const auto k = static_cast<std::size_t>(i);
      ASSERT_EQ(bench.lists.LabelErase[i].caption(), literal.LabelErase[k]) << "world " << seed;
      ASSERT_EQ(bench.lists.LabelErase[i].visible(), literal.LabelErase_visible[k])
          << "world " << seed;
    }

    const auto& offered = bench.lists.ListBorrar.rows();
    for (const std::string& row : world.used) {
      if (row.find("FreezeData") != std::string::npos) continue;
      ASSERT_THAT(offered, ::testing::Not(::testing::Contains(row)))
          << "world " << seed << described(world) << "\ncandidates:" << shown(candidates);
    }
    with_offers += offered.empty() ? 0 : 1;
    with_strikes += literal.List1.size() < candidates.size() ? 1 : 0;
    with_repeats +=
        std::set<std::string>(candidates.begin(), candidates.end()).size() < candidates.size() ? 1
                                                                                               : 0;
  }
  EXPECT_GT(with_offers, worlds / 4);
  EXPECT_GT(with_strikes, worlds / 4);
  EXPECT_GT(with_repeats, worlds / 20);
}

}  // namespace
}  // namespace ordelan::test
