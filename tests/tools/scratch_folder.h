// Folders for tests that write real files.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "text/code_page.h"

namespace ordelan::studio {

// A folder of the test's own, removed with its contents at the end.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "ordelan-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch folder");
    path_ = name;
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code none;
    std::filesystem::remove_all(path_, none);
  }

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

// Encoded audio is kept here from one test program to the next.
inline std::filesystem::path shared_cache() {
  return std::filesystem::path(ORDELAN_BINARY_DIR) / "muestras";
}

inline std::string bytes_of(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void put(const std::filesystem::path& file, std::string_view bytes) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

// Every file under a folder with its bytes, by its path from there (code-page text, backslashes).
inline std::map<std::string, std::string> tree_of(const std::filesystem::path& root) {
  std::map<std::string, std::string> tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    if (!entry.is_regular_file()) continue;
    std::string name = text::from_utf8(entry.path().lexically_relative(root).string()).value();
    for (char& letter : name) {
      if (letter == '/') letter = '\\';
    }
    tree[name] = bytes_of(entry.path());
  }
  return tree;
}

}  // namespace ordelan::studio
