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

// Whether a name in a folder stands in the comparable form of its path as it is but for case.
bool stands_as_it_is(std::string_view name) {
  return !name.empty() && name.back() != '.' && name.back() != ' ' &&
         name.find(':') == std::string_view::npos;
}

// What is used, as hashes: eight bytes each. Two files of one hash pass for one, which at worst
// keeps a file.
class UsedFiles {
 public:
  UsedFiles(system::FileSystem& files, work::FolderTree& tree) : files_(files), tree_(tree) {}

  // What is found out about a folder, once.
  struct Folder {
    explicit Folder(std::string_view text) : path(text) {}

    std::string_view path;  // with its backslash, as rows spell it
    int used = 0;           // files in it
    const work::FolderTree::Listing* listing = nullptr;
    bool identified = false;
    std::optional<FileIdentity> identity;
    std::optional<std::size_t> key;  // the hash of what comparable paths in it begin with
  };

  // The folder of a used row, which stays where it is; it is counted as one with a used file more.
  Folder& count(const std::string& row) {
    Folder& folder = at(folder_of(row));
    ++folder.used;
    return folder;
  }

  void add(const std::string& row, Folder& place) {
    const std::string_view name = std::string_view(row).substr(place.path.size());
    const std::size_t name_key = key_of(name);
    paths_.insert(path_hash(place, name, name_key));
    if (place.listing == nullptr && (place.used >= kWorthAListing || tree_.knows(place.path))) {
      place.listing = &tree_.listing(place.path);
    }
    const work::FolderTree::Entry* entry = nullptr;
    if (place.listing != nullptr) {
      entry = work::FolderTree::find_file(*place.listing, name);
      // A short name stands in no listing; any other that is missing is lost.
      if (entry == nullptr && name.find('~') == std::string_view::npos) return;
    }
    if (entry != nullptr) {
      if (entry->link) add_target(row);
      add_name(identity_of(place), entry->name == name ? name_key : key_of(entry->name));
      if (entry->number != 0) add_number(identity_of(place), entry->number);
    } else if (const auto info = files_.info(row)) {
      if (info->link) add_target(row);
      add_name(identity_of(place), key_of(info->name));
      if (info->number != 0) add_number(identity_of(place), info->number);
    }
  }

  // Whether an offered file is used, as far as paths, folders and listings tell.
  bool holds(const Candidates& candidates, Candidates::File file) {
    const std::string_view name = candidates.name(file);
    const std::size_t name_key = key_of(name);
    Folder& place = at(candidates.folder(file));
    if (paths_.contains(path_hash(place, name, name_key))) return true;
    if (names_.empty() && numbers_.empty()) return false;
    const auto& identity = identity_of(place);
    if (!identity) return false;
    if (names_.contains(mix(hash(*identity), name_key))) return true;
    const std::uint64_t number = candidates.number(file);
    return number != 0 && numbers_.contains(mix(identity->volume, number));
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
  void add_name(const std::optional<FileIdentity>& folder, std::size_t name_key) {
    if (folder) names_.insert(mix(hash(*folder), name_key));
  }
  void add_number(const std::optional<FileIdentity>& folder, std::uint64_t number) {
    if (folder) numbers_.insert(mix(folder->volume, number));
  }

  static std::size_t hash_of(std::string_view text) { return std::hash<std::string_view>()(text); }

  // The hash of a name in capitals.
  std::size_t key_of(std::string_view name) {
    key_.clear();
    for (const char c : name) key_ += text::upper(c);
    return hash_of(key_);
  }

  // The hash of a path by which its spellings are compared: of what stands before the last name,
  // and of that. Most names are just put after the folder, so that its part is made once.
  std::size_t path_hash(Folder& folder, std::string_view name, std::size_t name_key) {
    if (!folder.path.ends_with('\\') || !stands_as_it_is(name)) return path_hash(folder.path, name);
    if (!folder.key) {
      const std::string key = key_in(folder.path, "x");
      folder.key = hash_of(std::string_view(key).substr(0, key.rfind('\\')));
    }
    return mix(*folder.key, name_key);
  }
  static std::size_t path_hash(std::string_view folder, std::string_view name) {
    const std::string key = key_in(folder, name);
    const std::size_t cut = std::min(key.rfind('\\'), key.size());  // a drive alone has none
    return mix(hash_of(std::string_view(key).substr(0, cut)),
               hash_of(std::string_view(key).substr(std::min(cut + 1, key.size()))));
  }
  static std::string key_in(std::string_view folder, std::string_view name) {
    return text::same_file_key(text::path_of(folder, name));
  }

  Folder& at(std::string_view folder) {
    if (auto* const recent = recent_.find(folder)) return recent->second;
    auto& entry = *folders_.try_emplace(folder, folder).first;
    recent_.put(entry);
    return entry.second;
  }

  const std::optional<FileIdentity>& identity_of(Folder& place) {
    if (!place.identified) place.identity = files_.identity(place.path);
    place.identified = true;
    return place.identity;
  }

  using Folders = std::unordered_map<std::string_view, Folder>;  // by the text of a row

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

std::vector<bool> same_as_used(const Candidates& candidates,
                               const std::vector<Candidates::File>& offered,
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
  std::vector<UsedFiles::Folder*> places;  // of the used files, in their order
  if (!each_used([&](const std::string& row) { places.push_back(&in_use.count(row)); })) {
    return same;
  }
  auto place = places.begin();
  if (!each_used([&](const std::string& row) { in_use.add(row, **place++); })) return same;

  bool link_offered = false;
  for (std::size_t i = 0; i < offered.size(); ++i) {
    same[i] = in_use.holds(candidates, offered[i]);
    link_offered |= !same[i] && candidates.link(offered[i]);
    if (!go_on()) return same;
  }
  if (link_offered && !each_used([&](const std::string& row) { in_use.add_target(row); })) {
    return same;
  }
  if (!in_use.has_targets()) return same;
  for (std::size_t i = 0; i < offered.size(); ++i) {
    if (!same[i]) same[i] = in_use.holds_target(candidates.path(offered[i]));
    if (!go_on()) return same;
  }
  return same;
}

std::vector<bool> same_as_used(const std::vector<std::string>& offered,
                               const std::vector<const std::vector<std::string>*>& used,
                               system::FileSystem& files, work::FolderTree& tree,
                               const std::function<bool()>& go_on) {
  Candidates candidates;
  std::vector<Candidates::File> all;
  for (const std::string& path : offered) {
    const std::string_view folder = std::string_view(path).substr(0, path.rfind('\\') + 1);
    tree.listing(folder);
    const work::FolderTree::Entry* const known = tree.known_file(path);
    work::FolderTree::Entry entry =
        known != nullptr ? *known : work::FolderTree::Entry{"", true, false, 0, 0, 0};
    entry.name = std::string_view(path).substr(folder.size());
    all.push_back(candidates.add(candidates.add_folder(folder), entry, 0));
    if (!go_on()) return std::vector<bool>(offered.size(), false);
  }
  return same_as_used(candidates, all, used, files, tree, go_on);
}

}  // namespace ordelan::project
