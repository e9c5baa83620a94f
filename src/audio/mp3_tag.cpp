#include "audio/mp3_tag.h"

#include <algorithm>

namespace ordelan::audio {
namespace {

// Where the first "tag" begins, case ignored; npos without one.
std::size_t find_tag(std::string_view bytes) {
  constexpr std::string_view kWord = "tag";
  const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  const auto found = std::search(bytes.begin(), bytes.end(), kWord.begin(), kWord.end(),
                                 [&](char byte, char letter) { return small(byte) == letter; });
  return found == bytes.end() ? std::string_view::npos
                              : static_cast<std::size_t>(found - bytes.begin());
}

// Puts the bytes from `at` on into a field, as many as it is wide.
void fill(std::string& field, std::string_view bytes, std::size_t at) {
  const std::string_view rest = bytes.substr(std::min(at, bytes.size()));
  std::copy_n(rest.begin(), std::min(rest.size(), field.size()), field.begin());
}

std::string row(std::string_view name, std::string_view field, std::string_view empty) {
  const std::string value = UnSpace(field);
  return std::string(name) + (value.empty() ? std::string(empty) : value + "\r\n");
}

}  // namespace

TagMp3 tag_in(std::string_view TagBuffer) {
  TagMp3 tag;
  const std::size_t p = find_tag(TagBuffer);
  if (p == std::string_view::npos) return tag;
  fill(tag.Title, TagBuffer, p + 3);
  fill(tag.Artist, TagBuffer, p + 33);
  fill(tag.Album, TagBuffer, p + 63);
  fill(tag.Year, TagBuffer, p + 93);
  fill(tag.Comment, TagBuffer, p + 97);
  return tag;
}

std::string UnSpace(std::string_view Text) {
  while (!Text.empty() && (Text.back() == ' ' || Text.back() == '\0')) Text.remove_suffix(1);
  return std::string(Text);
}

std::string mp3_text(const TagMp3& tag) {
  constexpr std::string_view kNone = "--------   \r\n";
  // The title is the last row: its dashes need no end.
  return row("Album: ", tag.Album, kNone) + row("Artista: ", tag.Artist, kNone) +
         row("Comentarios: ", tag.Comment, kNone) + row("Título: ", tag.Title, "--------");
}

}  // namespace ordelan::audio
