#include "audio/aac_config.h"

#include <array>

#include "audio/headers.h"
#include "audio/integers.h"

namespace ordelan::audio {
namespace {

// Bits that are taken one after the other, the highest of each byte first.
class Bits {
 public:
  explicit Bits(std::string_view bytes) : bytes_(bytes) {}
  std::uint64_t take(int count) {
    std::uint64_t value = 0;
    for (; count > 0; --count, ++at_) {
      const std::uint64_t byte = big_endian(bytes_, at_ / 8, 1);
      value = value << 1 | (byte >> (7 - at_ % 8) & 1);
    }
    return value;
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

// What the decoder of AAC is given. The entry itself may say two channels or half the rate.
void read_aac_config(std::string_view config, Detalles& details) {
  static constexpr std::array<std::uint64_t, 13> kRates = {
      96000, 88200, 64000, 48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000, 7350};
  static constexpr std::array<std::uint64_t, 8> kChannels = {0, 1, 2, 3, 4, 5, 6, 8};
  constexpr std::uint64_t kDoubledRate = 5;
  constexpr std::uint64_t kDoubledRateInStereo = 29;
  Bits bits(config);
  const auto rate = [&] {
    const std::uint64_t index = bits.take(4);
    if (index == 15) return bits.take(24);
    return index < kRates.size() ? kRates[static_cast<std::size_t>(index)] : 0;
  };
  if (config.size() < 2) return;
  std::uint64_t kind = bits.take(5);
  if (kind == 31) kind = 32 + bits.take(6);
  std::uint64_t frequency = rate();
  const std::uint64_t channels = bits.take(4);
  if (kind == kDoubledRate || kind == kDoubledRateInStereo) frequency = rate();
  set(details.frecuencia, frequency);
  if (channels < kChannels.size()) {
    set(details.canales, kind == kDoubledRateInStereo && channels == 1
                             ? 2
                             : kChannels[static_cast<std::size_t>(channels)]);
  }
}

}  // namespace

void read_esds(std::string_view box, Detalles& details) {
  constexpr char kStream = 3;
  constexpr char kDecoder = 4;
  constexpr char kConfig = 5;
  std::size_t at = 4;
  while (at < box.size()) {
    const char kind = box[at++];
    std::size_t length = 0;
    for (int i = 0; i < 4 && at < box.size(); ++i) {
      const auto byte = static_cast<unsigned char>(box[at++]);
      length = length << 7 | (byte & 0x7Fu);
      if ((byte & 0x80) == 0) break;
    }
    if (kind == kConfig) return read_aac_config(box.substr(at, length), details);
    if (kind == kStream) {
      at += 3;
    } else if (kind == kDecoder) {
      at += 13;
    } else {
      at += length;
    }
  }
}

}  // namespace ordelan::audio
