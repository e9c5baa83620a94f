// What the characters of the code page are in file names.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ordelan::project {

constexpr std::array<bool, 256> such(std::string_view bytes) {
  std::array<bool, 256> table{};
  for (const char c : bytes) table[static_cast<unsigned char>(c)] = true;
  return table;
}

// What no file name holds.
inline constexpr std::array<bool, 256> kNever = [] {
  auto table = such("\\/:*?\"<>|");
  for (std::size_t c = 0; c < 0x20; ++c) table[c] = true;
  return table;
}();

inline constexpr std::array<bool, 256> kLetterOrDigit = [] {
  // The last of these, in capitals and small letters, stand where ISO 8859-1 has controls.
  auto table = such("\x83\x8A\x8C\x8E\x9A\x9C\x9E\x9F\xAA\xB5\xBA");
  for (std::size_t c = '0'; c <= '9'; ++c) table[c] = true;
  for (std::size_t c = 'A'; c <= 'Z'; ++c) table[c] = table[c + 0x20] = true;
  for (std::size_t c = 0xC0; c <= 0xFF; ++c) table[c] = c != 0xD7 && c != 0xF7;
  return table;
}();

inline bool is_ascii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}
inline bool is_plain(char c) {
  return is_ascii(c) && kLetterOrDigit[static_cast<unsigned char>(c)];
}
inline bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
inline bool is_hex(char c) {
  return is_digit(c) || (c >= 'a' && c <= 'f');
}

// The hash of a text that is read character by character.
inline std::uint64_t hashed(std::uint64_t hash, char c) {
  return (hash ^ static_cast<unsigned char>(c)) * 0x9E3779B97F4A7C15u + (hash >> 47);
}

}  // namespace ordelan::project
