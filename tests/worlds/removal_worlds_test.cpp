// Removals over hundreds of random studios.
#include "worlds/removal_worlds.h"

#include <gtest/gtest.h>

#include <iostream>

namespace ordelan::test {
namespace {

// Without this, worlds in which nothing happens would do. A few worlds have no shares.
void expect_share(const RemovalTally& tally, const char* what, double share) {
  if (tally.worlds < 200) return;
  const auto found = tally.counts.find(what);
  const auto count = found == tally.counts.end() ? 0u : found->second;
  EXPECT_GE(static_cast<double>(count), share * static_cast<double>(tally.worlds)) << what;
}

TEST(RemovalWorlds, without_the_careful_look_a_run_is_the_described_one) {
  const RemovalTally tally = run_described_removals();
  std::cout << "  " << tally.worlds << " worlds\n";
  EXPECT_GE(tally.worlds, removal_worlds());
  EXPECT_EQ(tally.failures, 0u) << tally.summary();
  expect_share(tally, "with backup", 0.4);
  expect_share(tally, "removed", 0.5);
  expect_share(tally, "cancelled", 0.1);
  expect_share(tally, "questions", 0.1);
  expect_share(tally, "side files", 0.01);
  expect_share(tally, "the folder is being cleaned", 0.1);
}

TEST(RemovalWorlds, with_the_careful_look_nothing_is_lost_and_everything_comes_back) {
  const RemovalTally tally = run_checked_removals();
  std::cout << "  " << tally.worlds << " worlds\n";
  EXPECT_GE(tally.worlds, removal_worlds());
  EXPECT_EQ(tally.failures, 0u) << tally.summary();
  expect_share(tally, "with backup", 0.4);
  expect_share(tally, "files removed", 0.2);
  expect_share(tally, "files brought back", 0.15);
  expect_share(tally, "disturbed", 0.03);
}

}  // namespace
}  // namespace ordelan::test
