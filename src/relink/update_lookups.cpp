#include "relink/update_lookups.h"

#include "location/search_window.h"
#include "text/paths.h"

namespace ordelan::relink {

void UpdateLookups::begin(FileImage& image, const Pointer& pair) {
  image_ = &image;
  pair_ = pair;
}

// Asked for each path of a project: a look for a folder that is missing takes long on Linux.
bool UpdateLookups::is_missing(std::string_view folder) {
  const auto known = missing_.find(folder);
  if (known != missing_.end()) return known->second;
  const std::string path(folder);
  return missing_[path] = !context_.platform.files.info(path);
}

bool UpdateLookups::exists(const std::string& path) {
  work::FolderTree& folders = job_.folders();
  const std::string_view folder = text::folder_of(path);
  const work::FolderTree::Listing& listing = folders.listing(folder);
  if (!listing.readable && is_missing(folder)) return false;
  const auto held = folders.holds_plain_file(path);
  if (held.value_or(false)) return true;
  // Hidden files are files too.
  if (held && listing.readable) {
    return work::FolderTree::find_file(listing, text::file_name(path)) != nullptr;
  }
  const auto found = context_.platform.files.info(path);
  return found && !found->folder;
}

// A file that cannot be looked at, in a folder that is somebody else's, does not pass for missing.
bool UpdateLookups::stands(const std::string& path) {
  system::FileSystem& files = context_.platform.files;
  if (files.info(path)) return true;
  const system::Status opened = files.open(path).status();
  return opened.ok() || opened == system::Reason::no_permission || opened == system::Reason::in_use;
}

void UpdateLookups::BuscarOtraLetra(const std::string& path) {
  if (auto* const buscar = context_.windows.touch<location::Buscar>()) {
    buscar->BuscarOtraLetra(path);
  }
}

std::optional<std::string> UpdateLookups::search(const std::string& name) {
  auto* const buscar = context_.windows.touch<location::Buscar>();
  if (buscar == nullptr || job_.must_stop()) return std::nullopt;
  search_.old_folder = text::folder_of(bytes_between(*image_, pair_.ini, pair_.fin));
  const bool found = buscar->BuscarEnTodasUnidades(name, context_.lists.ListUtilizados);
  if (!found || job_.superseded()) return std::nullopt;
  return context_.work.ArchivoActual;
}

}  // namespace ordelan::relink
