// The files that may turn out to be unused, in the order in which they are searched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "text/row_table.h"
#include "work/folder_tree.h"

namespace ordelan::project {

// A large studio has hundreds of thousands, and those in a folder inside another project's folder
// are listed with both: each file is kept once, as its folder and its name, and becomes a path only
// where one is asked for. Nothing here points into the listings that it was made from.
class Candidates {
 public:
  Candidates() = default;
  Candidates(Candidates&&) = default;
  Candidates& operator=(Candidates&&) = default;

  // A file by its number, from 0 on; a folder likewise.
  using File = text::RowTable::Row;
  using Folder = std::uint32_t;
  struct Files {
    File first;
    File end;
  };

  // The files of the twenty kinds in a listed folder, given with its backslash. They are added when
  // the folder is first met, but take no place in the order.
  Files files_of(std::string_view folder, const work::FolderTree::Listing& listing);

  // A folder, given with its backslash; and a file in the folder that was added last.
  Folder add_folder(std::string_view path);
  File add(Folder folder, const work::FolderTree::Entry& file, std::size_t kind);

  // Gives files the next places in the order.
  void list(const std::vector<File>& files);

  // How many places there are, and the file at one.
  std::size_t size() const { return order_.size(); }
  File operator[](std::size_t place) const { return order_[place]; }

  // How many files there are, and what the listing has told of each.
  std::size_t files() const { return files_.size(); }
  std::string_view name(File file) const {
    return std::string_view(names_).substr(files_[file].name_at, files_[file].name_size);
  }
  std::string_view folder(File file) const { return folders_[files_[file].folder].path; }
  std::string path(File file) const;
  std::size_t kind(File file) const { return files_[file].kind; }
  bool plain(File file) const { return files_[file].plain; }
  bool link(File file) const { return files_[file].link; }
  std::uint64_t number(File file) const { return files_[file].number; }

  // Whether a path is that of the file, letter for letter.
  bool is_at(File file, std::string_view path) const;

  // Whether it is of a kind that is offered for removal, and no frozen track.
  bool may_be_offered(File file) const;

 private:
  struct Entry {
    std::size_t name_at;  // in names_
    std::uint64_t number;
    std::uint32_t name_size;
    Folder folder;
    std::uint8_t kind;
    bool plain;
    bool link;
  };
  struct Place {
    std::string_view path;  // a key of known_
    bool frozen;
    Files files;
  };

  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };

  std::unordered_map<std::string, Folder, Hash, std::equal_to<>> known_;
  std::vector<Place> folders_;
  std::string names_;  // one after the other
  std::vector<Entry> files_;
  std::vector<File> order_;
};

}  // namespace ordelan::project
