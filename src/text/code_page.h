// Windows-1252 text: the bytes that projects, disks and the program's own texts are made of.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ordelan::text {

// The Unicode code point of each byte of the code page. The five bytes that the page leaves open
// stand for themselves, as Windows reads them, so that every byte survives the way there and back.
extern const std::array<std::uint16_t, 256> kCodePoints;

// Code-page text as UTF-8. Takes any bytes and never fails.
std::string to_utf8(std::string_view ansi);

// UTF-8 as code-page text. Gives nothing when the text is not UTF-8 or holds a character that the
// code page lacks: such a name must never be taken for another one.
std::optional<std::string> from_utf8(std::string_view utf8);
// The same into an existing text, in place of what it held, so that a thousand names need no
// room but that of the longest. False where the other gives nothing; `ansi` is then of no use.
bool from_utf8(std::string_view utf8, std::string& ansi);

// UTF-8 as code-page text to be read by people: a "?" stands for each character that the code page
// lacks, and for each byte that is no UTF-8.
std::string from_utf8_with_marks(std::string_view utf8);

// The lower-case form of one byte, accented letters included.
char lower(char byte);

// The text with each byte in lower case.
std::string lower(std::string_view text);

// The capital of one byte; a byte that has none in the code page stays as it is.
char upper(char byte);

// The text with each byte in capitals.
std::string upper(std::string_view text);

// Whether two texts are equal when case is ignored, as the disk compares names.
bool equal_ignoring_case(std::string_view a, std::string_view b);

// Whether `a` comes before `b` in the order in which NTFS lists a folder: by capital letters, as
// Unicode numbers them, so that "temaA" comes before "tema_B".
bool less_ignoring_case(std::string_view a, std::string_view b);

// `text` without the blanks at its start; without those at both ends.
std::string_view trim_left(std::string_view text);
std::string_view trim(std::string_view text);

}  // namespace ordelan::text
