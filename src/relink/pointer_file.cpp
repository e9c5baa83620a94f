#include "relink/pointer_file.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "text/paths.h"

namespace ordelan::relink {
namespace {

std::string with_underscores(std::string_view text) {
  std::string changed(text);
  std::replace(changed.begin(), changed.end(), '.', '_');
  return changed;
}

bool is_blank(char c) {
  return c == ' ' || c == '\t';
}

std::optional<std::int32_t> number_of(std::string_view line) {
  while (!line.empty() && is_blank(line.front())) line.remove_prefix(1);
  while (!line.empty() && is_blank(line.back())) line.remove_suffix(1);
  std::int32_t value = 0;
  const auto read = std::from_chars(line.data(), line.data() + line.size(), value);
  if (line.empty() || read.ec != std::errc() || read.ptr != line.data() + line.size()) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

std::string written_pointer_name(std::string_view row) {
  const std::string whole = with_underscores(row) + ".ptr";
  // A row without ">" loses its first character, the letter of its drive: of no use to the name.
  const auto arrow = whole.rfind('>');
  const std::size_t cut = arrow == std::string::npos ? 1 : arrow + 2;
  return text::Obtener_Nombre_Archivo(cut < whole.size() ? whole.substr(cut) : std::string());
}

std::string read_pointer_name(std::string_view row) {
  constexpr std::string_view kLog = ".log";
  std::string name = with_underscores(text::Obtener_Nombre_Archivo(row)).append(kLog);
  name.resize(name.size() - kLog.size());
  return name + ".ptr";
}

std::string pointer_line(std::int64_t number) {
  return (number < 0 ? "" : " ") + std::to_string(number) + " \r\n";
}

Pointers read_pointers(std::string_view bytes) {
  Pointers found;
  std::optional<std::int32_t> ini;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
    const auto number = number_of(bytes.substr(0, end));
    if (!number) {
      found.damaged = true;
      break;
    }
    bytes.remove_prefix(end);
    if (bytes.starts_with("\r\n")) {
      bytes.remove_prefix(2);
    } else if (!bytes.empty()) {
      bytes.remove_prefix(1);
    }
    if (ini) {
      found.pairs.push_back({*ini, *number});
      ini.reset();
    } else {
      ini = number;
    }
  }
  found.odd = ini.has_value();
  return found;
}

}  // namespace ordelan::relink
