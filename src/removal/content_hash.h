// A fingerprint of a file's bytes: it tells copies apart and notices damage. It is no protection
// against somebody who makes two files of one fingerprint on purpose.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ordelan::removal {

class ContentHash {
 public:
  // Appends bytes; it does not matter how they are cut into calls.
  void add(std::span<const std::uint8_t> bytes);
  // The fingerprint of all bytes so far. It is part of the format of the index, so that it must
  // never change.
  std::uint64_t value() const;

 private:
  static constexpr std::size_t kLanes = 4;
  static constexpr std::size_t kBlock = kLanes * sizeof(std::uint64_t);

  void mix(const std::uint8_t* block);

  std::array<std::uint64_t, kLanes> lanes_{0x9E3779B97F4A7C15u, 0xC2B2AE3D27D4EB4Fu,
                                           0x165667B19E3779F9u, 0xD6E8FEB86659FD93u};
  std::array<std::uint8_t, kBlock> rest_{};  // bytes that fill no block yet
  std::size_t in_rest_ = 0;
  std::uint64_t size_ = 0;
};

}  // namespace ordelan::removal
