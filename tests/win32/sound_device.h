// What the tests of sound need of the machine.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <functional>
#include <string>

#include "win32/ansi_text.h"

namespace ordelan::test {

// Whether anything can be played on this machine.
inline bool has_sound_device() {
  return waveOutGetNumDevs() > 0;
}

inline void sleep_seconds(double seconds) {
  Sleep(static_cast<DWORD>(seconds * 1000));
}

// Waits for it, for ten seconds at most.
inline bool comes(const std::function<bool()>& awaited) {
  for (int turn = 0; turn < 1000 && !awaited(); ++turn) Sleep(10);
  return awaited();
}

// The folder with a sound in each kind of file (scripts/sample-sounds), which $ORDELAN_SOUNDS
// names as Linux does; empty where there is none.
inline std::string sample_sounds() {
  wchar_t named[MAX_PATH + 1] = {};
  if (GetEnvironmentVariableW(L"ORDELAN_SOUNDS", named, MAX_PATH) == 0) return "";
  std::wstring folder = named;
  for (wchar_t& letter : folder) {
    if (letter == L'/') letter = L'\\';
  }
  return win32::narrow(folder.starts_with(L'\\') ? L"Z:" + folder : folder).value_or("");
}

}  // namespace ordelan::test
