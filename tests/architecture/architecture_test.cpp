// The rules of the source tree, checked on the tree as it is.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "architecture/source_rules.h"

namespace ordelan::test {
namespace {

using ::testing::IsEmpty;

Sources read_sources() {
  const std::filesystem::path root = std::filesystem::path(ORDELAN_SOURCE_DIR) / "src";
  Sources sources;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    sources[entry.path().lexically_relative(root).generic_string()] = {
        std::istreambuf_iterator<char>(file), {}};
  }
  return sources;
}

struct Architecture : ::testing::Test {
  static const Sources& sources() {
    static const Sources read = read_sources();
    return read;
  }
};

TEST_F(Architecture, the_sources_exist) {
  // Without this, a moved folder would make all the others pass.
  EXPECT_GT(sources().size(), 70u);
  ASSERT_EQ(sources().count("ui/window.h"), 1u);
  EXPECT_FALSE(includes_of(sources().at("ui/window.h")).empty());
}

TEST_F(Architecture, includes_only_go_down) {
  EXPECT_THAT(upward_includes(sources()), IsEmpty());
}

TEST_F(Architecture, no_file_includes_itself_by_way_of_others) {
  EXPECT_THAT(circles(sources()), IsEmpty());
}

TEST_F(Architecture, the_headers_of_one_system_stay_in_its_room) {
  EXPECT_THAT(misplaced_system_headers(sources()), IsEmpty());
}

TEST_F(Architecture, no_file_asks_which_system_it_is_on) {
  EXPECT_THAT(questions_for_the_system(sources()), IsEmpty());
}

TEST_F(Architecture, no_file_is_longer_than_four_hundred_lines) {
  EXPECT_THAT(files_that_are_too_long(sources()), IsEmpty());
}

TEST_F(Architecture, every_header_says_what_it_is_and_is_guarded) {
  EXPECT_THAT(headers_without_their_head(sources()), IsEmpty());
}

}  // namespace
}  // namespace ordelan::test
