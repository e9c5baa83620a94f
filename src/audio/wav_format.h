// The format of a wav as the tooltips show it: what stands after the letters "fmt".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ordelan::audio {

// All zero where "fmt" was not found. The numbers are signed: 40,000 channels show as -25536.
struct WavFormat {
  std::int16_t channels = 0;
  std::int32_t frequency = 0;  // Hz
  std::int16_t bits = 0;       // per sample
  bool operator==(const WavFormat&) const = default;
};

// How many bytes at the beginning of a file are looked at: an "f" in the first 255 of them, and the
// last number that may belong to it.
inline constexpr std::size_t kWavWindow = 278;

// The format in the first bytes of a file (kWavWindow of them, fewer only where the file is
// shorter). Only the first "f" is tried. Where it does not begin "fmt" (a size with the byte 0x66,
// a chunk such as "JUNKf") the format is all zero, although a "fmt" may follow; neither "RIFF" nor
// "WAVE" is asked for. A number that reaches beyond the end of the file is 0.
WavFormat wav_format(std::string_view first_bytes);

// The block of text: four rows, and after them a word on the codec where the file has 24 bits.
std::string wav_text(const WavFormat& format);

}  // namespace ordelan::audio
