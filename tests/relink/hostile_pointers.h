// Projects and pairs made to hit the rules of the walk and of the patch.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "relink/literal_pointers.h"
#include "relink/pointer_file.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {

inline std::string hostile_pointer_piece(Dice& dice) {
  static constexpr std::string_view kBytes(":\\\0:\\\0:\\\0L>a.", 13);
  static constexpr std::array<std::string_view, 16> kPieces = {
      ":\\",   "C:\\",  "C:\\a.wav",       "D:\\Old\\Take.WAV", "D:\\FreezeData", "\\\\",
      "\\:\\", "::\\",  "D:\\Old\\b.flac", "\\\\C:\\x.mp3",     "D:\\d\\",        "L",
      "LIST",  "E:\\D", "c:\\v.aif",       "D:\\.m4a"};
  switch (dice.below(8)) {
    case 0:
    case 1:
      return std::string(kPieces[dice.below(kPieces.size())]);
    case 2:
      return std::string(kPieces[dice.below(kPieces.size())]) + std::string(1, '\0');
    case 3:
      return std::string(1 + dice.below(3), '\0');
    case 4:
      if (dice.below(8) == 0) return std::string(1, static_cast<char>(dice.below(256)));
      [[fallthrough]];
    default:
      return std::string(1, kBytes[dice.below(kBytes.size())]);
  }
}

// 96 bytes, hostile content, nearly always a marker and something after it.
inline std::string hostile_pointer_project(Dice& dice) {
  static constexpr std::array<char, 4> kLast = {'x', ':', '\\', '\0'};
  std::string file(95, 'x');
  file += kLast[dice.below(kLast.size())];
  if (dice.below(64) == 0) file.resize(dice.below(97));
  for (auto pieces = dice.below(20); pieces > 0; --pieces) file += hostile_pointer_piece(dice);
  if (dice.below(32) != 0) {
    for (auto filler = dice.below(13); filler > 0; --filler) file += kLast[dice.below(4)];
    file += "LIST";
    for (int i = 0; i < 4; ++i) file += static_cast<char>(dice.below(4) == 0 ? 'L' : 0);
    file += "mdrl";
  }
  for (auto pieces = dice.below(4); pieces > 0; --pieces) file += hostile_pointer_piece(dice);
  return file;
}

// Pairs for a project: those of its walk, or the same mispaired, moved or repeated, or any.
inline std::vector<relink::Pointer> hostile_pairs(Dice& dice, const std::string& file) {
  std::vector<relink::Pointer> pairs;
  const auto small = [&](std::uint64_t bound) {
    return static_cast<std::int32_t>(dice.below(bound));
  };
  if (dice.below(4) != 0) {
    std::vector<std::int64_t> numbers = literal_pointers(file).numbers;
    if (dice.below(8) == 0 && !numbers.empty()) numbers.erase(numbers.begin());
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
      relink::Pointer pair{static_cast<std::int32_t>(numbers[i]),
                           static_cast<std::int32_t>(numbers[i + 1])};
      if (dice.below(16) == 0) pair.ini += small(9) - 4;
      if (dice.below(16) == 0) pair.fin += small(9) - 4;
      pairs.push_back(pair);
      if (dice.below(16) == 0) pairs.push_back(pair);
    }
  } else {
    const auto around = static_cast<std::uint64_t>(file.size() + 40);
    for (auto count = dice.below(5); count > 0; --count) {
      const std::int32_t ini = small(around) - (dice.below(64) == 0 ? 20 : 0);
      pairs.push_back({ini, dice.below(3) == 0 ? small(around) : ini + small(30) - 3});
    }
  }
  return pairs;
}

}  // namespace ordelan::test
