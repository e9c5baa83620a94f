#include "tools/vip_writer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

#include "text/code_page.h"

namespace ordelan::studio {
namespace {

// Readers that stepped over a byte or two after a path, or over a dot, must land on data that
// says nothing.
constexpr std::size_t kQuietStart = 4;
constexpr std::size_t kFolderPadding = 6;
// A search for the marker jumps twelve bytes on after an "L".
constexpr std::size_t kQuietAheadOfMarker = 16;

// The least size not below `size` that has no byte which reads as a colon.
std::uint32_t quiet_size(std::size_t size) {
  std::uint32_t quiet = static_cast<std::uint32_t>(std::min<std::size_t>(size, 0xFFFFFF00u));
  for (unsigned shift = 32; shift > 0;) {
    shift -= 8;
    if (((quiet >> shift) & 0xFFu) != ':') continue;
    // The next higher byte value, and nothing but zeros below it.
    quiet = ((quiet >> shift) + 1) << shift;
  }
  return quiet;
}

// Makes the bytes of [at, end) say nothing: single colons stay, what could follow them in a path
// or make a pair with them goes.
void hush(char* at, char* end) {
  for (char* quiet = at; quiet != end && quiet != at + kQuietStart; ++quiet) {
    if (*quiet == ':' || *quiet == '\\') *quiet = '.';
  }
  while (at != end) {
    char* const colon =
        static_cast<char*>(std::memchr(at, ':', static_cast<std::size_t>(end - at)));
    if (colon == nullptr) return;
    if (end - colon < 4) {
      std::replace(colon, end, ':', '.');
      return;
    }
    for (char* after = colon + 1; after != colon + 4; ++after) {
      if (*after == ':' || *after == '\\') *after = '.';
    }
    at = colon + 4;
  }
}

}  // namespace

VipWriter::VipWriter(std::uint64_t seed) : random_(seed) {
  raw("RIFF");
  little_endian(0);
  raw("VIPSvers");
  little_endian(8);
  little_endian(0x0B02);
  little_endian(static_cast<std::uint32_t>(random_.next()) & 0x00370037u);
  raw("prop");
  noise(kHeaderOffset - bytes_.size());
}

void VipWriter::header(std::string_view text) {
  if (bytes_.size() != kHeaderOffset) throw std::logic_error("a header stands before all else");
  raw(text);
  bytes_ += '\0';
}

std::size_t VipWriter::chunk(std::string_view name, std::size_t size) {
  if (name.size() != 4) throw std::invalid_argument("a chunk's name has four letters");
  const std::uint32_t quiet = quiet_size(size);
  raw(name);
  little_endian(quiet);
  return quiet;
}

void VipWriter::reference(std::string_view path, Field field) {
  if (field == Field::fixed && path.size() >= kPathField) {
    throw std::length_error("the path does not fit its field");
  }
  raw(path);
  bytes_.append(field == Field::fixed ? kPathField - path.size() : 1, '\0');
}

void VipWriter::folder(std::string_view path) {
  raw(path);
  bytes_.append(kFolderPadding, '\0');
}

void VipWriter::noise(std::size_t size) {
  // Each chunk is of one kind: plain random bytes, small 16-bit and 32-bit numbers, and flags.
  constexpr std::array<std::uint64_t, 8> kMasks = {
      ~0ull, 0x00FF00FF00FF00FFull, 0x000000FF000000FFull, 0x0000FFFF0000FFFFull,
      ~0ull, 0x0000000100000001ull, 0x3F7FFFFF3F7FFFFFull, 0x007F7F7F007F7F7Full};
  constexpr std::size_t kStretch = 256;

  const std::size_t start = bytes_.size();
  bytes_.resize(start + size);
  char* at = bytes_.data() + start;
  char* const end = bytes_.data() + bytes_.size();
  std::uint64_t mask = 0;
  for (std::size_t done = 0; done < size; done += sizeof(std::uint64_t)) {
    if (done % kStretch == 0) mask = kMasks[random_.next() >> 61];
    std::uint64_t word = random_.next() & mask;
    // Byte by byte, the lowest first, so that the file is the same on every machine.
    std::array<char, sizeof word> letters{};
    for (char& letter : letters) {
      letter = static_cast<char>(static_cast<unsigned char>(word & 0xFFu));
      word >>= 8;
    }
    std::memcpy(at + done, letters.data(), std::min(letters.size(), size - done));
  }
  hush(at, end);
}

void VipWriter::marker() {
  bytes_.append(kQuietAheadOfMarker, '\0');
  raw("LIST");
  little_endian(quiet_size(random_.below(0x10000)));
  raw("mdrl");
  marked_ = true;
}

void VipWriter::tail(std::string_view bytes) {
  if (!marked_) marker();
  raw(bytes);
}

void VipWriter::raw(std::string_view bytes) {
  bytes_.append(bytes);
}

void VipWriter::little_endian(std::uint32_t value) {
  for (unsigned shift = 0; shift < 32; shift += 8) {
    bytes_ += static_cast<char>(static_cast<unsigned char>((value >> shift) & 0xFFu));
  }
}

std::string VipWriter::take() {
  constexpr std::size_t kRiffHead = 8;
  const std::size_t size = std::min<std::size_t>(bytes_.size() - kRiffHead, 0xFFFFFFFFu);
  for (unsigned i = 0; i < 4; ++i) {
    bytes_[4 + i] = static_cast<char>(static_cast<unsigned char>((size >> (8 * i)) & 0xFFu));
  }
  return std::move(bytes_);
}

bool reads_back(std::string_view path) {
  const std::size_t dot = path.find('.');
  if (dot == std::string_view::npos || path.find(':') != 1 || path.find('\\') != 2) return false;
  if (path.rfind(':') != 1 || path.find('\0') != std::string_view::npos) return false;
  const std::string extension = text::lower(path.substr(dot + 1));
  constexpr std::array<std::string_view, 5> kExtensions = {"mp3", "wav", "aif", "ogg", "flac"};
  return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end();
}

std::string make_vip(std::string_view header, const std::vector<std::string>& references,
                     std::size_t size_hint, std::uint64_t seed) {
  constexpr std::size_t kChunkHead = 8;
  constexpr std::size_t kLeastNoise = 24;
  constexpr std::size_t kTailNoise = 120;
  constexpr std::array<std::string_view, 6> kChunks = {"trak", "objt", "LIST",
                                                       "curv", "plug", "vol "};
  constexpr std::string_view kTailPath = "C:\\Ordelan\\Plantillas\\despedida.wav";

  SeededRandom random(seed);
  VipWriter vip(random.next());
  vip.header(header);

  // Noise in chunks of a few kilobytes until the file has `until` bytes.
  const auto fill = [&](std::size_t until) {
    while (vip.size() + kChunkHead + kLeastNoise < until) {
      const std::size_t room = until - vip.size() - kChunkHead;
      std::size_t size = std::min<std::size_t>(room, 512 + random.below(16384));
      while (quiet_size(size) != size) --size;
      vip.noise(vip.chunk(kChunks[random.below(kChunks.size())], size));
    }
  };

  std::string folder;
  if (!references.empty()) {
    const std::size_t cut = references.front().rfind('\\');
    if (cut != std::string::npos && references.front().find('.') > cut) {
      folder = references.front().substr(0, cut) + "\\FreezeData";
    }
  }

  constexpr std::size_t kClosing = kQuietAheadOfMarker + 12 + kTailPath.size() + 1 + kTailNoise;
  std::size_t needed = kClosing + kChunkHead + 2 * kLeastNoise + folder.size();
  for (const std::string& reference : references) {
    needed += kChunkHead + kLeastNoise + std::max(kPathField, reference.size() + 1);
  }
  const std::size_t spare = size_hint > vip.size() + needed ? size_hint - vip.size() - needed : 0;

  fill(vip.size() + spare / (references.size() + 1));
  if (!folder.empty()) {
    const std::size_t chunk_size = vip.chunk("fldr", folder.size() + kLeastNoise);
    const std::size_t start = vip.size();
    vip.folder(folder);
    vip.noise(chunk_size - (vip.size() - start));
  }
  for (const std::string& reference : references) {
    // A search that steps over the dot of an unknown extension would run on after a single NUL.
    const bool fixed =
        reference.size() < kPathField && (!reads_back(reference) || random.chance(60));
    const std::size_t path_size = fixed ? kPathField : reference.size() + 1;
    const std::size_t chunk_size = vip.chunk("aref", path_size + kLeastNoise / 2);
    vip.reference(reference, fixed ? Field::fixed : Field::terminated);
    vip.noise(chunk_size - path_size);
    fill(vip.size() + spare / (references.size() + 1));
  }
  if (size_hint > vip.size() + kClosing) vip.noise(size_hint - vip.size() - kClosing);
  vip.marker();
  vip.tail(kTailPath);
  vip.raw(std::string_view("\0", 1));
  vip.noise(kTailNoise);
  return vip.take();
}

}  // namespace ordelan::studio
