#include "system/file_system.h"

namespace ordelan::system {

std::optional<FileInfo> FileSystem::look_up(std::string_view path) {
  auto found = info(path);
  if (found && (found->folder || found->hidden || found->system)) found.reset();
  return found;
}

std::string with_backslash(std::string_view folder) {
  std::string path(folder);
  if (path.empty() || path.back() != '\\') path += '\\';
  return path;
}

}  // namespace ordelan::system
