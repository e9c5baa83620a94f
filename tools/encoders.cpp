#include "tools/encoders.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <system_error>
#include <vector>

#include "text/code_page.h"
#include "tools/program_run.h"

namespace ordelan::studio {
namespace {

namespace fs = std::filesystem;

std::string seconds(int milliseconds) {
  const std::string fraction = std::to_string(1000 + milliseconds % 1000).substr(1);
  return std::to_string(milliseconds / 1000) + "." + fraction;
}

// sox writes 24-bit and 32-bit WAV in the long form of the header, as recording programs do.
std::vector<std::string> sox_command(const Tone& tone, const std::string& target) {
  const std::string bits = tone.format == Format::wav24 ? "24" : "32";
  return {"sox",
          "-V1",
          "-R",
          "-D",
          "-n",
          "-t",
          "wav",
          "-r",
          std::to_string(tone.sample_rate),
          "-c",
          "1",
          "-e",
          "signed-integer",
          "-b",
          bits,
          target,
          "synth",
          seconds(tone.milliseconds),
          "sine",
          std::to_string(tone.hertz),
          "vol",
          "0.5"};
}

std::vector<std::string> ffmpeg_command(const Tone& tone, const std::string& target) {
  const std::string source = "sine=frequency=" + std::to_string(tone.hertz) +
                             ":sample_rate=" + std::to_string(tone.sample_rate) +
                             ":duration=" + seconds(tone.milliseconds);
  // Without the exact flags the encoders write their version and the day into the file.
  std::vector<std::string> command = {
      "ffmpeg",   "-hide_banner", "-nostdin", "-v", "error",         "-y", "-f",      "lavfi",
      "-i",       source,         "-threads", "1",  "-map_metadata", "-1", "-fflags", "+bitexact",
      "-flags:a", "+bitexact"};
  const auto add = [&](std::initializer_list<std::string> more) {
    command.insert(command.end(), more);
  };
  switch (tone.format) {
    case Format::mp3:
      add({"-c:a", "libmp3lame", "-b:a", "64k", "-f", "mp3", "-id3v2_version", "3", "-write_id3v1",
           "0"});
      if (!tone.title.empty()) add({"-metadata", "title=" + text::to_utf8(tone.title)});
      if (!tone.artist.empty()) add({"-metadata", "artist=" + text::to_utf8(tone.artist)});
      break;
    case Format::flac:
      add({"-c:a", "flac", "-f", "flac"});
      break;
    case Format::ogg:
      add({"-c:a", "libvorbis", "-f", "ogg"});
      break;
    case Format::aif:
    case Format::aiff:
      add({"-c:a", "pcm_s16be", "-f", "aiff"});
      break;
    case Format::m4a:
      add({"-c:a", "aac", "-f", "ipod"});
      break;
    case Format::wma:
      add({"-c:a", "wmav2", "-f", "asf"});
      break;
    default:
      add({"-c:a", "pcm_s16le", "-f", "wav"});
      break;
  }
  command.push_back(target);
  return command;
}

// The short tag at the end of an mp3. It is written here because its texts are code-page bytes on
// every machine with Windows, and ffmpeg would write UTF-8.
std::string short_tag(const Tone& tone) {
  constexpr std::size_t kText = 30;
  std::string tag = "TAG";
  for (const std::string& text : {tone.title, tone.artist}) {
    std::string field = text.substr(0, kText);
    field.resize(kText, '\0');
    tag += field;
  }
  tag.resize(127, '\0');
  tag += '\xFF';
  return tag;
}

std::uint64_t text_hash(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325u;
  for (const char letter : text) {
    hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3u;
  }
  return hash;
}

std::string_view name_of(Format format) {
  switch (format) {
    case Format::wav24:
      return "wav24";
    case Format::wav32:
      return "wav32";
    default:
      return extension_of(format);
  }
}

std::string cache_name(const Tone& tone) {
  std::string name = std::string(name_of(tone.format)) + "_" + std::to_string(tone.hertz) + "_" +
                     std::to_string(tone.milliseconds) + "_" + std::to_string(tone.sample_rate);
  if (!tone.title.empty() || !tone.artist.empty()) {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx",
                  static_cast<unsigned long long>(text_hash(tone.title + '\n' + tone.artist)));
    name += std::string("_") + digits;
  }
  return name + "." + std::string(extension_of(tone.format));
}

std::string first_line(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

void encode(const Tone& tone, const fs::path& target) {
  const bool by_sox = tone.format == Format::wav24 || tone.format == Format::wav32;
  const std::vector<std::string> command =
      by_sox ? sox_command(tone, target.string()) : ffmpeg_command(tone, target.string());
  const ProgramResult result = run_program(command);
  if (!result.started || result.exit_code == 127) {
    throw EncoderError(text::to_utf8("falta el codificador ") + command.front());
  }
  std::error_code none;
  if (result.exit_code != 0 || fs::file_size(target, none) == 0 || none) {
    throw EncoderError(command.front() + text::to_utf8(" no pudo codificar ") + cache_name(tone) +
                       ": " + first_line(result.errors));
  }
  if (tone.format != Format::mp3 || (tone.title.empty() && tone.artist.empty())) return;
  std::ofstream file(target, std::ios::binary | std::ios::app);
  file << short_tag(tone);
  file.close();
  if (!file) throw EncoderError(text::to_utf8("no se pudo escribir ") + target.string());
}

}  // namespace

std::string_view extension_of(Format format) {
  switch (format) {
    case Format::mp3:
      return "mp3";
    case Format::flac:
      return "flac";
    case Format::ogg:
      return "ogg";
    case Format::aif:
      return "aif";
    case Format::aiff:
      return "aiff";
    case Format::m4a:
      return "m4a";
    case Format::wma:
      return "wma";
    default:
      return "wav";
  }
}

Encoders::Encoders(fs::path cache) : cache_(std::move(cache)) {}

fs::path Encoders::file(const Tone& tone) {
  const fs::path target = cache_ / cache_name(tone);
  std::error_code failure;
  if (fs::exists(target, failure)) return target;
  fs::create_directories(cache_, failure);
  if (failure) {
    throw EncoderError(text::to_utf8("no se pudo crear ") + cache_.string() + ": " +
                       failure.message());
  }
  // Others may want the same tone at this moment: they must see a whole file or none.
  const fs::path unfinished = cache_ / (std::to_string(::getpid()) + "_" + cache_name(tone));
  try {
    encode(tone, unfinished);
    fs::rename(unfinished, target);
  } catch (const fs::filesystem_error& error) {
    fs::remove(unfinished, failure);
    throw EncoderError(error.what());
  } catch (...) {
    fs::remove(unfinished, failure);
    throw;
  }
  return target;
}

}  // namespace ordelan::studio
