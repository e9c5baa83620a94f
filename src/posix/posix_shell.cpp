#include "posix/posix_shell.h"

#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::posix {

std::string PosixShell::file_type(const std::string& path) {
  const auto found = files_.info(path);
  if (!found) return {};
  if (found->folder) return "Carpeta";
  const std::string extension = text::Obtener_Extension(found->name);
  return extension.empty() ? "Archivo" : "Archivo " + text::upper(extension);
}

}  // namespace ordelan::posix
