#include "relink/patch.h"

#include <algorithm>
#include <array>

#include "text/paths.h"

namespace ordelan::relink {
namespace {

void put_two_zeros(FileImage& image, Position at, Position last) {
  image.put(at, 0);
  if (at + 1 <= last) image.put(at + 1, 0);
}

}  // namespace

std::string bytes_between(FileImage& image, Position ini, Position fin) {
  std::string bytes;
  if (fin >= ini) bytes.reserve(static_cast<std::size_t>(fin - ini + 1));
  for (Position at = ini; at <= fin; ++at) bytes += static_cast<char>(image.at(at));
  return bytes;
}

// A path that was written before may have put its zeros into the beginning of this one, which
// stands right after it: the name is whole then, and leads to the file all the same.
std::string name_in(std::string_view RutaVieja) {
  const auto folder = RutaVieja.find_last_of("\\/:");
  return text::Obtener_Nombre_Archivo(
      folder == std::string_view::npos ? RutaVieja : RutaVieja.substr(folder + 1));
}

// In small letters alone: "WAV" goes to the project's folder without a search. Old projects were
// updated so, and a search for each path of a project takes long.
bool is_searched(std::string_view RutaVieja) {
  constexpr std::array<std::string_view, 6> kSearched = {"mp3", "wav", "aif", "flac", "wma", "m4a"};
  const std::string extension = text::Obtener_Extension(name_in(RutaVieja));
  return std::find(kSearched.begin(), kSearched.end(), extension) != kSearched.end();
}

NewPath choose_path(std::string_view RutaVieja, const std::string& carpeta, Lookups& lookups) {
  const std::string name = name_in(RutaVieja);
  const std::string home = carpeta + name;
  // Folders too: the name of one with frozen tracks is looked for beside the project.
  if (!is_searched(RutaVieja)) return {home, lookups.stands(home)};

  const bool at_home = lookups.exists(home);
  // Shows the search on the strip, and sets ArchivoActual.
  if (at_home) lookups.BuscarOtraLetra(std::string(RutaVieja));
  const std::string frozen = carpeta + "FreezeData\\" + name;
  if (lookups.exists(frozen)) return {frozen, true};
  if (const auto hit = lookups.search(name)) return {*hit, true};
  // Samplitude asks for a file of that path then, which is where the user would put it.
  return {home, at_home};
}

std::optional<PathChange> patch_pair(FileImage& image, const Pointer& pair, const PatchRules& rules,
                                     Lookups& lookups) {
  const Position ini = pair.ini;
  const Position fin = pair.fin;
  if (fin < 1 || ini < 1) return std::nullopt;

  PathChange change;
  // The last byte of the path is compared, not its drive letter: in practice this spares only paths
  // that end in that letter, and all others are written anew even if they are right.
  if (!rules.careful && static_cast<char>(image.at(fin)) == rules.letter) {
    change.vieja = bytes_between(image, ini, fin);
    change.untouched = Untouched::skipped;
    return image.failed() ? std::nullopt : std::optional(change);
  }
  change.vieja = bytes_between(image, ini, fin);
  if (image.failed()) return std::nullopt;
  // Numbers that have lost their order lead to more than one path.
  if (rules.careful &&
      (change.vieja.find('\0') != std::string::npos || lookups.stands(change.vieja))) {
    change.untouched = Untouched::stays;
    return change;
  }
  const NewPath chosen = choose_path(change.vieja, rules.carpeta, lookups);
  change.nueva = chosen.path;
  change.hallada = chosen.found;
  const auto length = static_cast<Position>(chosen.path.size());
  if (rules.careful && length > fin - ini + 1) {
    change.untouched = Untouched::too_long;
    return change;
  }
  // Two zeros a byte: the one after the last byte of the path goes too. The careful way stops at
  // that NUL, so that no path changes what follows it.
  constexpr Position kNoEnd = project::kNoLimit;
  const Position last = rules.careful ? fin + 1 : kNoEnd;
  for (Position at = ini; at <= fin; ++at) put_two_zeros(image, at, last);
  for (Position k = 0; k < length; ++k) {
    image.put(ini + k, static_cast<std::uint8_t>(chosen.path[static_cast<std::size_t>(k)]));
  }
  put_two_zeros(image, ini + length, last);
  const Position cleared = std::max(fin + 1, ini - 1);
  const Position written = std::min(ini + length + 1, last);
  change.sobrescritos = static_cast<std::uint64_t>(std::max<Position>(written - cleared, 0));
  return image.failed() ? std::nullopt : std::optional(change);
}

}  // namespace ordelan::relink
