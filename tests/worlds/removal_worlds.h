// Random studios that are opened, reviewed, cleaned and recovered.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace ordelan::test {

// How many worlds each of the tests runs, and the seed of the first one: ORDELAN_REMOVAL_WORLDS and
// ORDELAN_REMOVAL_SEED.
std::uint64_t removal_worlds();
std::uint64_t removal_seed();

struct RemovalTally {
  std::uint64_t worlds = 0;  // those in which a run could begin
  std::uint64_t failures = 0;
  std::map<std::string, std::uint64_t> counts;  // by what happened
  std::map<std::string, std::string> smallest;  // the shortest failing world, by what failed

  std::string summary() const;
};

// With CheckComprobar unticked: disk, log, rows, labels and calls of the desktop are those of the
// described run.
RemovalTally run_described_removals();

// With CheckComprobar ticked, now and then with something in the middle: no used file is touched,
// what must stay stays, and recovery brings back every byte.
RemovalTally run_checked_removals();

}  // namespace ordelan::test
