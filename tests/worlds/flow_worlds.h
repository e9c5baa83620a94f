// Runs random studios through the real program and compares what it shows with the reference.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/program_bench.h"
#include "worlds/reference_program.h"
#include "worlds/studio.h"

namespace ordelan::test {

// How many worlds all the tests run together, and the seed of the first one: ORDELAN_FLOW_WORLDS
// and ORDELAN_FLOW_SEED.
std::uint64_t flow_worlds();
std::uint64_t flow_seed();

// Lets temporary folders stand in memory for its lifetime, where the machine has room for that.
class DiskInMemory {
 public:
  DiskInMemory();
  ~DiskInMemory();
  DiskInMemory(const DiskInMemory&) = delete;
  DiskInMemory& operator=(const DiskInMemory&) = delete;

 private:
  bool had_one_ = false;
  std::string before_;
};

// One world: a studio on a disk of its own, the program started on it, and the reference.
class FlowWorld {
 public:
  FlowWorld(std::uint64_t seed, Studio::Plan plan);

  // Does one action in the program; in the reference.
  void act(const Action& action);
  void act_in_reference(const Action& action);

  // What the program shows that the reference does not: the name of the first list or caption that
  // differs, empty if none does.
  std::string first_difference() const;
  // A row that may not be offered: one that is no file, or a file that is used under any name.
  struct Forbidden {
    std::string kind;  // empty if there is none
    std::string description;
  };
  Forbidden forbidden_offer() const;
  // An offered file that lies in no folder of a listed project that exists.
  Forbidden offer_out_of_reach() const;
  // A project that is left out and is not among those shown as such, or is shown with a
  // wrong reason, or is shown although it was decoded. Only after the reference did the same.
  Forbidden wrongly_left_out() const;
  // The world and both sides of every list, for a person to read.
  std::string description() const;

  ProgramBench bench;
  Studio studio;
  reference::Program wanted;

 private:
  struct Field {
    std::string name;
    reference::Rows program;
    reference::Rows reference;
  };
  std::vector<Field> fields() const;

  std::filesystem::path root_;  // what D: stands for
};

// What happened in many worlds.
struct FlowTally {
  std::uint64_t worlds = 0;
  std::map<std::string, std::uint64_t> counts;       // by what happened
  std::map<std::string, std::uint64_t> differences;  // by what differed
  std::uint64_t failures = 0;
  // The failing world that takes the fewest words, for each thing that differed.
  std::map<std::string, std::string> smallest;

  std::uint64_t operator[](const std::string& what) const {
    const auto found = counts.find(what);
    return found == counts.end() ? 0 : found->second;
  }
  void fail(const std::string& what, const std::string& description);
  std::string summary() const;
};

// Runs the worlds of one plan, and compares every list and caption with the reference.
FlowTally run_flows(Studio::Plan plan);

// Runs the worlds in which something happens in the middle of the work: a cancel, a reset, a
// project that goes or one that comes. Then the reference says only what may be offered.
FlowTally run_interrupted_flows();

}  // namespace ordelan::test
