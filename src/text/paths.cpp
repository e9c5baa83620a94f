#include "text/paths.h"

#include <algorithm>

#include "text/code_page.h"

namespace ordelan::text {
namespace {

constexpr bool is_separator(char c) {
  return c == '\\' || c == '/' || c == ':';
}

// Whether a name loses this at its end, or a path one of two backslashes.
constexpr bool is_dropped_at_end(char c) {
  return c == '\\' || c == '.' || c == ' ';
}

}  // namespace

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

std::string path_of(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + name.size());
  return path.append(folder).append(name);
}

std::string_view folder_of(std::string_view path) {
  std::size_t end = path.size();
  while (end > 0 && path[end - 1] != '\\' && path[end - 1] != '/') --end;
  return path.substr(0, end);
}

std::string_view file_name(std::string_view Ruta) {
  const std::string_view path = Ruta.substr(0, Ruta.find('\0'));
  std::size_t begin = path.size();
  while (begin > 0 && !is_separator(path[begin - 1])) --begin;
  return path.substr(begin);
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

std::string same_file_key(std::string_view path) {
  std::string key;
  append_same_file_key(path, key);
  return key;
}

namespace {

// The key of a path with a drive that is clean already but for its case, as nearly all are. False,
// with the key as it was, for any other.
bool append_clean_key(std::string_view path, std::string& key) {
  if (path.size() < 3 || path[1] != ':') return false;
  const std::size_t start = key.size();
  key.resize(start + path.size());
  char* out = key.data() + start;
  *out++ = upper(path[0]);
  *out++ = ':';
  char before = 0;
  bool clean = path[2] == '\\';
  for (const char c : path.substr(2)) {
    clean &= c != '/' && (c != '\\' || !is_dropped_at_end(before));
    *out++ = upper(c);
    before = c;
  }
  clean &= !is_dropped_at_end(before);
  if (!clean) key.resize(start);
  return clean;
}

}  // namespace

void append_same_file_key(std::string_view path, std::string& key) {
  if (append_clean_key(path, key)) return;
  const std::size_t start = key.size();
  if (path.size() >= 2 && path[1] == ':') {
    key += upper(path[0]);
    key += ':';
    path.remove_prefix(2);
  } else if (path.starts_with("\\\\") || path.starts_with("//")) {
    key += '\\';
  }
  const std::size_t root_end = key.size();
  while (!path.empty()) {
    const auto end = std::min(path.find_first_of("\\/"), path.size());
    std::string_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (name == "..") {
      key.resize(std::max(std::min(key.rfind('\\'), key.size()), root_end));
      continue;
    }
    // Windows drops dots and blanks from the end of a name, and with them "." itself.
    while (!name.empty() && (name.back() == '.' || name.back() == ' ')) name.remove_suffix(1);
    if (name.empty()) continue;
    key += '\\';
    for (const char c : name) key += upper(c);
  }
  if (key.size() == start) key += '\\';
}

std::string root(std::string_view path) {
  if (path.size() >= 2 && path[1] == ':') {
    const bool letter = (path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z');
    if (!letter) return {};
    return std::string(path.substr(0, 2)) + "\\";
  }
  if (!path.starts_with("\\\\")) return {};
  const auto server_end = path.find('\\', 2);
  if (server_end == std::string_view::npos || server_end == 2) return {};
  const auto share_end = std::min(path.find('\\', server_end + 1), path.size());
  if (share_end == server_end + 1) return {};
  return std::string(path.substr(0, share_end));
}

std::string compact_path(std::string_view path, std::size_t length) {
  constexpr std::string_view kGap = "...";
  if (path.size() <= length) return std::string(path);
  if (length <= kGap.size()) return std::string(kGap.substr(0, length));
  const auto slash = path.rfind('\\');
  const std::string_view name = slash == std::string_view::npos ? path : path.substr(slash);
  if (kGap.size() + name.size() <= length) {
    const std::size_t head = length - kGap.size() - name.size();
    return std::string(path.substr(0, head)).append(kGap).append(name);
  }
  // Not even the name fits: its end goes too.
  std::string short_path;
  if (slash != std::string_view::npos && length > 2 * kGap.size()) short_path = kGap;
  short_path += name.substr(0, length - short_path.size() - kGap.size());
  return short_path.append(kGap);
}

}  // namespace ordelan::text
