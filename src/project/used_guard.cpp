#include "project/used_guard.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "text/code_page.h"
#include "text/paths.h"
#include "text/recent.h"

namespace ordelan::project {
namespace {

using system::FileIdentity;

// From so many used files on, an unlisted folder is listed rather than asked for each of them. (The
// report of lost files lists it then as well.)
constexpr int kWorthAListing = 16;

std::size_t mix(std::uint64_t a, std::uint64_t b) {
  a = (a ^ (b + 0x9E3779B97F4A7C15u)) * 0xBF58476D1CE4E5B9u;
  return static_cast<std::size_t>(a ^ (a >> 29));
}

std::size_t hash(const FileIdentity& identity) {
  return mix(mix(identity.volume, identity.file), identity.file_high);
}

// A set of hashes, eight bytes each and no more than twice the room that they take.
class HashSet {
 public:
  void insert(std::size_t hash) {
    if (2 * (count_ + 1) > slots_.size()) grow();
    count_ += put(hash) ? 1 : 0;
  }
  bool contains(std::size_t hash) const { return count_ > 0 && slots_[place(marked(hash))] != 0; }
  bool empty() const { return count_ == 0; }

 private:
  static std::size_t marked(std::size_t hash) {
    return hash == 0 ? 1 : hash;
  }  // 0 is an empty slot

  std::size_t place(std::size_t hash) const {
    std::size_t at = mix(hash, 0) & (slots_.size() - 1);
    while (slots_[at] != 0 && slots_[at] != hash) at = (at + 1) & (slots_.size() - 1);
    return at;
  }
  bool put(std::size_t hash) {
    std::size_t& slot = slots_[place(marked(hash))];
    const bool added = slot == 0;
    slot = marked(hash);
    return added;
  }
  void grow() {
    const auto old = std::exchange(
        slots_, std::vector<std::size_t>(std::max<std::size_t>(slots_.size() * 2, 1024)));
    for (const std::size_t hash : old) {
      if (hash != 0) put(hash);
    }
  }

  std::vector<std::size_t> slots_;
  std::size_t count_ = 0;
};

using text::folder_of;

// What is used, as hashes: eight bytes each. Two files of one hash pass for one, which at worst
// keeps a file.
class UsedFiles {
 public:
  UsedFiles(system::FileSystem& files, work::FolderTree& tree) : files_(files), tree_(tree) {}

  void count(const std::string& row) { ++at(folder_of(row)).used; }

  void add(const std::string& row) {
    paths_.insert(path_hash(row));
    const std::string_view folder = folder_of(row);
    const std::string_view name = std::string_view(row).substr(folder.size());
    Folder& place = at(folder);
    if (place.listing == nullptr && (place.used >= kWorthAListing || tree_.knows(folder))) {
      place.listing = &tree_.listing(folder);
    }
    const work::FolderTree::Entry* entry = nullptr;
    if (place.listing != nullptr) {
      entry = work::FolderTree::find_file(*place.listing, name);
      // A short name stands in no listing; any other that is missing is lost.
      if (entry == nullptr && name.find('~') == std::string_view::npos) return;
    }
    if (entry != nullptr) {
      if (entry->link) add_target(row);
      add_name(identity_of(folder), entry->name);
      if (entry->number != 0) add_number(identity_of(folder), entry->number);
    } else if (const auto info = files_.info(row)) {
      if (info->link) add_target(row);
      add_name(identity_of(folder), info->name);
      if (info->number != 0) add_number(identity_of(folder), info->number);
    }
  }

  // Whether an offered row is used, as far as paths, folders and listings tell.
  bool holds(const std::string& row, const work::FolderTree::Entry* entry) {
    if (paths_.contains(path_hash(row))) return true;
    if (names_.empty() && numbers_.empty()) return false;
    const std::string_view folder = folder_of(row);
    const auto& place = identity_of(folder);
    if (!place) return false;
    if (names_.contains(name_hash(*place, std::string_view(row).substr(folder.size()))))
      return true;
    return entry != nullptr && entry->number != 0 &&
           numbers_.contains(mix(place->volume, entry->number));
  }

  // The same for what links lead to.
  bool has_targets() const { return !targets_.empty(); }
  void add_target(const std::string& row) {
    if (const auto identity = files_.identity(row)) targets_.insert(hash(*identity));
  }
  bool holds_target(const std::string& row) {
    const auto identity = files_.identity(row);
    return identity && targets_.contains(hash(*identity));
  }

 private:
  // A file in what may be another way to a folder that was searched.
  void add_name(const std::optional<FileIdentity>& folder, std::string_view name) {
    if (folder) names_.insert(name_hash(*folder, name));
  }
  void add_number(const std::optional<FileIdentity>& folder, std::uint64_t number) {
    if (folder) numbers_.insert(mix(folder->volume, number));
  }

  std::size_t path_hash(std::string_view path) {
    key_.clear();
    text::append_same_file_key(path, key_);
    return std::hash<std::string_view>()(key_);
  }

  std::size_t name_hash(const FileIdentity& folder, std::string_view name) {
    key_.clear();
    for (const char c : name) key_ += text::upper(c);
    return mix(hash(folder), std::hash<std::string_view>()(key_));
  }

  // What is found out about a folder, once.
  struct Folder {
    int used = 0;  // files in it
    const work::FolderTree::Listing* listing = nullptr;
    bool identified = false;
    std::optional<FileIdentity> identity;
  };
  using Folders = std::unordered_map<std::string_view, Folder>;  // by the text of a row

  Folder& at(std::string_view folder) {
    if (auto* const recent = recent_.find(folder)) return recent->second;
    auto& entry = *folders_.try_emplace(folder).first;
    recent_.put(entry);
    return entry.second;
  }

  const std::optional<FileIdentity>& identity_of(std::string_view folder) {
    Folder& place = at(folder);
    if (!place.identified) place.identity = files_.identity(folder);
    place.identified = true;
    return place.identity;
  }

  system::FileSystem& files_;
  work::FolderTree& tree_;
  Folders folders_;
  text::Recent<Folders::value_type> recent_;
  HashSet paths_;
  HashSet names_;    // a folder and a name in it
  HashSet numbers_;  // a volume and a file's number
  HashSet targets_;
  std::string key_;
};

}  // namespace

std::vector<bool> same_as_used(const std::vector<std::string>& offered,
                               const std::vector<const std::vector<std::string>*>& used,
                               system::FileSystem& files, work::FolderTree& tree,
                               const std::function<bool()>& go_on) {
  std::vector<bool> same(offered.size(), false);
  if (offered.empty()) return same;
  UsedFiles in_use(files, tree);
  const auto each_used = [&](const auto& action) {
    for (const auto* rows : used) {
      for (const std::string& row : *rows) {
        if (row.find('>') == std::string::npos) action(row);
        if (!go_on()) return false;
      }
    }
    return true;
  };
  if (!each_used([&](const std::string& row) { in_use.count(row); })) return same;
  if (!each_used([&](const std::string& row) { in_use.add(row); })) return same;

  bool link_offered = false;
  for (std::size_t i = 0; i < offered.size(); ++i) {
    const work::FolderTree::Entry* const entry = tree.known_file(offered[i]);
    same[i] = in_use.holds(offered[i], entry);
    link_offered |= !same[i] && entry != nullptr && entry->link;
    if (!go_on()) return same;
  }
  if (link_offered && !each_used([&](const std::string& row) { in_use.add_target(row); })) {
    return same;
  }
  if (!in_use.has_targets()) return same;
  for (std::size_t i = 0; i < offered.size(); ++i) {
    if (!same[i]) same[i] = in_use.holds_target(offered[i]);
    if (!go_on()) return same;
  }
  return same;
}

}  // namespace ordelan::project
