// A disk in memory with folders: thousands of little ones are made and gone in a second.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/forwarding_files.h"
#include "text/code_page.h"

namespace ordelan::test {

class MemoryFolders final : public NoFiles {
 public:
  explicit MemoryFolders(bool ignores_case = false) : ignores_case_(ignores_case) {
    folders_[key("D:\\")];
  }

  // Makes a folder in an existing one, given without its backslash. False when it exists
  // already.
  bool add_folder(const std::string& path, bool link = false) {
    system::FileInfo info;
    info.folder = true;
    info.link = link;
    if (!add_entry(path, info)) return false;
    folders_[key(path + "\\")];
    return true;
  }

  // Puts a file into an existing folder. False when the name is taken.
  bool add_file(const std::string& path, const std::string& bytes, bool hidden = false,
                bool locked = false) {
    system::FileInfo info;
    info.size = bytes.size();
    info.hidden = hidden;
    if (!add_entry(path, info)) return false;
    files_[key(path)] = {bytes, locked};
    return true;
  }

  // The same for a file of any size and date, without bytes.
  bool add_file(const std::string& path, const system::FileInfo& described) {
    return add_entry(path, described);
  }

  // Another drive; there is "D:\\" at first.
  void add_root(const std::string& root) { folders_[key(root)]; }

  // Takes a file away, or a folder with all that is in it. False when there is none.
  bool take_away(const std::string& path) {
    const std::string folder = path.substr(0, path.rfind('\\') + 1);
    const auto found = folders_.find(key(folder));
    if (found == folders_.end()) return false;
    const std::string name = key(path.substr(folder.size()));
    if (std::erase_if(found->second, [&](const auto& entry) { return key(entry.name) == name; }) ==
        0) {
      return false;
    }
    files_.erase(key(path));
    std::erase_if(folders_, [below = key(path + "\\")](const auto& each) {
      return each.first.starts_with(below);
    });
    return true;
  }

  // Puts an entry that the code page cannot name into a folder, given with its backslash.
  void add_unnamed(const std::string& folder, const system::UnnamedEntry& entry) {
    unnamed_[key(folder)].push_back(entry);
  }

  // A folder, given with its backslash, that exists and cannot be listed, until it is allowed.
  void forbid(const std::string& folder) { forbidden_.insert(key(folder)); }
  void allow(const std::string& folder) { forbidden_.erase(key(folder)); }

  std::optional<system::FileInfo> info(std::string_view path) override {
    const std::string folder(path.substr(0, path.rfind('\\') + 1));
    const auto found = folders_.find(key(folder));
    if (found == folders_.end()) return std::nullopt;
    if (folder == path) return folder_info(path);
    const std::string name = key(std::string(path.substr(folder.size())));
    for (const system::FileInfo& entry : found->second) {
      if (key(entry.name) == name) return entry;
    }
    return std::nullopt;
  }

  // Every file and folder has one path here, but for its case and a folder's last backslash.
  std::optional<system::FileIdentity> identity(std::string_view path) override {
    if (folders_.contains(key(std::string(path))))
      path.remove_suffix(1);
    else if (!info(path))
      return std::nullopt;
    return system::FileIdentity{1, std::hash<std::string>()(key(std::string(path))), 0};
  }

  system::Opened<system::InputFile> open(std::string_view path) override {
    const auto found = files_.find(key(std::string(path)));
    if (found == files_.end()) return system::Reason::not_found;
    if (found->second.locked) return system::Reason::in_use;
    return std::make_unique<Input>(found->second.bytes);
  }

  bool backwards = false;               // whether folders give their last entry first
  std::map<std::string, int> listings;  // how often each folder has been listed

 private:
  // Of a folder given with its backslash.
  static system::FileInfo folder_info(std::string_view path) {
    system::FileInfo info;
    path.remove_suffix(1);
    info.name = path.substr(path.rfind('\\') + 1);
    info.folder = true;
    return info;
  }

  bool each_entry(std::string_view folder, system::Detail, const Visit& visit,
                  const VisitUnnamed& visit_unnamed) override {
    ++listings[std::string(folder)];
    const auto found = folders_.find(key(std::string(folder)));
    if (found == folders_.end() || forbidden_.contains(found->first)) return false;
    for (const system::UnnamedEntry& entry : unnamed_[found->first]) {
      if (visit_unnamed) visit_unnamed(entry);
    }
    std::vector<system::FileInfo> entries = found->second;
    if (backwards) std::reverse(entries.begin(), entries.end());
    for (system::FileInfo& entry : entries) {
      if (!visit(entry)) break;
    }
    return true;
  }

  struct File {
    std::string bytes;
    bool locked;
  };

  class Input final : public system::InputFile {
   public:
    explicit Input(const std::string& bytes) : bytes_(bytes) {}
    std::uint64_t size() const override { return bytes_.size(); }
    std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
      const auto from = std::min(static_cast<std::size_t>(offset), bytes_.size());
      const std::size_t count = std::min(buffer.size(), bytes_.size() - from);
      std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(from), count, buffer.begin());
      return count;
    }

   private:
    const std::string& bytes_;
  };

  std::string key(const std::string& path) const {
    return ignores_case_ ? text::lower(path) : path;
  }

  bool add_entry(const std::string& path, system::FileInfo info_of_it) {
    if (info(path)) return false;
    const auto slash = path.rfind('\\') + 1;
    info_of_it.name = path.substr(slash);
    auto& entries = folders_.at(key(path.substr(0, slash)));
    const auto after = std::upper_bound(
        entries.begin(), entries.end(), info_of_it, [](const auto& a, const auto& b) {
          if (text::less_ignoring_case(a.name, b.name)) return true;
          return !text::less_ignoring_case(b.name, a.name) && a.name < b.name;
        });
    entries.insert(after, std::move(info_of_it));
    return true;
  }

  bool ignores_case_;
  std::map<std::string, std::vector<system::FileInfo>> folders_;
  std::map<std::string, std::vector<system::UnnamedEntry>> unnamed_;
  std::set<std::string> forbidden_;
  std::map<std::string, File> files_;
};

}  // namespace ordelan::test
