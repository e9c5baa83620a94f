// The drives of Windows.
#pragma once

#include "system/drives.h"

namespace ordelan::win32 {

// Each call asks the system anew: media and sticks come and go. Roots of shares
// ("\\server\share\") have a type, a volume and space too, although `roots` does not list them.
class Win32Drives final : public system::Drives {
 public:
  // Makes Windows report a drive without a medium as a failure, without a box on the screen.
  Win32Drives();

  std::vector<std::string> roots() override;
  system::DriveType type(std::string_view root) override;
  std::optional<system::Volume> volume(std::string_view root) override;
  system::Result<system::DiskSpace> space(std::string_view root) override;
};

}  // namespace ordelan::win32
