// The real program, with a recorder of all that sounds.
#pragma once

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>
#include <string>

#include "sound_recorder.h"
#include "window/ordelan_fixture.h"
#include "window/wait.h"

namespace ordelan::test {

class HeardTest : public OrdelanTest {
 protected:
  void SetUp() override {
    if (sounds().empty()) GTEST_SKIP() << "ORDELAN_SOUNDS names no folder";
    if (waveInGetNumDevs() == 0) GTEST_SKIP() << "nothing can be recorded here";
    recorder.emplace();
  }

  // The folder of scripts/sample-sounds.
  static std::string sounds() {
    char named[MAX_PATH + 1] = {};
    if (GetEnvironmentVariableA("ORDELAN_SOUNDS", named, MAX_PATH) == 0) return "";
    std::string folder = named;
    std::replace(folder.begin(), folder.end(), '/', '\\');
    return folder.starts_with('\\') ? "Z:" + folder : folder;
  }
  static std::string sound(const std::string& name) { return sounds() + "\\" + name; }

  // Whether that pitch comes to be heard, within 1 percent. A busy machine has gaps in between.
  bool sounds_at(double pitch) {
    return wait_for(
        [&] {
          const Samples heard = recorder->record(0.2);
          return level(heard) > kHeard && std::abs(frequency(heard) - pitch) < pitch * 0.01;
        },
        std::chrono::seconds(5));
  }
  bool falls_silent() {
    return wait_for([&] { return level(recorder->record(0.1)) < kSilent; });
  }

  static constexpr double kHeard = 0.003;
  static constexpr double kSilent = 0.0005;
  std::optional<SoundRecorder> recorder;
};

}  // namespace ordelan::test
