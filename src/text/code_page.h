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

// Code-page text as UTF-8. Takes any bytes and never fails. `append_` adds it to a text.
std::string to_utf8(std::string_view ansi);
void append_utf8(std::string_view ansi, std::string& utf8);

// UTF-8 as code-page text. Gives nothing when the text is not UTF-8 or holds a character that the
// code page lacks: such a name must never be taken for another one.
std::optional<std::string> from_utf8(std::string_view utf8);
// The same into an existing text, in place of what it held, so that a thousand names need no
// room but that of the longest. False where the other gives nothing; `ansi` is then of no use.
bool from_utf8(std::string_view utf8, std::string& ansi);

// One code point of a UTF-8 text, read at `at`, which moves past it. Nothing, with `at` as it was,
// where the bytes are no UTF-8: cut sequences, overlong forms, surrogates. `at` must be in the
// text.
std::optional<std::uint32_t> next_code_point(std::string_view utf8, std::size_t& at);

// The byte of a code point; nothing if the code page lacks it.
std::optional<char> byte_of(std::uint32_t point);

// UTF-8 as code-page text to be read by people: a "?" stands for each character that the code page
// lacks, and for each byte that is no UTF-8.
std::string from_utf8_with_marks(std::string_view utf8);

// The lower-case form and the capital of each byte.
extern const std::array<char, 256> kLower;
extern const std::array<char, 256> kUpper;

// The lower-case form of one byte, accented letters included.
inline char lower(char byte) {
  return kLower[static_cast<unsigned char>(byte)];
}

// The text with each byte in lower case.
std::string lower(std::string_view text);

// The capital of one byte; a byte that has none in the code page stays as it is.
inline char upper(char byte) {
  return kUpper[static_cast<unsigned char>(byte)];
}

// The text with each byte in capitals.
std::string upper(std::string_view text);

// Whether two texts are equal when case is ignored, as the disk compares names.
bool equal_ignoring_case(std::string_view a, std::string_view b);

// The order in which NTFS lists a folder: by capital letters, as Unicode numbers them, so that
// "temaA" comes before "tema_B". Less than 0 where `a` comes before `b`, 0 where they differ by
// case at most.
int compare_ignoring_case(std::string_view a, std::string_view b);

// Whether `a` comes before `b` in that order.
inline bool less_ignoring_case(std::string_view a, std::string_view b) {
  return compare_ignoring_case(a, b) < 0;
}

// `text` without the blanks at its start; without those at both ends.
std::string_view trim_left(std::string_view text);
std::string_view trim(std::string_view text);

}  // namespace ordelan::text
