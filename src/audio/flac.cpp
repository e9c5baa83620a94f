#include "audio/headers.h"
#include "audio/integers.h"

namespace ordelan::audio {

std::uint64_t read_stream_info(std::string_view block, Detalles& details) {
  // From byte 10 on: 20 bits of rate, 3 of channels, 5 of bits a sample, 36 of samples.
  const std::uint64_t packed = big_endian(block, 10, 8);
  if (packed == 0) return 0;
  set(details.frecuencia, packed >> 44);
  set(details.canales, (packed >> 41 & 7) + 1);
  set(details.bits, (packed >> 36 & 31) + 1);
  return packed & 0xFFFFFFFFF;
}

bool read_flac(ByteSource& source, std::uint64_t begin, Detalles& details) {
  constexpr unsigned kStreamInfo = 0;
  constexpr unsigned kComment = 4;
  if (source.bytes(begin, 4) != "fLaC") return false;
  std::uint64_t samples = 0;
  std::uint64_t at = begin + 4;
  for (bool last = false; !last;) {
    const std::string head = source.bytes(at, 4);
    if (head.size() < 4) break;
    last = (head[0] & 0x80) != 0;
    const auto kind = static_cast<unsigned char>(head[0]) & 0x7Fu;
    const std::uint64_t length = big_endian(head, 1, 3);
    at += 4;
    if (kind == kStreamInfo) {
      samples = read_stream_info(source.bytes(at, 34), details);
    } else if (kind == kComment) {
      SourceStream stream(source, at, at + length);
      read_vorbis_comment(stream, details.etiquetas);
    }
    at += length;
  }
  if (samples > 0 && details.frecuencia) {
    set_duration(details, static_cast<double>(samples), static_cast<double>(*details.frecuencia));
  }
  if (at < source.size()) set_mean_rate(details, static_cast<double>(source.size() - at));
  return true;
}

}  // namespace ordelan::audio
