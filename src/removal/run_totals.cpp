#include "removal/run_totals.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <unordered_map>

#include "system/file_system.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace ordelan::removal {
namespace {

std::string root_of(std::string_view path) {
  const std::string root = text::root(path);
  return root.empty() ? root : system::with_backslash(root);
}

// Sizes of rows: as they were listed where they were.
class ListedSizes {
 public:
  ListedSizes(const work::WorkInHand& work, system::FileSystem& files)
      : listed_(work.VistosBorrar), files_(files), rows_(work.FilasVistas) {
    if (rows_) count_ = std::min(rows_->size(), listed_.size());
  }

  // Nothing for a file that is missing. Quick for rows in the order of the list.
  std::optional<std::uint64_t> of(const std::string& row) {
    if (const auto place = find(row)) {
      const std::uint64_t size = listed_[*place].size;
      return size == work::Visto::kMissing ? std::nullopt : std::optional(size);
    }
    const auto info = files_.info(row);
    return info ? std::optional(info->size) : std::nullopt;
  }

 private:
  std::optional<std::size_t> find(const std::string& row) {
    // A few rows may have been thrown out of the review in between.
    constexpr std::size_t kAhead = 16;
    for (std::size_t i = next_; i < std::min(count_, next_ + kAhead); ++i) {
      if ((*rows_)[i] == row) {
        next_ = i + 1;
        return i;
      }
    }
    if (places_.empty()) {
      places_.reserve(count_);
      for (std::size_t i = 0; i < count_; ++i) places_.try_emplace((*rows_)[i], i);
    }
    const auto found = places_.find(row);
    if (found == places_.end()) return std::nullopt;
    next_ = found->second + 1;
    return found->second;
  }

  const std::vector<work::Visto>& listed_;
  system::FileSystem& files_;
  std::shared_ptr<const std::vector<std::string>> rows_;
  std::size_t count_ = 0;
  std::size_t next_ = 0;  // where the next row is looked for first
  std::unordered_map<std::string_view, std::size_t> places_;
};

}  // namespace

std::uint64_t RunSizes::bin_capacity(std::string_view path) const {
  const auto [bin, added] = bins_.try_emplace(root_of(path));
  if (added) bin->second = platform_.shell.bin_capacity(bin->first);
  return bin->second;
}

std::optional<std::uint64_t> RunSizes::volume(const std::string& folder) const {
  const auto [known, added] = volumes_.try_emplace(folder);
  if (added) {
    const auto identity = platform_.files.identity(folder);
    if (identity) known->second = identity->volume;
  }
  return known->second;
}

RunTotals RunSizes::totals(const std::vector<std::string>& rows,
                           const std::function<bool(std::size_t)>& goes, bool to_bin,
                           const std::string& backup) const {
  // The drive of a row: how much its bin takes, and whether the copies lie on its volume.
  struct Drive {
    std::string root;
    std::uint64_t bin = 0;
    bool has_copies = false;
  } drive;
  const auto copies = backup.empty() ? std::nullopt : volume(system::with_backslash(backup));
  RunTotals totals;
  std::uint64_t taken = 0;
  ListedSizes sizes(work_, platform_.files);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto listed = sizes.of(rows[i]);
    if (!listed) continue;
    const std::uint64_t size = *listed;
    totals.copied += size;
    taken += size;
    totals.room = std::max(totals.room, taken);
    if (!goes(i)) continue;
    totals.ticked += size;
    if (drive.root.empty() || !rows[i].starts_with(drive.root)) {
      drive.root = root_of(rows[i]);
      drive.bin = bin_capacity(drive.root);
      drive.has_copies = copies && copies == volume(drive.root);
    }
    if (!to_bin) {
      if (drive.has_copies) taken -= size;
      continue;
    }
    if (drive.bin > 0 && size <= drive.bin) continue;
    auto found = std::find_if(totals.no_bin.begin(), totals.no_bin.end(),
                              [&](const auto& each) { return each.root == drive.root; });
    if (found == totals.no_bin.end()) {
      found = totals.no_bin.insert(found, DriveWithoutBin{drive.root, 0, 0});
    }
    ++(drive.bin > 0 ? found->too_large : found->without);
  }
  return totals;
}

std::string sentence(const DriveWithoutBin& drive) {
  const std::string name = drive.root.substr(0, drive.root.size() - 1);
  const auto files = [](std::size_t count) {
    return std::to_string(count) + (count == 1 ? " archivo se borraría para siempre"
                                               : " archivos se borrarían para siempre");
  };
  std::string text;
  if (drive.without > 0) text = "En " + name + " no hay papelera: " + files(drive.without);
  if (drive.too_large > 0) {
    if (!text.empty()) text += ". ";
    text += "En " + name + " la papelera es pequeña: " + files(drive.too_large);
  }
  return text;
}

std::optional<std::uint64_t> free_room(const system::Platform& platform,
                                       const std::string& folder) {
  const auto space = platform.drives.space(root_of(folder));
  return space ? std::optional(space->free) : std::nullopt;
}

std::string room_line(const system::Platform& platform, const RunTotals& totals,
                      const std::string& backup) {
  const char mark = platform.regional.decimal_mark();
  const auto size = [mark](std::uint64_t bytes) {
    return text::format_size(static_cast<double>(bytes), mark);
  };
  std::string line = "Copia: " + size(totals.copied);
  const auto free = backup.empty() ? std::nullopt : free_room(platform, backup);
  if (!free) return line;
  line += "     Libre en " + root_of(backup) + ": " + size(*free);
  if (totals.room > *free) line += "     No cabe";
  return line;
}

}  // namespace ordelan::removal
