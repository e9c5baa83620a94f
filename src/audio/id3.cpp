// The tags of mp3 files: blocks of frames before the sound, and the short one at the end.
#include <algorithm>
#include <array>
#include <charconv>
#include <memory>

#include "audio/headers.h"
#include "audio/integers.h"

namespace ordelan::audio {
namespace {

// What is kept of a frame: a text in two bytes a character, and its description.
constexpr std::size_t kMostFrame = 2 * kMostText + 512;

// A number of which each byte holds 7 bits, so that none looks like the beginning of sound.
std::uint64_t number_of_7_bits(std::string_view bytes, std::size_t at) {
  std::uint64_t value = 0;
  for (std::size_t i = at; i < at + 4 && i < bytes.size(); ++i) {
    value = value << 7 | (static_cast<unsigned char>(bytes[i]) & 0x7F);
  }
  return value;
}

// The bytes before zeros were put after those that look like the beginning of sound.
std::string without_stuffing(std::string_view bytes) {
  std::string plain;
  bool after_ff = false;
  for (const char byte : bytes) {
    if (!after_ff || byte != '\0') plain += byte;
    after_ff = byte == '\xFF';
  }
  return plain;
}

// The same for a whole block.
class UnstuffedStream final : public ByteStream {
 public:
  explicit UnstuffedStream(SourceStream stream) : stream_(stream) {}
  std::string take(std::size_t count) override {
    std::string bytes;
    while (bytes.size() < count) {
      const std::string came = stream_.take(count - bytes.size());
      if (came.empty()) break;
      for (const char byte : came) {
        if (!after_ff_ || byte != '\0') bytes += byte;
        after_ff_ = byte == '\xFF';
      }
    }
    return bytes;
  }
  void skip(std::uint64_t count) override {
    while (count > 0) {
      const auto part = static_cast<std::size_t>(std::min<std::uint64_t>(count, 4096));
      const std::size_t came = take(part).size();
      if (came == 0) break;
      count -= came;
    }
  }

 private:
  SourceStream stream_;
  bool after_ff_ = false;
};

struct FrameName {
  std::string_view name;        // of versions 3 and 4
  std::string_view short_name;  // of version 2
  std::string_view tag;
};
constexpr std::array<FrameName, 18> kFrames = {{
    {"TIT2", "TT2", "title"},
    {"TPE1", "TP1", "artist"},
    {"TPE2", "TP2", "album_artist"},
    {"TPE3", "TP3", "performer"},
    {"TALB", "TAL", "album"},
    {"TYER", "TYE", "date"},
    {"TDRC", "", "date"},
    {"TCON", "TCO", "genre"},
    {"TRCK", "TRK", "track"},
    {"TPOS", "TPA", "disc"},
    {"TCOM", "TCM", "composer"},
    {"TCOP", "TCR", "copyright"},
    {"TENC", "TEN", "encoded_by"},
    {"TSSE", "TSS", "encoder"},
    {"TPUB", "TPB", "publisher"},
    {"TLAN", "TLA", "language"},
    {"TXXX", "TXX", ""},  // its description is its name
    {"COMM", "COM", "comment"},
}};

const FrameName* find_frame(std::string_view name) {
  const auto found = std::find_if(kFrames.begin(), kFrames.end(), [&](const FrameName& each) {
    return name == each.name || name == each.short_name;
  });
  return found == kFrames.end() ? nullptr : &*found;
}

// The texts of a frame, between which zeros stand.
std::vector<std::string> texts_of(std::string_view bytes, char encoding) {
  const bool wide = encoding == 1 || encoding == 2;
  std::vector<std::string> texts;
  while (!bytes.empty()) {
    std::size_t end = 0;
    if (wide) {
      while (end + 1 < bytes.size() && (bytes[end] != '\0' || bytes[end + 1] != '\0')) end += 2;
    } else {
      end = bytes.find('\0');
    }
    end = std::min(end, bytes.size());
    const std::string_view part = bytes.substr(0, end);
    texts.push_back(wide ? text_of_utf16(part, encoding == 2) : text_of(part));
    bytes.remove_prefix(std::min(bytes.size(), end + (wide ? 2 : 1)));
  }
  return texts;
}

// "(17)", "17" and "(17)Rock" as "Rock"; other texts as they are.
std::string genre_of(std::string_view text) {
  const bool bracket = text.starts_with('(');
  const std::string_view digits = text.substr(bracket ? 1 : 0);
  unsigned number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (read.ec != std::errc()) return std::string(text);
  std::string_view rest = digits.substr(static_cast<std::size_t>(read.ptr - digits.data()));
  if (bracket != rest.starts_with(')') || (!bracket && !rest.empty())) return std::string(text);
  if (bracket) rest.remove_prefix(1);
  if (!rest.empty()) return std::string(rest);
  const std::string name = genre_name(number);
  return name.empty() ? std::string(text) : name;
}

void read_frame(const FrameName& frame, std::string_view body, Etiquetas& tags) {
  if (body.empty()) return;
  const char encoding = body[0];
  const bool comment = frame.name == "COMM";
  body.remove_prefix(std::min<std::size_t>(body.size(), comment ? 4 : 1));  // and the language
  std::vector<std::string> texts = texts_of(body, encoding);
  if (comment || frame.tag.empty()) {
    if (texts.size() < 2) return;
    const std::string description = texts[0];
    // Numbers for one player's own use.
    if (description.starts_with("iTun")) return;
    for (std::size_t i = 1; i < texts.size(); ++i) {
      add_tag(tags, comment ? frame.tag : std::string_view(description), texts[i]);
    }
    return;
  }
  for (const std::string& text : texts) {
    add_tag(tags, frame.tag, frame.tag == "genre" ? genre_of(text) : text);
  }
}

bool is_name(std::string_view name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  });
}

// The frames of a block from `stream` on.
class Frames {
 public:
  // `stuffed` is what the block's head says about all its frames; `place` is the stream where it is
  // part of the file as it is, else null.
  Frames(ByteStream& stream, int version, bool stuffed, SourceStream* place, ByteSource& source)
      : stream_(stream), version_(version), stuffed_(stuffed), place_(place), source_(source) {}

  void read(Etiquetas& tags) {
    const std::size_t head_size = version_ == 2 ? 6 : 10;
    const std::size_t name_size = version_ == 2 ? 3 : 4;
    for (;;) {
      const std::string head = stream_.take(head_size);
      if (head.size() < head_size) return;
      const std::string name = head.substr(0, name_size);
      if (!is_name(name)) return;
      const std::uint64_t length = length_of(head);
      const FrameName* const frame = find_frame(name);
      const std::uint64_t flags = version_ == 2 ? 0 : big_endian(head, 8, 2);
      if (frame == nullptr || unreadable(flags)) {
        stream_.skip(length);
        continue;
      }
      const auto kept = static_cast<std::size_t>(std::min<std::uint64_t>(length, kMostFrame));
      const std::string body = stream_.take(kept);
      if (body.size() < kept) return;
      stream_.skip(length - kept);
      read_frame(*frame, plain(body, flags), tags);
    }
  }

 private:
  // Whether the frame is compressed or encrypted.
  bool unreadable(std::uint64_t flags) const {
    return version_ == 3 ? (flags & 0xC0) != 0 : version_ == 4 && (flags & 0x0C) != 0;
  }

  // A frame's content without what its flags put before it.
  std::string plain(std::string body, std::uint64_t flags) const {
    if (version_ == 3 && (flags & 0x20) != 0)
      return body.substr(std::min<std::size_t>(1, body.size()));
    if (version_ != 4) return body;
    const std::size_t before = ((flags & 0x40) != 0 ? 1u : 0u) + ((flags & 1) != 0 ? 4u : 0u);
    body.erase(0, before);
    return stuffed_ || (flags & 2) != 0 ? without_stuffing(body) : body;
  }

  std::uint64_t length_of(std::string_view head) const {
    if (version_ == 2) return big_endian(head, 3, 3);
    const std::uint64_t whole = big_endian(head, 4, 4);
    if (version_ == 3) return whole;
    const std::uint64_t by_7_bits = number_of_7_bits(head, 4);
    if (whole == by_7_bits || place_ == nullptr) return by_7_bits;
    // Some programs write the length in 8 bits a byte: what follows the frame decides.
    const bool eight = (whole & 0x80808080) != 0 || (!frame_at(by_7_bits) && frame_at(whole));
    return eight ? whole : by_7_bits;
  }
  // Whether a frame, padding or the end of the block follows so many bytes.
  bool frame_at(std::uint64_t length) const {
    const std::uint64_t left = place_->end() - place_->at();
    if (length > left) return false;
    const std::string name = source_.bytes(place_->at() + length, 4);
    return length == left || name.starts_with('\0') || is_name(name);
  }

  ByteStream& stream_;
  int version_;
  bool stuffed_;
  SourceStream* place_;
  ByteSource& source_;
};

}  // namespace

std::uint64_t read_id3(ByteSource& source, std::uint64_t begin, std::uint64_t end,
                       Etiquetas& tags) {
  constexpr std::uint64_t kHead = 10;
  const std::string head = source.bytes(begin, kHead);
  if (head.size() < kHead || !head.starts_with("ID3")) return begin;
  const int version = head[3];
  const auto flags = static_cast<unsigned char>(head[5]);
  const std::uint64_t length = number_of_7_bits(head, 6);
  const bool footer = version == 4 && (flags & 0x10) != 0;
  const std::uint64_t after = begin + kHead + length + (footer ? kHead : 0);
  const bool stuffed = (flags & 0x80) != 0;
  const bool extended = (flags & 0x40) != 0;  // in version 2: compressed
  if (version < 2 || version > 4 || (version == 2 && extended)) return after;

  SourceStream plain(source, begin + kHead, std::min(end, begin + kHead + length));
  const bool by_block = stuffed && version < 4;
  UnstuffedStream unstuffed(plain);
  ByteStream& stream = by_block ? static_cast<ByteStream&>(unstuffed) : plain;
  if (extended) {
    const std::string size = stream.take(4);
    // Version 4 counts the four bytes too.
    const std::uint64_t rest = number_of_7_bits(size, 0);
    stream.skip(version == 3 ? big_endian(size, 0, 4) : rest - std::min<std::uint64_t>(rest, 4));
  }
  Frames(stream, version, stuffed, by_block ? nullptr : &plain, source).read(tags);
  return after;
}

std::uint64_t read_short_id3(ByteSource& source, Etiquetas& tags) {
  constexpr std::uint64_t kBlock = 128;
  if (source.size() < kBlock) return source.size();
  const std::uint64_t begin = source.size() - kBlock;
  const std::string block = source.bytes(begin, kBlock);
  if (block.size() < kBlock || !block.starts_with("TAG")) return source.size();
  const auto field = [&](std::size_t at, std::size_t width) {
    const std::string bytes = block.substr(at, width);
    return text_of(std::string_view(bytes).substr(0, bytes.find('\0')));
  };
  add_missing_tag(tags, "title", field(3, 30));
  add_missing_tag(tags, "artist", field(33, 30));
  add_missing_tag(tags, "album", field(63, 30));
  add_missing_tag(tags, "date", field(93, 4));
  add_missing_tag(tags, "comment", field(97, 30));
  // A comment of 28 characters leaves room for the number of the track.
  const auto track = static_cast<unsigned char>(block[126]);
  if (block[125] == '\0' && track != 0) add_missing_tag(tags, "track", std::to_string(track));
  add_missing_tag(tags, "genre", genre_name(static_cast<unsigned char>(block[127])));
  return begin;
}

}  // namespace ordelan::audio
