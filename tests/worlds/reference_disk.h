// A folder of the machine as drive D:, seen by the slow reference of the program. Nothing in the
// reference includes the program's code: a mistake that both make alike would never be seen.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ordelan::test::reference {

// Windows-1252 bytes as UTF-8, and back. The way back gives nothing for a name that the code page
// cannot hold.
std::string utf8_of(const std::string& ansi);
std::optional<std::string> ansi_of(const std::string& utf8);

// The text with each letter small, or with each letter a capital as UTF-16.
std::string folded(const std::string& ansi);
std::u16string capitals(const std::string& ansi);

bool ends_with(const std::string& text, const std::string& end);
bool contains(const std::string& text, const std::string& part);

// The last component of a path.
std::string name_of(const std::string& path);
// Everything up to the last backslash, from the drive letter on; with that backslash or without.
std::string folder_of(const std::string& path, bool with_backslash);

// Whether a name fits "*." and an extension, also by the short name that Windows gives it: an
// extension of three letters then also stands for the longer ones that begin with it.
bool fits_extension(const std::string& name, const std::string& extension);

// One spelling for all spellings of a path: small letters, backslashes, no ".", ".." or empty
// component.
std::string normalised(const std::string& path);

class Disk {
 public:
  using Identity = std::pair<std::uint64_t, std::uint64_t>;

  // `root` is what D: stands for.
  explicit Disk(std::filesystem::path root) : root_(std::move(root)) {}

  // Where a path of the program is on the machine; nothing if no such file or folder exists.
  std::optional<std::filesystem::path> native(const std::string& path) const;
  // The name that a file has on the disk; empty for a folder and for what does not exist.
  std::string look_up(const std::string& path) const;
  // Volume and number of a file, links followed.
  std::optional<Identity> identity(const std::string& path) const;
  // The whole content; empty for what cannot be read.
  std::string bytes(const std::string& path) const;
  // Whether two files can be opened and hold the same bytes.
  bool equal(const std::string& a, const std::string& b) const;

  // Names in a folder in the order of the disk. Links to folders are in neither list.
  std::vector<std::string> files(const std::string& folder) const;
  std::vector<std::string> folders(const std::string& folder) const;
  // Files and folders there whose names the code page cannot hold, on the machine. No links.
  std::vector<std::filesystem::path> unnamed(const std::string& folder) const;

 private:
  std::vector<std::string> list(const std::string& folder, bool want_folders) const;

  std::filesystem::path root_;
};

}  // namespace ordelan::test::reference
