// The mapped letters as drives.
#pragma once

#include "posix/mapped_drives.h"
#include "system/drives.h"

namespace ordelan::posix {

// Each mapped letter is a drive of the type, with the label and the medium that its mapping says.
// The rest comes from the disk below its folder.
class PosixDrives final : public system::Drives {
 public:
  // `drives` must outlive this.
  explicit PosixDrives(const MappedDrives& drives) : drives_(drives) {}

  std::vector<std::string> roots() override;
  system::DriveType type(std::string_view root) override;
  std::optional<system::Volume> volume(std::string_view root) override;
  system::Result<system::DiskSpace> space(std::string_view root) override;

 private:
  // The mapping of a root in either case. Null if it is none.
  const MappedDrive* mapped(std::string_view root) const;

  const MappedDrives& drives_;
};

}  // namespace ordelan::posix
