// What the commands of the console program share: their options and the program that they drive.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/console.h"
#include "app/program.h"
#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "settings/settings.h"

namespace ordelan::app {

struct Options {
  std::vector<std::string> drives;
  std::optional<std::string> config;
  bool json = false;
  std::string project;
  std::vector<std::string> items;
  std::string name;
  std::vector<std::string> where;
  std::optional<bool> subfolders;
  std::optional<bool> backups;
  // Removal and recovery.
  std::optional<std::string> copy_to;
  std::optional<bool> to_bin;
  std::vector<std::string> keep;
  bool side_files = false;
  bool unchecked = false;
  bool simulate = false;
  bool named = false;
  std::string log;
};

// Says what is wrong with an argument, in a line of its own. `complaint` is code-page text.
void complain(std::ostream& error, const std::string& argument, const std::string& complaint);

// Why a file cannot be read; nothing when it can.
std::optional<std::string> unreadable(const ArgumentPath& file, const ConsoleHost& host);

// The paths of the items that exist; each other one is named in `error`.
std::vector<std::string> existing(const std::vector<std::string>& items, const ConsoleHost& host,
                                  std::ostream& error);

// The program on a backend that shows nothing, with every answer recorded.
struct Session {
  Session(const ConsoleHost& host, const Options& options, std::ostream& error);

  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend;
  system::Platform platform;
  std::unique_ptr<settings::Settings> settings;
  Program program;
};

// Ticks the boxes of the main window that the options name.
void set_boxes(main_window::Form1& form, const Options& options);

// Prints the text of the strip, with the line ends of a console. False if the strip is hidden.
bool print_strip(const Session& session, std::ostream& error);

// Opens or drops what the options name and removes what no project uses, or prints what would be
// removed. Gives the exit code.
int remove_unused(const Options& options, const ConsoleHost& host, std::ostream& output,
                  std::ostream& error);

// Brings back what a log lists, or prints what would be. Gives the exit code.
int recover(const Options& options, const ConsoleHost& host, std::ostream& output,
            std::ostream& error);

}  // namespace ordelan::app
