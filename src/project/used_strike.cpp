#include "project/used_strike.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

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
  ByName(const std::vector<std::string>& rows, const std::function<bool(std::size_t)>& go_on)
      : rows_(rows), names_(rows.size()), first_(rows.size()), behind_(rows.size(), kNone) {
    for (std::size_t i = rows.size(); i-- > 0;) {
      if (i % kRowsBetweenTurns == 0 && !go_on(0)) return;
      const std::string_view name = text::file_name(rows[i]);
      names_[i] = {static_cast<std::uint32_t>(name.data() - rows[i].data()),
                   static_cast<std::uint32_t>(name.size())};
      const auto row = static_cast<Index>(i);
      behind_[i] = first_.put(row, [this](Index each) { return name_of(each); });
    }
  }

  Index first(std::string_view wanted) const {
    return first_.find(wanted, [this](Index each) { return name_of(each); });
  }
  Index behind(Index i) const { return behind_[i]; }

 private:
  // Where a row's name stands in it.
  struct Name {
    std::uint32_t at;
    std::uint32_t size;
  };
  std::string_view name_of(Index i) const {
    return std::string_view(rows_[i]).substr(names_[i].at, names_[i].size);
  }

  const std::vector<std::string>& rows_;
  std::vector<Name> names_;
  text::RowTable first_;
  std::vector<Index> behind_;
};

bool protects(const std::string& used) {
  return used.find('>') == std::string::npos && used.find("FreezeData") == std::string::npos;
}

}  // namespace

std::vector<bool> strike_used(const std::vector<std::string>& used,
                              const std::vector<std::string>& candidates, const DiskQuestions& disk,
                              const std::function<bool(std::size_t index)>& go_on) {
  Remaining remaining(candidates.size());
  const ByName by_name(candidates, go_on);
  for (std::size_t i = 0; i < used.size(); ++i) {
    if (!go_on(i)) break;
    if (!protects(used[i])) continue;
    std::optional<bool> used_exists;
    Index unseen = kNone;  // it has moved into the place of one that went
    for (Index c = by_name.first(text::file_name(used[i])); c != kNone; c = by_name.behind(c)) {
      if (remaining.is_struck(c) || c == unseen) continue;
      const std::string& candidate = candidates[c];
      const bool same = candidate == used[i];
      if (!used_exists) used_exists = disk.exists(used[i]);
      const bool both = *used_exists && (same || disk.exists(candidate));
      const bool goes = !both || same || disk.equal(used[i], candidate);
      if (!goes) continue;
      unseen = remaining.strike(c);
      if (same && unseen != kNone) unseen = remaining.strike(unseen);
    }
  }
  return remaining.take();
}

}  // namespace ordelan::project
