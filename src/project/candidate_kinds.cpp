#include "project/candidate_kinds.h"

#include <algorithm>
#include <string>

#include "text/code_page.h"

namespace ordelan::project {

std::optional<std::size_t> kind_of(std::string_view name) {
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos) return std::nullopt;
  // Three letters also stand for every longer extension that begins with them, two only for
  // themselves: so x.flac is found by "*.fla".
  const std::string extension = text::lower(name.substr(dot + 1, 3));
  for (std::size_t i = 0; i < kPatterns.size(); ++i) {
    if (extension == kPatterns[i].substr(2)) return i;
  }
  return std::nullopt;
}

bool is_offered(std::string_view path) {
  constexpr std::array<std::string_view, 7> kAudio = {".wav", ".aif", ".mp3", ".ogg",
                                                      "flac", ".wma", ".m4a"};
  if (path.size() < 4) return false;
  const std::string end = text::lower(path.substr(path.size() - 4));
  return std::find(kAudio.begin(), kAudio.end(), end) != kAudio.end();
}

}  // namespace ordelan::project
