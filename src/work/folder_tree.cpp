#include "work/folder_tree.h"

#include <algorithm>
#include <utility>

#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::work {

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
  if (last_ == listings_.end() || last_->first != folder) last_ = listings_.find(folder);
  return last_ == listings_.end() ? nullptr : &last_->second;
}

const FolderTree::Listing& FolderTree::listing(std::string_view folder) {
  if (const Listing* const found = known(folder)) return *found;
  last_ = listings_.try_emplace(std::string(folder)).first;
  Listing& listing = last_->second;
  auto entries = files_.list(folder, system::Detail::names, [&](const system::UnnamedEntry& entry) {
    listing.unnamed.push_back(entry);
  });
  listing.readable = entries.has_value();
  if (!entries) return listing;
  for (system::FileInfo& entry : *entries) {
    // A junction or a link to a folder leads out of the tree, or round in it.
    if (entry.folder && entry.link) {
      listing.links.push_back(std::move(entry.name));
      continue;
    }
    auto& kind = entry.folder ? listing.folders : listing.files;
    kind.push_back(
        {std::move(entry.name), !entry.hidden && !entry.system, entry.link, entry.number});
  }
  listing.files.shrink_to_fit();
  listing.folders.shrink_to_fit();
  return listing;
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
  if (name.empty() || name.find_first_of("~*?/:<>|\"") != std::string_view::npos ||
      name.back() == '.' || name.back() == ' ') {
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
  last_ = listings_.end();
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
      waiting.push_back(here + sub->name + "\\");
    }
  }
  return true;
}

}  // namespace ordelan::work
