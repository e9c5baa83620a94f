// Small real audio files, made by real encoders (ffmpeg and sox run as programs).
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ordelan::studio {

// An encoder is missing or failed. The text is UTF-8, one line.
class EncoderError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Format { wav16, wav24, wav32, mp3, flac, ogg, aif, aiff, m4a, wma };

// A sine tone. Title and artist (code-page text) go into the tag of an mp3; other formats carry
// none.
struct Tone {
  Format format = Format::wav16;
  int hertz = 440;
  int milliseconds = 300;
  int sample_rate = 44100;
  std::string title = {};
  std::string artist = {};

  bool operator==(const Tone&) const = default;
};

// The extension of a format's files, in small letters and without the dot.
std::string_view extension_of(Format format);

// Makes tones and keeps them in a folder, so that each is encoded once only. Several programs may
// use the same folder at the same time.
class Encoders {
 public:
  // Uses `cache`, which is created on the first tone. The folder and its files stay when the object
  // goes: they belong to the caller.
  explicit Encoders(std::filesystem::path cache);

  // The file with a tone; encodes it if the cache lacks it. The same tone gives the same bytes with
  // the same version of the encoders. Throws EncoderError, and leaves nothing in the cache then.
  std::filesystem::path file(const Tone& tone);

 private:
  std::filesystem::path cache_;
};

}  // namespace ordelan::studio
