// The program without a screen, for scripts and for machines without Windows. It presses the
// handlers that the window has, and prints what the lists then hold.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "app/argument_path.h"
#include "system/clock.h"
#include "system/drives.h"
#include "system/file_system.h"
#include "system/media.h"
#include "system/regional.h"
#include "system/shell.h"

namespace ordelan::app {

// A configuration file: its path and the file system in which that is one.
struct ConfigFile {
  system::FileSystem& files;
  ArgumentPath place;
};

// What the machine gives to the console program.
struct ConsoleHost {
  system::FileSystem& files;
  system::Clock& clock;
  system::Regional& regional;
  system::Drives& drives;
  system::Shell& shell;
  system::Media& media;
  // Maps a drive letter to a folder; false if that cannot be. Unset where drives are real.
  std::function<bool(char letter, const std::string& folder)> map_drive;
  // Where the configuration file lies that was named, in UTF-8.
  std::function<ConfigFile(const std::string& file)> config;
  // The path of an argument in UTF-8.
  std::function<ArgumentPath(const std::string& argument)> windows_path;
  // Sleeps for a moment, and lets the machine hand over what has happened meanwhile.
  std::function<void()> rest;
  // Called with the exit code when all is printed and saved, and may end the program there: a large
  // studio takes a while to free. Unset where the caller goes on.
  std::function<void(int code)> leave = nullptr;
};

// Exit codes.
inline constexpr int kDone = 0;     // something was decoded, or found, and saved where asked for
inline constexpr int kRefused = 1;  // nothing decoded or found, or not saved; `error` says why
inline constexpr int kMisused = 2;  // wrong use, or nothing to read; a line for each in `error`

// Runs one command line (UTF-8, without the program's name) and gives the exit code. Settings are
// read and never written; a named configuration that cannot be read is reported in `error`, and the
// defaults count in its place.
int run_console(const std::vector<std::string>& arguments, const ConsoleHost& host,
                std::ostream& output, std::ostream& error);

}  // namespace ordelan::app
