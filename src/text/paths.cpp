#include "text/paths.h"

#include <algorithm>

namespace ordelan::text {

std::string getPath(std::string_view Ruta, std::string_view Separador) {
  if (Ruta.empty() || Separador.empty()) return {};
  const auto last = Ruta.rfind(Separador);
  if (last == std::string_view::npos) return {};
  return std::string(Ruta.substr(0, last + Separador.size()));
}

std::string Obtener_Nombre_Path(std::string_view Ruta, bool ConBarra) {
  std::string_view folder = Ruta.substr(0, Ruta.rfind('\\') + 1);
  if (folder.empty()) return {};
  const auto colon = folder.find(':');
  if (colon != std::string_view::npos && colon > 0) folder.remove_prefix(colon - 1);
  if (!ConBarra) folder.remove_suffix(1);
  return std::string(folder);
}

std::string_view file_name(std::string_view Ruta) {
  // The buffer that names were always taken through holds 255 characters, its end mark included.
  constexpr std::size_t kLongest = 254;
  std::size_t begin = 0;
  std::size_t end = 0;
  for (; end < Ruta.size() && Ruta[end] != '\0'; ++end) {
    switch (Ruta[end]) {
      case '*':
      case '?':
      case '[':
      case ']':
        return {};
      case '\\':
      case '/':
      case ':':
        begin = end + 1;
        break;
      default:
        break;
    }
  }
  return Ruta.substr(begin, std::min(end - begin, kLongest));
}

std::string Obtener_Nombre_Archivo(std::string_view Ruta) {
  return std::string(file_name(Ruta));
}

std::string Obtener_VipPath(std::string_view Ruta) {
  return Obtener_Nombre_Path(Ruta, true) + Obtener_Nombre_Archivo(Ruta);
}

std::string Obtener_Extension(std::string_view Ruta) {
  const auto dot = Ruta.find_last_of(".\\ ");
  if (dot == std::string_view::npos || Ruta[dot] != '.') return {};
  return std::string(Ruta.substr(dot + 1));
}

}  // namespace ordelan::text
