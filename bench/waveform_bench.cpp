// How long the waveform of a file takes: all steps of the reader, and the longest of them, beside
// plainly reading the same bytes and, where there is one, a program that looks at every sample.
//
//   waveform_bench DRIVE-FOLDER FILE-IN-IT [TURNS]
//
// With the file in the system's cache: the first turn is not counted.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "audio/waveform.h"
#include "waveform_machine.h"

namespace {

using namespace ordelan;
using Clock = std::chrono::steady_clock;

double milliseconds_since(Clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double median(std::vector<double> all) {
  std::sort(all.begin(), all.end());
  return all[all.size() / 2];
}

struct Turn {
  double all = 0;
  double longest = 0;
  std::size_t steps = 0;
  audio::Peaks peaks;
};

Turn wave_of(system::FileSystem& files, const std::string& path) {
  Turn turn;
  audio::WaveformReader reader(files, path);
  const auto begin = Clock::now();
  for (bool more = true; more; ++turn.steps) {
    const auto step = Clock::now();
    more = reader.step();
    turn.longest = std::max(turn.longest, milliseconds_since(step));
  }
  turn.all = milliseconds_since(begin);
  for (const audio::Peaks& each : reader.columns()) {
    turn.peaks.low = std::min(turn.peaks.low, each.low);
    turn.peaks.high = std::max(turn.peaks.high, each.high);
  }
  return turn;
}

double plain_reading(system::FileSystem& files, const std::string& path) {
  const auto begin = Clock::now();
  const auto file = files.open(path);
  std::vector<std::uint8_t> buffer(audio::WaveformReader::kPiece);
  std::uint64_t at = 0;
  while (file && at < file->size()) {
    const auto came = file->read(at, buffer);
    if (!came || *came == 0) break;
    at += *came;
  }
  return milliseconds_since(begin);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) return 2;
  bench::WaveformMachine machine(arguments[1]);
  const std::string path = machine.path(arguments[2]);
  const int turns = count > 3 ? std::atoi(arguments[3]) : 9;
  std::vector<double> all;
  std::vector<double> longest;
  std::vector<double> plain;
  std::vector<double> rival;
  Turn last = wave_of(machine.files(), path);
  for (int i = 0; i < turns; ++i) {
    plain.push_back(plain_reading(machine.files(), path));
    last = wave_of(machine.files(), path);
    all.push_back(last.all);
    longest.push_back(last.longest);
    const auto begin = Clock::now();
    if (machine.run_rival(arguments[2])) rival.push_back(milliseconds_since(begin));
  }
  std::printf("peaks            %.6f to %.6f\n", last.peaks.low, last.peaks.high);
  std::printf("steps            %zu\n", last.steps);
  std::printf("waveform         %.1f ms (median of %d)\n", median(all), turns);
  std::printf("longest step     %.2f ms (median), %.2f ms (of all turns)\n", median(longest),
              *std::max_element(longest.begin(), longest.end()));
  std::printf("plain reading    %.1f ms\n", median(plain));
  if (!rival.empty()) std::printf("sox FILE -n stat %.1f ms\n", median(rival));
  return 0;
}
