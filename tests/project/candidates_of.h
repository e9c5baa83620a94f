// Candidates made from paths.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "project/candidates.h"
#include "text/paths.h"

namespace ordelan::test {

// What a listing would have about the file at a path.
using EntryOf = std::function<work::FolderTree::Entry(const std::string& path)>;

// The files of `paths`, in that order: whether its kind is a candidate's or not, each is one.
inline project::Candidates candidates_of(const std::vector<std::string>& paths,
                                         const EntryOf& entry_of) {
  project::Candidates candidates;
  std::map<std::string, project::Candidates::File> known;
  std::vector<project::Candidates::File> order;
  for (const std::string& path : paths) {
    auto file = known.find(path);
    if (file == known.end()) {
      work::FolderTree::Entry entry = entry_of(path);
      entry.name = text::file_name(path);
      const auto folder = std::string_view(path).substr(0, path.size() - entry.name.size());
      file = known.emplace(path, candidates.add(candidates.add_folder(folder), entry, 0)).first;
    }
    order.push_back(file->second);
  }
  candidates.list(order);
  return candidates;
}

// The same for plain files.
inline project::Candidates candidates_of(const std::vector<std::string>& paths) {
  return candidates_of(
      paths, [](const std::string&) { return work::FolderTree::Entry{"", true, false, 0, 0, 0}; });
}

// The same for files as a tree has listed them.
inline project::Candidates candidates_of(const std::vector<std::string>& paths,
                                         const work::FolderTree& tree) {
  return candidates_of(paths, [&](const std::string& path) {
    const auto* const entry = tree.known_file(path);
    return entry != nullptr ? *entry : work::FolderTree::Entry{"", true, false, 0, 0, 0};
  });
}

// All of them, each once.
inline std::vector<project::Candidates::File> all_of(const project::Candidates& candidates) {
  std::vector<project::Candidates::File> files;
  for (project::Candidates::File file = 0; file < candidates.files(); ++file) files.push_back(file);
  return files;
}

// The paths in their order.
inline std::vector<std::string> paths_of(const project::Candidates& candidates) {
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < candidates.size(); ++i)
    paths.push_back(candidates.path(candidates[i]));
  return paths;
}

}  // namespace ordelan::test
