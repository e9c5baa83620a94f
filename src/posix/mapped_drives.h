// Drive letters that stand for folders, on a system that has none.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/drives.h"

namespace ordelan::posix {

// Whether Windows could give this name to a file, as far as its characters go.
bool is_windows_name(std::string_view name);

// How a mapped letter appears as a drive.
struct MappedDrive {
  system::DriveType type = system::DriveType::fixed;
  std::string label;
  bool medium = true;  // without one the drive exists, but no path leads into it
};

class MappedDrives {
 public:
  // Maps drive `letter` (either case) to an existing folder. False if the letter is none or the
  // folder is missing; the old mapping stays then.
  bool map(char letter, const std::string& folder, MappedDrive drive = {});

  // The capital letters that are mapped, from A upwards.
  std::vector<char> letters() const;

  // The drive of the letter (either case). Null if it is not mapped; invalid after the next `map`.
  const MappedDrive* drive(char letter) const;

  // The native path of a Windows path; slashes separate too, and "." and ".." are resolved in the
  // text. Names are looked up as Windows does, case ignored; where the
  // disk holds several that differ by case, the exact one is taken. A last name that does
  // not exist yet is given as it would be created. Nothing for a path without a mapped drive or
  // medium, with a NUL, a wildcard or a character that no Windows name has, or in a missing folder.
  std::optional<std::string> native(std::string_view path) const;

  // The same without a look at the disk: the path as it is spelt, whether there is such a name or
  // not. Nothing where no disk could make `native` give anything.
  std::optional<std::string> spelt(std::string_view path) const;

  // The Windows path of a native one that is a mapped folder or lies under one. Nothing where a
  // name of the path is one that Windows could not hold.
  std::optional<std::string> windows(const std::string& native_path) const;

  // What follows the mapped folder in such a native path, also where `windows` gives nothing. It
  // distinguishes a path on no drive from one with a name that Windows could not hold.
  std::optional<std::string> below_drive(const std::string& native_path) const;

 private:
  struct Place {
    std::string folder;  // without a slash at its end
    MappedDrive drive;
  };

  // The drive of an absolute path and the names that follow, nothing for any other path.
  struct Cut {
    const std::string& folder;
    std::vector<std::string_view> names;
  };
  std::optional<Cut> cut(std::string_view path) const;

  // The drive of a native path, its links resolved, and what follows the drive's folder.
  struct Below {
    char letter;
    std::string rest;  // begins with a slash, or is empty
  };
  std::optional<Below> below(const std::string& native_path) const;

  std::map<char, Place> places_;  // by capital letter
};

}  // namespace ordelan::posix
