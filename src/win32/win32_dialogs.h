// Windows' own dialogs.
#pragma once

#include "system/dialogs.h"

namespace ordelan::win32 {

class Win32Backend;

class Win32Dialogs final : public system::Dialogs {
 public:
  // The dialogs belong to the window that the user works in; `backend` knows which, and must
  // outlive this.
  explicit Win32Dialogs(const Win32Backend& backend) : backend_(backend) {}

  // Names that the code page cannot hold are left out of what was picked.
  std::vector<std::string> open_files(const system::OpenRequest& request) override;
  system::Answer message(const system::Message& message) override;

 private:
  const Win32Backend& backend_;
};

}  // namespace ordelan::win32
