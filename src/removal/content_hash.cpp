#include "removal/content_hash.h"

#include <algorithm>
#include <bit>

namespace ordelan::removal {
namespace {

constexpr std::uint64_t kOdd = 0xBF58476D1CE4E5B9u;
constexpr int kTurn = 29;

// Eight bytes, the lowest first on every machine.
std::uint64_t word(const std::uint8_t* bytes) {
  std::uint64_t value = 0;
  for (int i = 7; i >= 0; --i) value = value << 8 | bytes[i];
  return value;
}

std::uint64_t stir(std::uint64_t value) {
  value = (value ^ (value >> 31)) * kOdd;
  return value ^ (value >> 29);
}

}  // namespace

void ContentHash::mix(const std::uint8_t* block) {
  for (std::size_t i = 0; i < kLanes; ++i) {
    lanes_[i] = std::rotl((lanes_[i] ^ word(block + 8 * i)) * kOdd, kTurn);
  }
}

void ContentHash::add(std::span<const std::uint8_t> bytes) {
  size_ += bytes.size();
  if (in_rest_ > 0) {
    const std::size_t taken = std::min(kBlock - in_rest_, bytes.size());
    std::copy_n(bytes.begin(), taken, rest_.begin() + static_cast<std::ptrdiff_t>(in_rest_));
    in_rest_ += taken;
    bytes = bytes.subspan(taken);
    if (in_rest_ < kBlock) return;
    mix(rest_.data());
    in_rest_ = 0;
  }
  for (; bytes.size() >= kBlock; bytes = bytes.subspan(kBlock)) mix(bytes.data());
  std::copy(bytes.begin(), bytes.end(), rest_.begin());
  in_rest_ = bytes.size();
}

std::uint64_t ContentHash::value() const {
  ContentHash last = *this;
  if (last.in_rest_ > 0) {
    std::fill(last.rest_.begin() + static_cast<std::ptrdiff_t>(last.in_rest_), last.rest_.end(),
              std::uint8_t{0});
    last.mix(last.rest_.data());
  }
  std::uint64_t value = size_;
  for (const std::uint64_t lane : last.lanes_) value = stir(value ^ lane) + lane;
  return value;
}

}  // namespace ordelan::removal
