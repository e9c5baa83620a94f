#include "audio/wav_format.h"

#include "audio/integers.h"

namespace ordelan::audio {
namespace {

std::int16_t read_16(std::string_view bytes, std::size_t at) {
  return static_cast<std::int16_t>(little_endian(bytes, at, 2));
}

std::int32_t read_32(std::string_view bytes, std::size_t at) {
  return static_cast<std::int32_t>(little_endian(bytes, at, 4));
}

}  // namespace

WavFormat wav_format(std::string_view first_bytes) {
  constexpr std::size_t kSearched = 255;
  const std::size_t f = first_bytes.substr(0, kSearched).find('f');
  if (f == std::string_view::npos || first_bytes.substr(f, 3) != "fmt") return {};
  return {read_16(first_bytes, f + 10), read_32(first_bytes, f + 12), read_16(first_bytes, f + 22)};
}

std::string wav_text(const WavFormat& format) {
  std::string text = " Tipo: Wav\r\n Canales: " + std::to_string(format.channels) +
                     "\r\n Frec: " + std::to_string(format.frequency) +
                     "\r\n Bits: " + std::to_string(format.bits) + "\r\n";
  if (format.bits == 24) text += " No se reproduce sin tener el codec";
  return text;
}

}  // namespace ordelan::audio
