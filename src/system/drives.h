// The drives of the machine.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/status.h"

namespace ordelan::system {

// The kinds of drives, by the numbers that Windows gives them.
enum class DriveType {
  unknown = 0,
  no_root_dir = 1,
  removable = 2,
  fixed = 3,
  remote = 4,
  cdrom = 5,
  ramdisk = 6
};

struct Volume {
  std::string label;
  std::uint32_t serial = 0;
  std::string system;  // the name of its file system, "NTFS" say
};

struct DiskSpace {
  std::uint64_t total = 0;  // bytes
  std::uint64_t free = 0;   // bytes, of those the user may fill
};

class Drives {
 public:
  virtual ~Drives() = default;

  // The root ("X:\\") of every drive, from A upwards.
  virtual std::vector<std::string> roots() = 0;

  // The kind of the drive with that root; no_root_dir where there is none.
  virtual DriveType type(std::string_view root) = 0;

  // The volume in the drive. Nothing if there is no such drive or no medium in it; no dialog of
  // the system's asks for one.
  virtual std::optional<Volume> volume(std::string_view root) = 0;

  // The room on the volume. Where `volume` gives nothing, the reason: bad_path for
  // what is no root, not_found where no drive has the letter, not_ready without a medium.
  virtual Result<DiskSpace> space(std::string_view root) = 0;
};

}  // namespace ordelan::system
