#include "removal/protected_folders.h"

#include <algorithm>

#include "text/paths.h"

namespace ordelan::removal {

bool is_protected(std::string_view path, const std::vector<std::string>& folders) {
  return std::any_of(folders.begin(), folders.end(), [&](std::string_view folder) {
    constexpr std::size_t kLeftOut = 3;  // the drive's letter and colon, and the last character
    const std::string_view piece =
        folder.size() > kLeftOut ? folder.substr(2, folder.size() - kLeftOut) : std::string_view();
    return path.find(piece) != std::string_view::npos;
  });
}

std::string folder_around(std::string_view path, const std::vector<std::string>& folders) {
  const std::string key = text::same_file_key(path);
  for (const std::string& folder : folders) {
    std::string around = text::same_file_key(folder);
    if (around.empty()) continue;
    if (around.back() != '\\') around += '\\';
    if (key.starts_with(around)) return folder;
  }
  return {};
}

}  // namespace ordelan::removal
