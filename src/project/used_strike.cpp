#include "project/used_strike.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "text/paths.h"
#include "text/row_table.h"

namespace ordelan::project {
namespace {

using Index = text::RowTable::Row;
constexpr Index kNone = text::RowTable::kNone;
constexpr std::size_t kRowsBetweenTurns = 4096;

// The candidates that are left, in their order: each knows its neighbours, so that taking one out
// moves nothing.
class Remaining {
 public:
  explicit Remaining(std::size_t count) : next_(count), previous_(count), struck_(count, false) {
    for (std::size_t i = 0; i < count; ++i) {
      next_[i] = i + 1 < count ? static_cast<Index>(i + 1) : kNone;
      previous_[i] = i > 0 ? static_cast<Index>(i - 1) : kNone;
    }
  }

  bool is_struck(Index i) const { return struck_[i]; }

  // Takes one out and gives the one after it, kNone at the end.
  Index strike(Index i) {
    struck_[i] = true;
    if (previous_[i] != kNone) next_[previous_[i]] = next_[i];
    if (next_[i] != kNone) previous_[next_[i]] = previous_[i];
    return next_[i];
  }

  std::vector<bool> take() { return std::move(struck_); }

 private:
  std::vector<Index> next_;
  std::vector<Index> previous_;
  std::vector<bool> struck_;
};

// The candidates of each name, in their order: chains through one array, as most names have one.
class ByName {
 public:
  // Stops early, with a part of the candidates, when `go_on` gives false.
  ByName(const Candidates& candidates, const std::function<bool(std::size_t)>& go_on)
      : candidates_(candidates),
        names_(candidates.files()),
        first_(candidates.files(), kNone),
        after_(candidates.size(), kNone) {
    std::vector<Candidates::File> namesake(candidates.files());
    for (Candidates::File file = 0; file < candidates.files(); ++file) {
      if (file % kRowsBetweenTurns == 0 && !go_on(0)) return;
      namesake[file] = names_.find_or_put(file, [this](Index each) { return name_of(each); });
    }
    for (std::size_t i = candidates.size(); i-- > 0;) {
      if (i % kRowsBetweenTurns == 0 && !go_on(0)) return;
      after_[i] = std::exchange(first_[namesake[candidates[i]]], static_cast<Index>(i));
    }
  }

  Index first(std::string_view wanted) const {
    const Index file = names_.find(wanted, [this](Index each) { return name_of(each); });
    return file == kNone ? kNone : first_[file];
  }
  Index after(Index i) const { return after_[i]; }

 private:
  std::string_view name_of(Index file) const { return candidates_.name(file); }

  const Candidates& candidates_;
  text::RowTable names_;      // the first file of each name
  std::vector<Index> first_;  // of such a file: where its name first stands in the order
  std::vector<Index> after_;
};

// Whether candidates have the bytes of a used file, each asked for once: a file that was listed
// with two folders stands in the order twice.
class CopiesOfUsed {
 public:
  CopiesOfUsed(const Candidates& candidates, const DiskQuestions& disk)
      : candidates_(candidates), disk_(disk), asked_(candidates.files()) {}

  bool holds(std::size_t index, const std::string& used, Candidates::File file) {
    Answer& last = asked_[file];
    if (last.after != index + 1) {
      last = {static_cast<std::uint32_t>(index + 1), disk_.equal(used, candidates_.path(file))};
    }
    return last.equal;
  }

 private:
  struct Answer {
    std::uint32_t after = 0;  // one more than the used file's index
    bool equal = false;
  };
  const Candidates& candidates_;
  const DiskQuestions& disk_;
  std::vector<Answer> asked_;
};

bool protects(const std::string& used) {
  return used.find('>') == std::string::npos && used.find("FreezeData") == std::string::npos;
}

}  // namespace

std::vector<bool> strike_used(const std::vector<std::string>& used, const Candidates& candidates,
                              const DiskQuestions& disk,
                              const std::function<bool(std::size_t index)>& go_on) {
  Remaining remaining(candidates.size());
  const ByName by_name(candidates, go_on);
  CopiesOfUsed copies(candidates, disk);
  for (std::size_t i = 0; i < used.size(); ++i) {
    if (!go_on(i)) break;
    if (!protects(used[i])) continue;
    std::optional<bool> used_exists;
    Index unseen = kNone;  // it has moved into the place of one that went
    for (Index c = by_name.first(text::file_name(used[i])); c != kNone; c = by_name.after(c)) {
      if (remaining.is_struck(c) || c == unseen) continue;
      const Candidates::File file = candidates[c];
      const bool same = candidates.is_at(file, used[i]);
      if (!same) {
        if (!used_exists) used_exists = disk.exists(used[i]);
        const bool both = *used_exists && candidates.plain(file);
        if (both && !copies.holds(i, used[i], file)) continue;
      }
      unseen = remaining.strike(c);
      if (same && unseen != kNone) unseen = remaining.strike(unseen);
    }
  }
  return remaining.take();
}

}  // namespace ordelan::project
