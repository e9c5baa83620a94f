// Whole flows over thousands of random studios: what the program shows is what the reference shows,
// and no used file is ever offered.
#include "worlds/flow_worlds.h"

#include <gmock/gmock.h>

namespace ordelan::test {
namespace {

// Fails with the smallest of the worlds that failed.
void expect_agreement(const FlowTally& tally) {
  EXPECT_GT(tally.worlds, 0u);
  EXPECT_EQ(tally.failures, 0u) << tally.summary();
}

// Without this, worlds in which nothing happens would agree. A few worlds have no shares.
void expect_share(const FlowTally& tally, const char* what, double share) {
  if (tally.worlds < 400) return;
  EXPECT_GE(static_cast<double>(tally[what]), share * static_cast<double>(tally.worlds)) << what;
}

void expect_variety(const FlowTally& tally) {
  expect_share(tally, "projects", 0.5);
  expect_share(tally, "several projects", 0.1);
  expect_share(tally, "offers", 0.2);
  expect_share(tally, "strikes", 0.3);
  expect_share(tally, "guarded", 0.02);
  expect_share(tally, "brackets", 0.2);
  expect_share(tally, "frozen", 0.02);
  expect_share(tally, "lost files", 0.2);
  expect_share(tally, "left out", 0.2);
  expect_share(tally, "doubtless reasons", 0.1);
  expect_share(tally, "long names", 0.02);
  expect_share(tally, "other spellings", 0.1);
  expect_share(tally, "refusals", 0.1);
}

TEST(FlowWorlds, opening_a_project_lists_its_folder) {
  const FlowTally tally = run_flows(Studio::Plan::open_folder);
  expect_agreement(tally);
  expect_variety(tally);
}

TEST(FlowWorlds, opening_a_project_lists_the_folders_below_it_too) {
  const FlowTally tally = run_flows(Studio::Plan::open_tree);
  expect_agreement(tally);
  expect_variety(tally);
  expect_share(tally, "repeats", 0.01);
}

TEST(FlowWorlds, a_drop_sweeps_what_was_dropped) {
  const FlowTally tally = run_flows(Studio::Plan::drop);
  expect_agreement(tally);
  expect_variety(tally);
  expect_share(tally, "mixed drops", 0.3);
  expect_share(tally, "dropped too late", 0.01);
}

TEST(FlowWorlds, a_second_action_begins_afresh) {
  const FlowTally tally = run_flows(Studio::Plan::two_actions);
  expect_agreement(tally);
  expect_variety(tally);
  expect_share(tally, "mixed drops", 0.15);
}

TEST(FlowWorlds, slashes_and_the_longest_names_change_nothing) {
  const FlowTally tally = run_flows(Studio::Plan::odd_paths);
  expect_agreement(tally);
  expect_share(tally, "slashes", 0.15);
}

TEST(FlowWorlds, what_happens_in_the_middle_offers_no_used_file) {
  const FlowTally tally = run_interrupted_flows();
  expect_agreement(tally);
  for (const char* what : {"cancel", "reset", "project come"}) {
    expect_share(tally, what, 0.1);
  }
  expect_share(tally, "project gone before the search", 0.05);
  expect_share(tally, "offers after all", 0.1);
}

}  // namespace
}  // namespace ordelan::test
