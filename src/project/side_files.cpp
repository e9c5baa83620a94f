#include "project/side_files.h"

#include <span>

#include "project/name_search.h"
#include "project/vip_files.h"
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

// The search of projects for the names.
class ProjectSearch {
 public:
  ProjectSearch(system::FileSystem& files, NameSearch& names, const std::function<bool()>& go_on)
      : files_(files), names_(names), go_on_(go_on) {}

  // What could not be searched, empty if nothing.
  const std::string& unreadable() const { return unreadable_; }

  void search(const std::string& path) {
    if (unreadable_.empty() && !search_file(files_, path, names_, go_on_)) unreadable_ = path;
  }
  void search(const std::string& folder, const work::FolderTree::Listing& listing) {
    if (!listing.readable) unreadable_ = folder;
    for (const work::FolderTree::Entry& file : listing.files) {
      if (may_be_project(file.name)) search(text::path_of(folder, file.name));
    }
    for (const system::UnnamedEntry& entry : listing.unnamed) {
      if (!entry.folder && may_be_project(entry.shown)) unreadable_ = folder + entry.shown;
    }
  }
  // Its subfolders should be searched too: these cannot be.
  void miss_subfolders(const std::string& folder, const work::FolderTree::Listing& listing) {
    for (const std::string& link : listing.links) unreadable_ = folder + link;
    for (const system::UnnamedEntry& entry : listing.unnamed) {
      if (entry.folder) unreadable_ = folder + entry.shown;
    }
  }

 private:
  system::FileSystem& files_;
  NameSearch& names_;
  const std::function<bool()>& go_on_;
  std::string unreadable_;
};

// Searches all projects that may name files of the folder. Gives what could not be searched, empty
// if nothing.
std::string search_projects(const std::string& folder, const std::vector<std::string>& projects,
                            system::FileSystem& files, work::FolderTree& tree, NameSearch& names,
                            const std::function<bool()>& go_on) {
  ProjectSearch search(files, names, go_on);
  for (const std::string& project : projects) search.search(project);
  // Audio often lies in a folder of its own below its project.
  for (const std::string& around : work::folders_around(folder)) {
    search.search(around, tree.listing(around));
  }
  tree.walk(folder, [&](const std::string& here, const work::FolderTree::Listing& listing) {
    search.search(here, listing);
    search.miss_subfolders(here, listing);
    return search.unreadable().empty() && go_on();
  });
  return search.unreadable();
}

}  // namespace

SideFiles side_files_of(const std::string& folder, const std::vector<std::string>& projects,
                        system::FileSystem& files, work::FolderTree& tree,
                        const std::function<bool()>& go_on) {
  struct SideFile {
    std::string name;
    bool audio;
  };
  std::vector<SideFile> found;
  std::vector<std::string> audio;
  for (const char* kind : kSideKinds) {
    for (const work::FolderTree::Entry& file : tree.listing(folder).files) {
      if (!file.plain || text::lower(text::Obtener_Extension(file.name)) != kind) continue;
      found.push_back({std::string(file.name), is_audio(kind)});
      if (is_audio(kind)) audio.emplace_back(file.name);
    }
  }
  SideFiles side;
  NameSearch search(audio);
  if (!audio.empty())
    side.unreadable = search_projects(folder, projects, files, tree, search, go_on);
  std::size_t at = 0;
  for (SideFile& file : found) {
    const bool keep = file.audio && (!side.unreadable.empty() || search.found(at));
    if (file.audio) ++at;
    (keep ? side.kept : side.removable).push_back(std::move(file.name));
  }
  return side;
}

}  // namespace ordelan::project
