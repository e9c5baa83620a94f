// Whole numbers in the bytes of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ordelan::audio {

// `count` bytes (8 at most) from `at` on as a number, the lowest byte first or last. 0 where they
// reach beyond the end.
inline std::uint64_t little_endian(std::string_view bytes, std::size_t at, std::size_t count) {
  if (at > bytes.size() || count > bytes.size() - at) return 0;
  std::uint64_t value = 0;
  for (std::size_t i = count; i > 0; --i) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + i - 1]);
  }
  return value;
}
inline std::uint64_t big_endian(std::string_view bytes, std::size_t at, std::size_t count) {
  if (at > bytes.size() || count > bytes.size() - at) return 0;
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < count; ++i) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  }
  return value;
}

}  // namespace ordelan::audio
