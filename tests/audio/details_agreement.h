// What holds for the details of any bytes.
#pragma once

#include <cmath>
#include <set>
#include <string>
#include <string_view>

#include "audio/details_bench.h"
#include "text/code_page.h"

namespace ordelan::test {

inline bool same_details(const audio::Detalles& a, const audio::Detalles& b) {
  return a.duracion == b.duracion && a.canales == b.canales && a.frecuencia == b.frecuencia &&
         a.bits == b.bits && a.velocidad == b.velocidad && a.etiquetas == b.etiquetas;
}

// A sentence on the first rule that the details of a file with these bytes break; empty where all
// hold. `size` is how long the file is; what is missing of it is zeros.
inline std::string check_details(std::string_view bytes, std::uint64_t size) {
  audio::ByteSource source = source_of(bytes, size);
  const audio::Detalles details = audio::read_details(source);
  if (source.blocks_read() > audio::ByteSource::kMostBlocks) return "too much was read";
  if (details.duracion && !(*details.duracion >= 0 && *details.duracion <= 1e9)) {
    return "a duration that no file has";
  }
  for (const auto& number :
       {details.canales, details.frecuencia, details.bits, details.velocidad}) {
    if (number && (*number <= 0 || *number > 10'000'000'000)) return "a number that no file has";
  }
  if (details.etiquetas.size() > audio::kMostTags) return "too many tags";
  std::set<std::string> names;
  for (const auto& [name, text] : details.etiquetas) {
    if (name.empty() || text.empty()) return "an empty tag";
    if (text.size() > audio::kMostText) return "too long a text";
    if (name.find('\0') != std::string::npos || text.find('\0') != std::string::npos) {
      return "a NUL in a tag";
    }
    if (text::lower(name) != name) return "a name in capitals";
    if (!names.insert(name).second) return "a name twice";
  }
  audio::ByteSource again = source_of(bytes, size);
  if (!same_details(details, audio::read_details(again))) return "other details the second time";

  // A disk that fails in the middle gives what was read so far, or less.
  audio::ByteSource failing(
      size,
      [&](std::uint64_t offset, std::span<std::uint8_t> buffer) -> std::optional<std::size_t> {
        if (offset > 0) return std::nullopt;
        return source_of(bytes, size)
            .bytes(0, buffer.size())
            .copy(reinterpret_cast<char*>(buffer.data()), buffer.size());
      });
  audio::read_details(failing);
  return {};
}

// The first two bytes say how far beyond its bytes the file goes; the rest is the file.
inline std::string check_audio_details(std::string_view input) {
  if (input.size() < 2) return {};
  const auto first = static_cast<unsigned char>(input[0]);
  const auto second = static_cast<unsigned char>(input[1]);
  const std::uint64_t beyond = first < 128 ? 0 : std::uint64_t{second} << (first & 31);
  input.remove_prefix(2);
  return check_details(input, input.size() + beyond);
}

}  // namespace ordelan::test
