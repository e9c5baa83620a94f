// The folder that a sample studio is made in. A file in it lists what the studio consists of, so
// that a studio can be made anew in the same place without touching anything else that lies there.
#pragma once

#include <filesystem>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::studio {

// The folder must not be used for a studio. The text is UTF-8, one line.
class StudioRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The file with the list, in the studio's root.
inline constexpr std::string_view kListName = ".ordelan-studio";

class StudioFolder {
 public:
  // Looks at `root` and changes nothing. Throws StudioRefused when it is no folder, or has contents
  // and no list, or a list that speaks of anything outside of it.
  explicit StudioFolder(std::filesystem::path root);

  // Throws StudioRefused when one of the files (relative to the root) exists and is not of the
  // studio that lies here.
  void check(const std::vector<std::filesystem::path>& files) const;

  // Removes the files and the then empty folders of the studio that lies here.
  void clear();

  // Creates the root if it is missing, writes the list of the files to come, and makes their
  // folders. Throws std::runtime_error when that fails.
  void claim(const std::vector<std::filesystem::path>& files);

  // Writes one of the claimed files. Throws std::runtime_error when it exists or cannot be written.
  void write(const std::filesystem::path& file, std::string_view bytes) const;

 private:
  void read_list();

  std::filesystem::path root_;
  std::set<std::filesystem::path> files_;    // of the studio that lies here, relative
  std::set<std::filesystem::path> folders_;  // made for it, relative
};

}  // namespace ordelan::studio
