// What a power cut takes along: the bytes and the names that had not reached the disk by then.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "system/file_system.h"
#include "text/code_page.h"

namespace ordelan::test {

// Keeps account of the calls that a file system makes of the disk, which must outlive it.
class PowerCut {
 public:
  // Whether the kill takes along what was written to files and not flushed, as a power cut does.
  // What was written in place is lost page by page. Names (of new, moved and removed files) are
  // taken to reach the disk at once, which is the worst case for code that moves a file into place
  // before its bytes are safe.
  bool loses_unflushed = false;
  // Whether it takes along also what became of names in folders that were not flushed since: new
  // files and folders are gone, moved ones have their old names, removed ones are back. The names
  // of one folder reach the disk in their order, as journaling file systems keep it, but flushing
  // one folder says nothing about another. A file that was emptied to be written anew has its old
  // bytes until it is flushed.
  bool loses_names = false;
  // With a number other than 0 only a part of all that is lost, chosen by that number: the disk may
  // have written the rest by itself.
  std::uint32_t luck = 0;

 protected:
  // A change of a name that its folder's flush has not followed yet.
  struct Named {
    std::string path;                                  // a new name, or the one that was removed
    std::string from = {};                             // the name that it had before; empty if none
    std::optional<std::string> before = std::nullopt;  // what had the name before
    bool folder = false;
    bool removed = false;

    std::string place() const { return key(path.substr(0, path.rfind('\\') + 1)); }
  };

  explicit PowerCut(system::FileSystem& disk) : disk_(disk) {}

  // A file was created, or emptied that held `before`.
  void created(std::string_view path, std::optional<std::string> before) {
    if (!before) note({.path = std::string(path)});
    unflushed_[key(path)] = {std::string(path), 0, 0, std::move(before)};
    changed_.erase(key(path));
  }

  void appended(const std::string& path, std::size_t count) {
    unflushed_[key(path)].written += count;
  }

  // Bytes are about to be written in place.
  void changing(const std::string& path, std::uint64_t offset, std::string_view bytes) {
    if (!loses_unflushed) return;
    if (!changed_.contains(key(path))) changed_[key(path)] = {path, on_disk(path).value_or(""), {}};
    while (!bytes.empty()) {
      constexpr std::uint64_t kPage = 4096;
      const std::string_view page = bytes.substr(0, kPage - offset % kPage);
      changed_[key(path)].written.push_back({offset, std::string(page)});
      offset += page.size();
      bytes.remove_prefix(page.size());
    }
  }

  void flushed(const std::string& path) {
    changed_.erase(key(path));
    const auto file = unflushed_.find(key(path));
    if (file == unflushed_.end()) return;
    const auto found = disk_.info(path);
    if (found) file->second.written = found->size;
    file->second.flushed = file->second.written;
    file->second.before.reset();
  }

  void folder_flushed(std::string_view folder) {
    const std::string flushed = key(system::with_backslash(folder));
    std::erase_if(names_, [&](const Named& one) { return one.place() == flushed; });
  }

  void note(Named change) {
    if (loses_names) names_.push_back(std::move(change));
  }

  // The bytes of a file that is about to change, as far as they are on the disk; nothing where none
  // is, or where names are not lost anyway.
  std::optional<std::string> kept(std::string_view path) {
    return loses_names ? on_disk(path) : std::nullopt;
  }

  void renamed(std::string_view from, std::string_view to, std::optional<std::string> before) {
    note({.path = std::string(to), .from = std::string(from), .before = std::move(before)});
    rename_in(unflushed_, from, to);
    rename_in(changed_, from, to);
  }

  void removed(std::string_view path, std::optional<std::string> before) {
    unflushed_.erase(key(path));
    changed_.erase(key(path));
    note({.path = std::string(path), .before = std::move(before), .removed = true});
  }

  // The power is cut: what the flags say is lost.
  void lose() {
    if (!loses_unflushed) return;
    for (const auto& [name, file] : unflushed_) {
      if (chance(2) != 0) continue;
      if (loses_names && file.before) {
        put_whole(file.path, *file.before);
      } else if (file.flushed < file.written) {
        rewrite(file.path, file.path, file.flushed);
      }
    }
    for (const auto& [name, file] : changed_) {
      std::string bytes = file.before;
      for (const Written& page : file.written) {
        if (chance(2) != 0) page.put_into(bytes);
      }
      put_whole(file.path, bytes);
    }
    std::map<std::string, std::size_t> lost;  // of each folder, how many of its last changes
    for (const Named& change : names_) ++lost[change.place()];
    for (auto& [folder, count] : lost) count -= chance(count + 1);
    for (auto change = names_.rbegin(); change != names_.rend(); ++change) {
      std::size_t& left = lost[change->place()];
      if (left == 0) continue;
      --left;
      take_back(*change);
    }
  }

  void leave_part(std::string_view from, std::string_view to) {
    if (disk_.info(to)) return;
    const auto original = disk_.info(from);
    if (original) rewrite(from, to, original->size / 2);
  }

 private:
  // How much of a file that this has written is on the disk for good.
  struct Unflushed {
    std::string path;
    std::uint64_t written = 0;
    std::uint64_t flushed = 0;
    std::optional<std::string> before = std::nullopt;  // the bytes of the file that it has emptied
  };

  // A file that was written to in place and not flushed since.
  struct Written {
    std::uint64_t offset = 0;
    std::string bytes;

    void put_into(std::string& file) const {
      const auto place = static_cast<std::size_t>(offset);
      if (file.size() < place + bytes.size()) file.resize(place + bytes.size());
      file.replace(place, bytes.size(), bytes);
    }
  };
  struct Changed {
    std::string path;
    std::string before;            // what the disk holds for good
    std::vector<Written> written;  // what it may hold of each page, in the order of writing
  };

  static std::string key(std::string_view path) { return text::lower(path); }

  template <class Files>
  static void rename_in(Files& files, std::string_view from, std::string_view to) {
    files.erase(key(to));
    auto moved = files.extract(key(from));
    if (moved.empty()) return;
    moved.key() = key(to);
    moved.mapped().path = to;
    files.insert(std::move(moved));
  }

  // The bytes of a file as far as they are on the disk for good. Nothing where there is no file.
  std::optional<std::string> on_disk(std::string_view path) {
    const auto changed = changed_.find(key(path));
    if (changed != changed_.end()) return changed->second.before;
    const auto written = unflushed_.find(key(path));
    if (written != unflushed_.end() && written->second.before) return written->second.before;
    const auto file = disk_.open(path);
    if (!file) return std::nullopt;
    const auto size = written == unflushed_.end() ? file->size() : written->second.flushed;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }

  void take_back(const Named& change) {
    if (!change.from.empty()) {
      disk_.move(change.path, change.from).ignore();
    } else if (change.folder) {
      remove_below(change.path);
    } else if (!change.removed) {
      remove_file(change.path);
    }
    if (change.before) put_whole(change.path, *change.before);
  }

  void remove_file(const std::string& path) {
    disk_.set_attributes(path, system::attribute::kArchive).ignore();
    disk_.remove(path).ignore();
  }

  // What stands below a folder whose name is lost: no path leads to it any more. The empty folder
  // stays, as the port removes none.
  void remove_below(const std::string& folder) {
    const auto entries = disk_.list(folder, system::Detail::names);
    if (!entries) return;
    for (const system::FileInfo& entry : *entries) {
      const std::string path = system::with_backslash(folder) + entry.name;
      if (entry.folder) {
        remove_below(path);
      } else {
        remove_file(path);
      }
    }
  }

  void put_whole(const std::string& path, const std::string& bytes) {
    if (const auto file = disk_.create(path)) file->write(bytes).ignore();
  }

  // A number below `bound`; always 0 without luck.
  std::uint32_t chance(std::size_t bound) {
    if (luck == 0) return 0;
    luck = luck * 1664525u + 1013904223u;
    if (luck == 0) luck = 1;
    return static_cast<std::uint32_t>((luck >> 8) % bound);
  }

  // Makes `to` hold the first bytes of `from` and no more.
  void rewrite(std::string_view from, std::string_view to, std::uint64_t size) {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (const auto file = disk_.open(from)) {
      file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    }
    if (const auto file = disk_.create(to)) file->write(bytes).ignore();
  }

  system::FileSystem& disk_;
  std::map<std::string, Unflushed> unflushed_;
  std::map<std::string, Changed> changed_;
  std::vector<Named> names_;  // in their order
};

}  // namespace ordelan::test
