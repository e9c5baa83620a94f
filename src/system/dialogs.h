// Questions to the user that the system's own dialogs put.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ordelan::system {

struct OpenRequest {
  std::string filter;  // pairs of a description and its patterns, joined by "|"
  bool several = false;
};

struct SaveRequest {
  std::string filter;     // as above
  std::string extension;  // given to a name that has none: "*.log", or "log"
};

enum class Icon { none, critical, question, exclamation, information };
enum class Buttons { ok, ok_cancel, yes_no };
enum class Answer { ok, cancel, yes, no };

struct Message {
  std::string title;
  std::string text;  // lines joined by CR LF
  Icon icon = Icon::none;
  Buttons buttons = Buttons::ok;
};

struct MenuItem {
  std::string text;  // empty for a line between groups
  bool ticked = false;
  bool enabled = true;
};
// Where a menu comes up: at the pointer, or at what has the keys.
enum class MenuPlace { pointer, focus };

class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // The full paths that the user picked, none when the dialog was cancelled. With `several` off
  // there is at most one. The window's events go on while the dialog is up.
  virtual std::vector<std::string> open_files(const OpenRequest& request) = 0;

  // The full path of a file to be written, empty when the dialog was cancelled. The user has been
  // asked before an existing file is named.
  virtual std::string save_file(const SaveRequest& request) = 0;

  // The full path of a folder, empty when the dialog was cancelled.
  virtual std::string pick_folder(const std::string& title) = 0;

  // Shows a message box and gives the button that ended it. Closing the box without a choice
  // counts as the careful answer: cancel, no, or ok where there is nothing else. Of yes and no,
  // Enter presses no.
  virtual Answer message(const Message& message) = 0;

  // Shows a menu and gives the index of the item that was chosen, nothing where it was put away.
  virtual std::optional<std::size_t> menu(const std::vector<MenuItem>& items, MenuPlace place) = 0;
};

}  // namespace ordelan::system
