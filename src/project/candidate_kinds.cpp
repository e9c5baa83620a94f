#include "project/candidate_kinds.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "text/code_page.h"

namespace ordelan::project {

namespace {

// An extension of at most three letters in lower case, as one number.
constexpr std::uint32_t packed(char first, char second, char third) {
  return static_cast<std::uint32_t>(static_cast<unsigned char>(first)) << 16 |
         static_cast<std::uint32_t>(static_cast<unsigned char>(second)) << 8 |
         static_cast<std::uint32_t>(static_cast<unsigned char>(third));
}

constexpr std::array<std::uint32_t, kPatterns.size()> kExtensions = [] {
  std::array<std::uint32_t, kPatterns.size()> extensions{};
  for (std::size_t i = 0; i < extensions.size(); ++i) {
    const std::string_view pattern = kPatterns[i];
    extensions[i] = packed(pattern[2], pattern[3], pattern.size() > 4 ? pattern[4] : '\0');
  }
  return extensions;
}();

}  // namespace

std::optional<std::size_t> kind_of(std::string_view name) {
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos || name.size() - dot < 3) return std::nullopt;
  // Three letters also stand for every longer extension that begins with them, two only for
  // themselves: so x.flac is found by "*.fla".
  const bool two = name.size() - dot == 3;
  if (!two && name[dot + 3] == '\0') return std::nullopt;
  const std::uint32_t extension = packed(text::lower(name[dot + 1]), text::lower(name[dot + 2]),
                                         two ? '\0' : text::lower(name[dot + 3]));
  const auto found = std::find(kExtensions.begin(), kExtensions.end(), extension);
  if (found == kExtensions.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kExtensions.begin());
}

bool is_offered(std::string_view path) {
  constexpr std::array<std::string_view, 7> kAudio = {".wav", ".aif", ".mp3", ".ogg",
                                                      "flac", ".wma", ".m4a"};
  if (path.size() < 4) return false;
  const std::string end = text::lower(path.substr(path.size() - 4));
  return std::find(kAudio.begin(), kAudio.end(), end) != kAudio.end();
}

}  // namespace ordelan::project
