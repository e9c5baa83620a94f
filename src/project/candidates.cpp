#include "project/candidates.h"

#include "project/candidate_kinds.h"
#include "text/paths.h"

namespace ordelan::project {
namespace {

bool is_frozen(std::string_view text) {
  return text.find("FreezeData") != std::string_view::npos;
}

}  // namespace

Candidates::Files Candidates::files_of(std::string_view folder,
                                       const work::FolderTree::Listing& listing) {
  if (const auto met = known_.find(folder); met != known_.end()) {
    return folders_[met->second].files;
  }
  const Folder added = add_folder(folder);
  for (const work::FolderTree::Entry& file : listing.files) {
    if (const auto kind = kind_of(file.name)) add(added, file, *kind);
  }
  return folders_[added].files;
}

Candidates::Folder Candidates::add_folder(std::string_view path) {
  const auto folder = static_cast<Folder>(folders_.size());
  const std::string& key = known_.emplace(path, folder).first->first;
  const auto first = static_cast<File>(files_.size());
  folders_.push_back({key, is_frozen(key), {first, first}});
  return folder;
}

Candidates::File Candidates::add(Folder folder, const work::FolderTree::Entry& file,
                                 std::size_t kind) {
  files_.push_back({names_.size(), file.number, static_cast<std::uint32_t>(file.name.size()),
                    folder, static_cast<std::uint8_t>(kind), file.plain, file.link});
  names_ += file.name;
  return folders_[folder].files.end++;
}

void Candidates::list(const std::vector<File>& files) {
  order_.insert(order_.end(), files.begin(), files.end());
}

std::string Candidates::path(File file) const {
  return text::path_of(folder(file), name(file));
}

bool Candidates::is_at(File file, std::string_view path) const {
  const std::string_view its_folder = folder(file);
  return path.size() == its_folder.size() + files_[file].name_size && path.ends_with(name(file)) &&
         path.starts_with(its_folder);
}

bool Candidates::may_be_offered(File file) const {
  // No ending that counts has a backslash in it: the name is enough.
  return is_offered(name(file)) && !folders_[files_[file].folder].frozen && !is_frozen(name(file));
}

}  // namespace ordelan::project
