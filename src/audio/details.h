// What the header of an audio file says: how long it is, what its samples are like, its tags. Read
// from the bytes that make the file what it is, whatever its name says; nothing is decoded.
//
// Kinds: wav (RIFF with its chunks in any order, RF64, BW64, RIFX, W64), aif and aifc, flac, ogg
// (Vorbis, Opus, FLAC, Speex), mp3, m4a, wma.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "audio/byte_source.h"
#include "audio/tags.h"
#include "system/file_system.h"

namespace ordelan::audio {

// Nothing in a place means that the file does not say it.
struct Detalles {
  std::optional<double> duracion;  // seconds
  std::optional<std::int64_t> canales;
  std::optional<std::int64_t> frecuencia;  // samples a second
  std::optional<std::int64_t> bits;        // of a sample; nothing where sound is stored otherwise
  std::optional<std::int64_t> velocidad;   // bits a second of the sound; the mean where it varies
  Etiquetas etiquetas;
};

// The details of a file; all empty where its kind is unknown or its header is damaged. Reads at
// most ByteSource::kMostBlocks blocks and takes no more memory than that, whatever the file claims.
Detalles read_details(ByteSource& source);

// The same of a file on the disk, which is closed afterwards; all empty where it cannot be read.
Detalles read_details(system::FileSystem& files, const std::string& path);

}  // namespace ordelan::audio
