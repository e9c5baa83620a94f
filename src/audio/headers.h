// One reader for each kind of audio file. Each gives false where the bytes are of another kind and
// has then changed nothing; what a damaged file lacks stays empty.
#pragma once

#include <cstdint>
#include <string_view>

#include "audio/byte_source.h"
#include "audio/details.h"

namespace ordelan::audio {

bool read_riff(ByteSource& source, Detalles& details);
bool read_w64(ByteSource& source, Detalles& details);
bool read_aiff(ByteSource& source, Detalles& details);
bool read_ogg(ByteSource& source, Detalles& details);
bool read_asf(ByteSource& source, Detalles& details);
bool read_mp4(ByteSource& source, Detalles& details);
// These two may have an ID3 tag before them: they begin at `begin`.
bool read_flac(ByteSource& source, std::uint64_t begin, Detalles& details);
bool read_mpeg(ByteSource& source, std::uint64_t begin, Detalles& details);

// The FLAC header block that describes the sound, 34 bytes. Gives the samples in all; 0 where the
// file does not say it.
std::uint64_t read_stream_info(std::string_view block, Detalles& details);

// The tags of an ID3 block that begins at `begin` and ends before `end`. Gives where the block
// ends; `begin` where none is there.
std::uint64_t read_id3(ByteSource& source, std::uint64_t begin, std::uint64_t end, Etiquetas& tags);
// Those of the short block at the end of a file, as far as they have no text yet. Gives where the
// block begins; the file's size without one.
std::uint64_t read_short_id3(ByteSource& source, Etiquetas& tags);

// Sets a number unless it is 0 or larger than any file has reason to say.
void set(std::optional<std::int64_t>& field, std::uint64_t value);
// Sets the duration to `samples` at `rate` a second, where both are sensible.
void set_duration(Detalles& details, double samples, double rate);
// Sets the bit rate of so many bytes of sound, once the duration is set.
void set_mean_rate(Detalles& details, double bytes);

}  // namespace ordelan::audio
