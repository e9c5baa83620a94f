// Ogg files with Vorbis, Opus, FLAC or Speex inside.
#include <algorithm>

#include "audio/headers.h"
#include "audio/integers.h"

namespace ordelan::audio {
namespace {

constexpr std::size_t kPageHead = 27;
constexpr std::size_t kLargestPage = kPageHead + 255 + 255 * 255;
constexpr std::uint64_t kNoGranule = ~std::uint64_t{0};

// One stream of a file, packet by packet. Pages of other streams are passed over.
class Packets final : public ByteStream {
 public:
  Packets(ByteSource& source, std::uint64_t at) : source_(source), next_page_(at) {}

  // Goes on to the stream that begins with the page that is next. False without a page there.
  bool begin_stream() {
    any_serial_ = true;
    segment_ = segments_.size();
    return next_page();
  }
  // Goes past what is left of the packet.
  void next_packet() {
    while (!ended_) skip(kLargestPage);
    ended_ = false;
  }

  // Both stay inside of the packet.
  std::string take(std::size_t count) override {
    std::string bytes;
    while (bytes.size() < count && in_segment()) {
      const std::size_t part = std::min(count - bytes.size(), left_);
      const std::string came = source_.bytes(at_, part);
      if (came.empty()) end_all();
      bytes += came;
      pass(came.size());
    }
    return bytes;
  }
  void skip(std::uint64_t count) override {
    while (count > 0 && in_segment()) {
      const auto part = static_cast<std::size_t>(std::min<std::uint64_t>(count, left_));
      count -= part;
      pass(part);
    }
  }

  std::uint64_t serial() const { return serial_; }
  // Where the page after this one begins.
  std::uint64_t next_page_at() const { return next_page_; }

 private:
  // Whether there are bytes left of the packet; moves to the page on which they are.
  bool in_segment() {
    while (!ended_ && left_ == 0) {
      if (whole_segment_) {
        ended_ = true;
      } else if (segment_ < segments_.size()) {
        left_ = static_cast<unsigned char>(segments_[segment_++]);
        whole_segment_ = left_ < 255;
      } else if (!next_page()) {
        end_all();
      }
    }
    // The next packet begins with a segment of its own.
    if (ended_) whole_segment_ = false;
    return !ended_;
  }
  void pass(std::size_t count) {
    left_ -= count;
    at_ += count;
  }
  void end_all() {
    ended_ = true;
    left_ = 0;
    segment_ = segments_.size();
    next_page_ = source_.size();
  }
  bool next_page() {
    for (;;) {
      const std::string head = source_.bytes(next_page_, kPageHead);
      if (head.size() < kPageHead || !head.starts_with("OggS")) return false;
      segments_ = source_.bytes(next_page_ + kPageHead, static_cast<unsigned char>(head[26]));
      segment_ = 0;
      at_ = next_page_ + kPageHead + segments_.size();
      next_page_ = at_;
      for (const char length : segments_) next_page_ += static_cast<unsigned char>(length);
      const std::uint64_t serial = little_endian(head, 14, 4);
      if (any_serial_ || serial == serial_) {
        any_serial_ = false;
        serial_ = serial;
        return true;
      }
    }
  }

  ByteSource& source_;
  std::uint64_t next_page_;
  std::uint64_t at_ = 0;        // of the next byte
  std::uint64_t serial_ = 0;    // of the stream
  bool any_serial_ = false;     // the next page decides on the stream
  std::string segments_;        // the lengths on this page
  std::size_t segment_ = 0;     // the next of them
  std::size_t left_ = 0;        // of the segment
  bool whole_segment_ = false;  // the segment is the last one of its packet
  bool ended_ = false;          // the packet
};

// What the first packet of a stream says.
struct Stream {
  bool sound = false;
  bool flac = false;
  std::string_view comment;    // with what its packet of tags begins
  std::uint64_t rate = 0;      // of granules
  std::uint64_t unplayed = 0;  // granules before the sound begins
};

Stream describe(std::string_view first, Detalles& details) {
  using namespace std::string_view_literals;
  Stream stream;
  stream.sound = true;
  if (first.starts_with("\x01vorbis")) {
    stream.comment = "\x03vorbis";
    stream.rate = little_endian(first, 12, 4);
    set(details.canales, little_endian(first, 11, 1));
  } else if (first.starts_with("OpusHead")) {
    stream.comment = "OpusTags";
    stream.rate = 48000;  // whatever rate the sound had before
    stream.unplayed = little_endian(first, 10, 2);
    set(details.canales, little_endian(first, 9, 1));
  } else if (first.starts_with("\x7F"
                               "FLAC")) {
    stream.flac = true;
    stream.comment = "\x04"sv;
    read_stream_info(first.substr(std::min<std::size_t>(17, first.size())), details);
    stream.rate = static_cast<std::uint64_t>(details.frecuencia.value_or(0));
  } else if (first.starts_with("Speex   ")) {
    stream.comment = ""sv;
    stream.rate = little_endian(first, 36, 4);
    set(details.canales, little_endian(first, 48, 4));
  } else {
    return {};
  }
  set(details.frecuencia, stream.rate);
  return stream;
}

// The granule of the last page of a stream; kNoGranule where none is near the end.
std::uint64_t last_granule(ByteSource& source, std::uint64_t serial) {
  const std::uint64_t begin = source.size() - std::min<std::uint64_t>(source.size(), kLargestPage);
  const std::string tail = source.bytes(begin, kLargestPage);
  for (std::size_t at = tail.rfind("OggS"); at != std::string::npos;
       at = at == 0 ? std::string::npos : tail.rfind("OggS", at - 1)) {
    const std::uint64_t granule = little_endian(tail, at + 6, 8);
    const bool whole = at + kPageHead <= tail.size() && tail[at + 4] == '\0';
    if (whole && little_endian(tail, at + 14, 4) == serial && granule != kNoGranule) return granule;
  }
  return kNoGranule;
}

}  // namespace

bool read_ogg(ByteSource& source, Detalles& details) {
  constexpr int kMostStreams = 16;
  if (source.bytes(0, 4) != "OggS") return false;
  // The first pages of all streams stand at the beginning of the file.
  std::uint64_t at = 0;
  for (int streams = 0; streams < kMostStreams; ++streams) {
    Packets packets(source, at);
    if (!packets.begin_stream()) break;
    at = packets.next_page_at();
    const Stream stream = describe(packets.take(64), details);
    if (!stream.sound) continue;

    packets.next_packet();
    std::string begin = packets.take(stream.comment.size());
    if (stream.flac && !begin.empty()) begin[0] &= '\x7F';  // the highest bit marks the last block
    if (begin == stream.comment) {
      if (stream.flac) packets.skip(3);
      read_vorbis_comment(packets, details.etiquetas);
    }
    packets.next_packet();
    const std::uint64_t granule = last_granule(source, packets.serial());
    if (granule != kNoGranule && granule >= stream.unplayed) {
      set_duration(details, static_cast<double>(granule - stream.unplayed),
                   static_cast<double>(stream.rate));
    }
    const std::uint64_t sound = std::min(packets.next_page_at(), source.size());
    set_mean_rate(details, static_cast<double>(source.size() - sound));
    break;
  }
  return true;
}

}  // namespace ordelan::audio
