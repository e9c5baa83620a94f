// The chunks of the files that hold sound as it is: wav in all its forms, aif and aifc.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "audio/byte_source.h"

namespace ordelan::audio {

// How the numbers of a file are read: `little_endian` or `big_endian` of integers.h.
using Number = std::uint64_t (*)(std::string_view, std::size_t, std::size_t);

struct Chunk {
  std::string_view name;     // 4 bytes
  std::uint64_t at = 0;      // where its content begins in the file
  std::uint64_t length = 0;  // of the content, as far as the file has it
  Number number = nullptr;
};
using VisitChunk = std::function<void(const Chunk&)>;

// Each calls `visit` with all chunks of a file in their order, and gives false where the bytes are
// of another kind. Lengths that cannot be true are brought into the file; that of an unended
// recording, and those beyond 4 GB, are found.
bool each_riff_chunk(ByteSource& source, const VisitChunk& visit);  // RIFF, RIFX, RF64, BW64
bool each_w64_chunk(ByteSource& source, const VisitChunk& visit);
bool each_aiff_chunk(ByteSource& source, const VisitChunk& visit);

// Whether a file of these is an aifc, which may hold sound that is stored otherwise.
bool is_aifc(ByteSource& source);

// The kind of the samples in a chunk "fmt ": 1 and 3 for whole numbers and fractions as they are.
std::uint64_t wav_kind(std::string_view format, Number number);

}  // namespace ordelan::audio
