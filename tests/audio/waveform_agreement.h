// What holds for the waveform of any bytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "audio/waveform.h"
#include "support/memory_files.h"

namespace ordelan::test {

// A sentence on the first rule that the waveform of a file with these bytes breaks; empty where all
// hold. The first byte says how many columns it has.
inline std::string check_waveform(std::string_view input) {
  if (input.empty()) return {};
  const std::size_t columns = 1 + static_cast<unsigned char>(input[0]);
  MemoryFiles files;
  const std::string path = "D:\\a.wav";
  files.contents[path] = input.substr(1);
  const auto read = [&](std::string& broken) {
    audio::WaveformReader reader(files, path, columns);
    std::size_t steps = 1;
    while (reader.step()) {
      // A file of a few kilobytes needs a piece a column at the most.
      if (++steps > columns + 2) {
        broken = "too many steps";
        break;
      }
    }
    return reader.columns();
  };
  std::string broken;
  const std::vector<audio::Peaks> all = read(broken);
  if (!broken.empty()) return broken;
  if (!all.empty() && all.size() != columns) return "another number of columns";
  for (const audio::Peaks& peaks : all) {
    if (!(peaks.low >= -1 && peaks.low <= peaks.high && peaks.high <= 1)) return "no peaks";
  }
  if (read(broken) != all) return "other peaks the second time";
  // A disk that fails leaves what was read, or nothing.
  for (const int reads : {0, 1, 2, 5}) {
    int left = reads;
    files.on_read = [&left](std::uint64_t) { return left-- > 0; };
    const std::vector<audio::Peaks> part = read(broken);
    if (!broken.empty()) return broken;
    if (!part.empty() && part.size() != columns) return "another number of columns after a failure";
  }
  return {};
}

}  // namespace ordelan::test
