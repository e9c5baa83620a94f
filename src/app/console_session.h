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
#include "location/drive_window.h"
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
  bool give_up = false;  // of `deshacer`
  bool named = false;
  std::string log;
  // Relinking.
  std::string folder;
  std::string choice;
  bool careful = false;
  // What is read of an audio file.
  std::string audio;
  // How it is played.
  std::optional<double> seconds;
  std::optional<int> volume;
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

// Ticks the boxes of the drives that the options name, and those alone. Gives a complaint about one
// that has no box.
std::optional<std::string> tick(location::UnidadesBuscar& boxes, const Options& options);

// Picks the project that the options name and opens it. Gives the exit code of a failure, nothing
// when some project was decoded.
std::optional<int> open_named_project(Session& session, const Options& options,
                                      const ConsoleHost& host, std::ostream& error);

// Says that no project was decoded, with what the strip says. Gives the exit code.
int no_project(const Session& session, std::ostream& error);

// Prints the text of the strip, with the line ends of a console. False if the strip is hidden.
bool print_strip(const Session& session, std::ostream& error);

// Opens or drops what the options name and removes what no project uses, or prints what would be
// removed. Gives the exit code.
int remove_unused(const Options& options, const ConsoleHost& host, std::ostream& output,
                  std::ostream& error);

// Brings back what a log lists, or prints what would be. Gives the exit code.
int recover(const Options& options, const ConsoleHost& host, std::ostream& output,
            std::ostream& error);

// Writes the pointer files of the listed projects to a folder; updates the listed projects, or
// prints what an update would do; undoes the latest update of the folder of a project. Each gives
// the exit code.
int write_pointers(const Options& options, const ConsoleHost& host, std::ostream& output,
                   std::ostream& error);
int update_projects(const Options& options, const ConsoleHost& host, std::ostream& output,
                    std::ostream& error);
int undo_update(const Options& options, const ConsoleHost& host, std::ostream& output,
                std::ostream& error);

// Prints the text of the tooltips on an audio file, and its details. Gives the exit code.
int show_info(const Options& options, const ConsoleHost& host, std::ostream& output,
              std::ostream& error);

// Plays an audio file and prints the states and labels of the player as they change. Gives the exit
// code.
int play_file(const Options& options, const ConsoleHost& host, std::ostream& output,
              std::ostream& error);

}  // namespace ordelan::app
