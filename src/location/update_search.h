// What the searches of one update of the projects share.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "location/drive_index.h"
#include "work/display_pace.h"

namespace ordelan::location {

// Owned by the job that updates the projects.
struct UpdateSearch {
  // `platform` must outlive it.
  explicit UpdateSearch(const system::Platform& platform)
      : index(platform), display(platform.clock) {}

  DriveIndex index;
  // Of the path that is searched for, with its backslash; set by the job before each search.
  std::string old_folder;
  // By the text::same_file_key of an old folder: the folder, with its backslash, that the user has
  // chosen for all of it.
  std::map<std::string, std::string> chosen;
  // Answers in place of the window when set: the row to take, or nothing for "not found".
  std::function<std::optional<std::string>(const std::vector<std::string>& hits)> on_several;
  // Called before the user is asked, which may take long.
  std::function<void()> before_question;
  work::DisplayPace display;  // of the texts of all its searches
};

}  // namespace ordelan::location
