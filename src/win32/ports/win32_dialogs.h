// Windows' own dialogs.
#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "system/dialogs.h"
#include "win32/ole_session.h"

namespace ordelan::win32 {

class Win32Dialogs final : public system::Dialogs {
 public:
  // The dialogs belong to the window that the user works in: `owner` gives it, or null when there
  // is none.
  explicit Win32Dialogs(std::function<HWND()> owner) : owner_(std::move(owner)) {}

  // Names that the code page cannot hold are left out of what was picked; where only one thing is
  // picked, that is as if nothing was.
  std::vector<std::string> open_files(const system::OpenRequest& request) override;
  std::string save_file(const system::SaveRequest& request) override;
  std::string pick_folder(const std::string& title) override;
  system::Answer message(const system::Message& message) override;
  std::optional<std::size_t> menu(const std::vector<system::MenuItem>& items,
                                  system::MenuPlace place) override;

 private:
  std::function<HWND()> owner_;
  OleSession ole_;  // the folder dialog is made of parts that need it
};

}  // namespace ordelan::win32
