// What the benchmark of the waveform runs on: Windows, without another program.
#pragma once

#include <string>

#include "win32/ports/win32_file_system.h"

namespace ordelan::bench {

class WaveformMachine {
 public:
  explicit WaveformMachine(const std::string& folder) : folder_(system::with_backslash(folder)) {}
  system::FileSystem& files() { return files_; }
  std::string path(const std::string& name) const { return folder_ + name; }
  bool run_rival(const std::string&) const { return false; }

 private:
  std::string folder_;
  win32::Win32FileSystem files_;
};

}  // namespace ordelan::bench
