#include "work/folder_tree.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::work {
namespace {

// Whether a name with this character is looked up by more than its letters, or is none at all.
bool needs_look_up(char c) {
  static constexpr std::array<bool, 256> kSuch = [] {
    std::array<bool, 256> such{};
    for (const char each : std::string_view("~*?/:<>|\""))
      such[static_cast<unsigned char>(each)] = true;
    return such;
  }();
  return kSuch[static_cast<unsigned char>(c)];
}

}  // namespace

std::vector<std::string> folders_around(const std::string& folder) {
  std::vector<std::string> around;
  const std::size_t root = system::with_backslash(text::root(folder)).size();
  std::string here = system::with_backslash(folder);
  while (root > 1 && here.size() > root) {
    here.pop_back();
    here = text::getPath(here, "\\");
    if (here.size() < root) break;
    around.push_back(here);
  }
  return around;
}

FolderTree::Listing* FolderTree::known(std::string_view folder) const {
  if (auto* const entry = recent_.find(folder)) return &entry->second;
  const auto found = listings_.find(folder);
  if (found == listings_.end()) return nullptr;
  recent_.put(*found);
  return &found->second;
}

const FolderTree::Listing& FolderTree::listing(std::string_view folder) {
  if (const Listing* const found = known(folder)) return *found;
  auto& made = *listings_.try_emplace(std::string(folder)).first;
  recent_.put(made);
  Listing& listing = made.second;
  names_.clear();
  found_.clear();
  const auto visit = [&](const system::FileInfo& entry) {
    found_.push_back({names_.size(), entry.name.size(), entry.folder,
                      !entry.hidden && !entry.system, entry.link, entry.number, entry.size,
                      entry.modified});
    names_ += entry.name;
    return true;
  };
  listing.readable =
      files_.each(folder, system::Detail::names, visit,
                  [&](const system::UnnamedEntry& entry) { listing.unnamed.push_back(entry); });
  if (listing.readable) take_found(listing);
  return listing;
}

// Puts what was found in a folder into its listing, in the order of NTFS.
void FolderTree::take_found(Listing& listing) {
  listing.names = std::make_unique_for_overwrite<char[]>(names_.size());
  std::copy(names_.begin(), names_.end(), listing.names.get());
  const auto name_of = [&](const Found& found) {
    return std::string_view(listing.names.get() + found.name_at, found.name_size);
  };
  std::sort(found_.begin(), found_.end(), [&](const Found& a, const Found& b) {
    return system::name_before(name_of(a), name_of(b));
  });
  const auto folders = std::count_if(
      found_.begin(), found_.end(), [](const Found& found) { return found.folder && !found.link; });
  const auto files =
      std::count_if(found_.begin(), found_.end(), [](const Found& found) { return !found.folder; });
  listing.folders.reserve(static_cast<std::size_t>(folders));
  listing.files.reserve(static_cast<std::size_t>(files));
  for (const Found& found : found_) {
    const std::string_view name = name_of(found);
    // A junction or a link to a folder leads out of the tree, or round in it.
    if (found.folder && found.link) {
      listing.links.emplace_back(name);
      continue;
    }
    auto& kind = found.folder ? listing.folders : listing.files;
    kind.push_back({name, found.plain, found.link, found.number, found.size, found.modified});
  }
}

const FolderTree::Entry* FolderTree::find_file(const Listing& listing, std::string_view name) {
  // Listings are in the order of NTFS, in which names that differ only by case stand together.
  const auto& files = listing.files;
  auto entry = std::lower_bound(
      files.begin(), files.end(), name,
      [](const Entry& a, std::string_view b) { return text::less_ignoring_case(a.name, b); });
  const Entry* found = nullptr;
  for (; entry != files.end() && text::equal_ignoring_case(entry->name, name); ++entry) {
    if (found == nullptr || entry->name == name) found = &*entry;
  }
  return found;
}

const FolderTree::Entry* FolderTree::known_file(std::string_view path) const {
  const std::string_view folder = path.substr(0, path.rfind('\\') + 1);
  const Listing* const listing = known(folder);
  if (listing == nullptr) return nullptr;
  const std::string_view name = path.substr(folder.size());
  const Entry* const found = find_file(*listing, name);
  return found != nullptr && found->name == name ? found : nullptr;
}

std::optional<bool> FolderTree::holds_plain_file(std::string_view path) {
  const std::string_view folder = path.substr(0, path.rfind('\\') + 1);
  const std::string_view name = path.substr(folder.size());
  if (name.empty() || std::any_of(name.begin(), name.end(), needs_look_up) || name.back() == '.' ||
      name.back() == ' ') {
    return std::nullopt;
  }
  const Listing& there = listing(folder);
  if (!there.readable) return std::nullopt;
  auto entry = std::lower_bound(
      there.files.begin(), there.files.end(), name,
      [](const Entry& a, std::string_view b) { return text::less_ignoring_case(a.name, b); });
  for (; entry != there.files.end() && text::equal_ignoring_case(entry->name, name); ++entry) {
    if (entry->plain) return true;
  }
  return false;
}

void FolderTree::forget(const std::function<void()>& turn) {
  // Whatever is listed in a turn belongs to the next job.
  Listings old = std::exchange(listings_, {});
  recent_.forget();
  while (!old.empty()) {
    old.erase(old.begin());
    turn();
  }
}

bool FolderTree::walk(
    const std::string& folder,
    const std::function<bool(const std::string& folder, const Listing& listing)>& visit) {
  // Its own stack, as a tree may be deeper than the program's.
  std::vector<std::string> waiting = {folder};
  while (!waiting.empty()) {
    const std::string here = std::move(waiting.back());
    waiting.pop_back();
    const Listing& found = listing(here);
    if (!visit(here, found)) return false;
    for (auto sub = found.folders.rbegin(); sub != found.folders.rend(); ++sub) {
      std::string& next = waiting.emplace_back();
      next.reserve(here.size() + sub->name.size() + 1);
      next.append(here).append(sub->name).append("\\");
    }
  }
  return true;
}

}  // namespace ordelan::work
