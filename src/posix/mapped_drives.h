// Drive letters that stand for folders, on a system that has none.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace ordelan::posix {

// Whether Windows could give this name to a file, as far as its characters go.
bool is_windows_name(std::string_view name);

class MappedDrives {
 public:
  // Maps drive `letter` (either case) to an existing folder. False if the letter is none or the
  // folder is not there.
  bool map(char letter, const std::string& folder);

  // The native path of a Windows path. Names are looked up as Windows does, case ignored; where the
  // disk holds several that differ by case, the exact one is taken. A last name that is not there
  // yet is given as it would be created. Nothing for a path without a mapped drive, with a NUL, a
  // wildcard or a character that no Windows name has, or in a folder that is not there.
  std::optional<std::string> native(std::string_view path) const;

  // The Windows path of a native one that is a mapped folder or lies under one. Nothing where a
  // name on the way is none that Windows could hold.
  std::optional<std::string> windows(const std::string& native_path) const;

 private:
  std::map<char, std::string> folders_;  // by capital letter, without a slash at the end
};

}  // namespace ordelan::posix
