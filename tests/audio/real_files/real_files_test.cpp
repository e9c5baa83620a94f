// Details of files that real encoders write, against what ffprobe says of them.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "audio/details_bench.h"
#include "test_disk.h"
#include "text/code_page.h"
#include "tools/program_run.h"

namespace ordelan::test {
namespace {

using ProbeJson = nlohmann::json;

struct EncodedFile {
  const char* name;  // of the test
  const char* file;
  std::vector<std::string> options;  // of ffmpeg, or of sox before and after the name of the file
  bool tags = true;                  // the encoder writes tags that ffprobe sees
  double seconds = 0.0015;           // how far the durations may be apart
  double rate = 0.01;                // how far the bit rates may be apart, as a part of one
  bool sox = false;
};

void PrintTo(const EncodedFile& file, std::ostream* output) {
  *output << file.name;
}

std::vector<std::string> command_of(const EncodedFile& file, const std::string& target) {
  std::vector<std::string> command;
  if (file.sox) {
    command = {"sox", "-V1", "-R", "-n"};
    command.insert(command.end(), file.options.begin(), file.options.end());
    for (const char* part : {target.c_str(), "synth", "2", "pinknoise", "vol", "0.5"}) {
      command.emplace_back(part);
    }
    return command;
  }
  command = {"ffmpeg",   "-v", "error",
             "-nostdin", "-y", "-f",
             "lavfi",    "-i", "anoisesrc=duration=2:sample_rate=44100:seed=1:amplitude=0.3"};
  for (const std::string tag :
       {"title=Canci\xF3n",
        "artist=Los \xD1"
        "and\xFA"
        "es",
        "album=Uno", "date=2001", "genre=Rock", "track=3", "comment=\xBFqu\xE9?"}) {
    command.emplace_back("-metadata");
    command.push_back(text::to_utf8(tag));
  }
  command.insert(command.end(), file.options.begin(), file.options.end());
  command.push_back(target);
  return command;
}

std::optional<std::int64_t> probed_number(const ProbeJson& object, const char* key) {
  if (!object.contains(key)) return std::nullopt;
  const ProbeJson& value = object[key];
  const std::int64_t number =
      value.is_string() ? std::stoll(value.get<std::string>()) : value.get<std::int64_t>();
  return number == 0 ? std::nullopt : std::optional(number);
}

// Every tag of the probe under its name in small letters.
std::vector<std::pair<std::string, std::string>> tags_of(const ProbeJson& probe) {
  std::vector<std::pair<std::string, std::string>> tags;
  for (const ProbeJson& place : {probe["format"], probe["streams"][0]}) {
    if (!place.contains("tags")) continue;
    for (const auto& [name, text] : place["tags"].items()) {
      tags.emplace_back(text::lower(name), text::from_utf8(text.get<std::string>()).value());
    }
  }
  return tags;
}

class RealFile : public ::testing::TestWithParam<EncodedFile> {
 protected:
  TestDisk disk_;
};

TEST_P(RealFile, has_the_details_that_ffprobe_finds) {
  const EncodedFile& file = GetParam();
  const std::string native = disk_.native_path(file.file).string();
  const auto encoded = studio::run_program(command_of(file, native));
  ASSERT_EQ(encoded.exit_code, 0) << encoded.errors;
  const auto probed = studio::run_program(
      {"ffprobe", "-v", "error", "-show_format", "-show_streams", "-of", "json", native});
  ASSERT_EQ(probed.exit_code, 0) << probed.errors;
  const ProbeJson probe = ProbeJson::parse(probed.output);
  const ProbeJson& stream = probe["streams"][0];
  const audio::Detalles details = audio::read_details(disk_.files(), disk_.path(file.file));

  ASSERT_TRUE(details.duracion);
  EXPECT_NEAR(*details.duracion, std::stod(probe["format"]["duration"].get<std::string>()),
              file.seconds);
  EXPECT_EQ(details.canales, probed_number(stream, "channels"));
  EXPECT_EQ(details.frecuencia, probed_number(stream, "sample_rate"));
  const auto raw_bits = probed_number(stream, "bits_per_raw_sample");
  EXPECT_EQ(details.bits, raw_bits ? raw_bits : probed_number(stream, "bits_per_sample"));
  // The stream of an ogg says the rate that was aimed at, not that of the file.
  const bool aimed = stream["codec_name"] == "vorbis";
  const auto stream_rate = aimed ? std::nullopt : probed_number(stream, "bit_rate");
  const auto rate = stream_rate ? stream_rate : probed_number(probe["format"], "bit_rate");
  ASSERT_TRUE(details.velocidad);
  EXPECT_NEAR(static_cast<double>(*details.velocidad) / static_cast<double>(rate.value()), 1,
              file.rate);

  std::size_t compared = 0;
  for (const auto& [name, text] : tags_of(probe)) {
    for (const char* usual : {"title", "artist", "album", "date", "genre", "track", "comment"}) {
      if (name != usual) continue;
      EXPECT_EQ(tag_of(details, name), text) << name;
      ++compared;
    }
  }
  EXPECT_EQ(compared > 0, file.tags);
}

EncodedFile by_ffmpeg(const char* name, const char* file, std::vector<std::string> options) {
  return {name, file, std::move(options)};
}
EncodedFile by_sox(const char* name, const char* file, std::vector<std::string> options) {
  EncodedFile made{name, file, std::move(options)};
  made.sox = true;
  made.tags = false;
  return made;
}
EncodedFile without_tags(EncodedFile file) {
  file.tags = false;
  return file;
}
EncodedFile with_tags(EncodedFile file) {
  file.tags = true;
  return file;
}
EncodedFile about(double seconds, double rate, EncodedFile file) {
  file.seconds = seconds;
  file.rate = rate;
  return file;
}

INSTANTIATE_TEST_SUITE_P(
    Wav, RealFile,
    ::testing::Values(by_ffmpeg("bits_8", "a.wav", {"-c:a", "pcm_u8"}),
                      by_ffmpeg("bits_16_stereo", "a.wav", {"-c:a", "pcm_s16le", "-ac", "2"}),
                      by_ffmpeg("bits_24", "a.wav", {"-c:a", "pcm_s24le", "-ar", "96000"}),
                      by_ffmpeg("bits_32", "a.wav", {"-c:a", "pcm_s32le"}),
                      by_ffmpeg("fractions_32", "a.wav", {"-c:a", "pcm_f32le"}),
                      by_ffmpeg("fractions_64", "a.wav", {"-c:a", "pcm_f64le"}),
                      by_ffmpeg("extensible", "a.wav", {"-c:a", "pcm_s24le", "-ac", "6"}),
                      by_ffmpeg("adpcm", "a.wav", {"-c:a", "adpcm_ms"}),
                      by_ffmpeg("mp3_inside", "a.wav", {"-c:a", "libmp3lame"}),
                      by_ffmpeg("rf64", "a.wav", {"-c:a", "pcm_s16le", "-rf64", "always"}),
                      by_ffmpeg("broadcast", "a.wav", {"-c:a", "pcm_s16le", "-write_bext", "1"}),
                      without_tags(by_ffmpeg("w64", "a.w64", {"-c:a", "pcm_s24le", "-ac", "2"})),
                      by_sox("sox_24", "a.wav", {"-r", "48000", "-c", "2", "-b", "24"}),
                      by_sox("sox_32", "a.wav", {"-r", "44100", "-c", "1", "-b", "32"}),
                      by_sox("sox_mu_law", "a.wav", {"-r", "8000", "-c", "1", "-e", "mu-law"}),
                      by_sox("sox_w64", "a.w64", {"-r", "44100", "-c", "2", "-b", "16"})),
    [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Aif, RealFile,
    ::testing::Values(by_ffmpeg("bits_16", "a.aif", {"-c:a", "pcm_s16be"}),
                      by_ffmpeg("bits_24", "a.aif", {"-c:a", "pcm_s24be", "-ac", "2"}),
                      by_ffmpeg("little_endian", "a.aif", {"-c:a", "pcm_s16le"}),
                      about(0.0015, 0.01, by_ffmpeg("ima", "a.aif", {"-c:a", "adpcm_ima_qt"})),
                      by_ffmpeg("id3", "a.aif", {"-c:a", "pcm_s16be", "-write_id3v2", "1"}),
                      by_sox("sox", "a.aiff", {"-r", "48000", "-c", "2", "-b", "16"}),
                      by_sox("sox_aifc", "a.aifc", {"-r", "44100", "-c", "1", "-b", "24"})),
    [](const auto& tested) { return std::string(tested.param.name); });

// The heads, which ffprobe counts as sound where it has no better number, are a part of short
// files.
INSTANTIATE_TEST_SUITE_P(
    Packed, RealFile,
    ::testing::Values(
        about(0.0015, 0.06, by_ffmpeg("flac_16", "a.flac", {"-c:a", "flac"})),
        about(0.0015, 0.06,
              by_ffmpeg("flac_24", "a.flac",
                        {"-c:a", "flac", "-sample_fmt", "s32", "-ar", "96000"})),
        about(0.0015, 0.25, by_ffmpeg("vorbis", "a.ogg", {"-c:a", "libvorbis", "-ac", "2"})),
        about(0.0075, 0.06, by_ffmpeg("opus", "a.opus", {"-c:a", "libopus", "-b:a", "128k"})),
        about(0.0015, 0.06, by_ffmpeg("flac_in_ogg", "a.ogg", {"-c:a", "flac"})),
        by_ffmpeg("aac", "a.m4a", {"-c:a", "aac", "-b:a", "128k"}),
        by_ffmpeg("aac_description_first", "a.m4a",
                  {"-c:a", "aac", "-ac", "6", "-ar", "48000", "-movflags", "faststart"}),
        by_ffmpeg("alac", "a.m4a", {"-c:a", "alac", "-ac", "2"}),
        by_ffmpeg("wma", "a.wma", {"-c:a", "wmav2", "-b:a", "128k"}),
        by_ffmpeg("wma_1", "a.wma", {"-c:a", "wmav1", "-ac", "2"}),
        with_tags(about(0.0015, 0.06,
                        by_sox("sox_flac", "a.flac", {"-r", "44100", "-c", "2", "-b", "24"}))),
        with_tags(about(0.0015, 0.25, by_sox("sox_vorbis", "a.ogg", {"-r", "44100", "-c", "2"})))),
    [](const auto& tested) { return std::string(tested.param.name); });

const std::vector<std::string> kLame = {"-c:a", "libmp3lame"};

std::vector<std::string> lame(std::vector<std::string> more) {
  more.insert(more.begin(), kLame.begin(), kLame.end());
  return more;
}

INSTANTIATE_TEST_SUITE_P(
    Mp3, RealFile,
    ::testing::Values(by_ffmpeg("steady_third_version", "a.mp3",
                                lame({"-b:a", "128k", "-id3v2_version", "3", "-write_id3v1", "1"})),
                      by_ffmpeg("varying_fourth_version", "a.mp3",
                                lame({"-q:a", "2", "-id3v2_version", "4", "-ac", "2"})),
                      by_ffmpeg("mean_rate", "a.mp3", lame({"-abr", "1", "-b:a", "160k"})),
                      // Without a count ffprobe takes a tag at the end for sound: 128 bytes.
                      about(0.02, 0.01,
                            by_ffmpeg("without_a_count", "a.mp3",
                                      lame({"-b:a", "64k", "-ar", "22050", "-write_xing", "0",
                                            "-id3v2_version", "0", "-write_id3v1", "1"}))),
                      by_ffmpeg("low_rate", "a.mp3", lame({"-b:a", "16k", "-ar", "11025"})),
                      by_sox("sox", "a.mp3", {"-r", "44100", "-c", "2", "-C", "128"}),
                      by_sox("sox_varying", "a.mp3", {"-r", "48000", "-c", "1", "-C", "-4.2"}),
                      by_sox("layer_2", "a.mp2", {"-r", "44100", "-c", "2"})),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace ordelan::test
