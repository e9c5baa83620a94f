#include "location/drive_index.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "location/file_finder.h"
#include "location/under_way.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::location {
namespace {

constexpr std::size_t kMarksOfName = 16;

void lower_into(std::string_view name, std::string& key) {
  key.assign(name);
  for (char& c : key) c = text::lower(c);
}

// Equal for names that differ by case alone.
std::size_t mark_of(std::string_view name) {
  std::uint64_t hash = name.size();
  for (const char c : name) {
    hash = (hash ^ static_cast<unsigned char>(text::lower(c))) * 0x100000001B3u;
  }
  return static_cast<std::size_t>(hash ^ hash >> 32);
}

// Whether a search for the name is just one for the files that have it. Windows drops dots and
// blanks from the end of a name, so that another file would pass for it when it is looked at.
bool is_plain(std::string_view name) {
  return !name.empty() && name.find_first_of("*?;:\\/") == std::string_view::npos &&
         name.find('\0') == std::string_view::npos && name.back() != '.' && name.back() != ' ';
}

}  // namespace

DriveIndex::DriveIndex(const system::Platform& platform)
    : platform_(platform), pacer_(platform.pump, platform.clock) {}

void DriveIndex::expect(std::string_view name) {
  if (is_plain(name)) number_of(name);
}

DriveIndex::Number DriveIndex::number_of(std::string_view name) {
  lower_into(name, key_);
  const auto [entry, added] = names_.emplace(key_, static_cast<Number>(names_.size()));
  if (added) mark_expected(key_);
  return entry->second;
}

// Nearly all files of a drive have other names: a look at a few thousand bits is faster for them
// than one into a table of strings.
bool DriveIndex::may_be_expected(std::string_view name) const {
  return !marks_.empty() && marks_[mark_of(name) & (marks_.size() - 1)];
}

void DriveIndex::mark_expected(std::string_view name) {
  if (names_.size() * kMarksOfName > marks_.size()) {
    marks_.assign(std::bit_ceil(2 * kMarksOfName * names_.size()), false);
    for (const auto& [known, number] : names_) marks_[mark_of(known) & (marks_.size() - 1)] = true;
  }
  marks_[mark_of(name) & (marks_.size() - 1)] = true;
}

std::optional<std::vector<std::string>> DriveIndex::find(const std::string& root,
                                                         const std::string& name,
                                                         const std::function<bool()>& go_on) {
  // An empty root stands for all drives.
  if (busy_ || root.empty() || !is_plain(name)) return search(root, name, go_on);
  const UnderWay under_way(busy_);
  if (pacer_.turn() && !go_on()) return std::nullopt;
  const Number number = number_of(name);
  Drive& drive = drives_[root];
  for (bool again = false;; again = true) {
    if (number >= drive.walked) {
      const Walk walked = walk(root, drive, go_on);
      if (walked == Walk::stopped) return std::nullopt;
      if (walked == Walk::failed) return search(root, name, go_on);
    }
    std::vector<std::string> found = paths(drive, number);
    // What a second walk has just seen is taken as it is: no look could make it surer.
    if (again) return found;
    bool all_there = true;
    for (const std::string& path : found) {
      if (pacer_.turn() && !go_on()) return std::nullopt;
      all_there = all_there && is_there(path);
    }
    if (all_there) return found;
    drive = Drive{};
  }
}

// Looks for all names that the drive has not been walked for.
DriveIndex::Walk DriveIndex::walk(const std::string& root, Drive& drive,
                                  const std::function<bool()>& go_on) {
  if (before_walk) before_walk();
  const auto expected = static_cast<Number>(names_.size());
  const std::size_t hits_before = drive.hits.size();
  const std::size_t folders_before = drive.folders.size();
  drive.first.resize(expected, kNone);
  drive.last.resize(expected, kNone);

  cFindFiles finder(platform_);
  finder.EventsOnly = true;
  finder.wanted = [&](const std::string& name) {
    if (!may_be_expected(name)) return false;
    lower_into(name, key_);
    const auto known = names_.find(key_);
    return known != names_.end() && known->second >= drive.walked && known->second < expected;
  };
  finder.GetFile = [&](const std::string& path) { keep(drive, path); };
  finder.on_unseen = [&](const std::string& path, cFindFiles::Unseen why) {
    if (why == cFindFiles::Unseen::unreadable) unseen_.insert(path);
  };
  bool stopped = false;
  bool ended = false;
  finder.on_turn = [&] {
    if (!stopped && go_on()) return;
    stopped = true;
    finder.StopSearch();
  };
  finder.EndSearch = [&] { ended = true; };
  finder.Find(root, "", "", 1);
  if (!stopped && ended) {
    drive.walked = expected;
    return Walk::whole;
  }
  drive.hits.resize(hits_before);
  drive.folders.resize(folders_before);
  drive.first.resize(drive.walked);
  drive.last.resize(drive.walked);
  return stopped ? Walk::stopped : Walk::failed;
}

void DriveIndex::keep(Drive& drive, const std::string& path) {
  const std::string_view folder = text::folder_of(path);
  if (drive.folders.empty() || drive.folders.back() != folder) drive.folders.emplace_back(folder);
  const std::string_view name = std::string_view(path).substr(folder.size());
  const auto hit = static_cast<Number>(drive.hits.size());
  auto spelling = std::make_unique<char[]>(name.size() + 1);
  std::copy(name.begin(), name.end(), spelling.get());
  drive.hits.push_back({static_cast<Number>(drive.folders.size() - 1), kNone, std::move(spelling)});
  lower_into(name, key_);
  const Number number = names_.at(key_);
  if (drive.first[number] == kNone) {
    drive.first[number] = hit;
  } else {
    drive.hits[drive.last[number]].next = hit;
  }
  drive.last[number] = hit;
}

std::vector<std::string> DriveIndex::paths(const Drive& drive, Number number) {
  std::vector<std::string> found;
  for (Number hit = drive.first[number]; hit != kNone; hit = drive.hits[hit].next) {
    found.push_back(
        text::path_of(drive.folders[drive.hits[hit].folder], drive.hits[hit].name.get()));
  }
  return found;
}

// Whether a listing would still give the file in this spelling.
bool DriveIndex::is_there(const std::string& path) const {
  const std::string_view name = text::file_name(path);
  const auto seen = platform_.files.info(path);
  if (seen && !seen->folder && seen->name == name) return true;
  // Some files can be listed and not looked at.
  bool listed = false;
  platform_.files.each(text::folder_of(path), system::Detail::names,
                       [&](const system::FileInfo& entry) {
                         listed = !entry.folder && entry.name == name;
                         return !listed;
                       });
  return listed;
}

// A search of its own.
std::optional<std::vector<std::string>> DriveIndex::search(
    const std::string& root, const std::string& name, const std::function<bool()>& go_on) const {
  cFindFiles finder(platform_);
  bool stopped = false;
  bool ended = false;
  finder.on_turn = [&] {
    if (!stopped && go_on()) return;
    stopped = true;
    finder.StopSearch();
  };
  finder.EndSearch = [&] { ended = true; };
  finder.Find(root, name, "", 1);
  if (stopped) return std::nullopt;
  // One that has failed has found nothing.
  return ended ? finder.ColFiles() : std::vector<std::string>{};
}

}  // namespace ordelan::location
