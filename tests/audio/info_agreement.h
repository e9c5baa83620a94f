// What the texts on wav and mp3 files are compared with, and bytes made to hit their rules.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "audio/info_bench.h"
#include "audio/literal_info.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {

// A sentence where the program and the literal reading disagree on a file with these bytes; empty
// where they agree.
inline std::string compare_info(const std::string& file) {
  InfoBench bench;
  if (bench.text_of("wav", file) != literal_wav(file)) return "another text on a wav";
  if (bench.text_of("mp3", file) != literal_mp3(file)) return "another text on an mp3";
  return {};
}

inline std::string hostile_info_piece(Dice& dice) {
  static constexpr std::array<std::string_view, 14> kPieces = {
      "f",   "fm",  "fmt", "fmt ", "ffmt", "RIFF", "WAVE",
      "TAG", "tag", "tAg", "ta",   "  ",   "JUNK", "Uno"};
  switch (dice.below(6)) {
    case 0:
      return std::string(1 + dice.below(40), '\0');
    case 1:
      return std::string(1 + dice.below(40), ' ');
    case 2:
      return std::string(1, static_cast<char>(dice.below(256)));
    case 3:
      return little_endian(dice.below(4) == 0 ? dice.next() : 8 * dice.below(5), 2);
    default:
      return std::string(kPieces[dice.below(kPieces.size())]);
  }
}

// A small file: a header or none, pieces, a tag or none; near the lengths at which the rules
// change.
inline std::string hostile_info_file(Dice& dice) {
  std::string file;
  if (dice.below(3) == 0) file = wav_header(2, 44100, static_cast<int>(8 * dice.below(5)));
  if (dice.below(3) == 0) file.insert(0, std::string(230 + dice.below(30), '.'));
  for (auto pieces = dice.below(20); pieces > 0; --pieces) file += hostile_info_piece(dice);
  if (dice.below(2) == 0) {
    file.insert(0, std::string(dice.below(260), 'x'));
    file += tag_block("title", "", "album", std::string(30, 'c'), dice.below(2) == 0 ? ' ' : '\0');
    if (dice.below(4) == 0) file += std::string(dice.below(140), '.');
  }
  if (!file.empty() && dice.below(2) == 0) {
    file[dice.below(file.size())] = static_cast<char>(dice.below(2) == 0 ? 'f' : dice.below(256));
  }
  if (dice.below(8) == 0) file.resize(250 + dice.below(12), '.');
  return file;
}

}  // namespace ordelan::test
