// The overview of files that real encoders write, against what sox says of the same samples.
#include "audio/waveform.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "test_disk.h"
#include "tools/program_run.h"

namespace ordelan::test {
namespace {

struct RealWave {
  const char* name;  // of the test
  const char* file;
  std::vector<std::string> options;      // of sox, before the name of the file
  std::vector<std::string> ffmpeg = {};  // in place of it, from a wav that sox has written
  int channels = 2;
};

void PrintTo(const RealWave& file, std::ostream* output) {
  *output << file.name;
}

class WaveformOfReal : public ::testing::TestWithParam<RealWave> {
 protected:
  static void run(const std::vector<std::string>& command) {
    const auto made = studio::run_program(command);
    ASSERT_EQ(made.exit_code, 0) << made.errors;
  }
  std::string native(const char* file) { return disk.native_path(file).string(); }

  // The lowest and the highest sample from one moment to before another, as sox prints them.
  audio::Peaks printed(const char* file, std::uint64_t begin, std::uint64_t end) {
    const auto run =
        studio::run_program({"sox", "-V1", native(file), "-n", "trim", std::to_string(begin) + "s",
                             "=" + std::to_string(end) + "s", "stat"});
    EXPECT_EQ(run.exit_code, 0) << run.errors;
    const auto number = [&](const std::string& title) {
      const std::size_t at = run.errors.find(title);
      EXPECT_NE(at, std::string::npos) << run.errors;
      return at == std::string::npos ? 9 : std::stod(run.errors.substr(at + title.size()));
    };
    return {number("Minimum amplitude:"), number("Maximum amplitude:")};
  }
  TestDisk disk;
};

TEST_P(WaveformOfReal, has_the_peaks_that_sox_finds) {
  const RealWave& each = GetParam();
  constexpr std::uint64_t kMoments = 132'300;  // three seconds
  std::vector<std::string> command = {"sox", "-V1",   "-R", "-n",
                                      "-r",  "44100", "-c", std::to_string(each.channels)};
  command.insert(command.end(), each.options.begin(), each.options.end());
  const char* const first = each.ffmpeg.empty() ? each.file : "first.wav";
  for (const std::string& part :
       {native(first), std::string("synth"), std::string("3"), std::string("pinknoise"),
        std::string("fade"), std::string("0.5"), std::string("0"), std::string("0.7")}) {
    command.push_back(part);
  }
  run(command);
  if (!each.ffmpeg.empty()) {
    command = {"ffmpeg", "-v", "error", "-nostdin", "-y", "-i", native(first)};
    command.insert(command.end(), each.ffmpeg.begin(), each.ffmpeg.end());
    command.push_back(native(each.file));
    run(command);
  }
  audio::WaveformReader reader(disk.files(), disk.path(each.file));
  while (reader.step()) continue;
  ASSERT_EQ(reader.columns().size(), 200u);
  for (const std::uint64_t column : {0, 1, 33, 100, 177, 199}) {
    const audio::Peaks& found = reader.columns()[column];
    const audio::Peaks wanted =
        printed(each.file, column * kMoments / 200, (column + 1) * kMoments / 200);
    EXPECT_NEAR(found.low, wanted.low, 1e-6) << column;
    EXPECT_NEAR(found.high, wanted.high, 1e-6) << column;
  }
  EXPECT_GT(reader.columns()[100].high, 0.02) << "noise, not silence";
}

INSTANTIATE_TEST_SUITE_P(
    Wave, WaveformOfReal,
    ::testing::Values(
        RealWave{"wav_8", "a.wav", {"-b", "8", "-D"}}, RealWave{"wav_16", "a.wav", {"-b", "16"}},
        RealWave{"wav_16_mono", "a.wav", {"-b", "16"}, {}, 1},
        RealWave{"wav_24_of_six", "a.wav", {"-b", "24"}, {}, 6},
        RealWave{"wav_32", "a.wav", {"-b", "32"}},
        RealWave{"wav_float", "a.wav", {"-e", "float", "-b", "32"}},
        RealWave{"wav_double", "a.wav", {"-e", "float", "-b", "64"}},
        RealWave{"w64", "a.w64", {"-b", "24"}}, RealWave{"aif_8", "a.aif", {"-b", "8"}},
        RealWave{"aif_16", "a.aif", {"-b", "16"}}, RealWave{"aif_24", "a.aif", {"-b", "24"}},
        RealWave{"aifc", "a.aifc", {"-b", "16"}},
        RealWave{"rf64", "a.wav", {"-b", "16"}, {"-rf64", "always"}},
        RealWave{"aifc_sowt", "a.aif", {"-b", "16"}, {"-c:a", "pcm_s16le", "-f", "aiff"}}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace ordelan::test
