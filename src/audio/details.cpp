#include "audio/details.h"

#include <cmath>
#include <span>

#include "audio/headers.h"

namespace ordelan::audio {

void set(std::optional<std::int64_t>& field, std::uint64_t value) {
  constexpr std::uint64_t kMost = 10'000'000'000;
  if (value > 0 && value <= kMost) field = static_cast<std::int64_t>(value);
}

void set_duration(Detalles& details, double samples, double rate) {
  constexpr double kMostSeconds = 1e9;  // 30 years
  constexpr double kMostRate = 1e11;
  if (!(rate > 0 && rate < kMostRate) || !(samples >= 0 && samples <= kMostSeconds * rate)) return;
  details.duracion = samples / rate;
}

void set_mean_rate(Detalles& details, double bytes) {
  if (!details.duracion || *details.duracion <= 0) return;
  const double rate = std::round(bytes * 8 / *details.duracion);
  if (rate > 0 && rate < 1e10) details.velocidad = static_cast<std::int64_t>(rate);
}

Detalles read_details(ByteSource& source) {
  Detalles details;
  if (read_riff(source, details) || read_w64(source, details) || read_aiff(source, details) ||
      read_ogg(source, details) || read_asf(source, details) || read_mp4(source, details)) {
    return details;
  }
  std::uint64_t begin = 0;
  for (;;) {  // some programs put a second tag before the first instead of changing it
    const std::uint64_t end = read_id3(source, begin, source.size(), details.etiquetas);
    if (end == begin) break;
    begin = end;
  }
  if (!read_flac(source, begin, details)) read_mpeg(source, begin, details);
  return details;
}

Detalles read_details(system::FileSystem& files, const std::string& path) {
  const auto file = files.open(path);
  if (!file) return {};
  ByteSource source(file->size(), [&file](std::uint64_t offset, std::span<std::uint8_t> buffer) {
    return file->read(offset, buffer);
  });
  return read_details(source);
}

}  // namespace ordelan::audio
