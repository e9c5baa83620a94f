// The tags of an audio file: names and texts, whatever way the file spells them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "audio/byte_source.h"

namespace ordelan::audio {

// Name and text, in the order in which they stand in the file, each name once. Names are the usual
// ones, whatever the kind of file calls them: "title", "artist", "album", "album_artist", "date",
// "genre", "track", "disc", "comment", "composer", "copyright", "encoder"...; others in small
// letters as they stand in the file. Both are code-page text; "?" stands for a character that the
// code page lacks.
using Etiquetas = std::vector<std::pair<std::string, std::string>>;

// What is kept of a text, and how many tags.
inline constexpr std::size_t kMostText = 4096;
inline constexpr std::size_t kMostTags = 100;

// Adds a text, which ends at the first NUL, without the blanks at its ends. A name that has a text
// already gets "; " and the new one, unless it is the same. Empty ones and those beyond the limits
// are left out.
void add_tag(Etiquetas& tags, std::string_view name, std::string_view text);
// Adds it only where the name has no text yet.
void add_missing_tag(Etiquetas& tags, std::string_view name, std::string_view text);

// Bytes as text: of UTF-8 where that is what they are, else of the code page.
std::string text_of(std::string_view bytes);
// UTF-16 as text. A mark at the beginning decides on the order of the bytes, `big_endian` without
// one; the mark itself is dropped. Half a character is a "?".
std::string text_of_utf16(std::string_view bytes, bool big_endian);

// The name of a genre by its number in the tags of mp3 files; empty for others.
std::string genre_name(std::uint64_t number);

// The fields of a Vorbis comment, from its vendor on. Pictures are passed over.
void read_vorbis_comment(ByteStream& stream, Etiquetas& tags);

}  // namespace ordelan::audio
