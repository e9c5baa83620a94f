// Dialogs answered beforehand, with a record of what was asked.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "system/dialogs.h"

namespace ordelan::headless {

class ScriptedDialogs final : public system::Dialogs {
 public:
  // Answers of the file dialog, one for each time it opens; when they run out it is cancelled.
  std::deque<std::vector<std::string>> files;
  // The same of the dialogs that ask where to save, and of those that ask for a folder.
  std::deque<std::string> saves;
  std::deque<std::string> folders;
  // Answers of message boxes; when they run out the careful button is pressed.
  std::deque<system::Answer> answers;
  // What is chosen from menus, by its text; when they run out, or where it is missing or cannot be
  // chosen, the menu is put away.
  std::deque<std::string> choices;
  // Runs while a dialog is up, before it is answered.
  std::function<void()> on_dialog;

  std::vector<system::OpenRequest> requests;
  std::vector<system::SaveRequest> save_requests;
  std::vector<std::string> folder_titles;
  std::vector<system::Message> messages;
  std::vector<std::vector<system::MenuItem>> menus;
  std::vector<system::MenuPlace> menu_places;

  std::vector<std::string> open_files(const system::OpenRequest& request) override;
  std::string save_file(const system::SaveRequest& request) override;
  std::string pick_folder(const std::string& title) override;
  system::Answer message(const system::Message& message) override;
  std::optional<std::size_t> menu(const std::vector<system::MenuItem>& items,
                                  system::MenuPlace place) override;
};

}  // namespace ordelan::headless
