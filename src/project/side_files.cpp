#include "project/side_files.h"

#include <span>

#include "project/name_search.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::project {
namespace {

// Whole extensions, not patterns: a search by pattern also finds longer ones by their short names,
// and what is removed here is gone.
constexpr const char* kSideKinds[] = {"h2",  "hdp", "hm2", "hmp", "ha2", "hap", "hg2", "hgp",
                                      "hf2", "hfp", "cue", "hz",  "wma", "m4a", "hs"};

bool is_audio(const std::string& extension) {
  return extension == "wma" || extension == "m4a";
}

bool may_be_project(const std::string& name) {
  return text::lower(name).find(".vip") != std::string::npos;
}

// Searches a whole file. False when it could not be read to its end.
bool search_file(system::FileSystem& files, const std::string& path, NameSearch& search,
                 const std::function<bool()>& go_on) {
  const auto file = files.open(path);
  if (!file) return false;
  std::vector<std::uint8_t> block(std::size_t{1} << 18);
  search.end_of_file();
  for (std::uint64_t at = 0; at < file->size();) {
    const auto came = file->read(at, block);
    if (!came || *came == 0) return false;
    search.feed({reinterpret_cast<const char*>(block.data()), *came});
    at += *came;
    if (!go_on()) return false;
  }
  return true;
}

// Searches all that may be projects. Gives what could not be searched, empty if nothing.
std::string search_projects(const std::string& folder, system::FileSystem& files, FolderTree& tree,
                            NameSearch& search, const std::function<bool()>& go_on) {
  std::string unreadable;
  tree.walk(folder, [&](const std::string& here, const FolderTree::Listing& listing) {
    if (!listing.readable) unreadable = here;
    for (const system::UnnamedEntry& entry : listing.unnamed) {
      if (entry.folder || may_be_project(entry.shown)) unreadable = here + entry.shown;
    }
    for (const FolderTree::Entry& file : listing.files) {
      if (!unreadable.empty()) break;
      if (!may_be_project(file.name)) continue;
      if (!search_file(files, here + file.name, search, go_on)) unreadable = here + file.name;
    }
    return unreadable.empty() && go_on();
  });
  return unreadable;
}

}  // namespace

SideFiles side_files_of(const std::string& folder, system::FileSystem& files, FolderTree& tree,
                        const std::function<bool()>& go_on) {
  struct SideFile {
    std::string name;
    bool audio;
  };
  std::vector<SideFile> found;
  std::vector<std::string> audio;
  for (const char* kind : kSideKinds) {
    for (const FolderTree::Entry& file : tree.listing(folder).files) {
      if (!file.plain || text::lower(text::Obtener_Extension(file.name)) != kind) continue;
      found.push_back({file.name, is_audio(kind)});
      if (is_audio(kind)) audio.push_back(file.name);
    }
  }
  SideFiles side;
  NameSearch search(audio);
  if (!audio.empty()) side.unreadable = search_projects(folder, files, tree, search, go_on);
  std::size_t at = 0;
  for (SideFile& file : found) {
    const bool keep = file.audio && (!side.unreadable.empty() || search.found(at));
    if (file.audio) ++at;
    (keep ? side.kept : side.removable).push_back(std::move(file.name));
  }
  return side;
}

}  // namespace ordelan::project
