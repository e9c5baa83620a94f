#include "tools/encoders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/tools/scratch_folder.h"
#include "text/code_page.h"
#include "tools/program_run.h"

namespace ordelan::studio {
namespace {

using ::testing::HasSubstr;

// What ffprobe says of a file, one "key=value" a line.
std::string probe(const std::filesystem::path& file, const std::string& entries) {
  const ProgramResult result = run_program(
      {"ffprobe", "-v", "error", "-show_entries", entries, "-of", "default=nw=1", file.string()});
  EXPECT_EQ(result.exit_code, 0) << result.errors;
  return result.output;
}

// PATH as it was comes back at the end of the test.
class OtherPath {
 public:
  explicit OtherPath(const std::string& path) : old_(std::getenv("PATH")) {
    ::setenv("PATH", path.c_str(), 1);
  }
  OtherPath(const OtherPath&) = delete;
  OtherPath& operator=(const OtherPath&) = delete;
  ~OtherPath() { ::setenv("PATH", old_.c_str(), 1); }

 private:
  std::string old_;
};

struct Case {
  Format format;
  const char* codec;
  const char* extension;
};

class EveryFormat : public ::testing::TestWithParam<Case> {};

TEST_P(EveryFormat, decodes_with_its_codec_and_lasts_as_long_as_asked_for) {
  const ScratchFolder scratch;
  const std::filesystem::path file = Encoders(scratch.path()).file({GetParam().format, 440, 500});
  EXPECT_EQ(file.extension(), std::string(".") + GetParam().extension);
  EXPECT_THAT(probe(file, "stream=codec_name"),
              HasSubstr(std::string("codec_name=") + GetParam().codec + "\n"));
  const std::string duration = probe(file, "format=duration");
  ASSERT_THAT(duration, HasSubstr("duration="));
  EXPECT_NEAR(std::stod(duration.substr(9)), 0.5, 0.12);
  const ProgramResult decoded =
      run_program({"ffmpeg", "-v", "error", "-i", file.string(), "-f", "null", "-"});
  EXPECT_EQ(decoded.exit_code, 0);
  EXPECT_EQ(decoded.errors, "");
}

INSTANTIATE_TEST_SUITE_P(
    Encoders, EveryFormat,
    ::testing::Values(Case{Format::wav16, "pcm_s16le", "wav"},
                      Case{Format::wav24, "pcm_s24le", "wav"},
                      Case{Format::wav32, "pcm_s32le", "wav"}, Case{Format::mp3, "mp3", "mp3"},
                      Case{Format::flac, "flac", "flac"}, Case{Format::ogg, "vorbis", "ogg"},
                      Case{Format::aif, "pcm_s16be", "aif"},
                      Case{Format::aiff, "pcm_s16be", "aiff"}, Case{Format::m4a, "aac", "m4a"},
                      Case{Format::wma, "wmav2", "wma"}),
    [](const auto& tested) {
      return std::string(tested.param.codec) + "_" + tested.param.extension;
    });

TEST(Encoders, the_same_tone_has_the_same_bytes_in_every_format_at_any_time) {
  const ScratchFolder one;
  const ScratchFolder other;
  const auto encode_all = [](const ScratchFolder& cache) {
    for (const Format format :
         {Format::wav16, Format::wav24, Format::wav32, Format::mp3, Format::flac, Format::ogg,
          Format::aif, Format::aiff, Format::m4a, Format::wma}) {
      Encoders(cache.path()).file({format, 523, 250, 44100, "Canción", "Íñigo"});
    }
    return tree_of(cache.path());
  };
  const auto tree = encode_all(one);
  ::usleep(1'100'000);  // a file that holds the time of day would differ now
  EXPECT_EQ(tree.size(), 10u);
  EXPECT_TRUE(tree == encode_all(other));
}

TEST(Encoders, an_mp3_carries_its_title_and_artist_in_both_tags) {
  const ScratchFolder scratch;
  const std::filesystem::path file =
      Encoders(scratch.path())
          .file({Format::mp3, 440, 300, 44100, "Canción del Año", "Los Ñandúes"});
  const std::string tags = probe(file, "format_tags=title,artist");
  EXPECT_THAT(tags, HasSubstr(text::to_utf8("title=Canción del Año\n")));
  EXPECT_THAT(tags, HasSubstr(text::to_utf8("artist=Los Ñandúes\n")));

  const std::string bytes = bytes_of(file);
  ASSERT_GT(bytes.size(), 128u);
  EXPECT_EQ(bytes.substr(0, 3), "ID3");
  const std::string tag = bytes.substr(bytes.size() - 128);
  EXPECT_EQ(tag.substr(0, 18), "TAGCanción del Año");
  EXPECT_EQ(tag.substr(33, 11), "Los Ñandúes");
}

TEST(Encoders, a_tone_is_encoded_once_only) {
  const ScratchFolder scratch;
  Encoders encoders(scratch.path());
  const std::filesystem::path file = encoders.file({Format::wav16, 440, 200});
  put(file, "otra cosa");
  EXPECT_EQ(encoders.file({Format::wav16, 440, 200}), file);
  EXPECT_EQ(bytes_of(file), "otra cosa");
}

TEST(Encoders, tones_that_differ_in_anything_have_files_of_their_own) {
  const ScratchFolder scratch;
  Encoders encoders(scratch.path());
  const Tone first{Format::wav16, 440, 200};
  const std::string bytes = bytes_of(encoders.file(first));
  EXPECT_NE(bytes, bytes_of(encoders.file({Format::wav16, 441, 200})));
  EXPECT_NE(bytes, bytes_of(encoders.file({Format::wav16, 440, 201})));
  EXPECT_NE(bytes, bytes_of(encoders.file({Format::wav16, 440, 200, 8000})));
  EXPECT_NE(bytes, bytes_of(encoders.file({Format::wav24, 440, 200})));
  EXPECT_NE(bytes_of(encoders.file({Format::mp3, 440, 200, 44100, "a"})),
            bytes_of(encoders.file({Format::mp3, 440, 200, 44100, "b"})));
}

TEST(Encoders, a_missing_encoder_is_named_and_leaves_nothing) {
  const ScratchFolder scratch;
  const ScratchFolder empty;
  const OtherPath path(empty.path().string());
  Encoders encoders(scratch.path());
  try {
    encoders.file({Format::flac});
    ADD_FAILURE() << "encoded without an encoder";
  } catch (const EncoderError& error) {
    EXPECT_THAT(error.what(), HasSubstr("ffmpeg"));
  }
  EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
}

TEST(Encoders, a_failing_encoder_is_reported_with_what_it_said_and_leaves_nothing) {
  const ScratchFolder scratch;
  const ScratchFolder programs;
  put(programs / "ffmpeg", "#!/bin/sh\necho 'sin sitio en el disco' >&2\nexit 3\n");
  std::filesystem::permissions(programs / "ffmpeg", std::filesystem::perms::owner_all);
  const OtherPath path(programs.path().string());
  try {
    Encoders(scratch.path()).file({Format::ogg});
    ADD_FAILURE() << "took a failure for success";
  } catch (const EncoderError& error) {
    EXPECT_THAT(error.what(), HasSubstr("sin sitio en el disco"));
  }
  EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
}

TEST(RunProgram, separates_output_errors_and_exit_code) {
  const ProgramResult result = run_program({"sh", "-c", "echo uno; echo dos >&2; exit 7"});
  EXPECT_TRUE(result.started);
  EXPECT_EQ(result.exit_code, 7);
  EXPECT_EQ(result.output, "uno\n");
  EXPECT_EQ(result.errors, "dos\n");
}

TEST(RunProgram, takes_output_larger_than_a_pipe) {
  const ProgramResult result =
      run_program({"sh", "-c", "head -c 300000 /dev/zero; head -c 300000 /dev/zero >&2"});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.output.size(), 300000u);
  EXPECT_EQ(result.errors.size(), 300000u);
}

TEST(RunProgram, a_missing_program_does_not_start) {
  const ProgramResult result = run_program({"no-hay-tal-programa"});
  EXPECT_FALSE(result.started);
  EXPECT_EQ(result.exit_code, -1);
}

}  // namespace
}  // namespace ordelan::studio
