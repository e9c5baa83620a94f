// Bytes made to hit the rules by which projects are read: markers, dots, colons, NULs and "L"s, in
// every order and distance.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ordelan::test {

// A small fast source of numbers, the same ones for the same seed on every system.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}
  std::uint64_t next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15u);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }
  std::uint64_t below(std::uint64_t bound) { return next() % bound; }

 private:
  std::uint64_t state_;
};

inline std::string hostile_piece(Dice& dice) {
  static constexpr std::array<std::string_view, 26> kPieces = {
      ":\\",   "C:\\a", ".wav", ".mp3", ".aif",    ".aiff", ".ogg", ".fla",  ".flac",
      ".FLA_", ".WaV",  ".",    ":",    "::",      "\\",    "L",    "LIST",  "LISTxxxxmdrl",
      "mdrl",  "b",     "name", ".wm",  "D:\\x.y", " ",     "\xF1", ".a.wav"};
  switch (dice.below(4)) {
    case 0:
      return std::string(1 + dice.below(3), '\0');
    case 1: {
      static constexpr std::string_view kBytes(":\\.\0L wavfIST", 13);
      return std::string(1, kBytes[dice.below(kBytes.size())]);
    }
    case 2:
      if (dice.below(8) == 0) return std::string(1, static_cast<char>(dice.below(256)));
      [[fallthrough]];
    default:
      return std::string(kPieces[dice.below(kPieces.size())]);
  }
}

// A whole file: 96 bytes, mostly a header with its NUL, hostile content, often a marker at some
// place and something after it.
inline std::string hostile_project(Dice& dice) {
  std::string file(96, '\0');
  if (dice.below(16) == 0) file.resize(dice.below(97));
  if (dice.below(8) != 0) file += std::string("head").substr(0, dice.below(5)) + '\0';
  for (auto pieces = dice.below(24); pieces > 0; --pieces) file += hostile_piece(dice);
  if (dice.below(8) != 0) {
    file += std::string("LIST");
    for (int i = 0; i < 4; ++i) file += static_cast<char>(dice.below(4) == 0 ? 'L' : 0);
    file += "mdrl";
  }
  for (auto pieces = dice.below(6); pieces > 0; --pieces) file += hostile_piece(dice);
  // A flipped byte now and then.
  if (!file.empty() && dice.below(4) == 0) {
    file[dice.below(file.size())] = static_cast<char>(dice.below(256));
  }
  return file;
}

}  // namespace ordelan::test
