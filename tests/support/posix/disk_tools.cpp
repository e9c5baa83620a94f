#include "support/disk_tools.h"

#include <system_error>

namespace ordelan::test {

void lengthen(const std::filesystem::path& file, std::uint64_t length) {
  std::filesystem::resize_file(file, length);
}

void remove_tree(const std::filesystem::path& folder) {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

}  // namespace ordelan::test
