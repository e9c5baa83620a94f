// Random numbers that are the same on every machine for the same seed (xoshiro256**). The standard
// library's distributions are not: each library cuts its numbers in its own way.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

namespace ordelan::studio {

class SeededRandom {
 public:
  explicit SeededRandom(std::uint64_t seed) {
    // Splitmix fills the state, so that seeds close together give unrelated numbers.
    for (std::uint64_t& word : state_) {
      seed += 0x9E3779B97F4A7C15u;
      std::uint64_t mixed = seed;
      mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
      mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
      word = mixed ^ (mixed >> 31);
    }
  }

  // 64 random bits.
  std::uint64_t next() {
    const std::uint64_t result = std::rotl(state_[1] * 5, 7) * 9;
    const std::uint64_t shifted = state_[1] << 17;
    state_[2] ^= state_[0];
    state_[3] ^= state_[1];
    state_[1] ^= state_[2];
    state_[0] ^= state_[3];
    state_[2] ^= shifted;
    state_[3] = std::rotl(state_[3], 45);
    return result;
  }

  // A number in [0, limit); 0 when the limit is 0. The tiny preference for small numbers that the
  // remainder brings does no harm to sample data.
  std::uint64_t below(std::uint64_t limit) { return limit == 0 ? 0 : next() % limit; }

  // True in `percent` of 100 cases.
  bool chance(unsigned percent) { return below(100) < percent; }

 private:
  std::array<std::uint64_t, 4> state_{};
};

}  // namespace ordelan::studio
