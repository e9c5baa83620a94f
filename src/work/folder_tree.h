// Folders and what is in them, each listed once however often it is asked for: the work on one
// opened project walks the same folders again and again.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "system/file_system.h"
#include "text/recent.h"

namespace ordelan::work {

// The folders that a folder lies in, the nearest first, each with its backslash; none of the root
// of a drive or of a share, and none of a path without a root.
std::vector<std::string> folders_around(const std::string& folder);

class FolderTree {
 public:
  // A file or folder of a listing.
  struct Entry {
    std::string_view name;  // among the `names` of its listing
    bool plain;             // neither hidden nor a system file
    bool link;              // only stands for another file
    std::uint64_t number;   // on its volume; 0 where it is not known
    // As in FileInfo; both 0 where a listing does not have them for nothing.
    std::uint64_t size;
    double modified;
  };
  struct Listing {
    bool readable = false;
    std::unique_ptr<char[]> names;   // in one piece: large studios have very many
    std::vector<Entry> files;        // in the order of the disk
    std::vector<Entry> folders;      // without those that only stand for another place
    std::vector<std::string> links;  // names of folders that do
    // Entries that the code page cannot name, to be shown to the user.
    std::vector<system::UnnamedEntry> unnamed;
  };

  explicit FolderTree(system::FileSystem& files) : files_(files) {}

  // What is in a folder, given with its backslash. The listing stays where it is until `forget`.
  const Listing& listing(std::string_view folder);

  // Whether the folder has been listed under just this spelling.
  bool knows(std::string_view folder) const { return known(folder) != nullptr; }

  // The entry of a file whose folder has been listed under just this spelling; null otherwise.
  const Entry* known_file(std::string_view path) const;

  // The entry of a file in a listing, with case ignored; of several the one of that spelling. Null
  // if there is none.
  static const Entry* find_file(const Listing& listing, std::string_view name);

  // Whether a plain file of that name, case ignored, stands in its folder, by the listing of that
  // folder. Nothing where a listing cannot tell: the folder is not readable, or the name is one of
  // those that the system looks up by more than their letters (short names, dots at the end).
  std::optional<bool> holds_plain_file(std::string_view path);

  // Calls `visit` with a folder and, after it, with every folder below: each with its backslash,
  // before its own subfolders, in the order of the disk. Folders that cannot be read are visited
  // too, as empty ones. `visit` gives false to stop the walk; so does this function then.
  bool walk(const std::string& folder,
            const std::function<bool(const std::string& folder, const Listing& listing)>& visit);

  // Forgets everything listed so far: the next look is at the disk. `turn` is called now and then,
  // as large trees take a while to free.
  void forget(const std::function<void()>& turn = [] {});

 private:
  // Finds by a part of a text, without a copy of it. Not noexcept: the map keeps the hashes then.
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  using Listings = std::unordered_map<std::string, Listing, Hash, std::equal_to<>>;

  struct Found {
    std::size_t name_at;  // in names_
    std::size_t name_size;
    bool folder;
    bool plain;
    bool link;
    std::uint64_t number;
    std::uint64_t size;
    double modified;
  };

  Listing* known(std::string_view folder) const;
  void take_found(Listing& listing);

  system::FileSystem& files_;
  mutable Listings listings_;
  mutable text::Recent<Listings::value_type> recent_;
  // Of the folder that is being listed; here so that they are made once.
  std::string names_;
  std::vector<Found> found_;
};

}  // namespace ordelan::work
