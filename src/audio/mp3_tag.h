// The tag at the end of an mp3, as far as the tooltips show it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ordelan::audio {

// The tag is looked for in so many bytes, which begin `kTagReach` bytes before the end of the file.
// The last two bytes of the file are not among them: the comment of a usual tag loses its 30th
// character, and no more.
inline constexpr std::size_t kTagBuffer = 255;
inline constexpr std::uint64_t kTagReach = 257;

// Fields of fixed width; what a file does not fill is zeros.
struct TagMp3 {
  std::string Title = std::string(30, '\0');
  std::string Artist = std::string(30, '\0');
  std::string Album = std::string(30, '\0');
  std::string Year = std::string(4, '\0');  // no window shows it
  std::string Comment = std::string(30, '\0');
  bool operator==(const TagMp3&) const = default;
};

// The tag in the bytes of the buffer, which begins with the first "tag" in capitals or small
// letters. Whatever stands before that word is not looked at, so that it may be part of the sound.
// Blank without the word; fields that reach beyond the buffer are cut.
TagMp3 tag_in(std::string_view TagBuffer);

// `Text` without the blanks and zeros at its end.
std::string UnSpace(std::string_view Text);

// The block of text: album, artist, comment and title, a row of dashes for each that is empty.
std::string mp3_text(const TagMp3& tag);

}  // namespace ordelan::audio
