// What the benchmark of the waveform runs on: Linux, and sox beside it.
#pragma once

#include <cstdlib>
#include <string>

#include "posix/mapped_drives.h"
#include "posix/posix_file_system.h"

namespace ordelan::bench {

class WaveformMachine {
 public:
  explicit WaveformMachine(const std::string& folder) : folder_(folder) {
    mapped_.map('D', folder);
  }
  system::FileSystem& files() { return files_; }
  std::string path(const std::string& name) const { return "D:\\" + name; }
  // Runs the rival on the file; false where there is none.
  bool run_rival(const std::string& name) const {
    const std::string command = "sox '" + folder_ + "/" + name + "' -n stat 2>/dev/null";
    return std::system(command.c_str()) == 0;
  }

 private:
  std::string folder_;
  posix::MappedDrives mapped_;
  posix::PosixFileSystem files_{mapped_};
};

}  // namespace ordelan::bench
