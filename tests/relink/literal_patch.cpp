#include "relink/literal_patch.h"

#include <utility>

namespace ordelan::test {
namespace {

// One byte at a 1-based position; after the end zeros are read, before the file nothing can be.
std::optional<char> read(const std::string& image, std::int64_t position) {
  if (position < 1) return std::nullopt;
  if (position > static_cast<std::int64_t>(image.size())) return '\0';
  return image[static_cast<std::size_t>(position - 1)];
}

// Writes one byte. The file grows by zeros where it must.
bool write(std::string& image, std::int64_t position, char byte) {
  if (position < 1) return false;
  while (static_cast<std::int64_t>(image.size()) < position) image += '\0';
  image[static_cast<std::size_t>(position - 1)] = byte;
  return true;
}

// What stands after the last separator, from there up to a NUL.
std::string bare_name(const std::string& path) {
  std::string name;
  bool ended = false;
  for (const char c : path) {
    if (c == '\\' || c == '/' || c == ':') {
      name.clear();
      ended = false;
    } else if (c == '\0') {
      ended = true;
    } else if (!ended) {
      name += c;
    }
  }
  return name;
}

// What stands after the last dot of the name, unless a blank stands after that.
std::string extension(const std::string& path) {
  std::string found;
  bool dot = false;
  for (const char c : bare_name(path)) {
    if (c == '.' || c == ' ') {
      found.clear();
      dot = c == '.';
    } else if (dot) {
      found += c;
    }
  }
  return found;
}

bool audio(const std::string& ext) {
  return ext == "mp3" || ext == "wav" || ext == "aif" || ext == "flac" || ext == "wma" ||
         ext == "m4a";
}

}  // namespace

std::optional<relink::PathChange> literal_patch_pair(std::string& image,
                                                     const relink::Pointer& pair,
                                                     const relink::PatchRules& rules,
                                                     relink::Lookups& lookups) {
  const std::int64_t ini = pair.ini;
  const std::int64_t fin = pair.fin;
  relink::PathChange change;

  const auto at_end = read(image, fin);
  if (!at_end) return std::nullopt;
  const bool skipped = *at_end == rules.letter && !rules.careful;

  for (std::int64_t i = ini; i <= fin; ++i) {
    const auto byte = read(image, i);
    if (!byte && skipped) continue;  // a pair that is left alone is read for the report only
    if (!byte) return std::nullopt;
    change.vieja += *byte;
  }
  if (skipped) {
    change.untouched = relink::Untouched::skipped;
    return change;
  }
  const bool several = change.vieja.find('\0') != std::string::npos;
  if (rules.careful && (several || lookups.stands(change.vieja))) {
    change.untouched = relink::Untouched::stays;
    return change;
  }

  const std::string name = bare_name(change.vieja);
  change.nueva = rules.carpeta + name;
  if (!audio(extension(change.vieja))) {
    change.hallada = lookups.stands(change.nueva);
  } else {
    change.hallada = lookups.exists(change.nueva);
    if (change.hallada) lookups.BuscarOtraLetra(change.vieja);
    if (lookups.exists(rules.carpeta + "FreezeData\\" + name)) {
      change.nueva = rules.carpeta + "FreezeData\\" + name;
      change.hallada = true;
    } else if (const auto found = lookups.search(name)) {
      change.nueva = *found;
      change.hallada = true;
    }
  }

  const auto length = static_cast<std::int64_t>(change.nueva.size());
  if (rules.careful && ini + length > fin + 1) {
    change.untouched = relink::Untouched::too_long;
    return change;
  }

  // A zero has two bytes.
  for (std::int64_t i = ini; i <= fin; ++i) {
    if (!write(image, i, '\0') || !write(image, i + 1, '\0')) return std::nullopt;
  }
  const auto put = [&](std::int64_t position, char byte) {
    if (position > fin + 1) {
      if (rules.careful) return true;  // what follows the old path stays
      ++change.sobrescritos;
    }
    return write(image, position, byte);
  };
  for (std::int64_t k = 0; k <= length; ++k) {
    if (k < length) {
      if (!put(ini + k, change.nueva[static_cast<std::size_t>(k)])) return std::nullopt;
    } else {
      if (!put(ini + k, '\0') || !put(ini + k + 1, '\0')) return std::nullopt;
    }
  }
  return change;
}

LiteralPatched literal_patch(std::string image, const std::vector<relink::Pointer>& pairs,
                             const relink::PatchRules& rules, relink::Lookups& lookups) {
  LiteralPatched out;
  out.image = std::move(image);
  for (const relink::Pointer& pair : pairs) {
    auto change = literal_patch_pair(out.image, pair, rules, lookups);
    if (!change) {
      out.whole = false;
      return out;
    }
    out.changes.push_back(std::move(*change));
  }
  return out;
}

}  // namespace ordelan::test
