// The program without a screen, for scripts and for machines without Windows. It presses the
// handlers that the window has, and prints what the lists then hold.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "system/clock.h"
#include "system/drives.h"
#include "system/file_system.h"
#include "system/regional.h"
#include "system/shell.h"

namespace ordelan::app {

// What the machine gives to the console program.
struct ConsoleHost {
  system::FileSystem& files;
  system::Clock& clock;
  system::Regional& regional;
  system::Drives& drives;
  system::Shell& shell;
  // Maps a drive letter to a folder; false if that cannot be. Unset where drives are real.
  std::function<bool(char letter, const std::string& folder)> map_drive;
  // The settings of a configuration file named in UTF-8; of the usual one when empty.
  std::function<std::unique_ptr<settings::Settings>(const std::string& file)> settings;
  // The Windows path, in code-page bytes, that an argument in UTF-8 stands for.
  std::function<std::optional<std::string>(const std::string& argument)> windows_path;
};

// Exit codes.
inline constexpr int kDone = 0;     // decoded
inline constexpr int kRefused = 1;  // the program refused the project; its warning is in `error`
inline constexpr int kMisused = 2;  // wrong use or an unreadable file; one line in `error`

// Runs one command line (UTF-8, without the program's name) and gives the exit code.
int run_console(const std::vector<std::string>& arguments, const ConsoleHost& host,
                std::ostream& output, std::ostream& error);

}  // namespace ordelan::app
