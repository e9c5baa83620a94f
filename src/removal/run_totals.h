// What a run would take: how much goes, how much is copied, and on which drives the bin is no help.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "system/platform.h"
#include "work/work_in_hand.h"

namespace ordelan::removal {

// A drive of rows that cannot go to its bin.
struct DriveWithoutBin {
  std::string root;           // with its backslash
  std::size_t without = 0;    // rows for which the drive has no bin
  std::size_t too_large = 0;  // rows larger than its bin
  bool operator==(const DriveWithoutBin&) const = default;
};

struct RunTotals {
  std::uint64_t ticked = 0;  // bytes of the rows that go
  std::uint64_t copied = 0;  // bytes of all rows: those that stay are copied too
  // The most room that the copies take at one time, where each row that goes for good makes room on
  // the same drive before the next one is copied.
  std::uint64_t room = 0;
  std::vector<DriveWithoutBin> no_bin;  // in the order of the rows
};

class RunSizes {
 public:
  // `work` has the sizes of the rows as they were listed; the disk is asked for those of others.
  // The arguments must outlive this.
  RunSizes(const work::WorkInHand& work, const system::Platform& platform)
      : work_(work), platform_(platform) {}

  // `goes` gives whether the i-th row is to be removed; `to_bin` whether it goes to the bin;
  // `backup` is the folder of the copies, empty for none. Files that are missing take nothing.
  RunTotals totals(const std::vector<std::string>& rows,
                   const std::function<bool(std::size_t)>& goes, bool to_bin,
                   const std::string& backup) const;

  // How large a file at that path may be to go to the bin; 0 where there is none. Each drive is
  // asked once.
  std::uint64_t bin_capacity(std::string_view path) const;

 private:
  std::optional<std::uint64_t> volume(const std::string& folder) const;

  const work::WorkInHand& work_;
  const system::Platform& platform_;
  mutable std::unordered_map<std::string, std::uint64_t> bins_;                    // by root
  mutable std::unordered_map<std::string, std::optional<std::uint64_t>> volumes_;  // by folder
};

// What is said of a drive: "En E: no hay papelera: 3 archivos se borrarían para siempre".
std::string sentence(const DriveWithoutBin& drive);

// The room on the drive of a folder; nothing where it is not known.
std::optional<std::uint64_t> free_room(const system::Platform& platform, const std::string& folder);

// How much is copied, and the room for it: "Copia: 1,50 GB     Libre en E:\: 12,00 GB". `backup` is
// empty where no folder has been chosen yet.
std::string room_line(const system::Platform& platform, const RunTotals& totals,
                      const std::string& backup);

}  // namespace ordelan::removal
