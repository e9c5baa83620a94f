// Mp3 files, and those of the other two layers. The length of a file with a steady bit rate follows
// from its size; others have a first frame that says how many there are.
#include <algorithm>
#include <array>

#include "audio/headers.h"
#include "audio/integers.h"

namespace ordelan::audio {
namespace {

// How far sound may begin after the place where it should, and how many frames must follow each
// other to be taken for sound.
constexpr std::size_t kSearched = 64 * 1024;
constexpr int kFramesInRow = 3;

struct Frame {
  int version = 0;  // 1, 2, and 3 for 2.5
  int layer = 0;
  std::uint64_t bit_rate = 0;
  std::uint64_t frequency = 0;
  std::uint64_t samples = 0;
  std::uint64_t length = 0;  // bytes, this head included
  bool mono = false;
};

// The frame that four bytes begin; nothing where they begin none.
std::optional<Frame> frame_of(std::string_view head) {
  static constexpr std::array<std::array<std::uint16_t, 15>, 5> kRates = {{
      {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},  // 1, layer 1
      {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},     // 1, layer 2
      {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},      // 1, layer 3
      {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},     // 2, layer 1
      {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},          // 2, others
  }};
  static constexpr std::array<std::uint64_t, 3> kFrequencies = {44100, 48000, 32000};
  const std::uint64_t bits = big_endian(head, 0, 4);
  if (bits >> 21 != 0x7FF) return std::nullopt;
  const auto version_bits = bits >> 19 & 3;
  const auto layer_bits = bits >> 17 & 3;
  const auto rate_bits = static_cast<std::size_t>(bits >> 12 & 15);
  const auto frequency_bits = static_cast<std::size_t>(bits >> 10 & 3);
  if (version_bits == 1 || layer_bits == 0 || rate_bits == 0 || rate_bits == 15 ||
      frequency_bits == 3) {
    return std::nullopt;
  }
  Frame frame;
  frame.version = version_bits == 3 ? 1 : version_bits == 2 ? 2 : 3;
  frame.layer = 4 - static_cast<int>(layer_bits);
  const int table = frame.version == 1 ? frame.layer - 1 : frame.layer == 1 ? 3 : 4;
  frame.bit_rate = kRates[static_cast<std::size_t>(table)][rate_bits] * std::uint64_t{1000};
  frame.frequency = kFrequencies[frequency_bits] >> (frame.version - 1);
  frame.samples = frame.layer == 1 ? 384 : frame.layer == 3 && frame.version != 1 ? 576 : 1152;
  const std::uint64_t padding = bits >> 9 & 1;
  if (frame.layer == 1) {
    frame.length = (12 * frame.bit_rate / frame.frequency + padding) * 4;
  } else {
    frame.length = frame.samples / 8 * frame.bit_rate / frame.frequency + padding;
  }
  frame.mono = (bits >> 6 & 3) == 3;
  return frame;
}

// Where sound is looked for: the bytes from `begin` on, which end before those of another kind do.
struct Search {
  ByteSource& source;
  std::uint64_t begin;
  std::uint64_t end;
  std::string bytes = source.bytes(begin, kSearched);

  // Four bytes, from those that have been read where they are among them: looking for frames goes
  // to and fro, and would read the same blocks many times.
  std::string head(std::uint64_t at) const {
    if (at - begin + 4 <= bytes.size())
      return bytes.substr(static_cast<std::size_t>(at - begin), 4);
    return source.bytes(at, 4);
  }
};

// Whether frames of one kind follow each other from `at` on, up to the end of the sound if it is
// near. One that is cut there must stand where sound begins, as any file may hold such four bytes.
bool sound_at(const Search& search, std::uint64_t at, const Frame& first) {
  std::uint64_t next = at + first.length;
  int count = 1;
  for (; count < kFramesInRow && next < search.end; ++count) {
    const auto frame = frame_of(search.head(next));
    if (!frame || frame->version != first.version || frame->layer != first.layer ||
        frame->frequency != first.frequency) {
      return false;
    }
    next += frame->length;
  }
  return count > 1 || next <= search.end || at == search.begin;
}

// What the first frame says of all frames.
struct Count {
  std::uint64_t frames = 0;
  std::uint64_t bytes = 0;
  bool steady = false;  // the bit rate of each frame is that of all
};

Count count_of(std::string_view content, const Frame& frame) {
  constexpr std::size_t kFraunhofer = 36;
  const std::size_t at = frame.version == 1 ? (frame.mono ? 21 : 36) : (frame.mono ? 13 : 21);
  const std::string_view mark = content.substr(std::min(at, content.size()), 4);
  if (mark == "Xing" || mark == "Info") {
    const std::uint64_t flags = big_endian(content, at + 4, 4);
    Count count;
    std::size_t field = at + 8;
    if ((flags & 1) != 0) {
      count.frames = big_endian(content, field, 4);
      field += 4;
    }
    if ((flags & 2) != 0) count.bytes = big_endian(content, field, 4);
    count.steady = mark == "Info";
    return count;
  }
  if (content.substr(std::min(kFraunhofer, content.size()), 4) == "VBRI") {
    return {big_endian(content, kFraunhofer + 14, 4), big_endian(content, kFraunhofer + 10, 4),
            false};
  }
  return {};
}

void describe(ByteSource& source, std::uint64_t at, const Frame& frame, std::uint64_t end,
              Detalles& details) {
  const auto frequency = static_cast<double>(frame.frequency);
  const std::uint64_t size = end - std::min(end, at);
  set(details.canales, frame.mono ? 1 : 2);
  set(details.frecuencia, frame.frequency);
  set(details.velocidad, frame.bit_rate);
  const Count count = count_of(source.bytes(at, 64), frame);
  if (count.frames == 0) {
    set_duration(details, static_cast<double>(size) * 8, static_cast<double>(frame.bit_rate));
    return;
  }
  set_duration(details, static_cast<double>(count.frames) * static_cast<double>(frame.samples),
               frequency);
  if (count.steady) {
    // The frame with the count is as large as it has to be; those of the sound begin after it.
    const auto second = frame_of(source.bytes(at + frame.length, 4));
    if (second) set(details.velocidad, second->bit_rate);
  } else {
    set_mean_rate(details, static_cast<double>(count.bytes > 0 ? count.bytes : size));
  }
}

}  // namespace

bool read_mpeg(ByteSource& source, std::uint64_t begin, Detalles& details) {
  Etiquetas short_tags;
  const Search search{source, begin, read_short_id3(source, short_tags)};
  for (std::size_t at = search.bytes.find('\xFF'); at != std::string::npos;
       at = search.bytes.find('\xFF', at + 1)) {
    const auto frame = frame_of(std::string_view(search.bytes).substr(at, 4));
    if (!frame || !sound_at(search, begin + at, *frame)) continue;
    describe(source, begin + at, *frame, search.end, details);
    for (const auto& [name, text] : short_tags) add_missing_tag(details.etiquetas, name, text);
    return true;
  }
  // Something with a tag in front and nothing else that is understood.
  if (begin > 0) {
    for (const auto& [name, text] : short_tags) add_missing_tag(details.etiquetas, name, text);
  }
  return begin > 0;
}

}  // namespace ordelan::audio
