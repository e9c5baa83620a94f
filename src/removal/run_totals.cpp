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
  ListedSizes(const work::WorkInHand& work, system::FileSystem& files) : files_(files) {
    if (!work.FilasVistas) return;
    rows_ = work.FilasVistas;
    const std::size_t count = std::min(rows_->size(), work.VistosBorrar.size());
    sizes_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      sizes_.try_emplace((*rows_)[i], work.VistosBorrar[i].size);
    }
  }

  std::uint64_t of(const std::string& row) const {
    const auto listed = sizes_.find(row);
    if (listed != sizes_.end()) {
      return listed->second == work::Visto::kMissing ? 0 : listed->second;
    }
    const auto info = files_.info(row);
    return info ? info->size : 0;
  }

 private:
  system::FileSystem& files_;
  std::shared_ptr<const std::vector<std::string>> rows_;  // whose texts are the keys of the next
  std::unordered_map<std::string_view, std::uint64_t> sizes_;
};

}  // namespace

std::uint64_t RunSizes::bin_capacity(std::string_view path) const {
  const auto [bin, added] = bins_.try_emplace(root_of(path));
  if (added) bin->second = platform_.shell.bin_capacity(bin->first);
  return bin->second;
}

RunTotals RunSizes::totals(const std::vector<std::string>& rows,
                           const std::function<bool(std::size_t)>& goes, bool to_bin,
                           const std::string& backup) const {
  // Of a drive: how much its bin takes, and whether the copies lie on its volume.
  struct Drive {
    std::uint64_t bin = 0;
    bool has_copies = false;
  };
  std::unordered_map<std::string, Drive> drives;
  const auto volume_of = [&](const std::string& folder) -> std::optional<std::uint64_t> {
    const auto identity = platform_.files.identity(folder);
    return identity ? std::optional(identity->volume) : std::nullopt;
  };
  const auto copies = backup.empty() ? std::nullopt : volume_of(system::with_backslash(backup));
  RunTotals totals;
  std::uint64_t taken = 0;
  const ListedSizes sizes(work_, platform_.files);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::uint64_t size = sizes.of(rows[i]);
    totals.copied += size;
    taken += size;
    totals.room = std::max(totals.room, taken);
    if (!goes(i)) continue;
    totals.ticked += size;
    const std::string root = root_of(rows[i]);
    const auto [drive, added] = drives.try_emplace(root);
    if (added) drive->second = {bin_capacity(root), copies && copies == volume_of(root)};
    if (!to_bin) {
      if (drive->second.has_copies) taken -= size;
      continue;
    }
    if (drive->second.bin > 0 && size <= drive->second.bin) continue;
    auto found = std::find_if(totals.no_bin.begin(), totals.no_bin.end(),
                              [&](const DriveWithoutBin& each) { return each.root == root; });
    if (found == totals.no_bin.end()) {
      found = totals.no_bin.insert(found, DriveWithoutBin{root, 0, 0});
    }
    ++(drive->second.bin > 0 ? found->too_large : found->without);
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
